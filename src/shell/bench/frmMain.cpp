// SPDX-License-Identifier: GPL-3.0-or-later
// The main window.
#include "shell/bench/frmMain.h"

#include "codetools/frmTip.h"
#include "editor/document/cDocument.h"
#include "editor/files/modSave.h"
#include "editor/frmDocument.h"
#include "guibuilder/cDesigner.h"
#include "guibuilder/frmGui.h"
#include "guibuilder/frmPalette.h"
#include "guibuilder/frmSurface.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/frmManners.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/dialogs/modFileBox.h"
#include "shell/bench/frmMainMenu.h"
#include "shell/bench/frmMainWindows.h"
#include "shell/bench/frmMenuBar.h"
#include "shell/bench/frmStartPage.h"
#include "shell/bench/frmStatusBar.h"
#include "shell/bench/frmTools.h"
#include "shell/bench/modLaunchers.h"
#include "shell/bench/modStart.h"
#include "shell/help/frmHelp.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/frmStyle.h"
#include "shell/state/frmTool.h"
#include "shell/state/modNames.h"
#include "shell/state/modOptions.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QScreen>
#include <QTimer>
#include <QToolBar>
#include <QUrl>

#include <memory>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int TwipsPerInch = 1440;

} // namespace

static frmMain* instance = nullptr;

frmMain* frmMain::Instance()
{
    return instance;
}

frmMain::frmMain()
{
    UseBenchStyle();
    instance = this;
    GuiWindow = this;
    new frmManners(this);
    HostFileBoxes();
    SetToolOwner(this);
    SetManualViewer(ShowManual);
    SetManualTools(ToolsForManual);
    setObjectName(u"frmMain"_s);
    setWindowTitle(ProgramTitle);
    setAcceptDrops(true);
    // The toolkit's own menu of toolbars would hide ours without its menu item knowing.
    setContextMenuPolicy(Qt::NoContextMenu);
    TwipsPerPixelX = std::max(1, qRound(TwipsPerInch / screen()->logicalDotsPerInchX()));
    TwipsPerPixelY = std::max(1, qRound(TwipsPerInch / screen()->logicalDotsPerInchY()));

    setMenuBar(new frmMenuBar(this));
    items = BuildMenu(*menuBar());
    MakeCentre();
    MakeToolbar();
    KeepWindowList(*this);
    sbStatusBar = new frmStatusBar(this);
    setStatusBar(sbStatusBar);
}

frmMain::~frmMain()
{
    // The children must not see a half-destroyed frame.
    disconnect(mdi, nullptr, this, nullptr);
    delete mdi;
    SetReasonSink(SetStatusText);
    if (MainForm == this)
        MainForm = nullptr;
    if (GuiWindow == this)
        GuiWindow = nullptr;
    SetFileBoxHost({});
    if (instance == this)
        instance = nullptr;
}

void frmMain::MakeCentre()
{
    auto* centre = new QWidget(this);
    designer = std::make_unique<cDesigner>(GuiDesign(), ScreenScale());
    picGui = new frmPalette(*designer, centre);
    picGui->hide();
    connect(picGui, &frmPalette::CloseWanted, this, [this] { ShowPalette(false); });
    mdi = new QMdiArea(centre);
    mdi->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    mdi->setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    connect(mdi, &QMdiArea::subWindowActivated, this, &frmMain::SubWindowActivated);
    startPage = new frmStartPage(*mdi);
    auto* row = new QHBoxLayout(centre);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(picGui);
    row->addWidget(mdi, 1);
    setCentralWidget(centre);
}

void frmMain::MakeToolbar()
{
    tbToolBar = addToolBar(u"Bench Toolbar"_s);
    tbToolBar->setObjectName(u"tbToolBar"_s);
    tbToolBar->setMovable(false);
    tbToolBar->setIconSize(QSize(20, 20));
    tbToolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    tbToolBar->installEventFilter(this);
    toolbar = BuildToolbar(*tbToolBar, items);
    items[u"mnuOptionsToolbar"_s]->setChecked(true);
}

void frmMain::RefreshUserButtonMenu()
{
    ShowUserApplicationItems(toolbar.userItems);
}

