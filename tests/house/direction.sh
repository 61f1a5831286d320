#!/usr/bin/env bash
# direction.sh LIBRARY: core never maps the window toolkit, not even through another library.
set -eu
if ldd "$1" | grep -E 'libQt|libX11|libxcb'; then
    echo "$1 needs a window toolkit"
    exit 1
fi
