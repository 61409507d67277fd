// SPDX-License-Identifier: GPL-3.0-or-later
// The lifetime of tool windows.
#include "shell/state/frmTool.h"

#include "platform/dialogs/frmCommand.h"

#include <QShortcut>

namespace ob {

namespace {

QPointer<QWidget> toolOwner;
ManualViewer manualViewer = nullptr;

} // namespace

QWidget* ToolOwner()
{
    return toolOwner;
}

void SetToolOwner(QWidget* owner)
{
    toolOwner = owner;
}

void SetManualViewer(ManualViewer viewer)
{
    manualViewer = viewer;
}

void OpenManual(const QString& page)
{
    if (manualViewer != nullptr)
        manualViewer(page);
}

void BindManualPage(QWidget& tool, const char* page)
{
    auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &tool);
    On(key, &QShortcut::activated, &tool, [page] { OpenManual(QString::fromLatin1(page)); });
}

void PrepareTool(QDialog& tool, const char* page)
{
    BindManualPage(tool, page);
    KeepPlace(tool);
}

} // namespace ob
