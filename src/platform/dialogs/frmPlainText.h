// SPDX-License-Identifier: GPL-3.0-or-later
// The text of a plain text field, character by character.
#pragma once

#include <QPlainTextEdit>
#include <QTextDocument>

namespace ob {

// Lines end in LF. The field's own text has no-break spaces replaced by spaces.
inline QString PlainTextOf(const QPlainTextEdit& field)
{
    QString text = field.document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, QLatin1Char('\n')).replace(QChar::LineSeparator, QLatin1Char('\n'));
}

} // namespace ob
