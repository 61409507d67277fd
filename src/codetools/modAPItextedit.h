// SPDX-License-Identifier: GPL-3.0-or-later
// The sample program: a text editor built with API calls.
#pragma once

#include <QByteArray>

namespace ob {

// The program text, with lines ending in CR LF.
QByteArray TextEditorCode();

// Opens it in a new code window.
void mnuToolTE_Click();

} // namespace ob
