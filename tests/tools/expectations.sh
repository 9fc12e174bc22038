# expectations.sh TEVSYS.EXE FIXTURES: sourced by the tests of the program tevsys: a configuration in a
# folder of its own, and what they expect, each failed expectation on a line.
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
tevsys=$(realpath "$1") host=$(realpath "$2/tevhost/tevhost.exe")

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
place=Z:${work//\//\\}
mkdir system user empty
export TEV_SYS_CONFIG_DIR=$place\\system TEV_USER_CONFIG_DIR=$place\\user TEV_TEST_DIR=$place
export TEV_TEST_LIST='a;b' TEV_TEST_OLD=1
unset TEV_TEST_NEW KPT_DATA_DIR CSM_PLUGIN_DIR

printf '%s\r\n' 'a.system = from system' 'a.both = from system' 'a.place = %TEV_TEST_DIR%\x' \
    'get = a key named as a verb' 'tev.log.level = loud' 'tev.env.add.1 = TEV_TEST_LIST|c' \
    'tev.env.del.1 = TEV_TEST_OLD' 'tev.env.new.1 = TEV_TEST_NEW|fresh' \
    >system/tev.system.properties
user=user/tev.user.properties
plain_user() { printf '# a comment\na.both = from user\n' >"$user"; }
plain_user

subject=''
failures=0
# tevsys ARGS...: runs it; what it gave is in the files out and err and in $code.
tevsys() {
    subject="tevsys $*"
    code=0
    "$root/scripts/wine.sh" "$tevsys" "$@" >out 2>err || code=$?
}
# holds WHAT COMMAND...: an expectation about the last run.
holds() {
    local what=$1
    shift
    "$@" >/dev/null && return
    printf 'FAILED: %s: %s (exit code %s)\n' "$subject" "$what" "$code"
    sed 's/^/    out: /' out
    sed 's/^/    err: /' err
    failures=$((failures + 1))
}
exits() { holds "exit code $1" [ "$code" = "$1" ]; }
prints() { holds "prints exactly $(printf '%q' "$1")" cmp out <(printf '%s' "$1"); }
prints_line() { holds "prints the line $(printf '%q' "$1")" env LC_ALL=C grep -qxF -- "$1" out; }
lacks() { ! grep -q -- "$1" out; }
prints_no_line() { holds "prints no line like $(printf '%q' "$1")" lacks "$1"; }
says() { holds "says on standard error: $1" grep -q -- "$1" err; }
says_one_line() { holds "says one line on standard error" [ "$(wc -l <err)" = 1 ]; }
says_nothing() { holds "says nothing on standard error" [ ! -s err ]; }
user_file_is() { holds "user file is $(printf '%q' "$1")" cmp "$user" <(printf '%s' "$1"); }

# end WHAT: tells what all this has shown.
end() {
    [ "$failures" = 0 ] || die "$failures expectations of tevsys failed"
    echo "$1"
}
