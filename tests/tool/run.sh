#!/usr/bin/env bash
# run.sh TOOL: what the command-line tool says and how it ends.
set -u
tool=$1
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
export QT_QPA_PLATFORM=offscreen
failures=0

fail() {
    echo "FAILED: $*"
    failures=$((failures + 1))
}

# refused ARGUMENTS...: exit code 2, one line on standard error, nothing on standard output.
refused() {
    "$tool" "$@" >"$scratch/out" 2>"$scratch/err"
    local code=$?
    [ $code -eq 2 ] || fail "corekit $*: exit code $code"
    [ "$(wc -l <"$scratch/err")" -eq 1 ] || fail "corekit $*: standard error: $(cat "$scratch/err")"
    [ ! -s "$scratch/out" ] || fail "corekit $*: wrote to standard output"
}

# says PATTERN ARGUMENTS...: exit code 0 and a line that matches.
says() {
    local pattern=$1
    shift
    "$tool" "$@" >"$scratch/out" 2>"$scratch/err" || fail "corekit $*: $(cat "$scratch/err")"
    grep -qE "$pattern" "$scratch/out" || fail "corekit $*: no line like '$pattern' in: $(cat "$scratch/out")"
}

refused
refused nonsense
refused char
refused char U+110000
refused char U+ZZ
refused char ''
refused shape
says 'general type +14 other letter' char U+0628
says 'joining class +2 dual joining' char 0628
says 'lower case +U\+0061' char A
says 'direction' shape --help
says '^base direction: right-to-left' shape 'שלום abc'
says '^0 +2 .*U\+0643.* U\+FEDA' shape 'ملك'

if "$tool" draw --help >/dev/null 2>&1; then
    printf 'one\r\n\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d 12\n\xff broken \xe2\x82\n' >"$scratch/utf8.txt"
    printf '\xff\xfeA\0B\0\n\0' >"$scratch/utf16.txt"
    : >"$scratch/empty.txt"
    refused draw
    refused draw "$scratch/utf8.txt"
    refused draw "$scratch/missing.txt" -o "$scratch/pictures"
    refused draw "$scratch" -o "$scratch/pictures"
    refused draw "$scratch/utf8.txt" -o "$scratch/utf16.txt/inside"
    refused draw "$scratch/utf8.txt" -o "$scratch/pictures" --size 0
    refused draw "$scratch/utf8.txt" -o "$scratch/pictures" --font 'No Such Face'
    says '4 lines in 3 pictures' draw "$scratch/utf8.txt" "$scratch/utf16.txt" "$scratch/empty.txt" -o "$scratch/pictures" --bidi --width 640
    for picture in utf8 utf16 empty; do
        head -c 8 "$scratch/pictures/$picture.png" | cmp -s - <(printf '\x89PNG\r\n\x1a\n') || fail "$picture.png is no PNG"
    done
fi
[ $failures -eq 0 ] && echo "the tool behaves"
exit $((failures > 0))
