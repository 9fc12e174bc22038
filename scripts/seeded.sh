# Sourced: the verb seeded. Each patch below tests/seeded plants one defect in a copy of the sources.
# Its second line, "Test: PROGRAM [FILTER]", names the test that passes without and fails with it;
# its third, "Words: ...", is what the test says then. Any other failure does not count.

seeded=$root/build/seeded
seeds=$root/tests/seeded

verb_seeded() {
    no_arguments $#
    seed_defects | keep_number seeded './tev seeded'
}

seed_defects() {
    need_packages "${packages_check[@]}" "${packages_seeded[@]}"
    need_all
    local patch programs caught=0 missed=0
    mapfile -t programs < <(sed -n 's/^Test: \([^ ]*\).*/\1/p' "$seeds"/*.patch | sort -u)
    copy_sources
    build_seeded "${programs[@]}"
    for patch in "$seeds"/*.patch; do
        run_seeded "$patch" || die "$(basename "$patch"): its test fails without the defect"
    done
    for patch in "$seeds"/*.patch; do
        patch -s -d "$seeded" -p1 --fuzz=0 <"$patch" >&2 ||
            die "$(basename "$patch") does not fit the sources; write it anew"
        build_seeded "$(program_of "$patch")"
        if is_caught "$patch"; then
            say "caught: $(head -n 1 "$patch")"
            caught=$((caught + 1))
        else
            say "NOT NOTICED: $(head -n 1 "$patch")"
            missed=$((missed + 1))
        fi
        copy_sources
    done
    printf '%d caught, %d not noticed\n' "$caught" "$missed"
    [ "$missed" -eq 0 ] && [ "$caught" -gt 0 ]
}

program_of() { sed -n '2s/^Test: \([^ ]*\).*/\1/p' "$1"; }

# is_caught PATCH: does its test fail, and with its words? A program that does not start, or hangs,
# does not say them.
is_caught() {
    local words
    words=$(sed -n '3s/^Words: //p' "$1")
    [ -n "$words" ] || die "$(basename "$1") needs a third line, \"Words: ...\""
    ! run_seeded "$1" || return 1
    grep -qF -- "$words" "$seeded/build/run.log" && return
    tail -n 5 "$seeded/build/run.log" >&2
    return 1
}

# The work tree as it stands; what is the same keeps its time, so that little is built.
copy_sources() {
    mkdir -p "$seeded"
    git -C "$root" ls-files -z | rsync -0 -rlp --checksum --files-from=- "$root/" "$seeded/"
}

# build_seeded PROGRAM...: native ones are those of the fuzz targets. The copy has its own root.
build_seeded() {
    local native=() windows=() program
    for program in "$@"; do
        case $program in
            fuzz_*) native+=("$program") ;;
            *) windows+=("$program") ;;
        esac
    done
    [ ${#native[@]} -eq 0 ] || (root=$seeded && build host "${native[@]}")
    [ ${#windows[@]} -eq 0 ] || (root=$seeded && build mingw-release "${windows[@]}")
}

# run_seeded PATCH: does its test pass?
run_seeded() {
    local program filter log=$seeded/build/run.log
    program=$(program_of "$1")
    filter=$(sed -n '2s/^Test: [^ ]* *//p' "$1")
    case $program in
        fuzz_*) timeout 300 "$seeded/build/host/bin/$program" --mutants 10000 \
            "$seeds/../fuzz/corpus/${program#fuzz_}" ;;
        *) GTEST_FILTER=$filter timeout 300 "$root/scripts/gtest.sh" \
            "$seeded/build/mingw-release/bin/$program.exe" "$seeded/build/report.xml" ;;
    esac >"$log" 2>&1
}
