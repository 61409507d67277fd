// SPDX-License-Identifier: GPL-3.0-or-later
// The commands of the Edit menu on the active code window, and the actions that follow a key in it.
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

// Inserts the programmer's comments at the caret. Throws RuntimeError as ReadComments does.
void mnuEditInsertComments_Click();

// Asks for a line number and moves the caret there. A cancelled box counts as line 0, which is the first line.
void mnuLine_Click();

// After the Return key has broken a line: the new line takes the indentation of the one before, one step deeper after
// "if", "do", "while" and "for"; the label lists are rebuilt when the line before may contain a label. A Return that
// selected a word from the keyword list has broken no line, and yet the caret's line is indented.
void AddTab(cDocument& document);

// Lists the language's words for completion, with the characters before the caret as the start of the word.
void InsertKeyword(Sci sci);

// Shows the syntax of the selected word, or else of the word before the caret, as a tip; one that is too wide for the
// window begins at the start of the line. Clears the selection.
void ShowSyntax(cDocument& document);

// Hides the call tip after a scroll.
void HideSyntax(cDocument& document);

// Comments out the selected lines, or uncomments them. A single undo step.
void CommentSelection(Sci sci);

} // namespace ob
