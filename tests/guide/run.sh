#!/usr/bin/env bash
# run.sh PROGRAM CHAPTER.md: the program prints what its chapter says, in a folder and a registry of its own.
set -eu
scratch=$(mktemp -d)
trap 'kill $(jobs -p) 2>/dev/null || true; rm -rf "$scratch"' EXIT
cd "$scratch"
export COREKIT_HOME=$scratch/home QT_QPA_PLATFORM=offscreen
if [ "$(basename "$1")" = guide_08-ftp ]; then
    mkdir server
    # Writes the port that it was given, once it listens.
    /usr/bin/python3 - >port <<'PYTHON' &
from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer
users = DummyAuthorizer()
users.add_user("guide", "secret", "server", perm="elradfmw")
FTPHandler.authorizer = users
server = FTPServer(("127.0.0.1", 0), FTPHandler)
print(server.address[1], flush=True)
server.serve_forever()
PYTHON
    for ((i = 0; i < 400; ++i)); do [ -s port ] || sleep 0.05; done
    GUIDE_FTP_PORT=$(cat port)
    export GUIDE_FTP_PORT
fi
"$1" >said
awk '/^```text$/ { on = 1; next } /^```$/ { on = 0 } on' "$2" | diff - said
