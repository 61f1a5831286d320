#!/usr/bin/env bash
# install.sh BUILD SOURCE GENERATOR: the installed tree serves a program that finds it by find_package and by pkg-config.
set -eu
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --install "$1" --prefix "$scratch/prefix" >/dev/null
cp -r "$2/examples/first" "$scratch/first"
cmake -S "$scratch/first" -B "$scratch/build" -G "$3" -DCMAKE_PREFIX_PATH="$scratch/prefix" >/dev/null
cmake --build "$scratch/build" >/dev/null
"$scratch/build/first" >"$scratch/said"
grep -q . "$scratch/said"

# All that may be included is there, and nothing of the platform's insides is.
[ -z "$(find "$scratch/prefix" -path '*/platform/*/*.h')" ]
for package in corekit corekit-ui; do
    [ -n "$(find "$scratch/prefix" -name $package.pc)" ] || continue
    umbrella=CoreKit$([ $package = corekit ] || echo UI).h
    echo "#include \"corekit/$umbrella\"" |
        PKG_CONFIG_PATH=$(dirname "$(find "$scratch/prefix" -name $package.pc)") \
            sh -c "g++ -std=c++20 -fsyntax-only -x c++ - \$(pkg-config --cflags $package)"
done

export PKG_CONFIG_PATH=$(dirname "$(find "$scratch/prefix" -name corekit.pc)")
g++ $(pkg-config --cflags corekit) "$scratch/first/first.cpp" -o "$scratch/by-pkg-config" $(pkg-config --libs corekit)
LD_LIBRARY_PATH=$(pkg-config --variable=libdir corekit) "$scratch/by-pkg-config" | cmp - "$scratch/said"
