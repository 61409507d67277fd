// SPDX-License-Identifier: GPL-3.0-or-later
// The toolbar maker.
#include "codetools/dlgToolbar.h"

#include "codetools/dlgImage.h"
#include "codetools/dlgTBOK.h"
#include "codetools/modToolbarStrip.h"
#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "imagetools/pictures/modPicture.h"
#include "imagetools/pictures/modStrip256.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/frmPatience.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modFolders.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/Module1.h"
#include "shell/state/frmLoss.h"
#include "shell/state/frmTool.h"
#include "shell/state/modNames.h"
#include "ui_dlgToolbar.h"

#include <QCoreApplication>
#include <QDir>
#include <QScrollBar>

#include <new>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The file of the pictures, and the name that the listing uses for it.
struct BitmapPlace {
    QString path;
    QString text;
};

// Nothing when no name was given; a toolbar for an existing window then uses a default.
std::optional<BitmapPlace> AskForBitmap(const ToolbarSpec& spec)
{
    FileSpec box{FilePurpose::Save, u"Save Bitmap"_s, {}, {}, u"Bitmap (*.bmp)|*.bmp"_s};
    box.extension = u"bmp"_s;
    const QString chosen = FileBox(box);
    if (!chosen.isEmpty())
        return BitmapPlace{chosen, chosen};
    if (!spec.handle) {
        MsgBox(u"You must choose a name for the toolbar bitmap."_s, BoxIcon::Exclamation);
        return std::nullopt;
    }
    // The text has two backslashes; the system reads them as one.
    const QString name = u"toolbar.bmp"_s;
    return BitmapPlace{PathIn(ProgramFolder(), name), QDir::toNativeSeparators(ProgramFolder()) + u"\\\\"_s + name};
}

bool SaveStrip(const QList<QImage>& pictures, const QString& path)
{
    const QString failed = u"Error saving bitmap."_s;
    try {
        SaveAs256(CreateFromPicture(ToolbarStrip(pictures)), path);
        return true;
    } catch (const RuntimeError& error) {
        FailureBox(failed, error);
    } catch (const std::bad_alloc&) {
        MsgBox(failed, BoxIcon::Critical);
    }
    return false;
}

} // namespace

dlgToolbar::dlgToolbar(QWidget* parent) : frmMaker(parent), ui(std::make_unique<Ui::dlgToolbar>())
{
    ui->setupUi(this);
    ui->cboBranch->hide();
    ui->cboTips->hide();
    On(ui->cmdAdd, this, &dlgToolbar::cmdAdd_Click);
    On(ui->cmdStandard, this, &dlgToolbar::cmdStandard_Click);
    On(ui->cmdRemove, this, &dlgToolbar::cmdRemove_Click);
    On(ui->OKButton, this, &dlgToolbar::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    SetInsertButton(ui->cmdInsert);
    for (const QRadioButton* option : findChildren<QRadioButton*>())
        On(option, &QRadioButton::toggled, this, &dlgToolbar::ShowButtons);
    ShowButtons();
}

dlgToolbar::~dlgToolbar() = default;

ToolbarSpec dlgToolbar::Spec() const
{
    ToolbarSpec spec;
    for (int i = 0; i < ui->cboBranch->count(); ++i)
        spec.buttons.append({ui->cboBranch->itemText(i), ui->cboTips->itemText(i)});
    spec.style = ui->optFlat->isChecked() ? ToolbarStyle::Flat : ToolbarStyle::Raised;
    spec.border = ui->optBorder->isChecked()  ? ToolbarBorder::Thin
                  : ui->optThick->isChecked() ? ToolbarBorder::Thick
                                              : ToolbarBorder::None;
    return spec;
}

void dlgToolbar::ShowButtons()
{
    const bool isEmpty = pictures.isEmpty();
    ui->picBar->setPixmap(QPixmap::fromImage(ToolbarStrip(pictures)));
    if (isEmpty)
        ui->picBar->setText(u"No buttons: add the first one with Custom or Standard."_s);
    ui->cmdRemove->setEnabled(!isEmpty);
    ui->OKButton->setEnabled(!isEmpty);
    RefreshInsert();
    ToolbarSpec spec = Spec();
    spec.bitmap = u"toolbar.bmp"_s;
    ui->txtPreview->ShowCode(isEmpty ? QString() : ToolbarCode(spec));
}

// Scrolls to the last button. The strip takes its new width when it is laid out next.
void dlgToolbar::ShowNewest()
{
    ui->picBar->resize(ui->picBar->sizeHint());
    QCoreApplication::sendPostedEvents(ui->bar, QEvent::LayoutRequest);
    ui->bar->horizontalScrollBar()->setValue(ui->bar->horizontalScrollBar()->maximum());
}

// The button is added after both questions; Cancel counts as an empty answer.
void dlgToolbar::AddButton(const QImage& picture)
{
    const qsizetype number = pictures.size() + 1;
    const QString numberText = QString::number(number);
    const auto branch = InputBox(u"Please type a branch label for this button."_s + numberText, windowTitle(),
                                 u"branch"_s + numberText);
    const auto tip = InputBox(u"Please type a tooltip caption for this button."_s, windowTitle(), u"tooltip"_s);
    pictures.append(picture);
    ui->cboBranch->addItem(ToolbarBranchOf(branch.value_or(QString()), number));
    ui->cboTips->addItem(ToolbarTipOf(tip.value_or(QString()), number));
    ShowButtons();
    ShowNewest();
}

void dlgToolbar::cmdAdd_Click()
{
    FileSpec box{FilePurpose::Open, {}, {}, {}, u"Images (*.bmp)(*.ico)|*.BMP;*.ICO"_s};
    box.extension = u"BMP"_s;
    const QString path = FileBox(box);
    if (path.isEmpty())
        return;
    const auto picture = RunPatiently(u"Reading %1..."_s.arg(NameOf(path)), [path] { return ToolbarPicture(path); });
    if (picture)
        AddButton(*picture);
}

void dlgToolbar::cmdStandard_Click()
{
    dlgImage images(this);
    PrepareTool(images, dlgImage::ManualPage);
    images.exec();
    if (ToolImageIndex != 0)
        AddButton(dlgImage::StandardImage(ToolImageIndex));
}

void dlgToolbar::cmdRemove_Click()
{
    pictures.removeLast();
    ui->cboBranch->removeItem(ui->cboBranch->count() - 1);
    ui->cboTips->removeItem(ui->cboTips->count() - 1);
    ShowButtons();
}

std::optional<QString> dlgToolbar::FinishedCode()
{
    dlgTBOK target(this);
    PrepareTool(target, dlgTBOK::ManualPage);
    if (target.exec() != QDialog::Accepted)
        return std::nullopt;
    ToolbarSpec spec = Spec();
    spec.handle = target.Handle();
    const auto place = AskForBitmap(spec);
    if (!place || !SaveStrip(pictures, place->path))
        return std::nullopt;
    spec.bitmap = place->text;
    return ToolbarCode(spec);
}

QString dlgToolbar::Lost() const
{
    return CountOf(pictures.size(), u"button"_s, u"buttons"_s);
}

void dlgToolbar::OKButton_Click()
{
    const auto code = FinishedCode();
    if (!code)
        return;
    accept();
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    SendTextToDocument(*document, *code, UntitledName);
    document->Tag = TagOpen; // keeps the slot from being reused by the next new window
}

void mnuToolbar_Click()
{
    ShowToolModally<dlgToolbar>();
}

} // namespace ob
