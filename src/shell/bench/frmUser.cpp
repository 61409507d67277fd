// SPDX-License-Identifier: GPL-3.0-or-later
// The list of the ten user applications.
#include "shell/bench/frmUser.h"

#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "shell/bench/frmMain.h"
#include "shell/bench/modUserApplications.h"
#include "shell/state/Module1.h"
#include "shell/state/frmTool.h"
#include "ui_frmUser.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ob {

frmUser::frmUser(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmUser>())
{
    ui->setupUi(this);
    ui->lstApps->addItems(FilledApplications(UserApplications));
    SetButtons();
    On(ui->cmdAdd, this, &frmUser::cmdAdd_Click);
    On(ui->cmdRemove, this, &frmUser::cmdRemove_Click);
    On(ui->OKButton, this, &frmUser::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmUser::~frmUser() = default;

void frmUser::SetButtons()
{
    ui->cmdAdd->setEnabled(ui->lstApps->count() < UserApplicationCount);
    ui->cmdRemove->setEnabled(ui->lstApps->count() > 0);
}

void frmUser::cmdAdd_Click()
{
    const QString path = OpenFileDialog(u"Executables (*.exe)|*.EXE"_s, QDir::currentPath());
    if (path.isEmpty() || !FileExists(path))
        return;
    ui->lstApps->addItem(path);
    SetButtons();
}

void frmUser::cmdRemove_Click()
{
    if (ui->lstApps->selectedItems().isEmpty()) {
        MsgBox(u"No item is selected."_s, BoxIcon::Critical, BoxButtons::Ok, u"Cannot Remove Item"_s);
        return;
    }
    delete ui->lstApps->takeItem(ui->lstApps->currentRow());
    SetButtons();
}

void frmUser::OKButton_Click()
{
    QStringList lines;
    for (int row = 0; row < ui->lstApps->count(); ++row)
        lines.append(ui->lstApps->item(row)->text());
    StoreApplications(lines, UserApplications);
    if (auto* frame = frmMain::Instance())
        frame->RefreshUserButtonMenu();
    accept();
}

void ShowUserApplications()
{
    ShowToolModally<frmUser>();
}

} // namespace ob
