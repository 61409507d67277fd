// SPDX-License-Identifier: GPL-3.0-or-later
// The scan for assignments: one pass over the control's memory, nothing copied.
#include "engine/modVariables.h"

#include "platform/modRuntime.h"

#include <algorithm>

namespace ob {

namespace {

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Whole characters go; one always stays.
QByteArrayView WithoutLastTwo(QByteArrayView line)
{
    for (int character = 0; character < 2; ++character) {
        qsizetype lead = line.size() - 1;
        while (lead > 0 && IsContinuation(line[lead]))
            --lead;
        if (lead <= 0)
            break;
        line.truncate(lead);
    }
    return line;
}

// What is left of an assignment's left side without words and statements before the name.
QByteArrayView NameIn(QByteArrayView left)
{
    QByteArrayView name = TrimBlanks(left);
    name = name.sliced(name.lastIndexOf(' ') + 1);
    return name.sliced(name.indexOf(':') + 1);
}

void ScanLine(QByteArrayView line, int number, std::vector<VariableEntry>& entries)
{
    QByteArrayView rest = TrimBlanks(line);
    for (qsizetype sign = rest.indexOf('='); sign >= 2; sign = rest.indexOf('=')) {
        const char before = rest[sign - 1];
        const QByteArrayView name = NameIn(rest.first(before == '<' || before == '>' ? sign - 1 : sign));
        if (!name.contains('"') && !name.contains(')'))
            entries.push_back({name, number});
        rest = LTrimBlanks(rest.sliced(sign + 1));
        if (rest.startsWith(':'))
            rest = rest.sliced(1);
        rest = TrimBlanks(rest);
    }
}

} // namespace

std::vector<VariableEntry> ScanVariables(QByteArrayView text)
{
    std::vector<VariableEntry> entries;
    const char* const end = text.data() + text.size();
    int number = 0;
    for (const char* start = text.data(); start != end; ++number) {
        const char* const stop = std::find_if(start, end, [](char byte) { return byte == '\r' || byte == '\n'; });
        const QByteArrayView line(start, stop - start);
        ScanLine(stop == end ? WithoutLastTwo(line) : line, number, entries);
        start = stop;
        if (start != end)
            start += end - start >= 2 && start[0] == '\r' && start[1] == '\n' ? 2 : 1;
    }
    return entries;
}

void GotoVariableLine(Sci sci, int line)
{
    SendSci(sci, SCI_GOTOLINE, static_cast<std::uintptr_t>(line));
    const auto first = SendSci(sci, SCI_GETFIRSTVISIBLELINE);
    SendSci(sci, SCI_LINESCROLL, 0, line - first - 1);
    SendSci(sci, SCI_GRABFOCUS);
}

} // namespace ob
