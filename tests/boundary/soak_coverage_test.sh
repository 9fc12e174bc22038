#!/usr/bin/env bash
# soak_coverage_test.sh EXPORTS LIST OBJECT...: the compiled soak calls every exported function,
# each overload of it, but for those that the list names. What the objects ask the linker for tells:
# neither a comment nor another overload of the name counts.
set -euo pipefail
export LC_ALL=C
exports=$1 list=$2
shift 2
objects=("$@")

# Without the namespaces in front, as in the list.
short() { sed 's/^TAMO::TEV::System::\(Util::\)\?//' | sort -u; }

# Data has no parentheses.
exported() { grep -F '(' "$exports" | short; }

called() {
    x86_64-w64-mingw32-nm --undefined-only "${objects[@]}" |
        sed -n 's/^ *U \(__imp_\)\?//p' | x86_64-w64-mingw32-c++filt | short
}

missing() { comm -23 <(exported) <(called); }

# Each entry is the beginning of the names that it stands for.
entries() { grep -v -e '^#' -e '^$' "$list"; }

isListed() {
    local name=$1 entry
    while IFS= read -r entry; do
        [[ $name != "$entry"* ]] || return 0
    done < <(entries)
    return 1
}

unlisted() {
    local name
    while IFS= read -r name; do isListed "$name" || echo "  $name"; done < <(missing)
}

# Those that stand for nothing which is not called.
stale() {
    local entry names
    names=$(missing)
    while IFS= read -r entry; do
        [[ $'\n'$names == *$'\n'"$entry"* ]] || echo "  $entry"
    done < <(entries)
}

complain() {
    printf 'soak: %s:\n%s\n' "$1" "$2" >&2
    failed=1
}

failed=0
[ "$(exported | wc -l)" -gt 250 ] || complain "too few functions in $exports" "$(exported)"
left=$(unlisted)
[ -z "$left" ] || complain "not called by the soak; add calls, or the names to $list" "$left"
idle=$(stale)
[ -z "$idle" ] || complain "in $list, but not exported, or called" "$idle"
exit $failed
