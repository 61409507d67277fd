// SPDX-License-Identifier: GPL-3.0-or-later
// What all windows and boxes of the program do alike.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

class QKeyEvent;
class QWidget;

namespace ob {

// As long as it lives: Enter presses the button that has the focus, whatever the window's default button is; the
// buttons of boxes have no icons; a window that closes passes the keyboard to the one used before it.
class frmManners final : public QObject {
public:
    explicit frmManners(QObject* parent = nullptr);
    ~frmManners() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PassKeyboardOn(const QWidget& closed);
    void Activated(QWidget& window);

    // The window that shall have the keyboard, until the window manager has come to rest or the user does something.
    QPointer<QWidget> wanted;
    QTimer settling;
};

// The window that a new box belongs to: the one in use, or the one used last while none is, or the main window. Null
// while there is none.
QWidget* BoxOwner();

} // namespace ob
