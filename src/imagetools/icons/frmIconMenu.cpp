// SPDX-License-Identifier: GPL-3.0-or-later
// The menus and the toolbar of the icon editor.
#include "imagetools/icons/frmIconMenu.h"

#include "shell/state/modIcons.h"

#include <QAction>
#include <QActionGroup>
#include <QIcon>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

enum class ItemKind { Menu, Bar, Item, Tool };

struct ItemRow {
    ItemKind kind;
    const char* name;
    const char* caption;
    const char* key;
    const char* icon;
};

struct ButtonRow {
    const char* key; // null for a separator
    const char* tip;
    const char* item;
};

constexpr auto Menu = ItemKind::Menu;
constexpr auto Bar = ItemKind::Bar;
constexpr auto Item = ItemKind::Item;
constexpr auto Tool = ItemKind::Tool;

// clang-format off
constexpr ItemRow itemRows[] = {
    {Menu, "mnuFile", "&File", "", ""},
    {Item, "mnuNew", "&New Icon", "Ctrl+N", "icon-new"},
    {Item, "op", "&Open or Extract Icon", "Ctrl+O", "open"},
    {Item, "openBitmap", "Open &Bitmap", "Ctrl+B", "bitmap"},
    {Item, "sva", "&Save As", "Ctrl+S", "save"},
    {Bar, "", "", "", ""},
    {Item, "runtimeicon", "&Runtime Icon", "", "icon-runtime"},
    {Bar, "", "", "", ""},
    {Item, "mnuExit", "E&xit", "", "exit"},
    {Menu, "mnuEdit", "&Edit", "", ""},
    {Item, "und", "&Undo", "Ctrl+Z", "undo"},
    {Bar, "", "", "", ""},
    {Tool, "mnuPaint", "&Paint Pixel", "Ctrl+P", "icon-paint"},
    {Tool, "chCol", "Change &All", "Ctrl+A", "icon-change-all"},
    {Menu, "mnuTransform", "&Transform", "", ""},
    {Item, "flHor", "&Mirror", "Ctrl+M", "icon-mirror"},
    {Item, "flVer", "&Flip", "Ctrl+F", "icon-flip"},
    {Item, "Rotat", "&Rotate", "Ctrl+R", "icon-rotate"},
    {Bar, "", "", "", ""},
    {Item, "mnuUp", "Shift &Up", "Ctrl+Up", "icon-shift-up"},
    {Item, "mnuDown", "Shift &Down", "Ctrl+Down", "icon-shift-down"},
    {Item, "mnuLeft", "Shift &Left", "Ctrl+Left", "icon-shift-left"},
    {Item, "mnuRight", "Shift Ri&ght", "Ctrl+Right", "icon-shift-right"},
    {Menu, "mnuHelp", "&Help", "", ""},
    {Item, "hlp", "&Instructions", "", "instructions"},
    {Item, "abo", "&About Icon Bench", "", "about"},
};

constexpr ButtonRow buttonRows[] = {
    {"open", "Open or extract icon", "op"},
    {"bmp", "Open bitmap", "openBitmap"},
    {"save", "Save as", "sva"},
    {"fill", "New icon", "mnuNew"},
    {nullptr, nullptr, nullptr},
    {"paint", "Paint pixel", "mnuPaint"},
    {"change", "Change all", "chCol"},
    {"undo", "Undo", "und"},
    {nullptr, nullptr, nullptr},
    {"rotate", "Rotate", "Rotat"},
    {"up", "Shift up", "mnuUp"},
    {"down", "Shift down", "mnuDown"},
    {"left", "Shift left", "mnuLeft"},
    {"right", "Shift right", "mnuRight"},
    {nullptr, nullptr, nullptr},
    {"runtime", "Runtime icon", "runtimeicon"},
};
// clang-format on

QAction* AddItem(QMenu& menu, const ItemRow& row, QActionGroup& tools)
{
    QAction* item = menu.addAction(BenchIcon(QString::fromLatin1(row.icon)), QString::fromLatin1(row.caption));
    item->setObjectName(QString::fromLatin1(row.name));
    item->setShortcut(QKeySequence(QString::fromLatin1(row.key)));
    if (row.kind == ItemKind::Tool) {
        item->setCheckable(true);
        tools.addAction(item);
    }
    return item;
}

QAction* AddButton(QToolBar& bar, const ButtonRow& row, QAction& item, QActionGroup& tools)
{
    const QString key = item.shortcut().toString(QKeySequence::NativeText);
    QAction* button = bar.addAction(item.icon(), QString::fromLatin1(row.tip));
    button->setObjectName(QString::fromLatin1(row.key));
    if (!key.isEmpty())
        button->setToolTip(u"%1 (%2)"_s.arg(button->text(), key));
    button->setCheckable(item.isCheckable());
    if (item.isCheckable())
        tools.addAction(button);
    QObject::connect(button, &QAction::triggered, &item, &QAction::trigger);
    QObject::connect(&item, &QAction::toggled, button, &QAction::setChecked);
    QObject::connect(&item, &QAction::enabledChanged, button, &QAction::setEnabled);
    return button;
}

} // namespace

QHash<QString, QAction*> BuildIconMenu(QMenuBar& bar)
{
    QHash<QString, QAction*> items;
    auto* tools = new QActionGroup(&bar);
    QMenu* menu = nullptr;
    for (const ItemRow& row : itemRows) {
        if (row.kind == ItemKind::Menu) {
            menu = bar.addMenu(QString::fromLatin1(row.caption));
            menu->setObjectName(QString::fromLatin1(row.name));
        } else if (row.kind == ItemKind::Bar) {
            menu->addSeparator();
        } else {
            items.insert(QString::fromLatin1(row.name), AddItem(*menu, row, *tools));
        }
    }
    return items;
}

QList<QAction*> BuildIconToolbar(QToolBar& bar, const QHash<QString, QAction*>& items)
{
    QList<QAction*> buttons;
    auto* tools = new QActionGroup(&bar);
    for (const ButtonRow& row : buttonRows) {
        if (row.key != nullptr) {
            buttons.append(AddButton(bar, row, *items.value(QString::fromLatin1(row.item)), *tools));
        } else {
            bar.addSeparator();
            buttons.append(nullptr);
        }
    }
    return buttons;
}

} // namespace ob
