"""pyftpd.py FOLDER: serves the folder by FTP to user u with password p on a free port of the loopback, and prints the
port."""
import logging
import sys

from pyftpdlib.authorizers import DummyAuthorizer
from pyftpdlib.handlers import FTPHandler
from pyftpdlib.servers import FTPServer

logging.basicConfig(level=logging.ERROR)
authorizer = DummyAuthorizer()
authorizer.add_user("u", "p", sys.argv[1], perm="elradfmw")


class Handler(FTPHandler):
    auth_failed_timeout = 0


Handler.authorizer = authorizer
server = FTPServer(("127.0.0.1", 0), Handler)
print(server.address[1], flush=True)
server.serve_forever()
