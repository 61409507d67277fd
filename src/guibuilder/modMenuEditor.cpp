// SPDX-License-Identifier: GPL-3.0-or-later
// The menu editor's operations and questions.
#include "guibuilder/modMenuEditor.h"

#include "platform/dialogs/modDialogs.h"
#include "platform/language/modRuntime.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int Places = static_cast<int>(MenuSlots);

bool InTable(int place)
{
    return place >= 0 && place < Places;
}

std::size_t Slot(int place)
{
    return static_cast<std::size_t>(place);
}

std::array<QString, MenuSlots>& Row(GuiForm& form, int menu)
{
    return form.GuiMenuItems[Slot(menu)];
}

bool HasMenu(const GuiForm& form, int menu)
{
    return InTable(menu) && !form.GuiMenuNames[Slot(menu)].isEmpty();
}

bool HasItem(const GuiForm& form, int menu, int item)
{
    return InTable(menu) && InTable(item) && !TrimSpaces(form.GuiMenuItems[Slot(menu)][Slot(item)]).isEmpty();
}

int Neighbour(int place, MoveDirection direction)
{
    return direction == MoveDirection::Up ? place - 1 : place + 1;
}

// A cancelled box counts as one that was left empty.
QString Ask(const QString& prompt, const QString& initial = {})
{
    return InputBox(prompt, QString(), initial).value_or(QString());
}

QString CaptionBeforeBracket(const QString& answer)
{
    const qsizetype bracket = answer.indexOf(u'[');
    return bracket < 0 ? answer : TrimSpaces(QStringView(answer).left(bracket));
}

QString BranchOf(const QString& answer)
{
    return BracketedBranch(TrimSpaces(answer));
}

void Complain(const QString& text)
{
    MsgBox(text, BoxIcon::Critical);
}

bool IsYes(const QString& question)
{
    return MsgBox(question, BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::Yes;
}

} // namespace

QStringList MenuNames(const GuiForm& form)
{
    const auto end = std::ranges::find_if(form.GuiMenuNames, &QString::isEmpty);
    return QStringList(form.GuiMenuNames.begin(), end);
}

QList<MenuItemParts> MenuItems(const GuiForm& form, int menu)
{
    QList<MenuItemParts> items;
    for (int item = 0; HasItem(form, menu, item); ++item)
        items.append(SplitMenuItem(form.GuiMenuItems[Slot(menu)][Slot(item)]));
    return items;
}

void SetMenuName(GuiForm& form, int menu, const QString& name)
{
    if (InTable(menu))
        form.GuiMenuNames[Slot(menu)] = name;
}

void SetMenuItem(GuiForm& form, int menu, int item, const MenuItemParts& parts)
{
    if (InTable(menu) && InTable(item))
        Row(form, menu)[Slot(item)] = JoinMenuItem(parts.caption, parts.branch);
}

void RemoveMenu(GuiForm& form, int menu)
{
    if (!InTable(menu))
        return;
    const auto from = static_cast<std::ptrdiff_t>(menu);
    std::move(form.GuiMenuNames.begin() + from + 1, form.GuiMenuNames.end(), form.GuiMenuNames.begin() + from);
    // Copied, not moved: the last place keeps its last item, hidden until a menu there is that long again.
    std::copy(form.GuiMenuItems.begin() + from + 1, form.GuiMenuItems.end(), form.GuiMenuItems.begin() + from);
    form.GuiMenuNames.back().clear();
    std::fill(form.GuiMenuItems.back().begin(), form.GuiMenuItems.back().end() - 1, QString());
}

void RemoveMenuItem(GuiForm& form, int menu, int item)
{
    if (!InTable(menu) || !InTable(item))
        return;
    auto& row = Row(form, menu);
    std::move(row.begin() + item + 1, row.end(), row.begin() + item);
    row.back().clear();
}

std::optional<int> MoveMenu(GuiForm& form, int menu, MoveDirection direction)
{
    const int other = Neighbour(menu, direction);
    if (!HasMenu(form, menu) || !HasMenu(form, other))
        return std::nullopt;
    std::swap(form.GuiMenuNames[Slot(menu)], form.GuiMenuNames[Slot(other)]);
    std::swap(Row(form, menu), Row(form, other));
    return other;
}

std::optional<int> MoveMenuItem(GuiForm& form, int menu, int item, MoveDirection direction)
{
    const int other = Neighbour(item, direction);
    if (!HasItem(form, menu, item) || !HasItem(form, menu, other))
        return std::nullopt;
    std::swap(Row(form, menu)[Slot(item)], Row(form, menu)[Slot(other)]);
    return other;
}

QString EditedMenuLabel(const GuiForm& form)
{
    return MenuLabel(form, u"    Click here to edit or remove menus."_s);
}

QString AskMenuName()
{
    return Ask(u"Please type a name for your menu."_s);
}

std::optional<MenuItemParts> AskMenuItem()
{
    const QString answer = Ask(u"Please type a name for this item."_s);
    if (answer.isEmpty())
        return std::nullopt;
    QString caption = CaptionBeforeBracket(answer);
    if (caption.contains(u'|'))
        caption = SeparatorCaption;
    if (TrimSpaces(caption) == SeparatorCaption)
        return MenuItemParts{caption, u"[none]"_s};
    const QString branch = Ask(u"Please type a name for this item's branch."_s);
    if (branch.isEmpty())
        return std::nullopt;
    return MenuItemParts{caption, BranchOf(branch)};
}

QString AskOtherMenuName(const std::optional<QString>& chosen)
{
    if (!chosen) {
        Complain(u"Cannot edit menu.  No menu is selected."_s);
        return {};
    }
    return Ask(u"Please type a new name for "_s + *chosen, *chosen);
}

std::optional<MenuItemParts> AskOtherMenuItem(const std::optional<MenuItemParts>& chosen)
{
    if (!chosen) {
        Complain(u"Cannot edit item.  No item is selected."_s);
        return std::nullopt;
    }
    const QString caption = Ask(u"Please type a new name for "_s + chosen->caption, chosen->caption);
    if (caption.isEmpty())
        return std::nullopt;
    const QString branch = Ask(u"Please type a new name for branch "_s + chosen->branch, chosen->branch);
    if (branch.isEmpty())
        return std::nullopt;
    return MenuItemParts{CaptionBeforeBracket(caption), BranchOf(branch)};
}

bool MayRemoveMenu(const std::optional<QString>& chosen)
{
    if (!chosen) {
        Complain(u"Cannot remove item.  No item is selected."_s);
        return false;
    }
    return IsYes(u"Remove menu named "_s + *chosen + u" ?"_s);
}

bool MayRemoveMenuItem(const std::optional<MenuItemParts>& chosen)
{
    if (!chosen) {
        Complain(u"Cannot remove item.  No item is selected."_s);
        return false;
    }
    return IsYes(u"Remove menu item named "_s + chosen->caption + u" ?"_s);
}

} // namespace ob
