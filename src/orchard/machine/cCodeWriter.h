// SPDX-License-Identifier: GPL-3.0-or-later
// Puts the instructions of a program together: constants, registers, jumps.
#pragma once

#include "orchard/machine/cMachineCode.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ob::basic {

// A program that is larger than the machine's code can be, such as one with 70,000 variables in one routine.
class cTooLarge : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A place in the code that is not known yet.
using JumpTarget = std::uint32_t;

// Writes one routine after the other. Throws cTooLarge.
class cCodeWriter {
public:
    // Counts of registers.
    struct Mark {
        std::uint32_t numbers = 0;
        std::uint32_t texts = 0;
    };

    explicit cCodeWriter(MachineCode& written) : code(written) {}

    // Registers below these are variables; the others are taken and given back like a stack.
    // `kept` are registers after the variables for the whole of the routine, such as a loop's limit.
    void StartRoutine(MachineRoutine routine, Mark kept);
    void EndRoutine();

    std::uint16_t NewNumber();
    std::uint16_t NewText();
    Mark Here() const { return {nextNumber, nextText}; }
    void Back(const Mark& mark);

    std::uint32_t NumberConstant(double value);
    double NumberAt(std::uint32_t constant) const { return code.numbers[constant]; }
    std::uint32_t TextConstant(std::string_view text);

    void Emit(Operation operation, std::uint32_t a = 0, std::uint32_t b = 0, std::uint32_t c = 0);
    void LoadNumber(std::uint16_t target, std::uint32_t constant);
    void LoadText(std::uint16_t target, std::uint32_t constant);

    // Makes the last instruction write to another register, if all that it does is write to this one.
    bool Redirect(char kind, std::uint16_t from, std::uint16_t to);

    // A jump goes to the place of a target, which may be set before or after.
    JumpTarget NewTarget();
    void Place(JumpTarget target);
    void Jump(Operation operation, std::uint32_t a, JumpTarget target);                     // operands "?J"
    void Compare(Operation operation, std::uint32_t a, std::uint32_t b, JumpTarget target); // operands "??j"
    // Whether all short jumps of the routine reach; otherwise each is made of a short and a long one.
    void SetReach(bool isShort) { reachIsShort = isShort; }

    void StartStatement(std::uint32_t line);
    std::uint32_t Size() const { return static_cast<std::uint32_t>(code.instructions.size()); }
    // A label that an event may jump to, at a target that is placed.
    void PutLabel(std::uint32_t number, std::uint16_t routineNumber, JumpTarget target);

private:
    struct Fixup {
        std::uint32_t instruction;
        JumpTarget target;
    };

    void Fix(const Fixup& fixup);

    MachineCode& code;
    MachineRoutine routine;
    std::uint32_t nextNumber = 0;
    std::uint32_t nextText = 0;
    std::uint32_t mostNumbers = 0;
    std::uint32_t mostTexts = 0;
    std::uint32_t fence = 0; // instructions before it are jumped to, or are not to be changed
    bool reachIsShort = true;
    std::vector<std::uint32_t> targets;
    std::vector<Fixup> fixups;
    std::unordered_map<std::uint64_t, std::uint32_t> numberPlaces;
    std::unordered_map<std::string, std::uint32_t> textPlaces;
};

} // namespace ob::basic
