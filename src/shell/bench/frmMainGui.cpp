// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's side of the form builder: the one form window.
#include "guibuilder/cDesigner.h"
#include "guibuilder/frmGui.h"
#include "guibuilder/frmPalette.h"
#include "guibuilder/frmRemarks.h"
#include "guibuilder/frmSurface.h"
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
    // What a form says while it is made is its own status.
    QWidget* before = activeChild;
    const QString statusBefore = statusTexts.value(before);
    gui = new frmGui(*designer);
    statusTexts.insert(gui, statusTexts.value(before));
    statusTexts.insert(before, statusBefore);
    connect(gui, &frmGui::Unloaded, this, [this](const QWidget* gone) {
        gui = nullptr;
        ForgetChild(gone);
        picGui->Follow(nullptr);
        ShowGuiRemarks({});
    });
    connect(&gui->Surface(), &frmSurface::ToolUsed, picGui, &frmPalette::Refresh);
    QMdiSubWindow* window = AddChild(*gui);
    gui->Join(*window);
    window->show();
    mdi->setActiveSubWindow(window);
    ActivateChild(gui);
    picGui->Follow(gui);
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
        designer->Adopt();
    else
        gui->Surface().Restart();
}

void frmMain::ShowGuiDefaults()
{
    if (gui != nullptr)
        gui->Surface().ShowWindowDefaults();
}

void frmMain::ShowGuiRemarks(const std::vector<FormRemark>& remarks)
{
    if (guiRemarks == nullptr && remarks.empty())
        return;
    if (guiRemarks == nullptr) {
        guiRemarks = new frmRemarks(this);
        addDockWidget(Qt::BottomDockWidgetArea, guiRemarks);
        connect(guiRemarks, &frmRemarks::ControlWanted, this, [this](ControlRef control) {
            if (gui != nullptr)
                gui->ShowControl(control);
        });
    }
    guiRemarks->ShowRemarks(remarks);
}

void frmMain::EnableGuiTool(const QString& name, bool enable)
{
    picGui->EnableTool(name, enable);
}

} // namespace ob
