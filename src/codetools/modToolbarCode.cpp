// SPDX-License-Identifier: GPL-3.0-or-later
// Fills the toolbar template. A line "@name" says what the following lines are for: both listings, one of them, each
// button, or each button with a branch block of its own. Words in braces are placeholders.
#include "codetools/modToolbarCode.h"

#include "shell/state/modNames.h"
#include "shell/state/modTexts.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The block of this label is in the new window's part of the template.
const QString quitBranch = u"[quit]"_s;

QString StylesOf(const ToolbarSpec& spec)
{
    QString styles;
    if (spec.style == ToolbarStyle::Flat)
        styles += QLatin1String(" Or TBSTYLE.FLAT");
    if (spec.border == ToolbarBorder::Thin)
        styles += QLatin1String(" Or _WS_BORDER");
    if (spec.border == ToolbarBorder::Thick)
        styles += QLatin1String(" Or _WS_THICKFRAME");
    return styles;
}

// The text for a placeholder that does not depend on a button.
QString CommonText(QStringView word, const ToolbarSpec& spec)
{
    if (word == QLatin1String("program"))
        return spec.program.isEmpty() ? UntitledName : spec.program;
    if (word == QLatin1String("bitmap"))
        return spec.bitmap;
    if (word == QLatin1String("handle"))
        return spec.handle.value_or(u"#main"_s);
    if (word == QLatin1String("styles"))
        return StylesOf(spec);
    Q_ASSERT(word == QLatin1String("last"));
    return QString::number(spec.buttons.size() - 1);
}

QString ButtonText(QStringView word, const ToolbarSpec& spec, qsizetype place)
{
    if (word == QLatin1String("i"))
        return QString::number(place);
    if (word == QLatin1String("branch"))
        return spec.buttons[place].branch;
    if (word == QLatin1String("tip"))
        return spec.buttons[place].tip;
    return CommonText(word, spec);
}

// Inserted text is not scanned again: a tip may contain braces.
QString Filled(QStringView line, const std::function<QString(QStringView)>& textOf)
{
    QString filled;
    for (qsizetype open = line.indexOf(QLatin1Char('{')); open >= 0; open = line.indexOf(QLatin1Char('{'))) {
        const qsizetype close = line.indexOf(QLatin1Char('}'), open);
        filled += line.first(open);
        filled += textOf(line.sliced(open + 1, close - open - 1));
        line = line.sliced(close + 1);
    }
    filled += line;
    return filled;
}

QString Block(const QStringList& lines, const std::function<QString(QStringView)>& textOf)
{
    QString block;
    for (const QString& line : lines)
        block += Filled(line, textOf) + QLatin1String("\r\n");
    return block;
}

QString BlockFor(const QString& whom, const QStringList& lines, const ToolbarSpec& spec)
{
    const bool isNew = !spec.handle.has_value();
    if (whom == QLatin1String("both") || whom == (isNew ? QLatin1String("new") : QLatin1String("existing")))
        return Block(lines, [&](QStringView word) { return CommonText(word, spec); });
    QString blocks;
    if (whom == QLatin1String("button") || whom == QLatin1String("branch"))
        for (qsizetype i = 0; i < spec.buttons.size(); ++i)
            if (whom == QLatin1String("button") || spec.buttons[i].branch != quitBranch)
                blocks += Block(lines, [&](QStringView word) { return ButtonText(word, spec, i); });
    return blocks;
}

} // namespace

QString ToolbarCode(const ToolbarSpec& spec)
{
    const auto text = EmbeddedText(u"toolbar.tpl"_s);
    Q_ASSERT(text);
    QStringList lines =
        QString::fromLatin1(text->data(), static_cast<qsizetype>(text->size())).split(QLatin1Char('\n'));
    lines.removeLast(); // the text ends in a line feed
    QString code;
    QString whom;
    QStringList block;
    for (const QString& line : lines) {
        if (!line.startsWith(QLatin1Char('@'))) {
            block.append(line);
            continue;
        }
        code += BlockFor(whom, block, spec);
        whom = line.sliced(1);
        block.clear();
    }
    return code + BlockFor(whom, block, spec);
}

QString ToolbarBranchOf(const QString& answer, qsizetype number)
{
    QString branch = answer.isEmpty() ? u"[branch"_s + QString::number(number) : answer;
    if (!branch.startsWith(QLatin1Char('[')))
        branch.prepend(QLatin1Char('['));
    if (!branch.endsWith(QLatin1Char(']')))
        branch.append(QLatin1Char(']'));
    return branch;
}

QString ToolbarTipOf(const QString& answer, qsizetype number)
{
    return answer.isEmpty() ? u"branch%1 tooltip"_s.arg(number) : answer;
}

std::optional<QString> WindowHandleOf(const QString& text)
{
    if (text.isEmpty())
        return std::nullopt;
    return text.startsWith(QLatin1Char('#')) ? text : QLatin1Char('#') + text;
}

} // namespace ob
