// SPDX-License-Identifier: GPL-3.0-or-later
// A program on the standard streams: print writes to one, input reads the other, and there are no windows.
#pragma once

#include <string>

#include "orchard/library/cDiskFile.h"
#include "orchard/library/cHost.h"

namespace ob::basic {

// All bytes pass unchanged. What is printed to a terminal is seen at once.
class cTextConsole final : public cConsole {
public:
    explicit cTextConsole(StopQuestion question);

private:
    std::size_t Receive(std::span<char> room) override;
    void Send(std::string_view bytes) override;

    StopQuestion isStopped;
    cDiskFile input;
    cDiskFile output;
    std::int64_t inputPlace = 0;
};

class cTextHost final : public cHost {
public:
    explicit cTextHost(StopQuestion isStopped = {}, std::string arguments = {})
        : cHost(isStopped), console(isStopped), commandLine(std::move(arguments))
    {
    }

    cConsole& Console() override { return console; }
    std::string_view CommandLine() override { return commandLine; }

private:
    cTextConsole console;
    std::string commandLine;
};

} // namespace ob::basic
