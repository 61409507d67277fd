// SPDX-License-Identifier: GPL-3.0-or-later
// The form under design.
#include "guibuilder/modGui.h"

#include "platform/language/modRuntime.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The child window when it opens; the user may resize it.
constexpr float FirstLeft = 1200;
constexpr float FirstTop = 900;
constexpr float FirstWidth = 8250;
constexpr float FirstHeight = 6000;

ControlRecord TemplateOf(const KindTraits& traits)
{
    ControlRecord record;
    record.width = static_cast<float>(traits.width * ProgramTwipsPerPixel);
    record.height = static_cast<float>(traits.height * ProgramTwipsPerPixel);
    record.caption = traits.kind == ControlKind::Bmpbutton ? NoBitmap : LatinText(traits.loadedText);
    return record;
}

} // namespace

GuiForm::GuiForm()
    : GuiWindowType(u"Window"_s), caption(u"Window Title"_s), left(FirstLeft), top(FirstTop), width(FirstWidth),
      height(FirstHeight), GuiHandleName(u"main"_s), backColor(ColorFromName(u"Buttonface"_s)),
      GuiFontName(u"ms sans serif"_s), GuiFontSize(u"10"_s), GuiForegroundColor(u"Black"_s),
      GuiBackgroundColor(u"Buttonface"_s), GuiComboboxColor(u"White"_s), GuiListboxColor(GuiComboboxColor),
      GuiTextboxColor(GuiComboboxColor), GuiTexteditorColor(GuiComboboxColor)
{
    ClearForm(*this);
}

FormDesign& GuiDesign()
{
    static FormDesign design;
    return design;
}

void ResetGui()
{
    GuiDesign() = FormDesign();
}

void ClearForm(GuiForm& form)
{
    for (const KindTraits& traits : KindTable)
        form.List(traits.kind) = {TemplateOf(traits)};
    form.order.clear();
    form.GuiMenuNames = {};
    form.GuiMenuItems = {};
    form.GuiMenuOn = true;
    form.panels = {FirstPanelText};
    form.menuLabel = NoMenusLabel;
    form.windowTag.clear();
    SetColorByName(form.backColor, form.GuiBackgroundColor);
}

bool IsGraphicsType(const QString& windowType)
{
    return windowType.contains(QLatin1String("Graphics"));
}

bool IsDialogType(const QString& windowType)
{
    return windowType == QLatin1String("Dialog") || windowType == QLatin1String("Dialog_modal");
}

ControlRef AddControl(GuiForm& form, ControlKind kind)
{
    std::vector<ControlRecord>& list = form.List(kind);
    const ControlRef ref{kind, static_cast<int>(list.size())};
    list.push_back(ControlRecord(list.front()));
    form.order.push_back(ref);
    return ref;
}

void BringToFront(GuiForm& form, ControlRef ref)
{
    const auto place = std::ranges::find(form.order, ref);
    if (place != form.order.end())
        std::rotate(place, place + 1, form.order.end());
}

TagParts SplitTag(const QString& tag)
{
    const qsizetype mark = tag.indexOf(QLatin1String(" *"));
    if (mark < 0)
        return {TrimSpaces(tag), {}};
    return {TrimSpaces(QStringView(tag).left(mark)), tag.mid(mark + 2)};
}

MenuItemParts SplitMenuItem(const QString& item)
{
    const qsizetype bracket = item.indexOf(u'[');
    if (bracket < 0)
        return {TrimSpaces(item), {}};
    return {TrimSpaces(QStringView(item).left(bracket)), TrimSpaces(QStringView(item).mid(bracket))};
}

QString JoinMenuItem(const QString& caption, const QString& branch)
{
    return caption + u"  "_s + branch;
}

QString BracketedBranch(const QString& branch)
{
    QString text = branch;
    if (!text.startsWith(u'['))
        text.prepend(u'[');
    if (!text.endsWith(u']'))
        text.append(u']');
    return text;
}

QString MenuLabel(const GuiForm& form, const QString& whenEmpty)
{
    QString label;
    for (const QString& name : form.GuiMenuNames) {
        if (name.isEmpty())
            break;
        label += name + u"    "_s;
    }
    return label.isEmpty() ? whenEmpty : label;
}

void SetColorByName(ColorRef& target, const QString& name)
{
    const auto known = std::ranges::find_if(ColorName, [&](std::string_view each) { return name == LatinText(each); });
    if (known != ColorName.end())
        target = ColorValue[static_cast<std::size_t>(known - ColorName.begin())];
}

} // namespace ob
