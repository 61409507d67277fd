// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a program: frames, references, errors.
#include "orchard/machine/cMachine.h"

#include <algorithm>
#include <bit>
#include <new>

namespace ob::basic {

namespace {

constexpr std::size_t FirstRegisters = 4096;
constexpr std::size_t FirstFrames = 64;

} // namespace

cMachine::cMachine(const MachineCode& checked, std::span<const LibraryRow> rows)
    : program(checked), library(rows), globals(checked.globalNumbers), globalTexts(checked.globalTexts),
      numberArrays(checked.numberArrays), textArrays(checked.textArrays)
{
    for (const std::string& text : program.texts)
        literals.push_back(cText::Literal(text));
    frames.reserve(FirstFrames);
}

cMachine::~cMachine() = default;

cMachine::Ending cMachine::Run()
{
    Enter(program.routines.front(), 0, 0, nullptr);
    current = program.instructions.data() + program.routines.front().start;
    // A handler that raises its own error again goes round here.
    while (!IsStopped()) {
        try {
            return Loop();
        } catch (const RunError& error) {
            if (!Handle(error))
                throw lastError;
        } catch (const std::bad_alloc&) {
            if (!Handle(run_errors::OutOfMemory()))
                throw lastError;
        }
    }
    return Ending::Stopped;
}

void cMachine::Grow(std::size_t numberCount, std::size_t textCount)
{
    if (numberCount > numbers.size())
        numbers.resize(std::max({numberCount, numbers.size() * 2, FirstRegisters}));
    if (textCount > texts.size())
        texts.resize(std::max({textCount, texts.size() * 2, FirstRegisters}));
}

const StatementPlace& cMachine::StatementAt(const Instruction* instruction) const
{
    const auto place = static_cast<std::uint32_t>(instruction - program.instructions.data());
    const auto after = std::ranges::upper_bound(program.statements, place, {}, &StatementPlace::instruction);
    return *std::prev(after);
}

// The nearest routine with a handler takes the error; those that it called are left.
bool cMachine::Handle(const RunError& error)
{
    lastError = error;
    lastError.line = StatementAt(current).line;
    const Instruction* raised = current;
    while (frames.back().handler == nullptr) {
        if (frames.size() == 1)
            return false;
        raised = frames.back().next - 1;
        Leave();
    }
    resumeAt = program.instructions.data() + StatementAt(raised).instruction;
    current = frames.back().handler;
    return true;
}

void cMachine::DoResume()
{
    if (resumeAt == nullptr)
        throw run_errors::ResumeWithoutError();
    const auto place = static_cast<std::uint32_t>(resumeAt - program.instructions.data());
    const MachineRoutine& routine = *frames.back().routine;
    if (place < routine.start || place >= routine.end)
        throw run_errors::ResumeWithoutError();
    current = std::exchange(resumeAt, nullptr);
}

double cMachine::Packed(const Reference& reference)
{
    return std::bit_cast<double>(reference.place << 18 | std::uint64_t{reference.array} << 2 |
                                 static_cast<std::uint64_t>(reference.kind));
}

cMachine::Reference cMachine::Unpacked(double packed)
{
    const auto bits = std::bit_cast<std::uint64_t>(packed);
    return {static_cast<Reference::Kind>(bits & 3), static_cast<std::uint16_t>(bits >> 2 & 0xFFFF), bits >> 18};
}

double& cMachine::NumberAt(double packed)
{
    const Reference reference = Unpacked(packed);
    if (reference.kind == Reference::Kind::Register && reference.place < numbers.size())
        return numbers[reference.place];
    if (reference.kind == Reference::Kind::Global && reference.place < globals.size())
        return globals[reference.place];
    if (reference.kind == Reference::Kind::Item && reference.array < numberArrays.size() &&
        reference.place < numberArrays[reference.array].Size())
        return numberArrays[reference.array].Items()[reference.place];
    throw run_errors::Subscript();
}

cText& cMachine::TextAt(double packed)
{
    const Reference reference = Unpacked(packed);
    if (reference.kind == Reference::Kind::Register && reference.place < texts.size())
        return texts[reference.place];
    if (reference.kind == Reference::Kind::Global && reference.place < globalTexts.size())
        return globalTexts[reference.place];
    if (reference.kind == Reference::Kind::Item && reference.array < textArrays.size() &&
        reference.place < textArrays[reference.array].Size())
        return textArrays[reference.array].Items()[reference.place];
    throw run_errors::Subscript();
}

} // namespace ob::basic
