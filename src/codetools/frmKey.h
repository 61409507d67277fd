// SPDX-License-Identifier: GPL-3.0-or-later
// The codes of the keys that are pressed in it, over the table of all.
#pragma once

#include <QDialog>

#include <memory>

class QKeyEvent;

namespace Ui {
class frmKey;
}

namespace ob {

// Every key pressed anywhere in the window is shown. In txtAscii, which has the focus at first, a key does nothing
// else: Tab, Enter, Escape and F1 stay there as keys. Alt with a letter, and the mouse, lead out of it.
class frmKey final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "key-codes";

    explicit frmKey(QWidget* parent = nullptr);
    ~frmKey() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_KeyDown(const QKeyEvent& event);
    void Form_KeyPress(const QKeyEvent& event);

    std::unique_ptr<Ui::frmKey> ui;
};

void mnuToolKeyCode_Click();

} // namespace ob
