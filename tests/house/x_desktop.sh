# Sourced by tests of programs with windows: start_desktop SIZE TOOL... gives an X server of that size with a small window
# manager, and a home of its own in $home. What the test runs stands in $program and ends with it.
home=$(mktemp -d)
server= manager= program=
finish() {
    [ -z "$program" ] || kill "$program" 2>/dev/null
    [ -z "$manager" ] || kill "$manager" 2>/dev/null
    [ -z "$server" ] || kill "$server" 2>/dev/null
    wait 2>/dev/null
    rm -rf "$home"
}
trap finish EXIT
fail() {
    echo "$(basename "$0"): $*"
    exit 1
}

# until_true COMMAND...: half a minute for it to succeed.
until_true() {
    for _ in $(seq 300); do
        "$@" >/dev/null 2>&1 && return 0
        sleep 0.1
    done
    return 1
}

start_desktop() {
    local size=$1 tool number
    shift
    for tool in Xvfb openbox xdotool "$@"; do
        command -v "$tool" >/dev/null || fail "$tool is missing"
    done
    mkfifo "$home/display"
    Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp -noreset 3>"$home/display" 2>/dev/null &
    server=$!
    read -r number <"$home/display" || fail "no X server"
    settle_on "$number"
}

# settle_on DISPLAY: a home and a window manager there. What is mapped before the manager's start has ended may wait for its
# next event.
settle_on() {
    local number=$1
    export DISPLAY=:$number QT_QPA_PLATFORM=xcb COREKIT_HOME=$home/registry HOME=$home
    export XDG_CONFIG_HOME=$home/config XDG_STATE_HOME=$home/state
    openbox --startup 'xprop -root -f STARTED 32c -set STARTED 1' >/dev/null 2>&1 &
    manager=$!
    until_true sh -c 'xprop -root STARTED | grep 1' || fail "no window manager"
}
