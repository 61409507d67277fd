// SPDX-License-Identifier: GPL-3.0-or-later
// The code window.
#include "editor/frmDocument.h"

#include "editor/document/modBookmarks.h"
#include "editor/document/modDocument.h"
#include "editor/document/modStyling.h"
#include "editor/files/modClose.h"
#include "editor/modEdit.h"
#include "editor/modLabels.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "scilexer/SciLexerOB_Api.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modIcons.h"

#include <QAbstractScrollArea>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLibrary>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScrollBar>
#include <QStringListModel>
#include <QStyle>
#include <QToolButton>
#include <QToolTip>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Of the head row, in twips.
constexpr int RowTop = 120;
constexpr int RowHeight = 285;
constexpr int LabelsLeft = 840;
constexpr int ButtonWidth = 735;
constexpr int BookmarkWidth = 200;

// Of the head row, in pixels.
constexpr int RowBottom = 30;
constexpr int RowPadding = 4;

int ToPixels(int twips)
{
    return twips / TwipsPerPixelX;
}

SciLexerOB_CreateFunction* FindCreate(const QString& path)
{
    // Loaded once and kept for the life of the process, as the control's code must outlive every window.
    return reinterpret_cast<SciLexerOB_CreateFunction*>(QLibrary::resolve(path, SciLexerOB_CreateName));
}

bool IsReturn(const QKeyEvent& key)
{
    return key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
}

// A drop-down list with a field that may show a label which is no longer in the list.
QComboBox* MakeLabelBox(QWidget* parent, const QString& name, const QString& accessibleName)
{
    auto* box = new QComboBox(parent);
    box->setObjectName(name);
    box->setAccessibleName(accessibleName);
    box->setModel(new QStringListModel(box));
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->lineEdit()->setPlaceholderText(u"[ branch labels ]"_s);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMaxVisibleItems(30);
    if (auto* view = qobject_cast<QListView*>(box->view()))
        view->setUniformItemSizes(true);
    return box;
}

QStringList TextsOf(const std::vector<LabelEntry>& index)
{
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(index.size()));
    for (const LabelEntry& entry : index)
        texts.append(QString::fromUtf8(entry.text));
    return texts;
}

void ShowLabelsIn(QComboBox& box, const QStringList& entries, const QString& current)
{
    static_cast<QStringListModel*>(box.model())->setStringList(entries);
    box.setCurrentIndex(static_cast<int>(entries.indexOf(current)));
    box.setEditText(current);
    box.lineEdit()->setCursorPosition(0);
}

} // namespace

cDocument* DocumentOf(QWidget* widget)
{
    auto* window = qobject_cast<frmDocument*>(widget);
    return window == nullptr ? nullptr : &window->Document();
}

