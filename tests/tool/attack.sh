#!/usr/bin/env bash
# attack.sh TOOL: full disks, others at the same file, names and texts that mean harm.
# shellcheck source-path=SCRIPTDIR source=begin.sh
. "$(dirname "$0")/begin.sh"
export COREKIT_HOME=$scratch/home HOME=$scratch
cd "$scratch" || exit 1
umask 022

# refused PATTERN ARGUMENTS...: exit code 2 and one line on standard error that matches.
refused() {
    local pattern=$1
    shift
    timeout 20 "$tool" "$@" >out 2>err
    local code=$?
    [ $code -eq 2 ] && [ "$(wc -l <err)" -eq 1 ] && grep -qE "$pattern" err || fail "corekit $*: $code, $(cat err)"
}

# is EXPECTED ARGUMENTS...: exit code 0 and exactly this on standard output.
is() {
    local expected=$1
    shift
    timeout 20 "$tool" "$@" >out 2>err || fail "corekit $*: $(cat err)"
    [ "$(cat out)" = "$expected" ] || fail "corekit $*: $(cat out)"
}

# full BYTES ARGUMENTS...: the tool, where no file grows beyond so many bytes
full() {
    (
        trap '' XFSZ
        ulimit -f $(($1 / 1024))
        shift
        exec "$tool" "$@"
    )
}

seq 20000 >plain
printf hello >hello
printf 'old' >old
"$tool" registry set 'Software\A' Name 'text "one"'
"$tool" settings set x.ps Title one
"$tool" ini set x.ini A b 1
"$tool" ole add x.ole plain
"$tool" records create x.vlr && "$tool" records add x.vlr plain >added
"$tool" words create x.wl && "$tool" words add x.wl word 7 >added
"$tool" deflate plain plain.zz >packed
"$tool" log write Log one --single
zip -q x.zip plain

# --- standard output that takes nothing
while read -r command; do
    # shellcheck disable=SC2086
    "$tool" $command >/dev/full 2>err
    code=$?
    [ $code -eq 2 ] && grep -q '^corekit: standard output: No space left on device' err || fail "$command to /dev/full: $code, $(cat err)"
done <<'COMMANDS'
--help
--version
char U+0628
shape abc
registry get Software\A Name
registry list Software
registry export Software
ini get x.ini A b
settings show x.ps
settings get x.ps Title
ole list x.ole
records list x.vlr
records get x.vlr 0
records check x.vlr
words find x.wl word
log follow Log --once
convert --from utf-8 --to 1252 plain
convert --list
unzip x.zip -o unzipped --overwrite
COMMANDS

# --- old content outlives a write that fails, and nothing lies about
mkdir kept
while read -r target command; do
    cp old "kept/$target"
    # shellcheck disable=SC2086
    full 2048 $command >out 2>err && fail "full disk: $command: $(cat out)"
    [ "$(wc -l <err)" -eq 1 ] && ! grep -qE 'Unknown error|unsupported|must not exist|libpng' err || fail "full disk: $command: $(cat err)"
    [ "$(cat "kept/$target")" = old ] || fail "full disk: $command destroyed its target"
done <<'COMMANDS'
plain unzip x.zip -o kept --overwrite
a records get x.vlr 0 -o kept/a
b deflate plain kept/b
c inflate plain.zz kept/c
d convert --from utf-8 --to utf-16le plain -o kept/d
plain ole extract x.ole -o kept
COMMANDS
[ "$(ls -A kept)" = $'a\nb\nc\nd\nplain' ] || fail "left behind: $(ls -A kept)"
full 1024 ole add new.ole plain 2>err && fail "ole add on a full disk"
[ ! -e new.ole ] || fail "ole add left an empty file"
full 1024 records create new.vlr 2>err && fail "records create on a full disk"
grep -q 'must not exist' err && fail "records create: $(cat err)"
head -c 3000 plain >long.log && printf '\n' >>long.log
(trap '' XFSZ && ulimit -f 1 && exec "$tool" log write "long" xxxxxxxxx --single) 2>err && fail "log write on a full disk"

# --- rights, links, and two at once
ln -s x.ps link.ps
chmod 600 x.ps
"$tool" settings set link.ps Other two
[ -L link.ps ] && [ "$(stat -c %a x.ps)" = 600 ] || fail "settings set: $(ls -l x.ps link.ps)"
for i in $(seq 12); do "$tool" settings set x.ps "n$i" "$i" & done
wait
for i in $(seq 6); do "$tool" ole add x.ole hello --name "w$i" 2>>busy & done
wait
! grep -v 'The compound file is in use' busy >odd || fail "ole add: $(cat odd)"
[ $(("$("$tool" ole list x.ole | grep -c ' w[0-9]')" + $(wc -l <busy))) -eq 6 ] || fail "ole add: a change was lost: $(cat busy)"
[ "$("$tool" settings show x.ps | grep -c '^n[0-9]')" -eq 12 ] || fail "settings set: changes lost: $("$tool" settings show x.ps)"
[ "$(stat -c %a home/registry.db)" = 600 ] && [ "$(stat -c %a home)" = 700 ] || fail "registry: $(ls -la home)"
[ -z "$(find . -name '*corekit-*')" ] || fail "left behind: $(find . -name '*corekit-*')"
printf 'torn' >>Log.log
"$tool" log write Log two --single
grep -q '^torn$' Log.log || fail "log write went on in a torn line: $(cat Log.log)"

