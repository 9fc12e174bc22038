# Sourced: the verb sanitize. The platform-free code under the address, leak, undefined-behaviour and
# thread sanitizers on this machine; the DLL and all suites under Wine with undefined behaviour as a
# trap. A planted fault of each kind shows that the sanitizer is on.

verb_sanitize() {
    no_arguments $#
    sanitize | keep_number sanitize './tev sanitize'
}

sanitize() {
    need_packages "${packages_check[@]}"
    need_all
    local preset failed=0 passed=0
    for preset in host host-tsan mingw-ubsan; do build "$preset"; done
    for preset in host host-tsan mingw-ubsan; do run_tests "$preset" -L 'gtest|sanitizer'; done
    say "sanitizers: address, leaks, undefined behaviour and threads natively, traps under Wine"
    printf '%d passed, %d failed\n' "$passed" "$failed"
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
}
