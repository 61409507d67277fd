#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Holds the layers: no core file includes a window or names one in its object code, the lexer and the imaging library
# know the standard library alone, and platform/ and imaging/ know no other folder.
# usage: layers.sh PROJECT LIBRARY...
set -euo pipefail
project=$1
shift
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
mapfile -t core < <(find platform shell editor engine guibuilder codetools imagetools \
  \( -name 'c[A-Z]*' -o -name 'C[A-Z]*' -o -name 'mod*' -o -name 'Module1*' \) \( -name '*.h' -o -name '*.cpp' \))
mapfile -t pure < <(find imaging scilexer -name '[cm]*.h' -o -name '[cm]*.cpp' | grep -E '/(c[A-Z]|mod)')
mapfile -t platform < <(find platform -name '*.h' -o -name '*.cpp')

fail "A core file includes a window or the window toolkit:" "$(grep -HnE \
  '#include *[<"](QtWidgets|QtPrintSupport|QPrint|QApplication|QWidget|QDialog|QMessageBox|QMainWindow|QMdi|QFileDialog|QInputDialog|QMenu|QToolBar|QLabel|QLineEdit|QPushButton|QComboBox)|#include *"([a-z]+/)?(frm|dlg)[A-Z]|#include *"ui_' \
  "${core[@]}" || true)"
[ ${#pure[@]} -eq 0 ] || fail "The lexer and the imaging library use the standard library alone:" \
  "$(grep -HnE '#include *<(Q|windows|X11)' "${pure[@]}" || true)"
fail "platform/ knows no other folder:" \
  "$(grep -HnE '#include *"(shell|editor|engine|guibuilder|codetools|imagetools|imaging|scilexer|obtool)/' "${platform[@]}" || true)"

# Every class of the window toolkit has its symbols in the library; a core that uses one names it.
widgets='(QWidget|QApplication|QDialog|QMessageBox|QMainWindow|QMdiArea|QMdiSubWindow|QFileDialog|QInputDialog|QMenu|QMenuBar|QToolBar|QLabel|QLineEdit|QTextEdit|QPlainTextEdit|QPushButton|QToolButton|QCheckBox|QComboBox|QListWidget|QTreeWidget|QTableWidget|QStatusBar|QLayout|QGridLayout|QBoxLayout|QPrinter|QsciScintillaBase|QStyle|QAbstractScrollArea|QScrollBar|QFrame|QGroupBox|QSpinBox|QSlider|QTabWidget|QColorDialog|QFontDialog|QSystemTrayIcon)'
for library in "$@"; do
  fail "$library names the window toolkit:" \
    "$(nm -C --undefined-only "$library" 2>/dev/null | grep -E " (vtable for |typeinfo for )?$widgets(::|\$)" | sort -u | head -n 20 || true)"
done
for library in "$@"; do
  case $library in
  *ob_lexer* | *ob_imaging*)
    fail "$library names a toolkit:" "$(nm -C --undefined-only "$library" | grep -E ' (Q[A-Z]|qt_)' | head -n 20 || true)"
    ;;
  esac
done

[ $failed -eq 0 ] && echo "The layers hold."
exit $failed
