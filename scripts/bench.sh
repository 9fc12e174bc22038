# Sourced: the verb bench.

bench_build=$root/build/mingw-bench
bench_results=$root/build/bench
bench_dll=$bench_build/bin/TEVSystemLib.dll
# The one that sees the packages of Debian.
bench_python=/usr/bin/python3

bench_jobs() { (cd "$root/bench" && ls ./*_bench.cpp | sed 's#^\./##; s#_bench\.cpp$##'); }

# Random interleaving spreads the machine's changes of speed over all rows of a job.
bench_full=(--benchmark_repetitions=20)
bench_quick=(--benchmark_repetitions=5 --quick)

need_bench() {
    need_packages "${packages_bench[@]}"
    need_all
    export CCACHE_DIR=$cache/ccache
    need_bench_libraries
    TEV_BENCH_PREFIX=$(bench_libraries_prefix)
    export TEV_BENCH_PREFIX
}

# measure JOB OPTION...: the result is put into place only when the program has ended well, the hash
# of the DLL beside it. Instructions that were counted of an older build go.
measure() {
    local job=$1 file=$bench_results/$1.json hash
    shift
    mkdir -p "$bench_results"
    rm -f "$file" "$bench_results/$job.sha256" "$bench_results/instructions/$job.json"
    hash=$(sha256sum "$bench_dll")
    say "measuring $job"
    WINEPATH=$bench_build/bin "$root/scripts/wine.sh" "$bench_build/bin/bench_$job.exe" \
        --benchmark_enable_random_interleaving=true --benchmark_out_format=json \
        --benchmark_out="Z:$file.part" "$@" >"$bench_results/$job.log" 2>&1 ||
        die "bench_$job failed; see $bench_results/$job.log"
    mv "$file.part" "$file" || die "bench_$job left no result; see $bench_results/$job.log"
    printf '%s\n' "${hash%% *}" >"$bench_results/$job.sha256"
}

# check_bench: what each row comes to, without measuring; the huge sizes are left out.
check_bench() {
    need_bench
    build mingw-bench
    say "checking what the rows of the benchmarks come to"
    (cd "$root" && ctest --preset mingw-bench) || die "a benchmark does not do its work"
}

# document: docs/performance.md from the last results of all jobs.
document() {
    [ -f "$bench_dll" ] || die "nothing has been measured yet; run ./tev bench"
    need_packages "${packages_bench[@]}"
    "$bench_python" "$root/bench/document.py" "$bench_results" "$bench_dll" \
        "$bench_build/bin/bench_empty.dll" "$triplet-objdump"
}

# count_instructions JOB...: of the rows that missed their goal when they were measured last.
count_instructions() {
    need_packages "${packages_bench[@]}"
    need_wine
    say "counting instructions, a quarter of a minute a row"
    WINEPREFIX=${WINEPREFIX:-$cache/wine} WINEDEBUG=-all WINEPATH=$bench_build/bin \
        "$bench_python" "$root/bench/instructions.py" "$bench_results" "$bench_build/bin" "$@"
}

verb_bench() {
    local jobs=() files=() options=("${bench_full[@]}") whole=yes only='' job
    while [ $# -gt 0 ]; do
        case $1 in
            --quick) options=("${bench_quick[@]}") whole='' ;;
            --document) only=document ;;
            --instructions) only=instructions ;;
            --filter=*) options+=("$1") whole='' ;;
            -*) die "unknown option: $1; see ./tev help" ;;
            *)
                [ -f "$root/bench/$1_bench.cpp" ] ||
                    die "no such job: $1; there are: $(bench_jobs | tr '\n' ' ')"
                jobs+=("$1") whole=''
                ;;
        esac
        shift
    done
    [ ${#jobs[@]} -gt 0 ] || mapfile -t jobs < <(bench_jobs)
    if [ "$only" = instructions ]; then
        count_instructions "${jobs[@]}"
        document
    elif [ -z "$only" ]; then
        need_bench
        build mingw-bench "${jobs[@]/#/bench_}"
        for job in "${jobs[@]}"; do measure "$job" "${options[@]}"; done
        for job in "${jobs[@]}"; do files+=("$bench_results/$job.json"); done
        "$bench_python" "$root/bench/show.py" "${files[@]}"
    fi
    if [ "$only" = document ] || { [ -z "$only" ] && [ -n "$whole" ]; }; then document; fi
}
