// SPDX-License-Identifier: GPL-3.0-or-later
// A program under test: its input is a text, its output is kept, its clock shows what the test sets.
#pragma once

#include <deque>
#include <string>

#include "orchard/library/cHost.h"

namespace ob::basic {

class cScriptedConsole final : public cConsole {
public:
    explicit cScriptedConsole(std::string typed) : cConsole("\n"), input(std::move(typed)) {}

    // All that was printed so far.
    const std::string& Printed()
    {
        Flush();
        return printed;
    }

private:
    std::size_t Receive(std::span<char> room) override
    {
        const std::size_t count = input.copy(room.data(), room.size(), place);
        place += count;
        return count;
    }
    void Send(std::string_view bytes) override { printed += bytes; }

    std::string input;
    std::size_t place = 0;
    std::string printed;
};

// Boxes are answered from a list, in order; one that nothing answers needs a window.
class cScriptedHost final : public cHost {
public:
    explicit cScriptedHost(std::string typed = {}, StopQuestion isStopped = {})
        : cHost(std::move(isStopped)), console(std::move(typed))
    {
    }

    cScriptedConsole& Console() override { return console; }
    LocalTime Now() override { return now; }
    std::int64_t Milliseconds() override { return milliseconds; }
    void Sleep(std::int64_t time) override { milliseconds += time; }
    std::uint64_t RandomSeed() override { return 1; }
    std::string_view CommandLine() override { return commandLine; }

    void Notice(std::string_view text) override { (void)Answer("notice", text); }
    bool Confirm(std::string_view question) override { return Answer("confirm", question) == "yes"; }
    std::string Prompt(std::string_view question, std::string_view) override { return Answer("prompt", question); }
    void PrintOnPaper(std::string_view text) override { paper += text; }
    void SendToPrinter() override { paper += '\f'; }

    LocalTime now = {2026, 11, 21, 14, 5, 9, 42};
    std::int64_t milliseconds = 0;
    std::string commandLine;
    std::deque<std::string> answers;
    std::string asked; // a line for each box
    std::string paper; // what was printed, a form feed after each job

private:
    std::string Answer(std::string_view box, std::string_view text)
    {
        asked.append(box).append(": ").append(text).append("\n");
        if (answers.empty())
            throw WindowNeeded{std::string(box)};
        std::string answer = std::move(answers.front());
        answers.pop_front();
        return answer;
    }

    cScriptedConsole console;
};

} // namespace ob::basic
