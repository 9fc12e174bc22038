# Sourced: source packages from the machine's own Debian mirrors; its configuration is not touched.

# fetch_sources DIR LOG NAME...: unpacks each package's sources into DIR/NAME-VERSION.
fetch_sources() {
    local dir=$1 log=$2 list=$1/apt/sources.list lists=$1/apt/lists
    shift 2
    mkdir -p "$lists/partial"
    apt-get indextargets --format 'deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' 2>>"$log" | sort -u >"$list"
    [ -s "$list" ] || die "no Debian mirror is known here; run apt-get update as root and try again"
    local apt=(apt-get -o Dir::Etc::sourcelist="$list" -o Dir::Etc::sourceparts=/dev/null
        -o Dir::State::lists="$lists" -o Debug::NoLocking=1 -o APT::Sandbox::User=)
    (cd "$dir" && "${apt[@]}" update && "${apt[@]}" source "$@") >>"$log" 2>&1 ||
        die "the sources of $* could not be fetched; see $log, mend it and run again"
}
