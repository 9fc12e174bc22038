#!/usr/bin/env bash
# lint.sh BUILD: clang-tidy over the library's sources that BUILD compiles. A source whose text and
# whose includes have not changed since it passed is not read again.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
build=$1
cd "$root"
passed=$cache/lint
mkdir -p "$passed"

# What can change every verdict, short of the compilers themselves.
basis=$(cat .clang-tidy scripts/lint.sh | sha256sum | cut -c1-32)

# SOURCE<TAB>FILE: the project's own files that a source was compiled from.
includes=$build/lint-includes.txt
ninja -C "$build" -t deps 2>/dev/null |
    awk '/^[^ ]/ { source = "" }
        /^    / { sub("^    ", ""); sub("^(\\.\\./)+", root "/"); if (source == "") source = $0
            if (index($0, root "/") == 1) print source "\t" $0 }' root="$root" >"$includes"

# For Windows clang needs to be told where the cross compiler has its headers.
options=()
if grep -q -- "$triplet" "$build/compile_commands.json"; then
    mapfile -t options < <(clang_options_for_windows | sed 's/^/--extra-arg=/')
fi

lint() {
    local source=$1 key
    shift
    local read_too
    mapfile -t read_too < <(awk -F '\t' '$1 == source { print $2 }' source="$source" "$includes")
    [ ${#read_too[@]} -gt 0 ] || {
        echo "$source was not compiled; build first" >&2
        return 1
    }
    key=$(printf '%s %s ' "$basis" "$*" | cat - "${read_too[@]}" | sha256sum | cut -c1-32)
    [ -e "$passed/$key" ] && return
    clang-tidy-14 -p "$build" --quiet "$@" "$source" 2>/dev/null || return 1
    : >"$passed/$key"
}
export -f lint
export build passed basis includes
sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$build/compile_commands.json" |
    grep -E "^$root/(TEVSystemLib|tools)/" | sort -u |
    xargs -P "$(nproc)" -I {} bash -c 'lint "$@"' lint {} "${options[@]}" ||
    die "clang-tidy found something; mend it, or except it on its line with the reason"
