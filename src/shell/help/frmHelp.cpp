// SPDX-License-Identifier: GPL-3.0-or-later
// The program's own help.
#include "shell/help/frmHelp.h"

#include "platform/desktop/modPages.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/help/frmHelpPage.h"
#include "shell/help/frmHelpResults.h"
#include "shell/state/frmTool.h"
#include "shell/state/modNames.h"
#include "ui_frmHelp.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The data of an item of the contents tree.
constexpr int PageRole = Qt::UserRole;
constexpr int SectionRole = Qt::UserRole + 1;

constexpr int ContentsWidth = 270; // at first, in pixels

QIcon IconOf(const char* name)
{
    return QIcon(u":/icons/%1.svg"_s.arg(QLatin1String(name)));
}

QTreeWidgetItem* AddItem(QTreeWidgetItem* parent, const QString& caption, const ManualPlace& place)
{
    auto* item = new QTreeWidgetItem(parent, {caption});
    item->setData(0, PageRole, place.page);
    item->setData(0, SectionRole, place.section);
    item->setToolTip(0, caption);
    // A little space between the lines.
    item->setSizeHint(0, QSize(0, QFontMetrics(item->font(0)).height() + 6));
    return item;
}

// The sections of a page, once.
void AddSections(QTreeWidgetItem* item)
{
    const QString name = item->data(0, PageRole).toString();
    if (item->childCount() > 0 || !HasSections(name))
        return;
    const HelpPage* page = FindManualPage(name);
    if (page == nullptr)
        return;
    for (const ManualBlock& block : page->blocks)
        if (block.kind == BlockKind::Heading && block.level == 2)
            AddItem(item, block.text, {name, block.section});
}

} // namespace

frmHelp::frmHelp(QWidget* parent) : QDialog(parent, Qt::Window), ui(std::make_unique<Ui::frmHelp>())
{
    ui->setupUi(this);
    ui->splitter->setStretchFactor(0, 0);
    ui->splitter->setStretchFactor(1, 1);
    ui->splitter->setSizes({ContentsWidth, width() - ContentsWidth});
    ui->cmdBack->setIcon(IconOf("back"));
    ui->cmdForward->setIcon(IconOf("forward"));
    ui->cmdContents->setIcon(IconOf("home"));
    ui->txtSearch->addAction(IconOf("find"), QLineEdit::LeadingPosition);
    look = new frmHelpResults(this);
    ui->lstResults->setItemDelegate(look);
    QFont pageFont = font();
    pageFont.setPointSizeF(pageFont.pointSizeF() * 1.1);
    ui->txtPage->setFont(pageFont);
    FillContents();
    ConnectControls();
    MakeKeys();
    GoTo({ManualContentsPage, {}});
    ui->txtPage->setFocus();
}

frmHelp::~frmHelp() = default;

void frmHelp::ConnectControls()
{
    const auto run = [](auto&& handler) { RunCommand(handler); };
    connect(ui->cmdBack, &QToolButton::clicked, this, [=, this] { run([this] { cmdBack_Click(); }); });
    connect(ui->cmdForward, &QToolButton::clicked, this, [=, this] { run([this] { cmdForward_Click(); }); });
    connect(ui->cmdContents, &QToolButton::clicked, this, [=, this] { run([this] { cmdContents_Click(); }); });
    const auto openItem = [=, this](QTreeWidgetItem* item) { run([&] { treeContents_Click(item); }); };
    connect(ui->treeContents, &QTreeWidget::itemClicked, this, openItem);
    connect(ui->treeContents, &QTreeWidget::itemActivated, this, openItem);
    connect(ui->treeContents, &QTreeWidget::itemExpanded, this, AddSections);
    connect(ui->txtSearch, &QLineEdit::textChanged, this, [=, this] { run([this] { txtSearch_Change(); }); });
    connect(ui->txtSearch, &QLineEdit::returnPressed, this, [=, this] { run([this] { txtSearch_Return(); }); });
    const auto openResult = [=, this](QListWidgetItem* item) { run([&] { lstResults_Click(item); }); };
    connect(ui->lstResults, &QListWidget::itemClicked, this, openResult);
    connect(ui->lstResults, &QListWidget::itemActivated, this, openResult);
    connect(ui->txtPage, &QTextBrowser::anchorClicked, this,
            [=, this](const QUrl& link) { run([&] { txtPage_Click(link); }); });
}

