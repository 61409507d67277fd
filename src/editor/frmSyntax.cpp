// SPDX-License-Identifier: GPL-3.0-or-later
// The Syntax Viewer.
#include "editor/frmSyntax.h"

#include "editor/document/modSyntaxTable.h"
#include "editor/modSyntaxViewer.h"
#include "platform/dialogs/frmCommand.h"
#include "shell/state/frmTool.h"
#include "ui_frmSyntax.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int MillisecondsToRead = 1000;

} // namespace

frmSyntax::frmSyntax(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmSyntax>())
{
    ui->setupUi(this);
    rows = SortedSyntaxRows(Words().SyntaxTable);
    ui->cmbList->addItems(SyntaxKeys(rows));
    ui->cmbList->setCurrentIndex(-1);
    ui->cmbList->lineEdit()->setPlaceholderText(u"Keyword List"_s);
    On(ui->cmbList, &QComboBox::activated, this, &frmSyntax::cmbList_Click);
    On(ui->cmdCopy, this, &frmSyntax::cmdCopy_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmSyntax::~frmSyntax() = default;

bool frmSyntax::event(QEvent* event)
{
    const bool done = QDialog::event(event);
    if (event->type() == QEvent::WindowActivate && startsAfresh) {
        startsAfresh = false;
        Form_Activate();
    } else if (event->type() == QEvent::WindowDeactivate) {
        // What is shown stays after a switch to another program and back.
        QTimer::singleShot(0, this, [this] {
            const QWidget* active = QApplication::activeWindow();
            startsAfresh = startsAfresh || (active != nullptr && active != this);
        });
    }
    return done;
}

void frmSyntax::keyPressEvent(QKeyEvent* event)
{
    // Enter after a typed word selects it and does not press the button.
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!isEnter || !ui->cmbList->hasFocus())
        QDialog::keyPressEvent(event);
}

void frmSyntax::Form_Activate()
{
    if (isClosing)
        return;
    ui->cmbList->setCurrentIndex(-1);
    ui->cmbList->setEditText({});
    ui->Text1->setPlainText(u"syntax for chosen keyword\r\nwill appear here"_s);
}

void frmSyntax::cmbList_Click(int index)
{
    if (index >= 0 && !isClosing)
        ui->Text1->setPlainText(SyntaxRowText(rows[static_cast<std::size_t>(index)]));
}

void frmSyntax::cmdCopy_Click()
{
    QApplication::clipboard()->setText(ui->Text1->toPlainText().replace(QLatin1Char('\n'), QLatin1String("\r\n")));
    isClosing = true;
    ui->cmdCopy->setEnabled(false);
    QPalette red = ui->Text1->palette();
    red.setColor(QPalette::Text, QColor(255, 0, 0));
    ui->Text1->setPalette(red);
    ui->Text1->setPlainText(u"Copied to clipboard."_s);
    QTimer::singleShot(MillisecondsToRead, this, &QDialog::accept);
}

void mnuSyntaxViewer_Click()
{
    ShowTool<frmSyntax>();
}

} // namespace ob
