#!/usr/bin/env bash
# format.sh [--fix]: is every C++ file laid out as .clang-format says?
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
cd "$root"
mode=(--dry-run --Werror)
[ "${1:-}" = --fix ] && mode=(-i)
git ls-files -z --cached --others --exclude-standard '*.h' '*.cpp' |
    xargs -0 clang-format-14 "${mode[@]}" || die "run scripts/format.sh --fix"
