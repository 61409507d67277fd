// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a silent video from a list of bitmap files.
#include "imagetools/avi/frmAVI.h"

#include "imagetools/avi/dlgAviOptions.h"
#include "imagetools/pictures/cFileDlg.h"
#include "imagetools/pictures/modPicture.h"
#include "platform/dialogs/frmCommand.h"
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
#include <QShortcut>

#include <algorithm>
#include <exception>
#include <functional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The preview may take this fraction of the writing time.
constexpr int PreviewShare = 8;

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

frmAVI::frmAVI(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmAVI>())
{
    ui->setupUi(this);
    setAcceptDrops(true);
    On(ui->cmdFileOpen, this, &frmAVI::cmdFileOpen_Click);
    On(ui->cmdClearList, this, &frmAVI::cmdClearList_Click);
    On(ui->cmdWriteAVI, this, &frmAVI::cmdWriteAVI_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &frmAVI::reject);
    AskBeforeLoss(*this, [this] { return Lost(); });
    On(ui->lstDIBList, &QListWidget::currentRowChanged, this, &frmAVI::lstDIBList_Click);
    auto* remove = new QShortcut(QKeySequence::Delete, ui->lstDIBList, nullptr, nullptr, Qt::WidgetShortcut);
    On(remove, &QShortcut::activated, this, &frmAVI::lstDIBList_Delete);
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

void frmAVI::cmdFileOpen_Click()
{
    cFileDlg dialog;
    dialog.OwnerHwnd = winId();
    dialog.FileMustExist = true;
    dialog.HideReadOnly = true;
    dialog.DlgTitle = u"Choose BMP file to add to video stream"_s;
    dialog.Filter = u"BMP Files|*.bmp:DIB Files|*.dib"_s;
    dialog.InitDirectory = lastFile.isEmpty() ? LastFolder(objectName()) : FolderOf(lastFile);
    QString file;
    if (dialog.VBGetOpenFileName(file))
        AddFile(file);
}

frmAVI::Adding frmAVI::AddFile(const QString& file)
{
    lastFile = file;
    RememberFolder(objectName(), FolderOf(file));
    const std::optional<AviFormat> format = FormatForList(list, file, NoticeBoxes());
    if (!format)
        return Adding::Refused;
    ShowFile(file);
    AddToList(list, file, *format);
    const QSignalBlocker isShown(ui->lstDIBList);
    ui->lstDIBList->addItem(file);
    ui->lstDIBList->setCurrentRow(ui->lstDIBList->count() - 1);
    EnableControls();
    return Adding::Added;
}

void frmAVI::ShowFile(const QString& file)
{
    ui->imgPreview->SetPicture(ImageOf(LoadPicture(file)));
}

void frmAVI::cmdClearList_Click()
{
    list = {};
    const QSignalBlocker isShown(ui->lstDIBList);
    ui->lstDIBList->clear();
    ui->imgPreview->SetPicture({});
    EnableControls();
}

void frmAVI::lstDIBList_Click(int row)
{
    if (row >= 0)
        ShowFile(list.files[row]);
}

void frmAVI::lstDIBList_Delete()
{
    const int row = ui->lstDIBList->currentRow();
    if (row < 0 || writing)
        return;
    list.files.removeAt(row);
    if (list.files.isEmpty()) {
        cmdClearList_Click();
        return;
    }
    {
        // Meanwhile the list reports a row whose number is about to change.
        const QSignalBlocker isMoving(ui->lstDIBList);
        delete ui->lstDIBList->takeItem(row);
    }
    lstDIBList_Click(ui->lstDIBList->currentRow());
}

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
    sincePreview.invalidate();
    closesAtEnd = false;
    EnableControls();
}

void frmAVI::ShowFrame(qsizetype frame)
{
    ui->lblStatus->setText(u"Frame number %1 saved"_s.arg(frame));
    ui->pgbFrames->setValue(static_cast<int>(frame + 1));
    const bool isLast = frame + 1 == list.files.size();
    if (!isLast && sincePreview.isValid() && sincePreview.elapsed() < PreviewShare * previewCost)
        return;
    QElapsedTimer clock;
    clock.start();
    const QSignalBlocker isShown(ui->lstDIBList);
    ui->lstDIBList->setCurrentRow(static_cast<int>(frame));
    try {
        ShowFile(list.files[frame]);
    } catch (const RuntimeError&) {
        // A missing file has been reported; the previous picture stays, like its frame.
    }
    ui->imgPreview->repaint();
    previewCost = std::max<qint64>(clock.elapsed(), 5);
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
    // One box for a batch that does not fit, not one for each file.
    RunCommand([&] {
        (void)std::any_of(files.begin(), files.end(),
                          [&](const QString& file) { return AddFile(file) == Adding::Refused; });
    });
}

void mnuToolAVI_Click()
{
    ShowToolModally<frmAVI>();
}

} // namespace ob
