// SPDX-License-Identifier: GPL-3.0-or-later
// How to use the Stylebits Wizard.
#include "codetools/dlgStylebitsHelp.h"

#include "codetools/modStylebits.h"
#include "ui_dlgStylebitsHelp.h"

#include <QFontDatabase>

#include <algorithm>

namespace ob {

dlgStylebitsHelp::dlgStylebitsHelp(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::dlgStylebitsHelp>())
{
    ui->setupUi(this);
    ui->lblSyntax->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui->lblSyntax->setText(StylebitsSyntax);
    ui->lblHelp->setText(StylebitsHelp());
    resize(width(), std::max(height(), layout()->heightForWidth(width())));
    connect(ui->OKButton, &QPushButton::clicked, this, &QDialog::accept);
}

dlgStylebitsHelp::~dlgStylebitsHelp() = default;

} // namespace ob
