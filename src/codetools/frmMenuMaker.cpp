// SPDX-License-Identifier: GPL-3.0-or-later
// The Menu Maker.
#include "codetools/frmMenuMaker.h"

#include "platform/desktop/modClipboard.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/frmTool.h"
#include "ui_frmMenuMaker.h"

namespace ob {

frmMenuMaker::frmMenuMaker(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmMenuMaker>())
{
    ui->setupUi(this);
    On(ui->Text1, &QLineEdit::textChanged, this, &frmMenuMaker::ShowPreview);
    On(ui->Text4, &QLineEdit::textChanged, this, &frmMenuMaker::ShowPreview);
    On(ui->optType0, &QRadioButton::toggled, this, &frmMenuMaker::optType_Click);
    On(ui->cmdAdd, this, &frmMenuMaker::cmdAdd_Click);
    On(ui->cmdCopy, this, &frmMenuMaker::cmdCopy_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ui->Text1->setFocus();
    ui->Text1->selectAll();
    ShowPreview();
}

frmMenuMaker::~frmMenuMaker() = default;

MenuSpec frmMenuMaker::Spec() const
{
    return {ui->optType0->isChecked() ? MenuType::Regular : MenuType::Popup, ui->Text1->text(), ui->Text4->text(),
            tail};
}

void frmMenuMaker::ShowPreview()
{
    ui->codePreview->ShowCode(MenuCode(Spec()));
}

// A popup menu has no handle.
void frmMenuMaker::optType_Click()
{
    ui->Text4->setEnabled(ui->optType0->isChecked());
    ui->Label4->setEnabled(ui->optType0->isChecked());
    ShowPreview();
}

void frmMenuMaker::cmdAdd_Click()
{
    AddMenuItem(tail, ui->Text2->text(), ui->Text3->text());
    ui->Text2->clear();
    ui->Text3->clear();
    ui->Text2->setFocus();
    ShowPreview();
}

void frmMenuMaker::cmdCopy_Click()
{
    if (!CopyText(MenuCode(Spec())))
        return;
    accept();
    MsgBox(MenuCopiedText);
}

void mnuMaker_Click()
{
    ShowTool<frmMenuMaker>();
}

} // namespace ob