void frmHelp::MakeKeys()
{
    // A button's own key would press it only after a moment.
    const auto press = [this](Qt::Key key, QToolButton* button) {
        connect(new QShortcut(QKeySequence(Qt::ALT | key), this), &QShortcut::activated, button, &QToolButton::click);
    };
    press(Qt::Key_Left, ui->cmdBack);
    press(Qt::Key_Right, ui->cmdForward);
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this), &QShortcut::activated, this, [this] {
        ui->txtSearch->setFocus(Qt::ShortcutFocusReason);
        ui->txtSearch->selectAll();
    });
    ui->txtSearch->installEventFilter(this);
}

// The Down key goes from the search field to the results.
bool frmHelp::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui->txtSearch && event->type() == QEvent::KeyPress &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down && ui->lstResults->count() > 0) {
        ui->lstResults->setFocus();
        ui->lstResults->setCurrentRow(std::max(0, ui->lstResults->currentRow()));
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmHelp::FillContents()
{
    const HelpPage* contents = FindManualPage(ManualContentsPage);
    if (contents == nullptr)
        return;
    QTreeWidgetItem* root = ui->treeContents->invisibleRootItem();
    QTreeWidgetItem* group = root;
    for (const ManualEntry& entry : ContentsOf(*contents)) {
        if (entry.page.isEmpty()) {
            group = AddItem(root, entry.caption, {});
            QFont bold = group->font(0);
            bold.setWeight(QFont::DemiBold);
            group->setFont(0, bold);
            group->setExpanded(true);
        } else {
            QTreeWidgetItem* item = AddItem(group, entry.caption, {entry.page, {}});
            if (HasSections(entry.page))
                item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
        }
    }
}

void frmHelp::LeavePage()
{
    if (!history.IsEmpty())
        history.Here().scroll = ui->txtPage->verticalScrollBar()->value();
}

void frmHelp::GoTo(const ManualPlace& place)
{
    LeavePage();
    if (Here() != place)
        history.Visit(place);
    ShowHere();
}

void frmHelp::ShowHere()
{
    const ManualPlace place = Here();
    ui->txtPage->ShowPage(place.page, place.section);
    const HelpPage* page = FindManualPage(place.page);
    const QString title = page == nullptr || page->name == ManualContentsPage ? QString() : page->title;
    setWindowTitle((title.isEmpty() ? QString() : title + u" - "_s) + ProgramTitle + u" Help"_s);
    ui->cmdBack->setEnabled(history.CanGoBack());
    ui->cmdForward->setEnabled(history.CanGoForward());
    ShowInContents();
}

void frmHelp::ShowInContents()
{
    const ManualPlace place = Here();
    QTreeWidgetItem* nearest = nullptr;
    for (QTreeWidgetItemIterator it(ui->treeContents); *it != nullptr; ++it) {
        if ((*it)->data(0, PageRole).toString() != place.page)
            continue;
        const QString section = (*it)->data(0, SectionRole).toString();
        if (section == place.section || section.isEmpty())
            nearest = *it;
        if (section.isEmpty()) {
            AddSections(*it);
            (*it)->setExpanded(true);
        }
        if (section == place.section)
            break;
    }
    ui->treeContents->setCurrentItem(nearest);
}

void frmHelp::cmdBack_Click()
{
    LeavePage();
    const int scroll = history.Back().scroll;
    ShowHere();
    ui->txtPage->verticalScrollBar()->setValue(scroll);
}

void frmHelp::cmdForward_Click()
{
    LeavePage();
    const int scroll = history.Forward().scroll;
    ShowHere();
    ui->txtPage->verticalScrollBar()->setValue(scroll);
}

void frmHelp::cmdContents_Click()
{
    GoTo({ManualContentsPage, {}});
}

void frmHelp::treeContents_Click(const QTreeWidgetItem* item)
{
    const ManualPlace place{item->data(0, PageRole).toString(), item->data(0, SectionRole).toString()};
    if (!place.page.isEmpty())
        GoTo(place);
}

void frmHelp::txtSearch_Change()
{
    const QStringList words = SearchWords(ui->txtSearch->text());
    const std::vector<ManualHit> hits = SearchManual(Manual(), ui->txtSearch->text());
    look->SetWords(words);
    ui->lstResults->clear();
    for (const ManualHit& hit : hits) {
        auto* item = new QListWidgetItem(hit.title, ui->lstResults);
        item->setData(frmHelpResults::SnippetsRole, hit.snippets);
        item->setData(frmHelpResults::PageRole, hit.place.page);
        item->setData(frmHelpResults::SectionRole, hit.place.section);
        item->setData(Qt::AccessibleDescriptionRole, hit.snippets.join(QLatin1Char('\n')));
    }
    if (hits.empty())
        ui->lblFound->setText(u"No page holds all of these words."_s);
    else
        ui->lblFound->setText(hits.size() == 1 ? u"1 page"_s : u"%1 pages"_s.arg(hits.size()));
    ui->stackContents->setCurrentWidget(words.isEmpty() ? ui->picTree : ui->picResults);
    if (words.isEmpty())
        ui->txtPage->MarkWords({});
}

void frmHelp::txtSearch_Return()
{
    if (ui->lstResults->count() == 0)
        return;
    ui->lstResults->setCurrentRow(0);
    lstResults_Click(ui->lstResults->currentItem());
}

void frmHelp::lstResults_Click(const QListWidgetItem* item)
{
    GoTo({item->data(frmHelpResults::PageRole).toString(), item->data(frmHelpResults::SectionRole).toString()});
    ui->txtPage->MarkWords(SearchWords(ui->txtSearch->text()));
}

void frmHelp::txtPage_Click(const QUrl& link)
{
    const QString target = link.toString();
    if (IsManualLink(target))
        GoTo(PlaceOfLink(target, Here().page));
    else if (OpenPage(target) == PageEnd::Failed)
        MsgBox(u"No program of this system could open "_s + target);
}

void frmHelp::Attach(QWidget* modal)
{
    if (modal == parentWidget())
        return;
    const QRect place = geometry();
    const bool wasShown = isVisible();
    setParent(modal, Qt::Window);
    if (wasShown) {
        setGeometry(place);
        show();
    }
    if (auto* dialog = qobject_cast<QDialog*>(modal)) {
        // It must outlive the modal window, and may find another one below it.
        connect(dialog, &QDialog::finished, this, [this] { Attach(QApplication::activeModalWidget()); });
    }
}

void ShowManual(const QString& page)
{
    static QPointer<frmHelp> open;
    QWidget* modal = QApplication::activeModalWidget();
    if (open.isNull()) {
        // It has no owner, so that the main window can cover it; it closes with the main window.
        open = new frmHelp(nullptr);
        open->setAttribute(Qt::WA_DeleteOnClose);
        open->setAttribute(Qt::WA_QuitOnClose, false);
        BindManualPage(*open, frmHelp::ManualPage);
        if (QWidget* owner = ToolOwner())
            QObject::connect(owner, &QObject::destroyed, open, [] { delete open; });
    }
    open->Attach(modal);
    open->GoTo({page.isEmpty() ? ManualContentsPage : page, {}});
    open->show();
    open->raise();
    open->activateWindow();
}

void mnuHelpInstruct_Click()
{
    ShowManual({});
}

} // namespace ob
