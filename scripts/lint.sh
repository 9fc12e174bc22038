#!/usr/bin/env bash
# lint.sh BUILD: clang-tidy over the library's sources that BUILD compiles. A source whose text and
# whose includes have not changed since it passed is not read again.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
build=$1
cd "$root"
passed=$cache/lint
mkdir -p "$passed"

# All that can change a verdict, short of the compilers themselves.
basis=$(git ls-files -z --cached --others --exclude-standard 'TEVSystemLib/*.h' .clang-tidy |
    xargs -0 cat | cat - scripts/lint.sh | sha256sum)

target=()
grep -q -- "$triplet" "$build/compile_commands.json" && target=(--extra-arg=--target=$triplet)

lint() {
    local source=$1 key
    key=$(printf '%s %s ' "$basis" "${target[*]-}" | cat - "$source" | sha256sum | cut -c1-32)
    [ -e "$passed/$key" ] && return
    clang-tidy-14 -p "$build" --quiet "${target[@]}" "$source" 2>/dev/null || return 1
    : >"$passed/$key"
}
export -f lint
export build passed basis
sed -n 's/^ *"file": "\(.*\)",\{0,1\}$/\1/p' "$build/compile_commands.json" |
    grep "^$root/\(TEVSystemLib\|tools\)/" | sort -u |
    if [ ${#target[@]} -eq 0 ]; then cat; else grep -v /nothing/; fi |
    xargs -P "$(nproc)" -I {} bash -c "target=(${target[*]-}); lint {}" ||
    die "clang-tidy found something; mend it, or except it on its line with the reason"
