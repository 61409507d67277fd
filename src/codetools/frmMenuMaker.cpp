// SPDX-License-Identifier: GPL-3.0-or-later
// The Menu Maker.
#include "codetools/frmMenuMaker.h"

#include "platform/desktop/modClipboard.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/frmLoss.h"
#include "shell/state/frmTool.h"
#include "ui_frmMenuMaker.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

frmMenuMaker::frmMenuMaker(QWidget* parent) : frmMaker(parent), ui(std::make_unique<Ui::frmMenuMaker>())
{
    ui->setupUi(this);
    for (const QLineEdit* field : {ui->Text2, ui->Text3})
        connect(field, &QLineEdit::textEdited, this, [this, field] { typed.insert(field); });
    for (const QLineEdit* field : findChildren<QLineEdit*>())
        On(field, &QLineEdit::textChanged, this, &frmMenuMaker::ShowPreview);
    On(ui->optType0, &QRadioButton::toggled, this, &frmMenuMaker::optType_Click);
    On(ui->cmdAdd, this, &frmMenuMaker::cmdAdd_Click);
    On(ui->cmdRemove, this, &frmMenuMaker::cmdRemove_Click);
    On(ui->cmdCopy, this, &frmMenuMaker::cmdCopy_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    SetEnterOrder({ui->Text1, ui->Text4, ui->Text2, ui->Text3});
    SetInsertButton(ui->cmdInsert);
    ui->Text1->setFocus();
    ui->Text1->selectAll();
    ShowPreview();
}

frmMenuMaker::~frmMenuMaker() = default;

// Whether the user has typed an item that is not added yet. The texts of a new window do not count.
bool frmMenuMaker::HasTypedItem() const
{
    return std::any_of(typed.cbegin(), typed.cend(), [](const QLineEdit* field) { return !field->text().isEmpty(); });
}

MenuTail frmMenuMaker::WholeTail() const
{
    MenuTail whole = tail;
    if (HasTypedItem())
        AddMenuItem(whole, ui->Text2->text(), ui->Text3->text());
    return whole;
}

MenuSpec frmMenuMaker::Spec() const
{
    return {ui->optType0->isChecked() ? MenuType::Regular : MenuType::Popup, ui->Text1->text(), ui->Text4->text(),
            WholeTail()};
}

QString frmMenuMaker::Lost() const
{
    return CountOf(WholeTail().count, u"item"_s, u"items"_s);
}

void frmMenuMaker::ShowPreview()
{
    ui->codePreview->ShowCode(MenuCode(Spec()));
    ui->cmdRemove->setEnabled(!ends.isEmpty() || HasTypedItem());
}

// A popup menu has no handle.
void frmMenuMaker::optType_Click()
{
    ui->Text4->setEnabled(ui->optType0->isChecked());
    ui->Label4->setEnabled(ui->optType0->isChecked());
    ShowPreview();
}

// Without a way back by undo, which would make it an item once more.
void frmMenuMaker::EmptyItem()
{
    typed.clear();
    ui->Text2->setText({});
    ui->Text3->setText({});
    ui->Text2->setFocus();
    ShowPreview();
}

void frmMenuMaker::cmdAdd_Click()
{
    const qsizetype end = tail.list.size();
    AddMenuItem(tail, ui->Text2->text(), ui->Text3->text());
    ends.append(end);
    EmptyItem();
}

// What has been typed and not added is the last item in the code.
void frmMenuMaker::cmdRemove_Click()
{
    if (!HasTypedItem()) {
        tail.list.truncate(ends.takeLast());
        --tail.count;
    }
    EmptyItem();
}

std::optional<QString> frmMenuMaker::FinishedCode()
{
    return MenuCode(Spec());
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
