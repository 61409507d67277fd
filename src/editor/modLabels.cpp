// SPDX-License-Identifier: GPL-3.0-or-later
// The index of a program's branch labels, subs and functions: one pass over the control's memory.
#include "editor/modLabels.h"

#include "platform/modRuntime.h"

#include <cstring>

namespace ob {

namespace {

// The end of the line that starts at the pointer, its line end not counted.
const char* LineEnd(const char* at, const char* end)
{
    const auto find = [at](const char* before, char mark) {
        const void* hit = std::memchr(at, mark, static_cast<std::size_t>(before - at));
        return hit == nullptr ? before : static_cast<const char*>(hit);
    };
    return find(find(end, '\n'), '\r');
}

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
    int number = 0;
    for (const char* start = text.data(); start != end; ++number) {
        const char* const stop = LineEnd(start, end);
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
