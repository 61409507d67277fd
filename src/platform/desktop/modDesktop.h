// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's own programs: which one opens a file, the file manager, the calculator. Each system has its own way:
// modDesktop_unix.cpp, modDesktop_windows.cpp.
#pragma once

#include "platform/desktop/modLaunchSystem.h"

#include <optional>

namespace ob {

// The program with which the desktop opens this file, to be started without a file. The file must exist. Chosen by the
// file's MIME type and the user's and the system's defaults; on Windows by the system. Nothing when there is none.
std::optional<ProgramCall> FindExecutable(const std::u16string& path);

// The desktop's file manager and its calculator; nothing when there is none.
std::optional<ProgramCall> FileManager();
std::optional<ProgramCall> Calculator();

} // namespace ob
