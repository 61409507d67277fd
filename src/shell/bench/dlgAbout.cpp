// SPDX-License-Identifier: GPL-3.0-or-later
// Name, version and licence of the program.
#include "shell/bench/dlgAbout.h"

#include "shell/state/frmTool.h"
#include "ui_dlgAbout.h"

#include <QIcon>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The system's about box takes the title and the first line as one text, separated by a number sign.
const QString ApplicationText = u"About OB Bench#     OB Bench  v " OB_VERSION ""_s;
const QString OtherText = u"A bench for Orchard BASIC"_s + u"    "_s + u"Free software, GPL-3.0-or-later"_s;

} // namespace

dlgAbout::dlgAbout(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::dlgAbout>())
{
    ui->setupUi(this);
    setWindowTitle(ApplicationText.section(QLatin1Char('#'), 0, 0));
    ui->picIcon->setPixmap(QIcon(u":/icons/app.svg"_s).pixmap(64, 64));
    QFont large = font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.3);
    ui->lblName->setFont(large);
    ui->lblName->setText(ApplicationText.section(QLatin1Char('#'), 1).trimmed());
    ui->lblText->setText(OtherText);
    ui->buttons->button(QDialogButtonBox::Ok)->setDefault(true);
    connect(ui->buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
}

dlgAbout::~dlgAbout() = default;

void mnuHelpAbout_Click()
{
    ShowToolModally<dlgAbout>();
}

void mnuCredits_Click()
{
    MsgBox(u"Thanks to all who try Orchard Bench, report what goes wrong and say what they miss,\n"
           "and to the people behind Qt, Scintilla and QScintilla, on whose work it is built."_s,
           BoxIcon::None, BoxButtons::Ok, u"Credits"_s);
}

} // namespace ob
