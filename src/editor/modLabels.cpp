// SPDX-License-Identifier: GPL-3.0-or-later
// The index of a program's branch labels, subs and functions: one pass over the control's memory.
#include "editor/modLabels.h"

#include "platform/cLines.h"
#include "platform/modRuntime.h"

namespace ob {

namespace {

bool StartsWith(QByteArrayView line, QByteArrayView word)
{
    return line.size() >= word.size() && EqualsIgnoreCase(line.first(word.size()), word);
}

bool IsIndexLine(QByteArrayView entry)
{
    return !entry.isEmpty() && (entry.front() == '[' || StartsWith(entry, "sub ") || StartsWith(entry, "function "));
}

} // namespace

std::vector<LabelEntry> LabelIndex(QByteArrayView text)
{
    std::vector<LabelEntry> index;
    for (cLines lines(text); lines.Next();) {
        const QByteArrayView entry = LTrimBlanks(lines.ScannedLine());
        if (IsIndexLine(entry))
            index.push_back({lines.Number(), entry.toByteArray()});
    }
    return index;
}

} // namespace ob
