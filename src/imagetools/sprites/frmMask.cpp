// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the mask of a sprite and shows both.
#include "imagetools/sprites/frmMask.h"

#include "imagetools/pictures/frmPictureReading.h"
#include "imagetools/sprites/frmBatch.h"
#include "imagetools/sprites/modMask.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/frmTool.h"
#include "ui_frmMask.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>

#include <optional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Shows the busy pointer during its lifetime.
class Hourglass {
public:
    Hourglass() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Hourglass() { QGuiApplication::restoreOverrideCursor(); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
};

cDIBSection CopyOf(const cDIBSection& picture)
{
    cDIBSection copy;
    copy.Create(picture.Width(), picture.Height());
    copy.LoadPictureBlt(picture);
    return copy;
}

} // namespace

frmMask::frmMask(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmMask>())
{
    ui->setupUi(this);
    ui->picMask->hide();
    On(ui->cmdOpen, this, &frmMask::cmdOpen_Click);
    On(ui->cmdSave, this, &frmMask::cmdSave_Click);
    On(ui->cmdBatch, this, &frmMask::cmdBatch_Click);
    On(ui->cmdHelp, this, [] { cmdHelp_Click(); });
    connect(ui->cmdExit, &QPushButton::clicked, this, &QDialog::reject);
}

frmMask::~frmMask() = default;

void frmMask::ShowPicture(const QString& fileName, cDIBSection picture)
{
    mask = std::move(picture);
    ui->lblWork->hide();
    ui->picMask->SetPicture(mask);
    ui->picMask->show();
    setWindowTitle(QDir::toNativeSeparators(fileName));
}

void frmMask::DoMask(const QString& fileName)
{
    constexpr int columnsPerStep = 10;
    const std::optional<cDIBSection> read = ReadPicture(fileName);
    if (!read)
        return;
    ShowPicture(fileName, SpriteTwice(*read));
    sprite = fileName;
    const Hourglass pointer;
    // The picture must be laid out before parts of it are painted.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
    ui->picMask->repaint();
    for (int x = 0; x < mask.Width(); x += columnsPerStep) {
        MaskColumns(mask, x, columnsPerStep);
        ui->picMask->ShowColumns(mask, x, columnsPerStep);
    }
}

void frmMask::cmdOpen_Click()
{
    const QString path = OpenFileDialog(u"Sprite Image (*.bmp)|*.BMP"_s, QDir::currentPath());
    if (!path.isEmpty())
        DoMask(path);
}

void frmMask::cmdSave_Click()
{
    FileSpec spec;
    spec.purpose = FilePurpose::Save;
    spec.title = u"Save As"_s;
    spec.filter = u"Bitmap |*.bmp"_s;
    spec.name = sprite.isEmpty() ? u"mask.bmp"_s : QFileInfo(sprite).completeBaseName() + u" mask.bmp"_s;
    spec.extension = u"bmp"_s;
    QString path;
    try {
        path = ToolFileBox(*this, spec);
    } catch (const RuntimeError&) {
        MsgBox(u"Sprite/mask was not saved."_s, BoxIcon::Critical);
        return;
    }
    if (path.isEmpty())
        return;
    try {
        SaveMask(path, mask);
    } catch (const RuntimeError& error) {
        FailureBox(u"Error saving file!"_s, error);
        return;
    }
    setWindowTitle(path);
}

void frmMask::cmdBatch_Click()
{
    frmBatch batch(this);
    PrepareTool(batch, frmBatch::ManualPage);
    On(&batch, &frmBatch::Masked, this,
       [this](const QString& path, const cDIBSection& picture) { ShowPicture(path, CopyOf(picture)); });
    batch.exec();
}

void frmMask::cmdHelp_Click()
{
    MsgBox(u"Click the *Batch* button to open a batch processing dialog.  It will allow you to process "
           "all bitmaps in a chosen directory to include masks.  Bitmap files will be overwritten with "
           "the masked versions.\n\n"
           "Open a sprite image bitmap.  A proper sprite is a figure surrounded by a black background.  "
           "The mask maker will automatically place a black and white mask of the image above the "
           "sprite, making a proper sprite for use with Orchard BASIC sprite functions.  If the "
           "resulting image looks correct, be sure to save it.  It will not be saved automatically.  "
           "Images that do not fit within the viewing area will still be masked properly."_s,
           BoxIcon::Information);
}

void mnuToolMask_Click()
{
    ShowToolModally<frmMask>();
}

} // namespace ob
