// SPDX-License-Identifier: GPL-3.0-or-later
// Browses the disk for BASIC source. Disks are read on threads of their own, so that the window never hangs on one.
#include "editor/frmCodeExplorer.h"

#include "platform/modBackground.h"
#include "platform/modDialogs.h"
#include "platform/modFiles.h"
#include "shell/frmTool.h"
#include "ui_frmCodeExplorer.h"

#include <QDir>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QTimer>

namespace ob {

namespace {

using namespace std::chrono_literals;

constexpr int PathRole = Qt::UserRole;

// A folder that is read this fast shows without an empty list before it.
constexpr auto patience = 100ms;
constexpr auto pollEvery = 20ms;

QStandardItem* FolderItem(const QString& path, const QString& name, const QIcon& icon)
{
    auto* item = new QStandardItem(icon, name);
    item->setData(path, PathRole);
    item->setEditable(false);
    return item;
}

} // namespace

frmCodeExplorer::frmCodeExplorer(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmCodeExplorer>()), folders(new QStandardItemModel(this)),
      files(new QStringListModel(this)), timer(new QTimer(this))
{
    ui->setupUi(this);
    ui->Dir1->setModel(folders);
    ui->Dir1->installEventFilter(this);
    ui->Fil->setModel(files);
    ui->splitter->setSizes({width() / 2, width() / 2});
    ui->txtDisplay->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(timer, &QTimer::timeout, this, [this] { RunCommand([this] { TakeResults(); }); });
    connect(ui->Drive1, &QComboBox::activated, this, [this] { RunCommand([this] { Drive1_Change(); }); });
    connect(ui->Dir1, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& chosen) { RunCommand([this, chosen] { Dir1_Change(chosen); }); });
    connect(ui->Fil->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { RunCommand([this] { Fil_Click(); }); });
    connect(ui->Fil, &QListView::doubleClicked, this, [this] { RunCommand([this] { cmdOpen_Click(); }); });
    connect(ui->cmdOpen, &QPushButton::clicked, this, [this] { RunCommand([this] { cmdOpen_Click(); }); });
    connect(ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);

    mountedDrives = RunInBackground([] { return MountedDrives(); });
    FillDrives(NearDrives());
    ShowFolder(QDir::currentPath());
    ui->Fil->setFocus();
}

frmCodeExplorer::~frmCodeExplorer() = default;

bool frmCodeExplorer::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const int key = static_cast<const QKeyEvent*>(event)->key();
    const QModelIndex current = ui->Dir1->currentIndex();
    // Enter goes into the folder and does not press the default button; Backspace goes out of it.
    if ((key == Qt::Key_Return || key == Qt::Key_Enter) && current.isValid()) {
        RunCommand([&] { Dir1_Change(current); });
        return true;
    }
    if (key == Qt::Key_Backspace) {
        const QStringList chain = FolderChain(folder);
        if (chain.size() > 1)
            RunCommand([&] { ShowFolder(chain[chain.size() - 2]); });
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmCodeExplorer::FillDrives(const QList<Drive>& found)
{
    for (const Drive& drive : found) {
        if (std::any_of(drives.begin(), drives.end(), [&](const Drive& each) { return each.path == drive.path; }))
            continue;
        drives.append(drive);
        ui->Drive1->addItem(drive.caption);
    }
    ui->Drive1->setCurrentIndex(DriveOf(drives, folder));
}

// The folders above show at once; what the folder holds comes when it has been read.
void frmCodeExplorer::ShowFolder(const QString& path)
{
    folder = path.isEmpty() ? QDir::rootPath() : path;
    folders->clear();
    QStandardItem* above = folders->invisibleRootItem();
    for (const QString& step : FolderChain(folder)) {
        const QString name = NameOf(step).isEmpty() ? QDir::toNativeSeparators(step) : NameOf(step);
        auto* item = FolderItem(step, name, style()->standardIcon(QStyle::SP_DirOpenIcon));
        above->appendRow(item);
        ui->Dir1->expand(item->index());
        above = item;
    }
    ui->Dir1->setCurrentIndex(above->index());
    ui->Drive1->setCurrentIndex(DriveOf(drives, folder));
    files->setStringList({});
    Fil_Click();
    ui->lblState->setText(QStringLiteral("Reading the folder..."));
    folderContents = RunInBackground([from = folder] { return ReadFolder(from); });
    if (IsReady(folderContents, patience))
        ShowContents(folderContents.get());
    timer->start(pollEvery);
}

void frmCodeExplorer::ShowContents(const FolderContents& contents)
{
    const QIcon icon = style()->standardIcon(QStyle::SP_DirClosedIcon);
    const QModelIndex current = ui->Dir1->currentIndex();
    QStandardItem* here = folders->invisibleRootItem();
    while (here->hasChildren())
        here = here->child(0);
    QList<QStandardItem*> items;
    for (const QString& name : contents.folders)
        items.append(FolderItem(QDir(folder).filePath(name), name, icon));
    here->appendRows(items);
    ui->Dir1->expand(here->index());
    ui->Dir1->scrollTo(current);
    files->setStringList(contents.files);
    ui->lblState->setText(contents.files.isEmpty() ? QStringLiteral("No BASIC files in this folder")
                                                   : QStringLiteral("BASIC files: %1").arg(contents.files.size()));
}

void frmCodeExplorer::TakeResults()
{
    if (IsReady(mountedDrives))
        FillDrives(mountedDrives.get());
    if (IsReady(folderContents))
        ShowContents(folderContents.get());
    if (!mountedDrives.valid() && !folderContents.valid())
        timer->stop();
}

QString frmCodeExplorer::ChosenPath() const
{
    return PathIn(folder, ui->Text1->text());
}

void frmCodeExplorer::Drive1_Change()
{
    ShowFolder(drives[ui->Drive1->currentIndex()].path);
}

void frmCodeExplorer::Dir1_Change(const QModelIndex& chosen)
{
    const QString path = chosen.data(PathRole).toString();
    ShowFolder(path);
}

void frmCodeExplorer::Fil_Click()
{
    const QModelIndexList chosen = ui->Fil->selectionModel()->selectedIndexes();
    ui->Text1->setText(chosen.isEmpty() ? QString() : chosen.first().data().toString());
    ui->txtDisplay->clear();
    // Without a name the question would go to the folder, whose disk may not answer.
    if (!chosen.isEmpty() && FileExists(ChosenPath()))
        ui->txtDisplay->setPlainText(CodePreview(ChosenPath()));
}

void frmCodeExplorer::cmdOpen_Click()
{
    const QString path = ChosenPath();
    if (ui->Text1->text().isEmpty() || !FileExists(path)) {
        MsgBox(QStringLiteral("File not found."), BoxIcon::None, BoxButtons::Ok, QStringLiteral("Error."));
        return;
    }
    accept();
    OpenExploredFile(path);
}

void mnuFileExplore_Click()
{
    ShowToolModally<frmCodeExplorer>();
}

} // namespace ob
