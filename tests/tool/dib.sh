#!/usr/bin/env bash
# dib.sh TOOL: what the tool says of bitmaps, and the pictures that it makes of them, read by other programs.
# shellcheck source-path=SCRIPTDIR source=begin.sh
. "$(dirname "$0")/begin.sh"
bitmaps=$here/../graphics/bitmaps

# colours FILE: red, green and blue of every pixel, whatever the file is.
colours() {
    case $1 in
    *.bmp) bmptopnm "$1" ;;
    *) pngtopnm "$1" ;;
    esac 2>/dev/null | pamdepth -quiet 255 | ppmtoppm
}

# refused ARGUMENTS...: exit code 2 and one line that says why.
refused() {
    "$tool" dib "$@" >"$scratch/out" 2>"$scratch/err"
    [ $? -eq 2 ] && [ "$(wc -l <"$scratch/err")" -eq 1 ] || fail "dib $*: $(cat "$scratch/err")"
}

# To PNG and back, at every depth that loses nothing.
for bitmap in "$bitmaps"/*.bmp; do
    picture=$scratch/$(basename "$bitmap" .bmp).png
    "$tool" dib convert "$bitmap" "$picture" && cmp <(colours "$bitmap") <(colours "$picture") || fail "to PNG: $bitmap"
    for bits in 24 32; do
        "$tool" dib convert "$picture" "$scratch/back.bmp" --bits $bits &&
            cmp <(colours "$bitmap") <(colours "$scratch/back.bmp") || fail "back with $bits bits: $bitmap"
        "$tool" dib info "$scratch/back.bmp" | grep -q "back.bmp  *7  *5  *$bits  *0  *bottom up" || fail "info: $bits bits"
    done
done
for bits in 1 4 8 16; do # to fewer colours once
    "$tool" dib convert "$scratch/rgb24-pil.png" "$scratch/few.bmp" --bits $bits &&
        "$tool" dib convert "$scratch/few.bmp" "$scratch/few.png" &&
        { [ $bits -eq 16 ] || cmp <(colours "$scratch/few.bmp") <(colours "$scratch/few.png"); } && # others round five bits
        "$tool" dib convert "$scratch/few.png" "$scratch/again.bmp" --bits $bits && cmp "$scratch/few.bmp" "$scratch/again.bmp" ||
        fail "$bits bits"
done

# Files that are not what we read: named, beside those that are.
head -c 50 "$bitmaps/rgb24-pil.bmp" >"$scratch/short.bmp"
ppmtobmp -bpp=8 <(pbmmake -gray 30 20 | pamdepth -quiet 255) >"$scratch/grey.bmp" 2>/dev/null
printf '\1' | dd of="$scratch/grey.bmp" bs=1 seek=30 conv=notrunc status=none # so it claims to be packed
refused info "$scratch/short.bmp" "$bitmaps/pal1-pil.bmp" "$scratch/grey.bmp"
grep -q 'short.bmp: .*not a valid bitmap.*grey.bmp: .*compressed' "$scratch/err" || fail "info: $(cat "$scratch/err")"
grep -q 'pal1-pil.bmp  *7  *5  *1  *2 ' "$scratch/out" || fail "info of a sound one among others: $(cat "$scratch/out")"
refused convert "$scratch/short.bmp" "$scratch/never.png"
refused convert "$bitmaps/pal1-pil.bmp" "$scratch/never.gif"
refused convert "$scratch/missing.png" "$scratch/never.bmp"
refused convert "$bitmaps/pal1-pil.bmp" "$scratch/no/folder.png"
[ -z "$(find "$scratch" -name 'never*')" ] || fail "a refused convert left a file"

# A sheet of three columns: small ones as they are, large ones reduced, a cross for what cannot be read.
pbmmake -black 800 400 | pamdepth -quiet 255 | ppmtoppm | ppmchange black blue | ppmtobmp -bpp=24 >"$scratch/large.bmp" 2>/dev/null
refused show "$bitmaps/rgb24-pil.bmp" "$scratch/large.bmp" "$scratch/short.bmp" "$bitmaps/core4-netpbm.bmp" \
    --columns 3 -o "$scratch/sheet.png"
pngtopnm "$scratch/sheet.png" | ppmtoppm >"$scratch/sheet.ppm"
pamfile "$scratch/sheet.ppm" | grep -q '512 by 344' || fail "show: $(pamfile "$scratch/sheet.ppm")"
# at X Y WIDTH HEIGHT: that part of the sheet
at() { pamcut "$@" "$scratch/sheet.ppm"; }
cmp <(at 84 85 7 5) <(colours "$bitmaps/rgb24-pil.bmp") || fail "show: the first bitmap"
cmp <(at 84 253 7 5) <(colours "$bitmaps/core4-netpbm.bmp") || fail "show: the fourth bitmap"
cmp <(at 176 48 160 80) <(ppmmake rgb:00/00/ff 160 80) || fail "show: the large bitmap"
cmp <(at 424 88 1 1) <(ppmmake rgb:00/00/00 1 1) || fail "show: no cross"
cmp <(at 100 88 1 1) <(ppmmake rgb:80/80/80 1 1) || fail "show: no ground"
refused show "$bitmaps/rgb24-pil.bmp" -o "$scratch/no/folder.png"
[ $failures -eq 0 ]
