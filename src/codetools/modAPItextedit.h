// SPDX-License-Identifier: GPL-3.0-or-later
// The sample program that is a text editor made of API calls.
#pragma once

#include <QByteArray>

namespace ob {

// The program text, lines ending in CR LF.
QByteArray TextEditorCode();

// Puts it into a new code window.
void mnuToolTE_Click();

} // namespace ob