frmDocument::frmDocument(cDocument& slot, QWidget* parent) : QWidget(parent), document(slot)
{
    setObjectName(u"frmDocument"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    MakeHeadRow();
    ShowCaption(document.Caption());
    document.window = this;
}

frmDocument::~frmDocument()
{
    LetGo();
}

void frmDocument::MakeHeadRow()
{
    struct ButtonRow {
        QToolButton*& button;
        const char* name;
        const char* icon;
        const char* tip;
        void (*click)(Sci);
    };
    const ButtonRow rows[] = {
        {cmdToggle, "cmdToggle", "bookmark-toggle", "Toggle Bookmark", ToggleBookmark},
        {cmdNext, "cmdNext", "bookmark-next", "Next Bookmark", NextBookmark},
        {cmdPrev, "cmdPrev", "bookmark-prev", "Previous Bookmark", PreviousBookmark},
        {cmdClear, "cmdClear", "bookmark-clear", "Clear All Bookmarks", ClearBookmarks},
    };
    int left = 0;
    for (const ButtonRow& row : rows) {
        row.button = new QToolButton(this);
        row.button->setObjectName(QString::fromLatin1(row.name));
        row.button->setIcon(BenchIcon(QString::fromLatin1(row.icon)));
        row.button->setIconSize(QSize(12, 12));
        row.button->setAutoRaise(true);
        row.button->setToolTip(QString::fromLatin1(row.tip));
        row.button->setAccessibleName(QString::fromLatin1(row.tip));
        row.button->setGeometry(ToPixels(left), ToPixels(RowTop), ToPixels(BookmarkWidth), ToPixels(RowHeight));
        On(row.button, this, [this, click = row.click] {
            click(document.sci);
            SendSci(document.sci, SCI_GRABFOCUS);
        });
        left += BookmarkWidth;
    }
    MakeLabelControls();
    chkWrap = new QCheckBox(u"Wrap"_s, this);
    chkWrap->setObjectName(u"chkWrap"_s);
    On(chkWrap, &QCheckBox::toggled, this, &frmDocument::chkWrap_Click);

    FitHeadRowFont();
}

// The window's font, made smaller only as far as the row's dimensions need it.
void frmDocument::FitHeadRowFont()
{
    constexpr double smallest = 6; // points
    constexpr double step = 0.5;
    const int check = style()->pixelMetric(QStyle::PM_IndicatorWidth) +
                      style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing);
    QFont fitting = font();
    const auto fits = [&] {
        const QFontMetrics metrics(fitting);
        return metrics.height() <= ToPixels(RowHeight) - RowPadding / 2 &&
               metrics.horizontalAdvance(cmdBranch->text()) <= ToPixels(ButtonWidth) - RowPadding &&
               metrics.horizontalAdvance(chkWrap->text()) <= ToPixels(ButtonWidth) - check;
    };
    while (!fits() && fitting.pointSizeF() > smallest)
        fitting.setPointSizeF(fitting.pointSizeF() - step);
    for (QWidget* control :
         {static_cast<QWidget*>(cboLabels), static_cast<QWidget*>(cboSorted), static_cast<QWidget*>(cmdBranch),
          static_cast<QWidget*>(cmdSort), static_cast<QWidget*>(chkWrap)})
        control->setFont(fitting);
}

void frmDocument::MakeLabelControls()
{
    cboLabels = MakeLabelBox(this, u"cboLabels"_s, u"Branch labels"_s);
    cboSorted = MakeLabelBox(this, u"cboSorted"_s, u"Branch labels, sorted"_s);
    cboSorted->hide();
    for (QComboBox* list : {cboLabels, cboSorted}) {
        // The wheel would jump through the text label by label.
        list->installEventFilter(this);
        On(list, &QComboBox::activated, this, [this, list] { GoToLabelOf(*list); });
        connect(list->lineEdit(), &QLineEdit::editingFinished, this, [this, list] { KeepLabel(*list); });
    }
    cmdBranch = new QPushButton(u"Refresh"_s, this);
    cmdBranch->setObjectName(u"cmdBranch"_s);
    cmdBranch->setToolTip(u"Refresh Branch Label List"_s);
    On(cmdBranch, this, &frmDocument::FillBranchBox);
    cmdSort = new QPushButton(u"Sort"_s, this);
    cmdSort->setObjectName(u"cmdSort"_s);
    cmdSort->setToolTip(u"Toggle Branch Label Sort Order"_s);
    On(cmdSort, this, &frmDocument::cmdSort_Click);
}

frmDocument::Birth frmDocument::LoadControl()
{
    const QString path = LibraryFile(u"SciLexerOB"_s);
    SciLexerOB_CreateFunction* makeControl = FileExists(path) ? FindCreate(path) : nullptr;
    if (makeControl == nullptr) {
        MsgBox(u"Error. Cannot find some components needed to run this program.  Please reinstall "
               "Orchard Bench."_s,
               BoxIcon::Critical);
        return Birth::LibraryMissing;
    }
    const SciLexerOB_Window made = makeControl(this);
    edit = made.window;
    edit->setObjectName(u"sci"_s);
    edit->setAccessibleName(u"Program text"_s);
    document.sci = made.sci;
    SetUpSci(document.sci, Editor);
    setFocusProxy(edit);
    edit->installEventFilter(this);
    return Birth::Done;
}

