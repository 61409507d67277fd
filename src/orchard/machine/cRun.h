// SPDX-License-Identifier: GPL-3.0-or-later
// A program that runs on a host: what the rows of the library keep between statements.
#pragma once

#include "orchard/library/cHost.h"
#include "orchard/library/cRandom.h"
#include "orchard/library/cWordFinder.h"
#include "orchard/machine/cMachine.h"
#include "orchard/machine/cStructs.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ob::basic {

class cRun final : public cRowContext {
public:
    explicit cRun(cHost& running);

    // Sets the variables of the system, and runs the program to its end. Files are closed afterwards. Throws what
    // cMachine::Run throws, and WindowNeeded.
    cMachine::Ending Run(cMachine& machine);

    // Sends what waits, and closes the files. Throws cProgramError when that fails.
    void Finish();

    void LeaveStatement() override;

    cOutput& Output() { return *output; }
    void PrintTo(std::string_view handle);
    void EndPrint() { output = &host.Console(); }

    // The file of a handle, with or without its #; NotOpen when there is none.
    cFile& FileOf(std::string_view handle);
    void Open(std::string_view name, std::string_view type, std::string_view handle, double recordLength);
    void Close(std::string_view handle);
    void Rename(std::string_view handle, std::string_view newHandle);

    // The next item of the statement, from the console or a file.
    void AskFor(std::string_view prompt);
    void ReadFrom(std::string_view handle);
    std::string_view NextItem();
    std::string_view NextLine();
    void EndInput();

    // word$ of a text, which is kept as long as the next word of it may be asked for.
    std::string_view WordOf(const cText& text, double number, std::string_view delimiter);

    std::string_view NextData(const MachineCode& code);
    void RestoreData(double item) { nextData = item > 0 ? static_cast<std::size_t>(item) : 0; }

    // The fields of a file's records: widths, and the variables they are in.
    void StartFields(std::string_view handle);
    void AddField(double width, double reference, ValueType type);
    void EndFields();
    void Put(cMachine& machine, std::string_view handle, double record);
    enum class Blanks { Keep, Trim };
    void Get(cMachine& machine, std::string_view handle, double record, Blanks blanks);

    cStructs& Structs(const MachineCode& code)
    {
        if (!structs)
            structs.emplace(code);
        return *structs;
    }

    void SetTimer(double milliseconds, double handler);
    // Throws EventRaised when the timer's time has come.
    void HandleDueEvents();
    // Throws EventRaised when it comes, ProgramEnded when nothing can, ProgramStopped when the machine is to stop.
    void WaitForEvent(const cMachine& machine);

    cHost& host;
    cRandom random;

private:
    struct Field {
        double width = 0;
        double reference = 0;
        ValueType type = ValueType::None;
    };
    struct OpenFile {
        cFile* file = nullptr;
        std::vector<Field> fields;
    };

    OpenFile& EntryOf(std::string_view handle);

    std::map<std::string, OpenFile, std::less<>> files;
    cOutput* output;
    cFile* inputFile = nullptr; // null for the console
    std::string prompt;
    std::optional<cQuestion> question;
    OpenFile* fieldsOf = nullptr;
    std::vector<Field> newFields;
    std::optional<cStructs> structs;
    cText splitText;
    cWordFinder words;
    std::size_t nextData = 0;
    double timerInterval = 0;
    double timerHandler = 0;
    std::int64_t timerDue = 0;
};

} // namespace ob::basic
