// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the active code window under its name or another.
#pragma once

#include <QString>

namespace ob {

// The status after a save begins with it; it is true until the text changes.
inline const QString SavedStatus = QStringLiteral("File saved as ");

class cDocument;

// The box "Save As". Empty: nothing was chosen.
QString AskSaveAs();

// Updates the Tag, the status text and the recent list after a save: the window now belongs to the file.
void AfterFileSave(cDocument& document);

void mnuFileSave_Click();
void mnuFileSaveAs_Click();

} // namespace ob
