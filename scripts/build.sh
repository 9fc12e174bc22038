# Sourced: the verbs of ./tev.

product=$root/build/mingw-release

no_arguments() { [ "$1" -eq 0 ] || die "this verb takes no arguments; see ./tev help"; }

need_all() {
    need_packages "${packages_build[@]}"
    need_gdal
    need_wine
    TEV_GDAL_PREFIX=$(gdal_prefix)
    export TEV_GDAL_PREFIX
}

# build PRESET [TARGET...]: quiet when all goes well.
build() {
    local preset=$1 log=$root/build/$1.log target=()
    shift
    [ $# -eq 0 ] || target=(--target "$@")
    mkdir -p "$root/build"
    export CCACHE_DIR=$cache/ccache CCACHE_BASEDIR=$root CCACHE_NOHASHDIR=1 CCACHE_DEPEND=1
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CMAKE_C_COMPILER_LAUNCHER=ccache
    say "building ($preset)"
    (cd "$root" && cmake --preset "$preset" && cmake --build --preset "$preset" "${target[@]}") \
        >"$log" 2>&1 || {
        grep -E 'error|Error|FAILED|undefined' "$log" | head -n 20 >&2 || true
        die "the build failed; see $log"
    }
}

verb_demo() {
    no_arguments $#
    need_all
    build mingw-release tevsys
    "$root/scripts/demo.sh"
}

verb_install() {
    [ $# -eq 1 ] || die "usage: ./tev install DIR"
    need_all
    build mingw-release TEVSystemLib tevsys
    cmake --install "$product" --prefix "$(realpath -m "$1")" >"$root/build/install.log" 2>&1 ||
        die "could not install into $1; see $root/build/install.log"
    say "installed into $1"
}

verb_run() {
    [ $# -ge 1 ] || die "usage: ./tev run PROGRAM ARGS..."
    local program=$1
    shift
    need_all
    [ -e "$program" ] || program=$product/bin/${program%.exe}.exe
    [ -e "$program" ] || die "no such program: $program; build it with ./tev test or ./tev demo"
    WINEPATH="$product/bin" exec "$root/scripts/wine.sh" "$program" "$@"
}

verb_mutate() {
    local count=${1:-400}
    [ $# -le 1 ] && [[ $count =~ ^[1-9][0-9]*$ ]] || die "usage: ./tev mutate [COUNT]"
    need_packages "${packages_mutate[@]}"
    build mutation test_pure
    say "testing the tests: up to $count mutants of the platform-free code"
    local try=(python3 "$root/scripts/mutate.py" "$root/build/mutation" "$count")
    # Fewer do not get into the table of numbers.
    if [ "$count" -lt 300 ]; then
        "${try[@]}"
    else
        "${try[@]}" | keep_number mutate "./tev mutate $count"
    fi
}

verb_test() {
    [ $# -eq 0 ] || [ "$*" = --all ] || die "usage: ./tev test [--all]"
    if [ $# -eq 0 ]; then test_quickly; else test_all; fi
}

test_quickly() {
    need_packages "${packages_check[@]}" "${packages_package[@]}" "${packages_compilers[@]}" \
        "${packages_docs[@]}"
    need_all
    grep -qw avx2 /proc/cpuinfo || say "this processor has no AVX2: nothing runs that level"
    clear_number inside './tev test'
    test_presets "the product under Wine, the platform-free code natively" '-LE slow' \
        mingw-release host | keep_number test './tev test'
    count_inside | keep_number inside './tev test'
}

# What the reports tell besides passed tests.
count_inside() {
    local faults=$product/reports/fault_tests.xml rounds
    mapfile -t rounds < <(sed -n 's/.*name="Rounds" value="\([0-9]*\)".*/\1/p' \
        "$product/reports/test_boundary.xml")
    printf '%s allocations refused, %s rows let all of theirs fail; ' \
        "$(sed -n '2s/.* RefusedAllocations="\([0-9]*\)".*/\1/p' "$faults")" \
        "$(sed -n '2s/.* AllocationRows="\([0-9]*\)".*/\1/p' "$faults")"
    printf 'rounds on 16 threads: %s of all calls, %s of look-ups\n' "${rounds[@]}"
}

# Everything. A step that fails ends no other; the numbers are written in any case.
test_all() {
    local failed_steps=()
    step test test_quickly
    step effort test_fifty_fold
    step levels test_levels
    step bench test_benchmarks
    step sanitize verb_sanitize
    step coverage verb_coverage
    step seeded verb_seeded
    step fuzz verb_fuzz 600
    step mutate verb_mutate
    write_numbers
    [ ${#failed_steps[@]} -eq 0 ] || die "of ./tev test --all these failed: ${failed_steps[*]}; see above"
}

# step NAME COMMAND...: adds to failed_steps. Behind "if" or "||" bash would not stop the command where
# something in it fails.
step() {
    local name=$1 code
    shift
    clear_number "$name" './tev test --all'
    set +e
    (set -e && "$@")
    code=$?
    set -e
    [ "$code" -eq 0 ] || failed_steps+=("$name")
}

# The random comparisons fifty times as long, and the checks that take long. The fault tests repeat
# comparisons that others make.
test_fifty_fold() {
    export TEV_TEST_EFFORT=all TEV_SOAK_SECONDS=30
    test_product effort "the product, random comparisons fifty-fold" \
        '-L gtest|slow -E fault_tests' mingw-release
}

test_levels() {
    test_product levels "the product as on older processors" '-L gtest' mingw-portable mingw-ssse3
}

# test_product NUMBER WHAT CTEST_CHOICE PRESET...
test_product() {
    local number=$1
    shift
    need_packages "${packages_check[@]}" "${packages_package[@]}" "${packages_compilers[@]}"
    need_all
    test_presets "$@" | keep_number "$number" './tev test --all'
}

test_benchmarks() {
    { check_bench; echo 'what every row comes to is right'; } |
        keep_number bench './tev test --all'
}

# test_presets WHAT CTEST_CHOICE PRESET...: builds and tests.
test_presets() {
    local what=$1 preset failed=0 passed=0 choice begun=$SECONDS
    read -ra choice <<<"$2"
    shift 2
    for preset in "$@"; do build "$preset"; done
    for preset in "$@"; do run_tests "$preset" "${choice[@]}"; done
    say "tests: $what"
    printf '%d passed, %d failed, %d s\n' "$passed" "$failed" $((SECONDS - begun))
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
}

# run_tests PRESET [CTEST_CHOICE...]: adds to passed and failed, in tests of a GoogleTest program and
# in whole checks. Programs run side by side, as many as test_jobs says; checks run alone.
run_tests() {
    local preset=$1 dir=$root/build/$1 report lost
    shift
    rm -rf "$dir/reports" "$dir/Testing"
    say "testing ($preset)"
    local broke=0 before=$failed
    (cd "$root" && ctest --preset "$preset" -j "${test_jobs:-$(nproc)}" "$@") || broke=1
    local results=$dir/Testing/Temporary/LastTestsFailed.log checks=0 broken=0
    checks=$(cd "$dir" && ctest -N -L check "$@" | sed -n 's/^Total Tests: //p')
    local programs
    programs=$(cd "$dir" && ctest -N -L gtest "$@" | sed -n 's/^Total Tests: //p')
    if [ -e "$results" ]; then
        broken=$(cd "$dir" && ctest -N -L check "$@" | sed -n 's/.*Test *#[0-9]*: //p' |
            grep -cxFf <(sed 's/^[0-9]*://' "$results") || true)
    fi
    passed=$((passed + checks - broken))
    failed=$((failed + broken))
    lost=$programs
    for report in "$dir"/reports/*.xml; do
        [ -e "$report" ] || continue
        local tests failures
        tests=$(sed -n '2s/.* tests="\([0-9]*\)".*/\1/p' "$report")
        failures=$(sed -n '2s/.* failures="\([0-9]*\)".*/\1/p' "$report")
        [ -n "$tests" ] && [ -n "$failures" ] || continue
        passed=$((passed + tests - failures))
        failed=$((failed + failures))
        lost=$((lost - 1))
    done
    failed=$((failed + lost))
    # A program can report success and die afterwards: ctest saw that.
    [ "$broke" -eq 0 ] || [ "$failed" -gt "$before" ] || failed=$((failed + 1))
}
