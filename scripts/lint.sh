#!/usr/bin/env bash
# lint.sh BUILD: clang-tidy over the library's sources that BUILD compiles. A source whose text and
# whose includes have not changed since it passed is not read again.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
build=$1
cd "$root"
passed=$cache/lint
mkdir -p "$passed"

# All that can change a verdict, short of the compilers themselves.
basis=$(git ls-files -z --cached --others --exclude-standard 'TEVSystemLib/*.h' 'tools/*.h' .clang-tidy |
    xargs -0 cat | cat - scripts/lint.sh | sha256sum | cut -c1-32)

# For Windows clang needs to be told where the cross compiler has its headers.
options=()
if grep -q -- "$triplet" "$build/compile_commands.json"; then
    mapfile -t options < <(clang_options_for_windows | sed 's/^/--extra-arg=/')
fi

lint() {
    local source=$1 key
    shift
    key=$(printf '%s %s ' "$basis" "$*" | cat - "$source" | sha256sum | cut -c1-32)
    [ -e "$passed/$key" ] && return
    clang-tidy-14 -p "$build" --quiet "$@" "$source" 2>/dev/null || return 1
    : >"$passed/$key"
}
export -f lint
export build passed basis
sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$build/compile_commands.json" |
    grep -E "^$root/(TEVSystemLib|tools)/" | sort -u |
    xargs -P "$(nproc)" -I {} bash -c 'lint "$@"' lint {} "${options[@]}" ||
    die "clang-tidy found something; mend it, or except it on its line with the reason"
