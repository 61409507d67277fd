// SPDX-License-Identifier: GPL-3.0-or-later
// Gives all bitmaps of a folder their masks.
#include "imagetools/sprites/frmBatch.h"

#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmFolderBrowser.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"
#include "platform/work/cWork.h"
#include "shell/state/frmToolPlace.h"
#include "ui_frmBatch.h"

#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

frmBatch::frmBatch(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmBatch>())
{
    ui->setupUi(this);
    browser = new FolderBrowser({ui->Drive1, ui->Dir1, ui->File1}, BitmapPatterns, this);
    // The list is not to be taken for empty before the folder has been read.
    On(browser, &FolderBrowser::FolderChanged, this, [this] {
        ui->OKButton->setEnabled(false);
        ShowOutcome({});
    });
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

void frmBatch::ShowProgress(const QString& folder, const QString& name, qsizetype place, qsizetype count)
{
    browser->Choose(browser->Files().indexOf(name));
    ui->Label3->setText(BatchProgressText(place, count, folder));
    ui->Label3->repaint();
}

void frmBatch::ShowOutcome(const QString& text)
{
    ui->lblOutcome->setText(text);
    ui->lblOutcome->setVisible(!text.isEmpty());
}

frmBatch::Written frmBatch::StateOf(const QString& path)
{
    const QFileInfo file(path);
    return {file.size(), file.lastModified()};
}

bool frmBatch::IsMasked(const QString& path) const
{
    const auto written = masked.constFind(path);
    return written != masked.constEnd() && *written == StateOf(path);
}

BatchEnd frmBatch::Mask(const QString& folder, const QStringList& left, qsizetype count)
{
    const qsizetype before = count - left.size();
    // The first line of progress is there before events run.
    if (!left.isEmpty())
        ShowProgress(folder, left.first(), before, count);
    return RunWork([&](cWorkLink& window) {
        const BatchWatch watch = {
            [&](qsizetype place) { window.Ask([&] { ShowProgress(folder, left[place], before + place, count); }); },
            [&](const QString& path, const cDIBSection& picture) {
                window.Ask([&] {
                    masked.insert(path, StateOf(path));
                    Q_EMIT Masked(path, picture);
                });
                return state == State::Cancelled ? BatchStep::Stop : BatchStep::GoOn;
            }};
        return MaskFiles(folder, left, watch);
    });
}

void frmBatch::MaskAll(const QString& folder, const QStringList& names)
{
    const auto isMasked = [&](const QString& name) { return IsMasked(PathIn(folder, name)); };
    // After a failure, what is done would be masked twice, and what was taken away would fail again.
    QStringList left = names;
    left.removeIf([&](const QString& name) { return isMasked(name) || !FileExists(PathIn(folder, name)); });
    BatchEnd end = BatchEnd::Finished;
    try {
        end = Mask(folder, left, names.size());
    } catch (RuntimeError& error) {
        const auto done = std::count_if(names.begin(), names.end(), isMasked);
        const QString outcome = BatchFailedText(browser->ChosenName(), done, names.size());
        ShowOutcome(outcome);
        error.reason += (error.reason.isEmpty() ? QString() : u" "_s) + outcome;
        throw;
    }
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
    ShowOutcome({});
    ui->CancelButton->setFocus();
    // While the error is shown the label still names the file.
    if (RunCommand([&] { MaskAll(folder, names); }) == CommandEnd::Finished)
        accept();
    else
        SetState(State::Choosing);
}

} // namespace ob
