#!/usr/bin/env bash
# fetched.sh SOURCE:  a program that takes the library in by FetchContent is configured, and knows its targets.
set -eu
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cat >"$scratch/CMakeLists.txt" <<CMAKE
cmake_minimum_required(VERSION 3.25)
project(fetched CXX)
include(FetchContent)
FetchContent_Declare(CoreKit SOURCE_DIR $1)
FetchContent_MakeAvailable(CoreKit)
add_executable(fetched $1/examples/first/first.cpp)
target_link_libraries(fetched PRIVATE CoreKit::core)
CMAKE
cmake -S "$scratch" -B "$scratch/build" -G Ninja -Wno-dev >"$scratch/log" 2>&1 || { cat "$scratch/log"; exit 1; }
cmake --build "$scratch/build" -- -t commands fetched >"$scratch/plan"
grep -q 'libcorekit.so' "$scratch/plan"
! grep -qE 'tests/|benchmarks/' "$scratch/plan" || { echo "tests are built by whoever takes the library in"; exit 1; }
