// SPDX-License-Identifier: GPL-3.0-or-later
// The application object.
#pragma once

#include <QApplication>

namespace ob {

// Shows an error that a handler of events lets out, and goes on with the next event. Commands catch theirs themselves;
// this is the second net, for all that is no command: painting, moving the mouse, timers.
class frmApplication final : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void ShowError(int type);

    bool isShowingError = false;
};

} // namespace ob
