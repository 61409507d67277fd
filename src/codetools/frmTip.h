// SPDX-License-Identifier: GPL-3.0-or-later
// The tip of the day.
#pragma once

#include <QDialog>
#include <QStringList>

#include <memory>

namespace Ui {
class frmTip;
}

namespace ob {

class frmTip final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "tips";

    explicit frmTip(QWidget* parent = nullptr);
    ~frmTip() override;

    // The check box is stored however the window closes.
    void done(int result) override;

private:
    void DisplayCurrentTip();
    void cmdNextTip_Click();
    void chkLoadTipsAtStartup_Click();

    std::unique_ptr<Ui::frmTip> ui;
    QStringList tips;
    int current = 0; // from 1
};

void mnuOptionShowTip_Click();

} // namespace ob
