#!/usr/bin/env bash
# Installs the Debian packages that the build and the tests need, when missing.
# Usage: scripts/deps.sh [linux|windows|all|bench]   (default: all)
# bench: the Linux packages plus the optional peer libraries that the
# benchmarks measure alongside the library (never needed to build or test).
set -euo pipefail
want=${1:-all}
# graphviz draws the examples' graphs of the main loop's works; doxygen makes the API reference.
pkgs=(cmake ninja-build g++ pkg-config libgtest-dev libgmock-dev libbenchmark-dev clang libclang-rt-14-dev valgrind graphviz doxygen)
case "$want" in
  linux) ;;
  bench) pkgs+=(libboost-dev libboost-serialization-dev libcereal-dev libsigc++-3.0-dev libutfcpp-dev libfmt-dev
                libfast-float-dev libicu-dev) ;;
  *) pkgs+=(mingw-w64 wine64 wine) ;;
esac

missing=()
for p in "${pkgs[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "deps: installing ${missing[*]}"
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
