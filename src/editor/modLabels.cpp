// SPDX-License-Identifier: GPL-3.0-or-later
// The index of a program's branch labels, subs and functions: a single pass over the control's memory.
#include "editor/modLabels.h"

#include "platform/language/cLines.h"
#include "platform/language/modRuntime.h"

#include <QString>

#include <algorithm>
#include <ranges>

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

bool IsAscii(QByteArrayView text)
{
    return std::ranges::all_of(text, [](char character) { return static_cast<unsigned char>(character) < 0x80; });
}

// Comparing UTF-8 byte by byte gives the order of the character codes.
QByteArray SortKey(const QByteArray& text)
{
    return IsAscii(text) ? LowerAscii(QByteArrayView(text)) : QString::fromUtf8(text).toLower().toUtf8();
}

// A label for comparison: most lines differ in ASCII bytes, without decoding their characters.
class LabelTarget {
public:
    explicit LabelTarget(QByteArrayView target)
        : bytes(target), isAscii(IsAscii(target)), text(isAscii ? QString() : QString::fromUtf8(target))
    {
    }

    bool Is(QByteArrayView line) const
    {
        if (isAscii)
            return EqualsIgnoreCase(line, bytes);
        return QString::fromUtf8(line).compare(text, Qt::CaseInsensitive) == 0;
    }

private:
    QByteArrayView bytes;
    bool isAscii;
    QString text;
};

} // namespace

std::vector<LabelEntry> LabelIndex(QByteArrayView text)
{
    std::vector<LabelEntry> index;
    for (cLines lines(text); lines.Next();) {
        const QByteArrayView entry = LTrimSpaces(lines.ScannedLine());
        if (IsIndexLine(entry))
            index.push_back({lines.Number(), entry.toByteArray()});
    }
    return index;
}

std::vector<LabelEntry> SortedLabels(std::vector<LabelEntry> index)
{
    struct Keyed {
        QByteArray key;
        LabelEntry* entry;
    };
    std::vector<Keyed> order;
    order.reserve(index.size());
    for (LabelEntry& entry : index)
        order.push_back({SortKey(entry.text), &entry});
    std::ranges::stable_sort(order, [](const Keyed& left, const Keyed& right) { return left.key < right.key; });
    std::vector<LabelEntry> sorted;
    sorted.reserve(index.size());
    for (const Keyed& keyed : order)
        sorted.push_back(std::move(*keyed.entry));
    return sorted;
}

std::optional<int> FindLabel(QByteArrayView text, QByteArrayView target)
{
    if (target.isEmpty())
        return std::nullopt;
    const LabelTarget label(target);
    for (cLines lines(text); lines.Next();)
        if (label.Is(TrimSpaces(lines.ScannedLine())))
            return lines.Number();
    return std::nullopt;
}

void GoToLabel(Sci sci, QByteArrayView target)
{
    const std::string_view text = SciText(sci);
    if (const std::optional<int> found = FindLabel(QByteArrayView(text), target)) {
        const auto line = static_cast<std::uintptr_t>(*found);
        SendSci(sci, SCI_GOTOLINE, line);
        // With wrapped lines, the view counts rows.
        const std::intptr_t row = SendSci(sci, SCI_VISIBLEFROMDOCLINE, line);
        SendSci(sci, SCI_LINESCROLL, 0, row - SendSci(sci, SCI_GETFIRSTVISIBLELINE));
    }
    SendSci(sci, SCI_GRABFOCUS);
}

std::intptr_t SelectionStartAfterFirst(Sci sci)
{
    const std::intptr_t start = SendSci(sci, SCI_GETSELECTIONSTART);
    if (start > 0)
        return start;
    // The caret must not be inside a character of several bytes or a line end.
    const bool isFirstLineEmpty = SendSci(sci, SCI_GETLINEENDPOSITION, 0) == 0;
    return isFirstLineEmpty ? 0 : SendSci(sci, SCI_POSITIONAFTER, 0);
}

void FollowSortToggle(Sci sci)
{
    const auto saved = static_cast<std::uintptr_t>(SelectionStartAfterFirst(sci));
    const std::intptr_t first = SendSci(sci, SCI_GETFIRSTVISIBLELINE);
    const std::intptr_t savedLine = SendSci(sci, SCI_LINEFROMPOSITION, saved);
    SendSci(sci, SCI_GOTOPOS, saved);
    // With wrapped lines, the view counts rows.
    const std::intptr_t firstLine = SendSci(sci, SCI_DOCLINEFROMVISIBLE, static_cast<std::uintptr_t>(first));
    const std::intptr_t savedRow = SendSci(sci, SCI_VISIBLEFROMDOCLINE, static_cast<std::uintptr_t>(savedLine));
    SendSci(sci, SCI_GOTOLINE, static_cast<std::uintptr_t>(firstLine));
    SendSci(sci, SCI_LINESCROLL, 0, savedRow - first - 1);
    SendSci(sci, SCI_GRABFOCUS);
}

} // namespace ob
