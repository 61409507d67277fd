// SPDX-License-Identifier: GPL-3.0-or-later
// The menu tree of the main window, and the loop that reads it.
#include "shell/bench/frmMainMenu.h"

#include "codetools/frmTip.h"
#include "editor/dlgPrinting.h"
#include "editor/files/modFileCommands.h"
#include "editor/files/modSave.h"
#include "editor/frmCodeExplorer.h"
#include "editor/frmFind.h"
#include "editor/frmKeywords.h"
#include "editor/frmSyntax.h"
#include "editor/modEdit.h"
#include "engine/run/modProject.h"
#include "engine/run/modRun.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/bench/dlgAbout.h"
#include "shell/bench/frmMain.h"
#include "shell/bench/frmMainWindows.h"
#include "shell/bench/frmOptions.h"
#include "shell/bench/frmTools.h"
#include "shell/bench/modLaunchers.h"
#include "shell/help/frmHelp.h"
#include "shell/state/Module1.h"
#include "shell/state/modIcons.h"

#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <string_view>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr char IconProperty[] = "iconName";

constexpr auto On = ItemKind::On;
constexpr auto Off = ItemKind::Off;
constexpr auto Menu = ItemKind::Menu;
constexpr auto Bar = ItemKind::Bar;
constexpr auto Tool = ItemKind::Tool;

