// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's own programs: which one opens a file, the file manager, the calculator.
#pragma once

#include <QString>

#include <optional>

namespace ob {

// The command line, without a file, of the program that the desktop opens this file with. The file must exist. By the
// file's MIME type and the user's and the system's defaults; on Windows by the system. Nothing when there is none.
std::optional<QString> FindExecutable(const QString& path);

// The command lines of the desktop's file manager and of its calculator; nothing when there is none.
std::optional<QString> FileManagerCommand();
std::optional<QString> CalculatorCommand();

} // namespace ob
