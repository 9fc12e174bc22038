#!/usr/bin/env bash
# imports_test.sh DLL LIST WATCHED...: what the DLL takes from the system and from GDAL is either
# watched, so that the fault tests let it fail, or reviewed in the list with the reason why not.
set -euo pipefail
export LC_ALL=C
dll=$1 list=$2
shift 2

# Not what the C++ runtime gives: the fault tests bring their own.
imported() {
    x86_64-w64-mingw32-objdump -p "$dll" |
        awk '/DLL Name:/ {isOurs = $3 !~ /^lib(stdc|gcc|winpthread)/}
             isOurs && $1 ~ /^[0-9a-f]+$/ && $2 ~ /^[0-9]+$/ && NF == 3 {print $3}' | sort -u
}

listed() { grep -v -e '^#' -e '^$' "$list" | sort; }

complain() {
    echo "imports: $1:" $2 >&2
    failed=1
}

failed=0
unknown=$(comm -23 <(imported) <({ listed && printf '%s\n' "$@"; } | sort -u))
stale=$(comm -13 <(imported) <(listed))
twice=$(comm -12 <(listed) <(printf '%s\n' "$@" | sort))
[ "$(imported | wc -l)" -gt 50 ] || complain "too few imports in $dll" "$(imported)"
[ -z "$unknown" ] || complain 'neither in the list of tests/fault/CMakeLists.txt nor reviewed' "$unknown"
[ -z "$stale" ] || complain "reviewed in $list, but not imported" "$stale"
[ -z "$twice" ] || complain "reviewed in $list, but watched" "$twice"
exit $failed
