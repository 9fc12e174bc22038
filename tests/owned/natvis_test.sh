#!/usr/bin/env bash
# natvis_test.sh: TEVSystemLib.natvis is well-formed, and each type and member that it names is
# declared in a public header. The debugger that reads it does not run here.
. "$(dirname "${BASH_SOURCE[0]}")/../../scripts/common.sh"
natvis=$root/cmake/TEVSystemLib.natvis
headers=("$root"/TEVSystemLib/owned/*.h "$root"/TEVSystemLib/system/*.h)

command -v xmllint >/dev/null || die "xmllint is missing; install libxml2-utils"
xmllint --noout "$natvis" || die "natvis: not well-formed"

declared() { grep -qE "$1" "${headers[@]}" || die "natvis: no public header declares $2"; }

mapfile -t types < <(grep -oE 'Type Name="[^"]*' "$natvis" | grep -oE '::[A-Za-z]+(&|"|$)' |
    tr -dc 'A-Za-z\n' | sort -u)
mapfile -t members < <(grep -oE '\b[a-zA-Z]+_\b' "$natvis" | sort -u)
[ ${#types[@]} -gt 5 ] && [ ${#members[@]} -gt 5 ] || die "natvis: no names found in $natvis"
for type in "${types[@]}"; do
    declared "(class|struct) (TEVSYSTEMLIB_API )?$type\b" "the type $type"
done
for member in "${members[@]}"; do
    declared "[*&> ]$member( =.*)?;" "the member $member"
done
say "natvis: ${#types[@]} types and ${#members[@]} members are declared"
