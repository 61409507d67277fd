// SPDX-License-Identifier: GPL-3.0-or-later
// What the editing commands do to a text.
#include "editor/modEditText.h"

#include "platform/language/cLines.h"
#include "platform/language/modRuntime.h"

namespace ob {

namespace {

constexpr char Quote = '\'';

enum class CommentMode { Comment, Uncomment };

bool IsLineEnd(char character)
{
    return character == '\r' || character == '\n';
}

// The start of the line that contains position; between CR and LF that is the line they end.
qsizetype LineStart(QByteArrayView text, qsizetype position)
{
    const auto isAfterLineEnd = [&](qsizetype at) {
        return text[at - 1] == '\n' || (text[at - 1] == '\r' && (at == text.size() || text[at] != '\n'));
    };
    while (position > 0 && !isAfterLineEnd(position))
        --position;
    return position;
}

qsizetype AfterLineEnd(QByteArrayView text, qsizetype end)
{
    return end + (text.sliced(end).startsWith("\r\n") ? 2 : 1);
}

// The position of the previous character; 0 at the start.
qsizetype CharacterBefore(QByteArrayView text, qsizetype position)
{
    if (position > 0)
        --position;
    while (position > 0 && (static_cast<unsigned char>(text[position]) & 0xC0) == 0x80)
        --position;
    return position;
}

QByteArrayView WithoutLastCharacter(QByteArrayView text)
{
    return text.first(CharacterBefore(text, text.size()));
}

// The first line decides for all. When there is no line end to remove, its last character is removed instead.
CommentMode ModeFor(QByteArrayView line, bool hasLineEnd)
{
    const QByteArrayView text = LTrimSpaces(hasLineEnd ? line : WithoutLastCharacter(line));
    const bool isRemark = text.size() >= 3 && EqualsIgnoreCase(text.first(3), "rem");
    return isRemark || text.startsWith(Quote) ? CommentMode::Uncomment : CommentMode::Comment;
}

void AppendUncommented(QByteArray& to, QByteArrayView line)
{
    const QByteArrayView trimmed = LTrimSpaces(line);
    QByteArray rest;
    if (trimmed.startsWith(Quote)) {
        rest = line.first(line.size() - trimmed.size()).toByteArray();
        rest.append(trimmed.sliced(1));
        line = rest;
    }
    if (line.size() >= 4 && EqualsIgnoreCase(line.first(4), "rem "))
        line = line.sliced(4);
    to.append(line);
}

} // namespace

std::optional<qsizetype> StartOfLine(QByteArrayView text, qsizetype number)
{
    cLines lines(text);
    while (lines.Next())
        if (lines.Number() == number)
            return lines.Line().data() - text.data();
    const bool hasEmptyLast = text.isEmpty() || IsLineEnd(text.back());
    if (hasEmptyLast && number == lines.Number() + 1)
        return text.size();
    return std::nullopt;
}

qsizetype EndOfLine(QByteArrayView text, qsizetype start)
{
    while (start < text.size() && !IsLineEnd(text[start]))
        ++start;
    return start;
}

std::optional<TextChange> BlockComment(QByteArrayView text, qsizetype selectionStart, qsizetype selectionEnd)
{
    const qsizetype first = LineStart(text, selectionStart);
    const qsizetype last = LineStart(text, CharacterBefore(text, CharacterBefore(text, selectionEnd)));
    if (last < first)
        return std::nullopt;

    TextChange change{first, EndOfLine(text, last), {}};
    const qsizetype firstEnd = EndOfLine(text, first);
    const CommentMode mode = ModeFor(text.sliced(first, firstEnd - first), firstEnd < text.size());
    for (qsizetype start = first; start <= last;) {
        const qsizetype end = EndOfLine(text, start);
        QByteArrayView line = text.sliced(start, end - start);
        // Cutting off the line end removes a character where there is no line end, but never the only one.
        if (const QByteArrayView cut = WithoutLastCharacter(line); end == text.size() && !cut.isEmpty())
            line = cut;
        if (mode == CommentMode::Uncomment)
            AppendUncommented(change.replacement, line);
        else
            change.replacement.append(Quote).append(line);
        if (start == last)
            break;
        const qsizetype next = AfterLineEnd(text, end);
        change.replacement.append(text.sliced(end, next - end));
        start = next;
    }
    // The same once more, for the rest of the line end after all lines.
    if (change.to == text.size())
        change.replacement.truncate(WithoutLastCharacter(change.replacement).size());
    return change;
}

bool OpensBlock(QByteArrayView line)
{
    const QByteArrayView text = LTrimSpaces(line);
    const qsizetype space = text.indexOf(' ');
    if (space < 0)
        return false;
    for (const char* opener : {"if", "do", "while", "for"})
        if (EqualsIgnoreCase(text.first(space), QByteArrayView(opener)))
            return true;
    return false;
}

bool MayHoldLabel(QByteArrayView line)
{
    const QByteArray lower = LowerAscii(line);
    return lower.contains('[') || lower.contains("function") || lower.contains("sub");
}

int IndentationOf(QByteArrayView line, int tabSize)
{
    int column = 0;
    for (const char character : line) {
        if (character == '\t')
            column += tabSize - column % tabSize;
        else if (character == ' ')
            ++column;
        else
            break;
    }
    return column;
}

TextChange ReturnAtEnd(QByteArrayView text, qsizetype start, int tabSize)
{
    const qsizetype end = EndOfLine(text, start);
    const QByteArrayView line = text.sliced(start, end - start);
    const int indentation = IndentationOf(line, tabSize) + (OpensBlock(line) ? tabSize : 0);
    return {end, end, "\r\n" + QByteArray(indentation, ' ')};
}

} // namespace ob
