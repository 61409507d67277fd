// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's toolbar, and the one loop that reads its table.
#include "shell/frmMainToolbar.h"

#include <QAction>
#include <QIcon>
#include <QToolBar>

namespace ob {

namespace {

struct ButtonRow {
    const char* key; // null for a separator
    const char* tip;
    const char* icon;
    const char* item; // the menu item that a plain click stands for
};

constexpr ButtonRow rows[] = {
    {"New", "New", "new", "mnuWindowNewWindow"},
    {"Open", "Open", "open", "mnuFileOpenCode"},
    {"Save", "Save", "save", "mnuFileSave"},
    {"Print", "Print", "print", "mnuFilePrint"},
    {nullptr, nullptr, nullptr, nullptr},
    {"Cut", "Cut", "cut", "mnuEditCut"},
    {"Copy", "Copy", "copy", "mnuEditCopy"},
    {"Paste", "Paste", "paste", "mnuEditPaste"},
    {"Find", "Find/Replace", "find", "mnuEditFind"},
    {nullptr, nullptr, nullptr, nullptr},
    {"Run", "Run", "run", "mnuRun"},
    {"Debug", "Debug", "debug", "mnuDebug"},
    {"Options", "Options", "options", "mnuShowOptions"},
    {"User", "User-defined Applications", "user", ""},
    {"Construct", "Construction Tools", "construct", "mnuToolArray"},
    {"View", "Preview Tools", "view", "mnuToolBitmap"},
    {"Help", "Help", "help", "mnuHelpContents"},
};

// The buttons that act on a code window; off until there is one.
constexpr int codeButtons[] = {3, 4, 6, 7, 8, 9, 11, 12};

} // namespace

QList<QAction*> BuildToolbar(QToolBar& bar, const QHash<QString, QAction*>& items)
{
    QList<QAction*> buttons;
    for (const ButtonRow& row : rows) {
        if (row.key == nullptr) {
            bar.addSeparator();
            buttons.append(nullptr);
            continue;
        }
        QAction* button = bar.addAction(QIcon(QStringLiteral(":/icons/%1.svg").arg(QLatin1String(row.icon))),
                                        QString::fromLatin1(row.tip));
        button->setObjectName(QString::fromLatin1(row.key));
        if (QAction* item = items.value(QString::fromLatin1(row.item)))
            QObject::connect(button, &QAction::triggered, item, &QAction::trigger);
        buttons.append(button);
    }
    for (const int place : codeButtons)
        buttons[place - 1]->setEnabled(false);
    return buttons;
}

} // namespace ob
