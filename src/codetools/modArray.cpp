// SPDX-License-Identifier: GPL-3.0-or-later
// The array maker.
#include "codetools/modArray.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr QChar ItemMark = u'|';

} // namespace

QString WithArrayItem(const QString& items, const QString& item)
{
    return items + ItemMark + item;
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
