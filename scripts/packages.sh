# Sourced: installs the Debian packages that a verb needs and the machine lacks.

packages_build=(g++-mingw-w64-x86-64-posix wine64 cmake ninja-build libcli11-dev
    nlohmann-json3-dev googletest ccache)
packages_gdal=(dpkg-dev sqlite3 tcl g++ make)
packages_check=(clang-format-14 clang-tidy-14 git g++ codespell python3 libxml2-utils)
packages_fuzz=(clang-14 libclang-rt-14-dev g++ cmake ninja-build ccache)
packages_mutate=(g++ binutils cmake ninja-build googletest ccache python3)
packages_package=(git python3 python3-jsonschema python3-license-expression)
packages_compilers=(clang-14 libc++-14-dev python3)
packages_coverage=(gcovr python3)
packages_seeded=(patch rsync)
packages_bench=(libboost-dev libfmt-dev libfast-float-dev libsimpleini-dev python3-matplotlib
    valgrind)
packages_docs=(doxygen python3)
packages_look=(chromium)

# need_packages NAME...: no output and no root needed when all are there.
need_packages() {
    local missing=() name
    for name in "$@"; do
        [ "$(dpkg-query -W -f '${db:Status-Status}' "$name" 2>/dev/null)" = installed ] ||
            missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return
    local as_root=()
    if [ "$(id -u)" != 0 ]; then
        command -v sudo >/dev/null ||
            die "missing packages: ${missing[*]}; run as root: apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    mkdir -p "$cache" || die "cannot create the cache folder $cache; set TEV_CACHE to another one"
    say "installing packages: ${missing[*]}"
    local log=$cache/packages.log
    "${as_root[@]}" apt-get update >"$log" 2>&1 ||
        die "apt-get update failed; see $log, check the network and run again"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y --no-install-recommends "${missing[@]}" >>"$log" 2>&1 ||
        die "could not install ${missing[*]}; see $log, mend it and run again"
}
