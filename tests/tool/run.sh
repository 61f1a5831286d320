#!/usr/bin/env bash
# run.sh TOOL: what the command-line tool says and how it ends.
# shellcheck source-path=SCRIPTDIR source=begin.sh
. "$(dirname "$0")/begin.sh"

# refused ARGUMENTS...: exit code 2, one line on standard error, nothing on standard output.
refused() {
    "$tool" "$@" >"$scratch/out" 2>"$scratch/err"
    local code=$?
    [ $code -eq 2 ] || fail "corekit $*: exit code $code"
    [ "$(wc -l <"$scratch/err")" -eq 1 ] || fail "corekit $*: standard error: $(cat "$scratch/err")"
    [ ! -s "$scratch/out" ] || fail "corekit $*: wrote to standard output"
}

# says PATTERN ARGUMENTS...: exit code 0 and a line that matches.
says() {
    local pattern=$1
    shift
    "$tool" "$@" >"$scratch/out" 2>"$scratch/err" || fail "corekit $*: $(cat "$scratch/err")"
    grep -qE "$pattern" "$scratch/out" || fail "corekit $*: no line like '$pattern' in: $(cat "$scratch/out")"
}

refused
refused nonsense
refused regstry
grep -q "did you mean 'registry'?" "$scratch/err" || fail "no command like regstry: $(cat "$scratch/err")"
refused ole lst
refused char
refused char U+110000
refused char U+ZZ
refused char ''
refused shape
says 'general type +14 other letter' char U+0628
says 'joining class +2 dual joining' char 0628
says 'lower case +U\+0061' char A
says 'direction' shape --help
says '^base direction: right-to-left' shape 'שלום abc'
says '^0 +2 .*U\+0643.* U\+FEDA' shape 'ملك'
says '^0 +0 .*U\+0930.* U\+E0CC.* U\+E045.* U\+E0F2' shape 'र्कि'
says '^0 +0 .*U\+0995.* U\+E109.* U\+E1B6.* U\+E176' shape 'ক্ষো'

# is EXPECTED ARGUMENTS...: exit code 0 and exactly this on standard output.
is() {
    local expected=$1
    shift
    "$tool" "$@" >"$scratch/out" 2>"$scratch/err" || fail "corekit $*: $(cat "$scratch/err")"
    [ "$(cat "$scratch/out")" = "$expected" ] || fail "corekit $*: $(cat "$scratch/out")"
}

# Each command has its page, and the shell completes what the help lists.
mkdir "$scratch/manual"
"$tool" --manual "$scratch/manual" || fail "no manual pages"
for command in $("$tool" --help | awk '/^Subcommands:/ { on = 1; next } on && NF { print $1 }'); do
    grep -q '^\.SH SYNOPSIS' "$scratch/manual/corekit-$command.1" || fail "no page for $command"
    grep -q "corekit-$command" <(tr -d '\\' <"$scratch/manual/corekit.1") || fail "corekit.1 does not name $command"
done
completed=$("$tool" --completion bash >"$scratch/completion"; . "$scratch/completion"
    COMP_WORDS=(corekit ole li) COMP_CWORD=2; _corekit; echo "${COMPREPLY[*]}")
[ "$completed" = list ] || fail "corekit ole li is completed to '$completed'"
refused --completion fish
is '[
  {"place": 0, "was": 0, "code": "U+05D0", "char": "א", "direction": "1 right-to-left", "general type": "other letter", "glyph codes": "U+05D0 א"}
]' shape א --json
says '"what": "registry", "state": "(ok|missing)"' doctor --json
COREKIT_HOME=/dev/null/home says '"registry", "state": "missing"' doctor --json

[ "$(printf 'one two' | "$tool" deflate - - | "$tool" inflate - -)" = 'one two' ] || fail "no way there and back through pipes"
[ "$(printf caf\\351 | "$tool" convert --from 1252 --to utf-8 - -o -)" = café ] || fail "convert through pipes"

