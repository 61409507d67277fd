// SPDX-License-Identifier: GPL-3.0-or-later
// The scan for assignments: a single pass over the control's memory, without copies.
#include "engine/run/modVariables.h"

#include "platform/language/cLines.h"
#include "platform/language/modRuntime.h"

namespace ob {

namespace {

// The left side of an assignment without the words and statements before the name.
QByteArrayView NameIn(QByteArrayView left)
{
    QByteArrayView name = TrimSpaces(left);
    name = name.sliced(name.lastIndexOf(' ') + 1);
    return name.sliced(name.indexOf(':') + 1);
}

void ScanLine(QByteArrayView line, int number, std::vector<VariableEntry>& entries)
{
    QByteArrayView rest = TrimSpaces(line);
    for (qsizetype sign = rest.indexOf('='); sign >= 2; sign = rest.indexOf('=')) {
        const char before = rest[sign - 1];
        const QByteArrayView name = NameIn(rest.first(before == '<' || before == '>' ? sign - 1 : sign));
        if (!name.contains('"') && !name.contains(')'))
            entries.push_back({name, number});
        rest = LTrimSpaces(rest.sliced(sign + 1));
        if (rest.startsWith(':'))
            rest = rest.sliced(1);
        rest = TrimSpaces(rest);
    }
}

} // namespace

std::vector<VariableEntry> ScanVariables(QByteArrayView text)
{
    std::vector<VariableEntry> entries;
    for (cLines lines(text); lines.Next();)
        ScanLine(lines.ScannedLine(), lines.Number(), entries);
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
