// SPDX-License-Identifier: GPL-3.0-or-later
// Reading through a buffer.
#include "orchard/library/cInput.h"

#include <algorithm>
#include <cstring>

#include "orchard/library/cItems.h"
#include "orchard/library/cProgramError.h"

namespace ob::basic {

namespace {

constexpr std::size_t firstCapacity = std::size_t{1} << 16;

} // namespace

// Makes room by moving what is not read to the front, or by a larger buffer, and receives into it.
bool cInput::More()
{
    if (filled == capacity || at == filled) {
        const std::size_t left = Unread();
        const std::size_t needed = std::max(firstCapacity, left > capacity / 2 ? capacity * 2 : capacity);
        for (Mark* mark : {&lineFeed, &carriageReturn}) {
            mark->isThere = mark->isThere && mark->place >= at;
            mark->place = std::max(mark->place, at) - at;
        }
        if (needed != capacity) {
            auto larger = std::make_unique_for_overwrite<char[]>(needed);
            std::copy_n(buffer.get() + at, left, larger.get());
            buffer = std::move(larger);
            capacity = needed;
        } else {
            std::memmove(buffer.get(), buffer.get() + at, left);
        }
        at = 0;
        filled = left;
    }
    const std::size_t received = Receive({buffer.get() + filled, capacity - filled});
    filled += received;
    return received > 0;
}

void cInput::NeedMore()
{
    if (at == filled && !More())
        Fail(ErrorNumber::InputPastEnd);
}

std::size_t cInput::Find(Mark& mark, char byte) const
{
    if (mark.place < at)
        mark = {at, false};
    if (mark.isThere || mark.place == filled)
        return mark.place;
    const void* found = std::memchr(buffer.get() + mark.place, byte, filled - mark.place);
    mark.isThere = found != nullptr;
    mark.place = mark.isThere ? static_cast<std::size_t>(static_cast<const char*>(found) - buffer.get()) : filled;
    return mark.place;
}

// The next line, which is in the buffer then, with the line feed after a carriage return.
cInput::LinePlace cInput::FindLine()
{
    std::size_t end = 0;
    do
        end = std::min(Find(lineFeed, '\n'), Find(carriageReturn, '\r'));
    while (end == filled && More());
    const std::size_t length = end - at;
    if (end == filled)
        return {length, length};
    if (buffer[end] == '\r' && (end + 1 < filled || More()) && buffer[at + length + 1] == '\n')
        return {length, length + 2};
    return {length, length + 1};
}

std::string_view cInput::Take(std::size_t length, std::size_t passed)
{
    const std::string_view taken(buffer.get() + at, length);
    at += passed;
    return taken;
}

bool cInput::IsAtEnd()
{
    StartReading();
    return at == filled && !More();
}

std::string_view cInput::Line()
{
    StartReading();
    NeedMore();
    const LinePlace line = FindLine();
    return Take(line.length, line.withEnd);
}

std::string_view cInput::Item()
{
    StartReading();
    NeedMore();
    const LinePlace line = FindLine();
    const basic::Item item = FrontItem({buffer.get() + at, line.length});
    at += item.isLast ? line.withEnd : item.length;
    return item.text;
}

std::string_view cInput::Bytes(std::size_t count)
{
    StartReading();
    if (count == 0)
        return {};
    NeedMore();
    while (Unread() < count && More()) {
    }
    const std::size_t length = std::min(count, Unread());
    return Take(length, length);
}

std::string_view cInput::UpTo(std::string_view delimiter)
{
    StartReading();
    NeedMore();
    std::size_t searched = 0; // from the reading place on
    while (true) {
        const std::string_view unread(buffer.get() + at, Unread());
        const std::size_t found = delimiter.empty() ? std::string_view::npos : unread.find(delimiter, searched);
        if (found != std::string_view::npos)
            return Take(found, found + delimiter.size());
        searched = unread.size() < delimiter.size() ? 0 : unread.size() - delimiter.size();
        if (!More())
            return Take(unread.size(), unread.size());
    }
}

void cInput::MoveTo(std::size_t place)
{
    at = place;
    lineFeed = carriageReturn = {};
}

void cInput::DropBuffer()
{
    at = filled = 0;
    lineFeed = carriageReturn = {};
}

} // namespace ob::basic
