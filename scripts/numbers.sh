# Sourced: the table of docs/testing.md, of the results that the verbs left in build/numbers.

numbers=$root/build/numbers

# keep_number VERB WHAT: passes on what it reads, and keeps its last line as the result of a verb.
keep_number() {
    mkdir -p "$numbers"
    rm -f "$numbers/$1"
    local line last=
    while IFS= read -r line; do
        printf '%s\n' "$line"
        last=$line
    done
    # A verb that died has told no result.
    case $last in '' | '== '*) return ;; esac
    printf '| %s | `./tev %s` | %s | %s, %s |\n' "$2" "${1/levels/test --all}" "$last" \
        "$(date -u +%F)" "$(git -C "$root" describe --always --dirty 2>/dev/null || echo unknown)" \
        >"$numbers/$1"
}

# verb_numbers: writes the table anew; results that are missing keep their old line.
verb_numbers() {
    no_arguments $#
    write_numbers
}

write_numbers() {
    local page=$root/docs/testing.md name new
    new=$(mktemp)
    for name in test levels sanitize coverage seeded fuzz mutate; do
        if [ -e "$numbers/$name" ]; then
            cat "$numbers/$name"
        else
            grep -F "| \`./tev ${name/levels/test --all}\` |" "$page" || true
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
