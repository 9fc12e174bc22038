# Sourced: the table of docs/testing.md, of the results that the verbs left in build/numbers.

numbers=$root/build/numbers
# The rows of the table: the name of the result, and what it tells.
number_rows=(test:Tests effort:'Tests, fifty-fold' inside:'Of the tests' levels:'Instruction levels'
    bench:'Results of the benchmarks' sanitize:Sanitizers coverage:Coverage seeded:'Seeded defects'
    fuzz:Fuzzing mutate:Mutations)

# keep_number NAME COMMAND: passes on what it reads, and keeps its last line as the result of a
# command.
keep_number() {
    clear_number "$1" "$2"
    local line last=
    while IFS= read -r line; do
        printf '%s\n' "$line"
        last=$line
    done
    # A verb that died has told no result.
    case $last in '' | '== '*) return ;; esac
    write_number "$1" "$2" "$last"
}

# clear_number NAME COMMAND: no result of an earlier run may stand for one that has begun.
clear_number() { write_number "$1" "$2" 'did not finish'; }

# write_number NAME COMMAND RESULT
write_number() {
    mkdir -p "$numbers"
    printf '`%s` | %s | %s, %s |\n' "$2" "$3" "$(date -u +%F)" \
        "$(git -C "$root" describe --always --dirty 2>/dev/null || echo unknown)" >"$numbers/$1"
}

# verb_numbers: writes the table anew; results that are missing keep their old line.
verb_numbers() {
    no_arguments $#
    write_numbers
}

write_numbers() {
    local page=$root/docs/testing.md row result new
    new=$(mktemp)
    for row in "${number_rows[@]}"; do
        result=$numbers/${row%%:*}
        if [ -e "$result" ]; then
            printf '| %s | %s\n' "${row#*:}" "$(cat "$result")"
        else
            grep -F "| ${row#*:} | " "$page" || true
        fi
    done >"$new"
    [ -s "$new" ] || die "no results in $numbers; run ./tev test --all"
    awk -v table="$new" '
        /^<!-- numbers -->$/ { print; inside = 1; print "| What | Command | Result | Day, commit |"
            print "|---|---|---|---|"; while ((getline line < table) > 0) print line; next }
        /^<!-- end of numbers -->$/ { inside = 0 }
        !inside { print }' "$page" >"$new.page"
    cat "$new.page" >"$page"
    rm -f "$new" "$new.page"
    say "the table of numbers in docs/testing.md is new"
}
