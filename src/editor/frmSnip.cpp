// SPDX-License-Identifier: GPL-3.0-or-later
// The snippet bench.
#include "editor/frmSnip.h"

#include "editor/document/modUserTexts.h"
#include "editor/modSnippets.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmPlainText.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "shell/state/Module1.h"
#include "shell/state/frmTool.h"
#include "ui_frmSnip.h"

#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QStringListModel>
#include <QTextBlock>

#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

bool ClipboardHoldsText()
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && data->hasText();
}

} // namespace

frmSnip::frmSnip(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmSnip>()), folder(SnippetsPath(ProgramFolder())),
      names(new QStringListModel(this))
{
    EnsureSnippetFolder(ProgramFolder());
    ui->setupUi(this);
    ui->lstSnip->setModel(names);
    ui->splitter->setSizes({width() / 3, width() - width() / 3});
    ui->txtSnipDisplay->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ConnectControls();
    Refresh({});
    ui->lstSnip->setFocus();
}

frmSnip::~frmSnip() = default;

void frmSnip::ConnectControls()
{
    ui->lstSnip->installEventFilter(this);
    ui->lstSnip->viewport()->installEventFilter(this);
    ui->txtSnipDisplay->installEventFilter(this);
    On(ui->lstSnip->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        ui->cmdDelete->setEnabled(!ChosenName().isEmpty());
        if (refreshing)
            return;
        pressLoaded = true;
        lstSnip_Click();
    });
    // A click on the selected snippet reloads it from disk.
    On(ui->lstSnip, &QListView::clicked, this, [this] {
        if (!std::exchange(pressLoaded, true))
            lstSnip_Click();
    });
    // The message is about the text before the change.
    connect(ui->txtSnipDisplay, &QPlainTextEdit::textChanged, ui->lblState, &QLabel::clear);
    On(ui->lstSnip, &QListView::doubleClicked, this, &frmSnip::lstSnip_DblClick);
    On(ui->cmdNew, this, &frmSnip::cmdNew_Click);
    On(ui->cmdSave, this, &frmSnip::cmdSave_Click);
    On(ui->cmdDelete, this, &frmSnip::cmdDelete_Click);
    On(ui->cmdCopy, this, &frmSnip::cmdCopy_Click);
    On(ui->cmdPaste, this, &frmSnip::cmdPaste_Click);
    On(ui->cmdPasteNew, this, &frmSnip::cmdPasteNew_Click);
    connect(ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

bool frmSnip::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == ui->lstSnip->viewport() && event->type() == QEvent::MouseButtonPress)
        pressLoaded = false;
    if (event->type() != QEvent::KeyPress)
        return QDialog::eventFilter(watched, event);
    const auto& press = *static_cast<const QKeyEvent*>(event);
    if (watched == ui->lstSnip && IsListKey(press))
        return true;
    if (watched == ui->txtSnipDisplay && press.key() == Qt::Key_Tab && press.modifiers() == Qt::NoModifier) {
        TypeTab();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

// Enter acts like a double click and does not press the default button.
bool frmSnip::IsListKey(const QKeyEvent& press)
{
    if (ChosenName().isEmpty() || press.modifiers() & ~Qt::KeypadModifier)
        return false;
    if (press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter)
        RunCommand([this] { lstSnip_DblClick(); });
    else if (press.key() == Qt::Key_Delete)
        ui->cmdDelete->click();
    else
        return false;
    return true;
}

// Spaces up to the next tab column, as in a code window.
void frmSnip::TypeTab()
{
    QTextCursor cursor = ui->txtSnipDisplay->textCursor();
    const QTextBlock line = ui->txtSnipDisplay->document()->findBlock(cursor.selectionStart());
    const int size = qMax(1, Editor.TabSize);
    const int column = cursor.selectionStart() - line.position();
    cursor.insertText(QString(size - column % size, QLatin1Char(' ')));
    ui->txtSnipDisplay->setTextCursor(cursor);
}

// Reads the folder again and selects a snippet, if it exists, without reloading it.
void frmSnip::Refresh(const QString& chosen)
{
    const QScopedValueRollback<bool> quiet(refreshing, true);
    names->setStringList(SnippetNames(folder));
    const qsizetype row = names->stringList().indexOf(chosen);
    if (row >= 0)
        ui->lstSnip->setCurrentIndex(names->index(static_cast<int>(row)));
    ui->cmdDelete->setEnabled(row >= 0);
}

QString frmSnip::ChosenName() const
{
    const QModelIndexList chosen = ui->lstSnip->selectionModel()->selectedIndexes();
    return chosen.isEmpty() ? QString() : chosen.first().data().toString();
}

QString frmSnip::ChosenPath() const
{
    return QDir::toNativeSeparators(folder + QLatin1Char('/') + ChosenName());
}

// Unsaved typing can be brought back with Undo.
void frmSnip::ShowText(const QString& text)
{
    if (ui->txtSnipDisplay->document()->isModified()) {
        ui->txtSnipDisplay->selectAll();
        ui->txtSnipDisplay->insertPlainText(text);
        ui->txtSnipDisplay->moveCursor(QTextCursor::Start);
    } else {
        ui->txtSnipDisplay->setPlainText(text);
    }
    ui->txtSnipDisplay->document()->setModified(false);
    ui->lblState->clear();
}

void frmSnip::lstSnip_Click()
{
    if (ChosenName().isEmpty())
        return;
    const QString text = SnippetText(ChosenPath());
    ui->txtName->setText(ChosenName());
    ShowText(text);
}

void frmSnip::lstSnip_DblClick()
{
    if (InsertSnippet(PlainTextOf(*ui->txtSnipDisplay)) == SnippetInsert::Done)
        ui->lblState->setText(u"Inserted into the active code window."_s);
}

void frmSnip::cmdNew_Click()
{
    ShowText({});
    ui->txtName->clear();
    ui->lstSnip->clearSelection();
    ui->txtName->setFocus();
}

void frmSnip::cmdSave_Click()
{
    ui->lblState->clear();
    if (ui->txtName->text().isEmpty())
        ui->txtName->setText(u"Untitled Snippet"_s);
    const QString path = FileBox(
        {FilePurpose::Save, u"Save As"_s, folder, OfferedSnippetName(ui->txtName->text()), SnippetFilter, u"snip"_s});
    if (path.isEmpty() || SaveSnippet(path, PlainTextOf(*ui->txtSnipDisplay)) == SnippetSave::Declined)
        return;
    ui->txtSnipDisplay->document()->setModified(false);
    ui->txtName->setText(NameOf(path));
    const bool isHere = QFileInfo(path).canonicalPath() == QFileInfo(folder).canonicalFilePath();
    Refresh(isHere ? NameOf(path) : QString());
    ui->lblState->setText(ChosenName().isEmpty() ? u"Saved. The list shows *.snip files of its own folder only."_s
                                                 : u"Saved."_s);
}

void frmSnip::cmdDelete_Click()
{
    const QString path = ChosenPath();
    if (MsgBox(u"Delete "_s + path + u" ?"_s, BoxIcon::Question, BoxButtons::OkCancel, u"Confirm"_s) ==
        BoxAnswer::Cancel)
        return;
    DeleteSnippet(path);
    Refresh({});
    // Undo brings the text back, so that a deleted snippet can be saved again.
    ui->txtSnipDisplay->document()->setModified(true);
    ShowText({});
    ui->txtName->clear();
    ui->lstSnip->setFocus();
}

void frmSnip::cmdCopy_Click()
{
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setText(WithLineEnds(PlainTextOf(*ui->txtSnipDisplay)));
    MsgBox(u"This snippet has been copied to the clipboard. Paste it into your code."_s, BoxIcon::None, BoxButtons::Ok,
           u"Okay"_s);
}

void frmSnip::cmdPaste_Click()
{
    if (ClipboardHoldsText())
        ui->txtSnipDisplay->insertPlainText(QGuiApplication::clipboard()->text());
    ui->txtSnipDisplay->setFocus();
}

void frmSnip::cmdPasteNew_Click()
{
    if (!ClipboardHoldsText())
        return;
    ShowText(QGuiApplication::clipboard()->text());
    ui->txtSnipDisplay->document()->setModified(true);
    ui->txtName->clear();
    ui->lstSnip->clearSelection();
    ui->txtName->setFocus();
}

void mnuToolSnipBench_Click()
{
    ShowTool<frmSnip>();
}

} // namespace ob
