#!/usr/bin/env bash
# spelling.sh: no well-known misspelling in pages, comments, names and texts. Words that are spelt so
# on purpose stand in scripts/check/words.txt.
. "$(dirname "${BASH_SOURCE[0]}")/../common.sh"
cd "$root"
command -v codespell >/dev/null || die "no program codespell; install it"
git ls-files -z --cached --others --exclude-standard -- ':!*.svg' ':!scripts/check/words.txt' ':!tests/fuzz/corpus' |
    xargs -0 codespell --ignore-words scripts/check/words.txt ||
    die "correct the words, or list what is meant so in scripts/check/words.txt"
