#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Holds the rooms and the layers: a room includes only what its line in src/CMakeLists.txt names, no core file includes a
# window or names one in its object code, the lexer and the imaging library know the standard library alone, and the
# tables of rooms in the documents are those of the lines.
# usage: layers.sh PROJECT ROOMS LIBRARY...   (ROOMS has a line "room|rooms of the core|rooms of the windows" each)
set -euo pipefail
project=$1
rooms=$2
shift 2
failed=0

fail() { # TITLE LINES
  [ -z "$2" ] && return
  failed=1
  printf '%s\n%s\n' "$1" "$2"
}

cd "$project/src"
for library in "$@"; do
  nm "$library" >/dev/null 2>&1 || { echo "$library cannot be read"; exit 1; }
done

mapfile -t folders < <(cut -d'|' -f1 "$rooms")
[ ${#folders[@]} -gt 20 ] || { echo "$rooms lists too few rooms"; exit 1; }
mapfile -t sources < <(find "${folders[@]}" -maxdepth 1 -name '*.h' -o -maxdepth 1 -name '*.cpp' -o -maxdepth 1 -name '*.ui' | sort -u)
mapfile -t core < <(printf '%s\n' "${sources[@]}" | grep -E '/(c[A-Z]|C[A-Z]|mod|Module1)[^/]*\.(h|cpp)$')
mapfile -t pure < <(printf '%s\n' "${core[@]}" | grep -E '^(imaging|scilexer)/'
  find orchard/language orchard/machine orchard/library \( -name '*.h' -o -name '*.cpp' \) ! -name '*_windows.cpp')

fail "A room includes what its line does not name:" "$(
  grep -HnoE '#include *"[^"]+/[^"]+"|<header>[^<]+</header>' "${sources[@]}" | awk -F'|' -v rooms="$rooms" '
    BEGIN {
      while ((getline line < rooms) > 0) {
        split(line, part, "|")
        known[part[1]] = 1
        n = split(part[2], core, " "); for (i = 1; i <= n; i++) coreOf[part[1], core[i]] = 1
        n = split(part[3], windows, " "); for (i = 1; i <= n; i++) windowsOf[part[1], windows[i]] = 1
      }
    }
    {
      file = $0; sub(/:.*/, "", file)
      target = $0; sub(/^[^"<]*("|<header>)/, "", target); sub(/("|<\/header>).*/, "", target)
      room = file; sub(/\/[^\/]*$/, "", room); name = file; sub(/.*\//, "", name)
      other = target; sub(/\/[^\/]*$/, "", other); header = target; sub(/.*\//, "", header)
      if (room == other || (room == "scilexer" && name !~ /^mod/)) next
      fromWindow = name ~ /^(frm|dlg)[A-Z]/; toWindow = header ~ /^(frm|dlg)[A-Z]/
      allowed = toWindow ? fromWindow && (room, other) in windowsOf \
                         : (room, other) in coreOf || (fromWindow && (room, other) in windowsOf)
      if (!(other in known)) allowed = header ~ /_Api\.h$/
      if (!allowed) print $0
    }' || true)"

# The tables of rooms: the architecture's is the one that the script writes, the README's has a row for each.
written=$(mktemp)
trap 'rm -f "$written"' EXIT
cp "$project/docs/architecture.md" "$written"
"$project/scripts/rooms-table.sh" "$rooms" "$written" || failed=1
fail "docs/architecture.md has another table of rooms (scripts/rooms-table.sh $rooms docs/architecture.md):" \
  "$(diff "$project/docs/architecture.md" "$written" || true)"
fail "docs/architecture.md does not say what a room holds:" "$(grep -E '^\| `[^`]+` \|  *\|' "$written" || true)"
listed=$(grep -E '^\| `src/' "$project/README.md" | cut -d'|' -f2 | grep -oE '`[^`]+`' | tr -d '`' | sed 's|^src/||' | sort)
plugins=$(printf '%s\n' avicodecs imagelibrary mediaplayer obtool orchard)
fail "The README's table of folders lacks a room (<) or names one that is not there (>):" \
  "$(diff <(printf '%s\n' "${folders[@]}" $plugins | sort) <(printf '%s\n' "$listed") || true)"

fail "A core file includes a window or the window toolkit:" "$(grep -HnE \
  '#include *[<"](QtWidgets|QtPrintSupport|QPrint|QApplication|QWidget|QDialog|QMessageBox|QMainWindow|QMdi|QFileDialog|QInputDialog|QMenu|QToolBar|QLabel|QLineEdit|QPushButton|QComboBox)|#include *"([a-z]+/)*(frm|dlg)[A-Z]|#include *"ui_' \
  "${core[@]}" || true)"
fail "The lexer, the imaging library and the engine use the standard library alone:" \
  "$(grep -HnE '#include *<(Q|windows|X11)' "${pure[@]}" || true)"

# Every class of the window toolkit has its symbols in the library; a core that uses one names it.
widgets='(QWidget|QApplication|QDialog|QMessageBox|QMainWindow|QMdiArea|QMdiSubWindow|QFileDialog|QInputDialog|QMenu|QMenuBar|QToolBar|QLabel|QLineEdit|QTextEdit|QPlainTextEdit|QPushButton|QToolButton|QCheckBox|QComboBox|QListWidget|QTreeWidget|QTableWidget|QStatusBar|QLayout|QGridLayout|QBoxLayout|QPrinter|QsciScintillaBase|QStyle|QAbstractScrollArea|QScrollBar|QFrame|QGroupBox|QSpinBox|QSlider|QTabWidget|QColorDialog|QFontDialog|QSystemTrayIcon)'
for library in "$@"; do
  names=$(nm -C --undefined-only "$library" 2>/dev/null)
  fail "$library names the window toolkit:" \
    "$(grep -E " (vtable for |typeinfo for )?$widgets(::|\$)" <<<"$names" | sort -u | head -n 20 || true)"
  case $library in
  *ob_scilexer.* | *ob_imaging.* | *ob_basic.* | *ob_machine.* | *ob_library.*)
    fail "$library names a toolkit:" "$(grep -E ' (Q[A-Z]|qt_)' <<<"$names" | head -n 20 || true)"
    ;;
  esac
done

[ $failed -eq 0 ] && echo "The layers hold."
exit $failed
