#!/usr/bin/env bash
# headings.sh [--write]: what comments.py takes for headings of the reference is what headings.txt
# lists, so that no comment of a function becomes one unseen; or list them anew.
. "$(dirname "${BASH_SOURCE[0]}")/../common.sh"
cd "$root"
listed=scripts/docs/headings.txt

headings() {
    local header
    while IFS= read -r header; do
        scripts/docs/comments.py "$header" | sed -n "s#.*@name #${header#TEVSystemLib/}: #p"
    done < <(git ls-files 'TEVSystemLib/*.h' | grep -v /detail/)
}

case ${1:-} in
    --write) headings >"$listed" ;;
    '') diff "$listed" <(headings) >&2 ||
        die "the headings of the reference are not those of $listed; where a new one is only the \
start of a comment, reword it, else run scripts/docs/headings.sh --write" ;;
    *) die "usage: scripts/docs/headings.sh [--write]" ;;
esac
