# Sourced: the Wine prefix, made once aside and then renamed.

need_wine() {
    [ -d "$cache/wine" ] || make_wine_prefix
    # Kept alive between programs, each of which would otherwise start it anew.
    WINEPREFIX=$cache/wine WINEDEBUG=-all /usr/lib/wine/wineserver64 -p60 >/dev/null 2>&1 ||
        true
    # Wine's services start with the first program and keep its output open: no pipe of ours.
    "$root/scripts/wine.sh" cmd.exe /c exit >/dev/null 2>&1 </dev/null || true
}

make_wine_prefix() {
    mkdir -p "$cache" || die "cannot create the cache folder $cache; set TEV_CACHE to another one"
    (
        flock 9
        [ -d "$cache/wine" ] && exit
        rm -rf "$cache"/making-wine.*
        local work
        work=$(mktemp -d "$cache/making-wine.XXXXXX") ||
            die "cannot write to $cache; set TEV_CACHE to another folder"
        trap 'rm -rf "$work"' EXIT
        say "making a Wine prefix, once"
        export WINEDLLOVERRIDES='mscoree=;mshtml='
        WINEPREFIX=$work "$root/scripts/wine.sh" wineboot -i >"$cache/wine.log" 2>&1 ||
            die "Wine could not make its prefix; see $cache/wine.log, mend it and run again"
        WINEPREFIX=$work /usr/lib/wine/wineserver64 -w
        [ -f "$work/system.reg" ] ||
            die "Wine left no registry in its prefix; see $cache/wine.log, mend it and run again"
        mv -T "$work" "$cache/wine" || die "the Wine prefix could not be put into place in $cache"
    ) 9>"$cache/wine.lock" || exit 1
}
