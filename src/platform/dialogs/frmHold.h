// SPDX-License-Identifier: GPL-3.0-or-later
// Holds the windows of the program while a command is at work and events run.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>

namespace ob {

// For as long as this lives no window gets keys, clicks, drops or its closing: they are lost. Painting and timers go
// on.
class frmHold final : public QObject {
    Q_OBJECT

public:
    // `escape` is called for Escape in any window.
    explicit frmHold(std::function<void()> escape = {});
    ~frmHold() override;

    // A window that gets all that comes for it, but Escape.
    void Except(QWidget* window) { excepted = window; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool IsExcepted(QObject* watched) const;

    std::function<void()> onEscape;
    QPointer<QWidget> excepted;
};

} // namespace ob
