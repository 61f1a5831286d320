#!/usr/bin/env bash
# exports.sh LIBRARY LIST: the library exports what the list says. A line that goes breaks programs that are there.
set -eu
"$(dirname "$0")/../../tools/list_exports.sh" "$1" | diff "$2" - ||
    { echo "If that is meant: tools/list_exports.sh $1 >tests/house/$(basename "$2"), and a word in docs/changes.md"; exit 1; }
