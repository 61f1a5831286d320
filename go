#!/usr/bin/env bash
# One door to everything that is done with this tree. ./go help tells what.
set -euo pipefail
here=$PWD
cd "$(dirname "${BASH_SOURCE[0]}")"
packages=cmake/debian-packages.txt
jobs=$(nproc)

help() {
    cat <<'TEXT'
usage: ./go COMMAND [ARGUMENTS]

  demo [DIR]       draw examples/scripts/*.txt and the windows of the examples into DIR (default out/)
  run-prompter [SCRIPT]
                   build the prompter and start it
  test [PATTERN]   build everything and run the tests (those whose name matches PATTERN)
  build            build the libraries and the tool
  setup [SECTION]  install missing packages (default: build ui test)
  bench [NAME...]  measure against the peers a user would pick, print the ratios; --quick, --write docs
  bench growth     measure how costs grow from a thousand entries to a million; --write docs
  fuzz [SECONDS]   run every fuzz target for SECONDS (default 60)
  asan | tsan      the core tests under address and undefined-behaviour, or thread, sanitizer
  asan-windows     the window tests under the first; asan without a pattern runs them, too
  format [--check] lay out the sources by .clang-format
  lint             the house rules, then clang-tidy
  docs             the reference as web pages in build/docs/html; ends with 1 if a comment cannot be understood
  package          Debian packages and a .tar.gz of what would be installed, in build/package

Missing Debian packages are installed when you are root and named when you are not.
TEXT
}

say() { printf '%s\n' "$*" >&2; }

# The packages of the sections named, as listed.
section() {
    awk -v want=" $* " '/^\[/ { on = index(want, " " substr($0, 2, length($0) - 2) " ") } !/^(\[|#|$)/ && on' "$packages"
}

missing() {
    local p
    command -v dpkg-query >/dev/null || return 0
    section "$@" | while read -r p; do
        [ "$(dpkg-query -W -f '${db:Status-Abbrev}' "$p" 2>/dev/null | cut -c1-2)" = ii ] || echo "$p"
    done
}

apt_updated=
install() {
    [ -n "$apt_updated" ] || { apt-get update -qq && apt_updated=1; } || return 1
    DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "$@" >/dev/null
}

# need SECTION...: have their packages, or stop with what to install.
need() {
    local want
    want=$(missing "$@")
    [ -z "$want" ] && return 0
    if [ "$(id -u)" != 0 ]; then
        say "Missing packages. As root: apt-get install --no-install-recommends" $want
        exit 1
    fi
    say "Installing:" $want
    install $want || { say "Could not install:" $want; exit 1; }
}

# The toolkit is wanted, not needed.
want_ui() {
    local want
    want=$(missing ui)
    [ -z "$want" ] && return 0
    if [ "$(id -u)" = 0 ]; then
        say "Installing:" $want
        install $want && return 0
    else
        say "Missing packages. As root: apt-get install --no-install-recommends" $want
    fi
    say "Without them only the core library is built and tested; corekit-ui, its tests and drawing are left out."
}

# configure PRESET: once; the build itself configures anew when a build file changes. Where something that was missing
# then is there now, it is done again.
configure() {
    local dir=build/$1
    [ ! -f "$dir/build.ninja" ] || ! found_since "$dir" || rm "$dir/build.ninja"
    [ -f "$dir/build.ninja" ] || cmake --preset "$1" -Wno-dev >"$dir.configure.log" 2>&1 || {
        cat "$dir.configure.log" >&2
        exit 1
    }
}

found_since() {
    grep -q '^Qt6_DIR:PATH=.*NOTFOUND' "$1/CMakeCache.txt" && [ -z "$(missing ui)" ] && return 0
    grep -q '^GTest_DIR:PATH=.*NOTFOUND' "$1/CMakeCache.txt" && [ -z "$(missing test)" ]
}

build() {
    local preset=$1
    shift
    mkdir -p build
    configure "$preset"
    # Where editors look for it.
    [ "$preset" != release ] || ln -sfn build/release/compile_commands.json compile_commands.json
    cmake --build "build/$preset" -j "$jobs" ${1:+--target "$@"}
}

run_tests() {
    local preset=$1
    shift
    ctest --test-dir "build/$preset" -j "$jobs" --output-on-failure --no-tests=error ${1:+-R "$1"}
}

# Draws everything. What is registered for it goes into a registry of its own.
draw_demo() {
    local out=$1 corekit=build/release/bin/corekit script
    mkdir -p "$out"
    "$corekit" draw examples/scripts/*.txt -o "$out" --bidi
    COREKIT_HOME=$(cd "$out" && pwd)/registry
    export COREKIT_HOME
    for script in Devanagari Bengali Tamil; do
        "$corekit" fonts build --script "$script" --from "Noto Sans $script" -o "$out/fonts" --register
    done
    "$corekit" draw examples/scripts/indic/*.txt -o "$out/indic" --fonts "$out/fonts"
    # The same lines shaped by the platform, to compare.
    "$corekit" draw examples/scripts/indic/*.txt -o "$out/indic-platform" --complex
    # Windows that type, click and scroll by themselves.
    local example
    for example in edit list options workbench; do
        build/release/bin/$example --picture "$out/$example.png"
    done
}

window_tests=(windows_ui controls_ui dialogs_ui edit_ui drawing_ui graphics_ui hosts_ui unicode_ui foundation_ui
    platform_ui x11_ui windows_components_ui prompter_ui devices_ui)

# sanitize_windows [PATTERN]: only what these tests need is built.
sanitize_windows() {
    need build test
    want_ui
    [ -z "$(missing ui)" ] || return 0
    build asan-windows "${window_tests[@]/#/test_}"
    run_tests asan-windows "${1:-^($(IFS='|' && echo "${window_tests[*]}"))/}"
}

sanitized() {
    need build test
    build "$1"
    run_tests "$@"
}

command=${1:-help}
[ $# -eq 0 ] || shift

case $command in
setup)
    need ${*:-build test}
    [ $# -gt 0 ] || want_ui
    ;;
build)
    need build
    want_ui
    build release
    ;;
demo)
    need build
    want_ui
    build release corekit_tool >&2
    if ! build/release/bin/corekit --help | grep "^ *draw " >/dev/null; then
        say "This build has no drawing, because the toolkit is missing."
        exit 1
    fi
    build release edit list options workbench >&2
    draw_demo "${1:-out}"
    ;;
run-prompter)
    need build
    want_ui
    mkdir -p build
    configure release
    cmake --build build/release -j "$jobs" --target prompter >&2
    tree=$PWD
    if [ ! -x "$tree/build/release/bin/prompter" ]; then
        say "This build has no prompter, because the toolkit is missing."
        exit 1
    fi
    cd "$here" # a script's name counts from where it was typed
    exec "$tree/build/release/bin/prompter" "$@"
    ;;
test)
    need build test
    want_ui
    build release
    run_tests release "$@"
    ;;
asan)
    sanitized asan "$@"
    [ $# -gt 0 ] || sanitize_windows
    ;;
asan-windows) sanitize_windows "$@" ;;
tsan) sanitized tsan "$@" ;;
bench)
    need build bench
    want_ui
    if [ "${1:-}" = growth ]; then
        shift
        build bench growth
        exec python3 benchmarks/growth.py build/bench/bin "$@"
    fi
    build bench
    python3 benchmarks/run.py build/bench/bin "$@"
    ;;
fuzz)
    need build fuzz
    want_ui
    build fuzz
    fuzz/run.sh build/fuzz/bin "${1:-60}"
    ;;
format)
    need format
    how=-i
    [ "${1:-}" != --check ] || how="--dry-run -Werror"
    git ls-files '*.h' '*.cpp' | xargs clang-format $how
    ;;
lint)
    need build test lint
    tools/lint.sh
    build release
    # What cmake/CoreKitBuild.cmake says to clang beside what g++ is told.
    as_clang=(-Wno-unknown-warning-option -Wno-overloaded-virtual -Wno-undefined-bool-conversion -fsized-deallocation
        -fconstexpr-steps=100000000)
    git ls-files 'corekit/*.cpp' 'apps/*.cpp' |
        xargs -P "$jobs" -n 4 clang-tidy --quiet "${as_clang[@]/#/--extra-arg=}" -p build/release
    ;;
docs)
    need docs
    mkdir -p build/docs
    doxygen docs/reference/Doxyfile
    [ ! -s build/docs/warnings.txt ] || { cat build/docs/warnings.txt >&2; exit 1; }
    say "build/docs/html/index.html"
    ;;
package)
    need build package
    want_ui
    build package
    (cd build/package && cpack)
    ;;
help | -h | --help) help ;;
*)
    say "go: no command '$command'; ./go help lists them"
    exit 2
    ;;
esac
