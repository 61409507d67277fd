// SPDX-License-Identifier: GPL-3.0-or-later
// The find and replace dialog.
#include "editor/frmFind.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/frmReplaceWatch.h"
#include "platform/dialogs/frmCommand.h"
#include "shell/state/frmTool.h"
#include "ui_frmFind.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QHideEvent>
#include <QScreen>
#include <QShowEvent>
#include <QWindow>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The dialog's last position, for as long as the program runs.
QByteArray lastGeometry;

// The distance in pixels between a match and the dialog.
constexpr int clearance = 6;

// Where the dialog first appears: in the upper right of the main window, as code is on the left.
constexpr QPoint fromUpperRight(40, 110);

QWidget* EditOf(const cDocument* document)
{
    auto* window = document == nullptr ? nullptr : dynamic_cast<QWidget*>(document->window);
    return window == nullptr ? nullptr : window->findChild<QWidget*>(u"sci"_s);
}

// The lines of the selection in screen coordinates; empty when none is visible.
QRect SelectionPlace(const cDocument* document)
{
    const auto* edit = qobject_cast<QAbstractScrollArea*>(EditOf(document));
    if (edit == nullptr)
        return {};
    const auto pointOf = [&](unsigned end) {
        const std::intptr_t position = SendSci(document->sci, end);
        return QPoint(static_cast<int>(SendSci(document->sci, SCI_POINTXFROMPOSITION, 0, position)),
                      static_cast<int>(SendSci(document->sci, SCI_POINTYFROMPOSITION, 0, position)));
    };
    const QPoint start = pointOf(SCI_GETSELECTIONSTART);
    const QPoint end = pointOf(SCI_GETSELECTIONEND);
    if (start == end)
        return {};
    const int height = static_cast<int>(SendSci(document->sci, SCI_TEXTHEIGHT));
    QRect place(start, QPoint(end.x(), end.y() + height));
    if (start.y() != end.y()) {
        place.setLeft(0);
        place.setRight(edit->viewport()->width());
    }
    place &= edit->viewport()->rect();
    return {edit->viewport()->mapToGlobal(place.topLeft()), place.size()};
}

} // namespace

frmFind::frmFind(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmFind>())
{
    ui->setupUi(this);
    ui->Check1->setChecked((Finding().FindFlags & FindMatchCase) != 0);
    ui->Check2->setChecked((Finding().FindFlags & FindWholeWord) != 0);
    (Finding().FindFromStart ? ui->optStart0 : ui->optStart1)->setChecked(true);
    ui->Text1->setFocus();
    if (!lastGeometry.isEmpty())
        restoreGeometry(lastGeometry);
    else if (parent != nullptr)
        move(parent->geometry().topRight() + QPoint(-width() - fromUpperRight.x(), fromUpperRight.y()));
    On(ui->OKButton, this, &frmFind::OKButton_Click);
    On(ui->cmdReplace, this, &frmFind::cmdReplace_Click);
    On(ui->cmdReplaceAll, this, &frmFind::cmdReplaceAll_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    On(qApp, &QGuiApplication::focusWindowChanged, this, &frmFind::FocusMoved);
}

frmFind::~frmFind() = default;

bool frmFind::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && wasLeft)
        RunCommand([this] { Form_Activate(); });
    return QDialog::event(event);
}

void frmFind::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous())
        RunCommand([this] { Form_Activate(); });
}

void frmFind::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous())
        lastGeometry = saveGeometry();
    QDialog::hideEvent(event);
}

// The contents of the fields survive a message box and a switch to another program.
void frmFind::FocusMoved(const QWindow* to)
{
    if (to != nullptr && to != windowHandle() && to->modality() == Qt::NonModal && to->type() != Qt::Popup)
        wasLeft = true;
}

void frmFind::Form_Activate()
{
    wasLeft = false;
    const cDocument* document = ActiveDocument();
    ui->Text1->setText(TakeFindText(document));
    ui->Text1->selectAll();
    ui->Text1->setFocus();
    UncoverHit(document);
}

void frmFind::ReadOptions()
{
    Finding().FindFlags = ui->Check1->isChecked() ? FindMatchCase : 0;
    if (ui->Check2->isChecked())
        Finding().FindFlags |= FindWholeWord;
}

void frmFind::UncoverHit(const cDocument* document)
{
    const QRect place = SelectionPlace(document);
    if (!place.isEmpty())
        move(PlaceBeside(frameGeometry(), place.adjusted(-clearance, -clearance, clearance, clearance),
                         screen()->availableGeometry()));
}

void frmFind::OKButton_Click()
{
    const QString text = ui->Text1->text();
    if (CheckFindField(text) == Fields::Empty)
        return;
    ReadOptions();
    Finding().FindFromStart = ui->optStart0->isChecked();
    if (const cDocument* document = NeedDocument()) {
        FindText(*document, text);
        UncoverHit(document);
    }
}

void frmFind::cmdReplace_Click()
{
    const QString find = ui->Text1->text();
    const QString replace = ui->Text2->text();
    const Fields fields = CheckReplaceFields(find, replace);
    ReadOptions();
    if (fields == Fields::Empty)
        return;
    close();
    if (const cDocument* document = NeedDocument())
        ReplaceText(*document, find, replace);
}

void frmFind::cmdReplaceAll_Click()
{
    const QString find = ui->Text1->text();
    const QString replace = ui->Text2->text();
    const Fields fields = CheckReplaceFields(find, replace);
    ReadOptions();
    if (fields == Fields::Empty)
        return;
    close();
    const cDocument* document = NeedDocument();
    if (document == nullptr)
        return;
    GoBeforeSelection(*document);
    ReplaceAllText(*document, find, replace, [=] { return std::make_unique<frmReplaceWatch>(EditOf(document)); });
}

void mnuEditFind_Click()
{
    if (NeedDocument() != nullptr)
        ShowTool<frmFind>();
}

} // namespace ob
