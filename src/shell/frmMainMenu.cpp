// SPDX-License-Identifier: GPL-3.0-or-later
// The menu tree of the main window, and the one loop that reads it.
#include "shell/frmMainMenu.h"

#include "editor/modEdit.h"
#include "engine/modProject.h"
#include "engine/modRun.h"
#include "platform/modDialogs.h"
#include "shell/Module1.h"
#include "shell/frmMain.h"
#include "shell/modFileCommands.h"

#include <QMenu>
#include <QMenuBar>

namespace ob {

namespace {

constexpr auto On = ItemKind::On;
constexpr auto Off = ItemKind::Off;
constexpr auto Menu = ItemKind::Menu;
constexpr auto Bar = ItemKind::Bar;

// clang-format off
constexpr MenuRow rows[] = {
    {0, "mnuFile", "&File", "", Menu, nullptr},
    {1, "mnuFileNew", "&New", "Ctrl+N", On, mnuFileNew_Click},
    {1, "mnuFileOpen", "&Open...", "", Menu, nullptr},
    {2, "mnuFileOpenCode", "Open &Code File", "Ctrl+O", On, mnuFileOpenCode_Click},
    {2, "mnuFileExplore", "&Explore Code Files", "", On, nullptr},
    {1, "mnuFileInsert", "&Insert File", "", Off, mnuFileInsert_Click},
    {1, "mnuFileClose", "&Close", "", Off, mnuFileClose_Click},
    {1, "mnuFileBar0", "", "", Bar, nullptr},
    {1, "mnuFileSave", "&Save", "Ctrl+S", Off, mnuFileSave_Click},
    {1, "mnuFileSaveAs", "Save &As...", "", Off, mnuFileSaveAs_Click},
    {1, "mnuFileProject", "Save Pro&ject", "", Off, mnuFileProject_Click},
    {1, "mnuFileBar1", "", "", Bar, nullptr},
    {1, "mnuFileNewGui", "New Gui &Form", "", On, nullptr},
    {1, "mnuFileLoadGui", "&Load Gui Form", "", On, nullptr},
    {1, "mnuFileSaveGui", "Save &Gui Form", "", Off, nullptr},
    {1, "mnuFileBar2", "", "", Bar, nullptr},
    {1, "mnuFilePrint", "&Print...", "Ctrl+P", Off, nullptr},
    {1, "mnuFileBar3", "", "", Bar, nullptr},
    {1, "mnuFileExit", "E&xit   ( Alt+F4)", "Ctrl+F4", On, mnuFileExit_Click},
    {1, "mnuFileBar4", "", "", Bar, nullptr},
    {1, "mnuRecentList", "Recent Files &List", "", Menu, nullptr},
    {2, "mnuFileMRU", "", "", ItemKind::Recent, nullptr},

    {0, "mnuEdit", "&Edit", "", ItemKind::OffMenu, nullptr},
    {1, "mnuEditUndo", "&Undo", "Ctrl+Z", On, mnuEditUndo_Click},
    {1, "mnuEditRedo", "&Redo", "Ctrl+R", On, mnuEditRedo_Click},
    {1, "mnuEditBar0", "", "", Bar, nullptr},
    {1, "mnuEditCut", "Cu&t", "Ctrl+X", On, mnuEditCut_Click},
    {1, "mnuEditCopy", "&Copy", "Ctrl+C", On, mnuEditCopy_Click},
    {1, "mnuEditPaste", "&Paste", "Shift+Ins", On, mnuEditPaste_Click},
    {1, "mnuEditSelectAll", "Select &All", "Ctrl+A", On, mnuEditSelectAll_Click},
    {1, "mnuEditDelete", "&Delete", "Ctrl+D", On, mnuEditDelete_Click},
    {1, "mnuEditClear", "C&lear All", "Ctrl+L", On, mnuEditClear_Click},
    {1, "mnuEditBar1", "", "", Bar, nullptr},
    {1, "mnuEditHelp", "Syntax &Help", "", Menu, nullptr},
    {2, "mnuEditInsert", "&Insert Keyword", "F2", On, nullptr},
    {2, "mnuEditSyntax", "S&yntax Helper", "F4", On, nullptr},
    {2, "mnuSyntaxViewer", "Syntax &Viewer", "", On, nullptr},
    {1, "mnuEditTools", "Edit &Tools", "", Menu, nullptr},
    {2, "mnuEditFind", "&Find", "", On, nullptr},
    {2, "mnuEditFindAgain", "Find A&gain", "F3", On, nullptr},
    {2, "mnuLine", "Go to &Line", "", On, nullptr},
    {2, "mnuEditComment", "&Block Comment", "Ctrl+B", On, nullptr},
    {2, "mnuEditInsertComments", "&Insert Programmer's Comments", "", On, nullptr},

    {0, "mnuViewOptions", "&Options", "", Menu, nullptr},
    {1, "mnuShowOptions", "&Preferences", "", On, nullptr},
    {1, "mnuOptionShowTip", "&Show Tip", "", On, nullptr},
    {1, "mnuOptionsKeywords", "&Edit Custom Keywords", "", On, nullptr},
    {1, "mnuOptionsBar0", "", "", Bar, nullptr},
    {1, "mnuOptionsToolbar", "&Bench Toolbar", "", ItemKind::Check, mnuOptionsToolbar_Click},
    {1, "mnuViewGuiBar", "&GUI Toolbar", "", ItemKind::Check, nullptr},

    {0, "mnuOrchard", "&Orchard BASIC", "", Menu, nullptr},
    {1, "mnuRun", "&Run Active Code", "F5", Off, mnuRun_Click},
    {1, "mnuTKN", "Make T&KN", "F6", Off, mnuTKN_Click},
    {1, "mnuDebug", "&Debug", "F7", Off, mnuDebug_Click},
    {1, "mnuOrchardBar0", "", "", Bar, nullptr},
    {1, "mnuRunTKN", "Run &TKN", "F8", On, mnuRunTKN_Click},
    {1, "mnuRunOB", "Run Orchard &BASIC", "F9", On, mnuRunOB_Click},
    {1, "mnuOrchardBar1", "", "", Bar, nullptr},
    {1, "mnuOBWeb", "&Orchard BASIC Links", "", Menu, nullptr},
    {2, "mnuOBHome", "Orchard Basic &Home Page", "", On, nullptr},
    {2, "mnuOBGroup", "Orchard BASIC &Web Group", "", On, nullptr},
    {2, "mnuOBForum", "Orchard BASIC &Forum", "", On, nullptr},
    {2, "mnuOBNews", "Orchard BASIC &Newsletter", "", On, nullptr},
    {2, "mnuOBLinks", "Orchard BASIC Lin&ks", "", On, nullptr},

    {0, "mnuToolS", "&Tools", "", Menu, nullptr},
    {1, "mnuApps", "&Applications", "", Menu, nullptr},
    {2, "mnuExplorer", "&Explorer", "", On, nullptr},
    {2, "mnuNotepad", "&Text Editor", "", On, nullptr},
    {2, "mnuWordpad", "&Word Processor", "", On, nullptr},
    {2, "mnuPaint", "&Paint Program", "", On, nullptr},
    {2, "mnuSoundRec", "&Wav Player", "", On, nullptr},
    {2, "mnuCalculator", "&Calculator", "", On, nullptr},
    {1, "mnuSpecial", "&Construction Tools", "", Menu, nullptr},
    {2, "mnuToolArray", "&Array Maker", "", On, nullptr},
    {2, "mnuMaker", "Men&u Maker", "", On, nullptr},
    {2, "mnuToolMB", "&Message Boxes", "", On, nullptr},
    {2, "mnuWrapper", "AP&I Wrapper Library", "", On, nullptr},
    {2, "mnuToolPrinter", "&Printer API Library", "", On, nullptr},
    {2, "mnuToolSnipBench", "Snipp&et Bench", "", On, nullptr},
    {2, "mnuToolSnippet", "&Snippet Library", "", On, nullptr},
    {2, "mnuToolMask", "Mas&k Maker", "", On, nullptr},
    {2, "mnuToolAVI", "A&VI Maker", "", On, nullptr},
    {2, "mnuPackage", "Packaging &Wizard", "", On, nullptr},
    {2, "mnuToolbar", "&Toolbar Maker", "", On, nullptr},
    {2, "mnuToolStylebit", "Style&Bits Wizard", "", On, nullptr},
    {2, "mnuToolTE", "API &Texteditor", "", On, nullptr},
    {1, "mnuPreview", "&Preview Tools", "", Menu, nullptr},
    {2, "mnuToolWav", "&Wav Preview", "", On, nullptr},
    {2, "mnuToolBitmap", "&Bitmap Preview", "", On, nullptr},
    {2, "mnuToolMedia", "Med&ia Preview", "", On, nullptr},
    {2, "mnuToolRGB", "RGB &Color Preview", "", On, nullptr},
    {2, "mnuColorDialog", "Color &Dialog", "", On, nullptr},
    {2, "mnuColorNames", "Color &Names", "", On, nullptr},
    {2, "mnuToolFont", "&Font Dialog", "", On, nullptr},
    {2, "mnuToolKeyCode", "&Key Code Preview", "", On, nullptr},
    {1, "mnuToolSBar0", "", "", Bar, nullptr},
    {1, "mnuGui", "&Gui Builder", "", On, nullptr},
    {1, "mnuToolIcon", "&Icon Editor", "", On, nullptr},
    {1, "mnuToolFreeform", "&FreeForm", "", On, mnuToolFreeform_Click},
    {1, "mnuToolShowVar", "Show &Variables", "", Off, nullptr},

    {0, "mnuWindow", "&Window", "", Menu, nullptr},
    {1, "mnuWindowNewWindow", "&New Window", "", On, mnuFileNew_Click},
    {1, "mnuWindowCascade", "&Cascade", "", On, nullptr},
    {1, "mnuWindowTileHorizontal", "Tile &Horizontal", "", On, nullptr},
    {1, "mnuWindowTileVertical", "Tile &Vertical", "", On, nullptr},
    {1, "mnuWindowArrangeIcons", "&Arrange Icons", "", On, nullptr},

    {0, "mnuHelp", "&Help", "", Menu, nullptr},
    {1, "mnuHelpInstruct", "&Instructions", "", On, nullptr},
    {1, "mnuHelpContents", "&Orchard BASIC Help", "F1", On, nullptr},
    {1, "mnuHelpOption", "&Optional Help File", "", On, nullptr},
    {1, "mnuHelpBar0", "", "", Bar, nullptr},
    {1, "mnuHelpAbout", "&About ", "", On, nullptr},
    {1, "mnuCredits", "&Credits", "", On, nullptr},
};
// clang-format on

QAction* AddRow(QMenu& menu, const MenuRow& row)
{
    QAction* action = menu.addAction(QString::fromLatin1(row.caption));
    action->setShortcut(QKeySequence(QString::fromLatin1(row.key)));
    action->setEnabled(row.kind != ItemKind::Off);
    action->setCheckable(row.kind == ItemKind::Check);
    if (row.click != nullptr)
        QObject::connect(action, &QAction::triggered, action, [click = row.click] { RunCommand(click); });
    return action;
}

void AddRecentPlaces(QMenu& menu, const QString& name, QHash<QString, QAction*>& items)
{
    for (int number = 1; number <= RecentFileSlots; ++number) {
        QAction* action = menu.addAction(QString());
        action->setVisible(false);
        action->setObjectName(name + QString::number(number));
        QObject::connect(action, &QAction::triggered, action,
                         [number] { RunCommand([number] { mnuFileMRU_Click(number); }); });
        items.insert(action->objectName(), action);
    }
}

QMenu* AddMenu(QMenuBar& bar, QMenu* parent, const MenuRow& row)
{
    const QString caption = QString::fromLatin1(row.caption);
    QMenu* menu = parent == nullptr ? bar.addMenu(caption) : parent->addMenu(caption);
    menu->menuAction()->setEnabled(row.kind != ItemKind::OffMenu);
    return menu;
}

} // namespace

std::span<const MenuRow> MenuTree()
{
    return rows;
}

QHash<QString, QAction*> BuildMenu(QMenuBar& bar)
{
    QHash<QString, QAction*> items;
    QList<QMenu*> around = {nullptr};
    for (const MenuRow& row : rows) {
        around.resize(row.depth + 1);
        QMenu* menu = around.back();
        const QString name = QString::fromLatin1(row.name);
        QAction* action = nullptr;
        if (row.kind == ItemKind::Menu || row.kind == ItemKind::OffMenu) {
            around.append(AddMenu(bar, menu, row));
            around.back()->setObjectName(name);
            action = around.back()->menuAction();
        } else if (row.kind == ItemKind::Recent) {
            AddRecentPlaces(*menu, name, items);
            continue;
        } else if (row.kind == ItemKind::Bar) {
            action = menu->addSeparator();
        } else {
            action = AddRow(*menu, row);
        }
        action->setObjectName(name);
        items.insert(name, action);
    }
    return items;
}

} // namespace ob
