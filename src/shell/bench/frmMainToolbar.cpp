// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's toolbar, and the loop that reads its table.
#include "shell/bench/frmMainToolbar.h"

#include "platform/dialogs/modDialogs.h"
#include "shell/bench/frmMainMenu.h"
#include "shell/bench/frmTools.h"
#include "shell/bench/frmUser.h"
#include "shell/bench/modUserApplications.h"
#include "shell/state/Module1.h"
#include "shell/state/modIcons.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <span>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// An item of a button's menu, and the menu item that it triggers.
struct DropRow {
    const char* key;
    const char* item;
};

struct ButtonRow {
    ItemKind kind; // On, Off until a code window is active, or Bar
    const char* key = nullptr;
    const char* tip = nullptr;
    const char* icon = nullptr;
    const char* item = nullptr; // the menu item that a plain click triggers
    std::span<const DropRow> drop = {};
    const char* menu = nullptr; // whose other tools come last on the button's own
};

constexpr DropRow constructRows[] = {
    {"arraymake", "mnuToolArray"},   {"menumake", "mnuMaker"},       {"message", "mnuToolMB"},
    {"api", "mnuWrapper"},           {"printlib", "mnuToolPrinter"}, {"snipwork", "mnuToolSnipBench"},
    {"snippet", "mnuToolSnippet"},   {"mask", "mnuToolMask"},        {"avi", "mnuToolAVI"},
    {"Package", "mnuPackage"},       {"icon", "mnuToolIcon"},        {"toolbar", "mnuToolbar"},
    {"stylebit", "mnuToolStylebit"}, {"apite", "mnuToolTE"},
};

constexpr DropRow viewRows[] = {
    {"wav", "mnuToolWav"},       {"bitmap", "mnuToolBitmap"},     {"media", "mnuToolMedia"},
    {"rgbview", "mnuToolRGB"},   {"colorview", "mnuColorDialog"}, {"colornames", "mnuColorNames"},
    {"fontview", "mnuToolFont"}, {"keyview", "mnuToolKeyCode"},
};

constexpr DropRow helpRows[] = {
    {"instruct", "mnuHelpInstruct"},
    {"obhelp", "mnuHelpContents"},
    {"optionalhelp", "mnuHelpOption"},
    {"about", "mnuHelpAbout"},
};

constexpr const char* userKeys[] = {"one", "two", "three", "four", "five", "six", "seven", "eight", "nine", "ten"};

constexpr auto On = ItemKind::On;
constexpr auto Off = ItemKind::Off;
constexpr auto Bar = ItemKind::Bar;

constexpr ButtonRow rows[] = {
    {On, "New", "New", "new", "mnuWindowNewWindow"},
    {On, "Open", "Open", "open", "mnuFileOpenCode"},
    {Off, "Save", "Save", "save", "mnuFileSave"},
    {Off, "Print", "Print", "print", "mnuFilePrint"},
    {Bar},
    {Off, "Cut", "Cut", "cut", "mnuEditCut"},
    {Off, "Copy", "Copy", "copy", "mnuEditCopy"},
    {Off, "Paste", "Paste", "paste", "mnuEditPaste"},
    {Off, "Find", "Find/Replace", "find", "mnuEditFind"},
    {Bar},
    {Off, "Run", "Run", "run", "mnuRun"},
    {Off, "Debug", "Debug", "debug", "mnuDebug"},
    {On, "Options", "Options", "options", "mnuShowOptions"},
    {On, "User", "User-defined Applications", "user", ""},
    {On, "Construct", "Construction Tools", "construct", "mnuToolArray", constructRows, ConstructionTools},
    {On, "View", "Preview Tools", "view", "mnuToolBitmap", viewRows, PreviewTools},
    {On, "Help", "Help", "help", "mnuHelpContents", helpRows},
};

