// SPDX-License-Identifier: GPL-3.0-or-later
// Browses the disk for WAV files and plays them.
#include "imagetools/media/frmWav.h"

#include "imagetools/media/modMedia.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmFolderBrowser.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFolders.h"
#include "platform/language/cRuntimeError.h"
#include "platform/media/modMci.h"
#include "shell/state/frmTool.h"
#include "ui_frmWav.h"

using namespace Qt::StringLiterals;

namespace ob {

frmWav::frmWav(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmWav>())
{
    ui->setupUi(this);
    browser = new FolderBrowser({ui->Drive1, ui->Dir1, ui->Fil}, {u"*.wav"_s}, this);
    On(browser, &FolderBrowser::FolderChanged, this, [this] {
        Fil_Click();
        ui->lblState->setText(u"Reading the folder..."_s);
    });
    On(browser, &FolderBrowser::FilesListed, this, [this] { ShowCount(); });
    On(browser, &FolderBrowser::ChoiceChanged, this, [this] {
        Fil_Click();
        ShowCount();
    });
    On(ui->Fil, &QListView::doubleClicked, this, &frmWav::cmdPlay_Click);
    On(ui->cmdPlay, this, &frmWav::cmdPlay_Click);
    On(ui->cmdStop, this, &frmWav::cmdStop_Click);
    On(ui->cmdCopy, this, &frmWav::cmdCopy_Click);
    On(ui->cmdExit, this, &frmWav::cmdExit_Click);
    StartInLastFolder(*this, *browser);
    ui->Fil->setFocus();
}

frmWav::~frmWav()
{
    cmdStop_Click();
}

void frmWav::ShowCount()
{
    const qsizetype count = browser->Files().size();
    ui->lblState->setText(count == 0 ? u"No WAV files in this folder"_s : u"WAV files: %1"_s.arg(count));
}

void frmWav::Fil_Click()
{
    ui->Text1->setText(browser->ChosenName());
}

void frmWav::cmdPlay_Click()
{
    if (browser->ChosenName().isEmpty()) {
        MsgBox(u"Please choose a wav from the file box!"_s, BoxIcon::Exclamation);
        return;
    }
    const bool isPlaying = sndPlaySoundA(browser->ChosenPath(), SND_ASYNC | SND_NODEFAULT);
    if (const QString missing = MissingMediaText(); !missing.isEmpty())
        MsgBox(missing, BoxIcon::Exclamation);
    else if (!isPlaying)
        ui->lblState->setText(u"This file cannot be played."_s);
    else if (IsMediaSilent())
        ui->lblState->setText(u"There is no sound device to play it on."_s);
    else
        ShowCount();
}

void frmWav::cmdStop_Click()
{
    // Not the name of a sound: this only ends the one in progress.
    sndPlaySoundA(u"1"_s, SND_SYNC);
}

void frmWav::cmdCopy_Click()
{
    if (browser->ChosenName().isEmpty()) {
        MsgBox(u"No wav is chosen!"_s);
        return;
    }
    const QString target = FileBox({FilePurpose::Save, u"Save As..."_s, browser->Folder(),
                                    CopyNameOf(browser->ChosenName()), u"Wav sound file (*.wav)|*.wav"_s, u"wav"_s});
    if (target.isEmpty())
        return;
    try {
        CopyMedia(browser->ChosenPath(), target);
    } catch (const RuntimeError& error) {
        FailureBox(u"Error saving file!"_s, error);
        return;
    }
    browser->FileSaved(target);
}

void frmWav::cmdExit_Click()
{
    cmdStop_Click();
    reject();
}

void mnuToolWav_Click()
{
    ShowToolModally<frmWav>();
}

} // namespace ob
