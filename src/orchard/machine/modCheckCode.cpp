// SPDX-License-Identifier: GPL-3.0-or-later
// Whether the machine can run a program without harm, whatever wrote it.
#include "orchard/machine/modCheckCode.h"

#include "orchard/language/modWords.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace ob::basic {

namespace {

bool IsOperation(Operation operation)
{
    return static_cast<std::size_t>(operation) < Operations().size();
}

std::string_view OperandsOf(Operation operation)
{
    return Operations()[static_cast<std::size_t>(operation)].operands;
}

bool TakesMore(Operation operation)
{
    return OperandsOf(operation).size() > 3;
}

// Whether the instruction after this one is never reached from it.
bool Ends(Operation operation)
{
    switch (operation) {
    case Operation::End:
    case Operation::Jump:
    case Operation::Return:
    case Operation::ReturnFromGosub:
    case Operation::Resume:
        return true;
    default:
        return false;
    }
}

class RoutineCheck {
public:
    RoutineCheck(const MachineCode& checked, std::span<const LibraryRow> rows, const MachineRoutine& place)
        : code(checked), library(rows), routine(place)
    {
    }

    // The first instruction that is wrong; nothing when all are right.
    std::optional<std::uint32_t> FirstWrong() const
    {
        std::uint32_t place = routine.start;
        while (place < routine.end) {
            if (!IsRight(place))
                return place;
            const bool isLong = TakesMore(code.instructions[place].operation);
            const bool isLast = place + (isLong ? 2 : 1) == routine.end;
            if (isLast && !Ends(code.instructions[place].operation))
                return place;
            place += isLong ? 2 : 1;
        }
        return {};
    }

private:
    bool IsRight(std::uint32_t place) const
    {
        const Instruction& instruction = code.instructions[place];
        if (!IsOperation(instruction.operation) || instruction.operation == Operation::More)
            return false;
        const std::string_view operands = OperandsOf(instruction.operation);
        const std::uint16_t values[] = {instruction.a, instruction.b, instruction.c};
        for (std::size_t index = 0; index < std::min<std::size_t>(operands.size(), 3); ++index)
            if (!IsOperandRight(operands[index], values[index]))
                return false;
        if (operands.back() == 'j' && !IsTarget(place, ShortJump(instruction)))
            return false;
        if (operands.back() == 'J' && !IsTarget(place, LongJump(instruction)))
            return false;
        if (operands.back() == 'K' && FarIndex(instruction) >= code.numbers.size())
            return false;
        if (operands.back() == 'S' && FarIndex(instruction) >= code.texts.size())
            return false;
        return (!TakesMore(instruction.operation) || IsMoreRight(place, operands)) && IsUseRight(instruction);
    }

    bool IsMoreRight(std::uint32_t place, std::string_view operands) const
    {
        if (place + 1 >= routine.end || code.instructions[place + 1].operation != Operation::More)
            return false;
        const Instruction& more = code.instructions[place + 1];
        return IsOperandRight(operands[4], more.a) && IsOperandRight(operands[5], more.b) &&
               IsOperandRight(operands[6], more.c);
    }

    bool IsOperandRight(char kind, std::uint16_t value) const
    {
        switch (kind) {
        case 'n':
        case 'N':
            return value < routine.numberRegisters;
        case 't':
        case 'T':
            return value < routine.textRegisters;
        case 'k':
            return value < code.numbers.size();
        case 's':
            return value < code.texts.size();
        case 'g':
            return value < code.globalNumbers;
        case 'h':
            return value < code.globalTexts;
        case 'A':
            return value < code.numberArrays;
        case 'B':
            return value < code.textArrays;
        case 'R':
            return value != 0 && value < code.routines.size();
        case 'L':
            return value < library.size();
        case '-':
            return value == 0;
        default:
            return true;
        }
    }

    // A jump leads to an instruction of the same routine.
    bool IsTarget(std::uint32_t place, std::int32_t distance) const
    {
        const std::int64_t target = std::int64_t{place} + 1 + distance;
        return target >= routine.start && target < routine.end &&
               code.instructions[static_cast<std::size_t>(target)].operation != Operation::More;
    }

