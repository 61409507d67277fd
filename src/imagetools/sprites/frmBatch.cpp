// SPDX-License-Identifier: GPL-3.0-or-later
// Gives all bitmaps of a folder their masks.
#include "imagetools/sprites/frmBatch.h"

#include "imagetools/sprites/modMask.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmFolderBrowser.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/work/cWork.h"
#include "shell/state/frmToolPlace.h"
#include "ui_frmBatch.h"

namespace ob {

frmBatch::frmBatch(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmBatch>())
{
    ui->setupUi(this);
    browser = new FolderBrowser({ui->Drive1, ui->Dir1, ui->File1}, BitmapPatterns, this);
    // The list is not to be taken for empty before the folder has been read.
    On(browser, &FolderBrowser::FolderChanged, this, [this] { ui->OKButton->setEnabled(false); });
    On(browser, &FolderBrowser::FilesListed, this, [this] { ui->OKButton->setEnabled(true); });
    On(ui->OKButton, this, &frmBatch::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &frmBatch::reject);
    SetState(State::Choosing);
    StartInLastFolder(*this, *browser);
    ui->Dir1->setFocus();
}

frmBatch::~frmBatch() = default;

void frmBatch::reject()
{
    if (state == State::Choosing)
        QDialog::reject();
    else
        SetState(State::Cancelled);
}

void frmBatch::SetState(State next)
{
    state = next;
    for (QWidget* control : {static_cast<QWidget*>(ui->Drive1), static_cast<QWidget*>(ui->Dir1),
                             static_cast<QWidget*>(ui->File1), static_cast<QWidget*>(ui->OKButton)})
        control->setEnabled(state == State::Choosing);
    if (state == State::Choosing)
        ui->Label3->setText(BatchStartText);
}

void frmBatch::ShowProgress(const QString& folder, qsizetype place, qsizetype count)
{
    browser->Choose(place);
    ui->Label3->setText(BatchProgressText(place, count, folder));
    ui->Label3->repaint();
}

void frmBatch::MaskAll(const QString& folder, const QStringList& names)
{
    // The first line of progress is there before events run.
    ShowProgress(folder, 0, names.size());
    const BatchEnd end = RunWork([&](cWorkLink& window) {
        const BatchWatch watch = {
            [&](qsizetype place) { window.Ask([&] { ShowProgress(folder, place, names.size()); }); },
            [&](const QString& path, const cDIBSection& picture) {
                window.Ask([&] { Q_EMIT Masked(path, picture); });
                return state == State::Cancelled ? BatchStep::Stop : BatchStep::GoOn;
            }};
        return MaskFiles(folder, names, watch);
    });
    if (end == BatchEnd::Cancelled)
        MsgBox(BatchCancelledText, BoxIcon::Critical);
    else
        MsgBox(BatchFinishedText(folder));
}

void frmBatch::OKButton_Click()
{
    const QString folder = browser->Folder();
    const QStringList names = browser->Files();
    if (names.isEmpty()) {
        MsgBox(NoBitmapsText(folder), BoxIcon::Critical);
        return;
    }
    if (MsgBox(BatchQuestionText, BoxIcon::Critical, BoxButtons::OkCancel) != BoxAnswer::Ok)
        return;
    SetState(State::AtWork);
    ui->CancelButton->setFocus();
    // While the error is shown the label still names the file.
    if (RunCommand([&] { MaskAll(folder, names); }) == CommandEnd::Finished)
        accept();
    else
        SetState(State::Choosing);
}

} // namespace ob