void frmDocument::EndLoad()
{
    SendSci(document.sci, SCI_GOTOPOS, 0);
    SendSci(document.sci, SCI_SETSAVEPOINT);
    SendSci(document.sci, SCI_SETFOCUS, 1);
}

void frmDocument::ShowCaption(const QString& caption)
{
    QString title = caption;
    setWindowTitle(title.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
    // The window has been emptied for another text.
    if (SendSci(document.sci, SCI_GETLENGTH) == 0)
        ShowLabels({}, {}, {});
}

QToolButton* frmDocument::BookmarkButtonOver(QPoint place) const
{
    if (place.y() >= RowBottom)
        return nullptr;
    for (QToolButton* button : {cmdToggle, cmdNext, cmdPrev, cmdClear})
        if (place.x() >= button->x() && place.x() < button->x() + button->width())
            return button;
    return nullptr;
}

// The buttons are small: the row's space above and below them is theirs too.
void frmDocument::mousePressEvent(QMouseEvent* event)
{
    QToolButton* button = BookmarkButtonOver(event->position().toPoint());
    if (event->button() == Qt::LeftButton && button != nullptr)
        button->click();
    else
        QWidget::mousePressEvent(event);
}

bool frmDocument::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        if (const QToolButton* button = BookmarkButtonOver(help->pos())) {
            QToolTip::showText(help->globalPos(), button->toolTip(), this);
            return true;
        }
    }
    return QWidget::event(event);
}

void frmDocument::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (edit != nullptr)
        edit->setGeometry(1, RowBottom, std::max(0, width() - 4), std::max(0, height() - RowBottom));

    const int top = ToPixels(RowTop);
    const int high = ToPixels(RowHeight);
    const int labels = std::max(10, width() * TwipsPerPixelX - LabelsLeft - 50 - 3 * ButtonWidth);
    int left = LabelsLeft;
    for (QWidget* box : {cboLabels, cboSorted})
        box->setGeometry(ToPixels(left), top, ToPixels(labels), high);
    left += labels + 10;
    for (QWidget* control :
         {static_cast<QWidget*>(cmdBranch), static_cast<QWidget*>(cmdSort), static_cast<QWidget*>(chkWrap)}) {
        control->setGeometry(ToPixels(left), top, ToPixels(ButtonWidth), high);
        left += ButtonWidth + 10;
    }
}

void frmDocument::Activate()
{
    if (document.sci == nullptr)
        return;
    HookSci(Hook::Off);
    MainForm->EnableItem(u"mnuEdit"_s, true);
    EnableCodeCommands(Switch::On);
    EnableRunCommands(Switch::On);
    FillBranchBox();
    HookSci(Hook::On);
    SendSci(document.sci, SCI_GRABFOCUS);
}

void frmDocument::Deactivate()
{
    HookSci(Hook::Off);
    if (document.sci != nullptr)
        MainForm->EnableItem(u"mnuEdit"_s, false);
}

void frmDocument::FillLabelLists()
{
    std::vector<LabelEntry> index = LabelIndex(QByteArrayView(SciText(document.sci)));
    const QStringList entries = TextsOf(index);
    // The label shown stays, even when it is no longer in the text.
    QString current = cboLabels->currentText();
    if (current.isEmpty() && !entries.isEmpty())
        current = entries.first();
    ShowLabels(entries, TextsOf(SortedLabels(std::move(index))), current);
}

void frmDocument::ShowLabels(const QStringList& entries, const QStringList& sorted, const QString& current)
{
    shownLabel = current;
    ShowLabelsIn(*cboLabels, entries, current);
    ShowLabelsIn(*cboSorted, sorted, current);
}

