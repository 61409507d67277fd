// SPDX-License-Identifier: GPL-3.0-or-later
// The scan of a program's text for apparent assignments.
#pragma once

#include "scilexer/modSci.h"

#include <QByteArrayView>

#include <string_view>
#include <vector>

namespace ob {

// The text to the left of an equals sign, in the memory of the scanned text, and its line, from 0.
struct VariableEntry {
    QByteArrayView name;
    int line = 0;
};

// One entry for each equals sign that looks like an assignment, in text order; comparisons match as well. A sign in the
// first two places of a line, or right after another, ends its line. The text is UTF-8; lines end with CR LF, LF or CR,
// and the last line, which has no end, is scanned without its last two characters. A name may be empty.
std::vector<VariableEntry> ScanVariables(QByteArrayView text);

// Moves the caret to the line, from 0, scrolls the line to one below the top of the view, and gives the control the
// focus.
void GotoVariableLine(Sci sci, int line);

} // namespace ob
