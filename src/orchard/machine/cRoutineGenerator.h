// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the code of one routine.
#pragma once

#include "orchard/language/modProgram.h"
#include "orchard/machine/cCodeWriter.h"
#include "orchard/machine/modLibraryRows.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace ob::basic {

// What a program's routines share while their code is made.
struct GeneratorState {
    explicit GeneratorState(const Program& read);

    const Program& program;
    // Which nodes are arguments of a call: their values go to registers one after the other.
    std::vector<bool> isArgument;
    // The machine's numbers of arrays: numbers and texts apart.
    std::vector<std::uint32_t> arrayNumbers;
    std::uint32_t numberArrays = 0;
    std::uint32_t textArrays = 0;
    // For each routine, its registers: of its number variables, and of its text variables. A text by reference is in a
    // register of numbers.
    struct Registers {
        std::vector<std::uint32_t> numbers;
        std::vector<std::uint32_t> texts;
    };
    std::vector<Registers> registers;
    // What the machine knows of the routines before their code is there.
    std::vector<MachineRoutine> signatures;
};

class cRoutineGenerator {
public:
    cRoutineGenerator(const GeneratorState& state, cCodeWriter& writer, Index routine);

    void Generate();

private:
    enum class Held : std::uint8_t { Number, NumberConstant, Text, TextConstant, Target, Other };

    // The value of a node that has been worked out: a register, or a constant that no instruction has loaded yet.
    struct Operand {
        Held kind = Held::Other;
        bool isTemporary = false;
        std::uint32_t value = 0; // register or constant
        Index node = 0;
        cCodeWriter::Mark mark; // what was in use before it
        std::uint32_t indexes[2] = {};
    };

    // What a jump depends on: a comparison of numbers, or a number that is not 0.
    struct Test {
        const void* comparison = nullptr; // a row of the table of comparisons
        std::uint32_t a = 0;
        std::uint32_t b = 0;
        bool hasConstant = false;
    };

    // Statements
    void DoStatement(Index number);
    void Assign(const Statement& statement);
    void Print(const Statement& statement);
    void Input(const Statement& statement);
    void For(Index number);
    void Next(const Statement& statement);
    void JumpUnless(const Statement& statement, Index target);
    void LoopEnd(const Statement& statement, Index target);
    void Case(const Statement& statement);
    void CallSub(const Statement& statement);
    void DoCommand(const Statement& statement);
    void Fields(const Statement& statement);
    void FillUp(Command command, std::size_t count);
    void Dim(const Statement& statement);
    void Read(const Statement& statement);
    void Unsupported(std::string_view what);

    // Values
    void Evaluate(Index first, Index end);
    void DoNode(Index number);
    void Variable(Index number);
    void Item(Index number);
    void Refer(Index number);
    void Field(Index number);
    void StoreField(const Node& node, const Operand& value);
    void ReferToVariable(Index number);
    void ReferToItem(Index number, std::uint32_t row, std::uint32_t column, const cCodeWriter::Mark& mark);
    void Arithmetic(Index number);
    bool EmitWithConstant(Index number, const Operand& left, const Operand& right);
    void Comparison(Index number);
    void CallFunction(Index number);
    void CallBuiltin(Index number);

    void FillUp(Function function, Index count);
    void PushNumber(std::uint32_t constant, Index node);
    void PushNumberRegister(std::uint32_t number, bool isTemporary, Index node, const cCodeWriter::Mark& mark);
    void PushTextRegister(std::uint32_t number, bool isTemporary, Index node, const cCodeWriter::Mark& mark);
    void PushText(std::string_view text, Index node);
    Operand Pop();
    std::uint32_t NumberIn(const Operand& operand);
    std::uint32_t TextIn(const Operand& operand);
    void ToRegister(Operand& operand);
    double ConstantOf(const Operand& operand) const;
    bool IsConstant(const Operand& operand) const { return operand.kind == Held::NumberConstant; }
    bool FitsConstant(const Operand& operand) const { return IsConstant(operand) && operand.value <= 0xFFFF; }
    void StoreNumber(const Operand& target, const Operand& value);
    void StoreText(const Operand& target, const Operand& value);
    bool IsLocal(const Operand& target) const;
    std::uint32_t GlobalOf(const Node& node) const;
    void LoadVariable(const Operand& target, std::uint32_t number);
    std::uint32_t SmallConstant(double value);
    Test TestOf(Index first, Index end);
    void JumpWhen(const Test& test, bool wanted, JumpTarget target);
    void Library(std::uint16_t row, const cCodeWriter::Mark& window);

    JumpTarget TargetOf(Index statement);
    std::uint32_t NumberRegister(Index slot) const { return registers.numbers[slot]; }
    std::uint32_t TextRegister(Index slot) const { return registers.texts[slot]; }
    const Node& NodeAt(Index number) const { return program.nodes[number]; }

    const GeneratorState& state;
    const Program& program;
    cCodeWriter& writer;
    Index routineNumber;
    const GeneratorState::Registers& registers;
    std::vector<Operand> operands;
    std::vector<JumpTarget> targets; // of statements, from the routine's first on; NoIndex until asked for
    Index firstStatement = 0;
    std::vector<std::uint32_t> kept; // of statements: the register that a For or Select keeps
    std::uint32_t nextKeptNumber = 0;
    std::uint32_t nextKeptText = 0;
    bool copiesVariables = false;
};

} // namespace ob::basic
