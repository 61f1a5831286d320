#!/usr/bin/env bash
# run.sh BINARIES SECONDS: every fuzz target for so many seconds, from its committed seeds.
# A find is left in fuzz/seeds/<target>/, where it stays as a seed once it is mended.
set -euo pipefail
cd "$(dirname "$0")"
binaries=../$1 seconds=$2
# What other libraries never free.
export LSAN_OPTIONS="suppressions=$PWD/../tests/support/leaks.supp:print_suppressions=0"
for target in "$binaries"/fuzz_*; do
    name=${target##*/fuzz_}
    corpus=$(mktemp -d)
    mkdir -p "seeds/$name"
    echo "fuzz: $name, $seconds s"
    "$target" "$corpus" "seeds/$name" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=1024 -print_final_stats=0 \
        -verbosity=0 -artifact_prefix="seeds/$name/"
    rm -rf "$corpus"
done
echo "fuzz: nothing found"
