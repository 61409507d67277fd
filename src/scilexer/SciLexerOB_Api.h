// SPDX-License-Identifier: GPL-3.0-or-later
// What the plugin of the edit control offers to the program.
#pragma once

#include "scilexer/modSci.h"

class QWidget;

namespace ob {

// One edit control. Both pointers lead to the same object, which belongs to its parent; `sci` dies with `window`.
struct SciLexerOB_Window {
    QWidget* window = nullptr;
    cSciControl* sci = nullptr;
};

// The plugin's only function: creates a control as a child of `parent`.
using SciLexerOB_CreateFunction = SciLexerOB_Window(QWidget* parent);
inline constexpr char SciLexerOB_CreateName[] = "SciLexerOB_Create";

// Messages of the control's own.
enum SciLexerOB_Message : unsigned {
    // The number of lines lexed since the control was created: for tests and benchmarks.
    SCI_OB_COUNTLEXEDLINES = 5001,
};

} // namespace ob