bool frmMain::eventFilter(QObject* watched, QEvent* event)
{
    // A disabled button passes its clicks on to the toolbar; only the free area counts.
    if (watched == tbToolBar && event->type() == QEvent::MouseButtonDblClick) {
        const QAction* under = tbToolBar->actionAt(static_cast<QMouseEvent*>(event)->position().toPoint());
        if (under == nullptr || under->isSeparator())
            RunCommand([this] { AskToHideToolbar(); });
    }
    return QMainWindow::eventFilter(watched, event);
}

void frmMain::AskToHideToolbar()
{
    if (MsgBox(u"Would you like to hide this toolbar? (Options menu will allow you to display it "
               "again.)"_s,
               BoxIcon::Question, BoxButtons::YesNo, u"Hide Toolbar?"_s) == BoxAnswer::Yes)
        ShowToolbar(false);
}

void frmMain::Load(std::optional<QSize> size)
{
    LoadState();
    SetReasonSink([this](const QString& text) { ShowPassingStatus(text); });
    const StartState state = PlaceWindow(size);
    RefreshUserButtonMenu();
    OpenAtLoad();
    startPage->Follow();
    if (state == StartState::Maximized)
        showMaximized();
    else
        show();
    setWindowTitle(MainCaption());
    // The files of the command line need not wait until the tip has been read.
    if (ShowTips)
        QTimer::singleShot(0, this, [] { RunCommand(OpenToolModally<frmTip>); });
}

ActiveChild frmMain::ActiveKind() const
{
    if (activeChild == nullptr)
        return ActiveChild::None;
    return DocumentOf(activeChild) != nullptr ? ActiveChild::Code : ActiveChild::Gui;
}

cDocument* frmMain::ActiveDocument() const
{
    return DocumentOf(activeChild);
}

QMdiSubWindow* frmMain::SubWindowOf(const QWidget* child) const
{
    for (QMdiSubWindow* window : mdi->subWindowList())
        if (window->widget() == child)
            return window;
    return nullptr;
}

frmDocument* frmMain::AddWindow(cDocument& document)
{
    auto child = std::make_unique<frmDocument>(document);
    if (child->LoadControl() == frmDocument::Birth::LibraryMissing)
        return nullptr;
    connect(child.get(), &frmDocument::Unloaded, this, [this](frmDocument* gone) { ForgetChild(gone); });
    connect(child.get(), &frmDocument::TextChanged, this, [this](frmDocument* changed) {
        if (statusTexts.value(changed).startsWith(SavedStatus))
            SetStatusOf(changed, {});
        EndPassingStatus(changed);
    });
    const QMdiSubWindow* current = mdi->currentSubWindow();
    const bool maximized = current == nullptr || current->isMaximized();
    QMdiSubWindow* window = AddChild(*child);
    if (maximized)
        window->showMaximized();
    else
        window->show();
    return child.release();
}

QMdiSubWindow* frmMain::AddChild(QWidget& child)
{
    QMdiSubWindow* window = mdi->addSubWindow(&child);
    window->setAttribute(Qt::WA_DeleteOnClose);
    // Its own shortcuts for closing and the like would conflict with the menu's.
    for (QAction* action : window->actions() + window->systemMenu()->actions())
        action->setShortcuts(QList<QKeySequence>());
    return window;
}

void frmMain::ShowDocument(cDocument& document)
{
    auto* child = static_cast<frmDocument*>(document.window);
    const bool born = child == nullptr;
    if (born)
        child = AddWindow(document);
    if (child == nullptr)
        return;
    QMdiSubWindow* window = SubWindowOf(child);
    if (window->isMinimized())
        window->showNormal();
    mdi->setActiveSubWindow(window);
    ActivateChild(child);
    if (born)
        child->EndLoad();
}

void frmMain::UnloadDocument(cDocument& document)
{
    if (QMdiSubWindow* window = SubWindowOf(static_cast<frmDocument*>(document.window)))
        window->close();
}

void frmMain::SubWindowActivated(QMdiSubWindow* window)
{
    // The area reports no window while another window of the desktop is in front; the active child stays active.
    if (window == nullptr && !mdi->subWindowList().isEmpty())
        return;
    ActivateChild(window == nullptr ? nullptr : window->widget());
}

void frmMain::ActivateChild(QWidget* child)
{
    if (child == activeChild)
        return;
    if (auto* before = qobject_cast<frmDocument*>(activeChild))
        before->Deactivate();
    EndPassingStatus(activeChild);
    activeChild = child;
    sbStatusBar->SetText(statusTexts.value(child));
    if (auto* after = qobject_cast<frmDocument*>(activeChild))
        after->Activate();
    else if (activeChild != nullptr)
        gui->Activate();
}

