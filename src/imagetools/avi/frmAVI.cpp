// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a silent video from a list of bitmap files.
#include "imagetools/avi/frmAVI.h"

#include "imagetools/avi/dlgAviOptions.h"
#include "imagetools/pictures/cFileDlg.h"
#include "imagetools/pictures/frmFileList.h"
#include "imagetools/pictures/frmPictureReading.h"
#include "imagetools/pictures/modImageFiles.h"
#include "imagetools/pictures/modPicture.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmPatience.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "shell/state/frmLoss.h"
#include "shell/state/frmTool.h"
#include "shell/state/modPlaces.h"
#include "ui_frmAVI.h"

#include <QCloseEvent>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>

#include <algorithm>
#include <exception>
#include <functional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// While frames are written, their pictures are shown at most that often, in milliseconds.
constexpr qint64 PreviewPause = 100;

QStringList FilesIn(const QMimeData& dropped)
{
    QStringList files;
    for (const QUrl& url : dropped.urls())
        if (url.isLocalFile())
            files.append(QDir::toNativeSeparators(url.toLocalFile()));
    return files;
}

// Writes the frames up to the last one, or to the one at hand when it is cancelled: then the state is still Writing.
AviState WriteFrames(cAviWriting& writing, cWorkLink& window, const std::function<void(qsizetype)>& frameSaved)
{
    AviState state = AviState::Writing;
    while (state == AviState::Writing && !window.IsCancelled()) {
        const qsizetype frame = writing.FramesWritten();
        state = writing.WriteFrame();
        window.Post([frameSaved, frame] { frameSaved(frame); });
    }
    return state;
}

} // namespace

frmAVI::frmAVI(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmAVI>()),
      loader(LoadPreview, [this] { RunCommand([this] { TakePreview(); }); }), tmrPlay(new QTimer(this))
{
    ui->setupUi(this);
    setAcceptDrops(true);
    order = new frmFileList({ui->lstDIBList, ui->cmdRemove, ui->cmdEarlier, ui->cmdLater}, this);
    On(order, &frmFileList::Removed, this, &frmAVI::lstDIBList_Removed);
    On(order, &frmFileList::Moved, this, &frmAVI::lstDIBList_Moved);
    On(ui->cmdFolder, this, &frmAVI::cmdFolder_Click);
    On(ui->cmdPlay, this, &frmAVI::cmdPlay_Click);
    On(ui->txtFPS, &QLineEdit::textChanged, this, [this] {
        if (tmrPlay->isActive())
            Play();
    });
    tmrPlay->setTimerType(Qt::PreciseTimer);
    On(tmrPlay, &QTimer::timeout, this, &frmAVI::tmrPlay_Timer);
    On(ui->cmdFileOpen, this, &frmAVI::cmdFileOpen_Click);
    On(ui->cmdClearList, this, &frmAVI::cmdClearList_Click);
    On(ui->cmdWriteAVI, this, &frmAVI::cmdWriteAVI_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmAVI::reject);
    AskBeforeLoss(*this, [this] { return Lost(); });
    On(ui->lstDIBList, &QListWidget::currentRowChanged, this, &frmAVI::lstDIBList_Click);
    cmdClearList_Click();
}

frmAVI::~frmAVI() = default;

// Escape during the writing stops it, closing then has been wanted, and a list that is in a video is not lost.
QString frmAVI::Lost() const
{
    const QString files = CountOf(list.files.size(), u"file"_s, u"files"_s);
    const bool isAnswered = work.IsStarted() || closesAtEnd;
    return isAnswered || files.isEmpty() || list.files == filesWritten ? QString() : u"The list of "_s + files;
}

void frmAVI::reject()
{
    if (!work.IsStarted()) {
        QDialog::reject();
        return;
    }
    work.Cancel();
    ui->lblStatus->setText(u"Stopping..."_s);
}

void frmAVI::closeEvent(QCloseEvent* event)
{
    if (!work.IsStarted()) {
        QDialog::closeEvent(event);
        return;
    }
    closesAtEnd = true;
    reject();
    event->ignore();
}

QString frmAVI::FolderOfLastFile() const
{
    return lastFile.isEmpty() ? LastFolder(objectName()) : FolderOf(lastFile);
}

// --- The list. ------------------------------------------------------------------------------------------------------

void frmAVI::cmdFileOpen_Click()
{
    cFileDlg dialog;
    dialog.OwnerHwnd = winId();
    dialog.FileMustExist = true;
    dialog.HideReadOnly = true;
    dialog.MultiSelect = true;
    dialog.DlgTitle = u"Choose BMP file to add to video stream"_s;
    dialog.Filter = u"BMP Files|*.bmp:DIB Files|*.dib"_s;
    dialog.InitDirectory = FolderOfLastFile();
    AddFiles(dialog.VBGetOpenFileNames());
}

// One box for files that do not fit, not one for each.
void frmAVI::AddFiles(const QStringList& files)
{
    const Check check = files.size() == 1 ? Check::WholePicture : Check::Headers;
    const QStringList ordered = InNumberOrder(files);
    (void)std::any_of(ordered.begin(), ordered.end(),
                      [&](const QString& file) { return AddFile(file, check) == Adding::Refused; });
}

