// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the Edit menu on the active code window, and the helpers that follow a key in it.
#pragma once

#include "scilexer/modSci.h"

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
void mnuEditInsert_Click();
void mnuEditSyntax_Click();
void mnuEditComment_Click();

// The programmer's comments at the caret. Throws RuntimeError as ReadComments does.
void mnuEditInsertComments_Click();

// Asks for a line number and puts the caret there. A cancelled box counts as line 0, which is the first line.
void mnuLine_Click();

// After the Return key has broken a line: the new line takes the indentation of the one before, one step more behind
// "if", "do", "while" and "for"; the label lists are filled anew when the line before may hold a label. A Return that
// chose from the keyword list has broken no line, and the caret's line is indented all the same.
void AddTab(cDocument& document);

// The language's words as a list to choose from, with what stands before the caret as the word's beginning.
void InsertKeyword(Sci sci);

// The syntax of the selected word, or else of the word before the caret, as a tip; one that is too wide for the window
// starts at the line's start. The selection goes.
void ShowSyntax(cDocument& document);

// After a scroll: the call tip goes.
void HideSyntax(cDocument& document);

// Comments out the selected lines, or takes that back. One step of Undo.
void CommentSelection(Sci sci);

} // namespace ob
