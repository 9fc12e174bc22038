#!/usr/bin/env bash
# demo.sh [TEVSYS.EXE]: the program tevsys at work on copies of examples/demo. Fails when something
# is not as expected.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

tevsys=${1:-$root/build/mingw-release/bin/tevsys.exe}
[ -f "$tevsys" ] || die "$tevsys is not built; run ./tev demo"
tevsys=$(realpath "$tevsys")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cp -r "$root"/examples/demo/{system,user,kit} "$work"
cd "$work"

# The folder as Windows programs see it under Wine.
place=Z:${work//\//\\}
bin=$(dirname "$tevsys")
bin=Z:${bin//\//\\}
export TEV_DEMO_DIR=$place TEV_SYS_CONFIG_DIR=$place\\system\\ TEV_USER_CONFIG_DIR=$place\\user\\
# What the directives find.
export DEMO_LIST='alpha;beta' DEMO_OLD=obsolete DEMO_MODE=slow DEMO_KIT='C:\old kit'
export DEMO_PLUGINS='one;two;three'
unset DEMO_NEW DEMO_DATA DEMO_BROKEN DEMO_GONE DEMO_ABSENT DEMO_MINE KPT_DATA_DIR CSM_PLUGIN_DIR

heading() { printf '\n' && say "$@"; }

# as_shown TEXT: with the folders and the prefix's own PATH replaced.
as_shown() {
    local text=${1//"$place"/'{DEMO}'}
    text=${text//"$bin"/'{BIN}'}
    [ -z "${plain_path:-}" ] || text=${text//"$plain_path"/'{PATH}'}
    printf '%s' "$text"
}

# run ARGS...: shows a command, its output and its exit code; leaves them in $shown and $code.
run() {
    local error
    code=0
    shown=$("$root/scripts/wine.sh" "$tevsys" "$@" 2>"$work/error") || code=$?
    shown=$(as_shown "$shown")
    error=$(as_shown "$(<"$work/error")")
    printf '\n$ tevsys'
    printf ' %q' "$@"
    printf '\n%s%s' "${shown:+$shown$'\n'}" "${error:+on standard error: $error$'\n'}"
    printf '(exit code %s)\n' "$code"
}

# expect CODE [LINE]: what the last command must have given.
expect() {
    [ "$code" = "$1" ] || die "the demo expected exit code $1"
    [ $# -lt 2 ] || [ "$shown" = "$2" ] || die "the demo expected: $2"
}

plain_path=$(TEV_SYS_CONFIG_DIR='' "$root/scripts/wine.sh" "$tevsys" env | sed -n 's/^PATH=//Ip') ||
    die "tevsys does not run"

heading "demo: what a host sees ({DEMO} is $place, {PATH} the old PATH)"
run demo
expect 0
diff -u "$root/examples/demo/expected.txt" <(printf '%s\n' "$shown") ||
    die "the host's view is not the one of examples/demo/expected.txt"

heading "get: one value, the user's before the system's, then the environment's"
run get demo.title
expect 0 'Image Desk with the dark theme'
run get tev.log.level
expect 0 verbose
run get DEMO_MODE
expect 0 fast
run get demo.no.value
expect 1 ''
run get DEMO_MINE
expect 1 ''

heading "list: every property, for scripts"
run list
expect 0
grep -qxF $'system\ttev.log.loggers\tplain.file' <<<"$shown" || die "the demo expected plain.file"
grep -qxF $'user\tdemo.theme\tdark' <<<"$shown" || die "the demo expected the theme dark"

heading "set: a user property, saved in the copy of the user file"
run set demo.theme grey
expect 0 ''
run get demo.title
expect 0 'Image Desk with the grey theme'
printf '\nThe user file now:\n'
user=$(<"$work/user/tev.user.properties")
printf '%s\n' "${user//"$place"/'{DEMO}'}"
grep -qx 'demo.theme *= grey' <<<"$user" || die "the demo expected the theme in the user file"

heading "where: this program ({BIN} is $bin), the framework, its toolkit, the documents"
# What marks a toolkit is a folder with the name of a library.
mkdir -p kit/lib/CSMAPI.dll
KPT_DATA_DIR=$place/kit/data run where
expect 0
grep -qxF $'exe\t{BIN}\\\tthis program' <<<"$shown" || die "the demo expected its own folder"
grep -q $'^program\t-\tnot found: ' <<<"$shown" || die "the demo expected no marker module"
grep -qxF $'toolkit\t{DEMO}\\kit\\lib\\\tvariable KPT_DATA_DIR' <<<"$shown" ||
    die "the demo expected the toolkit in its copy of examples/demo/kit"
grep -q $'^documents\t' <<<"$shown" || die "the demo expected a line about the documents"

heading "wrong usage"
run get
expect 2 ''
heading "the demo has shown what it should"
