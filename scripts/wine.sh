#!/usr/bin/env bash
# Runs a Windows program under Wine in the project's own prefix, without a display.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
export WINEPREFIX=${WINEPREFIX:-$cache/wine} WINEDEBUG=-all WINEARCH=win64
unset DISPLAY
exec /usr/lib/wine/wine64 "$@"
