// SPDX-License-Identifier: GPL-3.0-or-later
// Browses pictures, saves them, and writes the lines that load a list of them into a program.
#pragma once

#include "imagetools/pictures/cPreviewLoader.h"
#include "imagetools/pictures/modLoadBmp.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmBitmap;
}

namespace ob {

class FolderBrowser;
class frmFileList;
class frmInsertButton;

class frmBitmap final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "bitmap-preview";

    explicit frmBitmap(QWidget* parent = nullptr);
    ~frmBitmap() override;

private:
    void Connect();
    void ShowCount();
    void AskFor(const QString& path);
    void TakePreview();
    void ShowPreview(const Preview& preview);
    void ShowListCount();
    enum class Reading { Finished, Cancelled };
    Reading FinishReading();
    QString ListCode() const;

    void File1_Click();
    void chkDLL_Click();
    void cmdAdd_Click();
    void cmdCreate_Click();
    void cmdCopy_Click();
    void cmdJpg_Click();

    std::unique_ptr<Ui::frmBitmap> ui;
    FolderBrowser* browser = nullptr; // owned by this window
    cPreviewLoader loader;
    QString asked;    // the picture last requested from the loader
    QString refused;  // the picture that was asked for last, if it cannot be shown
    Preview picture2; // the picture on the screen
    cLoadBmpList list;
    frmFileList* order = nullptr;      // of the list
    frmInsertButton* insert = nullptr; // belongs to its button
};

void mnuToolBitmap_Click();

} // namespace ob
