#!/usr/bin/env bash
# Runs a command with everything that Windows programs need around them: a private Wine prefix
# (made at the first use), a virtual screen of a fixed size, fixed fonts and language.
#   tests/windows/session.sh COMMAND [ARGUMENT...]
# Several sessions may run side by side; the last one to end stops the prefix's Wine server.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
root=$(cd "$here/../.." && pwd)
home=${VORNIK_WINE_HOME:-$root/build/wine}

VORNIK_WINE=$(command -v wine64 || ls /usr/lib/wine/wine64 2>/dev/null || command -v wine) || {
  echo "session.sh: Wine is missing (Debian package wine64)" >&2
  exit 1
}
wineserver=$(command -v wineserver || echo /usr/lib/wine/wineserver64)
export VORNIK_WINE VORNIK_WINE_SESSION=1
export WINEPREFIX=$home/prefix WINEARCH=win64 WINEDEBUG=${WINEDEBUG:--all}
# Without the menu builder, what is installed there never shows up in a user's own menus.
export WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="
# Without a UTF-8 locale, names that aren't ASCII can't be opened.
export LC_ALL=C.UTF-8
unset WAYLAND_DISPLAY

# A prefix of its own, made once; the stamp carries the settings' checksum, so that a change of
# prefix.reg reaches prefixes that exist.
prepare_prefix() {
  local stamp
  stamp=$(cksum "$here/prefix.reg")
  [ "$(cat "$home/stamp" 2>/dev/null)" = "$stamp" ] && return
  echo "session.sh: making the Wine prefix (once)" >&2
  # wineboot needs no screen, and must not open windows on a user's.
  DISPLAY='' "$VORNIK_WINE" wineboot -i >"$home/prepare.log" 2>&1
  iconv -f UTF-8 -t UTF-16 "$here/prefix.reg" >"$home/prefix.reg"
  DISPLAY='' "$VORNIK_WINE" regedit /S "Z:$home/prefix.reg" >>"$home/prepare.log" 2>&1
  "$wineserver" -w
  echo "$stamp" >"$home/stamp"
}
mkdir -p "$home"
(flock 8; prepare_prefix) 8>"$home/lock"

# Every session holds a shared lock: who gets it alone was the last one.
screen= typist= pipe=
exec 7>"$home/users"
flock -s 7
finish() {
  if flock -n -x 7; then "$wineserver" -k 2>/dev/null || true; fi
  [ -z "$typist" ] || kill "$typist" 2>/dev/null || true
  [ -z "$pipe" ] || rm -f "$pipe"
  [ -z "$screen" ] || kill "$screen" 2>/dev/null || true
}
trap finish EXIT

# The server chooses a free display number and says so on the descriptor that it is given.
exec {ready}< <(exec Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp -noreset 2>/dev/null)
screen=$!
read -r -t 20 number <&"$ready" || { echo "session.sh: Xvfb doesn't start" >&2; exit 1; }
export DISPLAY=:$number
# Input from outside: the server's input tool reads lines that programs write into a pipe.
pipe=$home/input-$$
mkfifo "$pipe"
exec {feed}<>"$pipe"
xdotool - <&"$feed" >/dev/null 2>&1 7>&- &
typist=$!
export VORNIK_INPUT="Z:${pipe//\//\\}"
# Wine's services and its desktop start with the first program and would keep that program's output
# open after its end: a program without output starts them (taskkill looks at all windows). The
# server says 2 when another session's one runs already.
"$wineserver" -p 7>&- || [ $? = 2 ]
"$VORNIK_WINE" taskkill /im none.exe </dev/null >/dev/null 2>&1 7>&- {ready}<&- || true

"$@" 7>&- {ready}<&- {feed}<&-
