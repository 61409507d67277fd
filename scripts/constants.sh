#!/usr/bin/env bash
# SPDX-License-Identifier: GPL-3.0-or-later
# Makes the table of the constants that programs name with a leading _: the names that the headers of the cross compiler
# (Debian: g++-mingw-w64-i686) define, with their values as the compiler works them out for 32 bits. A value has the sign
# of its type; a handle or pointer counts as signed. Only names and numbers are taken over.
# usage: constants.sh [FILE]      (src/orchard/library/constants.inc when left out)
set -euo pipefail
export LC_ALL=C
cd "$(dirname "$0")/.."
file=${1:-src/orchard/library/constants.inc}
compiler=i686-w64-mingw32-gcc
command -v "$compiler" >/dev/null || { echo "$compiler was not found. On Debian: apt-get install g++-mingw-w64-i686" >&2; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
flags=(-D_WIN32_WINNT=0x0A00 -DWINVER=0x0A00 -D_WIN32_IE=0x0A00 -DNTDDI_VERSION=0x0A000000 -w -std=gnu11)
headers=(winsock2 windows windowsx commctrl commdlg cderr dlgs prsht shellapi shlobj shlwapi mmsystem mmreg vfw digitalv richedit
         winspool winver wininet winsvc winioctl dde ddeml dbt imm lmcons lmerr ole2 oleauto psapi tlhelp32
         uxtheme vssym32 htmlhelp zmouse icm setupapi iphlpapi ras raserror mapi powrprof dwmapi wincrypt sapi)
for header in "${headers[@]}"; do
  printf '#include <%s.h>\n' "$header"
done >"$work/headers.c"

# Names of macros whose text can be a number, and of enumerations.
"$compiler" "${flags[@]}" -dM -E -xc /dev/null | awk '{ print $2 }' | sort >"$work/own"
"$compiler" "${flags[@]}" -dM -E "$work/headers.c" |
  awk '$2 ~ /^[A-Za-z][A-Za-z0-9_]*$/ && $2 ~ /[A-Z]/ && NF > 2 {
         name = $2; text = $0; sub(/^#define [^ ]+ /, "", text)
         if (text ~ /[{};"#]/ || gsub(/\(/, "(", text) != gsub(/\)/, ")", text)) next
         print name
       }' | sort -u | comm -23 - "$work/own" >"$work/names"
"$compiler" "${flags[@]}" -g -fno-eliminate-unused-debug-types -c "$work/headers.c" -o "$work/headers.o"
i686-w64-mingw32-objdump --dwarf=info "$work/headers.o" |
  awk '/DW_TAG_enumerator/ { wanted = 1; next } wanted && /DW_AT_name/ { print $NF; wanted = 0 }' |
  grep -E '^[A-Z][A-Z0-9]*_[A-Za-z0-9_]*$' >>"$work/names"
sort -u -o "$work/names" "$work/names"

# Each name in a routine of its own, whose assembly holds the value. What does not compile is no number, and is left out.
while true; do
  {
    cat "$work/headers.c"
    echo "#define NUMBER(x) ((long long)__builtin_choose_expr(IS(x, double) || IS(x, float), (void)0, (x)))"
    echo "#define IS(x, type) __builtin_types_compatible_p(__typeof__(x), type)"
    awk '{ printf "#line %d \"row\"\nconst long long value%d = NUMBER(%s); void row%d(void) { __asm__(\"@@%s %%c0 %%c1\" :: ", NR, NR, $1, NR, $1
           printf "\"i\"((int)NUMBER(%s)), \"i\"((int)(NUMBER(%s) >> 32))); }\n", $1, $1 }' "$work/names"
  } >"$work/rows.c"
  if "$compiler" "${flags[@]}" -fmax-errors=0 -O0 -S "$work/rows.c" -o "$work/rows.s" 2>"$work/errors"; then
    break
  fi
  grep -oE '^row:[0-9]+' "$work/errors" | cut -d: -f2 | sort -un >"$work/bad" || true
  [ -s "$work/bad" ] || { head "$work/errors" >&2; exit 1; }
  echo "$(wc -l <"$work/bad") of $(wc -l <"$work/names") names are no numbers" >&2
  awk 'NR == FNR { bad[$1] = 1; next } !(FNR in bad)' "$work/bad" "$work/names" >"$work/good"
  mv "$work/good" "$work/names"
done

{
  echo "// SPDX-License-Identifier: GPL-3.0-or-later"
  echo "// Names and values, sorted by name. Made by scripts/constants.sh; not to be edited."
  grep -oE '@@[A-Za-z0-9_]+ -?[0-9]+ -?[0-9]+$' "$work/rows.s" |
    awk '{ low = $2 < 0 ? $2 + 4294967296 : $2; name = substr($1, 3); value = $3 * 4294967296 + low
           # Beyond this a number has no exact value.
           if (value > 9007199254740992 || value < -9007199254740992) next
           printf "%s %s %.0f\n", toupper(name), name == toupper(name) ? 0 : 1, value }
         # A style that the bench lists and the headers lack: the button where it is without BS_RIGHTBUTTON.
         END { print "BS_LEFTBUTTON 0 0" }' |
    sort -k1,1 -k2,2n | awk '$1 != last { print $1, $3 } { last = $1 }' | sort |
    awk 'NR % 400 == 1 { if (NR > 1) print ")\""; print "R\"(" $0; next } { print } END { print ")\"" }'
} >"$file"
echo "$(grep -cE '^(R"\()?[A-Z]' "$file") names in $file"
