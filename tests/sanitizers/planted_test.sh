#!/usr/bin/env bash
# planted_test.sh PROGRAM FAULT [REPORT]: a planted fault is seen: the sanitizer names it, or, without
# a REPORT to look for, the program stops there.
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
run=()
[[ $1 == *.exe ]] && run=("$root/scripts/wine.sh")
"${run[@]}" "$1" none 2>&1 | grep -q survived || die "the program does not run without a fault"
# Into a file: what Wine starts for a program that dies would hold a pipe open.
output=$(mktemp)
trap 'rm -f "$output"' EXIT
"${run[@]}" "$1" "$2" >"$output" 2>&1 || true
if [ $# -gt 2 ]; then
    grep -q "$3" "$output" || die "the planted fault $2 is not reported as $3"
else
    ! grep -q survived "$output" || die "the planted fault $2 is not stopped"
fi
