// SPDX-License-Identifier: GPL-3.0-or-later
// The packaging wizard.
#include "engine/package/frmPackage.h"

#include "engine/run/dlgProcess.h"
#include "engine/run/modFileIO.h"
#include "platform/desktop/modLaunch.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmFolderBrowser.h"
#include "platform/files/modFiles.h"
#include "platform/language/modRuntime.h"
#include "platform/work/cWork.h"
#include "shell/state/Module1.h"
#include "shell/state/frmTool.h"
#include "shell/state/modNames.h"
#include "ui_frmPackage.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QMimeData>
#include <QUrl>

#include <algorithm>
#include <functional>
#include <optional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// In milliseconds: how often progress is shown within one file.
constexpr qint64 showEvery = 30;

double Share(double done, double all)
{
    return all > 0 ? done / all : 0;
}

BoxAnswer Show(const MessageSpec& box)
{
    return MsgBox(box);
}

class Hourglass {
public:
    Hourglass() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { QApplication::restoreOverrideCursor(); }
};

// Files dragged from another program.
QStringList LocalFiles(const QMimeData& data)
{
    QStringList files;
    for (const QUrl& url : data.urls())
        if (url.isLocalFile() && FileExists(url.toLocalFile()))
            files.append(QDir::toNativeSeparators(url.toLocalFile()));
    return files;
}

} // namespace

// Shows the progress of the work, and its boxes. All calls but the constructor's and Cancel come from the work's
// thread.
class frmPackage::Watch final : public cPackageWatch {
public:
    explicit Watch(frmPackage& owner)
        : form(owner), focused(owner.focusWidget()), window(MakeWindow(dlgProcess::Leaving::Allowed))
    {
        form.working = this;
        form.ui->body->setEnabled(false);
    }
    ~Watch() override
    {
        form.working = nullptr;
        form.ui->body->setEnabled(true);
        if (focused != nullptr)
            focused->setFocus();
    }

    // Makes the package on a thread of its own, and comes back when it is made.
    PackageOutcome Make(PackageZip zip)
    {
        return RunWork([&](cWorkLink& link) {
            thread = &link;
            return MakePackage(form.plan, zip, *this);
        });
    }

    void Cancel()
    {
        if (window != nullptr)
            window->reject();
    }

    PackageRequest Processing(const PackageProgress& progress) override
    {
        const bool isNewFile = progress.name != shownName || progress.done == 0;
        if (isNewFile || !sinceShown.isValid() || sinceShown.elapsed() >= showEvery) {
            shownName = progress.name;
            thread->Ask([&] {
                window->ShowState(u"Processing "_s + progress.name,
                                  Share(static_cast<double>(progress.done), static_cast<double>(progress.all)));
            });
            sinceShown.restart();
        }
        return window->IsCancelled() ? PackageRequest::Stop : PackageRequest::GoOn;
    }

    void Tell(const MessageSpec& box) override
    {
        thread->Ask([&] { Show(box); });
    }

    void EngineIsNamed(const PackagedEngine& engine) override
    {
        thread->Ask([&] {
            if (Show(TestQuestion(form.plan, engine)) == BoxAnswer::Yes)
                RunCommand([&] { Launch(u'"' + engine.path + u'"', WindowMode::Minimized); });
        });
    }

    void FilesAreDone() override
    {
        thread->Ask([&] { window.reset(); });
    }

    void ZipBegins() override
    {
        thread->Ask([&] {
            window = MakeWindow(dlgProcess::Leaving::NotAllowed);
            window->ShowState(ZipText, 0);
            hourglass.emplace();
        });
    }

    ZipRequest Zipping(const ZipProgress& progress) override
    {
        if (sinceShown.elapsed() >= showEvery) {
            thread->Ask([&] {
                window->ShowState(ZipText,
                                  Share(static_cast<double>(progress.done), static_cast<double>(progress.all)));
            });
            sinceShown.restart();
        }
        return ZipRequest::GoOn;
    }

    void ZipEnds() override
    {
        thread->Ask([&] {
            window.reset();
            hourglass.reset();
        });
    }

