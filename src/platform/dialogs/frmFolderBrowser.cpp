// SPDX-License-Identifier: GPL-3.0-or-later
// Lets a window browse the disk with three of its controls.
#include "platform/dialogs/frmFolderBrowser.h"

#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QListView>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace ob {

namespace {

using namespace std::chrono_literals;

constexpr int PathRole = Qt::UserRole;

// A folder read within this time is shown without an empty list before it.
constexpr auto patience = 100ms;

} // namespace

FolderBrowser::FolderBrowser(const Controls& of, const QStringList& shown, QObject* parent)
    : QObject(parent), controls(of), folders(new QStandardItemModel(this)), files(new QStringListModel(this)),
      patterns(shown)
{
    controls.folders->setModel(folders);
    controls.folders->installEventFilter(this);
    controls.files->setModel(files);
    On(controls.drives, &QComboBox::activated, this, [this](int place) { ShowFolder(drives[place].path); });
    On(controls.folders, &QTreeView::doubleClicked, this, &FolderBrowser::GoInto);
    On(controls.files->selectionModel(), &QItemSelectionModel::selectionChanged, this,
       [this] { Q_EMIT ChoiceChanged(); });
}

void FolderBrowser::Start(const QString& first)
{
    mountedDrives.Start([](cWorkLink&) { return MountedDrives(); },
                        [this] { RunCommand([this] { FillDrives(mountedDrives.Take()); }); });
    FillDrives(NearDrives());
    ShowFolder(first.isEmpty() ? QDir::currentPath() : first);
}

bool FolderBrowser::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const int key = static_cast<const QKeyEvent*>(event)->key();
    const QModelIndex current = controls.folders->currentIndex();
    // Enter goes into the folder and does not press the default button.
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && current.isValid()) {
        RunCommand([&] { GoInto(current); });
        return true;
    }
    if (key == Qt::Key_Backspace) {
        const QStringList chain = FolderChain(folder);
        if (chain.size() > 1)
            RunCommand([&] { ShowFolder(chain[chain.size() - 2]); });
        return true;
    }
    return QObject::eventFilter(watched, event);
}

QStandardItem* FolderBrowser::FolderItem(const QString& path, const QString& name, bool open) const
{
    const auto icon = open ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon;
    auto* item = new QStandardItem(controls.folders->style()->standardIcon(icon), name);
    item->setData(path, PathRole);
    item->setEditable(false);
    return item;
}

void FolderBrowser::FillDrives(const QList<Drive>& found)
{
    for (const Drive& drive : found) {
        if (std::any_of(drives.begin(), drives.end(), [&](const Drive& each) { return each.path == drive.path; }))
            continue;
        drives.append(drive);
        controls.drives->addItem(drive.caption);
    }
    controls.drives->setCurrentIndex(DriveOf(drives, folder));
}

void FolderBrowser::ShowFolder(const QString& path)
{
    keptChoice.clear();
    folder = path.isEmpty() ? QDir::rootPath() : path;
    folders->clear();
    QStandardItem* above = folders->invisibleRootItem();
    for (const QString& step : FolderChain(folder)) {
        const QString name = NameOf(step).isEmpty() ? QDir::toNativeSeparators(step) : NameOf(step);
        auto* item = FolderItem(step, name, true);
        above->appendRow(item);
        controls.folders->expand(item->index());
        above = item;
    }
    controls.folders->setCurrentIndex(above->index());
    controls.drives->setCurrentIndex(DriveOf(drives, folder));
    files->setStringList({});
    Q_EMIT FolderChanged();
    ReadFolderAgain();
}

void FolderBrowser::ReadFolderAgain()
{
    folderContents.Start([from = folder, shown = patterns](cWorkLink&) { return ReadFolder(from, shown); },
                         [this] { RunCommand([this] { ShowContents(folderContents.Take()); }); });
    if (folderContents.IsDone(patience))
        ShowContents(folderContents.Take());
}

void FolderBrowser::SetPatterns(const QStringList& shown)
{
    patterns = shown;
    ShowFolder(folder);
}

void FolderBrowser::FileSaved(const QString& path)
{
    if (QDir(QFileInfo(path).absolutePath()) != QDir(folder))
        return;
    const QString chosen = ChosenName();
    ShowFolder(folder);
    keptChoice = chosen;
    if (!folderContents.IsStarted())
        ChooseAgain();
}

void FolderBrowser::ChooseAgain()
{
    if (const QString name = std::exchange(keptChoice, {}); !name.isEmpty())
        Choose(files->stringList().indexOf(name));
}

void FolderBrowser::ShowContents(const FolderContents& contents)
{
    if (std::exchange(isFirst, false) && !contents.isThere && folder != QDir::currentPath()) {
        ShowFolder(QDir::currentPath());
        return;
    }
    const QModelIndex current = controls.folders->currentIndex();
    QStandardItem* here = folders->invisibleRootItem();
    while (here->hasChildren())
        here = here->child(0);
    QList<QStandardItem*> items;
    for (const QString& name : contents.folders)
        items.append(FolderItem(QDir(folder).filePath(name), name, false));
    here->appendRows(items);
    controls.folders->expand(here->index());
    controls.folders->scrollTo(current);
    files->setStringList(contents.files);
    Q_EMIT FilesListed();
    ChooseAgain();
}

void FolderBrowser::GoInto(const QModelIndex& chosen)
{
    const QString path = chosen.data(PathRole).toString();
    ShowFolder(path);
}

QStringList FolderBrowser::Files() const
{
    return files->stringList();
}

qsizetype FolderBrowser::ChosenPlace() const
{
    const QModelIndexList chosen = controls.files->selectionModel()->selectedIndexes();
    return chosen.isEmpty() ? -1 : chosen.first().row();
}

QString FolderBrowser::ChosenName() const
{
    const qsizetype place = ChosenPlace();
    return place < 0 ? QString() : files->stringList().value(place);
}

QString FolderBrowser::ChosenPath() const
{
    return PathIn(folder, ChosenName());
}

void FolderBrowser::Choose(qsizetype place)
{
    const QModelIndex index = files->index(static_cast<int>(place));
    if (index.isValid())
        controls.files->setCurrentIndex(index);
}

} // namespace ob
