# Sourced: the verb fuzz.

fuzz_build=$root/build/fuzz
# At least; for a target with longer committed inputs twice the longest.
fuzz_max_input=128
# Seconds; a shorter run does not get into the table of numbers.
fuzz_kept_from=600

verb_fuzz() {
    [ $# -le 1 ] && [[ ${1:-60} =~ ^[1-9][0-9]*$ ]] || die "usage: ./tev fuzz [SECONDS]"
    need_packages "${packages_fuzz[@]}"
    build fuzz
    local targets=() target
    for target in "$root"/tests/fuzz/corpus/*/; do targets+=("$(basename "$target")"); done
    local jobs each
    jobs=$(nproc)
    each=$((${1:-60} * jobs / ${#targets[@]}))
    [ "$each" -gt 0 ] || each=1
    say "fuzzing ${#targets[@]} targets, $each s each, $jobs at a time"
    mkdir -p "$fuzz_build/findings" "$fuzz_build/logs"
    rm -f "$fuzz_build"/logs/*
    # A target that finds something fails; the report below tells.
    printf '%s\n' "${targets[@]}" | xargs -P "$jobs" -I {} bash -c 'fuzz_one "$@"' fuzz {} "$each" ||
        true
    if [ "${1:-60}" -lt "$fuzz_kept_from" ]; then
        fuzz_report "${targets[@]}"
    else
        fuzz_report "${targets[@]}" | keep_number fuzz "./tev fuzz $1"
    fi
}

# fuzz_length TARGET: the longest input to be made.
fuzz_length() {
    local longest
    longest=$(find "$root/tests/fuzz/corpus/$1" -type f -printf '%s\n' | sort -n | tail -n 1)
    echo $((2 * longest > fuzz_max_input ? 2 * longest : fuzz_max_input))
}
export -f fuzz_length

# fuzz_one TARGET SECONDS: what it finds worth keeping goes to build/, not into the tree.
fuzz_one() {
    local found=$fuzz_build/corpus/$1 length
    length=$(fuzz_length "$1")
    mkdir -p "$found"
    # A minute, since a busy machine may let a process wait for seconds.
    "$fuzz_build/bin/fuzz_$1" -max_total_time="$2" -max_len="$length" -timeout=60 \
        -report_slow_units=60 -print_final_stats=1 -artifact_prefix="$fuzz_build/findings/$1-" \
        "$found" "$root/tests/fuzz/corpus/$1" >"$fuzz_build/logs/$1" 2>&1 &&
        echo passed >>"$fuzz_build/logs/$1"
}
export -f fuzz_one
export root fuzz_build fuzz_max_input

# fuzz_report TARGET...: executions, and how to see again what was found.
fuzz_report() {
    local target log runs total=0 failed=0
    for target in "$@"; do
        log=$fuzz_build/logs/$target
        [ -e "$log" ] || echo "did not run" >"$log"
        runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
        total=$((total + ${runs:-0}))
        printf '%-22s %12d executions\n' "$target" "${runs:-0}"
        [ "$(tail -n 1 "$log")" = passed ] && [ "${runs:-0}" -gt 0 ] && continue
        failed=$((failed + 1))
        fuzz_finding "$target" "$log"
    done
    printf '%-22s %12d executions, %d targets failed\n' total "$total" "$failed"
    [ "$failed" -eq 0 ]
}

fuzz_finding() {
    local input
    input=$(sed -n 's/.*Test unit written to //p' "$2" | tail -n 1)
    if [ -z "$input" ]; then
        printf 'STOPPED %s before its end; see %s\n' "$1" "$2"
        return
    fi
    printf 'FOUND by %s; see %s\n' "$1" "$2"
    printf '  input:  %s\n  replay: %s\n' "$input" "$fuzz_build/bin/fuzz_$1 $input"
}
