// SPDX-License-Identifier: GPL-3.0-or-later
// A list of files that the user puts in order.
#include "imagetools/pictures/frmFileList.h"

#include "platform/dialogs/frmCommand.h"

#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>

#include <functional>

namespace ob {

frmFileList::frmFileList(const Controls& of, QObject* parent) : QObject(parent), controls(of)
{
    const auto onKey = [this](const QKeySequence& key, const std::function<void()>& routine) {
        auto* shortcut = new QShortcut(key, controls.list, nullptr, nullptr, Qt::WidgetShortcut);
        On(shortcut, &QShortcut::activated, this, routine);
    };
    onKey(QKeySequence::Delete, [this] { Remove(); });
    onKey(Qt::ALT | Qt::Key_Up, [this] { Move(-1); });
    onKey(Qt::ALT | Qt::Key_Down, [this] { Move(1); });
    On(controls.remove, this, &frmFileList::Remove);
    On(controls.up, this, [this] { Move(-1); });
    On(controls.down, this, [this] { Move(1); });
    On(controls.list, &QListWidget::currentRowChanged, this, [this](int) { ShowButtons(); });
    ShowButtons();
}

void frmFileList::SetUse(Use newUse)
{
    use = newUse;
    ShowButtons();
}

void frmFileList::ShowButtons()
{
    const int place = use == Use::Open ? controls.list->currentRow() : -1;
    controls.remove->setEnabled(place >= 0);
    controls.up->setEnabled(place > 0);
    controls.down->setEnabled(place >= 0 && place < controls.list->count() - 1);
    // A button that has just turned grey leaves the keys to the list, not to the next button.
    for (const QPushButton* button : {controls.remove, controls.up, controls.down})
        if (!button->isEnabled() && button->hasFocus())
            controls.list->setFocus();
}

void frmFileList::Remove()
{
    const int place = controls.list->currentRow();
    if (place < 0 || use == Use::Held)
        return;
    {
        // Meanwhile the list reports places that are about to change.
        const QSignalBlocker isChanging(controls.list);
        delete controls.list->takeItem(place);
    }
    Q_EMIT Removed(place);
    ShowButtons();
}

void frmFileList::Move(int by)
{
    const int from = controls.list->currentRow();
    const int to = from + by;
    if (from < 0 || to < 0 || to >= controls.list->count() || use == Use::Held)
        return;
    {
        const QSignalBlocker isChanging(controls.list);
        controls.list->insertItem(to, controls.list->takeItem(from));
        controls.list->setCurrentRow(to);
    }
    Q_EMIT Moved(from, to);
    ShowButtons();
}

} // namespace ob
