#!/usr/bin/env bash
# list_exports.sh LIBRARY: what the library exports, a line each, without what inline functions bring along.
set -eu
nm -DC --defined-only "$1" | awk '$2 ~ /^[TBDR]$/' | cut -d' ' -f3- | LC_ALL=C sort -u
