// SPDX-License-Identifier: GPL-3.0-or-later
// The array maker.
#include "codetools/modArray.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr QChar ItemMark = u'|';

} // namespace

QString WithArrayItem(const QString& items, const QString& item)
{
    return items + ItemMark + item;
}

QString WithoutLastArrayItem(const QString& items)
{
    return items.first(std::max<qsizetype>(0, items.lastIndexOf(ItemMark)));
}

QStringList PastedArrayItems(const QString& text)
{
    QString lines = text;
    lines.replace(u"\r\n"_s, u"\n"_s);
    for (const QChar end :
         {QChar(u'\r'), QChar(u'\v'), QChar(u'\f'), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        lines.replace(end, u'\n');
    if (!lines.contains(u'\n'))
        return {};
    if (lines.endsWith(u'\n'))
        lines.chop(1);
    return lines.split(u'\n');
}

qsizetype ArrayBound(const QString& items)
{
    // A "|" precedes each item, so there are as many items as marks.
    return items.isEmpty() ? -1 : items.count(ItemMark);
}

QString ReadyArrayName(const QString& name, ArrayType type)
{
    const qsizetype parenthesis = name.indexOf(u'(');
    if (type == ArrayType::Numeric)
        return parenthesis < 0 ? name + u'(' : name.left(parenthesis + 1);
    if (!name.contains(u'$'))
        return (parenthesis < 0 ? name : name.left(parenthesis)) + u"$("_s;
    return parenthesis < 0 ? name + u'(' : name;
}

QString ArrayCode(const ArraySpec& spec)
{
    const QString lineEnd = u"\r\n"_s;
    const QString name = ReadyArrayName(spec.name.isEmpty() ? DefaultArrayName : spec.name, spec.type);
    const QString quote = spec.type == ArrayType::String ? u"\""_s : QString();
    const qsizetype bound = ArrayBound(spec.items);
    QString code = u"    DIM "_s + name + QString::number(bound) + u')' + lineEnd;
    const QStringList items = spec.items.split(ItemMark);
    for (qsizetype i = 1; i <= bound; ++i)
        code += u"    "_s + name + QString::number(i) + u") = "_s + quote + items[i] + quote + lineEnd;
    return code + lineEnd + lineEnd;
}

} // namespace ob
