// SPDX-License-Identifier: GPL-3.0-or-later
// The Array Maker.
#include "codetools/frmArray.h"

#include "codetools/modArray.h"
#include "platform/desktop/modClipboard.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/frmLoss.h"
#include "shell/state/frmTool.h"
#include "ui_frmArray.h"

#include <QSignalBlocker>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

frmArray::frmArray(QWidget* parent) : frmMaker(parent), ui(std::make_unique<Ui::frmArray>())
{
    ui->setupUi(this);
    On(ui->Text1, &QLineEdit::textChanged, this, &frmArray::ShowPreview);
    On(ui->Text2, &QLineEdit::textChanged, this, &frmArray::Text2_Change);
    On(ui->optString, &QRadioButton::toggled, this, &frmArray::ShowPreview);
    On(ui->cmdAdd, this, &frmArray::cmdAdd_Click);
    On(ui->cmdRemove, this, &frmArray::cmdRemove_Click);
    On(ui->OKButton, this, &frmArray::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    SetEnterOrder({ui->Text1, ui->Text2});
    SetInsertButton(ui->cmdInsert);
    ShowPreview();
}

frmArray::~frmArray() = default;

// With the item that has been typed and not added.
QString frmArray::AllItems() const
{
    const QString typed = ui->Text2->displayText();
    return typed.isEmpty() ? items : WithArrayItem(items, typed);
}

ArraySpec frmArray::Spec() const
{
    return {ui->Text1->text(), ui->optString->isChecked() ? ArrayType::String : ArrayType::Numeric, AllItems()};
}

QString frmArray::Lost() const
{
    return CountOf(std::max<qsizetype>(0, ArrayBound(AllItems())), u"item"_s, u"items"_s);
}

void frmArray::ShowPreview()
{
    ui->codePreview->ShowCode(ArrayCode(Spec()));
    ui->cmdRemove->setEnabled(!AllItems().isEmpty());
}

// Lines that are pasted or dropped become items at once.
void frmArray::Text2_Change()
{
    const QStringList lines = PastedArrayItems(ui->Text2->text());
    if (!lines.isEmpty()) {
        for (const QString& line : lines)
            items = WithArrayItem(items, line);
        const QSignalBlocker isEmptied(ui->Text2);
        ui->Text2->setText({});
    }
    ShowPreview();
}

void frmArray::cmdAdd_Click()
{
    items = WithArrayItem(items, ui->Text2->displayText());
    ui->Text2->setText({});
    ui->Text2->setFocus();
    ShowPreview();
}

// What has been typed and not added is the last item in the code.
void frmArray::cmdRemove_Click()
{
    if (ui->Text2->text().isEmpty())
        items = WithoutLastArrayItem(items);
    ui->Text2->setText({});
    ui->Text2->setFocus();
    ShowPreview();
}

std::optional<QString> frmArray::FinishedCode()
{
    if (ui->Text1->text().isEmpty())
        ui->Text1->setText(DefaultArrayName);
    const bool isEmpty = ArrayBound(AllItems()) < 1;
    if (isEmpty && MsgBox(NoArrayItemsText, BoxIcon::Critical, BoxButtons::YesNo) == BoxAnswer::No)
        return std::nullopt;
    return ArrayCode(Spec());
}

void frmArray::OKButton_Click()
{
    const auto code = FinishedCode();
    if (!code || !CopyText(*code))
        return;
    accept();
    MsgBox(ArrayCopiedText);
}

void mnuToolArray_Click()
{
    ShowTool<frmArray>();
}

} // namespace ob
