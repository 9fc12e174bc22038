#!/usr/bin/env bash
# doctor_test.sh [--accept] TEVSYS.EXE FIXTURES: what tevsys doctor tells about each fixture, compared
# with the texts in doctor/. After a wanted change, write them anew with --accept and review their
# diff.
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
accept=false
[ "$1" = --accept ] && accept=true && shift
tevsys=$(realpath "$1") fixtures=$(realpath "$2")
golden=$root/tests/tools/doctor

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
place=Z:${work//\//\\}
bin=Z:$(dirname "$tevsys")
bin=${bin//\//\\}
failures=0
fail() {
    printf 'FAILED: doctor %s: %s\n' "$1" "$2"
    failures=$((failures + 1))
}
# literal TEXT: as a pattern of sed that means itself.
literal() { sed 's/[][\.*^$|]/\\&/g' <<<"$1"; }

# examine NAME CODE ARGS...: what the doctor prints is the text NAME, and it exits with CODE. In the
# text, @ is the place of the fixtures and BIN that of the program.
examine() {
    local name=$1 expected=$2 code=0
    shift 2
    "$root/scripts/wine.sh" "$tevsys" doctor "$@" >"$work/out" 2>"$work/err" || code=$?
    sed -i -e "s|$(literal "$place")|@|gI" -e "s|$(literal "$bin")|BIN|gI" "$work/out"
    # As JSON writes them.
    sed -i -e "s|$(literal "${place//\\/\\\\}")|@|gI" -e "s|$(literal "${bin//\\/\\\\}")|BIN|gI" \
        "$work/out"
    $accept && cp "$work/out" "$golden/$name.txt"
    [ "$code" = "$expected" ] || fail "$name" "exit code $code, not $expected"
    [ ! -s "$work/err" ] || fail "$name" "says on standard error: $(<"$work/err")"
    diff "$golden/$name.txt" "$work/out" || fail "$name" "differs from $golden/$name.txt (<)"
}
# folder NAME FIXTURE...: a folder with these modules.
folder() {
    mkdir -p "$work/$1"
    local name
    for name in "${@:2}"; do cp "$fixtures/$name"/*.dll "$work/$1"; done
}
# number SIZE VALUE: little-endian, as printf takes it.
number() {
    local i
    for ((i = 0; i < $1; i++)); do printf '\\x%02x' $((($2 >> (8 * i)) & 255)); done
}
# A module for 32-bit x86: headers without a section.
module32() {
    local zeros
    zeros=$(printf '\\x00%.0s' {1..58})
    printf 'MZ%b' "$zeros$(number 4 64)"
    printf 'PE\0\0%b' "$(number 2 332)$(number 2 0)$(number 4 0)$(number 4 0)$(number 4 0)"
    printf '%b' "$(number 2 224)$(number 2 8450)$(number 2 267)"
    head -c 222 /dev/zero
}

folder all tevneedy tevneeded
folder chain tevouter tevmiddle
folder greedy tevgreedy tevneeded
folder more tevgreedy tevneededmore
folder sent tevsent tevsending tevneeded
folder refused tevrefused tevrefusingmore tevrefusing
folder raised tevraised tevraisingmore
folder plain tevplain
folder other
folder x86 tevneedy
module32 >"$work/x86/tevneeded.dll"
folder text tevneedy
echo 'This is not a module.' >"$work/text/tevneeded.dll"
folder empty tevneedy
: >"$work/empty/tevneeded.dll"
cd "$work/other"

examine loads 0 "$place\\all\\tevneedy.dll" --dir "$place\\all"
examine loads-json 0 "$place/all/tevneedy.dll" --dir "$place/all/" --json
# The folder of a module is not searched for what it needs.
examine ordinary-order 1 "$place\\all\\tevneedy.dll"
examine two-levels-down 1 "$place\\chain\\tevouter.dll" --dir "$place\\chain"
examine two-levels-down-json 1 "$place\\chain\\tevouter.dll" --dir "$place\\chain" --json
examine missing-functions 1 "$place\\greedy\\tevgreedy.dll" --dir "$place\\greedy"
examine missing-functions-json 1 "$place\\greedy\\tevgreedy.dll" --dir "$place\\greedy" --json
examine no-missing-functions 0 "$place\\more\\tevgreedy.dll" --dir "$place\\more"
examine missing-forwarder 1 "$place\\sent\\tevsent.dll" --dir "$place\\sent"
examine x86 1 "$place\\x86\\tevneeded.dll"
examine x86-below 1 "$place\\x86\\tevneedy.dll" --dir "$place\\x86"
examine not-a-module 1 "$place\\text\\tevneeded.dll"
examine not-a-module-below 1 "$place\\text\\tevneedy.dll" --dir "$place\\text"
examine empty-below 1 "$place\\empty\\tevneedy.dll" --dir "$place\\empty"
examine refuses 1 "$place\\refused\\tevrefusing.dll"
examine refuses-below 1 "$place\\refused\\tevrefused.dll" --dir "$place\\refused"
examine raises 1 "$place\\raised\\tevraisingmore.dll"
examine raises-below 1 "$place\\raised\\tevraised.dll" --dir "$place\\raised"
examine no-such-file 1 "$place\\other\\gone.dll"
examine no-such-name 1 gone --dir "$place\\plain" --dir "$place\\no such folder" --dir relative
examine empty-name 1 ''
# The current folder, which search directories leave out too, is not taken for one of PATH.
(cd "$work/plain" && examine current-not-consulted 1 tevplain --dir "$place\\other"
    exit "$failures") || failures=$?
# Found through PATH, which search directories leave out.
export WINEPATH=$place\\plain
examine path 0 tevplain
examine path-not-consulted 1 tevplain --dir "$place\\other"
WINEPATH=$place\\all examine path-not-consulted-below 1 "$place\\all\\tevneedy.dll" \
    --dir "$place\\other"

# Files cut off anywhere are told of, and end nothing.
size=$(stat -c %s "$work/plain/tevplain.dll")
for part in 1 2 63 64 100 200 400 600 1500 $((size / 4)); do
    head -c "$part" "$work/plain/tevplain.dll" >"$work/other/cut$part.dll"
    code=0
    "$root/scripts/wine.sh" "$tevsys" doctor "$place\\other\\cut$part.dll" >"$work/out" 2>&1 || code=$?
    [ "$code" = 1 ] || fail "cut off at $part" "exit code $code"
    grep -q 'is not a module: it \(ends before\|does not begin\)' "$work/out" ||
        fail "cut off at $part" "$(tail -n 1 "$work/out")"
done

# Names that the loader's code page lacks.
code=0
"$root/scripts/wine.sh" "$tevsys" doctor 'no-ばらばら.dll' >"$work/out" 2>&1 || code=$?
[ "$code" = 1 ] || fail 'a name beyond the code page' "exit code $code"
grep -q 'cannot ask for no-ばらばら.dll' "$work/out" ||
    fail 'a name beyond the code page' "$(<"$work/out")"

# Its manual, and wrong usage.
"$root/scripts/wine.sh" "$tevsys" doctor --help >"$work/out"
for text in 'MODULE .*REQUIRED' '--dir' '--json' EXAMPLES '  1  it does not load'; do
    grep -q -- "$text" "$work/out" || fail --help "lacks $text"
done
code=0
"$root/scripts/wine.sh" "$tevsys" doctor >"$work/out" 2>&1 || code=$?
[ "$code" = 2 ] || fail 'without MODULE' "exit code $code, not 2"

# names in import tables may be any bytes
LC_ALL=C sed 's/tevmiddle[.]dll/tevm\xefddle.dll/g' "$fixtures/tevouter/tevouter.dll" >"$work/bytes.dll"
"$root/scripts/wine.sh" "$tevsys" doctor "$place\\bytes.dll" >"$work/out" 2>&1 || true
[ "$(grep -c 'tevmïddle' "$work/out")" -ge 2 ] || fail 'bytes.dll' 'shows no name in UTF-8'
iconv -f UTF-8 -t UTF-8 "$work/out" >/dev/null 2>&1 || fail 'bytes.dll' 'is not UTF-8'

[ "$failures" = 0 ] || die "$failures expectations of tevsys doctor failed"
echo 'the doctor names the right culprit'
