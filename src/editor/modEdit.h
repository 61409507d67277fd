// SPDX-License-Identifier: GPL-3.0-or-later
// The editing commands that the control does by itself, and the helpers that follow a key in it.
#pragma once

namespace ob {

class cDocument;

void mnuEditUndo_Click();
void mnuEditRedo_Click();
void mnuEditCut_Click();
void mnuEditCopy_Click();
void mnuEditPaste_Click();
void mnuEditSelectAll_Click();
void mnuEditDelete_Click();
void mnuEditClear_Click();

// Asks for a line number and puts the caret there. A cancelled box counts as line 0, which is the first line.
void mnuLine_Click();

// After the Return key has broken a line: the new line takes the indentation of the one before, one step more behind
// "if", "do", "while" and "for"; the label lists are filled anew when the line before may hold a label.
void AddTab(cDocument& document);

// After a scroll: the call tip goes.
void HideSyntax(cDocument& document);

} // namespace ob
