// SPDX-License-Identifier: GPL-3.0-or-later
// What each system does in its own way to start a program: modLaunch_unix.cpp, modLaunch_windows.cpp.
#pragma once

#include <string>
#include <vector>

namespace ob {

enum class WindowMode { Normal, Minimized };

enum class StartEnd { Started, NotFound, Refused };

// A program, as a full path, and what it is started with.
struct ProgramCall {
    std::u16string program;
    std::vector<std::u16string> arguments;
};

// Both start in the current directory and wait for nothing. A command line is resolved as ResolveCommand does it, a
// program named without a folder also as the system looks for it.
StartEnd StartCommandLine(const std::u16string& commandLine, WindowMode mode);
StartEnd StartProgram(const ProgramCall& call);

} // namespace ob
