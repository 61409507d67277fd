#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The program on a real X server, with mouse and keyboard: open a file, click into it, type, save, run it with an
# engine, exit. And the pictures that it saves of itself.
# usage: desktop.sh BIN_FOLDER
set -euo pipefail
bin=$1
work=$(mktemp -d)
server= bench=
cleanup() {
  [ -z "$bench" ] || kill "$bench" 2>/dev/null || true
  [ -z "$server" ] || kill "$server" 2>/dev/null || true
  rm -rf "$work"
}
trap cleanup EXIT

fail() {
  echo "$1"
  exit 1
}
wait_for() { # SECONDS COMMAND...
  local tries=$(($1 * 10))
  shift
  until "$@"; do
    tries=$((tries - 1))
    [ $tries -gt 0 ] || return 1
    sleep 0.1
  done
}

exec 3<>"$work/display"
Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp >"$work/server.log" 2>&1 &
server=$!
wait_for 20 test -s "$work/display" || fail "the X server did not start"
export DISPLAY=:$(tr -d '\n' <"$work/display") QT_QPA_PLATFORM=xcb
export XDG_CONFIG_HOME=$work/config XDG_RUNTIME_DIR=$work LC_ALL=C.UTF-8
mkdir -p "$XDG_CONFIG_HOME"
cp "$bin/fake-engine" "$work/orchard.exe"
printf '[Settings]\nOBPath=%s\nShowTips=False\n' "$work/orchard.exe" >"$XDG_CONFIG_HOME/OB Bench.ini"
printf 'print 1\r\n' >"$work/game.bas"

"$bin/orchard-bench" "$work/game.bas" 2>"$work/bench.log" &
bench=$!
window=$(timeout 20 xdotool search --sync --onlyvisible --name 'Orchard Bench' | tail -n 1) || fail "no window appeared"
sleep 0.5
# Without a window manager nothing else gives the window the focus. The click is on the first line; Home goes to its start.
xdotool mousemove --window "$window" 150 93 click 1
sleep 0.5
xdotool key Home
# Combinations that are no command type nothing.
xdotool key ctrl+1 ctrl+minus ctrl+KP_Add alt+1 alt+z
xdotool type --delay 20 'cls:'
xdotool key ctrl+s
saved() { [ "$(od -An -c "$work/game.bas" | tr -d ' \n')" = 'cls:print1\r\n' ]; }
wait_for 10 saved || fail "the save did not hold what was typed: $(od -An -c "$work/game.bas")"
xdotool key F5
wait_for 10 test -e "$work/engine.call" || fail "the engine was not called"
grep -q 'game.BAK' "$work/engine.call" || fail "the engine was called with: $(cat "$work/engine.call")"
xdotool mousemove --window "$window" 150 93 click 1
xdotool key ctrl+F4
ended() { ! kill -0 "$bench" 2>/dev/null; }
wait_for 10 ended || fail "the program did not end"
wait "$bench" || fail "the program ended with status $?"
bench=
grep -q '^MainWidth=' "$XDG_CONFIG_HOME/OB Bench.ini" || fail "the settings were not stored"

# A picture has a size of its own, whatever the screen's.
size_of() { od -An -tu1 -j16 -N8 "$1" | awk '{ print $3 * 256 + $4 "x" $7 * 256 + $8 }'; }
export QT_QPA_PLATFORM=offscreen
"$bin/orchard-bench" --grab "$work/usual.png" "$work/game.bas" 2>/dev/null || fail "no picture was saved"
[ "$(size_of "$work/usual.png")" = 1280x800 ] || fail "the picture is $(size_of "$work/usual.png")"
"$bin/orchard-bench" --grab "$work/small.png" --size 700x500 2>/dev/null || fail "no small picture was saved"
[ "$(size_of "$work/small.png")" = 700x500 ] || fail "the small picture is $(size_of "$work/small.png")"
for wrong in 700 700x 0x500 700x500x2 big; do
  status=0
  "$bin/orchard-bench" --size "$wrong" 2>"$work/usage" || status=$?
  [ $status = 2 ] && grep -q usage "$work/usage" || fail "--size $wrong ended with $status"
done
echo "Opened, typed, saved, ran and ended on a real server."