// The row's items, then the tools of its menu that are none of them; such a tool's key is its name.
std::vector<DropRow> WholeDrop(const ButtonRow& row)
{
    std::vector<DropRow> drop(row.drop.begin(), row.drop.end());
    for (const ToolRow& tool : Tools()) {
        const std::string_view name = tool.name;
        const bool isListed = std::any_of(row.drop.begin(), row.drop.end(),
                                          [name](const DropRow& listed) { return name == listed.item; });
        if (row.menu != nullptr && std::string_view(row.menu) == tool.menu && !isListed)
            drop.push_back({tool.name, tool.name});
    }
    return drop;
}

QMenu* MakeDropMenu(QToolBar& bar, const std::vector<DropRow>& drop, const QHash<QString, QAction*>& items)
{
    auto* menu = new QMenu(&bar);
    ShowIconsOnOpening(*menu);
    for (const DropRow& row : drop) {
        QAction* item = items.value(QString::fromLatin1(row.item));
        QAction* entry = menu->addAction(item->text());
        SetIconName(*entry, IconName(*item));
        entry->setObjectName(QString::fromLatin1(row.key));
        QObject::connect(entry, &QAction::triggered, item, &QAction::trigger);
    }
    return menu;
}

QList<QAction*> FillUserMenu(QMenu& menu)
{
    QList<QAction*> entries;
    for (int number = 1; number <= UserApplicationCount; ++number) {
        QAction* entry = menu.addAction(QString());
        entry->setObjectName(QString::fromLatin1(userKeys[number - 1]));
        QObject::connect(entry, &QAction::triggered, entry, [number] { StartUserApplication(number); });
        entries.append(entry);
    }
    menu.addSeparator();
    QAction* manage = menu.addAction(u"Add/Remove"_s);
    manage->setObjectName(u"addremove"_s);
    QObject::connect(manage, &QAction::triggered, manage, [] { RunCommand(ShowUserApplications); });
    return entries;
}

void UserButton_Click()
{
    if (ClickUserButton() == UserButtonEnd::WantsDialog)
        ShowUserApplications();
}

QAction* AddButton(QToolBar& bar, const ButtonRow& row, const QHash<QString, QAction*>& items)
{
    QAction* button = bar.addAction(BenchIcon(QString::fromLatin1(row.icon)), QString::fromLatin1(row.tip));
    button->setObjectName(QString::fromLatin1(row.key));
    if (QAction* item = items.value(QString::fromLatin1(row.item)))
        QObject::connect(button, &QAction::triggered, item, &QAction::trigger);
    return button;
}

void GiveMenu(QToolBar& bar, QAction* button, QMenu* menu)
{
    button->setMenu(menu);
    if (auto* face = qobject_cast<QToolButton*>(bar.widgetForAction(button)))
        face->setPopupMode(QToolButton::MenuButtonPopup);
}

} // namespace

ToolbarParts BuildToolbar(QToolBar& bar, const QHash<QString, QAction*>& items)
{
    ToolbarParts parts;
    for (const ButtonRow& row : rows) {
        if (row.kind == Bar) {
            bar.addSeparator();
            continue;
        }
        QAction* button = AddButton(bar, row, items);
        if (!row.drop.empty())
            GiveMenu(bar, button, MakeDropMenu(bar, WholeDrop(row), items));
        if (button->objectName() == QLatin1String("User")) {
            auto* menu = new QMenu(&bar);
            parts.userItems = FillUserMenu(*menu);
            GiveMenu(bar, button, menu);
            QObject::connect(button, &QAction::triggered, button, [] { RunCommand(UserButton_Click); });
        }
        button->setEnabled(row.kind == On);
        parts.buttons.insert(button->objectName(), button);
    }
    return parts;
}

void ShowUserApplicationItems(const QList<QAction*>& userItems)
{
    for (qsizetype i = 0; i < userItems.size(); ++i) {
        QString text = ApplicationItemText(UserApplications[static_cast<std::size_t>(i)]);
        userItems[i]->setVisible(!text.isEmpty());
        userItems[i]->setText(text.replace(QLatin1Char('&'), QLatin1String("&&")));
    }
}

} // namespace ob
