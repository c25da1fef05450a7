#!/usr/bin/env bash
# Installs the Debian packages that are missing, by name; says nothing when all are there.
#   tools/packages.sh build|desktop|test
# "build" is what the native programs need, "desktop" the desktop of ./run too, "test" all of it.
set -euo pipefail

build=(cmake ninja-build g++ pkg-config zlib1g-dev libcairo2-dev ccache)
desktop=("${build[@]}" g++-mingw-w64-x86-64-posix libz-mingw-w64-dev wine64 xvfb xdotool fonts-wine
  fonts-arphic-uming libxcursor1 libxi6 libxrandr2 libxrender1)
test=("${desktop[@]}" googletest clang clang-format clang-tidy libclang-rt-14-dev llvm python3 git
  imagemagick python3-ezdxf python3-gdal poppler-utils poppler-data netpbm dpkg-dev groff-base
  cmark-gfm nsis)
# Node runs readers that come from npm; whatever release is there will do.
command -v node >/dev/null && command -v npm >/dev/null || test+=(nodejs npm)

case ${1:-} in
  build) wanted=("${build[@]}") ;;
  desktop) wanted=("${desktop[@]}") ;;
  test) wanted=("${test[@]}") ;;
  *) echo "usage: tools/packages.sh build|desktop|test" >&2; exit 2 ;;
esac

missing=()
for package in "${wanted[@]}"; do
  state=$(dpkg-query -W -f='${Status}' "$package" 2>/dev/null || true)
  [ "$state" = "install ok installed" ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

echo "installing ${missing[*]}"
run=()
[ "$(id -u)" = 0 ] || run=(sudo)
log=$(mktemp)
if ! { "${run[@]}" apt-get update &&
       DEBIAN_FRONTEND=noninteractive "${run[@]}" apt-get install -y --no-install-recommends \
         "${missing[@]}"; } >"$log" 2>&1; then
  tail -20 "$log" >&2
  echo "packages.sh: these packages are needed and couldn't be installed: ${missing[*]}" >&2
  exit 1
fi
rm -f "$log"
