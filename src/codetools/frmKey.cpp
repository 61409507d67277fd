// SPDX-License-Identifier: GPL-3.0-or-later
// Shows the codes of the keys pressed in it.
#include "codetools/frmKey.h"

#include "codetools/modKeyCodes.h"
#include "shell/state/frmTool.h"
#include "ui_frmKey.h"

#include <QFontDatabase>
#include <QKeyEvent>
#include <QTextBlock>

namespace ob {

namespace {

// The keys that leave the key field; it keeps every other key.
bool IsWayOut(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::AltModifier) && !event.modifiers().testFlag(Qt::ControlModifier);
}

} // namespace

frmKey::frmKey(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmKey>())
{
    ui->setupUi(this);
    ui->txtCodes->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ui->txtCodes->setPlainText(KeyCodeText());
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.8);
    large.setBold(true);
    ui->lblKey->setFont(large);
    for (QWidget* control : std::initializer_list<QWidget*>{ui->txtAscii, ui->txtCodes, ui->cmdDone})
        control->installEventFilter(this);
    ui->txtAscii->setFocus();
    connect(ui->cmdDone, &QPushButton::clicked, this, &QDialog::accept);
}

frmKey::~frmKey() = default;

bool frmKey::eventFilter(QObject* watched, QEvent* event)
{
    const bool inField = watched == ui->txtAscii;
    if (event->type() == QEvent::ShortcutOverride) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        // A shortcut would take its key before the press arrives here.
        Form_KeyDown(key);
        if (inField && !IsWayOut(key)) {
            event->accept();
            return true;
        }
    } else if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        Form_KeyDown(key);
        Form_KeyPress(key);
        if (inField)
            return true;
    }
    return QDialog::eventFilter(watched, event);
}

void frmKey::Form_KeyDown(const QKeyEvent& event)
{
    const QString text = KeyDownText(event.key(), event.modifiers());
    if (text.isEmpty())
        return;
    ui->lblKey->setText(text);
    // The table scrolls along, unless the user is reading it.
    const int line = KeyCodeLine(VirtualKeyOf(event.key(), event.modifiers()));
    if (line < 0 || ui->txtCodes->hasFocus())
        return;
    QTextCursor cursor(ui->txtCodes->document()->findBlockByNumber(line));
    cursor.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
    ui->txtCodes->setTextCursor(cursor);
}

void frmKey::Form_KeyPress(const QKeyEvent& event)
{
    const auto code = KeyPressCode(event.key(), event.modifiers(), event.text());
    if (!code)
        return;
    ui->lblKey->setText(KeyPressText(*code));
    ui->txtAscii->setText(KeyPressText(*code));
}

void mnuToolKeyCode_Click()
{
    ShowToolModally<frmKey>();
}

} // namespace ob
