// SPDX-License-Identifier: GPL-3.0-or-later
// Accessibility of the edit control. QScintilla's own interface counts characters from the start of the text at each
// key and each paint; this one counts from the last position requested.
#pragma once

#include "scilexer/modSci.h"
#include "scilexer/modTextOffsets.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace ob {

// Offsets are UTF-16 units, as Qt's interfaces expect; the control counts bytes.
class SciAccessible final : public QAccessibleWidget,
                            public QAccessibleTextInterface,
                            public QAccessibleEditableTextInterface {
public:
    SciAccessible(QWidget* control, Sci door, TextOffsets& textOffsets)
        : QAccessibleWidget(control, QAccessible::EditableText), sci(door), offsets(textOffsets)
    {
    }

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TextInterface)
            return static_cast<QAccessibleTextInterface*>(this);
        if (type == QAccessible::EditableTextInterface)
            return static_cast<QAccessibleEditableTextInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.editable = true;
        state.multiLine = true;
        state.selectableText = true;
        state.focusable = true;
        return state;
    }

    int characterCount() const override { return OffsetOf(Ask(SCI_GETLENGTH)); }
    int cursorPosition() const override { return OffsetOf(Ask(SCI_GETCURRENTPOS)); }
    void setCursorPosition(int offset) override { Ask(SCI_GOTOPOS, PositionOf(offset)); }

    int selectionCount() const override { return Ask(SCI_GETSELECTIONSTART) == Ask(SCI_GETSELECTIONEND) ? 0 : 1; }
    void selection(int index, int* start, int* end) const override
    {
        const bool isThere = index == 0 && selectionCount() != 0;
        *start = isThere ? OffsetOf(Ask(SCI_GETSELECTIONSTART)) : 0;
        *end = isThere ? OffsetOf(Ask(SCI_GETSELECTIONEND)) : 0;
    }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void setSelection(int index, int start, int end) override
    {
        if (index == 0)
            Ask(SCI_SETSEL, PositionOf(start), static_cast<std::intptr_t>(PositionOf(end)));
    }
    void removeSelection(int index) override
    {
        if (index == 0)
            Ask(SCI_GOTOPOS, static_cast<std::uintptr_t>(Ask(SCI_GETCURRENTPOS)));
    }

    QString text(QAccessible::Text kind) const override { return QAccessibleWidget::text(kind); }
    QString text(int start, int end) const override
    {
        return start < end ? Between(PositionOf(start), PositionOf(end)) : QString();
    }
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const override
    {
        textAtOffset(offset, type, start, end);
        return *start > 0 ? textAtOffset(*start - 1, type, start, end) : Nothing(start, end);
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const override
    {
        textAtOffset(offset, type, start, end);
        return *end < characterCount() ? textAtOffset(*end, type, start, end) : Nothing(start, end);
    }

    QRect characterRect(int offset) const override
    {
        const auto position = static_cast<std::intptr_t>(PositionOf(offset));
        const auto left = static_cast<int>(Ask(SCI_POINTXFROMPOSITION, 0, position));
        const auto top = static_cast<int>(Ask(SCI_POINTYFROMPOSITION, 0, position));
        const auto next = static_cast<std::intptr_t>(PositionOf(offset + 1));
        const auto right = static_cast<int>(Ask(SCI_POINTXFROMPOSITION, 0, next));
        const auto height = static_cast<int>(Ask(SCI_TEXTHEIGHT));
        return {widget()->mapToGlobal(QPoint(left, top)), QSize(std::max(1, right - left), height)};
    }
    int offsetAtPoint(const QPoint& point) const override
    {
        const QPoint local = widget()->mapFromGlobal(point);
        const std::intptr_t position =
            Ask(SCI_POSITIONFROMPOINTCLOSE, static_cast<std::uintptr_t>(local.x()), local.y());
        return position < 0 ? -1 : OffsetOf(position);
    }
    void scrollToSubstring(int start, int end) override
    {
        Ask(SCI_SCROLLRANGE, PositionOf(end), static_cast<std::intptr_t>(PositionOf(start)));
    }
    QString attributes(int offset, int* start, int* end) const override
    {
        *start = offset;
        *end = offset + 1;
        return {};
    }

    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void insertText(int offset, const QString& inserted) override { replaceText(offset, offset, inserted); }
    void replaceText(int start, int end, const QString& replacement) override
    {
        const std::uintptr_t from = PositionOf(start);
        Ask(SCI_SETTARGETRANGE, from, static_cast<std::intptr_t>(PositionOf(std::max(start, end))));
        const QByteArray bytes = replacement.toUtf8();
        SendSci(sci, SCI_REPLACETARGET, static_cast<std::uintptr_t>(bytes.size()), bytes.constData());
    }

private:
    std::intptr_t Ask(unsigned message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0) const
    {
        return SendSci(sci, message, wParam, lParam);
    }
    int OffsetOf(std::intptr_t position) const { return static_cast<int>(offsets.OffsetOf(position)); }
    std::uintptr_t PositionOf(int offset) const { return static_cast<std::uintptr_t>(offsets.PositionOf(offset)); }

    QString Between(std::uintptr_t from, std::uintptr_t to) const
    {
        const auto length = static_cast<std::intptr_t>(to - from);
        if (from >= to)
            return {};
        return QString::fromUtf8(reinterpret_cast<const char*>(Ask(SCI_GETRANGEPOINTER, from, length)), length);
    }
    static QString Nothing(int* start, int* end)
    {
        *start = *end = -1;
        return {};
    }

    Sci sci;
    TextOffsets& offsets;
};

// Words and sentences are searched within one line only, so that the answer does not depend on the size of the text.
inline QString SciAccessible::textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start, int* end) const
{
    const std::uintptr_t position = PositionOf(std::max(offset, 0));
    const auto line = static_cast<std::uintptr_t>(Ask(SCI_LINEFROMPOSITION, position));
    const std::intptr_t lineStart = Ask(SCI_POSITIONFROMLINE, line);
    const int lineOffset = OffsetOf(lineStart);
    const QString lineText = Between(static_cast<std::uintptr_t>(lineStart),
                                     static_cast<std::uintptr_t>(Ask(SCI_POSITIONFROMLINE, line + 1)));
    qsizetype from = 0;
    qsizetype to = lineText.size();
    std::optional<QTextBoundaryFinder::BoundaryType> unit;
    if (type == QAccessible::CharBoundary)
        unit = QTextBoundaryFinder::Grapheme;
    else if (type == QAccessible::WordBoundary)
        unit = QTextBoundaryFinder::Word;
    else if (type == QAccessible::SentenceBoundary)
        unit = QTextBoundaryFinder::Sentence;
    if (unit && !lineText.isEmpty()) {
        QTextBoundaryFinder finder(*unit, lineText);
        const qsizetype place = std::min<qsizetype>(OffsetOf(static_cast<std::intptr_t>(position)) - lineOffset, to);
        finder.setPosition(place);
        from = finder.isAtBoundary() ? place : std::max<qsizetype>(finder.toPreviousBoundary(), 0);
        finder.setPosition(place);
        const qsizetype next = finder.toNextBoundary();
        to = next < 0 ? to : next;
    } else if (type == QAccessible::NoBoundary) {
        *start = 0;
        *end = characterCount();
        return text(*start, *end);
    }
    *start = lineOffset + static_cast<int>(from);
    *end = lineOffset + static_cast<int>(to);
    return lineText.mid(from, to - from);
}

} // namespace ob
