// SPDX-License-Identifier: GPL-3.0-or-later
// What the edit control's library exports, for those who load it at run time.
#pragma once

#include "editor/modSci.h"

class QWidget;

namespace ob {

struct SciLexerOB_Window {
    QWidget* window;  // the edit window, a child of the given parent, which deletes it
    cSciControl* sci; // its handle, valid as long as the window
};

inline constexpr char SciLexerOB_CreateName[] = "SciLexerOB_Create";

} // namespace ob

extern "C" {
using SciLexerOB_CreateFunction = ob::SciLexerOB_Window(QWidget* parent);
}
