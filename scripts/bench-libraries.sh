# Sourced: Google Benchmark and the part of Abseil that the benchmarks are compared with, for MinGW,
# cross-built once from Debian's source packages into the per-user cache.

# bench_libraries_prefix: the folder of the finished build; its name changes with the recipe and the
# compiler.
bench_libraries_prefix() {
    local key
    key=$({ cat "$root/scripts/bench-libraries.sh" "$root/scripts/debian-sources.sh" \
                "$root/cmake/mingw-w64.cmake"
            "$triplet-g++-posix" -dumpfullversion; } | sha256sum | cut -c1-12)
    printf '%s/bench-%s\n' "$cache" "$key"
}

# need_bench_libraries: made aside and renamed last, so that an interrupted build leaves nothing that
# looks finished; the next run clears the remains.
need_bench_libraries() {
    local prefix
    prefix=$(bench_libraries_prefix)
    [ -d "$prefix" ] && return
    need_packages "${packages_gdal[@]}"
    mkdir -p "$cache" || die "cannot create the cache folder $cache; set TEV_CACHE to another one"
    (
        flock 9
        [ -d "$prefix" ] && exit
        rm -rf "$cache"/building-bench.*
        bench_work=$(mktemp -d "$cache/building-bench.XXXXXX") ||
            die "cannot write to $cache; set TEV_CACHE to another folder"
        bench_log=$cache/bench.log
        : >"$bench_log"
        trap 'rm -rf "$bench_work"' EXIT
        say "building Google Benchmark and Abseil for Windows, once; some minutes (log: $bench_log)"
        fetch_sources "$bench_work" "$bench_log" benchmark abseil
        bench_cmake "$bench_work"/benchmark-*/ benchmark -DBENCHMARK_ENABLE_TESTING=OFF \
            -DBENCHMARK_ENABLE_WERROR=OFF -DGENERIC_LIB_VERSION=1 -DGENERIC_LIB_SOVERSION=1
        bench_cmake "$bench_work"/abseil-*/ strings -DCMAKE_CXX_STANDARD=17
        mkdir -p "$bench_work/out/lib" "$bench_work/out/include"
        bench_archive libbenchmark.a "$bench_work"/benchmark-*/build
        bench_archive libabsl_strings.a "$bench_work"/abseil-*/build
        cp -r "$bench_work"/benchmark-*/include/benchmark "$bench_work"/abseil-*/absl \
            "$bench_work/out/include"
        mv -T "$bench_work/out" "$prefix" || die "the benchmark libraries could not be put into $cache"
        say "the benchmark libraries are ready"
    ) 9>"$cache/bench.lock" || exit 1
}

# bench_cmake SOURCE TARGET OPTION...
bench_cmake() {
    local source=$1 target=$2
    shift 2
    { cmake -G Ninja -S "$source" -B "$source/build" -DCMAKE_BUILD_TYPE=Release \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" -DBUILD_SHARED_LIBS=OFF "$@" &&
        cmake --build "$source/build" --target "$target"; } >>"$bench_log" 2>&1 ||
        die "$target did not build; see $bench_log, mend it and run again"
}

# bench_archive NAME BUILD: one archive of all that BUILD has compiled.
bench_archive() {
    find "$2" -name '*.obj' -print0 | sort -z |
        xargs -0 "$triplet-ar" rcs "$bench_work/out/lib/$1" ||
        die "$1 could not be made; see $bench_log, mend it and run again"
}
