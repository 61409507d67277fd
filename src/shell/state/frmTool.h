// SPDX-License-Identifier: GPL-3.0-or-later
// The lifetime of tool windows: created on first use, at most one of each, deleted when closed.
#pragma once

#include "platform/dialogs/modDialogs.h"
#include "shell/state/cMainForm.h"
#include "shell/state/frmToolPlace.h"

#include <QDialog>
#include <QPointer>

namespace ob {

// The main window as a parent of tools; null while there is none.
QWidget* ToolOwner();
void SetToolOwner(QWidget* owner);

// Opens the manual at a page, "preferences" for docs/manual/preferences.md. Set by the part that shows the manual.
using ManualViewer = void (*)(const QString& page);
void SetManualViewer(ManualViewer viewer);

// Opens the manual at the page; without a viewer nothing happens.
void OpenManual(const QString& page);

// Makes F1 in the window open that page of the manual.
void BindManualPage(QWidget& tool, const char* page);

// What every tool gets before it is shown: F1, and the size and place that it had when it was last closed.
void PrepareTool(QDialog& tool, const char* page);

// Shows the one window of this kind beside the main window, or brings it to the front when it is open. A tool is a
// QDialog whose constructor does its loading, and whose ManualPage names its page.
template <class Tool>
Tool* ShowTool()
{
    static QPointer<Tool> open;
    if (open.isNull()) {
        open = new Tool(ToolOwner());
        open->setAttribute(Qt::WA_DeleteOnClose);
        PrepareTool(*open, Tool::ManualPage);
    }
    open->show();
    open->raise();
    open->activateWindow();
    return open;
}

// Shows it over the main window and returns when it is closed.
template <class Tool>
void ShowToolModally()
{
    Tool tool(ToolOwner());
    PrepareTool(tool, Tool::ManualPage);
    tool.exec();
}

// Shows it over the main window and returns at once: for a tool that opens by itself while there is still work to do.
template <class Tool>
void OpenToolModally()
{
    auto* tool = new Tool(ToolOwner());
    tool->setAttribute(Qt::WA_DeleteOnClose);
    PrepareTool(*tool, Tool::ManualPage);
    tool->open();
}

} // namespace ob
