#!/usr/bin/env bash
# exports_test.sh DLL LIST: the DLL exports exactly the reviewed names. After a wanted change, write
# the list anew with --accept and review its diff.
set -euo pipefail
accept=false
[ "$1" = --accept ] && accept=true && shift
dll=$1 list=$2

exported() {
    x86_64-w64-mingw32-objdump -p "$dll" |
        sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/p' |
        sed -n 's/^[[:space:]]*\[ *[0-9]*\] //p' |
        x86_64-w64-mingw32-c++filt | LC_ALL=C sort
}

if $accept; then
    exported >"$list"
    exit
fi
if ! diff "$list" <(exported); then
    echo "exports: the DLL's exports (>) differ from the reviewed list (<); review and run:" \
        "tests/exports/exports_test.sh --accept $dll $list" >&2
    exit 1
fi
