#!/bin/sh
# Runs a Windows program of the cross-build under wine: wine-run.sh PREFIX PROGRAM [ARGS...]
# PREFIX is the build tree's own wine prefix (an exported WINEPREFIX wins).
prefix="$1"
shift
: "${WINEPREFIX:=$prefix}"
: "${WINEDEBUG:=-all}"
export WINEPREFIX WINEDEBUG
if [ -x /usr/lib/wine/wine64 ]; then exec /usr/lib/wine/wine64 "$@"; fi
exec wine "$@"
