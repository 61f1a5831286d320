#!/usr/bin/env bash
# evenness.sh BINARIES [SECONDS [KIB [STORIES]]]: how evenly the prompt moves under an X server of its own, with a script
# of that size; nothing else should run.
set -eu
program=$1/prompter_evenness seconds=${2:-60} kib=${3:-180} stories=${4:-1}
home=$(mktemp -d)
mkfifo "$home/display"
Xvfb -displayfd 3 -screen 0 1920x1080x24 -nolisten tcp -noreset 3>"$home/display" 2>/dev/null &
server=$!
trap 'kill $server; wait; rm -rf "$home"' EXIT
read -r number <"$home/display"
line='Good evening. The council voted tonight to rebuild the old harbour bridge, closed in 1998.'
awk -v line="$line" -v lines=$((kib * 1024 / (${#line} + 1) + 1)) -v stories="$stories" 'BEGIN {
    for (i = 0; i < lines; ++i) {
        if (i > 0 && int(i * stories / lines) > int((i - 1) * stories / lines)) print "---"
        print line
    }
}' >"$home/script.txt"
DISPLAY=:$number QT_QPA_PLATFORM=xcb HOME=$home COREKIT_HOME=$home XDG_CONFIG_HOME=$home XDG_STATE_HOME=$home \
    "$program" "$home/script.txt" "$seconds"
