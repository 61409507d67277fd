// SPDX-License-Identifier: GPL-3.0-or-later
// The contents of a field of one line.
#include "shell/state/cOneLine.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

bool IsShownAsSpace(QChar character)
{
    return (character < u' ' && character != u'\t') || character == QChar::LineSeparator ||
           character == QChar::ParagraphSeparator;
}

QString WithSpaces(QString text)
{
    text.replace(u"\r\n"_s, u" "_s);
    std::replace_if(text.begin(), text.end(), IsShownAsSpace, QChar(u' '));
    return text;
}

} // namespace

QValidator::State cOneLine::validate(QString& text, int& caret) const
{
    if (std::none_of(text.cbegin(), text.cend(), IsShownAsSpace))
        return Acceptable;
    const auto end = std::find_if_not(text.crbegin(), text.crend(), IsShownAsSpace).base();
    const QString line = WithSpaces(text.first(end - text.cbegin()));
    caret = static_cast<int>(std::min(line.size(), WithSpaces(text.first(caret)).size()));
    text = line;
    return Acceptable;
}

} // namespace ob
