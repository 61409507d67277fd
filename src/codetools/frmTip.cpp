// SPDX-License-Identifier: GPL-3.0-or-later
// The tip of the day.
#include "codetools/frmTip.h"

#include "codetools/modTips.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/Module1.h"
#include "shell/state/frmTool.h"
#include "ui_frmTip.h"

using namespace Qt::StringLiterals;

namespace ob {

frmTip::frmTip(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmTip>()), tips(LoadTips())
{
    ui->setupUi(this);
    ui->picTip->setPixmap(QIcon(u":/icons/tip.svg"_s).pixmap(48, 48));
    ui->chkLoadTipsAtStartup->setChecked(ShowTips);
    current = FirstTip(RandomNumber(), static_cast<int>(tips.size()));
    DisplayCurrentTip();
    On(ui->cmdNextTip, this, &frmTip::cmdNextTip_Click);
    On(ui->chkLoadTipsAtStartup, this, &frmTip::chkLoadTipsAtStartup_Click);
    connect(ui->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmTip::~frmTip() = default;

void frmTip::done(int result)
{
    chkLoadTipsAtStartup_Click();
    QDialog::done(result);
}

void frmTip::DisplayCurrentTip()
{
    if (!tips.isEmpty())
        ui->lblTipText->setText(tips[current - 1]);
}

void frmTip::cmdNextTip_Click()
{
    current = NextTip(current, static_cast<int>(tips.size()));
    DisplayCurrentTip();
}

void frmTip::chkLoadTipsAtStartup_Click()
{
    ShowTips = ui->chkLoadTipsAtStartup->isChecked();
    StoreShowTips();
}

void mnuOptionShowTip_Click()
{
    ShowTool<frmTip>();
}

} // namespace ob
