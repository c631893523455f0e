#!/bin/sh
# Creates the build's own Wine prefix once, serially: parallel first runs of Wine race each other.
set -eu
prefix="$1"
[ -f "$prefix/.initialised" ] && exit 0
export WINEPREFIX="$prefix" WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
mkdir -p "$prefix"
echo "Initialising the Wine prefix in $prefix (once)"
wineboot --init >/dev/null 2>&1
wineserver -w
touch "$prefix/.initialised"
