// SPDX-License-Identifier: GPL-3.0-or-later
// A program that runs on a host: what the rows of the library keep between statements.
#include "orchard/machine/cRun.h"

#include "orchard/library/modNumbers.h"
#include "orchard/library/modTexts.h"

#include <algorithm>
#include <cmath>

namespace ob::basic {

namespace {

struct ModeRow {
    std::string_view word;
    FileMode mode;
};

constexpr ModeRow Modes[] = {
    {"input", FileMode::Input},   {"output", FileMode::Output}, {"append", FileMode::Append},
    {"random", FileMode::Random}, {"binary", FileMode::Binary},
};

std::string_view WithoutSign(std::string_view handle)
{
    if (handle.starts_with('#'))
        handle.remove_prefix(1);
    return handle;
}

} // namespace

cRun::cRun(cHost& running) : host(running), random(running.RandomSeed()), output(&running.Console()) {}

cMachine::Ending cRun::Run(cMachine& machine)
{
    machine.SystemText(SystemVariable::CommandLine) = cText(host.CommandLine());
    machine.SystemText(SystemVariable::DefaultDir) = cText(host.DefaultFolder());
    machine.SystemText(SystemVariable::Platform) = cText(cHost::Platform());
    machine.SystemText(SystemVariable::Version) = cText(cHost::Version());
    machine.SystemText(SystemVariable::Drives) = cText(DriveNames());
    const cMachine::Ending ending = machine.Run();
    Finish();
    return ending;
}

void cRun::Finish()
{
    host.FlushAll();
    host.Files().CloseAll();
}

void cRun::LeaveStatement()
{
    EndPrint();
    EndInput();
    fieldsOf = nullptr;
}

void cRun::PrintTo(std::string_view handle)
{
    output = &FileOf(handle);
}

cRun::OpenFile& cRun::EntryOf(std::string_view handle)
{
    const auto found = files.find(WithoutSign(handle));
    if (found == files.end())
        Fail(ErrorNumber::NotOpen, "#" + std::string(WithoutSign(handle)));
    return found->second;
}

cFile& cRun::FileOf(std::string_view handle)
{
    return *EntryOf(handle).file;
}

void cRun::Open(std::string_view name, std::string_view type, std::string_view handle, double recordLength)
{
    const auto mode =
        std::ranges::find_if(Modes, [type](const ModeRow& row) { return CompareIgnoringCase(row.word, type) == 0; });
    if (mode == std::end(Modes))
        throw WindowNeeded{"open for " + std::string(type)};
    const std::string key(WithoutSign(handle));
    if (files.contains(key))
        Fail(ErrorNumber::AlreadyOpen, "#" + key);
    files[key].file = &host.Files().Open(name, mode->mode, recordLength);
}

void cRun::Close(std::string_view handle)
{
    const auto found = files.find(WithoutSign(handle));
    if (found == files.end())
        Fail(ErrorNumber::NotOpen, "#" + std::string(WithoutSign(handle)));
    cFile& file = *found->second.file;
    files.erase(found);
    host.Files().Close(file);
}

void cRun::Rename(std::string_view handle, std::string_view newHandle)
{
    const std::string key(WithoutSign(newHandle));
    EntryOf(handle);
    if (files.contains(key))
        Fail(ErrorNumber::AlreadyOpen, "#" + key);
    auto entry = files.extract(files.find(WithoutSign(handle)));
    entry.key() = key;
    files.insert(std::move(entry));
}

void cRun::AskFor(std::string_view text)
{
    inputFile = nullptr;
    prompt = text;
    question.reset();
}

void cRun::ReadFrom(std::string_view handle)
{
    inputFile = &FileOf(handle);
}

std::string_view cRun::NextItem()
{
    if (inputFile != nullptr)
        return inputFile->Item();
    if (!question)
        question.emplace(host.Console(), prompt);
    return question->Next();
}

std::string_view cRun::NextLine()
{
    return inputFile != nullptr ? inputFile->Line() : host.Console().Ask(prompt);
}

void cRun::EndInput()
{
    question.reset();
    inputFile = nullptr;
}

std::string_view cRun::WordOf(const cText& text, double number, std::string_view delimiter)
{
    constexpr std::size_t shortText = 256;
    if (text.Size() < shortText)
        return Word(text.View(), number, delimiter);
    // While the text is kept here, nothing else can be at its place.
    if (text.View().data() != splitText.View().data() || text.Size() != splitText.Size()) {
        splitText = text;
        words.Forget();
    }
    return words.Find(text.View(), number, delimiter);
}

std::string_view cRun::NextData(const MachineCode& code)
{
    if (nextData >= code.data.size())
        Fail(ErrorNumber::OutOfData);
    return code.data[nextData++];
}

void cRun::StartFields(std::string_view handle)
{
    fieldsOf = &EntryOf(handle);
    newFields.clear();
}

void cRun::AddField(double width, double reference, ValueType type)
{
    newFields.push_back({width, reference, type});
}

void cRun::EndFields()
{
    std::vector<double> widths;
    for (const Field& field : newFields)
        widths.push_back(field.width);
    fieldsOf->file->SetFields(widths);
    fieldsOf->fields = std::move(newFields);
    fieldsOf = nullptr;
}

void cRun::Put(cMachine& machine, std::string_view handle, double record)
{
    OpenFile& entry = EntryOf(handle);
    std::vector<std::string> numbers;
    numbers.reserve(entry.fields.size());
    std::vector<std::string_view> texts;
    for (const Field& field : entry.fields)
        texts.push_back(field.type == ValueType::Text
                            ? machine.TextAt(field.reference).View()
                            : std::string_view(numbers.emplace_back(NumberText(machine.NumberAt(field.reference)))));
    entry.file->Put(record, texts);
}

void cRun::Get(cMachine& machine, std::string_view handle, double record, Blanks blanks)
{
    OpenFile& entry = EntryOf(handle);
    const auto texts = entry.file->Get(record);
    for (std::size_t index = 0; index < entry.fields.size() && index < texts.size(); ++index) {
        const Field& field = entry.fields[index];
        const std::string_view text = blanks == Blanks::Trim ? Trim(texts[index]) : texts[index];
        if (field.type == ValueType::Text)
            machine.TextAt(field.reference) = cText(text);
        else
            machine.NumberAt(field.reference) = Val(text);
    }
}

void cRun::SetTimer(double milliseconds, double handler)
{
    timerInterval = milliseconds > 0 ? std::max(1.0, std::trunc(milliseconds)) : 0;
    timerHandler = handler;
    timerDue = host.Milliseconds() + static_cast<std::int64_t>(std::min(timerInterval, 1e15));
}

void cRun::HandleDueEvents()
{
    if (timerInterval == 0 || timerHandler == 0)
        return;
    const std::int64_t now = host.Milliseconds();
    if (now < timerDue)
        return;
    // Ticks that were missed are not made up for.
    timerDue =
        std::max(timerDue, now - static_cast<std::int64_t>(timerInterval)) + static_cast<std::int64_t>(timerInterval);
    throw EventRaised{timerHandler};
}

void cRun::WaitForEvent(const cMachine& machine)
{
    if (timerInterval == 0 || timerHandler == 0)
        throw ProgramEnded{};
    host.FlushAll();
    while (!machine.IsStopped()) {
        host.Sleep(timerDue - host.Milliseconds());
        HandleDueEvents();
    }
    throw ProgramStopped{};
}

} // namespace ob::basic
