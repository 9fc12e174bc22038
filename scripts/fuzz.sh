# Sourced: the verb fuzz.

fuzz_build=$root/build/fuzz
fuzz_max_input=128

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
    fuzz_report "${targets[@]}"
}

# fuzz_one TARGET SECONDS: what it finds worth keeping goes to build/, not into the tree.
fuzz_one() {
    local found=$fuzz_build/corpus/$1
    mkdir -p "$found"
    "$fuzz_build/bin/fuzz_$1" -max_total_time="$2" -max_len="$fuzz_max_input" -timeout=10 \
        -print_final_stats=1 -artifact_prefix="$fuzz_build/findings/$1-" \
        "$found" "$root/tests/fuzz/corpus/$1" >"$fuzz_build/logs/$1" 2>&1 &&
        echo passed >>"$fuzz_build/logs/$1"
}
export -f fuzz_one
export root fuzz_build fuzz_max_input

# fuzz_report TARGET...: executions, and how to see again what was found.
fuzz_report() {
    local target log runs total=0 failed=0 input
    for target in "$@"; do
        log=$fuzz_build/logs/$target
        runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log" 2>/dev/null)
        total=$((total + ${runs:-0}))
        printf '%-22s %12d executions\n' "$target" "${runs:-0}"
        [ "$(tail -n 1 "$log" 2>/dev/null)" = passed ] && [ "${runs:-0}" -gt 0 ] && continue
        failed=$((failed + 1))
        input=$(sed -n 's/.*Test unit written to //p' "$log" | tail -n 1)
        printf 'FOUND by %s; see %s\n' "$target" "$log"
        [ -z "$input" ] || printf '  input:  %s\n  replay: %s\n' "$input" \
            "$fuzz_build/bin/fuzz_$target $input"
    done
    printf '%-22s %12d executions, %d targets found something\n' total "$total" "$failed"
    [ "$failed" -eq 0 ]
}
