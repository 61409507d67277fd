#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Accepts the lexer's new golden files (*.styled.new, *.folded.new), which the lexer's test writes when they differ.
set -eu
folder=$(CDPATH='' cd -- "$(dirname -- "$0")/../tests/data/lexer" && pwd)
count=0
for new in "$folder"/*.styled.new "$folder"/*.folded.new; do
    [ -f "$new" ] || continue
    mv -- "$new" "${new%.new}"
    echo "${new##*/}"
    count=$((count + 1))
done
echo "$count promoted; look at the difference before you commit it."
