// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's palette.
#include "guibuilder/frmPalette.h"

#include "guibuilder/cDesigner.h"
#include "guibuilder/frmGui.h"
#include "guibuilder/frmSurface.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/modIcons.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

enum class Needs { Nothing, Form };

struct ToolRow {
    const char* name; // also its tip
    const char* icon;
    int place; // in its group as shown, two in a row: form and program first, then the controls
    Needs needs;
    void (*use)(frmGui* gui); // null for a tool that arms; the form window exists if the tool needs it
    const char* arms;         // KindTraits::toolName; null for a command
};

constexpr ToolRow Arming(const char* name, const char* icon, int place, const char* toolName)
{
    return {name, icon, place, Needs::Form, nullptr, toolName};
}

// In the order of their numbers, from 0.
constexpr ToolRow tools[] = {
    {"New Gui Form", "tool-new-form", 0, Needs::Nothing, [](frmGui*) { NewGuiForm(); }, nullptr},
    {"Compile to BAS Code with Outline", "tool-compile-outline", 4, Needs::Form, [](frmGui*) { Compile(); }, nullptr},
    {"Load Gui Form", "tool-load-form", 1, Needs::Nothing, [](frmGui*) { mnuFileLoadGui_Click(); }, nullptr},
    {"Save Gui Form", "tool-save-form", 2, Needs::Nothing, [](frmGui*) { guiSave(); }, nullptr},
    Arming("Command Button", "tool-button", 0, "Button"),
    Arming("BmpButton", "tool-bmpbutton", 1, "Bmpbutton"),
    Arming("StaticText", "tool-statictext", 2, "Statictext"),
    Arming("GroupBox", "tool-groupbox", 3, "Groupbox"),
    Arming("TextBox", "tool-textbox", 4, "Textbox"),
    Arming("TextEditor", "tool-texteditor", 5, "Texteditor"),
    Arming("CheckBox", "tool-checkbox", 6, "Checkbox"),
    Arming("RadioButton", "tool-radiobutton", 7, "Radiobutton"),
    Arming("ListBox", "tool-listbox", 8, "Listbox"),
    Arming("ComboBox", "tool-combobox", 9, "Combobox"),
    Arming("GraphicBox", "tool-graphicbox", 10, "Graphicbox"),
    {"Window Defaults", "tool-window-defaults", 3, Needs::Form,
     [](frmGui* gui) { gui->Surface().ShowWindowDefaults(); }, nullptr},
    {MenuEditorTool, "tool-menu-editor", 6, Needs::Form, [](frmGui* gui) { gui->Surface().ShowMenuEditor(); }, nullptr},
    {"Compile GUI Code", "tool-compile-simple", 5, Needs::Form, [](frmGui*) { CompileSimple(); }, nullptr},
};

} // namespace

frmPalette::frmPalette(cDesigner& target, QWidget* parent) : QFrame(parent), designer(target)
{
    setObjectName(u"picGui"_s);
    setFrameShape(QFrame::StyledPanel);
    setToolTip(u"Tools and controls for Gui Builder"_s);
    auto* heading = new QLabel(u"Gui Tools"_s, this);
    heading->setObjectName(u"lblGui"_s);
    cmdGuiX = MakeButton("cmdGuiX", "panel-close", u"Close Gui Toolbar"_s);
    cmdGuiX->setIconSize(QSize(12, 12));
    connect(cmdGuiX, &QToolButton::clicked, this, &frmPalette::CloseWanted);
    chkGrid = MakeButton("chkGrid", "grid", u"Visible Grid On/Off"_s);
    chkLock = MakeButton("chkLock", "lock", u"Lock/Unlock Controls"_s);
    chkSnap = MakeButton("chkSnap", "snap", u"Snap Drawing to the Grid On/Off"_s);
    for (QToolButton* button : {chkGrid, chkLock, chkSnap})
        button->setCheckable(true);
    connect(chkGrid, &QToolButton::toggled, this, [this](bool down) {
        designer.Design().GuiGridOn = !down;
        RepaintSurface();
    });
    connect(chkLock, &QToolButton::toggled, this, [this](bool down) {
        down ? designer.Lock() : designer.Unlock();
        RepaintSurface();
    });
    connect(chkSnap, &QToolButton::toggled, this, [this](bool down) {
        designer.SetSnapMode(down ? cDesigner::SnapMode::WithGrid : cDesigner::SnapMode::Usual);
    });

    auto* top = new QHBoxLayout;
    top->addWidget(heading, 1);
    top->addWidget(cmdGuiX);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(6, 4, 4, 6);
    column->addLayout(top);
    MakeTools(*column);
    auto* switches = new QGridLayout;
    switches->setSpacing(2);
    switches->setColumnStretch(2, 1);
    switches->addWidget(chkGrid, 0, 0);
    switches->addWidget(chkLock, 0, 1);
    switches->addWidget(chkSnap, 1, 0);
    column->addLayout(switches);
    column->addStretch(1);
    Refresh();
}

