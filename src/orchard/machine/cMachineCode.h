// SPDX-License-Identifier: GPL-3.0-or-later
// A program as the machine runs it.
#pragma once

#include "orchard/language/modProgram.h"
#include "orchard/machine/modInstructions.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ob::basic {

enum class ValueType : std::uint8_t { None, Number, Text };

// The main program (the first), a sub or a function. Its parameters are its first registers; its variables follow, and
// are 0 and empty at each call; the registers after them are for values within a statement.
struct MachineRoutine {
    std::string name;
    std::uint32_t start = 0; // its first instruction
    std::uint32_t end = 0;   // after its last
    std::uint16_t numberParameters = 0;
    std::uint16_t textParameters = 0;
    std::uint16_t numberVariables = 0; // with the parameters
    std::uint16_t textVariables = 0;
    std::uint16_t numberRegisters = 0;
    std::uint16_t textRegisters = 0;
    ValueType result = ValueType::None;
    std::uint16_t resultRegister = 0;
};

// Where a statement's instructions start, in rising order; the last at or before an instruction is its own.
struct StatementPlace {
    std::uint32_t instruction = 0;
    std::uint32_t line = 0; // from 1
};

// Where an event jumps to.
struct LabelPlace {
    std::uint32_t instruction = 0;
    std::uint16_t routine = 0;
};

// A field of a struct: bytes from an offset on.
struct StructField {
    std::string name;
    DataType type = DataType::Long;
    std::uint32_t offset = 0;
    std::uint32_t size = 0;
};

// What a statement struct defines.
struct StructLayout {
    std::uint32_t structure = 0;
    std::uint32_t size = 0;
    std::vector<StructField> fields;
};

struct MachineCode {
    std::vector<Instruction> instructions;
    std::vector<double> numbers;
    std::vector<std::string> texts;
    std::vector<MachineRoutine> routines;
    std::vector<StatementPlace> statements;
    std::uint32_t globalNumbers = 0;
    std::uint32_t globalTexts = 0;
    // The variables of the system are the last globals, from there on, by the number of SystemVariable.
    std::uint32_t systemNumbers = 0;
    std::uint32_t systemTexts = 0;
    std::uint32_t numberArrays = 0;
    std::uint32_t textArrays = 0;
    std::vector<LabelPlace> labels;
    std::vector<StructLayout> layouts;
    std::uint32_t structCount = 0;
    std::vector<std::string> data; // the items of all data statements
};

} // namespace ob::basic
