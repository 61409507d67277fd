// SPDX-License-Identifier: GPL-3.0-or-later
// Mixes a colour with three sliders and shows its numbers.
#include "imagetools/colors/frmColor.h"

#include "imagetools/colors/modPreviews.h"
#include "platform/dialogs/frmCommand.h"
#include "shell/state/cMainForm.h"
#include "shell/state/frmColorSample.h"
#include "shell/state/frmTool.h"
#include "ui_frmColor.h"

using namespace Qt::StringLiterals;

namespace ob {

frmColor::frmColor(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmColor>())
{
    ui->setupUi(this);
    for (const QSlider* slider : {ui->Slider1_0, ui->Slider1_1, ui->Slider1_2})
        On(slider, &QSlider::valueChanged, this, [this] { Slider1_Change(); });
    On(ui->Command1, this, &frmColor::Command1_Click);
    Slider1_Change();
}

frmColor::~frmColor() = default;

ColorRef frmColor::Mixed() const
{
    const auto part = [](const QSlider* slider) { return static_cast<unsigned>(slider->value()); };
    return Rgb(part(ui->Slider1_0), part(ui->Slider1_1), part(ui->Slider1_2));
}

void frmColor::Slider1_Change()
{
    SetLabelColors(*ui->Colbox, Mixed(), Mixed());
    ui->Label1->setText(u"Red - %1"_s.arg(ui->Slider1_0->value()));
    ui->Label2->setText(u"Green - %1"_s.arg(ui->Slider1_1->value()));
    ui->Label3->setText(u"Blue - %1"_s.arg(ui->Slider1_2->value()));
}

void frmColor::Command1_Click()
{
    SetStatusText(ColorStatus(Mixed(), NumberForm::Plain));
    accept();
}

void mnuToolRGB_Click()
{
    ShowTool<frmColor>();
}

} // namespace ob
