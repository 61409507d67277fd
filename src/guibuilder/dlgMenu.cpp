// SPDX-License-Identifier: GPL-3.0-or-later
// Edits the menus of the form under design.
#include "guibuilder/dlgMenu.h"

#include "guibuilder/cGuiWindow.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "ui_dlgMenu.h"

#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

namespace ob {

namespace {

// The selected line, or -1.
int ChosenRow(const QListWidget& list)
{
    const QList<QListWidgetItem*> chosen = list.selectedItems();
    return chosen.isEmpty() ? -1 : list.row(chosen.first());
}

void AddLine(QListWidget& list, const QString& text)
{
    auto* line = new QListWidgetItem(text);
    line->setSizeHint(QSize(0, list.fontMetrics().height() + 4));
    list.addItem(line);
}

// Whether the control got the focus by the keyboard, not by the mouse or the program.
bool CameByKey(Qt::FocusReason reason)
{
    return reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
}

} // namespace

dlgMenu::dlgMenu(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::dlgMenu>())
{
    ui->setupUi(this);
    ConnectLists();
    ConnectButtons();
    ReloadNameList(0);
    if (ui->lstNames->count() == 0)
        ui->cmdAddMenu->setFocus();
}

dlgMenu::~dlgMenu() = default;

void dlgMenu::done(int result)
{
    RunCommand([] {
        GuiDesign().form.menuLabel = EditedMenuLabel(GuiDesign().form);
        // The main window may be closing, and this one with it.
        if (GuiWindow != nullptr)
            GuiWindow->RefreshGui();
    });
    QDialog::done(result);
}

void dlgMenu::ConnectButtons()
{
    const auto onClick = [this](QPushButton* button, auto handler) {
        connect(button, &QPushButton::clicked, this, [handler] { RunCommand(handler); });
    };
    onClick(ui->cmdAddMenu, [this] { cmdAddMenu_Click(); });
    onClick(ui->cmdEditMenu, [this] { cmdEditMenu_Click(); });
    onClick(ui->cmdRemoveMenu, [this] { cmdRemoveMenu_Click(); });
    onClick(ui->cmdNameUp, [this] { MoveMenuBy(MoveDirection::Up); });
    onClick(ui->cmdNameDown, [this] { MoveMenuBy(MoveDirection::Down); });
    onClick(ui->cmdAddItem, [this] { cmdAddItem_Click(); });
    onClick(ui->cmdEditItem, [this] { cmdEditItem_Click(); });
    onClick(ui->cmdRemoveItem, [this] { cmdRemoveItem_Click(); });
    onClick(ui->cmdItemUp, [this] { MoveItemBy(MoveDirection::Up); });
    onClick(ui->cmdItemDown, [this] { MoveItemBy(MoveDirection::Down); });
    onClick(ui->cmdNoMenu, [] { GuiShowMenu(MenuBar::Hidden); });
    connect(ui->OKButton, &QPushButton::clicked, this, &QDialog::accept);
}

void dlgMenu::ConnectLists()
{
    const auto pair = [this](QListWidget* list, QListWidget* other) {
        connect(list, &QListWidget::itemSelectionChanged, this,
                [this, list, other] { RunCommand([&] { lstItems_Click(*list, *other); }); });
        connect(list->verticalScrollBar(), &QScrollBar::valueChanged, other->verticalScrollBar(),
                &QScrollBar::setValue);
    };
    pair(ui->lstItems0, ui->lstItems1);
    pair(ui->lstItems1, ui->lstItems0);
    On(ui->lstNames, &QListWidget::itemSelectionChanged, this, &dlgMenu::lstNames_Click);

    for (QListWidget* list : {ui->lstNames, ui->lstItems0, ui->lstItems1}) {
        list->installEventFilter(this);
        connect(list, &QListWidget::itemDoubleClicked, this, [this, list] { ButtonsOf(list).edit->click(); });
    }
}

dlgMenu::ListButtons dlgMenu::ButtonsOf(const QObject* list) const
{
    if (list == ui->lstNames)
        return {ui->cmdAddMenu, ui->cmdEditMenu, ui->cmdRemoveMenu, ui->cmdNameUp, ui->cmdNameDown};
    return {ui->cmdAddItem, ui->cmdEditItem, ui->cmdRemoveItem, ui->cmdItemUp, ui->cmdItemDown};
}

bool dlgMenu::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        auto* list = static_cast<QListWidget*>(watched);
        if (CameByKey(static_cast<const QFocusEvent*>(event)->reason()) && ChosenRow(*list) < 0 && list->count() > 0)
            list->setCurrentRow(0);
    }
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto& key = static_cast<const QKeyEvent&>(*event);
    const ListButtons buttons = ButtonsOf(watched);
    const Qt::KeyboardModifiers held = key.modifiers() & ~Qt::KeyboardModifiers(Qt::KeypadModifier);
    QPushButton* button = nullptr;
    if (held == Qt::ControlModifier && key.key() == Qt::Key_Up)
        button = buttons.up;
    else if (held == Qt::ControlModifier && key.key() == Qt::Key_Down)
        button = buttons.down;
    else if (held != Qt::NoModifier)
        button = nullptr;
    else if (key.key() == Qt::Key_Insert)
        button = buttons.add;
    else if (key.key() == Qt::Key_Delete)
        button = buttons.remove;
    else if (key.key() == Qt::Key_F2 || key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter)
        button = buttons.edit;
    if (button == nullptr)
        return QDialog::eventFilter(watched, event);
    button->click();
    return true;
}

void dlgMenu::lstNames_Click()
{
    const int chosen = ChosenRow(*ui->lstNames);
    if (chosen < 0)
        return;
    currentMenu = chosen;
    ReloadItemLists();
}