export COREKIT_HOME=$scratch/home
refused registry
refused registry get 'Software\Test' Name
refused registry set 'Software\Test' Name 'number many'
is '' registry set 'HKLM\Software\Test\Below' 'A "name"' 'text "two\nlines"'
is '' registry set 'Software\Test' Mode 'number 0x10'
is 'number 16' registry get 'SOFTWARE\test' mode
is $'[Below]\n"Mode" = number 16' registry list 'Software\Test'
is '' registry export Software -o "$scratch/settings"
refused registry delete 'Software\Test'
is '' registry delete 'Software\Test' Mode
is '' registry delete Software --key
refused registry list Software
is '2 values set' registry import "$scratch/settings"
is "$(cat "$scratch/settings")" registry export Software
printf '[A]\n"b" = number\n' >"$scratch/bad"
refused registry import "$scratch/bad"
refused registry import "$scratch/missing"

log=$scratch/logs/Server
mkdir "$scratch/logs"
is '' log write "$log" 'café' 'two' --level Warning
is '' log write "$log" 'quiet' --level Trace
printf 'three\nfour \033[31m\n' | "$tool" log write "$log" - --level majorerror || fail "log write -"
is '' log write "$scratch/logs/Other" 'x' --single
[ -f "$scratch/logs/Other.log" ] && [ -f "$(ls "$log".20??-??-??.log)" ] || fail "log files: $(ls "$scratch/logs")"
says '^[0-9:]{10} [0-9:]{8}  Warning           café$' log follow "$log" --once -n 100
is '' log follow "$log" --once --filter Nothing
[ "$("$tool" log follow "$log" --once --level Warning -n 3 | cut -c22-)" = $'Warning           two\nMajorError        three\nMajorError        four \\x1B[31m' ] ||
    fail "log follow: $("$tool" log follow "$log" --once --level Warning -n 3)"
refused log write "$log" x --level Loud
refused log write "$scratch/missing/Server" x
refused log follow "$scratch/logs/Missing" --once
refused log follow
"$tool" log follow "$log" --filter later >"$scratch/followed" &
follower=$!
for _ in $(seq 30); do
    is '' log write "$log" 'later'
    grep -q later "$scratch/followed" && break
    sleep 0.1
done
kill $follower
grep -q 'Information       later$' "$scratch/followed" || fail "log follow saw nothing"

printf '; mine\n[A]\n  b = 1\n' >"$scratch/x.ini"
is 1 ini get "$scratch/x.ini" a B
is '' ini set "$scratch/x.ini" A b 'two words'
[ "$(cat "$scratch/x.ini")" = $'; mine\n[A]\n  b = two words' ] || fail "ini set: $(cat "$scratch/x.ini")"
refused ini get "$scratch/x.ini" A c
refused ini get "$scratch/missing.ini" A b
refused ini set "$scratch/x.ini" A b=c 1

store=$scratch/options.ps
is '' settings set "$store" Timing Lines 5 --type integer
is '' settings set "$store" Title 'Été שלום'
is '' settings set "$store" Timing Raw 00ffA0 --type binary
is 5 settings get "$store" timing lines
is 'Été שלום' settings get "$store" TITLE
is 00ffa0 settings get "$store" Timing Raw
is '' settings set "$store" Timing Lines many # of another type now
says '^  Lines +string +many$' settings show "$store"
says '^Timing/ +store' settings show "$store"
cp "$store" "$scratch/before.ps"
refused settings set "$store" Timing Lines 99999999999 --type integer
refused settings set "$store" Timing Raw 0fz --type binary
refused settings set "$store" Timing Raw 0f1 --type binary
refused settings set "$store" alone
refused settings get "$store" Nowhere Lines
refused settings get "$store" Timing Nothing
refused settings show "$scratch/missing.ps"
cmp -s "$store" "$scratch/before.ps" || fail "a refused settings command changed its file"
head -c 30 "$scratch/before.ps" >"$scratch/cut.ps"
refused settings show "$scratch/cut.ps"
refused settings set "$scratch/cut.ps" Title x
[ "$(wc -c <"$scratch/cut.ps")" -eq 30 ] || fail "settings set wrote over a damaged file"

