# Sourced: the unpacked ZIP and how the tests of the package run things. It stands elsewhere than the
# tree was built, in a folder with a blank.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
build=$1
unpacked="$build/package/moved here"
compiler=x86_64-w64-mingw32-g++-posix
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
log=$work/log

fail() {
    echo "package: $*" >&2
    exit 1
}

# run COMMAND...: quiet when all goes well.
run() {
    "$@" >"$log" 2>&1 && return
    cat "$log" >&2
    fail "failed: $*"
}

# run_program EXE [WORDS]: runs it with the package's DLLs; WORDS must be in what it prints.
run_program() {
    (cd "$(dirname "$1")" && run env WINEPATH="$tree/bin" "$root/scripts/wine.sh" "$1")
    [ $# -lt 2 ] || grep -q "$2" "$log" || { cat "$log" >&2; fail "$1 did not print: $2"; }
}

find_tree() {
    tree=$(echo "$unpacked"/TEVSystemLib-*-win64)
    [ -d "$tree" ] || fail "no unpacked ZIP in $unpacked; run the check package_zip first"
    toolchain=$tree/lib/cmake/TEVSystemLib/mingw-w64.cmake
}
