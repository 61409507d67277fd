// SPDX-License-Identifier: GPL-3.0-or-later
// Saving a program with its included files merged in.
#pragma once

namespace ob {

void mnuFileProject_Click();

} // namespace ob
