// SPDX-License-Identifier: GPL-3.0-or-later
// Browses the disk for WAV files and plays them.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmWav;
}

namespace ob {

class FolderBrowser;

class frmWav final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "wav-preview";

    explicit frmWav(QWidget* parent = nullptr);
    ~frmWav() override;

private:
    void Fil_Click();
    void cmdPlay_Click();
    void cmdStop_Click();
    void cmdCopy_Click();
    void cmdExit_Click();
    void ShowCount();

    std::unique_ptr<Ui::frmWav> ui;
    FolderBrowser* browser = nullptr;
};

void mnuToolWav_Click();

} // namespace ob
