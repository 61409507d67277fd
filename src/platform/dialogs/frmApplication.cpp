// SPDX-License-Identifier: GPL-3.0-or-later
// The application object.
#include "platform/dialogs/frmApplication.h"

#include "platform/dialogs/modDialogs.h"

#include <QEvent>

#include <utility>

namespace ob {

bool frmApplication::notify(QObject* receiver, QEvent* event)
{
    // The event may be gone when the error comes.
    const QEvent::Type type = event->type();
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        ShowError(type);
        return true;
    }
}

void frmApplication::ShowError(int type)
{
    // What fails to paint is painted again when the box goes, and a timer ticks on below the box: either would make
    // boxes without end.
    if (type == QEvent::Paint || isShowingError) {
        qWarning("An error was not shown, as it came while something was painted or another one was shown.");
        return;
    }
    isShowingError = true;
    ShowCaughtError();
    isShowingError = false;
}

} // namespace ob
