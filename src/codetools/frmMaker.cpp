// SPDX-License-Identifier: GPL-3.0-or-later
// What the windows of all makers of code share.
#include "codetools/frmMaker.h"

#include "editor/frmInsertButton.h"
#include "shell/state/frmLoss.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace ob {

frmMaker::frmMaker(QWidget* parent) : QDialog(parent)
{
    AskBeforeLoss(*this, [this] { return Lost(); });
}

void frmMaker::SetInsertButton(QPushButton* button)
{
    insert = new frmInsertButton(
        button, {[this] { return HasCode(); }, [this] { return FinishedCode(); }, [this] { accept(); }});
}

void frmMaker::RefreshInsert()
{
    insert->Refresh();
}

void frmMaker::SetEnterOrder(const QList<QLineEdit*>& fields)
{
    enterOrder = fields;
    for (QLineEdit* field : fields)
        field->installEventFilter(this);
}

bool frmMaker::eventFilter(QObject* watched, QEvent* event)
{
    const auto isEnter = [&] {
        const int key = static_cast<const QKeyEvent*>(event)->key();
        return key == Qt::Key_Return || key == Qt::Key_Enter;
    };
    const auto field = std::find(enterOrder.cbegin(), enterOrder.cend(), watched);
    if (event->type() != QEvent::KeyPress || field == enterOrder.cend() || !isEnter())
        return QDialog::eventFilter(watched, event);
    const auto next = std::find_if(field + 1, enterOrder.cend(), [](QLineEdit* each) { return each->isEnabled(); });
    if (next == enterOrder.cend())
        return QDialog::eventFilter(watched, event);
    (*next)->setFocus(Qt::TabFocusReason);
    return true;
}

} // namespace ob