void dlgMenu::lstItems_Click(const QListWidget& clicked, QListWidget& other)
{
    const int chosen = ChosenRow(clicked);
    if (chosen < 0)
        other.clearSelection();
    else if (chosen < other.count())
        other.setCurrentRow(chosen);
}

void dlgMenu::cmdAddMenu_Click()
{
    const QString name = AskMenuName();
    if (name.isEmpty())
        return;
    AddLine(*ui->lstNames, name);
    const int last = ui->lstNames->count() - 1;
    ui->lstNames->setCurrentRow(last);
    EnableNameButtons(Buttons::On);
    SetMenuName(GuiDesign().form, last, name);
    ui->lstItems0->clear();
    ui->lstItems1->clear();
    EnableItemButtons(Buttons::Off);
}

void dlgMenu::cmdEditMenu_Click()
{
    const QString name = AskOtherMenuName(ChosenMenu());
    if (name.isEmpty())
        return;
    const int menu = ChosenRow(*ui->lstNames);
    ui->lstNames->item(menu)->setText(name);
    SetMenuName(GuiDesign().form, menu, name);
}

void dlgMenu::cmdRemoveMenu_Click()
{
    if (!MayRemoveMenu(ChosenMenu()))
        return;
    const int menu = ChosenRow(*ui->lstNames);
    RemoveMenu(GuiDesign().form, menu);
    ReloadNameList(menu);
}

void dlgMenu::MoveMenuBy(MoveDirection direction)
{
    if (const auto moved = MoveMenu(GuiDesign().form, ChosenRow(*ui->lstNames), direction))
        ReloadNameList(*moved);
}

void dlgMenu::cmdAddItem_Click()
{
    const auto parts = AskMenuItem();
    if (!parts)
        return;
    AddLine(*ui->lstItems0, parts->caption);
    AddLine(*ui->lstItems1, parts->branch);
    const int last = ui->lstItems0->count() - 1;
    SelectItem(last);
    EnableItemButtons(Buttons::On);
    SetMenuItem(GuiDesign().form, currentMenu, last, *parts);
}

void dlgMenu::cmdEditItem_Click()
{
    const auto parts = AskOtherMenuItem(ChosenItem());
    if (!parts)
        return;
    const int item = ChosenRow(*ui->lstItems0);
    ui->lstItems0->item(item)->setText(parts->caption);
    ui->lstItems1->item(item)->setText(parts->branch);
    SetMenuItem(GuiDesign().form, currentMenu, item, *parts);
}

void dlgMenu::cmdRemoveItem_Click()
{
    if (!MayRemoveMenuItem(ChosenItem()))
        return;
    const int item = ChosenRow(*ui->lstItems0);
    delete ui->lstItems0->takeItem(item);
    delete ui->lstItems1->takeItem(item);
    RemoveMenuItem(GuiDesign().form, currentMenu, item);
    const int count = ui->lstItems0->count();
    EnableItemButtons(count > 0 ? Buttons::On : Buttons::Off);
    SelectItem(std::min(item, count - 1));
}

void dlgMenu::MoveItemBy(MoveDirection direction)
{
    const auto moved = MoveMenuItem(GuiDesign().form, currentMenu, ChosenRow(*ui->lstItems0), direction);
    if (!moved)
        return;
    ReloadItemLists();
    SelectItem(*moved);
}

// The names of the form, with that line or the last one selected; its items follow.
void dlgMenu::ReloadNameList(int selected)
{
    ui->lstNames->clear();
    for (const QString& name : MenuNames(GuiDesign().form))
        AddLine(*ui->lstNames, name);
    const int count = ui->lstNames->count();
    EnableNameButtons(count > 0 ? Buttons::On : Buttons::Off);
    currentMenu = std::max(0, std::min(selected, count - 1));
    ReloadItemLists();
    if (count > 0)
        ui->lstNames->setCurrentRow(currentMenu);
}

void dlgMenu::ReloadItemLists()
{
    ui->lstItems0->clear();
    ui->lstItems1->clear();
    QList<MenuItemParts> items;
    if (ui->lstNames->count() > 0)
        items = MenuItems(GuiDesign().form, currentMenu);
    for (const MenuItemParts& parts : items) {
        AddLine(*ui->lstItems0, parts.caption);
        AddLine(*ui->lstItems1, parts.branch);
    }
    EnableItemButtons(items.isEmpty() ? Buttons::Off : Buttons::On);
}

void dlgMenu::SelectItem(int item)
{
    ui->lstItems0->setCurrentRow(item);
    ui->lstItems1->setCurrentRow(item);
}

std::optional<QString> dlgMenu::ChosenMenu() const
{
    const int chosen = ChosenRow(*ui->lstNames);
    return chosen < 0 ? std::nullopt : std::optional(ui->lstNames->item(chosen)->text());
}

std::optional<MenuItemParts> dlgMenu::ChosenItem() const
{
    const int chosen = ChosenRow(*ui->lstItems0);
    if (chosen < 0)
        return std::nullopt;
    return MenuItemParts{ui->lstItems0->item(chosen)->text(), ui->lstItems1->item(chosen)->text()};
}

void dlgMenu::EnableNameButtons(Buttons state)
{
    const ListButtons names = ButtonsOf(ui->lstNames);
    for (QPushButton* button : {names.edit, names.remove, names.up, names.down, ui->cmdAddItem})
        button->setEnabled(state == Buttons::On);
}

void dlgMenu::EnableItemButtons(Buttons state)
{
    const ListButtons items = ButtonsOf(ui->lstItems0);
    for (QPushButton* button : {items.edit, items.remove, items.up, items.down})
        button->setEnabled(state == Buttons::On);
}

} // namespace ob
