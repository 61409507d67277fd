// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the codes of the keys pressed in it, with the table of all codes.
#pragma once

#include <QDialog>

#include <memory>

class QKeyEvent;

namespace Ui {
class frmKey;
}

namespace ob {

// Every key pressed anywhere in the window is shown. In txtAscii, which has the focus at first, a key has no other
// effect: Tab, Enter, Escape and F1 are only shown. Only the mouse and Alt with a letter leave the field.
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
