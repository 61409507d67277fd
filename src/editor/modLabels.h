// SPDX-License-Identifier: GPL-3.0-or-later
// The index of a program's branch labels, subs and functions.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <vector>

namespace ob {

struct LabelEntry {
    int line = 0;    // from 0
    QByteArray text; // the line without leading blanks and without its end, UTF-8
};

// The lines that begin, behind blanks, with "[" or, in any case, with "sub " or "function ", in text order. The last
// line loses its last two characters from the entry, as it has no line end that could be cut.
std::vector<LabelEntry> LabelIndex(QByteArrayView text);

} // namespace ob
