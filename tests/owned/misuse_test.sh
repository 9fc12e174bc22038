#!/usr/bin/env bash
# misuse_test.sh COMPILER: what misuse.txt tells of TEVOwned.h holds.
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
compiler=$1
cases=$root/tests/owned/misuse.txt
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
# The compiler's plain words, with ASCII quotes.
export LC_ALL=C

cat >prelude.h <<'TEXT'
#include <TEVSystemLib/TEVOwned.h>
#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/string/TEVStringOps.h>
using namespace TAMO::TEV::System;
using namespace TAMO::TEV::System::Util;
using namespace TAMO::TEV::System::Host;
TEXT
compile=("$compiler" -std=c++17 -Wall -Wextra -Werror -Wno-unused -I "$root")
"${compile[@]}" -x c++-header prelude.h -o prelude.h.gch || die "TEVOwned.h does not compile"

# compiles LINE: within a function that has one of everything; says why not in the file why.
compiles() {
    cat >snippet.cpp <<TEXT
void Snippet(OwnedText& text, OwnedWideText& wide, OwnedBstr& bstr, OwnedModule& module,
             OwnedModule& otherModule, OwnedTextArray& texts, OwnedBytes& bytes,
             OwnedBuffer& buffer, std::string& error, std::size_t& count, tagVARIANT& variant,
             const std::vector<double>& doubles, const std::vector<int>& ints,
             const std::map<std::string, std::string>& table) {
    $1
}
TEXT
    "${compile[@]}" -fsyntax-only -include prelude.h snippet.cpp 2>why
}

failed=0 checked=0
fail() {
    printf 'FAILED: %s: %s\n' "$1" "$2" >&2
    sed 's/^/    /' why >&2
    failed=$((failed + 1))
}

# check CASE WRONG ERROR RIGHT
check() {
    [ $# = 4 ] && [ -n "$1" ] && [ -n "$2" ] && [ -n "$3" ] && [ -n "$4" ] ||
        die "misuse.txt: a case is not complete: ${1:-}"
    checked=$((checked + 1))
    if compiles "$2"; then
        fail "$1" "the wrong line compiles: $2"
    elif ! grep -qE "error: .*($3)" why; then
        fail "$1" "refused without the words: $3"
    fi
    compiles "$4" || fail "$1" "the right line does not compile: $4"
}

name='' wrong='' words=''
while IFS= read -r line; do
    case $line in
        case:*) name=${line#*: } wrong='' words='' ;;
        wrong:*) wrong=${line#*: } ;;
        error:*) words=${line#*: } ;;
        right:*) check "$name" "$wrong" "$words" "${line#*: }" ;;
        '' | '#'*) ;;
        *) die "misuse.txt: not understood: $line" ;;
    esac
done <"$cases"
[ "$checked" -gt 0 ] && [ "$checked" = "$(grep -c '^case:' "$cases")" ] ||
    die "misuse.txt: a case has no right line"
[ "$failed" = 0 ] || die "misuse: $failed expectations of $checked cases not met"
say "misuse: $checked cases"
