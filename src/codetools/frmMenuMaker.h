// SPDX-License-Identifier: GPL-3.0-or-later
// The Menu Maker: items, added one by one, become a menu statement on the clipboard.
#pragma once

#include "codetools/modMenuCode.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmMenuMaker;
}

namespace ob {

class frmMenuMaker final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "menu-maker";

    explicit frmMenuMaker(QWidget* parent = nullptr);
    ~frmMenuMaker() override;

private:
    MenuSpec Spec() const;
    void ShowPreview();

    void optType_Click();
    void cmdAdd_Click();
    void cmdCopy_Click();

    std::unique_ptr<Ui::frmMenuMaker> ui;
    MenuTail tail;
};

void mnuMaker_Click();

} // namespace ob
