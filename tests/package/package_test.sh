#!/usr/bin/env bash
# package_test.sh BUILD TOOLCHAIN: installs the build, moves the tree, and builds and runs a consumer
# against the moved tree alone.
set -euo pipefail
build=$1 toolchain=$2
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
log=$work/log

run() {
    "$@" >"$log" 2>&1 && return
    cat "$log" >&2
    echo "package: failed: $*" >&2
    exit 1
}

run cmake --install "$build" --prefix "$work/first"
mv "$work/first" "$work/moved"
for file in bin/TEVSystemLib.dll include/TEVSystemLib/util/string/TEVUtilString.h; do
    [ -f "$work/moved/$file" ] || { echo "package: $file was not installed" >&2; exit 1; }
done
if find "$work/moved/include" -path '*detail*' | grep .; then
    echo "package: internal headers were installed" >&2
    exit 1
fi
run env -u TEV_GDAL_PREFIX cmake -G Ninja -S "$here/consumer" -B "$work/build" \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_PREFIX_PATH="$work/moved"
run cmake --build "$work/build"
cp "$work/moved/bin/"*.dll "$work/build"
run "$here/../../scripts/wine.sh" "$work/build/consumer.exe"
grep -q 'all expectations met' "$log" || { cat "$log" >&2; exit 1; }

# The host of the README, as it stands there.
mkdir "$work/readme"
block() { sed -n "/^\`\`\`$1\$/,/^\`\`\`\$/p" "$here/../../README.md" | sed '1d;$d'; }
block cpp >"$work/readme/host.cpp"
block cmake >"$work/readme/CMakeLists.txt"
run cmake -G Ninja -S "$work/readme" -B "$work/readme/build" \
    -DCMAKE_TOOLCHAIN_FILE="$toolchain" -DCMAKE_PREFIX_PATH="$work/moved"
run cmake --build "$work/readme/build"
cp "$work/moved/bin/"*.dll "$work/readme/build"
run "$here/../../scripts/wine.sh" "$work/readme/build/host.exe"
grep -q 'silent, else at' "$log" || { cat "$log" >&2; exit 1; }
