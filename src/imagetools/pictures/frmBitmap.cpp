// SPDX-License-Identifier: GPL-3.0-or-later
// Browses pictures. They are read away from the window's thread, so that a large one delays nothing.
#include "imagetools/pictures/frmBitmap.h"

#include "editor/frmInsertButton.h"
#include "imagetools/pictures/frmFileList.h"
#include "imagetools/pictures/frmPictureReading.h"
#include "imagetools/pictures/modImageFiles.h"
#include "platform/desktop/modClipboard.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmFolderBrowser.h"
#include "platform/dialogs/frmPatience.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "shell/state/frmTool.h"
#include "ui_frmBitmap.h"

#include <QFileInfo>

#include <optional>

using namespace Qt::StringLiterals;

namespace ob {

frmBitmap::frmBitmap(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmBitmap>()),
      loader(LoadPreview, [this] { RunCommand([this] { TakePreview(); }); })
{
    ui->setupUi(this);
    ui->splitter->setSizes({width() * 2 / 5, width() * 2 / 5, width() / 5});
    browser = new FolderBrowser({ui->Drive1, ui->Dir1, ui->File1}, BitmapPatterns(ImageLibrary::Unused), this);
    order = new frmFileList({ui->lstBmps, ui->cmdRemove, ui->cmdUp, ui->cmdDown}, this);
    insert = new frmInsertButton(ui->cmdInsert, {[this] { return list.Count() > 0; },
                                                 [this] { return std::optional(ListCode()); }, [this] { accept(); }});
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
    On(order, &frmFileList::Removed, this, [this](int place) {
        list.Remove(place);
        ShowListCount();
    });
    On(order, &frmFileList::Moved, this, [this](int from, int to) { list.Move(from, to); });
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
    insert->Refresh();
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
        refused = preview.path;
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
    refused.clear();
    AskFor(browser->ChosenPath());
}

void frmBitmap::chkDLL_Click()
{
    browser->SetPatterns(BitmapPatterns(ui->chkDLL->isChecked() ? ImageLibrary::Used : ImageLibrary::Unused));
}

// --- The list. ------------------------------------------------------------------------------------------------------

// What is done with a picture applies to the last choice, even while that is still being read.
frmBitmap::Reading frmBitmap::FinishReading()
{
    constexpr std::chrono::milliseconds moment(100);
    if (const auto newest = loader.Wait(moment))
        ShowPreview(*newest);
    if (!loader.IsBusy())
        return Reading::Finished;
    const auto preview =
        RunPatiently(ReadingText(asked), [request = ui->Picture1->RequestFor(asked)] { return LoadPreview(request); });
    if (!preview)
        return Reading::Cancelled;
    ShowPreview(*preview);
    return Reading::Finished;
}

void frmBitmap::cmdAdd_Click()
{
    const QString path = browser->ChosenPath();
    // A program could not load what cannot be shown; the line below the preview says so.
    if (FinishReading() == Reading::Cancelled || refused == path)
        return;
    const qsizetype place = browser->ChosenPlace();
    if (list.Add(path) == cLoadBmpList::Answer::Full) {
        MsgBox(BmpListFullText);
    } else {
        ui->lstBmps->addItem(NameOf(path));
        ui->lstBmps->item(ui->lstBmps->count() - 1)->setToolTip(path);
        ui->lstBmps->setCurrentRow(ui->lstBmps->count() - 1);
        browser->Choose(place + 1);
    }
    order->ShowButtons();
    ShowListCount();
}

QString frmBitmap::ListCode() const
{
    const auto library = ui->chkDLL->isChecked() ? ImageLibrary::Used : ImageLibrary::Unused;
    const auto information = ui->chkPath->isChecked() ? PathInformation::Full : PathInformation::Left;
    return LoadBmpText(list.Paths(), library, information);
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
    if (!CopyText(ListCode()))
        return;
    MsgBox(u"Bitmap list has been copied to the clipboard.  Please paste it into your program."_s,
           BoxIcon::Information);
    accept();
}

// --- Files. ---------------------------------------------------------------------------------------------------------

void frmBitmap::cmdCopy_Click()
{
    if (FinishReading() == Reading::Cancelled)
        return;
    if (picture2.IsEmpty()) {
        MsgBox(u"No bitmap to save!"_s, BoxIcon::Exclamation);
        return;
    }
    const ImageColors colors = ui->chk256->isChecked() ? ImageColors::Reduced256 : ImageColors::AsTheyAre;
    const QString copy = CopyNameFor(picture2.path, colors);
    const QString path = FileBox({FilePurpose::Save, u"Save As..."_s, browser->Folder(), copy,
                                  u"Image Files |*.bmp;*.jpg;*.gif;*.emf;*.wmf;"_s, QFileInfo(copy).suffix()});
    if (!path.isEmpty() && SaveImageFile(picture2.path, path, colors, ReadPicture) == ImageSave::Done)
        browser->FileSaved(path);
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