// clang-format off
constexpr MenuRow rows[] = {
    {0, "mnuFile", "&File", "", "", Menu, nullptr},
    {1, "mnuFileNew", "&New", "Ctrl+N", "new", On, mnuFileNew_Click},
    {1, "mnuFileOpen", "&Open...", "", "", Menu, nullptr},
    {2, "mnuFileOpenCode", "Open &Code File", "Ctrl+O", "open", On, mnuFileOpenCode_Click},
    {2, "mnuFileExplore", "&Explore Code Files", "", "explore", On, mnuFileExplore_Click},
    {1, "mnuFileInsert", "&Insert File", "", "insert-file", Off, mnuFileInsert_Click},
    {1, "mnuFileClose", "&Close", "", "close", Off, mnuFileClose_Click},
    {1, "mnuFileBar0", "", "", "", Bar, nullptr},
    {1, "mnuFileSave", "&Save", "Ctrl+S", "save", Off, mnuFileSave_Click},
    {1, "mnuFileSaveAs", "Save &As...", "", "save-as", Off, mnuFileSaveAs_Click},
    {1, "mnuFileProject", "Save Pro&ject", "", "save-project", Off, mnuFileProject_Click},
    {1, "mnuFileBar1", "", "", "", Bar, nullptr},
    {1, "mnuFileNewGui", "New Gui &Form", "", "form", On, NewGuiForm},
    {1, "mnuFileLoadGui", "&Load Gui Form", "", "load-form", On, mnuFileLoadGui_Click},
    {1, "mnuFileSaveGui", "Save &Gui Form", "", "save-form", Off, guiSave},
    {1, "mnuFileBar2", "", "", "", Bar, nullptr},
    {1, "mnuFilePrint", "&Print...", "Ctrl+P", "print", Off, mnuFilePrint_Click},
    {1, "mnuFileBar3", "", "", "", Bar, nullptr},
    {1, "mnuFileExit", "E&xit   ( Alt+F4)", "Ctrl+F4", "exit", On, mnuFileExit_Click},
    {1, "mnuFileBar4", "", "", "", Bar, nullptr},
    {1, "mnuRecentList", "Recent Files &List", "", "recent", ItemKind::OffMenu, nullptr},
    {2, "mnuFileMRU", "", "", "", ItemKind::Recent, nullptr},

    {0, "mnuEdit", "&Edit", "", "", ItemKind::OffMenu, nullptr},
    {1, "mnuEditUndo", "&Undo", "Ctrl+Z", "undo", On, mnuEditUndo_Click},
    {1, "mnuEditRedo", "&Redo", "Ctrl+R", "redo", On, mnuEditRedo_Click},
    {1, "mnuEditBar0", "", "", "", Bar, nullptr},
    {1, "mnuEditCut", "Cu&t", "Ctrl+X", "cut", On, mnuEditCut_Click},
    {1, "mnuEditCopy", "&Copy", "Ctrl+C", "copy", On, mnuEditCopy_Click},
    {1, "mnuEditPaste", "&Paste", "Shift+Ins", "paste", On, mnuEditPaste_Click},
    {1, "mnuEditSelectAll", "Select &All", "Ctrl+A", "select-all", On, mnuEditSelectAll_Click},
    {1, "mnuEditDelete", "&Delete", "Ctrl+D", "delete", On, mnuEditDelete_Click},
    {1, "mnuEditClear", "C&lear All", "Ctrl+L", "clear-all", On, mnuEditClear_Click},
    {1, "mnuEditBar1", "", "", "", Bar, nullptr},
    {1, "mnuEditHelp", "Syntax &Help", "", "syntax-help", Menu, nullptr},
    {2, "mnuEditInsert", "&Insert Keyword", "F2", "keyword", On, mnuEditInsert_Click},
    {2, "mnuEditSyntax", "S&yntax Helper", "F4", "syntax-help", On, mnuEditSyntax_Click},
    {2, "mnuSyntaxViewer", "Syntax &Viewer", "", "syntax-help", On, mnuSyntaxViewer_Click},
    {1, "mnuEditTools", "Edit &Tools", "", "", Menu, nullptr},
    {2, "mnuEditFind", "&Find", "", "find", On, mnuEditFind_Click},
    {2, "mnuEditFindAgain", "Find A&gain", "F3", "find-again", On, mnuEditFindAgain_Click},
    {2, "mnuLine", "Go to &Line", "", "go-to-line", On, mnuLine_Click},
    {2, "mnuEditComment", "&Block Comment", "Ctrl+B", "block-comment", On, mnuEditComment_Click},
    {2, "mnuEditInsertComments", "&Insert Programmer's Comments", "", "", On, mnuEditInsertComments_Click},

    {0, "mnuViewOptions", "&Options", "", "", Menu, nullptr},
    {1, "mnuShowOptions", "&Preferences", "", "options", On, mnuShowOptions_Click},
    {1, "mnuOptionShowTip", "&Show Tip", "", "tip", On, mnuOptionShowTip_Click},
    {1, "mnuOptionsKeywords", "&Edit Custom Keywords", "", "keywords-edit", On, mnuOptionsKeywords_Click},
    {1, "mnuOptionsBar0", "", "", "", Bar, nullptr},
    {1, "mnuOptionsToolbar", "&Bench Toolbar", "", "", ItemKind::Check, mnuOptionsToolbar_Click},
    {1, "mnuViewGuiBar", "&GUI Toolbar", "", "", ItemKind::Check, mnuViewGuiBar_Click},

    {0, "mnuOrchard", "&Orchard BASIC", "", "", Menu, nullptr},
    {1, "mnuRun", "&Run Active Code", "F5", "run", Off, mnuRun_Click},
    {1, "mnuTKN", "Make T&KN", "F6", "token", Off, mnuTKN_Click},
    {1, "mnuDebug", "&Debug", "F7", "debug", Off, mnuDebug_Click},
    {1, "mnuOrchardBar0", "", "", "", Bar, nullptr},
    {1, "mnuRunTKN", "Run &TKN", "F8", "", On, mnuRunTKN_Click},
    {1, "mnuRunOB", "Run Orchard &BASIC", "F9", "run-engine", On, mnuRunOB_Click},
    {1, "mnuOrchardBar1", "", "", "", Bar, nullptr},
    {1, "mnuOBWeb", "&Orchard BASIC Links", "", "links", Menu, nullptr},
    {2, "mnuOBHome", "Orchard Basic &Home Page", "", "web", On, mnuOBHome_Click},
    {2, "mnuOBGroup", "Orchard BASIC &Web Group", "", "group", On, mnuOBGroup_Click},
    {2, "mnuOBForum", "Orchard BASIC &Forum", "", "forum", On, mnuOBForum_Click},
    {2, "mnuOBNews", "Orchard BASIC &Newsletter", "", "newsletter", On, mnuOBNews_Click},
    {2, "mnuOBLinks", "Orchard BASIC Lin&ks", "", "links", On, mnuOBLinks_Click},

    {0, "mnuToolS", "&Tools", "", "", Menu, nullptr},
    {1, "mnuApps", "&Applications", "", "", Menu, nullptr},
    {2, "mnuExplorer", "&Explorer", "", "folder", On, mnuExplorer_Click},
    {2, "mnuNotepad", "&Text Editor", "", "text-editor", On, mnuNotepad_Click},
    {2, "mnuWordpad", "&Word Processor", "", "word-processor", On, mnuWordpad_Click},
    {2, "mnuPaint", "&Paint Program", "", "paint", On, mnuPaint_Click},
    {2, "mnuSoundRec", "&Wav Player", "", "sound", On, mnuSoundRec_Click},
    {2, "mnuCalculator", "&Calculator", "", "calculator", On, mnuCalculator_Click},
    {1, "mnuSpecial", "&Construction Tools", "", "construct", Menu, nullptr},
    {2, "mnuToolArray", "", "", "", Tool, nullptr},
    {2, "mnuMaker", "", "", "", Tool, nullptr},
    {2, "mnuToolMB", "", "", "", Tool, nullptr},
    {2, "mnuWrapper", "", "", "", Tool, nullptr},
    {2, "mnuToolPrinter", "", "", "", Tool, nullptr},
    {2, "mnuToolSnipBench", "", "", "", Tool, nullptr},
    {2, "mnuToolSnippet", "", "", "", Tool, nullptr},
    {2, "mnuToolMask", "", "", "", Tool, nullptr},
    {2, "mnuToolAVI", "", "", "", Tool, nullptr},
    {2, "mnuPackage", "", "", "", Tool, nullptr},
    {2, "mnuToolbar", "", "", "", Tool, nullptr},
    {2, "mnuToolStylebit", "", "", "", Tool, nullptr},
    {2, "mnuToolTE", "", "", "", Tool, nullptr},
    {1, "mnuPreview", "&Preview Tools", "", "view", Menu, nullptr},
    {2, "mnuToolWav", "", "", "", Tool, nullptr},
    {2, "mnuToolBitmap", "", "", "", Tool, nullptr},
    {2, "mnuToolMedia", "", "", "", Tool, nullptr},
    {2, "mnuToolRGB", "", "", "", Tool, nullptr},
    {2, "mnuColorDialog", "", "", "", Tool, nullptr},
    {2, "mnuColorNames", "", "", "", Tool, nullptr},
    {2, "mnuToolFont", "", "", "", Tool, nullptr},
    {2, "mnuToolKeyCode", "", "", "", Tool, nullptr},
    {1, "mnuToolSBar0", "", "", "", Bar, nullptr},
    {1, "mnuGui", "", "", "", Tool, nullptr},
    {1, "mnuToolIcon", "", "", "", Tool, nullptr},
    {1, "mnuToolFreeform", "", "", "", Tool, nullptr},
    {1, "mnuToolShowVar", "", "", "", Tool, nullptr},

    {0, "mnuWindow", "&Window", "", "", Menu, nullptr},
    {1, "mnuWindowNewWindow", "&New Window", "", "new-window", On, mnuFileNew_Click},
    {1, "mnuWindowCascade", "&Cascade", "", "cascade", On, mnuWindowCascade_Click},
    {1, "mnuWindowTileHorizontal", "Tile &Horizontal", "", "tile-horizontal", On, mnuWindowTileHorizontal_Click},
    {1, "mnuWindowTileVertical", "Tile &Vertical", "", "tile-vertical", On, mnuWindowTileVertical_Click},
    {1, "mnuWindowArrangeIcons", "&Arrange Icons", "", "arrange-icons", On, mnuWindowArrangeIcons_Click},

    {0, "mnuHelp", "&Help", "", "", Menu, nullptr},
    {1, "mnuHelpInstruct", "&Instructions", "", "instructions", On, mnuHelpInstruct_Click},
    {1, "mnuHelpContents", "&Orchard BASIC Help", "F1", "help", On, mnuHelpContents_Click},
    {1, "mnuHelpOption", "&Optional Help File", "", "", On, mnuHelpOption_Click},
    {1, "mnuHelpBar0", "", "", "", Bar, nullptr},
    {1, "mnuHelpAbout", "&About ", "", "about", On, mnuHelpAbout_Click},
    {1, "mnuCredits", "&Credits", "", "credits", On, mnuCredits_Click},
};
// clang-format on

