// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that create, open, fill and close code windows.
#pragma once

#include <QString>

namespace ob {

void mnuFileNew_Click();
void mnuFileOpenCode_Click();
void mnuFileInsert_Click();
void mnuFileClose_Click();
void mnuFileExit_Click();

// A click on a recent item, from 1 to 8: opens its file, or reports that it cannot be found.
void mnuFileMRU_Click(int number);

// Opens a file in a new code window without changing the recent list.
void OpenRecentFile(const QString& path);

} // namespace ob
