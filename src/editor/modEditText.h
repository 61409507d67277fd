// SPDX-License-Identifier: GPL-3.0-or-later
// What the editing commands make of a text, without a control: block comment and auto-indent. Texts are UTF-8, and a
// position is a byte of them; where the commands count characters, a letter of several bytes is one.
#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace ob {

// The bytes [from, to) of a text, and what comes in their place.
struct TextChange {
    qsizetype from = 0;
    qsizetype to = 0;
    QByteArray replacement;
};

// Where line number, from 0, begins; nothing when the text has no such line. Behind a last line end stands an empty
// line.
std::optional<qsizetype> StartOfLine(QByteArrayView text, qsizetype number);

// The end of the line that begins at start, before its line end.
qsizetype EndOfLine(QByteArrayView text, qsizetype start);

// Puts a quote character in front of each line that the selection touches, or takes it away when the first line begins
// with one or with "rem"; "rem " at the very start of a line goes too. The line of the selection's last two characters
// is the last one; nothing when it comes before the first. A last line without a line end loses two characters.
std::optional<TextChange> BlockComment(QByteArrayView text, qsizetype selectionStart, qsizetype selectionEnd);

// Whether the line behind this one goes a step further in: its first word, left-trimmed and ended by a blank, is "if",
// "do", "while" or "for".
bool OpensBlock(QByteArrayView line);

// Whether the line may hold what the label lists show.
bool MayHoldLabel(QByteArrayView line);

// Columns of the blanks and tabs that the line begins with. tabSize is above 0.
int IndentationOf(QByteArrayView line, int tabSize);

// The Return key at the end of the line that begins at start, with auto-indent.
TextChange ReturnBehind(QByteArrayView text, qsizetype start, int tabSize);

} // namespace ob
