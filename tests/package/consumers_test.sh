#!/usr/bin/env bash
# consumers_test.sh BUILD: programs that know nothing but the unpacked ZIP.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
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

cmake_program "$here/consumer" consumer.exe 'all expectations met'

# The host of the README, as it stands there.
mkdir "$work/readme"
block() { sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" "$root/README.md" | sed '1d;$d'; }
block cpp >"$work/readme/host.cpp"
block cmake >"$work/readme/CMakeLists.txt"
cmake_program "$work/readme" host.exe 'silent, else at'

# The command line of the ZIP's README, word for word but for the compiler's full name.
command=$(sed -n 's/^g++: *g++ //p' "$tree/README.txt")
[ -n "$command" ] || fail "README.txt tells no command line"
read -ra words <<<"$command"
(cd "$work/readme" && run "$compiler" "${words[@]//THIS_FOLDER/$tree}")
run_program "$work/readme/host.exe" 'silent, else at'

# The DLLs lie beside it.
run "$root/scripts/wine.sh" "$tree/bin/tevsys.exe" where
grep -q '^exe.*this program' "$log" || fail "tevsys does not tell where it is"

"$root/tests/examples/examples_test.sh" "$tree"
