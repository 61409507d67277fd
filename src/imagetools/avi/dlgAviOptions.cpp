// SPDX-License-Identifier: GPL-3.0-or-later
// The choice of a compressor.
#include "imagetools/avi/dlgAviOptions.h"

#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "ui_dlgAviOptions.h"

#include <QPushButton>

namespace ob {

dlgAviOptions::dlgAviOptions(const AviFormat& format, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::dlgAviOptions>()), codecs(AviCodecs()), frames(format)
{
    ui->setupUi(this);
    for (const AviCodec& codec : codecs)
        ui->lstCodec->addItem(
            QString::fromUtf8(codec.description.data(), static_cast<qsizetype>(codec.description.size())));
    ui->sldQuality->setValue(AviOptions().quality);
    // Space for two lines, so that nothing moves when a note appears.
    ui->lblNote->setMinimumHeight(2 * fontMetrics().lineSpacing());
    On(ui->lstCodec, &QListWidget::currentRowChanged, this, &dlgAviOptions::lstCodec_Click);
    connect(ui->lstCodec, &QListWidget::itemActivated, ui->cmdOK, &QPushButton::click);
    On(ui->sldQuality, &QSlider::valueChanged, this, &dlgAviOptions::sldQuality_Change);
    connect(ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ui->lstCodec->setCurrentRow(0);
    sldQuality_Change();
}

dlgAviOptions::~dlgAviOptions() = default;

AviOptions dlgAviOptions::Options() const
{
    const auto chosen = static_cast<std::size_t>(ui->lstCodec->currentRow());
    return {std::string(codecs.at(chosen).name), ui->sldQuality->value()};
}

void dlgAviOptions::lstCodec_Click()
{
    const AviCodec& codec = codecs.at(static_cast<std::size_t>(ui->lstCodec->currentRow()));
    const bool hasQuality = codec.quality == AviQuality::Adjustable;
    for (QWidget* control : std::initializer_list<QWidget*>{ui->lblQuality, ui->sldQuality, ui->lblValue})
        control->setEnabled(hasQuality);
    const QString refusal = AviRefusal(Options(), frames.width, LinesOf(frames));
    ui->cmdOK->setEnabled(refusal.isEmpty());
    ui->lblNote->setText(refusal.isEmpty() ? AviCodecsTrouble() : refusal);
}

void dlgAviOptions::sldQuality_Change()
{
    ui->lblValue->setText(QString::number(ui->sldQuality->value()));
}

} // namespace ob