seq 1 20000 >"$scratch/numbers"
printf 'hello' >"$scratch/hello"
is '' ole add "$scratch/x.ole" "$scratch/numbers"
is '' ole add "$scratch/x.ole" "$scratch/hello" --name Greeting
says '^stream +5 +Greeting' ole list "$scratch/x.ole"
says '^2 streams' ole extract "$scratch/x.ole" -o "$scratch/parts"
cmp -s "$scratch/numbers" "$scratch/parts/numbers" || fail "ole extract: other bytes"
refused ole list "$scratch/numbers"
refused ole extract "$scratch/x.ole" Missing -o "$scratch/parts"
refused ole add "$scratch/x.ole" "$scratch/missing"
ln -sf "$scratch/outside" "$scratch/parts/Greeting"
refused ole extract "$scratch/x.ole" -o "$scratch/parts"
[ ! -e "$scratch/outside" ] || fail "ole extract: went through a link"
# A name that another program wrote.
LC_ALL=C sed 's/G\x00r\x00e\x00e\x00t\x00i\x00n\x00g\x00/.\x00.\x00\/\x00.\x00.\x00\/\x00u\x00p\x00/' "$scratch/x.ole" >"$scratch/evil.ole"
says '[.][.]%2F[.][.]%2Fup' ole list "$scratch/evil.ole"
says '^2 streams' ole extract "$scratch/evil.ole" -o "$scratch/evil/parts"
[ -f "$scratch/evil/parts/..%2F..%2Fup" ] || fail "ole extract: $(find "$scratch" -name '*up')"

records=$scratch/x.vlr
is '' records create "$records"
is $'0\n1' records add "$records" "$scratch/numbers" "$scratch/hello"
printf 'piped' | "$tool" records add "$records" - >/dev/null || fail "records add -"
is 'piped' records get "$records" 2
is '' records replace "$records" 1 "$scratch/numbers"
is '' records delete "$records" 2
says '^ +1 +108894$' records list "$records"
says '^2 records, 3 numbers$' records list "$records"
says '^Checks completed.$' records check "$records"
is '2 sound, 0 doubtful, 0 lost' records salvage "$records" "$scratch/salvaged.vlr"
is '' records get "$scratch/salvaged.vlr" 0 -o "$scratch/back"
cmp -s "$scratch/numbers" "$scratch/back" || fail "records: other bytes"
refused records create "$records"
refused records create "$scratch/y.vlr" --sector-size 500
refused records get "$records" 2
refused records delete "$records" 0 2
refused records add "$records" "$scratch/missing"
refused records list "$scratch/numbers"
refused records salvage "$scratch/numbers" "$scratch/y.vlr"
printf '\1' | dd of="$records" bs=1 seek=521 conv=notrunc status=none # record 1 where record 0 is
"$tool" records check "$records" >"$scratch/out"
[ $? -eq 1 ] && grep -q '^This V.L.R. File is busted.$' "$scratch/out" || fail "records check: $(cat "$scratch/out")"

seq 20000 >"$scratch/plain"
says '^[0-9]+ of 108894 bytes, checksum [0-9A-F]{8}$' deflate "$scratch/plain" "$scratch/plain.zz"
says '^108894 bytes$' inflate "$scratch/plain.zz" "$scratch/again"
cmp -s "$scratch/plain" "$scratch/again" || fail "inflate: other bytes"
refused inflate "$scratch/plain" "$scratch/again"
refused deflate "$scratch/missing" "$scratch/again"
cmp -s "$scratch/plain" "$scratch/again" || fail "a refused run touched its output"
(cd "$scratch" && zip -q x.zip plain again)
says '^217788 bytes to ' unzip "$scratch/x.zip" -o "$scratch/unzipped"
says '^2 files were there already' unzip "$scratch/x.zip" -o "$scratch/unzipped"
cmp -s "$scratch/plain" "$scratch/unzipped/plain" || fail "unzip: other bytes"
refused unzip "$scratch/plain"
refused unzip "$scratch/x.zip" missing -o "$scratch/unzipped"
(cd "$scratch" && zip -q -P word locked.zip plain)
refused unzip "$scratch/locked.zip" --password sword -o "$scratch/unzipped" --overwrite
says '^108894 bytes' unzip "$scratch/locked.zip" --password word -o "$scratch/unzipped" --overwrite

words=$scratch/x.wl
printf 'The first line\nthe second \xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d line\n%s\n' "$(printf 'x%.0s' {1..30})" >"$scratch/words.txt"
is '' words create "$words"
is '5 words added, 2 found again, 1 too long' words index "$words" "$scratch/words.txt"
is '2' words find "$words" שלום
is '1' words add "$words" LINE 9
is '4294967295' words add "$words" 'line/up' 4294967295
is $'1\n4294967295' words match "$words" '*LiNe*'
is '' words match "$words" '*z'
refused words create "$words"
refused words add "$words" word 0
refused words add "$words" xxxxxxxxxxxxxxxxxxxxxxxxxxxxxx 1
refused words find "$words" missing
refused words index "$words" "$scratch/missing"
refused words find "$scratch/words.txt" line

