#!/usr/bin/env bash
# gdal_test.sh: which packages of GDAL the build takes, and which DLL of one it copies beside its own.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/gdal
package=$prefix/lib/cmake/gdal

fail() {
    cat "$work/log" >&2
    echo "gdal: $*" >&2
    exit 1
}

# gdal VERSION CONFIGURATION...: a package as GDAL installs it, which knows its DLL for these.
gdal() {
    local version=$1 configuration
    rm -rf "$prefix" "$work/build/bin"
    mkdir -p "$package" "$prefix/bin"
    cat >"$work/version.cmake" <<CMAKE
include(CMakePackageConfigHelpers)
write_basic_package_version_file("$package/GDALConfigVersion.cmake"
    VERSION $version COMPATIBILITY SameMinorVersion ARCH_INDEPENDENT)
CMAKE
    cmake -P "$work/version.cmake"
    echo 'add_library(GDAL::GDAL SHARED IMPORTED)' >"$package/GDALConfig.cmake"
    for configuration in "${@:2}"; do
        echo "$configuration" >"$prefix/bin/$configuration.dll"
        cat >>"$package/GDALConfig.cmake" <<CMAKE
set_property(TARGET GDAL::GDAL APPEND PROPERTY IMPORTED_CONFIGURATIONS $configuration)
set_property(TARGET GDAL::GDAL PROPERTY
    IMPORTED_LOCATION_$configuration "$prefix/bin/$configuration.dll")
set_property(TARGET GDAL::GDAL PROPERTY
    IMPORTED_IMPLIB_$configuration "$prefix/lib/$configuration.dll.a")
CMAKE
    done
}

# configures BUILD_TYPE: the compiler is examined by the first call only.
configures() {
    cmake -G Ninja -S "$root" -B "$work/build" -UGDAL_DIR -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_TOOLCHAIN_FILE="$root/cmake/mingw-w64.cmake" -DCMAKE_BUILD_TYPE="$1" \
        -DTEV_BUILD_TESTS=OFF -DTEV_BUILD_TOOLS=OFF >"$work/log" 2>&1
}

# refused WORDS: whatever is built.
refused() {
    ! configures Release || fail "not refused: $1"
    tr -s ' \n' ' ' <"$work/log" | grep -q "$1" || fail "refused without the words: $1"
}

# copied BUILD_TYPE CONFIGURATION: its DLL, and none of another; the compiler's are named lib....
copied() {
    configures "$1" || fail "not taken for $1"
    local found
    found=$(cd "$work/build/bin" && echo [!l]*.dll)
    [ "$found" = "$2.dll" ] || fail "$1: not $2.dll was copied but $found"
}

gdal 3.5.9 RELEASE
refused 'GDAL 3.5.9 is too old; 3.6 is the least'
gdal 3.6.0 RELEASE
copied Release RELEASE
copied Debug RELEASE
gdal 3.11.2 RELEASE DEBUG
copied Debug DEBUG
gdal 4.0.0 DEBUG RELEASE
copied Release RELEASE
gdal 3.6.2 RELWITHDEBINFO
copied Release RELWITHDEBINFO
gdal 3.6.2
refused 'names no DLL'
echo "gdal: all expectations met"
