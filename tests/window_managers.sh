#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The test of the keyboard's place after boxes, on a real X server with each of two window managers.
# usage: window_managers.sh BIN_FOLDER
set -euo pipefail
bin=$1
work=$(mktemp -d)
server= manager=
stop() {
  # The session of a manager that has one ends with it.
  [ ! -s "$work/manager" ] || kill "$(cat "$work/manager")" 2>/dev/null || true
  [ -z "$manager" ] || wait "$manager" 2>/dev/null || true
  [ -z "$server" ] || kill "$server" 2>/dev/null || true
  wait 2>/dev/null || true
  rm -f "$work/manager"
  server= manager=
}
cleanup() {
  stop
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
is_managed() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id'; }

declare -A options=([openbox]= [xfwm4]=--compositor=off)
export NO_AT_BRIDGE=1 GTK_A11Y=none QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8
export XDG_RUNTIME_DIR=$work XDG_CONFIG_HOME=$work/config XDG_CACHE_HOME=$work/cache
mkdir -p "$XDG_CONFIG_HOME"
for name in openbox xfwm4; do
  : >"$work/display"
  exec 3<>"$work/display"
  Xvfb -displayfd 3 -screen 0 1600x1200x24 -nolisten tcp >"$work/server.log" 2>&1 &
  server=$!
  wait_for 20 test -s "$work/display" || fail "the X server did not start"
  DISPLAY=:$(tr -d '\n' <"$work/display")
  export DISPLAY
  command=(sh -c "echo \$\$ >'$work/manager'; exec $name ${options[$name]}")
  # This one keeps its settings in a service of a session bus.
  [ $name != xfwm4 ] || command=(dbus-run-session -- "${command[@]}")
  "${command[@]}" >"$work/manager.log" 2>&1 &
  manager=$!
  wait_for 20 is_managed || fail "$name did not start: $(cat "$work/manager.log")"
  echo "== $name"
  "$bin/win_focus" || fail "under $name"
  stop
done
