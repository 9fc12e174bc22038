# Sourced: the verb check. What can be told of a change without running it.

verb_check() {
    no_arguments $#
    need_packages "${packages_check[@]}"
    need_all
    # The build itself checks the warnings, and that each public header compiles alone.
    build mingw-release TEVSystemLib tevsys test_headers
    build host tev_pure
    say "checking"
    local preset
    for preset in mingw-release host; do
        (cd "$root" && ctest --preset "$preset" -L quick) >"$root/build/check-$preset.log" 2>&1 || {
            grep -vE '^(Test project|Label Time|gtest|check|quick) ' \
                "$root/build/check-$preset.log" >&2
            die "the check found something; mend it and run ./tev check again"
        }
        grep -E '^100% tests passed' "$root/build/check-$preset.log" ||
            die "no check ran; see $root/build/check-$preset.log"
    done
}
