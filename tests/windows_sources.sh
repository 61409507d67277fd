#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Holds what a system does in its own way to files of its own: X_windows.cpp has all that X_unix.cpp has, and
# compiles and links with a cross compiler, and no source asks the preprocessor for the system.
# usage: windows_sources.sh PROJECT LIBRARY...   (the libraries with the Unix halves); 77 without the cross compiler
set -euo pipefail
project=$1
shift
compiler=i686-w64-mingw32-g++
if ! command -v "$compiler" >/dev/null; then
  echo "$compiler was not found. On Debian: apt-get install g++-mingw-w64-i686"
  exit 77
fi
failed=0
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$project/src"

fail() { # TITLE LINES
  [ -z "$2" ] && return
  failed=1
  printf '%s\n%s\n' "$1" "$2"
}

# The image library is for Windows as a whole, and has a compiler of its own.
systems='(_?_?WIN(32|64|NT)?(__)?|__CYGWIN__|__MINGW[0-9A-Z_]*|_MSC_VER|Q_OS_[A-Z0-9]+|_?_?(linux|unix|APPLE|FreeBSD)(__)?)'
fail "A source asks the preprocessor for the system:" "$(
  grep -rnE "^\s*#\s*(if|ifdef|ifndef|elif|elifdef|elifndef)\b(.*[^A-Za-z0-9_])?$systems\b" . --include='*.cpp' --include='*.h' |
    grep -vE '^\./imagelibrary/' || true)"

mapfile -t sources < <(find . -name '*_windows.cpp' | sort)
[ ${#sources[@]} -ge 5 ] || { echo "Too few sources of Windows' own were found."; exit 1; }
fail "A half is missing:" "$(diff <(printf '%s\n' "${sources[@]%_windows.cpp}") \
  <(find . -name '*_unix.cpp' | sed 's/_unix\.cpp$//' | sort) || true)"

objects=()
for source in "${sources[@]}"; do
  object=$work/$(basename "$source" .cpp).o
  "$compiler" -std=c++20 -O1 -Wall -Wextra -Wconversion -Wshadow -Werror -I. -c "$source" -o "$object" || exit 1
  objects+=("$object")
done
printf '#include "platform/language/modSystem.h"\nstatic_assert(ob::ThisSystem == ob::System::Windows);\n' |
  "$compiler" -std=c++20 -Wall -Wextra -Werror -I. -fsyntax-only -x c++ - || failed=1
# All that the halves call is the system's, or theirs.
"$compiler" -shared -static -o "$work/windows.dll" "${objects[@]}" -ladvapi32 -lshell32 -luser32 || failed=1

# names NM FILE...: the project's routines that the object files define.
names() {
  "$1" -C --defined-only "${@:2}" | sed -nE 's/^[0-9a-f]+ T (ob::[A-Za-z0-9_:~]+)\(.*/\1/p' | sort -u
}
for source in "${sources[@]}"; do
  half=$(basename "$source" _windows.cpp)
  for library in "$@"; do
    if ar t "$library" | grep -qx "${half}_unix.cpp.o"; then
      ar p "$library" "${half}_unix.cpp.o" >"$work/${half}_unix.o"
    fi
  done
  [ -s "$work/${half}_unix.o" ] || { fail "No library has the other half of" "$source"; continue; }
  unix=$(names nm "$work/${half}_unix.o")
  fail "No routine was found in the other half of" "$([ -n "$unix" ] || echo "$source")"
  fail "$source lacks what its other half has:" \
    "$(comm -13 <(names i686-w64-mingw32-nm "$work/${half}_windows.o") <(echo "$unix"))"
done

[ $failed -eq 0 ] && echo "The halves of ${#sources[@]} sources are complete."
exit $failed
