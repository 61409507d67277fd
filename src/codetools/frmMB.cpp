// SPDX-License-Identifier: GPL-3.0-or-later
// The MessageBox Maker.
#include "codetools/frmMB.h"

#include "codetools/modMessageBox.h"
#include "editor/document/modUserTexts.h"
#include "platform/desktop/modClipboard.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmPlainText.h"
#include "shell/state/frmTool.h"
#include "ui_frmMB.h"

#include <QFontDatabase>

namespace ob {

frmMB::frmMB(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmMB>())
{
    ui->setupUi(this);
    ui->txtCode->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    On(ui->txtTitle, &QLineEdit::textChanged, this, &frmMB::ShowPreview);
    On(ui->txtMessage, &QLineEdit::textChanged, this, &frmMB::ShowPreview);
    for (const QRadioButton* option : findChildren<QRadioButton*>())
        On(option, this, &frmMB::ShowPreview);
    On(ui->cmdCreate, this, &frmMB::cmdCreate_Click);
    On(ui->cmdTest, this, &frmMB::cmdTest_Click);
    On(ui->cmdCopy, this, &frmMB::cmdCopy_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    ShowPreview();
}

frmMB::~frmMB() = default;

MessageBoxSpec frmMB::Spec() const
{
    const std::pair<const QRadioButton*, BoxIcon> icons[] = {{ui->optCritical, BoxIcon::Critical},
                                                             {ui->optExclaim, BoxIcon::Exclamation},
                                                             {ui->optQuestion, BoxIcon::Question},
                                                             {ui->optInfo, BoxIcon::Information}};
    const std::pair<const QRadioButton*, BoxButtons> buttons[] = {{ui->optOK1, BoxButtons::OkCancel},
                                                                  {ui->optOK2, BoxButtons::YesNo},
                                                                  {ui->optOK3, BoxButtons::YesNoCancel},
                                                                  {ui->optOK4, BoxButtons::RetryCancel},
                                                                  {ui->optOK5, BoxButtons::AbortRetryIgnore}};
    MessageBoxSpec spec{ui->txtTitle->text(), ui->txtMessage->text(), BoxIcon::None, BoxButtons::Ok};
    for (const auto& [option, icon] : icons)
        if (option->isChecked())
            spec.icon = icon;
    for (const auto& [option, chosen] : buttons)
        if (option->isChecked())
            spec.buttons = chosen;
    return spec;
}

void frmMB::ShowPreview()
{
    ui->codePreview->ShowCode(MessageBoxCode(WithDefaultTexts(Spec())));
}

void frmMB::cmdCreate_Click()
{
    const MessageBoxSpec spec = WithDefaultTexts(Spec());
    ui->txtTitle->setText(spec.title);
    ui->txtMessage->setText(spec.message);
    ui->txtCode->setPlainText(MessageBoxCode(spec));
}

void frmMB::cmdTest_Click()
{
    const MessageBoxSpec spec = Spec();
    MsgBox(spec.message, spec.icon, spec.buttons, spec.title);
}

void frmMB::cmdCopy_Click()
{
    if (!CopyText(WithLineEnds(PlainTextOf(*ui->txtCode))))
        return;
    MsgBox(MessageBoxCopiedText);
    accept();
}

void mnuToolMB_Click()
{
    ShowToolModally<frmMB>();
}

} // namespace ob
