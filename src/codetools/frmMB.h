// SPDX-License-Identifier: GPL-3.0-or-later
// The MessageBox Maker: the code of a message box, which can be previewed here.
#pragma once

#include "codetools/frmMaker.h"

#include <memory>

namespace Ui {
class frmMB;
}

namespace ob {

struct MessageBoxSpec;

class frmMB final : public frmMaker {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "message-box-maker";

    explicit frmMB(QWidget* parent = nullptr);
    ~frmMB() override;

protected:
    bool HasCode() const override;
    std::optional<QString> FinishedCode() override;
    QString Lost() const override;

private:
    MessageBoxSpec Spec() const;
    void ShowState();

    void cmdCreate_Click();
    void cmdTest_Click();
    void cmdCopy_Click();

    std::unique_ptr<Ui::frmMB> ui;
    QString created; // what Create would have put into the pane when it was pressed last
};

void mnuToolMB_Click();

} // namespace ob
