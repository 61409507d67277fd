// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the library that code calls: their numbers, and what they take and give.
#pragma once

#include "orchard/language/modWords.h"

#include <cstdint>
#include <span>

namespace ob::basic {

struct LibraryRow;

// Rows that neither Function nor Command names. Those of Function follow, then those of Command.
enum class ServiceRow : std::uint16_t {
    PrintNumber,
    PrintText,
    PrintComma,
    PrintTab,
    PrintEnd,     // the line's end, and the statement's
    PrintDone,    // the statement's end without the line's
    PrintTo,      // text: the handle of what is printed until PrintEnd
    PrintPrinter, // the same for the printer
    InputStart,   // text: the prompt
    InputAsk,     // without one
    InputFrom,    // text: the handle of the next items
    InputNumber,
    InputText,
    InputEnd,
    LineInput, // gives the line after InputStart, InputAsk or InputFrom
    ReadNumber,
    ReadText,
    Restore,     // number: the item
    Open,        // texts: name, type, handle; number: the length of records, or 0
    FieldStart,  // text: the handle
    FieldNumber, // numbers: the width, a reference
    FieldText,
    FieldEnd,
    DateOfDays,
    StructDefine,   // number: the layout
    StructSize,     // number: the struct; so are the first numbers of these
    FieldGetNumber, // text: the field
    FieldGetText,
    FieldSetNumber, // number: the value
    FieldSetText,   // texts: the field, the value
    DateNumber,
    TimeNumber,
    InputFromHandle, // input$(#h, n)
    Unsupported,     // text: what this engine does not have
    Count,
};

constexpr std::uint16_t RowNumber(ServiceRow row)
{
    return static_cast<std::uint16_t>(row);
}
constexpr std::uint16_t RowNumber(Function function)
{
    return static_cast<std::uint16_t>(RowNumber(ServiceRow::Count) + static_cast<std::uint16_t>(function));
}
constexpr std::uint16_t RowNumber(Command command)
{
    return static_cast<std::uint16_t>(RowNumber(Function::Count) + static_cast<std::uint16_t>(command));
}

// All rows, by their numbers.
std::span<const LibraryRow> LibraryRows();

} // namespace ob::basic
