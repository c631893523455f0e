#!/bin/sh
# Runs a Windows test program under Wine with the build's own, quiet prefix.
# WINEPREFIX is set by the Makefile; the default keeps a manual `ctest` in build/windows working.
: "${WINEPREFIX:=$(cd "$(dirname "$0")/.." && pwd)/build/wineprefix}"
export WINEPREFIX
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
exec wine "$@"
