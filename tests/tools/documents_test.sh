#!/usr/bin/env bash
# documents_test.sh TEVSYS.EXE: the Documents folder in a fresh Wine prefix, and in one whose folder
# was removed.
set -euo pipefail
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
tevsys=$(realpath "$1")
work=$(mktemp -d)
export WINEPREFIX=$work/prefix HOME=$work/home WINEDLLOVERRIDES='mscoree=;mshtml='
mkdir -p "$HOME" "$WINEPREFIX"
trap '/usr/lib/wine/wineserver64 -k || true; rm -rf "$work"' EXIT

where() { TEV_CACHE=$work "$root/scripts/wine.sh" "$tevsys" where | tr -d '\r' | grep '^documents'; }

TEV_CACHE=$work "$root/scripts/wine.sh" wineboot -i >"$work/log" 2>&1
[[ $(where) == documents$'\t'[A-Z]:\\*\\$'\t'* ]] ||
    { echo "documents: not found in a fresh prefix: $(where)" >&2; exit 1; }

rm -rf "$WINEPREFIX"/drive_c/users/*/Documents "$HOME"/*
[[ $(where) == documents$'\t-\t'* ]] ||
    { echo "documents: found although it was removed: $(where)" >&2; exit 1; }
echo "documents: all expectations met"
