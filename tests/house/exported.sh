#!/usr/bin/env bash
# exported.sh LIBRARY: nothing but our own names leaves the library: no toolkit, no third-party library, no helper
# namespace leaks out of it.
set -eu
bad=$(nm -DC --defined-only "$1" | awk '$2 ~ /[TBDR]/' | cut -d' ' -f3- |
    grep -E '^(Q[A-Z]|qt_|icu|u_|ucnv|sqlite|boost::|CLI::|std::__detail|\(anonymous)' || true)
[ -z "$bad" ] || { echo "exported by $1:"; echo "$bad"; exit 1; }