void frmMain::SetStatusPanel(const QString& text)
{
    SetStatusOf(activeChild, text);
}

// The reason of an error is news of the moment.
void frmMain::ShowPassingStatus(const QString& text)
{
    SetStatusOf(activeChild, text);
    passingStatus.insert(activeChild);
}

void frmMain::EndPassingStatus(const QWidget* child)
{
    if (passingStatus.contains(child))
        SetStatusOf(child, {});
}

void frmMain::SetStatusOf(const QWidget* child, const QString& text)
{
    passingStatus.remove(child);
    statusTexts.insert(child, text);
    if (child == activeChild)
        sbStatusBar->SetText(text);
}

void frmMain::ForgetChild(const QWidget* child)
{
    statusTexts.remove(child);
    passingStatus.remove(child);
    if (activeChild != child)
        return;
    activeChild = nullptr;
    sbStatusBar->SetText(statusTexts.value(nullptr));
}

void frmMain::EnableItem(const QString& name, bool enable)
{
    if (QAction* item = Item(name))
        item->setEnabled(enable);
}

void frmMain::ChooseItem(const QString& name)
{
    if (QAction* item = Item(name))
        item->trigger();
}

void frmMain::EnableButton(const QString& name, bool enable)
{
    if (QAction* button = toolbar.buttons.value(name))
        button->setEnabled(enable);
}

void frmMain::EnableCodeTools(bool enable)
{
    for (const ToolRow& tool : Tools())
        if (tool.needs == ToolNeeds::CodeWindow)
            EnableItem(QString::fromLatin1(tool.name), enable);
}

void frmMain::SetItemCaption(const QString& name, const QString& caption)
{
    QString text = caption;
    if (QAction* item = Item(name))
        item->setText(text.replace(QLatin1Char('&'), QLatin1String("&&")));
}

// Its menu is disabled as long as it would open empty.
void frmMain::ShowItem(const QString& name)
{
    QAction* item = Item(name);
    if (item == nullptr)
        return;
    item->setVisible(true);
    if (auto* menu = qobject_cast<QMenu*>(item->associatedObjects().value(0)))
        menu->menuAction()->setEnabled(true);
}

void frmMain::SendToBack()
{
    lower();
}

void frmMain::Unload()
{
    close();
}

bool frmMain::HasShortcut(const QKeyEvent& key) const
{
    const QKeySequence pressed(key.keyCombination());
    for (const QAction* item : items) {
        if (!item->isEnabled() || !item->isVisible() || !item->shortcuts().contains(pressed))
            continue;
        const auto* menu = qobject_cast<const QMenu*>(item->associatedObjects().value(0));
        if (menu == nullptr || menu->isEnabled())
            return true;
    }
    return false;
}

void frmMain::ShowToolbar(bool show)
{
    tbToolBar->setVisible(show);
    Item(u"mnuOptionsToolbar"_s)->setChecked(show);
}

void frmMain::ShowPalette(bool show)
{
    picGui->setVisible(show);
    Item(u"mnuViewGuiBar"_s)->setChecked(show);
}

void mnuOptionsToolbar_Click()
{
    frmMain* frame = frmMain::Instance();
    frame->ShowToolbar(frame->Item(u"mnuOptionsToolbar"_s)->isChecked());
}

void mnuViewGuiBar_Click()
{
    frmMain* frame = frmMain::Instance();
    frame->ShowPalette(frame->Item(u"mnuViewGuiBar"_s)->isChecked());
}

void mnuHelpContents_Click()
{
    if (OpenLanguageHelp() == HelpEnd::NoFile)
        OpenManual(u"language"_s);
}

void frmMain::closeEvent(QCloseEvent* event)
{
    // The most recently active one is closed first; a child that stays open keeps the frame open.
    QList<QMdiSubWindow*> open = mdi->subWindowList(QMdiArea::ActivationHistoryOrder);
    while (!open.isEmpty()) {
        if (!open.takeLast()->close()) {
            event->ignore();
            return;
        }
    }
    StorePlace();
    SaveAllSettings();
    event->accept();
}

void frmMain::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void frmMain::dropEvent(QDropEvent* event)
{
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths.append(QDir::toNativeSeparators(url.toLocalFile()));
    event->acceptProposedAction();
    OpenFiles(paths, FileSource::Drop);
}

} // namespace ob
