#!/usr/bin/env bash
# evenness.sh BINARIES [SECONDS]: how evenly the prompt moves under an X server of its own; nothing else should run.
set -eu
program=$1/prompter_evenness seconds=${2:-60}
home=$(mktemp -d)
mkfifo "$home/display"
Xvfb -displayfd 3 -screen 0 1920x1080x24 -nolisten tcp -noreset 3>"$home/display" 2>/dev/null &
server=$!
trap 'kill $server; wait; rm -rf "$home"' EXIT
read -r number <"$home/display"
for _ in $(seq 2000); do echo 'Good evening. The council voted tonight to rebuild the old harbour bridge, closed in 1998.'; done >"$home/script.txt"
DISPLAY=:$number QT_QPA_PLATFORM=xcb HOME=$home COREKIT_HOME=$home XDG_CONFIG_HOME=$home XDG_STATE_HOME=$home \
    "$program" "$home/script.txt" "$seconds"