printf 'caf\xe9\n\xd4\n' >"$scratch/cp1252.txt"
is $'café\nÔ' convert --from windows-1252 --to utf-8 "$scratch/cp1252.txt"
is $'cafi\nش' convert --from 1256 --to 65001 <(printf 'cafi\n\xd4\n')
[ "$(printf '日本' | "$tool" convert --from utf-8 --to Shift_JIS | od -An -tx1)" = ' 93 fa 96 7b' ] || fail "convert from a pipe"
is 'a?' convert --from utf-8 --to 'Arabic Codepage (1256)' --replace <(printf 'aक')
refused convert --from utf-8 --to 1256 <(printf 'ab\nक')
grep -q 'line 2 has U+0915' "$scratch/err" || fail "convert: $(cat "$scratch/err")"
refused convert --from utf-8 --to 1252 <(printf 'a\n\xff')
refused convert --from cesu-8 --to 1252 --replace <(printf 'a\xff')
refused convert --from 1252
refused convert --from 710 --to utf-8 "$scratch/cp1252.txt"
refused convert --from klingon --to utf-8 "$scratch/cp1252.txt"
refused convert --from utf-8 --to iscii "$scratch/cp1252.txt"
refused convert --from 1252 --to utf-8 "$scratch/missing"
refused convert --from utf-8 --to 1252 "$scratch/cp1252.txt" -o "$scratch/converted"
[ -z "$(find "$scratch" -name 'converted*')" ] || fail "convert left a part of a file"
says '^1252 +windows-1252 +both ways +Windows US .ANSI. Codepage .1252.$' convert --list
says '^710 +- +no +Arabic' convert --list
says '^65537 +iscii-89 +from +ISCII-89' convert --list
# Characters lie across every cut of a long text, and a long line has none.
for i in $(seq 4000); do printf 'ذa日本語 ق%s' "$i"; [ $((i % 1900)) -ne 0 ] || echo; done >"$scratch/long.txt"
iconv -f utf-8 -t gb18030 "$scratch/long.txt" >"$scratch/long.gb"
for page in gb18030 utf-16le cesu-8 utf-7; do
    "$tool" convert --from utf-8 --to $page "$scratch/long.txt" -o "$scratch/there" &&
        "$tool" convert --from $page --to utf-8 "$scratch/there" | cmp - "$scratch/long.txt" || fail "convert --to $page"
    [ $page != gb18030 ] || cmp "$scratch/there" "$scratch/long.gb" || fail "convert: not what iconv gives"
done
tr -d 'ذق' <"$scratch/long.txt" >"$scratch/kanji.txt"
for page in 932 euc-jp iso-2022-jp; do
    "$tool" convert --from utf-8 --to $page "$scratch/kanji.txt" | "$tool" convert --from $page --to utf-8 | cmp - "$scratch/kanji.txt" || fail "convert --to $page"
done

