// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's toolbar, and the loop that reads its table.
#include "shell/bench/frmMainToolbar.h"

#include "platform/dialogs/modDialogs.h"
#include "shell/bench/frmMainMenu.h"
#include "shell/bench/frmUser.h"
#include "shell/bench/modUserApplications.h"
#include "shell/state/Module1.h"

#include <QAction>
#include <QIcon>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

#include <span>

namespace ob {

namespace {

// An item of a button's menu, and the menu item that it triggers.
struct DropRow {
    const char* key;
    const char* item;
};

struct ButtonRow {
    const char* key; // null for a separator
    const char* tip;
    const char* icon;
    const char* item; // the menu item that a plain click triggers
    std::span<const DropRow> drop;
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

constexpr ButtonRow rows[] = {
    {"New", "New", "new", "mnuWindowNewWindow", {}},
    {"Open", "Open", "open", "mnuFileOpenCode", {}},
    {"Save", "Save", "save", "mnuFileSave", {}},
    {"Print", "Print", "print", "mnuFilePrint", {}},
    {nullptr, nullptr, nullptr, nullptr, {}},
    {"Cut", "Cut", "cut", "mnuEditCut", {}},
    {"Copy", "Copy", "copy", "mnuEditCopy", {}},
    {"Paste", "Paste", "paste", "mnuEditPaste", {}},
    {"Find", "Find/Replace", "find", "mnuEditFind", {}},
    {nullptr, nullptr, nullptr, nullptr, {}},
    {"Run", "Run", "run", "mnuRun", {}},
    {"Debug", "Debug", "debug", "mnuDebug", {}},
    {"Options", "Options", "options", "mnuShowOptions", {}},
    {"User", "User-defined Applications", "user", "", {}},
    {"Construct", "Construction Tools", "construct", "mnuToolArray", constructRows},
    {"View", "Preview Tools", "view", "mnuToolBitmap", viewRows},
    {"Help", "Help", "help", "mnuHelpContents", helpRows},
};

// The buttons that act on a code window; disabled until there is one.
constexpr int codeButtons[] = {3, 4, 6, 7, 8, 9, 11, 12};

QMenu* MakeDropMenu(QToolBar& bar, std::span<const DropRow> drop, const QHash<QString, QAction*>& items)
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
    QAction* manage = menu.addAction(QStringLiteral("Add/Remove"));
    manage->setObjectName(QStringLiteral("addremove"));
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
    QAction* button = bar.addAction(QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(row.icon))),
                                    QString::fromLatin1(row.tip));
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
        if (row.key == nullptr) {
            bar.addSeparator();
            parts.buttons.append(nullptr);
            continue;
        }
        QAction* button = AddButton(bar, row, items);
        if (!row.drop.empty())
            GiveMenu(bar, button, MakeDropMenu(bar, row.drop, items));
        if (button->objectName() == QLatin1String("User")) {
            auto* menu = new QMenu(&bar);
            parts.userItems = FillUserMenu(*menu);
            GiveMenu(bar, button, menu);
            QObject::connect(button, &QAction::triggered, button, [] { RunCommand(UserButton_Click); });
        }
        parts.buttons.append(button);
    }
    for (const int place : codeButtons)
        parts.buttons[place - 1]->setEnabled(false);
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