# --- arguments are taken as they are typed
is '' settings set b.ps k '[1,2]'
is '[1,2]' settings get b.ps k
printf bracket >'[x]'
is 1 records add x.vlr '[x]'
is bracket records get x.vlr 1

# --- archives that lie
zip -q two.zip plain hello
python3 - <<'PYTHON'
whole = bytearray(open('two.zip', 'rb').read())
def write(name, *changes):
    z = bytearray(whole)
    for place, value in changes: z[place % len(z)] = value
    open(name, 'wb').write(z)
end, central = whole.rfind(b'PK\5\6'), whole.find(b'PK\1\2')
write('few.zip', (end + 8, 1), (end + 10, 1))
write('name.zip', (central + 46, ord('q')))
write('short.zip', (central + 24, whole[central + 24] ^ 1), (22, whole[22] ^ 1))
write('method.zip', (central + 10, 12), (8, 12))
write('crc.zip', (central + 16, whole[central + 16] ^ 1), (14, whole[14] ^ 1))
open('comment.zip', 'wb').write(whole[:-2] + b'\x18\0' + b'PK\6\7' + bytes(16) + b'....')
open('empty.zip', 'wb').write(b'PK\5\6' + bytes(18))
import zipfile
with zipfile.ZipFile('bomb.zip', 'w', zipfile.ZIP_DEFLATED) as z:
    with z.open('bomb', 'w', force_zip64=True) as f:
        for i in range(1100): f.write(bytes(1 << 20))
with zipfile.ZipFile('deep.zip', 'w') as z: z.writestr('d/' * 16000 + 'x', 'x')
PYTHON
for lie in few name short method crc; do
    rm -rf lied
    refused 'Error with zipfile' unzip $lie.zip -o lied
done
[ -f lied/hello ] || [ ! -e lied/plain ] || fail "unzip: a damaged file stays"
is '108899 bytes to said' unzip comment.zip -o said
is '0 bytes to said' unzip empty.zip -o said
refused 'would become 1153433600 bytes, more than' unzip bomb.zip -o said
refused 'Error opening' unzip deep.zip -o said
zip -q -P word locked.zip hello
printf 'word\nrest' >word
is '5 bytes to unlocked' unzip locked.zip -o unlocked --password-file word
COREKIT_ZIP_PASSWORD=word is '5 bytes to unlocked' unzip locked.zip -o unlocked --overwrite
refused 'longer than' shape "$(head -c 20000 /dev/zero | tr '\0' a)"
if "$tool" --help | grep -q '^ *draw '; then
    mkdir same && cp hello same/hello.txt && cp hello hello.txt
    refused 'one picture' draw hello.txt same/hello.txt -o pictures
    head -c 2000 /dev/zero | tr '\0' W >large.txt
    refused 'too long' draw large.txt -o pictures
    seq 40 >some.txt
    full 1024 draw some.txt -o pictures 2>err && fail "draw on a full disk"
    [ "$(wc -l <err)" -eq 1 ] && ! grep -q libpng err || fail "draw on a full disk: $(cat err)"
fi

# --- what is no plain file stops nobody
mkfifo pipe
refused pipe settings show pipe
refused . ini get pipe a b
refused pipe ole list pipe
refused pipe records list pipe
refused pipe inflate pipe there
refused . unzip pipe -o there

# --- nothing steers the terminal
export evil=$'a\e]0;x\a\x7f\xc2\x9b\x9b'
touch "$evil"
"$tool" settings set e.ps "$evil" "$evil"
"$tool" registry set 'Software\A' "$evil" 'text "x"'
while read -r command; do
    script -qefc "'$tool' ${command//EVIL/\"\$evil\"}" /dev/null >screen
    LC_ALL=C tr -d '\r\n\t' <screen | LC_ALL=C grep -qP '[\x00-\x1f\x7f]|\xc2[\x80-\x9f]|(^|[\x00-\x7f])[\x80-\x9f]' && fail "$command steers the terminal: $(cat -v screen)"
done <<'COMMANDS'
settings show e.ps
registry list Software\\\\A
records list EVIL
ini get EVIL a b
ole extract x.ole EVIL
records get x.vlr 0 -o EVIL/x
unzip EVIL
COMMANDS
"$tool" settings show e.ps | grep -q $'\e' || fail "a pipe does not get the data as they are"
[ $failures -eq 0 ] && echo "the tool stands it"
exit $((failures > 0))