if "$tool" --help | grep -q "^ *draw "; then
    printf 'one\r\n\xd7\xa9\xd7\x9c\xd7\x95\xd7\x9d 12\n\xff broken \xe2\x82\n' >"$scratch/utf8.txt"
    printf '\xff\xfeA\0B\0\n\0' >"$scratch/utf16.txt"
    : >"$scratch/empty.txt"
    refused draw
    refused draw "$scratch/utf8.txt"
    refused draw "$scratch/missing.txt" -o "$scratch/pictures"
    refused draw "$scratch" -o "$scratch/pictures"
    refused draw "$scratch/utf8.txt" -o "$scratch/utf16.txt/inside"
    refused draw "$scratch/utf8.txt" -o "$scratch/pictures" --size 0
    refused draw "$scratch/utf8.txt" -o "$scratch/pictures" --font 'No Such Face'
    says '4 lines in 3 pictures' draw "$scratch/utf8.txt" "$scratch/utf16.txt" "$scratch/empty.txt" -o "$scratch/pictures" --bidi --width 640
    for picture in utf8 utf16 empty; do
        head -c 8 "$scratch/pictures/$picture.png" | cmp -s - <(printf '\x89PNG\r\n\x1a\n') || fail "$picture.png is no PNG"
    done
    # Its options are no settings of the machine.
    is '[Enabled Keyboards]' registry list 'HKLM\Software\Corvane\Unicode Support'

    # Glyph fonts: what our own shaping writes with them, word for word over the platform's drawing.
    scripts=$(dirname "$0")/../../examples/scripts/indic
    export COREKIT_HOME="$scratch/home"
    refused fonts build --script klingon --from 'Noto Sans Devanagari' -o "$scratch/fonts"
    refused fonts build --script tamil --from 'No Such Face' -o "$scratch/fonts"
    refused fonts compare "$scripts/tamil.txt" --font-file "$scratch/utf8.txt" --font X --with 'Noto Sans Tamil'
    for script in Devanagari Bengali Tamil; do
        says "CoreKit-$script.ttf: [0-9]+ glyph codes" fonts build --script $script --from "Noto Sans $script" -o "$scratch/fonts" --register
    done
    says 'Marathi-Devanagari.ttf: [0-9]+ glyph codes' fonts build --script devanagari --from 'Noto Sans Devanagari' -o "$scratch/fonts" \
        --language mr --name 'Marathi Devanagari'
    cmp -s "$scratch/fonts/Marathi-Devanagari.ttf" "$scratch/fonts/CoreKit-Devanagari.ttf" && fail 'no shapes of Marathi'
    refused fonts build --script devanagari --from 'Noto Sans Devanagari' -o "$scratch/fonts" --language 'm!'
    COREKIT_HOME="$scratch/elsewhere" refused fonts compare "$scripts/tamil.txt" --font-file "$scratch/fonts/CoreKit-Tamil.ttf" \
        --font 'CoreKit Tamil' --with 'Noto Sans Tamil'
    # likeness LANGUAGE SCRIPT PERCENT: at least so many of its words are alike
    likeness() {
        says 'words overlap by at least 70 %' fonts compare "$scripts/$1.txt" --font-file "$scratch/fonts/CoreKit-$2.ttf" \
            --font "CoreKit $2" --with "Noto Sans $2" --at-least "$3"
    }
    likeness hindi Devanagari 99
    likeness marathi Devanagari 99
    likeness nepali Devanagari 99
    likeness bengali Bengali 99
    likeness assamese Bengali 99
    likeness tamil Tamil 95
    # Words of the news in eight languages, over the platform's drawing in the same face.
    words=$(dirname "$0")/../unicode_ui/words
    news() {
        says 'words overlap by at least 70 %' fonts compare "$words/$1.txt" --with "$2" --at-least "$3" "${@:4}"
    }
    for language in arabic persian urdu; do news $language 'Noto Naskh Arabic' 99; done
    news hebrew 'Noto Serif Hebrew' 99
    news hindi 'Noto Sans Devanagari' 99.5 --font 'CoreKit Devanagari' --font-file "$scratch/fonts/CoreKit-Devanagari.ttf"
    news marathi 'Noto Sans Devanagari' 99.5 --font 'CoreKit Devanagari' --font-file "$scratch/fonts/CoreKit-Devanagari.ttf"
    news bengali 'Noto Sans Bengali' 99.5 --font 'CoreKit Bengali' --font-file "$scratch/fonts/CoreKit-Bengali.ttf"
    news tamil 'Noto Sans Tamil' 99 --font 'CoreKit Tamil' --font-file "$scratch/fonts/CoreKit-Tamil.ttf"
    says '^\{"font": "", "with": "Noto Serif Hebrew", "words": 591, "shares": \{"98"' fonts compare "$words/hebrew.txt" \
        --with 'Noto Serif Hebrew' --json
    "$tool" fonts compare "$scripts/tamil.txt" --font-file "$scratch/fonts/CoreKit-Tamil.ttf" --font 'CoreKit Tamil' \
        --with 'Noto Sans Tamil' --at-least 100 >"$scratch/out" 2>&1 && fail "a share that is not reached is no failure"
    says '[0-9]+ lines in 6 pictures' draw "$scripts"/*.txt -o "$scratch/pictures" --fonts "$scratch/fonts"

    says '^Arabic \(Internal\) +1025 +1256 +library' keyboards
    says '│ஹ  U│   I│   O│ஜ  P│' keyboards tamil
    says '│◌ி F│' keyboards tamil
    says '^After a consonant:$' keyboards 'devanagari - std'
    says '^\*2 .*الله' keyboards Urdu
    says '│◌ॉ `│' keyboards 'Devanagari - Alt 1 (Internal)' --board us
    refused keyboards 'No Such Keyboard'
    refused keyboards Devanagari # which of the two
    refused keyboards '' --board us
    refused keyboards Tamil --board de
    refused keyboards Tamil -o "$scratch/missing/x.png"
    is '' keyboards Welsh -o "$scratch/welsh.png"
    head -c 8 "$scratch/welsh.png" | cmp -s - <(printf '\x89PNG\r\n\x1a\n') || fail "keyboards: no PNG"

    says '^shift\+b +U\+0644 U\+0622 +لآ +keyboard$' type --keyboard Arabic a shift+b space
    says '^text: +U\+0634 U\+0644 U\+0622 U\+0020$' type --keyboard Arabic A shift+b x backspace space
    says '^glyphs: U\+FEFB$' type --keyboard Arabic b
    says '^text: +U\+0915 U\+094D U\+0915 U\+093E U\+0020 U\+0906$' type --keyboard 'Devanagari - Std' k d k e space e
    says '^text: +U\+09FF U\+09D5$' type --keyboard 'bengali inscript' space s
    says '^0xDE +U\+0637' type --keyboard Arabic 0xDE num5
    says "^' +U\+091F" type --keyboard 'Devanagari - Alt' --board us "'"
    says '^text: +U\+0175 U\+0174 U\+0077 U\+0031$' type --keyboard Welsh altgr+w shift+altgr+w w num1
    refused type a
    refused type --keyboard Arabic hello
    refused type --keyboard Arabic a shift+
    refused type --keyboard Arabic 0x100
    refused type --keyboard Arabic </dev/null

    # pressed KEYS ARGUMENTS...: the last line shown when the keys come from a terminal.
    pressed() {
        local keys=$1 waited=0
        shift
        : >"$scratch/screen"
        {
            until grep -q 'Ctrl-D' "$scratch/screen" || [ $((++waited)) -gt 1000 ]; do sleep 0.01; done
            printf "$keys"
        } | script -qefc "'$tool' type $*" /dev/null >"$scratch/screen"
        tr -d '\r' <"$scratch/screen" | sed -n 's/.*\x1b\[K//g; /./p' | tail -n 1
    }
    for case in "Arabic:x\\x1b[Aks\\x7f\\rB\\x04:ﻵ" "Welsh:a\\x1bw\\x1bW\\x03:aŵŴ"; do
        IFS=: read -r keyboard keys line <<<"$case"
        [ "$(pressed "$keys" --keyboard "$keyboard")" = "$line" ] || fail "type on a terminal: $(cat "$scratch/screen")"
    done
fi
# A server of another make, ended by its process id.
mkdir "$scratch/site" "$scratch/fetched"
: >"$scratch/port"
/usr/bin/python3 "$(dirname "$0")/../net/pyftpd.py" "$scratch/site" >"$scratch/port" &
server=$!
trap 'kill "$server"; rm -rf "$scratch"' EXIT
for _ in $(seq 600); do
    [ "$(wc -l <"$scratch/port")" -eq 1 ] && break
    sleep 0.05
done
place=u@127.0.0.1:$(cat "$scratch/port")
export HOME=$scratch COREKIT_FTP_PASSWORD=p
says 'numbers: 109 kB in [0-9.]+ s, .*/s$' ftp put "$place" "$scratch/numbers" "$scratch/hello"
is $'hello\nnumbers' ftp ls "ftp://$place/"
says ' 108894 .* numbers$' ftp ls "$place" --long
is '' ftp mkdir "$place" 'two words'
says 'hello: 5 bytes' ftp put "$place/two words" "$scratch/hello"
[ -f "$scratch/site/two words/hello" ] || fail "ftp put: $(find "$scratch/site")"
says 'numbers: 109 kB' ftp get "$place" numbers hello -o "$scratch/fetched"
cmp -s "$scratch/numbers" "$scratch/fetched/numbers" || fail "ftp get: other bytes"
refused ftp get "$place" missing -o "$scratch/fetched"
[ "$(ls "$scratch/fetched")" = $'hello\nnumbers' ] || fail "ftp get left: $(ls "$scratch/fetched")"
is '' ftp rm "$place/two words" hello
is '' ftp rmdir "$place" 'two words'
refused ftp rmdir "$place" 'two words'
refused ftp rm "$place" $'hello\r\nDELE numbers'
COREKIT_FTP_PASSWORD=$'p\r\nDELE numbers' refused ftp ls "$place"
grep -q 'cannot hold a line end' "$scratch/err" || fail "ftp with a password of two lines: $(cat "$scratch/err")"
mkdir -p "$scratch/a/b" "$scratch/site/deep"
printf evil >"$scratch/site/..\\..\\harm"
"$tool" ftp get "$place" '..\..\harm' -o "$scratch/a/b" >/dev/null 2>&1
[ ! -e "$scratch/harm" ] && [ "$(find "$scratch/a" -type f)" = "$scratch/a/b/harm" ] || fail "ftp get left its folder: $(find "$scratch/a")"
rm -r "$scratch/site/deep" "$scratch/site/..\\..\\harm"
refused ftp put "$place" "$scratch/missing"
refused ftp ls "$place/nowhere"
refused ftp ls 127.0.0.1:99999
refused ftp ls u:p@127.0.0.1
refused ftp ls
COREKIT_FTP_PASSWORD=wrong refused ftp ls "$place"
unset COREKIT_FTP_PASSWORD
printf 'machine elsewhere login u password x\nmachine 127.0.0.1 login u password p\n' >"$scratch/.netrc"
is $'hello\nnumbers' ftp ls "$place" --verbose
grep -q '^PASS \.\.\.$' "$scratch/err" && ! grep -q '^PASS p' "$scratch/err" || fail "ftp --verbose: $(cat "$scratch/err")"

