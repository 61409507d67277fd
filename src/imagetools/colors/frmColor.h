// SPDX-License-Identifier: GPL-3.0-or-later
// Mixes a colour with three sliders and shows its numbers.
#pragma once

#include "platform/language/modColorNames.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmColor;
}

namespace ob {

class frmColor final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "colors";

    explicit frmColor(QWidget* parent = nullptr);
    ~frmColor() override;

private:
    ColorRef Mixed() const;
    void Slider1_Change();
    void Command1_Click();

    std::unique_ptr<Ui::frmColor> ui;
};

void mnuToolRGB_Click();

} // namespace ob
