#!/bin/sh
# SPDX-License-Identifier: GPL-3.0-or-later
# Accepts the reader's new golden files (*.errors.new, *.dump.new), which its test writes when they differ.
set -eu
folder=$(CDPATH='' cd -- "$(dirname -- "$0")/../tests/data/basic/reading" && pwd)
count=0
for new in "$folder"/*.new; do
    [ -f "$new" ] || continue
    mv -- "$new" "${new%.new}"
    echo "${new##*/}"
    count=$((count + 1))
done
echo "$count promoted; look at the difference before you commit it."
