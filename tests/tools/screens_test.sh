#!/usr/bin/env bash
# screens_test.sh [--accept] TEVSYS.EXE FIXTURES FILE...: runs the commands in the ```console blocks of
# each file, lines of "$ COMMAND", over copies of examples/demo, tests/tools/odd and some fixture
# modules; C:\kit stands for their place. What they print must be what the file shows; --accept writes
# it there, to be reviewed.
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
accept=false
[ "$1" = --accept ] && accept=true && shift
exe=$(realpath "$1") fixtures=$(realpath "$2")
shift 2

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
place=Z:${work//\//\\}
export DEMO_LIST='alpha;beta' DEMO_OLD=obsolete DEMO_MODE=slow DEMO_KIT='C:\old kit'
export DEMO_PLUGINS='one;two;three' TEV_ODD_LIST=a TEV_ODD_SECRET=swordfish
export TEV_DEMO_DIR=$place\\demo TEV_SYS_CONFIG_DIR=$place\\demo\\system\\
export TEV_USER_CONFIG_DIR=$place\\demo\\user\\ WINEPATH
WINEPATH=Z:$(dirname "$exe")
bin=${WINEPATH//\//\\}
unset DEMO_NEW DEMO_DATA DEMO_BROKEN DEMO_GONE DEMO_ABSENT DEMO_MINE KPT_DATA_DIR CSM_PLUGIN_DIR
unset TEV_ODD_UNSET TEV_ODD_BLANK TEV_ODD_TOKEN

tevsys() { "$root/scripts/wine.sh" "$exe" "$@"; }

# in_odd COMMAND...: with the configuration in odd/ instead of demo/.
in_odd() {
    TEV_SYS_CONFIG_DIR=$place\\odd\\system\\ TEV_USER_CONFIG_DIR=$place\\odd\\user\\ "$@"
}

plain_path=$(TEV_SYS_CONFIG_DIR='' tevsys env | sed -n 's/^PATH=//Ip')

# run COMMAND: what a terminal would show, with the folder and the old PATH replaced.
run() {
    local text
    text=$(
        cd "$work/demo"
        code=0
        eval "${1//'C:\kit'/$place}" 2>&1 || code=$?
        [ "$code" = 0 ] || printf '(exit code %s)\n' "$code"
        printf x
    )
    text=${text%x}
    text=${text//$'\r'/}
    text=${text//"${place//\\/\\\\}"/'C:\\kit'}
    text=${text//"$place"/'C:\kit'}
    text=${text//"$bin"/'C:\kit\bin'}
    text=${text//"${plain_path//\\/\\\\}"/'C:\\Windows'}
    printf '%s' "${text//"$plain_path"/'C:\Windows'}"
}

screens() {
    local line inside=false shown=false
    while IFS= read -r line || [ -n "$line" ]; do
        case $line in
            '```console') inside=true ;;
            '```') inside=false shown=false ;;
        esac
        if $inside && [[ $line == '$ '* ]]; then
            printf '%s\n' "$line"
            run "${line#'$ '}"
            shown=true
        elif ! $shown; then
            printf '%s\n' "$line"
        fi
    done <"$1"
}

failed=0
for file in "$@"; do
    rm -rf "${work:?}/demo" "$work/odd"
    mkdir "$work/demo"
    cp -r "$root"/examples/demo/{system,user,kit} "$work/demo"
    cp -r "$root/tests/tools/odd" "$work"
    mkdir -p "$work/plugins"
    cp "$fixtures"/{tevouter,tevmiddle}/*.dll "$work/plugins"
    screens "$file" >"$work/screens"
    if $accept; then
        cp "$work/screens" "$file"
    elif ! diff -u "$file" "$work/screens"; then
        echo "$file does not show what tevsys prints; review and run:" \
            "tests/tools/screens_test.sh --accept $exe $fixtures $file" >&2
        failed=1
    fi
done
exit "$failed"
