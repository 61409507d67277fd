// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the active code window under its name or another.
#pragma once

#include <QString>

namespace ob {

class cDocument;

// The box "Save As". Empty: nothing chosen.
QString AskSaveAs();

// The window has become the file's: Tag, status text and recent list after a save.
void AfterFileSave(cDocument& document);

void mnuFileSave_Click();
void mnuFileSaveAs_Click();

} // namespace ob
