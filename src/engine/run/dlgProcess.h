// SPDX-License-Identifier: GPL-3.0-or-later
// The progress of making a package, with a Cancel button.
#pragma once

#include <QDialog>

#include <atomic>
#include <memory>

namespace Ui {
class dlgProcess;
}

namespace ob {

// Closes on Cancel and on Escape; the work checks IsCancelled from its own thread.
class dlgProcess final : public QDialog {
    Q_OBJECT

public:
    enum class Leaving { Allowed, NotAllowed }; // NotAllowed: without Cancel it stays until it is deleted

    explicit dlgProcess(Leaving leaving, QWidget* parent = nullptr);
    ~dlgProcess() override;

    void ShowState(const QString& text, double share); // share: done of the whole, from 0 to 1
    bool IsCancelled() const { return isCancelled; }

    void reject() override;

private:
    std::unique_ptr<Ui::dlgProcess> ui;
    Leaving leaving;
    std::atomic<bool> isCancelled = false;
};

} // namespace ob
