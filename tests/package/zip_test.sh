#!/usr/bin/env bash
# zip_test.sh BUILD: makes the ZIP, unpacks it elsewhere and looks at what is inside.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

# Another version's ZIP would be taken for this one's.
rm -f "$build"/package/*.zip
run cpack --config "$build/CPackConfig.cmake"
rm -rf "$unpacked"
mkdir -p "$unpacked"
(cd "$unpacked" && run cmake -E tar xf "$build"/package/TEVSystemLib-*-win64.zip)
find_tree

for file in README.txt CHANGELOG.md bin/{TEVSystemLib.dll,tevsys.exe} bin/TEVSystemLib.dll.debug \
    bin/lib{gdal-32,stdc++-6,gcc_s_seh-1,winpthread-1}.dll lib/libTEVSystemLib.dll.a \
    include/TEVSystemLib/{TEVSystemBuild,util/string/TEVUtilString}.h \
    lib/cmake/TEVSystemLib/{TEVSystemLibConfig.cmake,TEVSystemLib.natvis,mingw-w64.cmake} \
    docs/html/{index,md_docs_ownership,annotated}.html examples/CMakeLists.txt \
    licenses/{TEVSystemLib,README,gdal,proj,sqlite3,gcc,mingw-w64,GPL-3,Apache-2.0}.txt \
    licenses/{libcli11,nlohmann-json3,doxygen}.txt; do
    [ -s "$tree/$file" ] || fail "$file is not in the ZIP"
done
! find "$tree" -empty | grep . || fail "the ZIP has empty files or folders"
! find "$tree/include" -path '*detail*' | grep . || fail "the ZIP has internal headers"

# GDAL's DLL names the folder that it was compiled in; nothing else does.
! grep -rlE --exclude=libgdal-32.dll "$root|${HOME:?}/" "$tree" ||
    fail "files of the ZIP name folders of this machine"

objdump=x86_64-w64-mingw32-objdump
for file in TEVSystemLib.dll tevsys.exe; do
    TZ=UTC "$objdump" -p "$tree/bin/$file" >"$log"
    grep -q '^Time/Date.*Jan  1 00:00:00 1970' "$log" || fail "$file tells when it was linked"
done
"$objdump" -h "$tree/bin/TEVSystemLib.dll" >"$log"
! grep -q '\.debug_' "$log" ||
    fail "the DLL still has debug information"

# The link to the debug file: its name, and its checksum in little endian.
sum=$(/usr/bin/python3 -c 'import sys, zlib
print(zlib.crc32(open(sys.argv[1], "rb").read()).to_bytes(4, "little").hex())' \
    "$tree/bin/TEVSystemLib.dll.debug")
"$objdump" -s -j .gnu_debuglink "$tree/bin/TEVSystemLib.dll" >"$log"
grep -q 'TEVSystemLib.dl' "$log" && grep -q " $sum " "$log" ||
    fail "the DLL does not lead to its debug file"
address=$(x86_64-w64-mingw32-nm -C "$tree/bin/TEVSystemLib.dll.debug" |
    sed -n 's/^\([0-9a-f]*\) T TAMO::TEV::System::TEVSystemObject::TEVSystemObject()$/\1/p' | sort -u)
x86_64-w64-mingw32-addr2line -e "$tree/bin/TEVSystemLib.dll.debug" "0x${address:-0}" >"$log"
grep -q 'system/TEVSystemObject.cpp:[1-9]' "$log" ||
    fail "the debug file does not lead to the source"

# Version x.y: which requests does the CMake package meet?
version=$(sed -n 's/^set(PACKAGE_VERSION "\(.*\)")$/\1/p' "$tree"/lib/cmake/TEVSystemLib/*Version.cmake)
major=${version%%.*}
meets() {
    cat >"$work/request.cmake" <<CMAKE
set(PACKAGE_FIND_VERSION $1)
string(REGEX MATCH "^[0-9]+" PACKAGE_FIND_VERSION_MAJOR \${PACKAGE_FIND_VERSION})
set(CMAKE_SIZEOF_VOID_P 8)
include("$tree/lib/cmake/TEVSystemLib/TEVSystemLibConfigVersion.cmake")
if(NOT PACKAGE_VERSION_COMPATIBLE OR PACKAGE_VERSION_UNSUITABLE)
    message(FATAL_ERROR "no")
endif()
CMAKE
    cmake -P "$work/request.cmake" >/dev/null 2>&1
}
meets "$version" && meets "$major.0" || fail "version $version does not meet its own request"
for other in $((major + 1)).0 $((major - 1)).9 "$major.99"; do
    ! meets "$other" || fail "version $version meets a request for $other"
done

# The list of contents is right, and its check sees what is wrong.
run "$root/scripts/sbom-check.py" "$tree"
list=TEVSystemLib.spdx.json
cp -rl "$tree" "$work/broken"
while read -r change; do
    rm "$work/broken/$list"
    sed "$change" "$tree/$list" >"$work/broken/$list"
    ! cmp -s "$tree/$list" "$work/broken/$list" || fail "nothing to change by $change"
    ! "$root/scripts/sbom-check.py" "$work/broken" 2>/dev/null ||
        fail "the check of the list of contents does not see $change"
done <<'CHANGES'
s/SPDX-2.3/SPDX-2.2/
s/"created": .*/"created": "yesterday",/
s/"licenseConcluded": "Zlib"/"licenseConcluded": "No-Such-Licence"/
s/"checksumValue": "./"checksumValue": "X/
s/"SPDXID": "SPDXRef-File-README.txt/"SPDXID": "SPDXRef-File-Elsewhere/
s#"./README.txt"#"./README2.txt"#
0,/"relatedSpdxElement"/s/"relatedSpdxElement": ".*"/"relatedSpdxElement": "SPDXRef-Gone"/
s/"versionInfo"/"version"/
CHANGES
cp "$tree/$list" "$work/broken/$list"
rm "$work/broken/README.txt"
echo another >"$work/broken/README.txt"
! "$root/scripts/sbom-check.py" "$work/broken" 2>/dev/null ||
    fail "the check of the list of contents does not see a changed file"
