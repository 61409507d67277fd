// SPDX-License-Identifier: GPL-3.0-or-later
// The find and replace dialog.
#pragma once

#include "editor/modFind.h"

#include <QDialog>

#include <memory>

class QWindow;

namespace Ui {
class frmFind;
}

namespace ob {

class frmFind final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "find";

    explicit frmFind(QWidget* parent = nullptr);
    ~frmFind() override;

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void FocusMoved(const QWindow* to);
    void Form_Activate();
    void ReadOptions();
    void UncoverHit(const cDocument* document);

    void OKButton_Click();
    void cmdReplace_Click();
    void cmdReplaceAll_Click();

    std::unique_ptr<Ui::frmFind> ui;
    bool wasLeft = false; // for another window of the program other than a message box
};

void mnuEditFind_Click();

} // namespace ob
