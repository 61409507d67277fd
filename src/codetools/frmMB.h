// SPDX-License-Identifier: GPL-3.0-or-later
// The MessageBox Maker: the code of a message box, which can be previewed here.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmMB;
}

namespace ob {

struct MessageBoxSpec;

class frmMB final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "message-box-maker";

    explicit frmMB(QWidget* parent = nullptr);
    ~frmMB() override;

private:
    MessageBoxSpec Spec() const;
    void ShowPreview();

    void cmdCreate_Click();
    void cmdTest_Click();
    void cmdCopy_Click();

    std::unique_ptr<Ui::frmMB> ui;
};

void mnuToolMB_Click();

} // namespace ob