// A text that was typed into the list's field and is no label goes when the field is left.
void frmDocument::KeepLabel(QComboBox& list)
{
    if (list.findText(list.currentText(), Qt::MatchFixedString) < 0)
        list.setEditText(shownLabel);
}

void frmDocument::FillBranchBox()
{
    const std::intptr_t start = SelectionStartAfterFirst(document.sci);
    FillLabelLists();
    SendSci(document.sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(start));
}

void frmDocument::GoToLabelOf(const QComboBox& list)
{
    const QString target = list.currentText();
    // This field decides what the list shows next, whichever list is visible.
    cboLabels->setEditText(target);
    shownLabel = target;
    GoToLabel(document.sci, target.toUtf8());
}

void frmDocument::cmdSort_Click()
{
    const bool toSorted = cboSorted->isHidden();
    QComboBox* shown = toSorted ? cboSorted : cboLabels;
    QComboBox* hidden = toSorted ? cboLabels : cboSorted;
    const QString current = hidden->currentText();
    hidden->hide();
    shown->setCurrentIndex(shown->findText(current, Qt::MatchExactly | Qt::MatchCaseSensitive));
    shown->setEditText(current);
    shown->show();
    cmdSort->setText(toSorted ? u"No Sort"_s : u"Sort"_s);
    FollowSortToggle(document.sci);
}

void frmDocument::chkWrap_Click()
{
    SendSci(document.sci, SCI_SETWRAPMODE, chkWrap->isChecked() ? 1 : 0);
    SendSci(document.sci, SCI_GRABFOCUS);
}

void frmDocument::HookSci(Hook enable)
{
    if (edit == nullptr || hook == enable)
        return;
    hook = enable;
    auto* area = qobject_cast<QAbstractScrollArea*>(edit);
    if (enable == Hook::On) {
        for (QScrollBar* bar : {area->verticalScrollBar(), area->horizontalScrollBar()})
            On(bar, &QScrollBar::actionTriggered, this, [this] { HideSyntax(document); });
    } else {
        for (QScrollBar* bar : {area->verticalScrollBar(), area->horizontalScrollBar()})
            disconnect(bar, &QScrollBar::actionTriggered, this, nullptr);
    }
}

void frmDocument::FilterKey(const QKeyEvent& key)
{
    if (!IsReturn(key))
        return;
    if (key.type() == QEvent::KeyPress) {
        returnPressed = true;
    } else if (returnPressed && !key.isAutoRepeat()) {
        // A Return that was pressed in a box and is released here has broken no line.
        returnPressed = false;
        RunCommand([this] { AddTab(document); });
    }
}

bool frmDocument::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != edit)
        return event->type() == QEvent::Wheel || QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::ModifiedChange && edit->isWindowModified())
        Q_EMIT TextChanged(this);
    if (hook == Hook::Off)
        return QWidget::eventFilter(watched, event);
    if (event->type() == QEvent::ShortcutOverride) {
        // The menu's keys take precedence over the control's own bindings.
        const auto* key = static_cast<QKeyEvent*>(event);
        if (MainForm != nullptr && MainForm->HasShortcut(*key)) {
            event->ignore();
            return true;
        }
    }
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)
        FilterKey(*static_cast<QKeyEvent*>(event));
    if (event->type() == QEvent::FocusOut)
        returnPressed = false;
    return QWidget::eventFilter(watched, event);
}

void frmDocument::closeEvent(QCloseEvent* event)
{
    CloseEnd end = CloseEnd::Stays;
    RunCommand([&] { end = QueryUnload(document); });
    if (end == CloseEnd::Stays) {
        event->ignore();
        if (ActiveDocument() == &document)
            Activate();
        return;
    }
    HookSci(Hook::Off);
    if (document.sci != nullptr)
        document.Tag = TagClosed;
    LetGo();
    event->accept();
    Q_EMIT Unloaded(this);
}

void frmDocument::LetGo()
{
    if (document.window != this)
        return;
    document.sci = nullptr;
    document.window = nullptr;
}

} // namespace ob
