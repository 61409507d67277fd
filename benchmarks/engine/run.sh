#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# The same programs in Orchard BASIC and in the languages of its peers: seconds of processor time, the best of three runs.
# Usage: run.sh ORCHARD, the engine's program. Peers that are not installed are left out.
set -eu
orchard=$(realpath "${1:?the path of orchard}")
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"

best() { # best COMMAND...: the least processor time of three runs
  for _ in 1 2 3; do
    { TIMEFORMAT='%U %S'; time "$@" >/dev/null; } 2>&1 | awk '{print $1 + $2}'
  done | sort -n | head -n 1
}

printf '%-10s %10s %10s %10s\n' program orchard lua5.4 python3
for program in "$here"/*.bas; do
  name=$(basename "$program" .bas)
  row=$(best "$orchard" --console "$program")
  for peer in "lua5.4 lua" "python3 py"; do
    read -r command ending <<<"$peer"
    if command -v "$command" >/dev/null && [ -f "$here/$name.$ending" ]; then
      row="$row $(best "$command" "$here/$name.$ending")"
    else
      row="$row -"
    fi
  done
  # shellcheck disable=SC2086
  printf '%-10s %10s %10s %10s\n' "$name" $row
done