sys=$scratch/sys
mkdir -p "$sys/class/tty/ttyUSB0/device" "$sys/class/scsi_host/host4" "$scratch/dev"
mkdir -p "$sys/bus/scsi/devices/4:0:5:0" && echo 3 >"$sys/bus/scsi/devices/4:0:5:0/type"
echo 'PROMPTER LINK' >"$sys/bus/scsi/devices/4:0:5:0/model"
devices=(--sysfs "$sys" --devices "$scratch/dev")
says "^COM33 +$scratch/dev/ttyUSB0" serial "${devices[@]}" list
says '^This machine has no serial ports' serial --sysfs "$scratch/none" --devices "$scratch/none" list
echo text >"$scratch/dev/COM4"
refused serial "${devices[@]}" show COM4
refused serial "${devices[@]}" show COM33
refused serial "${devices[@]}" show /dev/null
refused serial "${devices[@]}" listen COM7 --parity odder
refused serial "${devices[@]}" listen COM7 --bits 9
refused serial send COM7 "$scratch/missing"
applets=$(dirname "$tool")/../lib/script-upload-applet.so
if [ -f "$applets" ]; then
    says '^0 +Script Upload +Which folder' applet "$applets"
    refused applet "$applets" 2
    refused applet "$scratch/utf8.txt"
    refused applet "$(dirname "$tool")/../lib/libcorekit.so"
