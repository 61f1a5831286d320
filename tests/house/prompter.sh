#!/usr/bin/env bash
# The prompter under an X server with a small window manager, used as a person would: prompter.sh PROMPTER [PICTURES].
# Remote control tells where it stands; pictures of its windows tell what is seen, and are kept in PICTURES.
set -u
prompter=$1 pictures=${2:-} remote=$(dirname "$0")/../../examples/prompter-remote/prompter-remote
. "$(dirname "$0")/x_desktop.sh"
export LC_ALL=C.UTF-8
start_desktop 1280x720 xwd xwdtopnm pnmtopng pnmflip

active_is() { [[ $(xdotool getactivewindow getwindowname) == $1 ]]; }
expect_window() { until_true active_is "$1" || fail "no window '$1', but '$(xdotool getactivewindow getwindowname)'"; }
# picture NAME: the active window, as pixels and for the eye.
picture() {
    xwd -silent -id "$(xdotool getactivewindow)" | xwdtopnm -quiet >"$home/$1.ppm"
    [ -z "$pictures" ] || [[ $1 == *-again ]] || pnmtopng -quiet -compression 9 "$home/$1.ppm" >"$pictures/$1.png"
}
differs() { picture "$2" && ! cmp -s "$home/$1.ppm" "$home/$2.ppm"; }
# Whether the window rests: the picture NAME is then what it shows.
rests() { picture "$1" && sleep 0.5 && picture "$1-again" && cmp -s "$home/$1.ppm" "$home/$1-again.ppm"; }
is_mirrored() { picture "$2" && cmp -s <(pnmflip -lr "$home/$1.ppm") "$home/$2.ppm"; }
file_has() { grep -qF "$1" "$script"; }
is_kept() { [ -n "$(find "$home/state" -name '*.unsaved' -newer "$home/typed")" ]; }
state_is() { answer=$("$remote" --at "127.0.0.1:$port" state) && [[ $answer == $1 ]]; }
expect_state() { until_true state_is "$1" || fail "state '$answer', not '$1'"; }
open() {
    : >"$home/port"
    "$prompter" --remote 0 "$script" >"$home/port" &
    program=$!
}
take_port() {
    until_true grep -q port "$home/port" || fail "no remote control"
    port=$(grep -o '[0-9]*$' "$home/port")
}

script=$home/evening.txt
printf 'The harbour bridge is open.\nTraffic flows again.\n---\nWeather: rain in the west.\n---\nGood night.\n' >"$script"
open
take_port
expect_window '*evening.txt - Prompter'
expect_state 'ok stands speed 1.0 story 1 of 3'
"$remote" --at "127.0.0.1:$port" 'speed 1.5' 'faster' state >"$home/answers" && fail "a wrong line of remote control is no error"
grep -q "^error: no command 'faster'" "$home/answers" || fail "a wrong line is answered: $(cat "$home/answers")"
"$remote" --at "127.0.0.1:$port" 'speed 1' || fail "remote control: no answer"

# Two scripts: the second through the keyboard that is picked by its picture.
xdotool type --delay 20 'Tonight '
xdotool key ctrl+alt+k
expect_window 'Keyboards'
xdotool type --delay 20 'Arabic'
picture prompter-keyboards
xdotool key Return
expect_window '*evening.txt - Prompter'
xdotool key --delay 20 h g space
xdotool key ctrl+s
until_true file_has 'Tonight ال The harbour' || fail "typed text was not saved: $(head -1 "$script")"

# Without the clock, so that a frame at rest is the same as the next.
xdotool key F4
expect_window 'Settings'
picture prompter-settings
xdotool key alt+k ctrl+Tab ctrl+Tab ctrl+Tab
picture prompter-files
xdotool key Return
expect_window '*evening.txt - Prompter'
picture prompter-desk

# Another key for a command: it is pressed where the page asks for one.
xdotool key shift+F4
expect_window 'Keys'
xdotool key alt+o
xdotool type --delay 20 'Start'
xdotool key alt+n p
picture prompter-keys
xdotool key Tab space Return
expect_window '*evening.txt - Prompter'

xdotool key F5
expect_window 'Prompt'
picture still
xdotool key space
expect_state 'ok runs speed 1.0 *'
until_true differs still moved || fail "the prompt does not move"
xdotool key Up Up
expect_state 'ok runs speed 1.2 *'
xdotool key shift+3
expect_state 'ok runs speed -0.6 *'
xdotool key p Home Next # from the first story, however long it ran
expect_state 'ok stands speed -0.6 story 2 of 3'
xdotool key Home
expect_state '*story 1 of 3'
until_true rests prompter-view || fail "the prompt does not stand"

# What is typed on the desk shows at once.
desk=$(xdotool search --name 'evening.txt - Prompter' | head -1)
view=$(xdotool getactivewindow)
xdotool windowactivate --sync "$desk" key ctrl+Home
xdotool type --delay 20 'Now'
xdotool windowactivate --sync "$view"
expect_window 'Prompt'
until_true differs prompter-view edited || fail "an edit does not show in the prompt"
until_true rests edited || fail "the prompt does not come to rest"

xdotool windowactivate --sync "$desk" key alt+p
xdotool key l
xdotool windowactivate --sync "$view"
until_true is_mirrored edited prompter-mirrored ||
    fail "the prompt is not mirrored: $(xdotool getactivewindow getwindowname)"
xdotool key Escape
expect_window '*evening.txt - Prompter'

# A crash costs nothing that was typed before the last few seconds. (The keyboard is still the Arabic one.)
xdotool type --delay 20 'lost?'
touch "$home/typed"
xdotool type --delay 20 ' no '
until_true is_kept || fail "unsaved text is not kept"
kill -9 "$program"
wait "$program" 2>/dev/null
open
expect_window 'prompter'
picture prompter-recovery
xdotool key Return
take_port
expect_window '[*]*evening.txt - Prompter'
xdotool key ctrl+s
until_true file_has 'مخسف؟' || fail "recovered text was not saved: $(head -2 "$script")"
until_true file_has 'Weather: rain in the west.' || fail "the script lost a story"
xdotool key ctrl+q
gone() { ! kill -0 "$program"; }
until_true gone || fail "the prompter stays"
program=
# A script of a mebibyte in little memory.
for i in $(seq 12000); do
    [ $((i % 20)) -ne 0 ] || echo ---
    echo 'Good evening. مساء الخير. ערב טוב. The old harbour bridge was closed in 1998.'
done >"$script"
open
take_port
expect_window '*evening.txt - Prompter'
xdotool key F5
expect_window 'Prompt'
xdotool key space
expect_state 'ok runs *'
memory=$(awk '/^VmHWM/ { print $2 }' "/proc/$program/status")
[ "$memory" -lt $((120 * 1024)) ] || fail "a script of $(wc -c <"$script") bytes takes $memory KiB"
echo "The prompter's test is through; a script of $(wc -c <"$script") bytes takes $memory KiB."
