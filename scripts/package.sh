# Sourced: the verb package.

verb_package() {
    no_arguments $#
    need_packages "${packages_package[@]}" "${packages_docs[@]}"
    need_all
    [ -n "${SOURCE_DATE_EPOCH:-}" ] || git -C "$root" rev-parse HEAD >/dev/null 2>&1 ||
        die "$root is no git checkout, so the time of the commit is unknown; set SOURCE_DATE_EPOCH"
    verb_docs
    build mingw-release TEVSystemLib tevsys
    local log=$root/build/package.log tree zip
    rm -rf "$product/package"  # Another version's ZIP would be taken for this one's.
    (cd "$product" && cpack --config CPackConfig.cmake) >"$log" 2>&1 ||
        die "the package could not be made; see $log"
    zip=$(echo "$product"/package/TEVSystemLib-*-win64.zip)
    tree=$product/package/_CPack_Packages/win64/ZIP/$(basename "$zip" .zip)
    "$root/scripts/sbom-check.py" "$tree" || die "the package's list of contents is wrong"
    cp "$zip" "$root/build/"
    say "made build/$(basename "$zip")"
}
