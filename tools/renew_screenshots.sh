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

# The desktop with a chain of circuits that was clicked together, and of it the library window. The
# library is told where its window stands.
desktop() {
  local tree="$folder/library/Datcom/zhllib/zhllib.qdp" nodes
  "$vornik" sample "$folder/library" 2>/dev/null
  nodes=$(sed -n 's/^end //p' "$tree")
  sed -i '/^end /d' "$tree"
  printf '%s\n' 'ZhlViewDate' 'ZhlViewDate\x'$'\t''500' 'ZhlViewDate\y'$'\t''520' \
    'ZhlViewDate\宽度'$'\t''760' 'ZhlViewDate\高度'$'\t''405' "end $((nodes + 5))" >>"$tree"
  tests/windows/session.sh "$0" --click-together "$folder"
  shrunk "$folder/desktop.png" "$docs/guide/desktop.png" 32
  convert "$folder/desktop.png" -crop 760x405+500+520 +repage "$folder/library.png"
  shrunk "$folder/library.png" "$docs/library_window.png" 32
}

# What `desktop` runs on the virtual screen.
click_together() {
  local place
  tests/windows/wine.sh "$windows/drafting.exe" --install "$1/library" >/dev/null 2>&1 &
  local program=$!
  sleep 4
  xdotool mousemove 300 300
  xdotool type --delay 20 'ZOOM W -30,-304 450,20 '
  sleep 1
  xdotool key F6
  sleep 2
  xdotool type --delay 20 '0,0 '
  for place in '560 600' '650 600' '760 600' '560 720' '760 720' '1180 592'; do
    sleep 1
    # shellcheck disable=SC2086
    xdotool mousemove $place click 1
  done
  xdotool mousemove 250 700
  sleep 1
  import -window root "$1/desktop.png"
  kill "$program"
}
if [ "${1:-}" = --click-together ]; then
  click_together "$2"
  exit
fi

build() {
  cmake --preset "$1" >/dev/null
  cmake --build --preset "$1" --target "${@:2}"
}

mkdir -p "$docs/guide"
build native vornik
build windows-test editor_window_test drafting Vornikplan10
plots
editor
desktop
