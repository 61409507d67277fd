// SPDX-License-Identifier: GPL-3.0-or-later
// Name, version and licence of the program.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class dlgAbout;
}

namespace ob {

class dlgAbout final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "index";

    explicit dlgAbout(QWidget* parent = nullptr);
    ~dlgAbout() override;

private:
    std::unique_ptr<Ui::dlgAbout> ui;
};

void mnuHelpAbout_Click();
void mnuCredits_Click();

} // namespace ob
