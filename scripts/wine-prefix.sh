#!/bin/sh
# Creates the build's own Wine prefix once, serially: parallel first runs of Wine race each other.
set -eu
prefix="$1"
[ -f "$prefix/.initialised" ] && exit 0
export WINEPREFIX="$prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
mkdir -p "$prefix"
echo "Initialising the Wine prefix in $prefix (once)"
# Wine's output is kept aside and shown only when the prefix could not be made.
log="$prefix.log"
if ! { wineboot --init && wineserver -w; } >"$log" 2>&1; then
  echo "Could not initialise the Wine prefix in $prefix; Wine said:" >&2
  cat "$log" >&2
  exit 1
fi
rm -f "$log"
touch "$prefix/.initialised"
