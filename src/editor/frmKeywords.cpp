// SPDX-License-Identifier: GPL-3.0-or-later
// The editor of the user's own keywords for the colouring.
#include "editor/frmKeywords.h"

#include "editor/document/modUserTexts.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmPlainText.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modPaths.h"
#include "shell/state/frmTool.h"
#include "ui_frmKeywords.h"

#include <QKeyEvent>

using namespace Qt::StringLiterals;

namespace ob {

frmKeywords::frmKeywords(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmKeywords>())
{
    ui->setupUi(this);
    ui->txtDisplay->installEventFilter(this);
    On(ui->cmdOkay, this, &frmKeywords::cmdOkay_Click);
    On(ui->cmdDelete, this, &frmKeywords::cmdDelete_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    const QString text = CustomKeywordText(ProgramFolder());
    ui->txtDisplay->setPlainText(text);
    // Typing replaces the sentence; words are added after those that exist.
    if (text == QLatin1String(NoCustomKeywords))
        ui->txtDisplay->selectAll();
    else
        ui->txtDisplay->moveCursor(QTextCursor::End);
    ui->txtDisplay->setFocus();
}

frmKeywords::~frmKeywords() = default;

// The words form a single line, however long: Enter ends the input, as in a line edit.
bool frmKeywords::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const auto* press = static_cast<const QKeyEvent*>(event);
        if (press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter) {
            ui->cmdOkay->click();
            return true;
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmKeywords::cmdOkay_Click()
{
    switch (AddCustomKeywords(ProgramFolder(), PlainTextOf(*ui->txtDisplay))) {
    case KeywordSave::Written:
        accept();
        UpdateKeywordsOfWindows();
        return;
    case KeywordSave::NothingToAdd:
        if (MsgBox(u"No keywords to add to custom keyword file.\n"
                   "Choose OK to close this dialog, or\n"
                   "CANCEL to return and edit the keywords further."_s,
                   BoxIcon::Critical, BoxButtons::OkCancel, u"Error."_s) == BoxAnswer::Ok)
            reject();
        else
            ui->txtDisplay->setFocus();
        return;
    case KeywordSave::Declined:
        ui->txtDisplay->setFocus();
        return;
    }
}

void frmKeywords::cmdDelete_Click()
{
    DeleteCustomKeywords(ProgramFolder());
    accept();
    UpdateKeywordsOfWindows();
}

void mnuOptionsKeywords_Click()
{
    ShowToolModally<frmKeywords>();
}

} // namespace ob
