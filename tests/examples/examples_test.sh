#!/usr/bin/env bash
# examples_test.sh TREE: builds the examples of an installed tree from that tree alone and runs each
# program: it must print what its file in expected/ says.
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
tree=$(realpath "$1")
examples=$tree/examples
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

run() {
    "$@" >"$work/log" 2>&1 && return
    cat "$work/log" >&2
    die "examples: failed: $*"
}

run env -u TEV_GDAL_PREFIX cmake -G Ninja -S "$examples" -B "$work/build" \
    -DCMAKE_TOOLCHAIN_FILE="$tree/lib/cmake/TEVSystemLib/mingw-w64.cmake" \
    -DCMAKE_PREFIX_PATH="$tree" \
    -DCMAKE_CROSSCOMPILING_EMULATOR="$root/scripts/wine.sh" \
    -DCMAKE_CXX_FLAGS='-Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror'
run cmake --build "$work/build" -j2
run ctest -j2 --test-dir "$work/build" --output-on-failure --no-tests=error

# None is forgotten, and each is short enough to be read at one go.
longest=59
for program in "$examples"/*.cpp; do
    name=$(basename "$program" .cpp)
    grep -q "Passed" <(grep " $name \.\." "$work/log") || die "examples: $name was not run"
    [ "$(wc -l <"$program")" -le $longest ] || die "examples: $name.cpp is longer than $longest lines"
done
say "examples: $(grep -c Passed "$work/log") programs print what is expected"
