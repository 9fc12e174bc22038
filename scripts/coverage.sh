# Sourced: the verb coverage. Lines and branches of the library that the tests run: the DLL and the
# fault tests under Wine, the platform-free code natively too.

coverage=$root/build/coverage

verb_coverage() {
    no_arguments $#
    measure_coverage | keep_number coverage './tev coverage'
}

measure_coverage() {
    need_packages "${packages_check[@]}" "${packages_coverage[@]}"
    need_all
    local preset failed=0 passed=0
    for preset in mingw-coverage host-coverage; do
        build "$preset"
        find "$root/build/$preset" -name '*.gcda' -delete
    done
    # Two programs at once would write the counters of the DLL at once.
    local test_jobs=1
    # Loading the library a thousand times writes its counters as often and runs nothing more.
    run_tests mingw-coverage -L gtest -E '^test_boundary$'
    run_tests host-coverage -L gtest
    say "$passed passed, $failed failed"
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ] || die "$failed tests failed; run ./tev test"
    rm -rf "$coverage"
    mkdir -p "$coverage"
    coverage_trace mingw-coverage "$triplet-gcov-posix"
    coverage_trace host-coverage gcov
    coverage_report
    "$root/scripts/coverage-gaps.py" "$root" "$root/tests/coverage/unreachable.txt" \
        "$coverage"/*-coverage.json || die "see above, and $coverage/index.html"
}

# coverage_trace PRESET GCOV: branches that the compiler makes for a passing exception do not count.
coverage_trace() {
    gcovr --root "$root" --filter "$root/TEVSystemLib/" --exclude-throw-branches --exclude-unreachable-branches \
        --gcov-executable "$2" --object-directory "$root/build/$1" --json "$coverage/$1.json" \
        "$root/build/$1/TEVSystemLib" >"$coverage/$1.log" 2>&1 ||
        die "the counters of $1 could not be read; see $coverage/$1.log"
}

coverage_report() {
    gcovr --root "$root" --add-tracefile "$coverage/mingw-coverage.json" \
        --add-tracefile "$coverage/host-coverage.json" --html-details "$coverage/index.html" \
        >"$coverage/report.log" 2>&1 || die "no report; see $coverage/report.log"
}