QToolButton* frmPalette::MakeButton(const char* name, const char* icon, const QString& tip)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QString::fromLatin1(name));
    button->setIcon(BenchIcon(QString::fromLatin1(icon)));
    button->setIconSize(QSize(20, 20));
    button->setAutoRaise(true);
    button->setToolTip(tip);
    button->setAccessibleName(tip);
    return button;
}

QGridLayout* frmPalette::AddGroup(QVBoxLayout& column)
{
    auto* grid = new QGridLayout;
    grid->setSpacing(2);
    grid->setColumnStretch(2, 1);
    column.addLayout(grid);
    auto* line = new QFrame(this);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    column.addWidget(line);
    return grid;
}

void frmPalette::MakeTools(QVBoxLayout& column)
{
    QGridLayout* commands = AddGroup(column);
    QGridLayout* controls = AddGroup(column);
    for (std::size_t number = 0; number < std::size(tools); ++number) {
        const ToolRow& row = tools[number];
        QToolButton* button = MakeButton("", row.icon, QString::fromLatin1(row.name));
        button->setObjectName(u"cmdTools%1"_s.arg(number));
        button->setCheckable(row.arms != nullptr);
        connect(button, &QToolButton::clicked, this, [this, number] { Use(number); });
        (row.arms == nullptr ? commands : controls)->addWidget(button, row.place / 2, row.place % 2);
        cmdTools.push_back(button);
    }
    usable.assign(cmdTools.size(), true);
}

void frmPalette::Use(std::size_t number)
{
    const ToolRow& row = tools[number];
    RunCommand([&] {
        designer.Design().GuiFormModified = true;
        if (row.needs == Needs::Form && gui == nullptr)
            return;
        if (row.arms != nullptr)
            gui->ArmTool(QString::fromLatin1(row.arms));
        else
            row.use(gui);
    });
    Refresh();
}

void frmPalette::Follow(frmGui* window)
{
    gui = window;
    Refresh();
}

void frmPalette::Refresh()
{
    const FormDesign& design = designer.Design();
    for (std::size_t number = 0; number < std::size(tools); ++number) {
        const ToolRow& row = tools[number];
        cmdTools[number]->setEnabled(row.needs == Needs::Nothing || (design.GuiFormOpen && usable[number]));
        if (row.arms != nullptr)
            cmdTools[number]->setChecked(designer.IsArmed(QString::fromLatin1(row.arms)));
    }
    chkGrid->setChecked(!design.GuiGridOn);
    chkLock->setChecked(designer.IsLocked());
    chkSnap->setChecked(designer.Snapping() == cDesigner::SnapMode::WithGrid);
}

void frmPalette::RepaintSurface()
{
    if (gui != nullptr)
        gui->Surface().update();
}

void frmPalette::EnableTool(const QString& name, bool enable)
{
    for (std::size_t number = 0; number < std::size(tools); ++number)
        if (name == QLatin1String(tools[number].name))
            usable[number] = enable;
    Refresh();
}

} // namespace ob
