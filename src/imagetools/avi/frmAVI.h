// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a silent video from a list of bitmap files.
#pragma once

#include "imagetools/avi/cAviWriting.h"
#include "imagetools/pictures/cPreviewLoader.h"
#include "platform/work/cWork.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QList>

#include <memory>
#include <string>
#include <utility>

class QTimer;

namespace Ui {
class frmAVI;
}

namespace ob {

class frmFileList;

// Frames are written on their own thread, so that the window stays responsive. Cancel and Escape first end the writing
// and close the window only the next time; the close button does both.
class frmAVI final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "avi-maker";

    explicit frmAVI(QWidget* parent = nullptr);
    ~frmAVI() override;

    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    enum class Adding { Added, Refused };
    enum class Check { Headers, WholePicture };

    void cmdFileOpen_Click();
    void cmdFolder_Click();
    void cmdPlay_Click();
    void cmdClearList_Click();
    void cmdWriteAVI_Click();
    void lstDIBList_Click(int row);
    void lstDIBList_Removed(int row);
    void lstDIBList_Moved(int from, int to);
    void tmrPlay_Timer();

    QString Lost() const;
    void AddFiles(const QStringList& files);
    Adding AddFile(const QString& file, Check check);
    QString FolderOfLastFile() const;
    void ShowFile(const QString& file);
    void AskFor(const QString& file);
    void TakePreview();
    void Play();
    void StopPlaying();
    AviState BeginWriting(const QString& path);
    NoticeSink NoticesHere();
    void ShowNotices();
    void StartWriting();
    void ShowFrame(qsizetype frame);
    void WritingEnded();
    void ShowFailure(const AviFailure& failure);
    void EnableControls();

    std::unique_ptr<Ui::frmAVI> ui;
    AviList list;
    frmFileList* order = nullptr; // of the list
    cPreviewLoader loader;
    QString shownFile; // whose picture is wanted
    QTimer* tmrPlay;
    QElapsedTimer playing; // since the frame from which it plays
    int playedFrom = 0;
    QStringList filesWritten; // in the last video
    QString lastFile;
    std::unique_ptr<cAviWriting> writing;
    cWork<AviState> work; // gone before what it works on
    bool closesAtEnd = false;
    QList<std::pair<std::string, NoticeIcon>> notices; // waiting for the one being shown
    bool isShowingNotice = false;
    QElapsedTimer sincePreview;
};

void mnuToolAVI_Click();

} // namespace ob
