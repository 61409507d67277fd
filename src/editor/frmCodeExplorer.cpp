// SPDX-License-Identifier: GPL-3.0-or-later
// Browses the disk for BASIC source.
#include "editor/frmCodeExplorer.h"

#include "editor/modCodeExplorer.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmFolderBrowser.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "shell/state/frmTool.h"
#include "ui_frmCodeExplorer.h"

#include <QFontDatabase>

using namespace Qt::StringLiterals;

namespace ob {

frmCodeExplorer::frmCodeExplorer(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmCodeExplorer>())
{
    ui->setupUi(this);
    ui->splitter->setSizes({width() / 2, width() / 2});
    ui->txtDisplay->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    browser = new FolderBrowser({ui->Drive1, ui->Dir1, ui->Fil}, CodeFilePatterns, this);
    On(browser, &FolderBrowser::FolderChanged, this, [this] {
        ui->lblState->setText(u"Reading the folder..."_s);
        Fil_Click();
    });
    On(browser, &FolderBrowser::FilesListed, this, [this] { ShowCount(); });
    On(browser, &FolderBrowser::ChoiceChanged, this, [this] { Fil_Click(); });
    On(ui->Fil, &QListView::doubleClicked, this, &frmCodeExplorer::cmdOpen_Click);
    On(ui->cmdOpen, this, &frmCodeExplorer::cmdOpen_Click);
    connect(ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
    browser->Start();
    ui->Fil->setFocus();
}

frmCodeExplorer::~frmCodeExplorer() = default;

void frmCodeExplorer::ShowCount()
{
    const qsizetype count = browser->Files().size();
    ui->lblState->setText(count == 0 ? u"No BASIC files in this folder"_s : u"BASIC files: %1"_s.arg(count));
}

void frmCodeExplorer::Fil_Click()
{
    ui->Text1->setText(browser->ChosenName());
    ui->txtDisplay->clear();
    // Without a name, the file test would be made on the folder, whose disk may not answer.
    if (!browser->ChosenName().isEmpty() && FileExists(browser->ChosenPath()))
        ui->txtDisplay->setPlainText(CodePreview(browser->ChosenPath()));
}

void frmCodeExplorer::cmdOpen_Click()
{
    const QString path = browser->ChosenPath();
    if (ui->Text1->text().isEmpty() || !FileExists(path)) {
        MsgBox(u"File not found."_s, BoxIcon::None, BoxButtons::Ok, u"Error."_s);
        return;
    }
    accept();
    OpenExploredFile(path);
}

void mnuFileExplore_Click()
{
    ShowToolModally<frmCodeExplorer>();
}

} // namespace ob
