#!/usr/bin/env bash
# Writes corekit/CoreKit.h and corekit/CoreKitUI.h, which include every public header of a library. With --check it
# writes nothing and fails when they are not up to date.
set -eu
cd "$(dirname "$0")/.."
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# What of a header lies outside of the namespaces of helpers.
outside_of_detail() {
    awk '/^namespace (corekit::)?detail \{/ { depth = 0; inside = 1 }
         inside { depth += gsub(/\{/, "{") - gsub(/\}/, "}"); inside = depth > 0; next }
         1' "$1"
}

# Public is what other code may call; insides of headers and sources are not.
public() {
    find corekit -mindepth 2 -name '*.h' -not -name '*Impl.h' -not -path '*/qt/*' -not -path '*/posix/*' -not -path '*/resources/*' | LC_ALL=C sort -f |
        while read -r header; do
            if outside_of_detail "$header" | grep -q COREKIT_API || ! grep -qE 'namespace (corekit::)?detail' "$header"; then echo "$header"; fi
        done
    find corekit -maxdepth 1 -name '*.h' -not -name 'CoreKit*.h' | LC_ALL=C sort -f
}

# umbrella FILE INTRODUCTION: from the headers on standard input.
umbrella() {
    printf '// %s A program that minds its\n// build time includes what it uses instead. Made by tools/make_umbrella.sh.\n#pragma once\n' "$2" >"$1"
    awk -F '\t' '
        NR == FNR { says[$1] = $2; next }
        { split($0, part, "/"); room = part[2] (part[4] != "" ? "/" part[3] : "") }
        room != last && (room in says) { printf "\n// %s: %s\n", room, says[room] }
        { last = room; print "#include \"" $0 "\"" }' tools/rooms.tsv - >>"$1"
}

needs_toolkit='/ui/|platform/(Caret|Clipboard|Dialogs|DragDrop|EvenFrames|FileDialogs|Gdi|Input|InputTest|KeyboardLayouts|MessageBoxes|MessageLoop|Painting|PopupMenus|ScrollBars|Timers|Toolkit|Windows)\.h'
public | grep -vE "$needs_toolkit" | umbrella "$scratch/CoreKit.h" "Everything that the core library offers."
{ echo corekit/CoreKit.h; public | grep -E "$needs_toolkit"; } |
    umbrella "$scratch/CoreKitUI.h" "Everything that both libraries offer."

for name in CoreKit.h CoreKitUI.h; do
    cmp -s "$scratch/$name" "corekit/$name" && continue
    if [ "${1:-}" = --check ]; then
        echo "corekit/$name is not up to date; run tools/make_umbrella.sh"
        exit 1
    fi
    cp "$scratch/$name" "corekit/$name"
done
