#!/usr/bin/env bash
# refusals_test.sh BUILD: compilers whose programs would corrupt memory without a word are refused
# with a sentence that says why; the others are not.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
find_tree
echo '#include <TEVSystemLib/system/XCode.h>' >"$work/host.cpp"

# A tree whose DLL was built otherwise, as far as its headers tell.
built_otherwise() {
    local into=$work/$1 sign
    shift
    mkdir -p "$into"
    cp -r "$tree/include" "$into"
    for sign in "$@"; do
        sed -i "s/$sign 0/$sign 1/" "$into/include/TEVSystemLib/TEVSystemBuild.h"
    done
}
built_otherwise msvc BUILT_BY_MSVC
built_otherwise msvc-debug BUILT_BY_MSVC BUILT_WITH_DEBUG_RUNTIME
built_otherwise ucrt BUILT_WITH_UCRT

# compiles TREE COMPILER OPTION...
compiles() {
    local include=$1/include
    shift
    "$@" -fsyntax-only -I"$include" "$work/host.cpp" >"$log" 2>&1
}

refused() {
    local words=$1
    shift
    ! compiles "$@" || fail "not refused: $*"
    grep -q "error: .*TEVSystemLib: $words" "$log" || {
        head -n 20 "$log" >&2
        fail "refused without the sentence '$words': $*"
    }
}

accepted() { compiles "$@" || { cat "$log" >&2; fail "not accepted: $*"; }; }

gxx=("$compiler")
mapfile -t clang < <(bash -c '. "$0/scripts/common.sh" && clang_options_for_windows' "$root")
mapfile -t c_only < <(printf '%s\n' "${clang[@]}" | grep -v '/c++')
libcxx=(clang++-14 -nostdinc++ -isystem /usr/lib/llvm-14/include/c++/v1 "${c_only[@]}")
clang=(clang++-14 "${clang[@]}")
# As Visual C++, as far as macros go; in place of its own headers stands what they define.
mkdir "$work/msvc-headers"
: >"$work/msvc-headers/cstdlib"
: >"$work/msvc-headers/string"
echo 'namespace std { using size_t = decltype(sizeof 0); }' >"$work/msvc-headers/cstddef"
msvc=(clang++-14 --target=x86_64-pc-windows-msvc -std=c++17 -nostdinc -isystem "$work/msvc-headers")

refused 'these headers need C++17' "$tree" "${gxx[@]}" -std=c++14
refused '_GLIBCXX_USE_CXX11_ABI=0 lays std::string out unlike' \
    "$tree" "${gxx[@]}" -std=c++17 -D_GLIBCXX_USE_CXX11_ABI=0
refused 'the DLL uses the C runtime msvcrt.dll' "$tree" "${gxx[@]}" -std=c++17 -D_UCRT
refused '_GLIBCXX_DEBUG lays vectors and maps out unlike' \
    "$tree" "${gxx[@]}" -std=c++17 -D_GLIBCXX_DEBUG
refused 'structures are packed' "$tree" "${gxx[@]}" -std=c++17 -fpack-struct
refused 'wchar_t has 16 bits' "$tree" "${clang[@]}" -std=c++17 -fno-short-wchar
refused 'the DLL uses libstdc++' "$tree" "${libcxx[@]}" -std=c++17
refused 'the DLL throws by SEH tables' "$tree" "${clang[@]}" -std=c++17 -fsjlj-exceptions
refused 'the DLL is a 64-bit one' "$tree" clang++-14 --target=i686-w64-mingw32 -std=c++17
refused 'the DLL is for 64-bit Windows' "$tree" g++ -std=c++17
refused 'the DLL was built by MinGW-w64' "$tree" \
    clang++-14 --target=x86_64-pc-windows-msvc -std=c++17
refused 'these headers need C++17' "$tree" clang++-14 --target=x86_64-pc-windows-msvc -std=c++14
refused 'the DLL was built by Visual C++' "$work/msvc" "${gxx[@]}" -std=c++17
refused 'the DLL uses the universal C runtime' "$work/ucrt" "${gxx[@]}" -std=c++17

refused 'this program has a C runtime of its own' "$work/msvc" "${msvc[@]}"
refused 'the DLL uses the release runtime' "$work/msvc" "${msvc[@]}" -D_DLL -D_DEBUG
refused 'the DLL uses the debug runtime' "$work/msvc-debug" "${msvc[@]}" -D_DLL
refused '_ITERATOR_DEBUG_LEVEL lays strings and maps out' \
    "$work/msvc" "${msvc[@]}" -D_DLL -D_ITERATOR_DEBUG_LEVEL=1
accepted "$work/msvc" "${msvc[@]}" -D_DLL -D_ITERATOR_DEBUG_LEVEL=0
accepted "$work/msvc-debug" "${msvc[@]}" -D_DLL -D_DEBUG -D_ITERATOR_DEBUG_LEVEL=2

accepted "$work/ucrt" "${gxx[@]}" -std=c++17 -D_UCRT
for options in -std=c++17 -std=gnu++20 -std=c++23 '-std=c++17 -D_GLIBCXX_ASSERTIONS -fno-rtti'; do
    # shellcheck disable=SC2086
    accepted "$tree" "${gxx[@]}" $options
done
accepted "$tree" "${clang[@]}" -std=c++17

# Nor does CMake, for this machine, find the package.
! cmake -G Ninja -S "$here/consumer" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$tree" >"$log" 2>&1 ||
    fail "the CMake package is found without a toolchain file"
tr -s ' \n' ' ' <"$log" >"$log.line"
grep -q "for 64-bit Windows; configure with --toolchain .*/mingw-w64.cmake" "$log.line" || {
    cat "$log" >&2
    fail "the CMake package is refused without the toolchain file that it needs"
}
