// SPDX-License-Identifier: GPL-3.0-or-later
// What each system does in its own way to start a program: modLaunch_unix.cpp, modLaunch_windows.cpp.
#pragma once

#include <string>
#include <vector>

namespace ob {

enum class WindowMode { Normal, Minimized };

enum class StartEnd { Started, NotFound, Refused };

// A program, as a full path, and its arguments.
struct ProgramCall {
    std::u16string program;
    std::vector<std::u16string> arguments;
};

// Both start in the current directory and do not wait. A command line is resolved by ResolveCommand; a program named
// without a folder is searched for as the system does.
StartEnd StartCommandLine(const std::u16string& commandLine, WindowMode mode);
StartEnd StartProgram(const ProgramCall& call);

} // namespace ob
