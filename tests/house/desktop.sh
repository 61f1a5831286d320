#!/usr/bin/env bash
# The examples under an X server with a small window manager, used as a person would: desktop.sh EDIT LIST OPTIONS.
# Real focus, the clipboard between two processes, the mouse captured beyond the window.
set -u
edit=$1 list=$2 options=$3
. "$(dirname "$0")/x_desktop.sh"
export LC_ALL=C
start_desktop 1000x700 xclip

open() {
    "$2" &
    program=$!
    until_true xdotool search --onlyvisible --name "$1" || fail "$1: no window"
    window=$(xdotool search --onlyvisible --name "$1" | head -1)
    until_true is_active || fail "$1: no focus"
}
is_active() { [ "$(xdotool getactivewindow)" = "$window" ]; }
close() {
    xdotool key alt+F4
    until_true gone || fail "the program stays when its window is closed"
    program=
}
gone() { ! kill -0 "$program"; }
clipboard_is() { [ "$(timeout 2 xclip -o -selection clipboard)" = "$1" ]; }
selection_is() { [ "$(timeout 2 xclip -o -selection primary)" = "$1" ]; }

open "Writing in any script" "$edit"
xdotool type --delay 20 "one two"
xdotool key ctrl+a ctrl+c
until_true clipboard_is "one two" || fail "typed text did not reach another program"
printf 'three' | xclip -i -selection clipboard
xdotool key ctrl+v
xdotool key shift+Home ctrl+c
until_true clipboard_is "three" || fail "another program's text was not pasted"
# A drag that ends outside of the window still selects.
eval "$(xdotool getwindowgeometry --shell "$window")"
xdotool mousemove $((X + 20)) $((Y + 70)) mousedown 1 mousemove $((X + 300)) $((Y + 75)) mousemove $((X + WIDTH + 60)) $((Y + 75)) mouseup 1
until_true selection_is "three" || fail "a drag beyond the window lost the mouse"
close

open "Ten thousand names" "$list"
xdotool key Next Down Down
eval "$(xdotool getwindowgeometry --shell "$window")"
xdotool mousemove $((X + 60)) $((Y + 100)) click 1
xdotool key ctrl+a Home
is_active || fail "the list lost the focus"
close
cd "$home" || exit 1 # where the log goes
open "^Options$" "$options"
xdotool key Return # no category yet
until_true gone || fail "Return does not confirm the options"
open "^Options$" "$options"
eval "$(xdotool getwindowgeometry --shell "$window")"
xdotool mousemove $((X + 60)) $((Y + 15)) click 1
xdotool key Home Down # the pages of each category passed are loaded
loaded() { [ "$(grep -c "18. COptionsPropertySheet::DONE" options.log)" -ge 2 ]; }
until_true loaded || fail "the categories picked were not loaded"
close
echo "The desktop test is through."
