// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's side of the form builder: the one form window, and the palette's commands.
#include "guibuilder/frmGui.h"
#include "guibuilder/frmPalette.h"
#include "guibuilder/frmSurface.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/bench/frmMain.h"

#include <QMdiArea>
#include <QMdiSubWindow>

namespace ob {

bool frmMain::UnloadGui()
{
    return gui == nullptr || SubWindowOf(gui)->close();
}

void frmMain::ShowGui()
{
    ShowPalette(true);
    gui = new frmGui;
    connect(gui, &frmGui::Unloaded, this, [this](const QWidget* gone) {
        gui = nullptr;
        if (activeChild == gone)
            activeChild = nullptr;
        picGui->Refresh();
    });
    connect(&gui->Surface(), &frmSurface::ToolUsed, picGui, &frmPalette::Refresh);
    QMdiSubWindow* window = AddChild(*gui);
    gui->Join(*window);
    window->show();
    mdi->setActiveSubWindow(window);
    ActivateChild(gui);
    picGui->Refresh();
}

void frmMain::RefreshGui()
{
    if (gui != nullptr)
        gui->Refresh();
    picGui->Refresh();
}

void frmMain::SettleGui(GuiSteps steps)
{
    if (gui == nullptr)
        return;
    if (steps == GuiSteps::Keep)
        gui->Surface().Designer().Adopt();
    else
        gui->Surface().Restart();
}

void frmMain::ShowGuiDefaults()
{
    if (gui != nullptr)
        gui->Surface().ShowWindowDefaults();
}

void frmMain::EnableGuiTool(int place, bool enable)
{
    picGui->EnableTool(place, enable);
}

void frmMain::ConnectPalette()
{
    connect(picGui, &frmPalette::CloseWanted, this, [this] { ShowPalette(false); });
    connect(picGui, &frmPalette::ToolPressed, this, [this](int place) {
        RunCommand([this, place] { UseGuiTool(place); });
        picGui->Refresh();
    });
    const auto repaint = [this] {
        if (gui != nullptr)
            gui->Surface().update();
    };
    connect(picGui, &frmPalette::GridSwitched, this, repaint);
    connect(picGui, &frmPalette::LockSwitched, this, repaint);
}

void frmMain::UseGuiTool(int place)
{
    GuiFormModified = true;
    const QString arms = frmPalette::ArmedBy(place);
    if (!arms.isEmpty() && gui != nullptr) {
        mdi->setActiveSubWindow(SubWindowOf(gui));
        gui->Surface().ArmTool(arms);
        return;
    }
    switch (place) {
    case 0:
        NewGuiForm();
        break;
    case 1:
        Compile();
        break;
    case 2:
        mnuFileLoadGui_Click();
        break;
    case 3:
        guiSave();
        break;
    case 15:
        ShowGuiDefaults();
        break;
    case MenuEditorTool:
        if (gui != nullptr)
            gui->Surface().ShowMenuEditor();
        break;
    case 17:
        CompileSimple();
        break;
    default:
        break;
    }
}

} // namespace ob
