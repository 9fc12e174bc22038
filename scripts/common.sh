# Sourced by the scripts: places, messages, one way to fail.
set -euo pipefail

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cache=${TEV_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tevsystemlib}
triplet=x86_64-w64-mingw32

say() { printf '== %s\n' "$*"; }

die() {
    printf 'tev: %s\n' "$*" >&2
    exit 1
}

# free_megabytes DIR: what the file system of DIR has left.
free_megabytes() { df --output=avail -BM "$1" | tail -n 1 | tr -dc '0-9'; }

# clang_options_for_windows: one a line; clang does not know where the cross compiler has its headers.
clang_options_for_windows() {
    echo "--target=$triplet"
    "$triplet-g++-posix" -E -x c++ -v - </dev/null 2>&1 |
        sed -n 's#^ \(/.*\(c++\|mingw32/include\).*\)$#-isystem\1#p'
}
