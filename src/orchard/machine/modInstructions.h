// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's instructions: a typed register code, so that no type is looked up while a program runs.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace ob::basic {

// What an instruction's operand is.
//   n, N  a number register that is read, written     t, T  a text register that is read, written
//   k     a number constant                           s     a text constant
//   K, S  the same, its index in b and c, the lower half in b
//   g, h  a global number, a global text              A, B  an array of numbers, of texts
//   j     a jump in c: signed, from the next instruction on
//   J     a jump in b and c: signed, from the next instruction on, its lower half in b
//   R     a routine     L  a row of the library       w, v  the first number and text register of a call's window
//   i     a plain number                              -     nothing, always 0
//
// An instruction with "+" after its operands takes three more from the word after it, an instruction More.
#define OB_INSTRUCTIONS(X)                                                                                             \
    X(More, "iii")                                                                                                     \
    X(End, "---")                                                                                                      \
    X(Jump, "-J")                                                                                                      \
    X(JumpIf, "nJ")                                                                                                    \
    X(JumpUnless, "nJ")                                                                                                \
    X(JumpIfLess, "nnj")                                                                                               \
    X(JumpIfLessOrEqual, "nnj")                                                                                        \
    X(JumpIfEqual, "nnj")                                                                                              \
    X(JumpIfUnequal, "nnj")                                                                                            \
    X(JumpIfLessK, "nkj")                                                                                              \
    X(JumpIfLessOrEqualK, "nkj")                                                                                       \
    X(JumpIfGreaterK, "nkj")                                                                                           \
    X(JumpIfGreaterOrEqualK, "nkj")                                                                                    \
    X(JumpIfEqualK, "nkj")                                                                                             \
    X(JumpIfUnequalK, "nkj")                                                                                           \
    X(ForOne, "Nnj")  /* adds 1 to a and jumps while it is not beyond b */                                             \
    X(ForStep, "Nnj") /* adds the register after b to a and jumps while a is not beyond b */                           \
    X(ForTest, "nnj") /* jumps when a is beyond b already, by the step in the register after b */                      \
    X(Move, "Nn-")                                                                                                     \
    X(Load, "Nk-")                                                                                                     \
    X(LoadFar, "NK") /* of more constants than c can name */                                                           \
    X(LoadGlobal, "Ng-")                                                                                               \
    X(StoreGlobal, "ng-")                                                                                              \
    X(Add, "Nnn")                                                                                                      \
    X(Subtract, "Nnn")                                                                                                 \
    X(Multiply, "Nnn")                                                                                                 \
    X(Divide, "Nnn")                                                                                                   \
    X(Modulo, "Nnn")                                                                                                   \
    X(Power, "Nnn")                                                                                                    \
    X(AddK, "Nnk")                                                                                                     \
    X(SubtractFromK, "Nnk") /* c - b */                                                                                \
    X(MultiplyK, "Nnk")                                                                                                \
    X(DivideK, "Nnk") /* c is not zero */                                                                              \
    X(ModuloK, "Nnk") /* c is not zero */                                                                              \
    X(Negate, "Nn-")                                                                                                   \
    X(Not, "Nn-")                                                                                                      \
    X(And, "Nnn")                                                                                                      \
    X(Or, "Nnn")                                                                                                       \
    X(Xor, "Nnn")                                                                                                      \
    X(Less, "Nnn")                                                                                                     \
    X(LessOrEqual, "Nnn")                                                                                              \
    X(Equal, "Nnn")                                                                                                    \
    X(Unequal, "Nnn")                                                                                                  \
    X(LessText, "Ntt")                                                                                                 \
    X(LessOrEqualText, "Ntt")                                                                                          \
    X(EqualText, "Ntt")                                                                                                \
    X(UnequalText, "Ntt")                                                                                              \
    X(Square, "Nn-") /* square root */                                                                                 \
    X(Integer, "Nn-")                                                                                                  \
    X(Absolute, "Nn-")                                                                                                 \
    X(MoveText, "Tt-")                                                                                                 \
    X(TakeText, "TT-") /* moves b to a and leaves b empty */                                                           \
    X(LoadText, "Ts-")                                                                                                 \
    X(LoadTextFar, "TS")                                                                                               \
    X(LoadGlobalText, "Th-")                                                                                           \
    X(StoreGlobalText, "th-")                                                                                          \
    X(JoinText, "Ttt")                                                                                                 \
    X(Length, "Nt-")                                                                                                   \
    X(GetItem, "NAn")                                                                                                  \
    X(SetItem, "nAn")                                                                                                  \
    X(GetItem2, "NAn+n--")                                                                                             \
    X(SetItem2, "nAn+n--")                                                                                             \
    X(GetTextItem, "TBn")                                                                                              \
    X(SetTextItem, "tBn")                                                                                              \
    X(GetTextItem2, "TBn+n--")                                                                                         \
    X(SetTextItem2, "tBn+n--")                                                                                         \
    X(Dim, "nA-")                                                                                                      \
    X(Dim2, "nAn")                                                                                                     \
    X(DimText, "nB-")                                                                                                  \
    X(DimText2, "nBn")                                                                                                 \
    X(ReferToRegister, "Nn-") /* a reference to a number register of this frame */                                     \
    X(ReferToGlobal, "Ng-")                                                                                            \
    X(ReferToItem, "NAn+ni-") /* the second index when i is 1 */                                                       \
    X(ReferToText, "Nt-")                                                                                              \
    X(ReferToGlobalText, "Nh-")                                                                                        \
    X(ReferToTextItem, "NBn+ni-")                                                                                      \
    X(GetReferred, "Nn-")                                                                                              \
    X(SetReferred, "nn-") /* a into what b refers to */                                                                \
    X(GetReferredText, "Tn-")                                                                                          \
    X(SetReferredText, "tn-")                                                                                          \
    X(Call, "Rwv")                                                                                                     \
    X(Return, "---")                                                                                                   \
    X(Gosub, "-J")                                                                                                     \
    X(ReturnFromGosub, "---")                                                                                          \
    X(OnError, "iJ") /* a is 0 for no handler */                                                                       \
    X(Resume, "---")                                                                                                   \
    X(Library, "Lwv")

enum class Operation : std::uint16_t {
#define OB_INSTRUCTION_NAME(name, operands) name,
    OB_INSTRUCTIONS(OB_INSTRUCTION_NAME)
#undef OB_INSTRUCTION_NAME
};

struct Instruction {
    Operation operation = Operation::End;
    std::uint16_t a = 0;
    std::uint16_t b = 0;
    std::uint16_t c = 0;

    friend bool operator==(const Instruction&, const Instruction&) = default;
};

struct OperationInfo {
    std::string_view name;
    std::string_view operands;
};

// The table above; every value of an operation below its size is one.
std::span<const OperationInfo> Operations();

// A jump's distance from the next instruction on.
constexpr std::int32_t LongJump(const Instruction& instruction)
{
    return static_cast<std::int32_t>(instruction.b | static_cast<std::uint32_t>(instruction.c) << 16);
}
constexpr std::uint32_t FarIndex(const Instruction& instruction)
{
    return instruction.b | static_cast<std::uint32_t>(instruction.c) << 16;
}
constexpr std::int32_t ShortJump(const Instruction& instruction)
{
    return static_cast<std::int16_t>(instruction.c);
}

} // namespace ob::basic
