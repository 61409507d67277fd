// SPDX-License-Identifier: GPL-3.0-or-later
// Browses the disk for BASIC source and shows the start of a file.
#pragma once

#include "editor/modCodeExplorer.h"

#include <QDialog>

#include <future>
#include <memory>

class QModelIndex;
class QStandardItem;
class QStandardItemModel;
class QStringListModel;
class QTimer;

namespace Ui {
class frmCodeExplorer;
}

namespace ob {

class frmCodeExplorer final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "code-explorer";

    explicit frmCodeExplorer(QWidget* parent = nullptr);
    ~frmCodeExplorer() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillDrives(const QList<Drive>& found);
    void ShowFolder(const QString& path);
    void ShowContents(const FolderContents& contents);
    void TakeResults();
    QString ChosenPath() const;

    void Drive1_Change();
    void Dir1_Change(const QModelIndex& chosen);
    void Fil_Click();
    void cmdOpen_Click();

    std::unique_ptr<Ui::frmCodeExplorer> ui;
    QStandardItemModel* folders = nullptr;
    QStringListModel* files = nullptr;
    QTimer* timer = nullptr; // runs while a result is to come
    QList<Drive> drives;
    QString folder; // that Fil shows
    std::future<QList<Drive>> mountedDrives;
    std::future<FolderContents> folderContents;
};

void mnuFileExplore_Click();

} // namespace ob
