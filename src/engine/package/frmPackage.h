// SPDX-License-Identifier: GPL-3.0-or-later
// The packaging wizard: selects the files that accompany a token, and makes the package.
#pragma once

#include "engine/package/modPackage.h"

#include <QDialog>

#include <memory>

namespace Ui {
class frmPackage;
}

namespace ob {

class FolderBrowser;

class frmPackage final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "packaging";

    explicit frmPackage(const QString& token, QWidget* parent = nullptr);
    ~frmPackage() override;

    // The engine's folder, with a trailing separator, after a search when no path was ever set; "" when there is none.
    static QString GetOrchardPath();

    void reject() override; // while files are copied, only stops the copying

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    class Watch;

    void Load();
    void FillTEMPList();
    void ShowEngine();
    void AddFiles(const QStringList& paths);

    void TEMPList_DragDrop(const QDropEvent& drop);
    void FileList_DragDrop();
    void cmdAdd_Click();
    void cmdRemove_Click();
    void cmdFind_Click();
    void cmdOkay_Click();

    std::unique_ptr<Ui::frmPackage> ui;
    FolderBrowser* browser;
    PackagePlan plan;
    Watch* working = nullptr; // while a package is made
};

// Asks for a token file and shows the wizard for it.
void mnuPackage_Click();

} // namespace ob