frmAVI::Adding frmAVI::AddFile(const QString& file, Check check)
{
    lastFile = file;
    RememberFolder(objectName(), FolderOf(file));
    const std::optional<AviFormat> format = FormatForList(list, file, NoticeBoxes());
    if (!format)
        return Adding::Refused;
    std::optional<cDIBSection> picture;
    if (check == Check::WholePicture && !(picture = ReadPicture(file)))
        return Adding::Refused;
    StopPlaying();
    AddToList(list, file, *format);
    {
        const QSignalBlocker isShown(ui->lstDIBList);
        ui->lstDIBList->addItem(file);
        ui->lstDIBList->setCurrentRow(ui->lstDIBList->count() - 1);
    }
    if (picture) {
        shownFile = file;
        ui->imgPreview->SetPicture(ImageOf(*picture));
    } else {
        AskFor(file);
    }
    EnableControls();
    return Adding::Added;
}

void frmAVI::cmdFolder_Click()
{
    const QString folder = FolderBox(u"Add the bitmaps of a folder"_s, FolderOfLastFile());
    if (folder.isEmpty())
        return;
    const auto read = RunPatiently(ReadingText(folder), [from = list, folder] { return WithFolder(from, folder); });
    if (!read)
        return;
    StopPlaying();
    RememberFolder(objectName(), folder);
    const qsizetype before = list.files.size();
    list = read->list;
    if (list.files.size() > before) {
        lastFile = list.files.last();
        const QSignalBlocker isShown(ui->lstDIBList);
        ui->lstDIBList->addItems(list.files.sliced(before));
        ui->lstDIBList->setCurrentRow(static_cast<int>(before));
        ShowFile(list.files[before]);
    }
    EnableControls();
    ui->lblStatus->setText(FolderAddedText(list.files.size() - before, read->leftOut));
}

void frmAVI::cmdClearList_Click()
{
    StopPlaying();
    list = {};
    const QSignalBlocker isShown(ui->lstDIBList);
    ui->lstDIBList->clear();
    shownFile.clear();
    ui->imgPreview->SetPicture({});
    EnableControls();
}

void frmAVI::lstDIBList_Removed(int row)
{
    list.files.removeAt(row);
    if (list.files.isEmpty()) {
        cmdClearList_Click();
        return;
    }
    StopPlaying();
    lstDIBList_Click(ui->lstDIBList->currentRow());
    EnableControls();
}

void frmAVI::lstDIBList_Moved(int from, int to)
{
    StopPlaying();
    list.files.move(from, to);
}

// --- The preview. ---------------------------------------------------------------------------------------------------

void frmAVI::lstDIBList_Click(int row)
{
    if (row < 0)
        return;
    if (tmrPlay->isActive())
        Play();
    ShowFile(list.files[row]);
}

// A small picture is there at once, without an older one before it.
void frmAVI::ShowFile(const QString& file)
{
    constexpr std::chrono::milliseconds moment(50);
    AskFor(file);
    if (!loader.IsDone(moment))
        return;
    TakePreview();
}

void frmAVI::AskFor(const QString& file)
{
    shownFile = file;
    loader.Ask({file, ui->imgPreview->size(), devicePixelRatioF()});
}

void frmAVI::TakePreview()
{
    const auto preview = loader.Take();
    if (!preview || preview->path != shownFile)
        return;
    if (!preview->IsEmpty())
        ui->imgPreview->SetPicture(preview->image);
    else if (!writing)
        ui->lblStatus->setText(CannotBeShownText(shownFile));
}

void frmAVI::cmdPlay_Click()
{
    if (ui->cmdPlay->isChecked())
        Play();
    else
        StopPlaying();
}

// From the chosen frame on, at the rate that the field has now.
void frmAVI::Play()
{
    playedFrom = std::max(ui->lstDIBList->currentRow(), 0);
    playing.start();
    tmrPlay->start(1000 / FramesPerSecondOf(ui->txtFPS->text()));
}

void frmAVI::StopPlaying()
{
    tmrPlay->stop();
    ui->cmdPlay->setChecked(false);
    order->ShowButtons();
}

void frmAVI::tmrPlay_Timer()
{
    const qint64 frames = playing.elapsed() * FramesPerSecondOf(ui->txtFPS->text()) / 1000;
    const auto row = static_cast<int>((playedFrom + frames) % list.files.size());
    if (row == ui->lstDIBList->currentRow())
        return;
    const QSignalBlocker isShown(ui->lstDIBList);
    ui->lstDIBList->setCurrentRow(row);
    // A picture that takes longer than its turn is shown late, and those of the meantime are left out.
    if (!loader.IsBusy())
        AskFor(list.files[row]);
}

// --- Writing. -------------------------------------------------------------------------------------------------------

