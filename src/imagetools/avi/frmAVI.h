// SPDX-License-Identifier: GPL-3.0-or-later
// Makes a silent video from a list of bitmap files.
#pragma once

#include "imagetools/avi/cAviWriting.h"
#include "platform/work/cWork.h"

#include <QDialog>
#include <QElapsedTimer>
#include <QList>

#include <memory>
#include <string>
#include <utility>

namespace Ui {
class frmAVI;
}

namespace ob {

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

    void cmdFileOpen_Click();
    void cmdClearList_Click();
    void cmdWriteAVI_Click();
    void lstDIBList_Click(int row);
    void lstDIBList_Delete();

    QString Lost() const;
    Adding AddFile(const QString& file);
    void ShowFile(const QString& file);
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
    QStringList filesWritten; // in the last video
    QString lastFile;
    std::unique_ptr<cAviWriting> writing;
    cWork<AviState> work; // gone before what it works on
    bool closesAtEnd = false;
    QList<std::pair<std::string, NoticeIcon>> notices; // waiting for the one being shown
    bool isShowingNotice = false;
    QElapsedTimer sincePreview;
    qint64 previewCost = 0; // milliseconds
};

void mnuToolAVI_Click();

} // namespace ob
