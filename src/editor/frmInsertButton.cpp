// SPDX-License-Identifier: GPL-3.0-or-later
// The button of a tool that inserts its code into the active program.
#include "editor/frmInsertButton.h"

#include "editor/document/modDocument.h"
#include "editor/document/modInsert.h"
#include "platform/dialogs/frmCommand.h"
#include "shell/state/frmTool.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>

#include <utility>

namespace ob {

frmInsertButton::frmInsertButton(QPushButton* pressed, Tool itsTool)
    : QObject(pressed), button(pressed), tool(std::move(itsTool))
{
    On(button, this, [this] { Insert(); });
    const QWidget* frame = ToolOwner();
    if (const auto* programs = frame == nullptr ? nullptr : frame->findChild<QMdiArea*>())
        connect(programs, &QMdiArea::subWindowActivated, this, &frmInsertButton::Refresh);
    Refresh();
}

void frmInsertButton::Refresh()
{
    button->setEnabled(ActiveDocument() != nullptr && tool.hasCode());
}

void frmInsertButton::Insert() const
{
    const auto code = tool.code();
    const cDocument* document = code ? NeedDocument() : nullptr;
    if (document == nullptr)
        return;
    InsertAtCaret(*document, *code);
    if (tool.inserted)
        tool.inserted();
}

} // namespace ob
