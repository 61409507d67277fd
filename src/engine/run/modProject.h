// SPDX-License-Identifier: GPL-3.0-or-later
// Files in and out of code windows: open, insert, save, save as, save with the included files merged in.
#pragma once

namespace ob {

void mnuFileOpenCode_Click();
void mnuFileInsert_Click();
void mnuFileProject_Click();
void mnuFileSave_Click();
void mnuFileSaveAs_Click();

} // namespace ob
