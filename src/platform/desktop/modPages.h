// SPDX-License-Identifier: GPL-3.0-or-later
// Pages and help files, opened with the desktop's own program.
#pragma once

#include <QString>

namespace ob {

enum class PageEnd { Opened, Failed };

// Opens the address in the desktop's browser. Needs the application object.
PageEnd OpenPage(const QString& address);

// Opens a file with the desktop's program for it. A missing file fails.
PageEnd OpenFileWithSystem(const QString& path);

} // namespace ob