void frmAVI::cmdWriteAVI_Click()
{
    cFileDlg dialog;
    dialog.OwnerHwnd = winId();
    dialog.DefaultExt = u"avi"_s;
    dialog.DlgTitle = u"Choose a filename to save AVI to..."_s;
    dialog.Filter = u"AVI Files|*.avi"_s;
    QString path = u"MyAVI.avi"_s;
    if (!dialog.VBGetSaveFileName(path))
        return;
    RunCommand([&] {
        if (BeginWriting(path) == AviState::Writing)
            StartWriting();
    });
    if (!work.IsStarted())
        writing.reset();
}

AviState frmAVI::BeginWriting(const QString& path)
{
    writing = std::make_unique<cAviWriting>(path, list, ui->txtFPS->text(), NoticesHere());
    try {
        return writing->Begin([this](const AviFormat& first) -> std::optional<AviOptions> {
            dlgAviOptions dialog(first, this);
            PrepareTool(dialog, dlgAviOptions::ManualPage);
            return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Options()) : std::nullopt;
        });
    } catch (const AviFailure& failure) {
        ShowFailure(failure);
        return AviState::Dismissed;
    }
}

void frmAVI::ShowFailure(const AviFailure& failure)
{
    ui->lblStatus->setText(failure.cause);
    MsgBox(failure.message, BoxIcon::Information);
    ShowReason(failure);
}

// Notices come from either thread; their boxes are shown here, one after the other.
NoticeSink frmAVI::NoticesHere()
{
    return [this](const std::string& text, NoticeIcon icon) {
        QMetaObject::invokeMethod(this, [this, text, icon] {
            notices.append({text, icon});
            ShowNotices();
        });
    };
}

void frmAVI::ShowNotices()
{
    if (isShowingNotice)
        return;
    isShowingNotice = true;
    while (!notices.isEmpty()) {
        const auto [text, icon] = notices.takeFirst();
        NoticeBoxes()(text, icon);
    }
    isShowingNotice = false;
}

void frmAVI::StartWriting()
{
    const auto frameSaved = [this](qsizetype frame) { RunCommand([this, frame] { ShowFrame(frame); }); };
    work.Start([&video = *writing, frameSaved](cWorkLink& window) { return WriteFrames(video, window, frameSaved); },
               [this] { WritingEnded(); });
    ui->pgbFrames->setMaximum(static_cast<int>(writing->FrameCount()));
    ui->pgbFrames->setValue(0);
    ui->pgbFrames->setVisible(true);
    ui->lblStatus->clear();
    StopPlaying();
    sincePreview.invalidate();
    closesAtEnd = false;
    EnableControls();
}

void frmAVI::ShowFrame(qsizetype frame)
{
    ui->lblStatus->setText(u"Frame number %1 saved"_s.arg(frame));
    ui->pgbFrames->setValue(static_cast<int>(frame + 1));
    const bool isLast = frame + 1 == list.files.size();
    if (!isLast && sincePreview.isValid() && sincePreview.elapsed() < PreviewPause)
        return;
    const QSignalBlocker isShown(ui->lstDIBList);
    ui->lstDIBList->setCurrentRow(static_cast<int>(frame));
    AskFor(list.files[frame]);
    sincePreview.start();
}

void frmAVI::WritingEnded()
{
    AviState state = AviState::Writing;
    std::exception_ptr error;
    try {
        state = work.Take();
    } catch (...) {
        error = std::current_exception();
    }
    const std::unique_ptr<cAviWriting> done = std::move(writing);
    ui->pgbFrames->setVisible(false);
    EnableControls();
    if (error) {
        ui->lblStatus->clear();
        RunCommand([&] {
            try {
                std::rethrow_exception(error);
            } catch (const AviFailure& failure) {
                ShowFailure(failure);
            }
        });
    } else {
        if (state == AviState::Finished)
            filesWritten = list.files;
        ui->lblStatus->setText(state == AviState::Finished ? u"Finished!"_s : u"Stopped. No file was written."_s);
    }
    if (closesAtEnd)
        close();
}

void frmAVI::EnableControls()
{
    const bool isIdle = writing == nullptr;
    const bool hasFiles = !list.files.isEmpty();
    // The pressed button is disabled; its focus must not move to Cancel, where another key would end the writing.
    if (!isIdle)
        ui->lstDIBList->setFocus();
    ui->cmdFileOpen->setEnabled(isIdle);
    ui->cmdFolder->setEnabled(isIdle);
    ui->cmdPlay->setEnabled(isIdle && list.files.size() > 1);
    order->SetUse(isIdle ? frmFileList::Use::Open : frmFileList::Use::Held);
    ui->cmdClearList->setEnabled(isIdle && hasFiles);
    ui->cmdWriteAVI->setEnabled(isIdle && hasFiles);
    ui->txtFPS->setEnabled(isIdle);
}

void frmAVI::dragEnterEvent(QDragEnterEvent* event)
{
    if (!writing && !FilesIn(*event->mimeData()).isEmpty())
        event->acceptProposedAction();
}

void frmAVI::dropEvent(QDropEvent* event)
{
    if (writing)
        return;
    const QStringList files = FilesIn(*event->mimeData());
    event->acceptProposedAction();
    RunCommand([&] { AddFiles(files); });
}

void mnuToolAVI_Click()
{
    ShowToolModally<frmAVI>();
}

} // namespace ob
