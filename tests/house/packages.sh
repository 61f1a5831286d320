#!/usr/bin/env bash
# packages.sh BUILD SOURCE GENERATOR: Debian's packages go into a fresh root, serve there, and leave nothing behind.
set -eu
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
(cd "$1" && cpack -G DEB -B "$scratch/packages" -D CPACK_DEBIAN_DEBUGINFO_PACKAGE=OFF >"$scratch/log" 2>&1) || {
    cat "$scratch/log"
    exit 1
}
root=$scratch/root
mkdir -p "$root/var/lib/dpkg/"{info,updates}
touch "$root/var/lib/dpkg/status"
# What is not ours stands outside of the root.
in_root() { dpkg --root="$root" --force-depends --force-script-chrootless --log=/dev/null "$@" >>"$scratch/log" 2>&1; }
in_root -i "$scratch"/packages/*.deb || { cat "$scratch/log"; exit 1; }

[ "$(LD_LIBRARY_PATH=$root/usr/lib "$root/usr/bin/corekit" --version)" = "$(LD_LIBRARY_PATH=$root/usr/lib "$1/bin/corekit" --version)" ]
[ -s "$root/usr/share/man/man1/corekit-ole.1.gz" ]
cp -r "$2/examples/first" "$scratch/first"
cmake -S "$scratch/first" -B "$scratch/build" -G "$3" -DCMAKE_PREFIX_PATH="$root/usr" >/dev/null
cmake --build "$scratch/build" >/dev/null
"$scratch/build/first" | grep -q .

in_root --purge $(dpkg --root="$root" --get-selections | cut -f1)
left=$(find "$root" -path "$root/var/lib/dpkg" -prune -o ! -type d -print)
[ -z "$left" ] || { echo "left behind:" $left; exit 1; }
