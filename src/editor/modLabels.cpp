// SPDX-License-Identifier: GPL-3.0-or-later
// The index of a program's branch labels, subs and functions: one pass over the control's memory.
#include "editor/modLabels.h"

#include "platform/modRuntime.h"

#include <algorithm>
#include <cstring>

namespace ob {

namespace {

// Where lines end. Each kind of mark is looked for again only behind the last one found, so that a text with one kind
// alone is still read once.
class LineEnds {
public:
    explicit LineEnds(const char* textEnd) : end(textEnd) {}

    // The end of the line that starts at the pointer, its line end not counted. Asked for from front to back.
    const char* After(const char* at)
    {
        Advance(nextReturn, '\r', at);
        Advance(nextFeed, '\n', at);
        return std::min(nextReturn, nextFeed);
    }

private:
    void Advance(const char*& next, char mark, const char* at) const
    {
        if (next != nullptr && next >= at)
            return;
        const void* hit = std::memchr(at, mark, static_cast<std::size_t>(end - at));
        next = hit == nullptr ? end : static_cast<const char*>(hit);
    }

    const char* end;
    const char* nextReturn = nullptr; // null before the first look
    const char* nextFeed = nullptr;
};

bool StartsWith(QByteArrayView line, QByteArrayView word)
{
    return line.size() >= word.size() && EqualsIgnoreCase(line.first(word.size()), word);
}

bool IsIndexLine(QByteArrayView entry)
{
    return !entry.isEmpty() && (entry.front() == '[' || StartsWith(entry, "sub ") || StartsWith(entry, "function "));
}

// Whole characters go: continuation bytes leave together with their lead byte.
QByteArrayView WithoutLastTwo(QByteArrayView line)
{
    for (int character = 0; character < 2 && line.size() > 1; ++character) {
        line.chop(1);
        while (line.size() > 1 && (static_cast<unsigned char>(line.data()[line.size()]) & 0xC0) == 0x80)
            line.chop(1);
    }
    return line;
}

} // namespace

std::vector<LabelEntry> LabelIndex(QByteArrayView text)
{
    std::vector<LabelEntry> index;
    const char* const end = text.data() + text.size();
    LineEnds lineEnds(end);
    int number = 0;
    for (const char* start = text.data(); start != end; ++number) {
        const char* const stop = lineEnds.After(start);
        QByteArrayView line(start, stop - start);
        if (stop == end)
            line = WithoutLastTwo(line);
        const QByteArrayView entry = LTrimBlanks(line);
        if (IsIndexLine(entry))
            index.push_back({number, entry.toByteArray()});
        start = stop;
        if (start != end)
            start += (end - start >= 2 && start[0] == '\r' && start[1] == '\n') ? 2 : 1;
    }
    return index;
}

} // namespace ob
