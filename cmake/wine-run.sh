#!/bin/sh
# Runs a Windows program of the cross-build under wine, quietly and with a
# wine prefix of its own inside the build tree unless one is given.
: "${WINEDEBUG:=-all}"
export WINEDEBUG
if [ -z "$WINEPREFIX" ]; then
  WINEPREFIX="$(pwd)/wineprefix"
  export WINEPREFIX
fi
if [ -x /usr/lib/wine/wine64 ]; then exec /usr/lib/wine/wine64 "$@"; fi
exec wine "$@"
