#!/bin/sh
# Runs a Windows test program under Wine with the build's own, quiet prefix.
# WINEPREFIX is set by the Makefile; the default keeps a manual `ctest` in build/windows working.
: "${WINEPREFIX:=$(cd "$(dirname "$0")/.." && pwd)/build/wineprefix}"
export WINEPREFIX
export WINEDEBUG=-all
export WINEDLLOVERRIDES="mscoree,mshtml="
# Wine takes the Windows locale from the process's environment, and the C locale is US English
# there: numbers and dates are then written and read as the portable runtime does, on any machine.
export LC_ALL=C.UTF-8
exec wine "$@"
