// SPDX-License-Identifier: GPL-3.0-or-later
// The Array Maker.
#include "codetools/frmArray.h"

#include "codetools/modArray.h"
#include "platform/desktop/modClipboard.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/frmTool.h"
#include "ui_frmArray.h"

namespace ob {

frmArray::frmArray(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmArray>())
{
    ui->setupUi(this);
    On(ui->Text1, &QLineEdit::textChanged, this, &frmArray::ShowPreview);
    On(ui->optString, &QRadioButton::toggled, this, &frmArray::ShowPreview);
    On(ui->cmdAdd, this, &frmArray::cmdAdd_Click);
    On(ui->OKButton, this, &frmArray::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    ShowPreview();
}

frmArray::~frmArray() = default;

ArraySpec frmArray::Spec() const
{
    return {ui->Text1->text(), ui->optString->isChecked() ? ArrayType::String : ArrayType::Numeric, items};
}

void frmArray::ShowPreview()
{
    ui->codePreview->ShowCode(ArrayCode(Spec()));
}

void frmArray::cmdAdd_Click()
{
    items = WithArrayItem(items, ui->Text2->text());
    ui->Text2->clear();
    ui->Text2->setFocus();
    ShowPreview();
}

void frmArray::OKButton_Click()
{
    if (ui->Text1->text().isEmpty())
        ui->Text1->setText(DefaultArrayName);
    const bool isEmpty = ArrayBound(items) < 1;
    if (isEmpty && MsgBox(NoArrayItemsText, BoxIcon::Critical, BoxButtons::YesNo) == BoxAnswer::No)
        return;
    if (!CopyText(ArrayCode(Spec())))
        return;
    accept();
    MsgBox(ArrayCopiedText);
}

void mnuToolArray_Click()
{
    ShowTool<frmArray>();
}

} // namespace ob
