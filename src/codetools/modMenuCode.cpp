// SPDX-License-Identifier: GPL-3.0-or-later
// The menu maker.
#include "codetools/modMenuCode.h"

#include "guibuilder/modGui.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modRuntime.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

QString TrimmedOr(const QString& text, const QString& whenEmpty)
{
    const QString trimmed = TrimSpaces(text);
    return trimmed.isEmpty() ? whenEmpty : trimmed;
}

QString Quoted(const QString& text)
{
    return u'"' + text + u'"';
}

} // namespace

void AddMenuItem(MenuTail& tail, const QString& text, const QString& branch)
{
    if (tail.count == std::numeric_limits<std::int16_t>::max())
        throw RuntimeErrorOf(ErrorNumber::Overflow);
    ++tail.count;
    const QString number = Str(tail.count);
    const QString item = TrimmedOr(text, u"MenuItem "_s + number);
    if (item == QLatin1String("|")) {
        tail.list += u", | "_s;
        return;
    }
    const QString label = TrimmedOr(branch, u"BranchLabel"_s + number);
    tail.list += u", "_s + Quoted(item) + u", "_s + ReadyMenuLabel(label);
}

QString WithoutSpaces(QString text, QChar replacement)
{
    return text.replace(u' ', replacement);
}

QString ReadyMenuLabel(const QString& branch)
{
    const bool isReady = branch.contains(u'[') && branch.contains(u']') && !branch.contains(u' ');
    return isReady ? branch : BracketedBranch(WithoutSpaces(branch, u'.'));
}

QString MenuCode(const MenuSpec& spec)
{
    if (spec.type == MenuType::Popup)
        return u"Popupmenu "_s + spec.tail.list.mid(1);
    QString handle = WithoutSpaces(TrimmedOr(spec.handle, u"#main"_s), u'_');
    if (!handle.startsWith(u'#'))
        handle.prepend(u'#');
    const QString name = TrimmedOr(spec.name, u"Menu Name"_s);
    return u"Menu "_s + handle + u", "_s + Quoted(name) + spec.tail.list;
}

} // namespace ob
