#!/usr/bin/env bash
# real_manager.sh PROGRAM: runs it against a systemd of its own, in a namespace and a control group of its own. 77 where
# the machine has none, or does not let one run.
set -u
systemd=/lib/systemd/systemd
[ "$(id -u)" = 0 ] && [ -x $systemd ] && command -v unshare >/dev/null || exit 77
if [ "${2:-}" != inside ]; then
    exec unshare --mount --propagation private "$0" "$1" inside || exit 77
fi
group=/sys/fs/cgroup
[ ! -d $group/systemd ] || group=$group/systemd
mine=$group/corekit-$$
mkdir "$mine" 2>/dev/null && echo $$ 2>/dev/null >"$mine/cgroup.procs" || exit 77
home=$(mktemp -d)
manager=
finish() {
    if [ -n "$manager" ]; then
        kill -KILL "$manager"
        wait "$manager" 2>/dev/null
    fi
    echo $$ >"$group/cgroup.procs"
    find "$mine" -name cgroup.procs -exec cat {} + | xargs -r kill -KILL
    find /sys/fs/cgroup -depth -path "*/corekit-$$*" -type d -exec rmdir {} \; 2>/dev/null
    rm -rf "$home"
}
trap finish EXIT
if [ ! -d /run/systemd/system ]; then
    mount -t tmpfs tmpfs /run && mkdir -p /run/systemd/system || exit 77
fi

export XDG_RUNTIME_DIR=$home/run XDG_CONFIG_HOME=$home/config SYSTEMD_UNIT_PATH=$home/config/systemd/user
mkdir -p -m 700 "$XDG_RUNTIME_DIR" "$SYSTEMD_UNIT_PATH"
for target in default basic shutdown multi-user; do
    printf '[Unit]\nDescription=%s\nDefaultDependencies=no\n' "$target" >"$SYSTEMD_UNIT_PATH/$target.target"
done
$systemd --user --log-target=console >"$home/log" 2>&1 &
manager=$!
for _ in $(seq 300); do
    [ ! -S "$XDG_RUNTIME_DIR/systemd/private" ] || break
    kill -0 $manager 2>/dev/null || exit 77
    sleep 0.1
done
"$1" "$XDG_RUNTIME_DIR" "$SYSTEMD_UNIT_PATH" || { cat "$home/log"; exit 1; }
