#!/usr/bin/env bash
# gtest.sh PROGRAM REPORT: runs a GoogleTest program, under Wine when it is a Windows one. Wine can
# exit with 0 after a crash, so the run has passed only when its report says so.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
program=$(realpath "$1") report=$(realpath -m "$2")
place=$report
mkdir -p "$(dirname "$report")"
rm -f "$report"
run=()
if [[ $program == *.exe ]]; then
    run=("$root/scripts/wine.sh")
    place=Z:$report
fi
cd "$(dirname "$program")"
code=0
"${run[@]}" "$program" --gtest_brief=1 --gtest_output="xml:$place" || code=$?
[ -s "$report" ] || die "$(basename "$program") left no report: it died (exit code $code)"
head -n 2 "$report" | grep -q '<testsuites tests="[1-9][0-9]*" failures="0" disabled="0" errors="0"' ||
    die "$(basename "$program") reports failures"
[ "$code" = 0 ] || die "$(basename "$program") exited with $code"
