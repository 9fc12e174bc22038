#!/usr/bin/env bash
# format.sh [--fix]: is every C++ file laid out as .clang-format says?
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
cd "$root"
git rev-parse --git-dir >/dev/null 2>&1 || die "$root is no git checkout; the check asks git for the files"
mode=(--dry-run --Werror)
[ "${1:-}" = --fix ] && mode=(-i)
git ls-files -z --cached --others --exclude-standard '*.h' '*.cpp' |
    xargs -0 clang-format-14 "${mode[@]}" || die "run scripts/format.sh --fix"
