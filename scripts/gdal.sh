# Sourced: GDAL for MinGW, cross-built once from Debian's source packages into the per-user cache.

gdal_needed_megabytes=3000

# gdal_prefix: the folder of the finished build; its name changes with the recipe and the compiler.
gdal_prefix() {
    local key
    key=$({ cat "$root/scripts/gdal.sh" "$root/cmake/mingw-w64.cmake"
            "$triplet-g++-posix" -dumpfullversion; } | sha256sum | cut -c1-12)
    printf '%s/gdal-%s\n' "$cache" "$key"
}

# need_gdal: builds it when it is missing. The work is done aside and renamed last, so that an
# interrupted build leaves nothing that looks finished; the next run clears the remains.
need_gdal() {
    local prefix
    prefix=$(gdal_prefix)
    [ -d "$prefix" ] && return
    need_packages "${packages_gdal[@]}"
    mkdir -p "$cache" || die "cannot create the cache folder $cache; set TEV_CACHE to another one"
    (
        flock 9
        [ -d "$prefix" ] && exit
        rm -rf "$cache"/building-gdal.*
        local free
        free=$(free_megabytes "$cache")
        [ "$free" -ge "$gdal_needed_megabytes" ] ||
            die "GDAL needs $gdal_needed_megabytes MB to build and $cache has $free; free some or set TEV_CACHE"
        gdal_work=$(mktemp -d "$cache/building-gdal.XXXXXX") ||
            die "cannot write to $cache; set TEV_CACHE to another folder"
        gdal_log=$cache/gdal.log
        : >"$gdal_log"
        trap 'rm -rf "$gdal_work"' EXIT
        say "building GDAL for Windows, once; about six minutes on two cores (log: $gdal_log)"
        gdal_fetch
        gdal_sqlite
        gdal_cmake proj "$gdal_work"/proj-*/ \
            -DBUILD_SHARED_LIBS=OFF -DENABLE_TIFF=OFF -DENABLE_CURL=OFF -DBUILD_APPS=OFF \
            -DBUILD_TESTING=OFF -DSQLITE3_INCLUDE_DIR="$gdal_work/out/include" \
            -DSQLITE3_LIBRARY="$gdal_work/out/lib/libsqlite3.a" -DEXE_SQLITE3=/usr/bin/sqlite3
        gdal_cmake gdal "$gdal_work"/gdal-*/ \
            -DBUILD_SHARED_LIBS=ON -DGDAL_BUILD_OPTIONAL_DRIVERS=OFF \
            -DOGR_BUILD_OPTIONAL_DRIVERS=OFF -DGDAL_USE_EXTERNAL_LIBS=OFF \
            -DGDAL_USE_INTERNAL_LIBS=ON -DBUILD_APPS=OFF -DBUILD_TESTING=OFF \
            -DBUILD_PYTHON_BINDINGS=OFF -DBUILD_JAVA_BINDINGS=OFF -DBUILD_CSHARP_BINDINGS=OFF \
            -DPROJ_DIR="$gdal_work/out/lib/cmake/proj" \
            -DPROJ_INCLUDE_DIR="$gdal_work/out/include" \
            -DPROJ_LIBRARY="$gdal_work/out/lib/libproj.a" \
            -DSQLite3_INCLUDE_DIR="$gdal_work/out/include" \
            -DSQLite3_LIBRARY="$gdal_work/out/lib/libsqlite3.a"
        gdal_licences || gdal_fail "the licences of GDAL and its parts were not found"
        mv -T "$gdal_work/out" "$prefix" || gdal_fail "the finished build could not be put into place"
        say "GDAL is ready"
    ) 9>"$cache/gdal.lock" || exit 1
}

gdal_fail() { die "$1; see $gdal_log, mend it and run again"; }

# The machine's own Debian mirrors, asked for sources; its configuration is not touched.
gdal_fetch() {
    local list=$gdal_work/apt/sources.list lists=$gdal_work/apt/lists
    mkdir -p "$lists/partial"
    apt-get indextargets --format 'deb-src [signed-by=/usr/share/keyrings/debian-archive-keyring.gpg] $(REPO_URI) $(RELEASE) $(COMPONENT)' \
        'Created-By: Packages' 'Origin: Debian' 2>>"$gdal_log" | sort -u >"$list"
    [ -s "$list" ] || die "no Debian mirror is known here; run apt-get update as root and try again"
    local apt=(apt-get -o Dir::Etc::sourcelist="$list" -o Dir::Etc::sourceparts=/dev/null
        -o Dir::State::lists="$lists" -o Debug::NoLocking=1 -o APT::Sandbox::User=)
    say "GDAL 1/4: sources"
    (cd "$gdal_work" && "${apt[@]}" update && "${apt[@]}" source gdal proj sqlite3) \
        >>"$gdal_log" 2>&1 || gdal_fail "the sources of gdal, proj and sqlite3 could not be fetched"
}

gdal_sqlite() {
    say "GDAL 2/4: SQLite"
    (
        cd "$gdal_work"/sqlite3-*/ &&
            ./configure --disable-tcl &&
            make sqlite3.c &&
            mkdir -p "$gdal_work/out/lib" "$gdal_work/out/include" &&
            cp sqlite3.h sqlite3ext.h "$gdal_work/out/include" &&
            "$triplet-gcc-posix" -O2 -DSQLITE_OMIT_LOAD_EXTENSION -c sqlite3.c -o sqlite3.o &&
            "$triplet-ar" rcs "$gdal_work/out/lib/libsqlite3.a" sqlite3.o
    ) >>"$gdal_log" 2>&1 || gdal_fail "SQLite did not build"
}

# gdal_cmake NAME SOURCE OPTION...
gdal_cmake() {
    local name=$1 source=$2 build=$gdal_work/build-$1
    shift 2
    case $name in
        proj) say "GDAL 3/4: PROJ" ;;
        gdal) say "GDAL 4/4: GDAL" ;;
    esac
    cmake -G Ninja -S "$source" -B "$build" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" \
        -DCMAKE_INSTALL_PREFIX="$gdal_work/out" "$@" >>"$gdal_log" 2>&1 ||
        gdal_fail "$name did not configure"
    cmake --build "$build" 2>&1 | tee -a "$gdal_log" | gdal_progress ||
        gdal_fail "$name did not build"
    cmake --install "$build" >>"$gdal_log" 2>&1 || gdal_fail "$name did not install"
}

# Turns "[n/N] ..." lines into one line each tenth of the way.
gdal_progress() {
    awk -F'[][/]' '$2 ~ /^[0-9]+$/ && $3 > 0 {
        tenth = int(10 * $2 / $3)
        if (tenth > shown) { shown = tenth; printf "   %d%%\n", 10 * tenth; fflush() }
    }'
}

gdal_licences() {
    local name
    for name in gdal proj sqlite3; do
        install -D -m 644 "$gdal_work/$name"-*/debian/copyright \
            "$gdal_work/out/share/licenses/$name" || return 1
    done
}
