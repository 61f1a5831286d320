#!/usr/bin/env bash
# The workbench under an X server with a small window manager, used as a person would: workbench.sh WORKBENCH.
# What the user changes is there again after a restart, from one file; its clock keeps a strip of the screen.
set -u
workbench=$1
. "$(dirname "$0")/x_desktop.sh"
export LC_ALL=C.UTF-8
start_desktop 1280x800 xwd xwdtopnm pamcut pamarith pamsumm xprop

active_is() { [[ $(xdotool getactivewindow getwindowname) == "$1" ]]; }
expect_window() { until_true active_is "$1" || fail "no window '$1', but '$(xdotool getactivewindow getwindowname)'"; }
picture() { xwd -silent -id "$window" >"$home/$1"; }
# Carets blink: now or at another moment. A step of a colour is the rounding of what was drawn in parts.
shows() {
    picture now || return 1
    local apart
    apart=$(pamarith -difference <(xwdtopnm -quiet "$home/$1") <(xwdtopnm -quiet "$home/now") | pamsumm -max -brief) && [ "$apart" -le 2 ]
}
differs() { picture now && ! cmp -s "$home/$1" "$home/now"; }
# What the status bar says: at its right end whether the text runs.
state_differs() { xwd -silent -id "$window" | xwdtopnm -quiet | pamcut -left 700 -top -30 >"$home/state" && ! cmp -s "$home/state" "$home/state-$1"; }
state_is() { ! state_differs "$1"; }
state() { state_differs "$1"; cp "$home/state" "$home/state-$1"; }
gone() { ! kill -0 "$1"; }
open() {
    "$workbench" --settings "$1" &
    program=$!
    expect_window Workbench
    window=$(xdotool getactivewindow)
    eval "$(xdotool getwindowgeometry --shell "$window")"
    xdotool mousemove 1270 790
}
# A drag by the mouse, in steps that a hand would make: from and to on the screen.
drag() {
    xdotool mousemove "$1" "$2" mousedown 1
    local step
    for step in 1 2 3 4 5; do xdotool mousemove $(($1 + ($3 - $1) * step / 5)) $(($2 + ($4 - $2) * step / 5)); done
    sleep 0.2
    xdotool mouseup 1
}
free_from() { [[ $(xprop -root _NET_WORKAREA) == "_NET_WORKAREA(CARDINAL) = 0, $1, "* ]]; }

open "$home/kept"
picture first

# A key of its own for Play, and larger buttons.
xdotool key --delay 150 alt+v u
expect_window Customise
xdotool key alt+l ctrl+Tab alt+o Home alt+n ctrl+k Tab space
xdotool key Return
expect_window Workbench
until_true differs first || fail "the buttons are not larger"
state halted
xdotool key ctrl+k
until_true state_differs halted || fail "the new key starts nothing"
xdotool key F6
until_true state_is halted || fail "F6 stops nothing"
picture halted

# The Hindi story goes below, dragged by its tab to the other stack.
drag $((X + 568)) $((Y + 320)) $((X + 480)) $((Y + 450))
until_true differs halted || fail "the story stays where it is"
xdotool mousemove 1270 790
sleep 0.5
picture halted

# The pane of colours floats.
drag $((X + 3)) $((Y + HEIGHT / 2)) 700 500
floats() { xdotool search --onlyvisible --name '^Colours$'; }
until_true floats || fail "the pane does not float"
xdotool windowactivate --sync "$window" key F6
until_true differs halted || fail "the pane left no room"
xdotool mousemove 1270 790
sleep 0.5
picture arranged
eval "$(xdotool getwindowgeometry --shell "$(floats | tail -1)")"
floating="$X $Y"
xdotool key ctrl+q
until_true gone "$program" || fail "the program stays"
[ -s "$home/kept" ] || fail "nothing was kept"

open "$home/kept"
until_true floats || fail "the pane does not float after a restart"
xdotool windowactivate --sync "$window" key F6
until_true shows arranged || fail "the window is not as it was left"
eval "$(xdotool getwindowgeometry --shell "$(floats | tail -1)")"
[ "$X $Y" = "$floating" ] || fail "the pane was at $floating and is at $X $Y"
xdotool key ctrl+k
until_true state_differs halted || fail "the key was not kept"

# The clock keeps the strip at the top free until it hides.
free_from 0 || fail "a strip is taken before there is a clock"
xdotool key --delay 150 alt+v c
until_true free_from 28 || fail "no room for the clock: $(xprop -root _NET_WORKAREA)"
hide_clock() { # by the first item of its menu
    xdotool mousemove "$1" 14 click 3
    sleep 1
    xdotool mousemove $(($1 + 20)) 28 click 1
}
hide_clock 600
xdotool mousemove 600 400
until_true free_from 0 || fail "a clock that hides keeps its strip"
ends() { xdotool windowactivate --sync "$window" key ctrl+q; sleep 0.3; gone "$program"; }
until_true ends || fail "the program with a clock stays"
program=
echo "The workbench's test is through."
