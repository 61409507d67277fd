// SPDX-License-Identifier: GPL-3.0-or-later
// Asks for the purpose of the toolbar code.
#include "codetools/dlgTBOK.h"

#include "codetools/modToolbarCode.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "ui_dlgTBOK.h"

namespace ob {

dlgTBOK::dlgTBOK(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::dlgTBOK>())
{
    ui->setupUi(this);
    On(ui->optAdd1, &QRadioButton::toggled, this, &dlgTBOK::optAdd_Click);
    On(ui->OKButton, this, &dlgTBOK::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    optAdd_Click();
}

dlgTBOK::~dlgTBOK() = default;

void dlgTBOK::optAdd_Click()
{
    const bool isExisting = ui->optAdd1->isChecked();
    ui->lblHandle->setEnabled(isExisting);
    ui->txtHandle->setEnabled(isExisting);
    if (isExisting)
        ui->txtHandle->setFocus();
}

void dlgTBOK::OKButton_Click()
{
    if (ui->optAdd1->isChecked()) {
        handle = WindowHandleOf(ui->txtHandle->text());
        if (!handle) {
            MsgBox(NoHandleText, BoxIcon::Exclamation);
            ui->txtHandle->setFocus();
            return;
        }
    }
    accept();
}

} // namespace ob
