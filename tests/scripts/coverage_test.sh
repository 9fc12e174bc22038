#!/usr/bin/env bash
# coverage_test.sh: what coverage-gaps.py tells of traces and lists made by hand.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cat >"$work/a.cpp" <<'CPP'
void F(bool isOn) {
    if (isOn) Do();
    Other();
}
CPP
cat >"$work/listed.txt" <<'LIST'
# Reviewed.
It is never off.
a.cpp void F branch 1
    if (isOn) Do();
LIST

fail() {
    cat "$work/log" >&2
    echo "coverage: $*" >&2
    exit 1
}

# trace NAME LINE COUNT [COUNT...]: how often a compiler saw a line of a.cpp run, and its branches.
trace() {
    local branches='' count
    for count in "${@:4}"; do branches+="${branches:+, }{\"count\": $count}"; done
    printf '{"files": [{"file": "a.cpp", "lines": [{"line_number": %s, "count": %s, "branches": [%s]}]}]}' \
        "$2" "$3" "$branches" >"$work/$1.json"
}

# tells CODE WORDS TRACE...: the exit code, and a line of the output.
tells() {
    local code=0
    "$root/scripts/coverage-gaps.py" "$work" "$work/listed.txt" "${@:3}" >"$work/log" 2>&1 || code=$?
    [ "$code" = "$1" ] || fail "exit code $code, not $1, for ${*:3}"
    grep -qxF -- "$2" "$work/log" || fail "without the line: $2"
}

cd "$work"
trace half 2 5 5 0
trace whole 2 5 4 1
trace none 2 5
trace narrow 2 5 5
trace other 3 7
trace unrun 3 0
stale='listed, but run or no longer there with this count:'
unlisted='not run and not listed with this count:'

tells 0 'lines: 1 of 1, branches: 1 of 2, 1 listed as unreachable, 0 not listed' half.json
tells 1 "$unlisted" half.json unrun.json
tells 1 'a.cpp void F line 1' half.json unrun.json
tells 0 'lines: 2 of 2, branches: 1 of 2, 1 listed as unreachable, 0 not listed' \
    half.json unrun.json other.json
tells 1 "$stale" whole.json
tells 1 "$stale" other.json
# Of those that know as many branches the better one counts; one that knows fewer hides nothing.
tells 1 "$stale" half.json whole.json
for trace in none narrow; do
    tells 0 'lines: 1 of 1, branches: 1 of 2, 1 listed as unreachable, 0 not listed' \
        half.json "$trace.json"
    tells 0 'lines: 1 of 1, branches: 1 of 2, 1 listed as unreachable, 0 not listed' \
        "$trace.json" half.json
done
echo "a.cpp void F branch 1" >"$work/listed.txt"
tells 1 'a reason and the entries below it, two lines each, are expected: a.cpp void F branch 1' \
    half.json
echo "coverage: all expectations met"
