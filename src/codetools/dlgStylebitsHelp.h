// SPDX-License-Identifier: GPL-3.0-or-later
// How to use the Stylebits Wizard.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class dlgStylebitsHelp;
}

namespace ob {

class dlgStylebitsHelp final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "stylebits";

    explicit dlgStylebitsHelp(QWidget* parent = nullptr);
    ~dlgStylebitsHelp() override;

private:
    std::unique_ptr<Ui::dlgStylebitsHelp> ui;
};

} // namespace ob
