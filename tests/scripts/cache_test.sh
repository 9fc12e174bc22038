#!/usr/bin/env bash
# What can go wrong while the cache is filled: one clear line, a non-zero exit, and nothing left that
# looks like a finished build. The tools that fail are stand-ins in front of the PATH.
set -uo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0

expect() {
    "${@:2}" && return
    echo "cache: not met: $1" >&2
    failures=$((failures + 1))
}

# fresh: an empty cache and an empty folder of stand-ins.
fresh() {
    rm -rf "$work"
    mkdir -p "$work/bin" "$work/cache"
}

# stand_in NAME SCRIPT
stand_in() {
    printf '#!/usr/bin/env bash\n%s\n' "$2" >"$work/bin/$1"
    chmod +x "$work/bin/$1"
}

# attempt FUNCTION ARGS...: runs it as a verb of ./tev would; sets code, and output to what it said.
attempt() {
    output=$(PATH="$work/bin:$PATH" TEV_CACHE=$work/cache bash -c '
        for part in common packages gdal wine-prefix; do . "$0/scripts/$part.sh"; done
        "$@"' "$root" "$@" 2>&1)
    code=$?
}

last_line_says() {
    tail -n 1 <<<"$output" | grep -q "^tev: .*$1" && [ "$(grep -c '^tev: ' <<<"$output")" -eq 1 ]
}
leaves_nothing() { ! compgen -G "$work/cache/gdal-*" && ! compgen -G "$work/cache/building-gdal.*"; }
fails() { [ "$code" -ne 0 ]; }

fresh
stand_in df 'printf "Avail\n 17M\n"'
attempt need_gdal
expect 'a full disk fails' fails
expect 'a full disk is named with the remedy' last_line_says 'MB to build.*has 17; free some or set TEV_CACHE'
expect 'a full disk leaves nothing' leaves_nothing

fresh
stand_in apt-get '[ "$1" = indextargets ] && { echo "deb-src x y z"; exit; }; exit 100'
attempt need_gdal
expect 'a broken download fails' fails
expect 'a broken download is named with the log' last_line_says 'sources.*could not be fetched; see .*gdal.log'
expect 'a broken download leaves nothing' leaves_nothing

fresh
stand_in apt-get 'case "$*" in
    indextargets*) echo "deb-src x y z" ;;
    *source*) mkdir -p sqlite3-1 && printf "#!/bin/sh\nexit 1\n" >sqlite3-1/configure &&
        chmod +x sqlite3-1/configure ;;
esac'
attempt need_gdal
expect 'a failed build fails' fails
expect 'a failed build is named with the log' last_line_says 'SQLite did not build; see .*gdal.log'
expect 'a failed build leaves nothing' leaves_nothing

# An interrupted build left its remains: the next run clears them before it starts.
mkdir -p "$work/cache/building-gdal.old"
attempt need_gdal
expect 'remains of an interrupted build are cleared' leaves_nothing

# The same folder once more, with tools that work: the second run repairs.
stand_in apt-get 'case "$*" in
    indextargets*) echo "deb-src x y z" ;;
    *source*)
        for name in gdal proj sqlite3; do
            mkdir -p $name-1/debian && echo text >$name-1/debian/copyright
        done
        printf "#!/bin/sh\ntouch sqlite3.h sqlite3ext.h sqlite3.c\n" >sqlite3-1/configure
        chmod +x sqlite3-1/configure ;;
esac'
for tool in make cmake x86_64-w64-mingw32-gcc-posix x86_64-w64-mingw32-ar; do
    stand_in $tool 'exit 0'
done
attempt need_gdal
expect 'a second run repairs' [ "$code" -eq 0 ]
expect 'a repaired build is in place' compgen -G "$work/cache/gdal-*/share/licenses/gdal"
expect 'a repaired build leaves no remains' bash -c "! compgen -G '$work/cache/building-gdal.*'"

fresh
stand_in dpkg-query 'exit 1'
stand_in apt-get 'exit 100'
attempt need_packages no-such-package
expect 'a missing package fails' fails
expect 'a missing package is named' last_line_says '\(apt-get update failed\|missing packages: no-such-package\)'

fresh
stand_in dpkg-query 'exit 1'
stand_in apt-get '[ "$1" = update ] || exit 100'
stand_in sudo '"$@"'
attempt need_packages no-such-package
expect 'a package that cannot be installed is named' last_line_says 'could not install no-such-package'

fresh
echo in-the-way >"$work/file"
output=$(TEV_CACHE=$work/file/cache bash -c '
    for part in common packages gdal wine-prefix; do . "$0/scripts/$part.sh"; done
    need_wine' "$root" 2>&1)
code=$?
expect 'a cache that cannot be made fails' fails
expect 'a cache that cannot be made is named' last_line_says 'cannot create the cache folder'

[ "$failures" -eq 0 ] || exit 1
echo 'cache: all expectations met'
