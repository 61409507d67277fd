// SPDX-License-Identifier: GPL-3.0-or-later
// Printing through a buffer.
#include "orchard/library/cOutput.h"

#include <algorithm>

#include "orchard/library/cDiskFile.h"

namespace ob::basic {

namespace {

constexpr std::size_t columnWidth = 14;
constexpr std::int64_t lastColumn = 1000000;
constexpr std::int64_t soon = 10; // milliseconds

} // namespace

void cOutput::Append(std::string_view text)
{
    if (text.empty())
        return;
    if (used > 0)
        SendAll();
    StartWriting();
    if (text.size() > Capacity)
        return SendNow(text);
    if (!buffer)
        buffer = std::make_unique_for_overwrite<char[]>(Capacity);
    text.copy(buffer.get(), text.size());
    used = text.size();
}

void cOutput::SendAll()
{
    Column();
    columnPlace = 0;
    const std::string_view waiting(buffer.get(), used);
    used = 0;
    Send(waiting);
    lastSent = CoarseMilliseconds();
}

void cOutput::SendNow(std::string_view bytes)
{
    column = ColumnAfter(column, bytes);
    columnPlace = 0;
    Send(bytes);
    lastSent = CoarseMilliseconds();
}

void cOutput::EndStatement()
{
    if (used > 0 && (promptness == Promptness::AtOnce || CoarseMilliseconds() - lastSent > soon))
        SendAll();
}

std::size_t cOutput::ColumnAfter(std::size_t column, std::string_view text)
{
    for (std::size_t at = text.size(); at-- > 0;)
        if (text[at] == '\n' || text[at] == '\r')
            return text.size() - at - 1;
    return column + text.size();
}

std::size_t cOutput::Column()
{
    if (columnPlace < used)
        column = ColumnAfter(column, {buffer.get() + columnPlace, used - columnPlace});
    columnPlace = used;
    return column;
}

void cOutput::ResetColumn()
{
    column = 0;
    columnPlace = used;
}

void cOutput::Spaces(std::size_t count)
{
    constexpr std::string_view spaces = "                                                                ";
    for (; count > 0; count -= std::min(count, spaces.size()))
        Text(spaces.substr(0, count));
}

void cOutput::Comma()
{
    Spaces(columnWidth - Column() % columnWidth);
}

void cOutput::Tab(double wanted)
{
    const auto place = static_cast<std::size_t>(std::clamp<std::int64_t>(WholePart(wanted), 1, lastColumn) - 1);
    if (place < Column()) {
        Text(lineEnd);
        ResetColumn();
    }
    Spaces(place - Column());
}

} // namespace ob::basic
