#!/usr/bin/env bash
# Makes the packages that are given away, of the optimised presets, in out/packages: the Debian
# package, the Windows zip and the Windows installer; tries each as ./test does, and tells their
# checksums.
#   tools/make_packages.sh [native] [windows]     without words both
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
out=$PWD/out/packages
export LC_ALL=C.UTF-8

tools/packages.sh test
mkdir -p "$out"
[ $# -gt 0 ] || set -- native windows
for preset in "$@"; do
  case $preset in
    native | windows) ;;
    *) echo "usage: tools/make_packages.sh [native] [windows]" >&2; exit 2 ;;
  esac
  cmake --preset "$preset" -DBUILD_TESTING=OFF
  cmake --build --preset "$preset"
  "tests/packaging/${preset}_packages_test.py" "$PWD/build/$preset"
  cpack --config "build/$preset/CPackConfig.cmake" -B "$out"
  rm -rf "$out/_CPack_Packages"
done
cd "$out"
sha256sum -- *.deb *.zip *.exe 2>/dev/null | tee SHA256SUMS
