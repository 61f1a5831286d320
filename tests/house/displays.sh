#!/usr/bin/env bash
# A display that is unplugged and plugged in again while it shows the prompt: displays.sh PROMPTER. Skipped where there is
# no X server with outputs to switch (xserver-xorg-core, xserver-xorg-video-dummy, x11-xserver-utils), or nobody may start it.
set -u
prompter=$1
. "$(dirname "$0")/x_desktop.sh"
for tool in Xorg xrandr openbox xdotool; do command -v "$tool" >/dev/null || exit 77; done
[ -e /usr/lib/xorg/modules/drivers/dummy_drv.so ] && [ "$(id -u)" = 0 ] || exit 77
cat >"$home/xorg.conf" <<'END'
Section "Device"
  Identifier "outputs"
  Driver "dummy"
  VideoRam 256000
EndSection
Section "Monitor"
  Identifier "monitor"
  HorizSync 5.0-1000.0
  VertRefresh 5.0-200.0
EndSection
Section "Screen"
  Identifier "screen"
  Device "outputs"
  Monitor "monitor"
  DefaultDepth 24
  SubSection "Display"
    Depth 24
    Virtual 2560 720
    Modes "1280x720"
  EndSubSection
EndSection
Section "ServerFlags"
  Option "AutoAddDevices" "false"
EndSection
END
mkfifo "$home/display"
Xorg -displayfd 3 -config "$home/xorg.conf" -logfile "$home/xorg.log" -noreset -nolisten tcp -sharevts -novtswitch vt7 \
    3>"$home/display" >/dev/null 2>&1 &
server=$!
number=$(timeout 20 head -1 "$home/display")
[ -n "$number" ] || exit 77
settle_on "$number"
plug_in() { xrandr --output DUMMY1 --mode 1280x720 --right-of DUMMY0; }
xrandr --addmode DUMMY1 1280x720 && plug_in || exit 77

places() { for window in $(xdotool search --onlyvisible --name '^Prompt$'); do xdotool getwindowgeometry --shell "$window" | grep ^X=; done; }
places_are() { [ "$(places)" = "$1" ]; }
active_is() { [[ $(xdotool getactivewindow getwindowname) == $1 ]]; }
echo 'The harbour bridge is open.' >"$home/script.txt"
"$prompter" "$home/script.txt" &
program=$!
until_true active_is '*script.txt - Prompter' || fail "no desk"
xdotool key F5
until_true places_are X=1280 || fail "the prompt stands at '$(places)', not on the second display"
for round in 1 2 3; do
    xrandr --output DUMMY1 --off
    until_true places_are "" || fail "unplugged for time $round, the prompt stands at '$(places)'"
    until_true active_is '*script.txt - Prompter' || fail "the desk has no focus"
    plug_in
    until_true places_are X=1280 || fail "plugged in again for time $round, the prompt stands at '$(places)'"
    until_true active_is Prompt || fail "the prompt has no focus"
done
echo "The displays' test is through."
