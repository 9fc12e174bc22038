#!/usr/bin/env bash
# Runs a Windows program under Wine in the project's own prefix, without a display.
. "$(dirname "${BASH_SOURCE[0]}")/common.sh"
export WINEPREFIX=${WINEPREFIX:-$cache/wine} WINEDEBUG=-all WINEARCH=win64
unset DISPLAY
# Without a UTF-8 locale Wine cannot make file names beyond ASCII.
export LC_ALL=C.UTF-8
exec /usr/lib/wine/wine64 "$@"
