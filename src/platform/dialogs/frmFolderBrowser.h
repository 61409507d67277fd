// SPDX-License-Identifier: GPL-3.0-or-later
// Lets a window browse the disk with three of its controls: drives, folders, and files that match patterns.
#pragma once

#include "platform/files/modFolders.h"
#include "platform/work/cWork.h"

#include <QObject>

class QComboBox;
class QListView;
class QModelIndex;
class QStandardItem;
class QStandardItemModel;
class QStringListModel;
class QTreeView;

namespace ob {

// Fills the three controls and keeps them in sync. Disks are read on separate threads, so that the window never hangs
// on one: the parent folders are shown at once, the folder's contents when they have been read.
//
// In the list of folders Enter and a double click open one, Backspace goes to its parent.
class FolderBrowser final : public QObject {
    Q_OBJECT

public:
    struct Controls {
        QComboBox* drives;
        QTreeView* folders;
        QListView* files;
    };

    // Connect to the signals, then call Start. It shows the folder, or the current one when none is given or it has
    // gone.
    FolderBrowser(const Controls& controls, const QStringList& patterns, QObject* parent);
    void Start(const QString& first = {});

    void ShowFolder(const QString& path);
    void SetPatterns(const QStringList& patterns); // rereads the folder

    // To be called when a file has been written: one in this folder appears in the list. The chosen file stays chosen.
    void FileSaved(const QString& path);

    const QString& Folder() const { return folder; }

    // The names in the list, and the chosen one ("" for none).
    QStringList Files() const;
    QString ChosenName() const;
    QString ChosenPath() const;    // ends in a separator when no name is chosen
    void Choose(qsizetype place);  // from 0; nothing happens outside the list
    qsizetype ChosenPlace() const; // -1 when none is

Q_SIGNALS:
    void FolderChanged(); // the list is empty until FilesListed
    void FilesListed();
    void ChoiceChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillDrives(const QList<Drive>& found);
    void ShowContents(const FolderContents& contents);
    void ReadFolderAgain();
    void ChooseAgain();
    void GoInto(const QModelIndex& chosen);
    QStandardItem* FolderItem(const QString& path, const QString& name, bool open) const;

    Controls controls;
    QStandardItemModel* folders;
    QStringListModel* files;
    QList<Drive> drives;
    QStringList patterns;
    QString folder;
    bool isFirst = true; // nothing has been listed yet
    QString keptChoice;  // chosen again when the folder has been read
    cWork<QList<Drive>> mountedDrives{Farewell::LetGo};
    cWork<FolderContents> folderContents{Farewell::LetGo};
};

} // namespace ob
