// SPDX-License-Identifier: GPL-3.0-or-later
// The Stylebits Wizard.
#include "codetools/frmStylebits.h"

#include "codetools/dlgStylebitsHelp.h"
#include "codetools/modStylebits.h"
#include "platform/desktop/modClipboard.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/frmLoss.h"
#include "shell/state/frmTool.h"
#include "ui_frmStylebits.h"

#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// A click anywhere on a row ticks it, or takes the tick away.
class CheckedRows final : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override
    {
        const bool isRelease = event->type() == QEvent::MouseButtonRelease;
        if (!isRelease || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton)
            return QStyledItemDelegate::editorEvent(event, model, option, index);
        const bool wasChecked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        return model->setData(index, wasChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }
};

} // namespace

frmStylebits::frmStylebits(QWidget* parent) : frmMaker(parent), ui(std::make_unique<Ui::frmStylebits>())
{
    ui->setupUi(this);
    ui->cboObject->addItems(StylebitObjects());
    On(ui->cboObject, &QComboBox::activated, this, &frmStylebits::cboObject_Click);
    On(ui->chkEx, this, &frmStylebits::cboObject_Click);
    On(ui->lstBits, &QListWidget::itemChanged, this, &frmStylebits::ShowPreview);
    On(ui->optAdd, &QRadioButton::toggled, this, &frmStylebits::ShowPreview);
    On(ui->cmdCopy, this, &frmStylebits::cmdCopy_Click);
    On(ui->cmdHelp, this, &frmStylebits::cmdHelp_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ui->lstBits->setItemDelegate(new CheckedRows(ui->lstBits));
    SetInsertButton(ui->cmdInsert);
    cboObject_Click();
}

frmStylebits::~frmStylebits() = default;

StylebitsSpec frmStylebits::Spec() const
{
    StylebitsSpec spec;
    spec.kind = ui->chkEx->isChecked() ? StyleKind::Extended : StyleKind::Regular;
    spec.change = ui->optAdd->isChecked() ? StyleChange::Add : StyleChange::Remove;
    for (int row = 0; row < ui->lstBits->count(); ++row)
        if (ui->lstBits->item(row)->checkState() == Qt::Checked)
            spec.entries.append(ui->lstBits->item(row)->text());
    return spec;
}

bool frmStylebits::HasCode() const
{
    return !Spec().entries.isEmpty();
}

QString frmStylebits::Lost() const
{
    const StylebitsSpec spec = Spec();
    const bool isKept = StylebitsCode(spec) == copied;
    return isKept ? QString() : CountOf(spec.entries.size(), u"ticked bit"_s, u"ticked bits"_s);
}

void frmStylebits::ShowPreview()
{
    ui->codePreview->ShowCode(StylebitsCode(Spec()).value_or(QString()));
    RefreshInsert();
}

// Refills the list, with nothing checked.
void frmStylebits::cboObject_Click()
{
    const QSignalBlocker untilAllAreAdded(ui->lstBits);
    ui->lstBits->clear();
    for (const QString& entry : StylebitEntries(ui->cboObject->currentText(), Spec().kind)) {
        auto* row = new QListWidgetItem(entry, ui->lstBits);
        row->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        row->setCheckState(Qt::Unchecked);
    }
    ShowPreview();
}

std::optional<QString> frmStylebits::FinishedCode()
{
    const auto code = StylebitsCode(Spec());
    if (!code)
        MsgBox(NoStylebitsText, BoxIcon::None, BoxButtons::Ok, u"Error."_s);
    return code;
}

void frmStylebits::cmdCopy_Click()
{
    const auto code = FinishedCode();
    if (!code || !CopyText(*code))
        return;
    copied = *code;
    if (MsgBox(StylebitsCopiedText, BoxIcon::None, BoxButtons::OkCancel, u"Copied to Clipboard"_s) == BoxAnswer::Ok)
        accept();
}

void frmStylebits::cmdHelp_Click()
{
    ShowToolModally<dlgStylebitsHelp>();
}

void mnuToolStylebit_Click()
{
    ShowToolModally<frmStylebits>();
}

} // namespace ob
