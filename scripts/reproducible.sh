#!/usr/bin/env bash
# reproducible.sh: makes the package of the last commit twice, in two folders and without the
# compiler's cache, and compares what is inside.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export CCACHE_DISABLE=1
commit=$(git -C "$root" rev-parse HEAD)
for folder in one "$(printf 'd%.0s' {1..60})"; do
    git clone -q --no-checkout "$root" "$work/$folder/checkout"
    git -C "$work/$folder/checkout" -c advice.detachedHead=false checkout -q "$commit"
    "$work/$folder/checkout/tev" package
done
for zip in "$work"/*/checkout/build/TEVSystemLib-*.zip; do
    into=$(dirname "$(dirname "$zip")")/../unpacked
    mkdir "$into"
    (cd "$into" && cmake -E tar xf "$zip")
done
diff -r "$work"/*/unpacked || die "two builds of one commit differ"
say "two builds of one commit have the same bytes inside"
sha256sum "$work"/*/checkout/build/TEVSystemLib-*.zip | sed "s#$work/##"
