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

cMachine::cMachine(const MachineCode& checked, std::span<const LibraryRow> rows, cRowContext* context)
    : code(checked), library(rows), rowContext(context), globals(checked.globalNumbers),
      globalTexts(checked.globalTexts), numberArrays(checked.numberArrays), textArrays(checked.textArrays)
{
    for (const std::string& text : code.texts)
        literals.push_back(cText::Literal(text));
    frames.reserve(FirstFrames);
}

cMachine::~cMachine() = default;

cMachine::Ending cMachine::Run()
{
    Enter(code.routines.front(), 0, 0, nullptr);
    current = code.instructions.data() + code.routines.front().start;
    // A handler that raises its own error again goes round here.
    while (!IsStopped()) {
        try {
            return Loop();
        } catch (const cProgramError& error) {
            LeaveStatement();
            if (!Handle(error))
                throw lastError;
        } catch (const std::bad_alloc&) {
            LeaveStatement();
            if (!Handle(cProgramError(ErrorNumber::OutOfMemory)))
                throw lastError;
        } catch (const EventRaised& event) {
            LeaveStatement();
            HandleEvent(event);
        } catch (const ProgramEnded&) {
            LeaveStatement();
            return Ending::Ended;
        }
    }
    return Ending::Stopped;
}

void cMachine::LeaveStatement()
{
    if (rowContext != nullptr)
        rowContext->LeaveStatement();
}

// A label belongs to its routine: calls above that are left, and nothing happens when it is not running. A routine is
// called as if the instruction had called it and were still to be done.
void cMachine::HandleEvent(const EventRaised& event)
{
    if (event.handler < 0) {
        const Frame& frame = frames.back();
        const MachineRoutine& routine = code.routines[static_cast<std::size_t>(-event.handler - 1)];
        Enter(routine, frame.numbers + frame.routine->numberRegisters, frame.texts + frame.routine->textRegisters,
              current);
        current = code.instructions.data() + routine.start;
        return;
    }
    const LabelPlace& label = code.labels[static_cast<std::size_t>(event.handler) - 1];
    const MachineRoutine* const owner = &code.routines[label.routine];
    const auto runs = [owner](const Frame& frame) { return frame.routine == owner; };
    if (std::ranges::find_if(frames, runs) == frames.end())
        return;
    while (frames.back().routine != owner)
        Leave();
    current = code.instructions.data() + label.instruction;
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
    const auto place = static_cast<std::uint32_t>(instruction - code.instructions.data());
    const auto after = std::ranges::upper_bound(code.statements, place, {}, &StatementPlace::instruction);
    return *std::prev(after);
}

// The nearest routine with a handler takes the error; those that it called are left.
bool cMachine::Handle(const cProgramError& error)
{
    resumeAt = nullptr;
    lastError = {static_cast<int>(error.Number()), error.Text(), StatementAt(current).line};
    System(SystemVariable::Err) = lastError.number;
    SystemText(SystemVariable::ErrText) = cText(lastError.text);
    const Instruction* raised = current;
    while (frames.back().handler == nullptr) {
        if (frames.size() == 1)
            return false;
        raised = frames.back().next - 1;
        Leave();
    }
    resumeAt = code.instructions.data() + StatementAt(raised).instruction;
    current = frames.back().handler;
    return true;
}

void cMachine::DoResume()
{
    if (resumeAt == nullptr)
        Fail(ErrorNumber::ResumeWithoutError);
    const auto place = static_cast<std::uint32_t>(resumeAt - code.instructions.data());
    const MachineRoutine& routine = *frames.back().routine;
    if (place < routine.start || place >= routine.end)
        Fail(ErrorNumber::ResumeWithoutError);
    current = std::exchange(resumeAt, nullptr);
}

double& cMachine::System(SystemVariable variable)
{
    return globals[code.systemNumbers + static_cast<std::size_t>(variable)];
}

cText& cMachine::SystemText(SystemVariable variable)
{
    return globalTexts[code.systemTexts + static_cast<std::size_t>(variable)];
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
    Fail(ErrorNumber::IndexOutside);
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
    Fail(ErrorNumber::IndexOutside);
}

} // namespace ob::basic
