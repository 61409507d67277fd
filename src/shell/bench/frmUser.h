// SPDX-License-Identifier: GPL-3.0-or-later
// The list of the ten user applications.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmUser;
}

namespace ob {

class frmUser final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "user-applications";

    explicit frmUser(QWidget* parent = nullptr);
    ~frmUser() override;

private:
    void SetButtons();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void OKButton_Click();

    std::unique_ptr<Ui::frmUser> ui;
};

// Shows the list modally; the toolbar's "User" button follows.
void ShowUserApplications();

} // namespace ob
