// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the instructions of a program together: constants, registers, jumps.
#include "orchard/machine/cCodeWriter.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace ob::basic {

namespace {

constexpr std::uint32_t MostOfAll = std::numeric_limits<std::uint16_t>::max();
constexpr std::uint32_t Unplaced = std::numeric_limits<std::uint32_t>::max();

std::uint16_t Operand(std::uint32_t value)
{
    if (value > MostOfAll)
        throw cTooLarge(
            "The program is too large: one of its routines has more than 65,535 variables, arrays or calls.");
    return static_cast<std::uint16_t>(value);
}

} // namespace

void cCodeWriter::StartRoutine(MachineRoutine started, Mark kept)
{
    routine = std::move(started);
    routine.start = Size();
    nextNumber = mostNumbers = routine.numberVariables + kept.numbers;
    nextText = mostTexts = routine.textVariables + kept.texts;
    targets.clear();
    fixups.clear();
    fence = Size();
}

void cCodeWriter::EndRoutine()
{
    for (const Fixup& fixup : fixups)
        Fix(fixup);
    routine.end = Size();
    routine.numberRegisters = Operand(mostNumbers);
    routine.textRegisters = Operand(mostTexts);
    code.routines.push_back(routine);
}

std::uint16_t cCodeWriter::NewNumber()
{
    mostNumbers = std::max(mostNumbers, nextNumber + 1);
    return Operand(nextNumber++);
}

std::uint16_t cCodeWriter::NewText()
{
    mostTexts = std::max(mostTexts, nextText + 1);
    return Operand(nextText++);
}

void cCodeWriter::Back(const Mark& mark)
{
    nextNumber = mark.numbers;
    nextText = mark.texts;
}

std::uint32_t cCodeWriter::NumberConstant(double value)
{
    const auto next = static_cast<std::uint32_t>(code.numbers.size());
    const auto [place, isNew] = numberPlaces.emplace(std::bit_cast<std::uint64_t>(value), next);
    if (isNew)
        code.numbers.push_back(value);
    return place->second;
}

std::uint32_t cCodeWriter::TextConstant(std::string_view text)
{
    const auto next = static_cast<std::uint32_t>(code.texts.size());
    const auto [place, isNew] = textPlaces.emplace(text, next);
    if (isNew)
        code.texts.emplace_back(text);
    return place->second;
}

void cCodeWriter::Emit(Operation operation, std::uint32_t a, std::uint32_t b, std::uint32_t c)
{
    code.instructions.push_back({operation, Operand(a), Operand(b), Operand(c)});
}

void cCodeWriter::LoadNumber(std::uint16_t target, std::uint32_t constant)
{
    if (constant <= MostOfAll)
        Emit(Operation::Load, target, constant);
    else
        Emit(Operation::LoadFar, target, constant & 0xFFFF, constant >> 16);
}

void cCodeWriter::LoadText(std::uint16_t target, std::uint32_t constant)
{
    if (constant <= MostOfAll)
        Emit(Operation::LoadText, target, constant);
    else
        Emit(Operation::LoadTextFar, target, constant & 0xFFFF, constant >> 16);
}

bool cCodeWriter::Redirect(char kind, std::uint16_t from, std::uint16_t to)
{
    if (Size() <= fence)
        return false;
    std::size_t last = code.instructions.size() - 1;
    if (code.instructions[last].operation == Operation::More)
        --last;
    Instruction& instruction = code.instructions[last];
    const std::string_view operands = Operations()[static_cast<std::size_t>(instruction.operation)].operands;
    if (operands[0] != kind || instruction.a != from || instruction.operation == Operation::TakeText)
        return false;
    instruction.a = to;
    return true;
}

JumpTarget cCodeWriter::NewTarget()
{
    targets.push_back(Unplaced);
    return static_cast<JumpTarget>(targets.size() - 1);
}

void cCodeWriter::Place(JumpTarget target)
{
    targets[target] = fence = Size();
}

void cCodeWriter::Jump(Operation operation, std::uint32_t a, JumpTarget target)
{
    fixups.push_back({Size(), target});
    Emit(operation, a);
}

void cCodeWriter::Compare(Operation operation, std::uint32_t a, std::uint32_t b, JumpTarget target)
{
    if (reachIsShort) {
        fixups.push_back({Size(), target});
        Emit(operation, a, b);
        return;
    }
    // Over a jump that passes by the one that reaches.
    Emit(operation, a, b, 1);
    Emit(Operation::Jump, 0, 1);
    Jump(Operation::Jump, 0, target);
}

void cCodeWriter::PutLabel(std::uint32_t number, std::uint16_t routineNumber, JumpTarget target)
{
    if (code.labels.size() <= number)
        code.labels.resize(number + 1);
    code.labels[number] = {targets[target], routineNumber};
}

void cCodeWriter::StartStatement(std::uint32_t line)
{
    if (!code.statements.empty() && code.statements.back().instruction == Size())
        code.statements.pop_back();
    code.statements.push_back({Size(), line});
    fence = Size();
}

void cCodeWriter::Fix(const Fixup& fixup)
{
    Instruction& instruction = code.instructions[fixup.instruction];
    const auto distance = static_cast<std::int32_t>(targets[fixup.target] - fixup.instruction - 1);
    const std::string_view operands = Operations()[static_cast<std::size_t>(instruction.operation)].operands;
    if (operands.back() == 'J') {
        instruction.b = static_cast<std::uint16_t>(static_cast<std::uint32_t>(distance) & 0xFFFF);
        instruction.c = static_cast<std::uint16_t>(static_cast<std::uint32_t>(distance) >> 16);
        return;
    }
    if (distance != static_cast<std::int16_t>(distance))
        throw cTooLarge("A jump is too far.");
    instruction.c = static_cast<std::uint16_t>(static_cast<std::int16_t>(distance));
}

} // namespace ob::basic
