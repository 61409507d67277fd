// SPDX-License-Identifier: GPL-3.0-or-later
// The console on the standard streams.
#include "orchard/library/cTextHost.h"

#include <filesystem>

namespace ob::basic {

namespace {

constexpr std::string_view systemLineEnd = std::filesystem::path::preferred_separator == '\\' ? "\r\n" : "\n";

} // namespace

cTextConsole::cTextConsole(StopQuestion question)
    : cConsole(systemLineEnd), isStopped(std::move(question)), input(StandardStream::Input),
      output(StandardStream::Output)
{
    if (output.IsTerminal())
        SetPromptness(Promptness::AtOnce);
}

std::size_t cTextConsole::Receive(std::span<char> room)
{
    constexpr int patience = 50;
    while (!input.WaitForInput(patience))
        if (isStopped && isStopped())
            throw ProgramStopped();
    std::size_t count = 0;
    if (const std::error_code error = input.Read(inputPlace, room, count))
        Fail(NumberOfError(error), "standard input");
    inputPlace += static_cast<std::int64_t>(count);
    return count;
}

void cTextConsole::Send(std::string_view bytes)
{
    if (const std::error_code error = output.Write(0, bytes))
        Fail(NumberOfError(error), "standard output");
}

} // namespace ob::basic
