// SPDX-License-Identifier: GPL-3.0-or-later
// Runs a code.
#pragma once

#include "orchard/language/modWords.h"
#include "orchard/library/cProgramError.h"
#include "orchard/machine/cArrays.h"
#include "orchard/machine/cMachineCode.h"
#include "orchard/machine/cRunError.h"
#include "orchard/machine/cText.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace ob::basic {

class cMachine;

// What the rows of the library need of the world.
class cRowContext {
public:
    virtual ~cRowContext() = default;

    // A statement was left by an error, an event or the end.
    virtual void LeaveStatement() {}
};

// Thrown by a row: an event happened, whose handler is a label (its number from 1 on) or a routine (its number,
// negative). The machine jumps there, or calls it and then does the row's instruction again.
struct EventRaised {
    double handler = 0;
};

// Thrown by a row to end the program.
struct ProgramEnded {};

// A row of the library. The arguments are in the registers from there on, in the order of the call, numbers and texts
// apart; the result goes to the first register of its type. May throw cProgramError, std::bad_alloc, EventRaised and
// ProgramEnded; anything else goes through to whoever runs the machine.
using LibraryRoutine = void (*)(cMachine& machine, double* numbers, cText* texts);

struct LibraryRow {
    LibraryRoutine routine = nullptr;
    std::uint16_t numbers = 0; // how many registers it takes
    std::uint16_t texts = 0;
    ValueType result = ValueType::None;
};

class cMachine {
public:
    // The program must have been checked (modCheckCode.h) with that library. Both must live as long as the machine.
    cMachine(const MachineCode& code, std::span<const LibraryRow> library, cRowContext* context = nullptr);

    cRowContext* Context() const { return rowContext; }
    ~cMachine();
    cMachine(const cMachine&) = delete;
    cMachine& operator=(const cMachine&) = delete;

    enum class Ending { Ended, Stopped };

    // Runs from the start to the program's end. Throws cRunError, with its line, when a run-time error has no handler.
    Ending Run();

    // From any thread or signal handler: the program ends within a moment.
    void Stop() { isStopped.store(true, std::memory_order_relaxed); }
    bool IsStopped() const { return isStopped.load(std::memory_order_relaxed); }

    // The line of the statement that runs, where a row was left by what it threw.
    std::uint32_t CurrentLine() const { return StatementAt(current).line; }

    // The last run-time error; number 0 when there was none.
    const cRunError& LastError() const { return lastError; }

    // Variables of the system, which the program may have changed.
    double& System(SystemVariable variable);
    cText& SystemText(SystemVariable variable);

    // What a reference refers to; IndexOutside when it is gone.
    double& NumberAt(double reference);
    cText& TextAt(double reference);

    const MachineCode& Code() const { return code; }

    cArray<double>& NumberArray(std::size_t number) { return numberArrays[number]; }
    cArray<cText>& TextArray(std::size_t number) { return textArrays[number]; }

private:
    struct Frame {
        const MachineRoutine* routine;
        const Instruction* next;    // where the caller goes on
        const Instruction* handler; // null without one
        std::size_t numbers;        // the place of the first register
        std::size_t texts;
        std::size_t gosubs; // how many were open when it was called
    };

    // Where a value is that was passed by reference. It survives the growth of the registers.
    struct Reference {
        enum class Kind : std::uint8_t { Register, Global, Item };
        Kind kind;
        std::uint16_t array;
        std::uint64_t place;
    };
    static double Packed(const Reference& reference);
    static Reference Unpacked(double packed);

    Ending Loop();
    void Enter(const MachineRoutine& routine, std::size_t firstNumber, std::size_t firstText, const Instruction* next);
    void Leave();
    void Grow(std::size_t numbers, std::size_t texts);
    bool Handle(const cProgramError& error);
    void LeaveStatement();
    void HandleEvent(const EventRaised& event);
    void DoResume();
    const StatementPlace& StatementAt(const Instruction* instruction) const;

    template <class Item>
    static std::size_t PlaceIn(cArray<Item>& array, double index);
    template <class Item>
    static std::size_t PlaceIn(cArray<Item>& array, double first, double second);
    template <class Item, class... Index>
    static Item& ItemAt(cArray<Item>& array, Index... index);

    const MachineCode& code;
    std::span<const LibraryRow> library;
    cRowContext* rowContext;

    std::vector<double> globals;
    std::vector<cText> globalTexts;
    std::vector<cArray<double>> numberArrays;
    std::vector<cArray<cText>> textArrays;

    // Registers of all frames, one after another; a call's arguments are the first registers of what is called.
    std::vector<double> numbers;
    std::vector<cText> texts;
    std::vector<Frame> frames;
    std::vector<const Instruction*> gosubs;
    std::vector<cText> literals;

    const Instruction* current = nullptr; // the instruction that may raise an error, or where the loop goes on
    const Instruction* resumeAt = nullptr;
    cRunError lastError;
    std::atomic<bool> isStopped = false;
};

inline void cMachine::Enter(const MachineRoutine& routine, std::size_t firstNumber, std::size_t firstText,
                            const Instruction* next)
{
    if (firstNumber + routine.numberRegisters > numbers.size() || firstText + routine.textRegisters > texts.size())
        [[unlikely]]
        Grow(firstNumber + routine.numberRegisters, firstText + routine.textRegisters);
    frames.push_back({&routine, next, nullptr, firstNumber, firstText, gosubs.size()});
    double* const first = numbers.data() + firstNumber;
    for (std::size_t place = routine.numberParameters; place < routine.numberVariables; ++place)
        first[place] = 0;
    for (std::size_t place = firstText + routine.textParameters; place < firstText + routine.textVariables; ++place)
        texts[place] = cText();
}

// Puts the result where the caller expects it, the first register of its type, and empties the other texts.
inline void cMachine::Leave()
{
    const Frame& frame = frames.back();
    const MachineRoutine& routine = *frame.routine;
    if (routine.result == ValueType::Number)
        numbers[frame.numbers] = numbers[frame.numbers + routine.resultRegister];
    else if (routine.result == ValueType::Text && routine.resultRegister != 0)
        texts[frame.texts].Swap(texts[frame.texts + routine.resultRegister]);
    const std::size_t kept = routine.result == ValueType::Text ? 1 : 0;
    for (std::size_t place = frame.texts + kept; place < frame.texts + routine.textRegisters; ++place)
        texts[place] = cText();
    if (gosubs.size() != frame.gosubs)
        gosubs.resize(frame.gosubs);
    frames.pop_back();
}

} // namespace ob::basic