    void ZipIsMade(const QString& base) override
    {
        thread->Ask([&] { Show(ZipMadeBox(base)); });
    }

private:
    static inline const QString ZipText = u"Creating Zip File"_s;

    std::unique_ptr<dlgProcess> MakeWindow(dlgProcess::Leaving leaving)
    {
        auto made = std::make_unique<dlgProcess>(leaving, &form);
        made->show();
        return made;
    }

    frmPackage& form;
    cWorkLink* thread = nullptr; // the window's
    QWidget* focused;            // a control loses the focus when it is disabled
    std::unique_ptr<dlgProcess> window;
    std::optional<Hourglass> hourglass;
    QString shownName;
    QElapsedTimer sinceShown;
};

frmPackage::frmPackage(const QString& token, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmPackage>()), plan(PlanPackage(token, GetOrchardPath()))
{
    ui->setupUi(this);
    ui->FileList->viewport()->installEventFilter(this);
    ui->FileList->installEventFilter(this);
    ui->TEMPList->viewport()->installEventFilter(this);
    ui->TEMPList->installEventFilter(this);
    setAcceptDrops(true);
    browser = new FolderBrowser({ui->Drive1, ui->Dir1, ui->FileList}, {u"*.*"_s}, this);
    const auto enable = [this] {
        ui->cmdAdd->setEnabled(ui->FileList->selectionModel()->hasSelection());
        ui->cmdRemove->setEnabled(ui->TEMPList->selectionModel()->hasSelection());
    };
    On(browser, &FolderBrowser::ChoiceChanged, this, enable);
    On(browser, &FolderBrowser::FolderChanged, this, enable);
    On(ui->TEMPList, &QListWidget::itemSelectionChanged, this, enable);
    On(ui->FileList, &QListView::doubleClicked, this, &frmPackage::cmdAdd_Click);
    On(ui->cmdAdd, this, &frmPackage::cmdAdd_Click);
    On(ui->cmdRemove, this, &frmPackage::cmdRemove_Click);
    On(ui->cmdFind, this, &frmPackage::cmdFind_Click);
    On(ui->cmdOkay, this, &frmPackage::cmdOkay_Click);
    connect(ui->cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    browser->Start();
    enable();
    Load();
}

frmPackage::~frmPackage() = default;

QString frmPackage::GetOrchardPath()
{
    if (EqualsIgnoreCase(OBPath, NoPath))
        FindOrchard();
    return FolderOf(OBPath);
}

void frmPackage::Load()
{
    FillTEMPList();
    ShowEngine();
    ui->FileList->setFocus();
    if (plan.version == InstalledEngine::None)
        Show(NoEngineBox());
}

void frmPackage::ShowEngine()
{
    ui->lblEngine->setText(NoEngineText(plan));
    const bool isMissing = plan.version == InstalledEngine::None;
    ui->lblEngine->setVisible(isMissing);
    ui->cmdFind->setVisible(isMissing);
}

void frmPackage::cmdFind_Click()
{
    FindOrchard();
    plan = WithEngine(plan, FolderOf(OBPath));
    FillTEMPList();
    ShowEngine();
    ui->FileList->setFocus();
}

void frmPackage::FillTEMPList()
{
    ui->TEMPList->clear();
    const QIcon missing = style()->standardIcon(QStyle::SP_MessageBoxWarning);
    const QIcon there = style()->standardIcon(QStyle::SP_FileIcon);
    qsizetype missingCount = 0;
    for (const QString& file : plan.files) {
        const bool isThere = FileOnDisk(file).has_value();
        missingCount += isThere ? 0 : 1;
        auto* item = new QListWidgetItem(isThere ? there : missing, NameOf(file), ui->TEMPList);
        item->setToolTip(isThere ? file : u"Not found: "_s + file);
    }
    ui->lblState->setText(missingCount == 0 ? u"Files: %1"_s.arg(plan.files.size())
                                            : u"Files: %1, not found: %2"_s.arg(plan.files.size()).arg(missingCount));
}

void frmPackage::AddFiles(const QStringList& paths)
{
    if (paths.isEmpty())
        return;
    plan.files += paths;
    FillTEMPList();
    ui->TEMPList->scrollToBottom();
}

void frmPackage::cmdAdd_Click()
{
    QStringList paths;
    QModelIndexList chosen = ui->FileList->selectionModel()->selectedIndexes();
    std::sort(chosen.begin(), chosen.end());
    for (const QModelIndex& file : std::as_const(chosen))
        paths.append(QDir::toNativeSeparators(PathIn(browser->Folder(), file.data().toString())));
    AddFiles(paths);
}

void frmPackage::cmdRemove_Click()
{
    QList<int> places;
    for (const QModelIndex& line : ui->TEMPList->selectionModel()->selectedIndexes())
        places.append(line.row());
    if (places.isEmpty())
        return;
    std::sort(places.begin(), places.end(), std::greater<>());
    for (const int place : std::as_const(places))
        plan.files.removeAt(place);
    FillTEMPList();
    // Selects the next line, ready for the next key.
    ui->TEMPList->setCurrentRow(std::min(places.last(), ui->TEMPList->count() - 1));
}

void frmPackage::TEMPList_DragDrop(const QDropEvent& drop)
{
    if (drop.source() == ui->FileList)
        cmdAdd_Click();
    else
        AddFiles(LocalFiles(*drop.mimeData()));
}

void frmPackage::FileList_DragDrop()
{
    cmdRemove_Click();
}

void frmPackage::cmdOkay_Click()
{
    Watch watch(*this);
    const PackageZip zip = ui->chkZip->isChecked() ? PackageZip::Yes : PackageZip::No;
    const PackageOutcome outcome = watch.Make(zip);
    if (outcome.end == PackageEnd::ZipFailed)
        MsgBox(outcome.reason);
    if (outcome.end != PackageEnd::Aborted)
        accept();
}

void frmPackage::reject()
{
    if (working != nullptr)
        working->Cancel();
    else
        QDialog::reject();
}

bool frmPackage::eventFilter(QObject* watched, QEvent* event)
{
    const bool isFileList = watched == ui->FileList->viewport();
    const bool isTempList = watched == ui->TEMPList->viewport();
    switch (event->type()) {
    case QEvent::KeyPress: {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (watched == ui->FileList && (key == Qt::Key_Return || key == Qt::Key_Enter)) {
            RunCommand([this] { cmdAdd_Click(); });
            return true;
        }
        if (watched == ui->TEMPList && key == Qt::Key_Delete) {
            RunCommand([this] { cmdRemove_Click(); });
            return true;
        }
        break;
    }
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        auto& drop = *static_cast<QDropEvent*>(event);
        const bool adds = isTempList && (drop.source() == ui->FileList || !LocalFiles(*drop.mimeData()).isEmpty());
        const bool removes = isFileList && drop.source() == ui->TEMPList;
        if (!adds && !removes) {
            // Lines of a list keep their order when they are dropped into it.
            event->ignore();
            return isFileList || isTempList;
        }
        drop.setDropAction(Qt::CopyAction);
        drop.accept();
        if (event->type() == QEvent::Drop)
            RunCommand([&] { adds ? TEMPList_DragDrop(drop) : FileList_DragDrop(); });
        return true;
    }
    default:
        break;
    }
    return QDialog::eventFilter(watched, event);
}

// Anywhere but on the package's list means out of the package.
void frmPackage::dragEnterEvent(QDragEnterEvent* event)
{
    const QPoint place = ui->TEMPList->mapFrom(this, event->position().toPoint());
    if (event->source() == ui->TEMPList && !ui->TEMPList->rect().contains(place))
        event->acceptProposedAction();
}

void frmPackage::dropEvent(QDropEvent* event)
{
    if (event->source() != ui->TEMPList)
        return;
    event->acceptProposedAction();
    RunCommand([this] { FileList_DragDrop(); });
}

void mnuPackage_Click()
{
    const QString chosen =
        FileBox({FilePurpose::Open, u"Choose TKN"_s, QDir::currentPath(), {}, u"Orchard BASIC TKN (*.tkn)|*.tkn"_s});
    if (!IsTokenName(chosen))
        return;
    frmPackage tool(chosen, ToolOwner());
    PrepareTool(tool, frmPackage::ManualPage);
    tool.exec();
}

} // namespace ob
