# Sourced: the verb docs. The pages of docs/ and the reference of the public headers as one site; with
# --look also pictures of it as a browser shows it, for people to judge.

docs_html=$root/build/docs/html

verb_docs() {
    [ $# -eq 0 ] || [ "$*" = --look ] || die "usage: ./tev docs [--look]"
    need_packages "${packages_docs[@]}"
    rm -rf "$docs_html"
    mkdir -p "$root/build/docs"
    TEV_VERSION=$(sed -n 's/^project(.* VERSION \([0-9.]*\).*/\1/p' "$root/CMakeLists.txt")
    export TEV_VERSION
    say "building the documents"
    # A filter that fails is told in the log only.
    { (cd "$root" && doxygen scripts/docs/Doxyfile) >"$root/build/docs/doxygen.log" 2>&1 &&
        [ ! -s "$root/build/docs/doxygen.log" ]; } || {
        sed "s#^$root/##" "$root/build/docs/doxygen.log" | head -n 40 >&2
        die "Doxygen has complaints; mend them (all of them: build/docs/doxygen.log)"
    }
    "$root/scripts/docs/html-links.py" "$docs_html" ||
        die "links between the documents lead nowhere; mend them"
    say "the documents: $docs_html/index.html"
    [ $# -eq 0 ] || docs_look
}

# A picture each of the first page, three classes, and pages with a diagram or long tables.
docs_look() {
    need_packages "${packages_look[@]}"
    local page name look=$root/build/docs/look profile
    profile=$(mktemp -d)
    rm -rf "$look"
    mkdir -p "$look"
    for page in index.html class*TEVUtilString.html class*TEVSysCnst.html class*Owner.html \
        md_docs_architecture.html md_docs_configuration_files.html md_docs_com_data.html \
        md_docs_text.html md_docs_surprises.html md_docs_ownership.html; do
        name=$(cd "$docs_html" && compgen -G "$page" | head -n 1) || die "there is no page $page"
        chromium --headless --no-sandbox --disable-gpu --hide-scrollbars --user-data-dir="$profile" \
            --allow-file-access-from-files --window-size=1280,1800 --virtual-time-budget=5000 \
            --screenshot="$look/${name%.html}.png" "file://$docs_html/$name" \
            >>"$root/build/docs/look.log" 2>&1
        [ -s "$look/${name%.html}.png" ] || die "no picture of $name; see build/docs/look.log"
    done
    rm -rf "$profile"
    say "pictures to look at: $look"
}
