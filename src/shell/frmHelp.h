// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own help: a window over the manual's pages.
#pragma once

#include <QString>

namespace ob {

// Opens the manual, made on first use, at a page ("preferences"); the empty name is the contents page.
void ShowManual(const QString& page);

} // namespace ob
