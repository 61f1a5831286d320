#!/usr/bin/env bash
# A display that goes away ends a program with one line and an error code, not with an abort: lost_display.sh PROGRAM...
set -u
. "$(dirname "$0")/x_desktop.sh"
export LC_ALL=C.UTF-8
ulimit -c 0
for each in "$@"; do
    start_desktop 640x480
    (cd "$home" && exec "$each") 2>"$home/said" &
    program=$!
    has_window() { [ -n "$(xdotool search --onlyvisible --pid "$program" .)" ]; }
    until_true has_window || fail "$each: no window"
    kill -9 "$server"
    wait "$server" 2>/dev/null
    ended() { ! kill -0 "$program"; }
    until_true ended || fail "$each outlives its display"
    wait "$program"
    code=$?
    program=
    kill "$manager" 2>/dev/null
    wait "$manager" 2>/dev/null
    manager= server=
    [ "$code" = 1 ] || fail "$each ends with $code"
    [ "$(wc -l <"$home/said")" = 1 ] || fail "$each says: $(cat "$home/said")"
    rm "$home/display"
done
echo "The test of a lost display is through."