    // What an instruction takes beyond its operands.
    bool IsUseRight(const Instruction& instruction) const
    {
        switch (instruction.operation) {
        case Operation::ForStep:
        case Operation::ForTest:
            return instruction.b + 1 < routine.numberRegisters;
        case Operation::DivideK:
        case Operation::ModuloK:
            return code.numbers[instruction.c] != 0;
        case Operation::Return:
            return &routine != &code.routines.front();
        case Operation::Call: {
            const MachineRoutine& called = code.routines[instruction.a];
            return HasWindow(instruction, called.numberParameters, called.textParameters, called.result);
        }
        case Operation::Library: {
            const LibraryRow& row = library[instruction.a];
            return HasWindow(instruction, row.numbers, row.texts, row.result);
        }
        default:
            return true;
        }
    }

    // Whether the routine has the registers for arguments and result.
    bool HasWindow(const Instruction& instruction, std::size_t numbers, std::size_t texts, ValueType result) const
    {
        if (result == ValueType::Number && numbers == 0)
            numbers = 1;
        if (result == ValueType::Text && texts == 0)
            texts = 1;
        return instruction.b + numbers <= routine.numberRegisters && instruction.c + texts <= routine.textRegisters;
    }

    const MachineCode& code;
    std::span<const LibraryRow> library;
    const MachineRoutine& routine;
};

bool IsRoutineRight(const MachineRoutine& routine)
{
    if (routine.start >= routine.end || routine.numberParameters > routine.numberVariables ||
        routine.numberVariables > routine.numberRegisters || routine.textParameters > routine.textVariables ||
        routine.textVariables > routine.textRegisters)
        return false;
    switch (routine.result) {
    case ValueType::None:
        return true;
    case ValueType::Number:
        return routine.resultRegister < routine.numberRegisters;
    case ValueType::Text:
        return routine.resultRegister < routine.textRegisters;
    }
    return false;
}

// The routines follow each other and have all of the code.
std::optional<std::string> CheckRoutines(const MachineCode& code)
{
    constexpr std::size_t most = std::numeric_limits<std::uint16_t>::max();
    if (code.routines.empty() || code.routines.size() > most)
        return "The number of routines is wrong.";
    std::uint32_t place = 0;
    for (const MachineRoutine& routine : code.routines) {
        if (routine.start != place || !IsRoutineRight(routine))
            return "A routine is wrong.";
        place = routine.end;
    }
    if (place != code.instructions.size())
        return "The routines do not have all of the code.";
    if (code.routines.front().numberParameters != 0 || code.routines.front().textParameters != 0)
        return "The main program has parameters.";
    return {};
}

bool AreLabelsRight(const MachineCode& code)
{
    for (const LabelPlace& label : code.labels) {
        if (label.routine >= code.routines.size())
            return false;
        const MachineRoutine& routine = code.routines[label.routine];
        if (label.instruction < routine.start || label.instruction >= routine.end ||
            code.instructions[label.instruction].operation == Operation::More)
            return false;
    }
    return true;
}

bool AreLayoutsRight(const MachineCode& code)
{
    for (const StructLayout& layout : code.layouts) {
        if (layout.structure >= code.structCount)
            return false;
        for (const StructField& field : layout.fields)
            if (field.offset > layout.size || field.size > layout.size - field.offset)
                return false;
    }
    return true;
}

bool AreStatementsRight(const MachineCode& code)
{
    if (code.statements.empty() || code.statements.front().instruction != 0)
        return false;
    for (std::size_t index = 0; index < code.statements.size(); ++index) {
        const std::uint32_t place = code.statements[index].instruction;
        if (place >= code.instructions.size() || code.instructions[place].operation == Operation::More)
            return false;
        if (index != 0 && place <= code.statements[index - 1].instruction)
            return false;
    }
    return true;
}

} // namespace

std::optional<std::string> CheckMachineCode(const MachineCode& code, std::span<const LibraryRow> library)
{
    constexpr std::uint64_t systemCount = static_cast<std::uint64_t>(SystemVariable::Count);
    if (code.systemNumbers + systemCount > code.globalNumbers || code.systemTexts + systemCount > code.globalTexts)
        return "Variables of the system are missing.";
    for (const double number : code.numbers)
        if (!std::isfinite(number))
            return "A number is not one.";
    if (std::optional<std::string> wrong = CheckRoutines(code))
        return wrong;
    for (const MachineRoutine& routine : code.routines)
        if (const std::optional<std::uint32_t> place = RoutineCheck(code, library, routine).FirstWrong())
            return "Instruction " + std::to_string(*place) + " is wrong.";
    if (!AreLabelsRight(code))
        return "A label is wrong.";
    if (!AreLayoutsRight(code))
        return "A struct is wrong.";
    if (!AreStatementsRight(code))
        return "A statement is wrong.";
    return {};
}

} // namespace ob::basic