MenuRow RowOf(int depth, const ToolRow& tool)
{
    const ItemKind kind = tool.needs == ToolNeeds::CodeWindow ? Off : On;
    return {depth, tool.name, tool.caption, "", tool.icon, kind, tool.show};
}

auto FindRow(std::vector<MenuRow>& tree, std::string_view name)
{
    return std::find_if(tree.begin(), tree.end(), [name](const MenuRow& row) { return name == row.name; });
}

// The rows with their tools; a tool without a row of its own is the last of its menu.
std::vector<MenuRow> WholeTree()
{
    std::vector<MenuRow> tree(std::begin(rows), std::end(rows));
    for (const ToolRow& tool : Tools()) {
        if (const auto row = FindRow(tree, tool.name); row != tree.end()) {
            *row = RowOf(row->depth, tool);
            continue;
        }
        const auto menu = FindRow(tree, tool.menu);
        const int depth = menu->depth + 1;
        const auto end = std::find_if(menu + 1, tree.end(), [depth](const MenuRow& row) { return row.depth < depth; });
        tree.insert(end, RowOf(depth, tool));
    }
    return tree;
}

QAction* AddRow(QMenu& menu, const MenuRow& row)
{
    QAction* action = menu.addAction(QString::fromLatin1(row.caption));
    SetIconName(*action, QString::fromLatin1(row.icon));
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
    SetIconName(*menu->menuAction(), QString::fromLatin1(row.icon));
    ShowIconsOnOpening(*menu);
    return menu;
}

} // namespace

