// SPDX-License-Identifier: GPL-3.0-or-later
// The Window menu: arranging the children, and the list of them.
#pragma once

namespace ob {

class frmMain;

void mnuWindowCascade_Click();
void mnuWindowTileHorizontal_Click();
void mnuWindowTileVertical_Click();
void mnuWindowArrangeIcons_Click();

// Makes the Window menu list the children each time it opens.
void KeepWindowList(frmMain& frame);

} // namespace ob
