// SPDX-License-Identifier: GPL-3.0-or-later
// The index of a program's branch labels, subs and functions, and the jumps that use it.
#pragma once

#include "scilexer/modSci.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <vector>

namespace ob {

struct LabelEntry {
    int line = 0;    // from 0
    QByteArray text; // the line without leading spaces and without its end, UTF-8
};

// The lines that begin, after spaces, with "[" or, in any case, with "sub " or "function ", in text order. The entry of
// the last line lacks its last two characters, as there is no line end to remove.
std::vector<LabelEntry> LabelIndex(QByteArrayView text);

// The entries in the order of the sorted list: by the codes of their lower-case characters, equal ones in text order.
std::vector<LabelEntry> SortedLabels(std::vector<LabelEntry> index);

// The first line, from 0, that equals target when both are stripped of spaces at their ends, in any case; as in the
// index, the last line lacks its last two characters. A target that is empty or has trailing spaces matches no line.
std::optional<int> FindLabel(QByteArrayView text, QByteArrayView target);

// Moves the caret to the label's line and scrolls that line to the top of the view, as far as the end of the text
// allows; an unknown label changes nothing. The text gets the focus in any case.
void GoToLabel(Sci sci, QByteArrayView target);

// The start of the selection, but never before the first character of the text.
std::intptr_t SelectionStartAfterFirst(Sci sci);

// Adjusts the view when the label lists are exchanged: the caret goes to the first visible line, and the line where the
// selection began moves to one line below the top, as far as the ends of the text allow.
void FollowSortToggle(Sci sci);

} // namespace ob
