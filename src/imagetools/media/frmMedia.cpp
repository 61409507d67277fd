// SPDX-License-Identifier: GPL-3.0-or-later
// Plays media files and writes the code that plays them.
#include "imagetools/media/frmMedia.h"

#include "editor/frmInsertButton.h"
#include "imagetools/media/modMedia.h"
#include "platform/desktop/modClipboard.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modFolders.h"
#include "platform/language/cRuntimeError.h"
#include "platform/work/cWork.h"
#include "shell/state/cMainForm.h"
#include "shell/state/frmTool.h"
#include "ui_frmMedia.h"

#include <QFileInfo>
#include <QPointer>
#include <QSignalBlocker>
#include <QTimer>

#include <optional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int TickLength = 100; // milliseconds

QString WithLineFeeds(QString text)
{
    return text.remove(QLatin1Char('\r'));
}

} // namespace

frmMedia::frmMedia(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmMedia>()), tmrPlay(new QTimer(this))
{
    ui->setupUi(this);
    tmrPlay->setObjectName(u"tmrPlay"_s);
    tmrPlay->setInterval(TickLength);
    On(tmrPlay, &QTimer::timeout, this, &frmMedia::tmrPlay_Timer);
    On(ui->cmdOpen, this, &frmMedia::cmdOpen_Click);
    On(ui->cmdPlay, this, &frmMedia::cmdPlay_Click);
    On(ui->cmdStop, this, &frmMedia::cmdStop_Click);
    On(ui->cmdCode, this, &frmMedia::cmdCode_Click);
    On(ui->cmdCopy, this, &frmMedia::cmdCopy_Click);
    On(ui->cmdAVI, this, [] { ChooseMenuItem(u"mnuToolAVI"_s); });
    connect(ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    On(ui->chkPath, this, &frmMedia::WriteCodeMedia);
    On(ui->txtCode, &QPlainTextEdit::textChanged, this, &frmMedia::WriteCodeMedia);
    insert = new frmInsertButton(
        ui->cmdInsert, {[this] { return !file.isEmpty(); }, [this] { return std::optional(FinishedCode()); }, {}});
    ui->cmdOpen->setFocus();
}

frmMedia::~frmMedia()
{
    tmrPlay->stop();
    StopMedia();
}

void frmMedia::WriteCodeMedia()
{
    if (file.isEmpty())
        return;
    const MediaPath path = ui->chkPath->isChecked() ? MediaPath::Whole : MediaPath::NameOnly;
    const QString code = WithLineFeeds(MediaCode(file, path));
    // Colouring the text also changes it.
    const QSignalBlocker quiet(ui->txtCode);
    ui->txtCode->ShowCode(code);
    // Replaces any other text there, even if the code is the one shown last.
    if (ui->txtCode->toPlainText() != code)
        ui->txtCode->setPlainText(code);
}

void frmMedia::cmdOpen_Click()
{
    file = ToolFileBox(*this,
                       {FilePurpose::Open, u"Open File..."_s, {}, {}, u"Media Files|*.MID;*.AVI;*.MPG;*.MPEG;*.MP3"_s});
    ui->lblFile->setText(file.isEmpty() ? u"No File"_s : file);
    WriteCodeMedia();
    insert->Refresh();
    if (!tmrPlay->isActive())
        ShowTime(0);
    if (!file.isEmpty())
        ui->cmdPlay->setFocus();
}

void frmMedia::cmdPlay_Click()
{
    if (!FileExists(file))
        return;
    // Events run while a file is opened, and one of them may close this window.
    const QPointer<frmMedia> self(this);
    LetEventsRun();
    if (self.isNull())
        return;
    if (!PlayMedia(file)) {
        MsgBox(u"File does not appear to be a valid media file."_s, BoxIcon::Critical);
        return;
    }
    if (self.isNull()) {
        StopMedia();
        return;
    }
    tmrPlay->start();
    played = file;
    ShowTime(0);
    ui->lblSilent->setVisible(IsMediaSilent());
    if (const QString missing = MissingMediaText(); !missing.isEmpty())
        MsgBox(missing, BoxIcon::Exclamation);
}

void frmMedia::cmdStop_Click()
{
    tmrPlay->stop();
    ShowTime(0);
    StopMedia();
}

QString frmMedia::FinishedCode() const
{
    return ui->txtCode->toPlainText().replace(QLatin1Char('\n'), u"\r\n"_s);
}

void frmMedia::cmdCode_Click()
{
    if (CopyText(FinishedCode()))
        MsgBox(u"Code has been copied to the clipboard.  Please paste into your program."_s);
}

void frmMedia::cmdCopy_Click()
{
    if (file.isEmpty()) {
        MsgBox(u"No file to save!"_s);
        return;
    }
    const QString target = ToolFileBox(
        *this,
        {FilePurpose::Save, u"Save As..."_s, {}, CopyNameOf(file), MediaCopyFilter(file), QFileInfo(file).suffix()});
    if (target.isEmpty())
        return;
    try {
        CopyMedia(file, target);
    } catch (const RuntimeError& error) {
        FailureBox(u"Error saving file!"_s, error);
        return;
    }
    MsgBox(u"File has been saved as "_s + target);
}

void frmMedia::tmrPlay_Timer()
{
    const QPointer<frmMedia> self(this);
    const MediaProgress progress = PollMedia();
    if (self.isNull())
        return;
    if (progress.hasEnded)
        tmrPlay->stop();
    ShowTime(progress.hasEnded ? 0 : progress.position);
}

void frmMedia::ShowTime(float position)
{
    // Times belong to the file last played, which the one in the field need not be.
    const bool isOther = played != file;
    const float length = isOther && !tmrPlay->isActive() ? 0 : MediaLength();
    ui->lblNow->setText((isOther && length > 0 ? NameOf(played) + u"  "_s : QString()) +
                        MediaTimeText(position, length));
    if (isOther && !tmrPlay->isActive())
        ui->lblSilent->hide();
    const float part = length > 0 ? position / length : 0;
    ui->prgNow->setValue(static_cast<int>(part * static_cast<float>(ui->prgNow->maximum())));
}

void mnuToolMedia_Click()
{
    ShowTool<frmMedia>();
}

} // namespace ob
