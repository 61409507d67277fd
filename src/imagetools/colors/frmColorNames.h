// SPDX-License-Identifier: GPL-3.0-or-later
// The chart of the language's colour names.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmColorNames;
}

namespace ob {

class frmColorNames final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "colors";

    explicit frmColorNames(QWidget* parent = nullptr);
    ~frmColorNames() override;

private:
    std::unique_ptr<Ui::frmColorNames> ui;
};

void mnuColorNames_Click();

} // namespace ob
