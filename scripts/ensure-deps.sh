#!/bin/sh
# Installs the Debian packages the builds need, or names them when we may not install.
set -eu

# clang with its sanitizer and libFuzzer runtimes (libclang-rt-dev) and llvm-symbolizer (llvm) are
# for the linux-sanitize build; python3 and chromium for the browser test of zorbsim's pages.
# widl (mingw-w64-tools) compiles the host's IDL with the system IDL files of libwine-dev.
# libffi-dev and pkg-config: the portable runtime calls members through libffi.
packages="cmake make g++ pkg-config libffi-dev googletest libgtest-dev libgmock-dev libbenchmark-dev
nlohmann-json3-dev libcli11-dev g++-mingw-w64-x86-64 mingw-w64-tools wine64 wine libwine-dev
clang libclang-rt-dev llvm python3 chromium"

missing=""
for p in $packages; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing="$missing $p"
done
[ -z "$missing" ] && exit 0

if [ "$(id -u)" -ne 0 ]; then
  echo "Missing Debian packages:$missing" >&2
  echo "Install them as root:  apt-get install$missing" >&2
  exit 1
fi

echo "Installing:$missing"
export DEBIAN_FRONTEND=noninteractive
apt-get update -qq
# shellcheck disable=SC2086
apt-get install -y -qq --no-install-recommends $missing >/dev/null
