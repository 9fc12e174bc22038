#!/usr/bin/env bash
# consumers_test.sh BUILD TOOLCHAIN: programs that know nothing but the unpacked ZIP.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
toolchain=$2
find_tree
unset TEV_GDAL_PREFIX

# cmake_program SOURCE EXE WORDS
cmake_program() {
    local into=$work/${2%.exe}
    run cmake -G Ninja -S "$1" -B "$into" -DCMAKE_TOOLCHAIN_FILE="$toolchain" \
        -DCMAKE_PREFIX_PATH="$tree"
    run cmake --build "$into"
    run_program "$into/$2" "$3"
}

# command_line_program EXE SOURCE...: the command of the package's README.
command_line_program() {
    local program=$1
    shift
    run "$compiler" -std=c++17 -Wall -Wextra -Wpedantic -Werror "$@" -I"$tree/include" -L"$tree/lib" \
        -lTEVSystemLib -lole32 -loleaut32 -luuid -lversion -o "$program"
}

cmake_program "$here/consumer" consumer.exe 'all expectations met'

command_line_program "$work/plain.exe" "$here/consumer/main.cpp" "$here/consumer/Version.cpp"
run_program "$work/plain.exe" 'all expectations met'

# The host of the README, as it stands there.
mkdir "$work/readme"
block() { sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" "$root/README.md" | sed '1d;$d'; }
block cpp >"$work/readme/host.cpp"
block cmake >"$work/readme/CMakeLists.txt"
cmake_program "$work/readme" host.exe 'silent, else at'

"$root/tests/examples/examples_test.sh" "$tree" "$toolchain"
