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

using namespace Qt::StringLiterals;

namespace ob {

frmMB::frmMB(QWidget* parent) : frmMaker(parent), ui(std::make_unique<Ui::frmMB>())
{
    ui->setupUi(this);
    resize(size().expandedTo(sizeHint()));
    On(ui->txtTitle, &QLineEdit::textChanged, this, &frmMB::ShowState);
    On(ui->txtMessage, &QLineEdit::textChanged, this, &frmMB::ShowState);
    On(ui->txtCode, &QPlainTextEdit::textChanged, this, &frmMB::ShowState);
    for (const QRadioButton* option : findChildren<QRadioButton*>())
        On(option, &QRadioButton::toggled, this, &frmMB::ShowState);
    On(ui->cmdCreate, this, &frmMB::cmdCreate_Click);
    On(ui->cmdTest, this, &frmMB::cmdTest_Click);
    On(ui->cmdCopy, this, &frmMB::cmdCopy_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    SetInsertButton(ui->cmdInsert);
    ShowState();
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

bool frmMB::HasCode() const
{
    return !ui->txtCode->document()->isEmpty();
}

std::optional<QString> frmMB::FinishedCode()
{
    return WithLineEnds(PlainTextOf(*ui->txtCode));
}

QString frmMB::Lost() const
{
    const bool isTyped = !ui->txtTitle->text().isEmpty() || !ui->txtMessage->text().isEmpty();
    return isTyped || HasCode() ? u"The message"_s : QString();
}

// Copy with an empty pane copies an empty text; its grey says so.
void frmMB::ShowState()
{
    QPalette colors = palette();
    if (!HasCode())
        colors.setColor(QPalette::ButtonText, colors.color(QPalette::Disabled, QPalette::ButtonText));
    ui->cmdCopy->setPalette(colors);
    const bool isStale = HasCode() && MessageBoxCode(WithDefaultTexts(Spec())) != created;
    ui->lblState->setText(isStale ? u"The choices have changed: press Create again."_s : QString());
    RefreshInsert();
}

void frmMB::cmdCreate_Click()
{
    const MessageBoxSpec spec = WithDefaultTexts(Spec());
    ui->txtTitle->setText(spec.title);
    ui->txtMessage->setText(spec.message);
    created = MessageBoxCode(spec);
    ui->txtCode->setPlainText(created);
    ShowState();
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
