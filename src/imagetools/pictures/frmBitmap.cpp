// SPDX-License-Identifier: GPL-3.0-or-later
// Browses pictures. They are read away from the window's thread, so that a large one delays nothing.
#include "imagetools/pictures/frmBitmap.h"

#include "imagetools/pictures/modImageFiles.h"
#include "platform/desktop/modClipboard.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmFolderBrowser.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "shell/state/frmTool.h"
#include "ui_frmBitmap.h"

using namespace Qt::StringLiterals;

namespace ob {

using namespace std::chrono_literals;

frmBitmap::frmBitmap(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmBitmap>()),
      loader(LoadPreview, [this] { RunCommand([this] { TakePreview(); }); })
{
    ui->setupUi(this);
    ui->splitter->setSizes({width() / 2, width() / 2});
    browser = new FolderBrowser({ui->Drive1, ui->Dir1, ui->File1}, BitmapPatterns(ImageLibrary::Unused), this);
    Connect();
    ShowListCount();
    StartInLastFolder(*this, *browser);
    ui->File1->setFocus();
}

frmBitmap::~frmBitmap() = default;

void frmBitmap::Connect()
{
    On(browser, &FolderBrowser::FolderChanged, this, [this] {
        ui->lblState->setText(u"Reading the folder..."_s);
        File1_Click();
    });
    On(browser, &FolderBrowser::FilesListed, this, [this] { ShowCount(); });
    On(browser, &FolderBrowser::ChoiceChanged, this, [this] { File1_Click(); });
    On(ui->Picture1, &frmPreviewBox::BoxChanged, this, [this] {
        // A picture that is being read is read for a box of another size.
        const QString path = loader.IsBusy() ? asked : picture2.path;
        if (!path.isEmpty())
            AskFor(path);
    });
    On(ui->chkDLL, this, &frmBitmap::chkDLL_Click);
    On(ui->cmdAdd, this, &frmBitmap::cmdAdd_Click);
    On(ui->cmdCreate, this, &frmBitmap::cmdCreate_Click);
    On(ui->cmdCopy, this, &frmBitmap::cmdCopy_Click);
    On(ui->cmdJpg, this, &frmBitmap::cmdJpg_Click);
    connect(ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

// --- Showing. -------------------------------------------------------------------------------------------------------

void frmBitmap::ShowCount()
{
    const qsizetype count = browser->Files().size();
    ui->lblState->setText(count == 0 ? u"No pictures in this folder"_s : u"Pictures: %1"_s.arg(count));
}

void frmBitmap::ShowListCount()
{
    ui->lblList->setText(u"In the LoadBmp list: %1 of %2"_s.arg(list.Paths().size()).arg(cLoadBmpList::Most));
}

void frmBitmap::AskFor(const QString& path)
{
    asked = path;
    loader.Ask(ui->Picture1->RequestFor(path));
}

void frmBitmap::TakePreview()
{
    if (const auto preview = loader.Take())
        ShowPreview(*preview);
}

void frmBitmap::ShowPreview(const Preview& preview)
{
    if (preview.IsEmpty()) {
        ui->lblProblem->setText(CannotBeShownText(preview.path));
        return;
    }
    picture2 = preview;
    ui->Picture1->ShowPreview(preview);
    ui->lblName->setText(NameOf(preview.path));
    ui->Label1->setText(u"Dimensions: %1 x %2"_s.arg(preview.size.width()).arg(preview.size.height()));
}

void frmBitmap::File1_Click()
{
    const QString name = browser->ChosenName();
    ui->cmdAdd->setEnabled(!name.isEmpty());
    ui->Text1->setText(name.isEmpty() ? QString() : browser->ChosenPath());
    if (name.isEmpty())
        return;
    ui->lblProblem->clear();
    AskFor(browser->ChosenPath());
}

void frmBitmap::chkDLL_Click()
{
    browser->SetPatterns(BitmapPatterns(ui->chkDLL->isChecked() ? ImageLibrary::Used : ImageLibrary::Unused));
}

// --- The list. ------------------------------------------------------------------------------------------------------

void frmBitmap::cmdAdd_Click()
{
    const qsizetype place = browser->ChosenPlace();
    if (list.Add(browser->ChosenPath()) == cLoadBmpList::Answer::Full)
        MsgBox(BmpListFullText);
    else
        browser->Choose(place + 1);
    ShowListCount();
}

void frmBitmap::cmdCreate_Click()
{
    if (list.Count() < 1) {
        const BoxAnswer answer = MsgBox(u"No bitmaps are selected. Do you want to add bitmaps?"_s, BoxIcon::Question,
                                        BoxButtons::YesNo, u"Error!"_s);
        if (answer == BoxAnswer::No)
            reject();
        return;
    }
    const auto library = ui->chkDLL->isChecked() ? ImageLibrary::Used : ImageLibrary::Unused;
    const auto information = ui->chkPath->isChecked() ? PathInformation::Full : PathInformation::Left;
    if (!CopyText(LoadBmpText(list.Paths(), library, information)))
        return;
    MsgBox(u"Bitmap list has been copied to the clipboard.  Please paste it into your program."_s,
           BoxIcon::Information);
    accept();
}

// --- Files. ---------------------------------------------------------------------------------------------------------

void frmBitmap::cmdCopy_Click()
{
    constexpr auto patience = 5s;
    // Applies to the last choice, even while it is still being read.
    if (const auto preview = loader.Wait(patience))
        ShowPreview(*preview);
    if (picture2.IsEmpty()) {
        MsgBox(u"No bitmap to save!"_s, BoxIcon::Exclamation);
        return;
    }
    const QString path = FileBox({FilePurpose::Save, u"Save As..."_s, browser->Folder(), QString(),
                                  u"Image Files |*.bmp;*.jpg;*.gif;*.emf;*.wmf;"_s});
    if (!path.isEmpty())
        SaveImageFile(picture2.path, path, ui->chk256->isChecked() ? ImageColors::Reduced256 : ImageColors::AsTheyAre);
}

void frmBitmap::cmdJpg_Click()
{
    if (!CarriesImageLibrary()) {
        MsgBox(NoImageLibraryText, BoxIcon::Exclamation);
        return;
    }
    const QString folder = FolderBox(u"Save Image DLL to Disk"_s, browser->Folder());
    if (!folder.isEmpty())
        MsgBox(u"Image DLL saved as "_s + WriteImageLibrary(folder));
}

void mnuToolBitmap_Click()
{
    ShowTool<frmBitmap>();
}

} // namespace ob
