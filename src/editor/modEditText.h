// SPDX-License-Identifier: GPL-3.0-or-later
// What the editing commands do to a text, independent of the control: block comment and auto-indent. Texts are UTF-8
// and positions count bytes; where the commands count characters, a character of several bytes is one.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace ob {

// The bytes [from, to) of a text, and their replacement.
struct TextChange {
    qsizetype from = 0;
    qsizetype to = 0;
    QByteArray replacement;
};

// The start of line number (from 0); nothing when the text has no such line. An empty line follows a final line end.
std::optional<qsizetype> StartOfLine(QByteArrayView text, qsizetype number);

// The end of the line that begins at start, without its line end.
qsizetype EndOfLine(QByteArrayView text, qsizetype start);

// Puts a quote character before each line that the selection touches, or removes it when the first line begins with one
// or with "rem"; "rem " at the very start of a line is removed too. The last line is the one of the selection's last
// two characters; nothing when it comes before the first. A last line without a line end loses two characters.
std::optional<TextChange> BlockComment(QByteArrayView text, qsizetype selectionStart, qsizetype selectionEnd);

// Whether the following line is indented one step more: the first word, left-trimmed and followed by a space, is "if",
// "do", "while" or "for".
bool OpensBlock(QByteArrayView line);

// Whether the line may contain an entry of the label lists.
bool MayHoldLabel(QByteArrayView line);

// The width in columns of the spaces and tabs at the start of the line. tabSize is above 0.
int IndentationOf(QByteArrayView line, int tabSize);

// The change that the Return key makes at the end of the line that begins at start, with auto-indent.
TextChange ReturnAtEnd(QByteArrayView text, qsizetype start, int tabSize);

} // namespace ob