fi
# A line whose other end answers each text with itself in capitals.
python3 - "$scratch/dev/COM7" <<'PYTHON' &
import os, pty, sys, tty
main, line = pty.openpty()
tty.setraw(line)
os.symlink(os.ttyname(line), sys.argv[1])
while True:
    os.write(main, os.read(main, 4096).upper())
PYTHON
line=$!
while [ ! -e "$scratch/dev/COM7" ]; do sleep 0.05; done
says '^rate +[0-9]+ bits per second' serial "${devices[@]}" show com7
is '' serial "${devices[@]}" send COM7 --text 'prompt' --baud 19200 --flow software
says '^rate +19200' serial "${devices[@]}" show 7
is '00000000  50 52 4f 4d 50 54' serial "${devices[@]}" listen COM7 --count 6 --hex
kill $line
wait $line 2>/dev/null
says '^0\.0\.5\.0 +processor +PROMPTER LINK' scsi "${devices[@]}" list
says '^place +Adaptor=0, bus=0, id=5, lun=0' scsi "${devices[@]}" inquire 0.0.5.0
refused scsi "${devices[@]}" inquire 0.0.6.0
refused scsi "${devices[@]}" inquire 0.0.5
[ $failures -eq 0 ] && echo "the tool behaves"
exit $((failures > 0))
