// SPDX-License-Identifier: GPL-3.0-or-later
// Instructions for making an icon from a part of a picture.
#include "imagetools/icons/dlgBmp.h"

#include "platform/dialogs/frmCommand.h"
#include "ui_dlgBmp.h"

namespace ob {

dlgBmp::dlgBmp(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::dlgBmp>())
{
    ui->setupUi(this);
    // Room for all of the text, whatever the font.
    resize(width(), layout()->heightForWidth(width()));
    ui->OKButton->setFocus();
    On(ui->chkAgain, &QCheckBox::toggled, this, [](bool on) { isWanted = !on; });
    connect(ui->OKButton, &QPushButton::clicked, this, &QDialog::accept);
}

dlgBmp::~dlgBmp() = default;

} // namespace ob
