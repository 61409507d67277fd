// SPDX-License-Identifier: GPL-3.0-or-later
// Programs for tests of the machine, put together by hand.
#pragma once

#include "orchard/machine/cMachine.h"
#include "orchard/machine/modCheckCode.h"

#include <cstdint>
#include <vector>

namespace programs {

using ob::basic::Instruction;
using ob::basic::MachineCode;
using ob::basic::MachineRoutine;
using ob::basic::Operation;
using ob::basic::ValueType;

constexpr std::uint32_t SystemCount = static_cast<std::uint32_t>(ob::basic::SystemVariable::Count);

// The operand of a jump over so many instructions.
constexpr std::uint16_t Over(int distance)
{
    return static_cast<std::uint16_t>(static_cast<std::int16_t>(distance));
}

constexpr Instruction Far(Operation operation, std::uint16_t a, int distance)
{
    const auto bits = static_cast<std::uint32_t>(distance);
    return {operation, a, static_cast<std::uint16_t>(bits), static_cast<std::uint16_t>(bits >> 16)};
}

inline MachineRoutine MainOf(std::size_t instructions, std::uint16_t numbers, std::uint16_t texts = 0)
{
    MachineRoutine routine;
    routine.name = "main";
    routine.end = static_cast<std::uint32_t>(instructions);
    routine.numberVariables = routine.numberRegisters = numbers;
    routine.textVariables = routine.textRegisters = texts;
    return routine;
}

// A main program alone; its last register of numbers is what it shows. A statement starts at each instruction, its
// line one more than the instruction's place.
inline MachineCode Alone(std::vector<Instruction> code, std::vector<double> numbers, std::uint16_t registers,
                         std::uint16_t texts = 0)
{
    MachineCode program;
    program.instructions = std::move(code);
    program.numbers = std::move(numbers);
    program.globalNumbers = program.globalTexts = SystemCount;
    program.routines = {MainOf(program.instructions.size(), registers, texts)};
    for (std::uint32_t place = 0; place < program.instructions.size(); ++place)
        if (program.instructions[place].operation != Operation::More)
            program.statements.push_back({place, place + 1});
    return program;
}

// fib(n) by recursion, its argument being the first number constant; shows the result.
inline MachineCode Fibonacci(double argument)
{
    using O = Operation;
    MachineCode program = Alone({{O::Load, 0, 0, 0},
                                 {O::Call, 1, 0, 0},
                                 {O::Library, 0, 0, 0},
                                 {O::End},
                                 {O::JumpIfGreaterOrEqualK, 0, 1, 2},
                                 {O::Move, 1, 0, 0},
                                 {O::Return},
                                 {O::AddK, 2, 0, 2},
                                 {O::Call, 1, 2, 0},
                                 {O::AddK, 3, 0, 3},
                                 {O::Call, 1, 3, 0},
                                 {O::Add, 1, 2, 3},
                                 {O::Return}},
                                {argument, 2, -1, -2}, 1);
    MachineRoutine fib;
    fib.name = "fib";
    fib.start = program.routines[0].end = 4;
    fib.end = 13;
    fib.numberParameters = 1;
    fib.numberVariables = 2;
    fib.numberRegisters = 4;
    fib.result = ValueType::Number;
    fib.resultRegister = 1;
    program.routines.push_back(fib);
    return program;
}

// What the programs show, in order.
inline std::vector<double>& Shown()
{
    static std::vector<double> shown;
    return shown;
}

inline std::string& ShownText()
{
    static std::string shown;
    return shown;
}

// Row 0 shows a number, row 1 a text; row 2 raises error 100.
inline const std::vector<ob::basic::LibraryRow>& Library()
{
    static const std::vector<ob::basic::LibraryRow> rows = {
        {[](ob::basic::cMachine&, double* numbers, ob::basic::cText*) { Shown().push_back(*numbers); }, 1, 0,
         ValueType::None},
        {[](ob::basic::cMachine&, double*, ob::basic::cText* texts) { ShownText() += texts->View(); }, 0, 1,
         ValueType::None},
        {[](ob::basic::cMachine&, double*, ob::basic::cText*) { ob::basic::Fail(ob::basic::ErrorNumber::NotADate); }, 0,
         0, ValueType::None},
    };
    return rows;
}

} // namespace programs
