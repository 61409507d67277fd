// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a program: the loop over its instructions.
#include "orchard/machine/cMachine.h"
#include "orchard/machine/modNumbers.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>

namespace ob::basic {

namespace {

// An array that was not dimensioned has items 0 to 10 in each dimension of its first use.
constexpr std::size_t UsualLast = 10;

} // namespace

template <class Item>
std::size_t cMachine::PlaceIn(cArray<Item>& array, double index)
{
    if (array.Dimensions() == 0)
        array.Dim(UsualLast);
    const std::size_t place = array.Place(index);
    if (place == cArray<Item>::None)
        Fail(ErrorNumber::IndexOutside);
    return place;
}

template <class Item>
std::size_t cMachine::PlaceIn(cArray<Item>& array, double first, double second)
{
    if (array.Dimensions() == 0)
        array.Dim(UsualLast, UsualLast);
    const std::size_t place = array.Place(first, second);
    if (place == cArray<Item>::None)
        Fail(ErrorNumber::IndexOutside);
    return place;
}

template <class Item, class... Index>
Item& cMachine::ItemAt(cArray<Item>& array, Index... index)
{
    // The place first: finding it makes an array that was not dimensioned.
    const std::size_t place = PlaceIn(array, index...);
    return array.Items()[place];
}

namespace {

// The last index of a dimension, cut toward zero.
std::size_t LastIndex(double size)
{
    if (size <= -1)
        Fail(ErrorNumber::IndexOutside);
    if (size >= 9e15)
        Fail(ErrorNumber::OutOfMemory);
    return size < 0 ? 0 : static_cast<std::size_t>(size);
}

} // namespace

// Registers are reached through pointers that only a call or return changes. `current` is set before whatever may
// throw, so that the error finds its line.
cMachine::Ending cMachine::Loop()
{
    static const void* const targets[] = {
#define OB_INSTRUCTION_TARGET(name, operands) &&Do##name,
        OB_INSTRUCTIONS(OB_INSTRUCTION_TARGET)
#undef OB_INSTRUCTION_TARGET
    };

    const Instruction* pc = current;
    const double* const k = code.numbers.data();
    double* n = numbers.data() + frames.back().numbers;
    cText* t = texts.data() + frames.back().texts;

#define NEXT goto* targets[static_cast<std::size_t>(pc->operation)]
#define STEP                                                                                                           \
    do {                                                                                                               \
        ++pc;                                                                                                          \
        NEXT;                                                                                                          \
    } while (false)
#define RAISE(error)                                                                                                   \
    do {                                                                                                               \
        current = pc;                                                                                                  \
        Fail(ErrorNumber::error);                                                                                      \
    } while (false)
    // A program that loops can be stopped at each backward jump.
#define JUMP(distance)                                                                                                 \
    do {                                                                                                               \
        const std::ptrdiff_t jump = (distance);                                                                        \
        pc += jump + 1;                                                                                                \
        if (jump < 0 && IsStopped()) [[unlikely]]                                                                      \
            return Ending::Stopped;                                                                                    \
        NEXT;                                                                                                          \
    } while (false)
#define JUMP_WHEN(condition)                                                                                           \
    do {                                                                                                               \
        if (condition)                                                                                                 \
            JUMP(ShortJump(*pc));                                                                                      \
        STEP;                                                                                                          \
    } while (false)
#define SET_CHECKED(value)                                                                                             \
    do {                                                                                                               \
        const double checked = (value);                                                                                \
        if (!(std::abs(checked) <= std::numeric_limits<double>::max())) [[unlikely]]                                   \
            RAISE(Overflow);                                                                                           \
        n[pc->a] = checked;                                                                                            \
        STEP;                                                                                                          \
    } while (false)
#define SET(value)                                                                                                     \
    do {                                                                                                               \
        n[pc->a] = (value);                                                                                            \
        STEP;                                                                                                          \
    } while (false)
#define RELOAD                                                                                                         \
    do {                                                                                                               \
        n = numbers.data() + frames.back().numbers;                                                                    \
        t = texts.data() + frames.back().texts;                                                                        \
    } while (false)

    NEXT;

DoMore: // not reached: the instruction before steps over it
    STEP;
DoEnd:
    return Ending::Ended;

DoJump:
    JUMP(LongJump(*pc));
DoJumpIf:
    if (n[pc->a] != 0)
        JUMP(LongJump(*pc));
    STEP;
DoJumpUnless:
    if (n[pc->a] == 0)
        JUMP(LongJump(*pc));
    STEP;
DoJumpIfLess:
    JUMP_WHEN(n[pc->a] < n[pc->b]);
DoJumpIfLessOrEqual:
    JUMP_WHEN(n[pc->a] <= n[pc->b]);
DoJumpIfEqual:
    JUMP_WHEN(n[pc->a] == n[pc->b]);
DoJumpIfUnequal:
    JUMP_WHEN(n[pc->a] != n[pc->b]);
DoJumpIfLessK:
    JUMP_WHEN(n[pc->a] < k[pc->b]);
DoJumpIfLessOrEqualK:
    JUMP_WHEN(n[pc->a] <= k[pc->b]);
DoJumpIfGreaterK:
    JUMP_WHEN(n[pc->a] > k[pc->b]);
DoJumpIfGreaterOrEqualK:
    JUMP_WHEN(n[pc->a] >= k[pc->b]);
DoJumpIfEqualK:
    JUMP_WHEN(n[pc->a] == k[pc->b]);
DoJumpIfUnequalK:
    JUMP_WHEN(n[pc->a] != k[pc->b]);
DoForOne : {
    const double value = n[pc->a] + 1;
    n[pc->a] = value;
    JUMP_WHEN(value <= n[pc->b]);
}
DoForStep : {
    const double step = n[pc->b + 1];
    const double value = n[pc->a] + step;
    if (!(std::abs(value) <= std::numeric_limits<double>::max())) [[unlikely]]
        RAISE(Overflow);
    n[pc->a] = value;
    JUMP_WHEN(step >= 0 ? value <= n[pc->b] : value >= n[pc->b]);
}
DoForTest:
    JUMP_WHEN(n[pc->b + 1] >= 0 ? n[pc->a] > n[pc->b] : n[pc->a] < n[pc->b]);

DoMove:
    SET(n[pc->b]);
DoLoad:
    SET(k[pc->b]);
DoLoadFar:
    SET(k[FarIndex(*pc)]);
DoLoadGlobal:
    SET(globals[pc->b]);
DoStoreGlobal:
    globals[pc->b] = n[pc->a];
    STEP;
DoAdd:
    SET_CHECKED(n[pc->b] + n[pc->c]);
DoSubtract:
    SET_CHECKED(n[pc->b] - n[pc->c]);
DoMultiply:
    SET_CHECKED(n[pc->b] * n[pc->c]);
DoDivide:
    if (n[pc->c] == 0) [[unlikely]]
        RAISE(DivisionByZero);
    SET_CHECKED(n[pc->b] / n[pc->c]);
DoModulo:
    if (n[pc->c] == 0) [[unlikely]]
        RAISE(DivisionByZero);
    SET(Remainder(n[pc->b], n[pc->c]));
DoPower : {
    const double base = n[pc->b];
    const double power = std::pow(base, n[pc->c]);
    if (std::isnan(power)) [[unlikely]]
        RAISE(OutOfRange);
    if (base == 0 && n[pc->c] < 0) [[unlikely]]
        RAISE(DivisionByZero);
    SET_CHECKED(power);
}
DoAddK:
    SET_CHECKED(n[pc->b] + k[pc->c]);
DoSubtractFromK:
    SET_CHECKED(k[pc->c] - n[pc->b]);
DoMultiplyK:
    SET_CHECKED(n[pc->b] * k[pc->c]);
DoDivideK:
    SET_CHECKED(n[pc->b] / k[pc->c]);
DoModuloK:
    SET(Remainder(n[pc->b], k[pc->c]));
DoNegate:
    SET(-n[pc->b]);
DoNot:
    SET(NotOf(n[pc->b]));
DoAnd:
    SET(FromBits(ToBits(n[pc->b]) & ToBits(n[pc->c])));
DoOr:
    SET(FromBits(ToBits(n[pc->b]) | ToBits(n[pc->c])));
DoXor:
    SET(FromBits(ToBits(n[pc->b]) ^ ToBits(n[pc->c])));
DoLess:
    SET(n[pc->b] < n[pc->c] ? 1 : 0);
DoLessOrEqual:
    SET(n[pc->b] <= n[pc->c] ? 1 : 0);
DoEqual:
    SET(n[pc->b] == n[pc->c] ? 1 : 0);
DoUnequal:
    SET(n[pc->b] != n[pc->c] ? 1 : 0);
DoLessText:
    SET(t[pc->b].View() < t[pc->c].View() ? 1 : 0);
DoLessOrEqualText:
    SET(t[pc->b].View() <= t[pc->c].View() ? 1 : 0);
DoEqualText:
    SET(t[pc->b].View() == t[pc->c].View() ? 1 : 0);
DoUnequalText:
    SET(t[pc->b].View() != t[pc->c].View() ? 1 : 0);
DoSquare:
    if (n[pc->b] < 0) [[unlikely]]
        RAISE(OutOfRange);
    SET(std::sqrt(n[pc->b]));
DoInteger:
    SET(std::trunc(n[pc->b]) + 0.0);
DoAbsolute:
    SET(std::abs(n[pc->b]));

DoMoveText:
    t[pc->a] = t[pc->b];
    STEP;
DoTakeText:
    t[pc->a] = std::move(t[pc->b]);
    STEP;
DoLoadText:
    t[pc->a] = literals[pc->b];
    STEP;
DoLoadTextFar:
    t[pc->a] = literals[FarIndex(*pc)];
    STEP;
DoLoadGlobalText:
    t[pc->a] = globalTexts[pc->b];
    STEP;
DoStoreGlobalText:
    globalTexts[pc->b] = t[pc->a];
    STEP;
DoJoinText : {
    current = pc;
    if (pc->a == pc->b && pc->a != pc->c) {
        t[pc->a].Append(t[pc->c].View());
    } else {
        cText joined = t[pc->b];
        joined.Append(t[pc->c].View());
        t[pc->a] = std::move(joined);
    }
    STEP;
}
DoLength:
    SET(static_cast<double>(t[pc->b].Size()));

DoGetItem : {
    cArray<double>& array = numberArrays[pc->b];
    std::size_t place = array.Place(n[pc->c]);
    if (place == cArray<double>::None) [[unlikely]] {
        current = pc;
        place = PlaceIn(array, n[pc->c]);
    }
    SET(array.Items()[place]);
}
DoSetItem : {
    cArray<double>& array = numberArrays[pc->b];
    std::size_t place = array.Place(n[pc->c]);
    if (place == cArray<double>::None) [[unlikely]] {
        current = pc;
        place = PlaceIn(array, n[pc->c]);
    }
    array.Items()[place] = n[pc->a];
    STEP;
}
DoGetItem2 : {
    cArray<double>& array = numberArrays[pc->b];
    current = pc;
    n[pc->a] = ItemAt(array, n[pc->c], n[pc[1].a]);
    pc += 2;
    NEXT;
}
DoSetItem2 : {
    cArray<double>& array = numberArrays[pc->b];
    current = pc;
    ItemAt(array, n[pc->c], n[pc[1].a]) = n[pc->a];
    pc += 2;
    NEXT;
}
DoGetTextItem : {
    cArray<cText>& array = textArrays[pc->b];
    current = pc;
    t[pc->a] = ItemAt(array, n[pc->c]);
    STEP;
}
DoSetTextItem : {
    cArray<cText>& array = textArrays[pc->b];
    current = pc;
    ItemAt(array, n[pc->c]) = t[pc->a];
    STEP;
}
DoGetTextItem2 : {
    cArray<cText>& array = textArrays[pc->b];
    current = pc;
    t[pc->a] = ItemAt(array, n[pc->c], n[pc[1].a]);
    pc += 2;
    NEXT;
}
DoSetTextItem2 : {
    cArray<cText>& array = textArrays[pc->b];
    current = pc;
    ItemAt(array, n[pc->c], n[pc[1].a]) = t[pc->a];
    pc += 2;
    NEXT;
}
DoDim:
    current = pc;
    numberArrays[pc->b].Dim(LastIndex(n[pc->a]));
    STEP;
DoDim2:
    current = pc;
    numberArrays[pc->b].Dim(LastIndex(n[pc->a]), LastIndex(n[pc->c]));
    STEP;
DoDimText:
    current = pc;
    textArrays[pc->b].Dim(LastIndex(n[pc->a]));
    STEP;
DoDimText2:
    current = pc;
    textArrays[pc->b].Dim(LastIndex(n[pc->a]), LastIndex(n[pc->c]));
    STEP;

DoReferToRegister:
    SET(Packed({Reference::Kind::Register, 0, frames.back().numbers + pc->b}));
DoReferToGlobal:
    SET(Packed({Reference::Kind::Global, 0, pc->b}));
DoReferToItem : {
    cArray<double>& array = numberArrays[pc->b];
    current = pc;
    const std::size_t place = pc[1].b == 0 ? PlaceIn(array, n[pc->c]) : PlaceIn(array, n[pc->c], n[pc[1].a]);
    n[pc->a] = Packed({Reference::Kind::Item, pc->b, place});
    pc += 2;
    NEXT;
}
DoReferToText:
    SET(Packed({Reference::Kind::Register, 0, frames.back().texts + pc->b}));
DoReferToGlobalText:
    SET(Packed({Reference::Kind::Global, 0, pc->b}));
DoReferToTextItem : {
    cArray<cText>& array = textArrays[pc->b];
    current = pc;
    const std::size_t place = pc[1].b == 0 ? PlaceIn(array, n[pc->c]) : PlaceIn(array, n[pc->c], n[pc[1].a]);
    n[pc->a] = Packed({Reference::Kind::Item, pc->b, place});
    pc += 2;
    NEXT;
}
DoGetReferred:
    current = pc;
    SET(NumberAt(n[pc->b]));
DoSetReferred:
    current = pc;
    NumberAt(n[pc->b]) = n[pc->a];
    STEP;
DoGetReferredText:
    current = pc;
    t[pc->a] = TextAt(n[pc->b]);
    STEP;
DoSetReferredText:
    current = pc;
    TextAt(n[pc->b]) = t[pc->a];
    STEP;

DoCall : {
    current = pc;
    const MachineRoutine& routine = code.routines[pc->a];
    Enter(routine, frames.back().numbers + pc->b, frames.back().texts + pc->c, pc + 1);
    pc = code.instructions.data() + routine.start;
    RELOAD;
    if (IsStopped()) [[unlikely]]
        return Ending::Stopped;
    NEXT;
}
DoReturn : {
    pc = frames.back().next;
    Leave();
    RELOAD;
    NEXT;
}
DoGosub:
    current = pc;
    gosubs.push_back(pc + 1);
    JUMP(LongJump(*pc));
DoReturnFromGosub:
    if (gosubs.size() == frames.back().gosubs)
        RAISE(ReturnWithoutGosub);
    pc = gosubs.back();
    gosubs.pop_back();
    NEXT;
DoOnError:
    frames.back().handler = pc->a == 0 ? nullptr : pc + 1 + LongJump(*pc);
    STEP;
DoResume:
    current = pc;
    DoResume();
    pc = current;
    if (IsStopped()) [[unlikely]]
        return Ending::Stopped;
    NEXT;
DoLibrary:
    current = pc;
    library[pc->a].routine(*this, n + pc->b, t + pc->c);
    STEP;

#undef NEXT
#undef STEP
#undef RAISE
#undef JUMP
#undef JUMP_WHEN
#undef SET_CHECKED
#undef SET
#undef RELOAD
}

} // namespace ob::basic
