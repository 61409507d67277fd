#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Writes the table of rooms between the marks in FILE anew: a row for each line of ROOMS, in that order, with the rooms
# that its core and its windows may link. What a room holds stays as FILE has it; a new room's cell is empty.
# usage: rooms-table.sh ROOMS FILE      (the build writes ROOMS: build/release/rooms.txt)
set -euo pipefail
rooms=$1
file=$2
begin='<!-- rooms: scripts/rooms-table.sh writes this table -->'
end='<!-- rooms: end -->'
grep -qxF -- "$begin" "$file" && grep -qxF -- "$end" "$file" || { echo "$file has no marks for the table" >&2; exit 1; }

new=$(mktemp)
trap 'rm -f "$new"' EXIT
awk -v rooms="$rooms" -v begin="$begin" -v end="$end" '
  function linked(names) { gsub(/ /, ", ", names); return names }
  NR == FNR {
    if (split($0, cell, / *\| */) > 3 && cell[2] ~ /^`/) holds[cell[2]] = cell[3]
    next
  }
  $0 == begin {
    print; print "| room | what it holds | its core may link | its windows may link too |"; print "|---|---|---|---|"
    while ((getline line < rooms) > 0) {
      split(line, part, "|")
      name = "`" part[1] "`"
      print "| " name " | " holds[name] " | " linked(part[2]) " | " linked(part[3]) " |"
    }
    skip = 1
  }
  $0 == end { skip = 0 }
  !skip { print }' "$file" "$file" >"$new"
cmp -s "$new" "$file" || cat "$new" >"$file"
