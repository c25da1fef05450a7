#!/usr/bin/env bash
# Makes the pictures of docs/ anew: plots and the sheet natively, windows on the tests' virtual
# screen. Needs Debian's pngquant.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
vornik=$PWD/build/native/bin/vornik
windows=$PWD/build/windows-test/bin
docs=$PWD/docs
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

# shrunk PICTURE TARGET COLOURS: small enough to be carried along in the repository.
shrunk() {
  pngquant --force --speed 1 --strip --output "$2" "$3" "$1"
  local size
  size=$(stat -c %s "$2")
  echo "${2#"$docs/"}: $size bytes"
  [ "$size" -lt 150000 ] || { echo "renew_screenshots.sh: $2 is too large" >&2; exit 1; }
}

plots() {
  "$vornik" sample "$folder/install" 2>/dev/null
  "$vornik" run --install "$folder/install" --output "$folder/row.dwg" samples/main_circuits.scr \
    >/dev/null
  "$vornik" plot "$folder/row.dwg" --output "$folder/row.png" --window -25,-150,345,10 --width 1500
  shrunk "$folder/row.png" "$docs/main_circuits.png" 32
  "$vornik" library sheet "$folder/sheet.png" --install "$folder/install" --width 1400
  shrunk "$folder/sheet.png" "$docs/guide/sheet.png" 16
}

# The editor's own test leaves a picture of it.
editor() {
  tests/windows/wine.sh "$windows/editor_window_test.exe" --gtest_brief=1 \
    --gtest_filter='EditingDialog.CircuitIsBuiltWithTheMouse'
  convert out/built_circuit.bmp -alpha off "$folder/editor.png"
  shrunk "$folder/editor.png" "$docs/guide/editor.png" 64
}

build() {
  cmake --preset "$1" >/dev/null
  cmake --build --preset "$1" --target "${@:2}"
}

mkdir -p "$docs/guide"
build native vornik
build windows-test editor_window_test
plots
editor