void SetIconName(QAction& item, const QString& icon)
{
    item.setProperty(IconProperty, icon);
}

QString IconName(const QAction& item)
{
    return item.property(IconProperty).toString();
}

void ShowIconsOnOpening(QMenu& menu)
{
    QObject::connect(&menu, &QMenu::aboutToShow, &menu, [&menu] {
        for (QAction* item : menu.actions())
            if (item->icon().isNull() && !IconName(*item).isEmpty())
                item->setIcon(BenchIcon(IconName(*item)));
    });
}

const std::vector<MenuRow>& MenuTree()
{
    static const std::vector<MenuRow> tree = WholeTree();
    return tree;
}

std::vector<ManualTool> ToolsForManual()
{
    std::vector<ManualTool> tools;
    for (const ToolRow& tool : Tools()) {
        const auto isMenu = [&tool](const MenuRow& row) { return std::string_view(row.name) == tool.menu; };
        const auto menu = std::find_if(MenuTree().begin(), MenuTree().end(), isMenu);
        QString item = QString::fromLatin1(tool.caption);
        if (menu->depth > 0)
            item.prepend(QString::fromLatin1(menu->caption) + u" > "_s);
        tools.push_back({item.remove(QLatin1Char('&')), QString::fromLatin1(tool.page)});
    }
    return tools;
}

QHash<QString, QAction*> BuildMenu(QMenuBar& bar)
{
    QHash<QString, QAction*> items;
    QList<QMenu*> around = {nullptr};
    for (const MenuRow& row : MenuTree()) {
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
