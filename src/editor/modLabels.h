// SPDX-License-Identifier: GPL-3.0-or-later
// The index of a program's branch labels, subs and functions, and the ways through the text that start from it.
#pragma once

#include "scilexer/modSci.h"

#include <QByteArray>
#include <QByteArrayView>

#include <optional>
#include <vector>

namespace ob {

struct LabelEntry {
    int line = 0;    // from 0
    QByteArray text; // the line without leading blanks and without its end, UTF-8
};

// The lines that begin, behind blanks, with "[" or, in any case, with "sub " or "function ", in text order. The last
// line loses its last two characters from the entry, as it has no line end that could be cut.
std::vector<LabelEntry> LabelIndex(QByteArrayView text);

// The entries in the order of the sorted list: by the codes of their lower-case letters, equal ones as they stood.
std::vector<LabelEntry> SortedLabels(std::vector<LabelEntry> index);

// The first line, from 0, that is target when both lose the blanks at their ends, in any case; as in the index, the
// last line lacks its last two characters. A target with blanks behind it, and an empty one, is on no line.
std::optional<int> FindLabel(QByteArrayView text, QByteArrayView target);

// Puts the caret on the label's line and that line at the top of the view, as far as the text's end allows; a label
// that is not there changes nothing. The focus goes to the text in any case.
void GoToLabel(Sci sci, QByteArrayView target);

// The position where the selection starts, but never before the first character of the text.
std::intptr_t SelectionStartBehindFirst(Sci sci);

// What the text does when the label lists change places: the caret goes to the first visible line, and the line that
// the selection began in lies one line below the top, as far as the text's ends allow.
void FollowSortToggle(Sci sci);

} // namespace ob
