// SPDX-License-Identifier: GPL-3.0-or-later
// What the edit control's plugin gives to the program that loads it.
#pragma once

#include "scilexer/modSci.h"

class QWidget;

namespace ob {

// One edit control. Both point to the same object, which belongs to its parent; `sci` dies with `window`.
struct SciLexerOB_Window {
    QWidget* window = nullptr;
    cSciControl* sci = nullptr;
};

// The plugin's one function: makes a control as child of `parent`.
using SciLexerOB_CreateFunction = SciLexerOB_Window(QWidget* parent);
inline constexpr char SciLexerOB_CreateName[] = "SciLexerOB_Create";

// Messages of the control's own.
enum SciLexerOB_Message : unsigned {
    // How many lines the lexer has gone over since the control was made: for tests and measurements.
    SCI_OB_COUNTLEXEDLINES = 5001,
};

} // namespace ob
