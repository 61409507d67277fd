// SPDX-License-Identifier: GPL-3.0-or-later
// The world as a running program meets it: console, files, clock, printer, desktop and windows.
//
// A host for each place where programs run: text on the standard streams, a window, a script in a test.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orchard/library/cConsole.h"
#include "orchard/library/cFiles.h"
#include "orchard/library/modDates.h"

namespace ob::basic {

// Thrown where a program reaches what only a host with windows has. What it printed stays.
struct WindowNeeded {
    std::string what;
};

class cHost {
public:
    explicit cHost(StopQuestion isStopped = {}) : files(std::move(isStopped)) {}
    virtual ~cHost() = default;

    virtual cConsole& Console() = 0;
    cFiles& Files() { return files; }

    // What waits in the console and in files goes out; before the program waits, starts another one or calls a library.
    void FlushAll();

    virtual LocalTime Now();
    // Counts from any point in time, for timers.
    virtual std::int64_t Milliseconds();
    // Returns early when the program is stopped.
    virtual void Sleep(std::int64_t milliseconds);
    // For the numbers of a program that does not choose its own with randomize.
    virtual std::uint64_t RandomSeed();

    // What follows a token file's name.
    virtual std::string_view CommandLine() { return {}; }
    std::string DefaultFolder() const { return files.CurrentFolder(); }
    static std::string_view Platform();
    static std::string_view Version() { return "4.0"; }

    // Boxes, the printer, the desktop. The answer of Confirm is yes.
    virtual void Notice(std::string_view text);
    virtual bool Confirm(std::string_view question);
    virtual std::string Prompt(std::string_view question, std::string_view answer);
    virtual void PrintOnPaper(std::string_view text);
    virtual void SendToPrinter();
    virtual void OpenOnDesktop(std::string_view file, std::string_view mode);

protected:
    // Asked while the host waits.
    bool IsStopped() const { return files.IsStopped(); }

private:
    cFiles files;
};

} // namespace ob::basic
