#!/usr/bin/env bash
# sizes.sh: no file is longer than its kind may be, but for those that scripts/check/sizes.txt lists
# with a limit of their own and the reason.
. "$(dirname "${BASH_SOURCE[0]}")/../common.sh"
cd "$root"
exceptions=scripts/check/sizes.txt

declare -A own=()
while read -r file limit reason; do
    case $file in '' | \#*) continue ;; esac
    [ -f "$file" ] && [ -n "$limit" ] && [ -n "$reason" ] ||
        die "$exceptions: no such file, or no reason: $file"
    own[$file]=$limit
done <"$exceptions"

# limit_of FILE: lines; nothing for what has no limit.
limit_of() {
    if [ -n "${own[$1]:-}" ]; then
        echo "${own[$1]}"
        return
    fi
    case $1 in
        tests/*.cpp | tests/*.h | tests/*.sh) echo 400 ;;
        *.cpp | *.h) echo 250 ;;
        tev | *.sh | *.py | *.cmake | *CMakeLists.txt) echo 200 ;;
        tests/tools/screens/*.md) ;;  # what the program prints
        README.md | CONTRIBUTING.md) echo 150 ;;
        *.md) echo 300 ;;
    esac
}

found=0
while IFS= read -r -d '' file; do
    [ -f "$file" ] || continue
    limit=$(limit_of "$file")
    lines=$(wc -l <"$file")
    if [ -n "$limit" ] && [ "$lines" -gt "$limit" ]; then
        echo "$file has $lines lines, $limit are the most" >&2
        found=1
    fi
done < <(git ls-files -z --cached --others --exclude-standard)
[ "$found" -eq 0 ] || die "divide the file by subject, or list it in $exceptions with the reason"
