// SPDX-License-Identifier: GPL-3.0-or-later
// Browses the disk for BASIC source and previews the start of a file.
#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmCodeExplorer;
}

namespace ob {

class FolderBrowser;

class frmCodeExplorer final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "code-explorer";

    explicit frmCodeExplorer(QWidget* parent = nullptr);
    ~frmCodeExplorer() override;

private:
    void ShowCount();
    void Fil_Click();
    void cmdOpen_Click();

    std::unique_ptr<Ui::frmCodeExplorer> ui;
    FolderBrowser* browser;
};

void mnuFileExplore_Click();

} // namespace ob
