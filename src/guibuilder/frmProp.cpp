// SPDX-License-Identifier: GPL-3.0-or-later
// The properties of one control.
#include "guibuilder/frmProp.h"

#include "guibuilder/cGuiWindow.h"
#include "guibuilder/modBitmap.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/cMainForm.h"
#include "shell/state/frmTool.h"
#include "ui_frmProp.h"

#include <QEvent>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString BitmapFilter = u"Bitmap Files |*.bmp;*.bmp;"_s;

constexpr int LightGround = 128; // a lightness from 0 to 255, and brighter
constexpr QColor RedOnLight(176, 28, 28);
constexpr QColor RedOnDark(255, 138, 128);

// A description of the picture in that file, and the picture itself; null when there is none.
struct Preview {
    QString words;
    QImage picture;
};

Preview PreviewOf(const QString& path)
{
    if (path.isEmpty() || path == NoBitmap)
        return {u"No bitmap chosen."_s, {}};
    if (!FileExists(path))
        return {u"There is no such file."_s, {}};
    try {
        const QImage picture = LoadBitmap(path);
        const QString words = u"%1 x %2 pixels. The button takes this size."_s;
        return {words.arg(picture.width()).arg(picture.height()), picture};
    } catch (const RuntimeError&) {
        return {u"The file holds no bitmap that can be read."_s, {}};
    }
}

QPixmap Fitted(const QImage& picture, const QSize& room)
{
    if (picture.width() <= room.width() && picture.height() <= room.height())
        return QPixmap::fromImage(picture);
    return QPixmap::fromImage(picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

} // namespace

frmProp::frmProp(ControlRef edited, const QString& kindWord, QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::frmProp>()), control(edited)
{
    ui->setupUi(this);
    setWindowTitle(kindWord + u" Properties"_s);
    ShowFields(PropertiesOf(GuiDesign().form.At(control), control.kind, ScreenScale()));
    const bool hasBitmap = control.kind == ControlKind::Bmpbutton;
    ui->picPreview->setVisible(hasBitmap);
    ui->lblPreview->setVisible(hasBitmap);
    // Of a long text the beginning is more useful, of a path the end.
    for (QLineEdit* field : findChildren<QLineEdit*>())
        if (field != ui->txtBitmap)
            field->home(false);
    ui->txtExt->setFocus();
    ui->txtExt->selectAll();
    resize(width(), sizeHint().height());
    TintDelete();
    if (hasBitmap) {
        ShowPreview();
        connect(ui->txtBitmap, &QLineEdit::textChanged, this, &frmProp::ShowPreview);
    }
    On(ui->cmdBitmap, this, &frmProp::cmdBitmap_Click);
    On(ui->cmdDelete, this, &frmProp::cmdDelete_Click);
    On(ui->OKButton, this, &frmProp::OKButton_Click);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

frmProp::~frmProp() = default;

void frmProp::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        TintDelete();
}

// Red sets it apart from the buttons that only close the dialog.
void frmProp::TintDelete()
{
    QPalette colors = ui->cmdDelete->palette();
    const bool light = palette().color(QPalette::Button).lightness() >= LightGround;
    colors.setColor(QPalette::ButtonText, light ? RedOnLight : RedOnDark);
    ui->cmdDelete->setPalette(colors);
}

void frmProp::ShowFields(const PropertyFields& fields)
{
    const PropertyTexts& texts = fields.texts;
    ui->txtExt->setText(texts.name);
    ui->txtCaption->setText(texts.caption);
    ui->txtCaption->setEnabled(fields.captionEnabled);
    ui->txtBranch->setText(texts.branch);
    ui->txtBranch->setEnabled(fields.branchEnabled);
    ui->txtTooltip->setText(texts.tooltip);
    ui->txtTooltip->setEnabled(fields.tooltipEnabled);
    ui->txtBitmap->setText(texts.bitmap);
    ui->txtBitmap->setEnabled(fields.bitmapEnabled);
    ui->cmdBitmap->setEnabled(fields.bitmapEnabled);
    ui->txtX->setText(texts.left);
    ui->txtY->setText(texts.top);
    ui->txtWidth->setText(texts.width);
    ui->txtHeight->setText(texts.height);
    ui->imgCombo->setCurrentIndex(texts.color);
    ui->imgCombo->setEnabled(fields.colorEnabled);
}

PropertyTexts frmProp::Texts() const
{
    PropertyTexts texts;
    texts.name = ui->txtExt->text();
    texts.caption = ui->txtCaption->text();
    texts.branch = ui->txtBranch->text();
    texts.tooltip = ui->txtTooltip->text();
    texts.bitmap = ui->txtBitmap->text();
    texts.left = ui->txtX->text();
    texts.top = ui->txtY->text();
    texts.width = ui->txtWidth->text();
    texts.height = ui->txtHeight->text();
    texts.color = ui->imgCombo->currentIndex();
    return texts;
}

void frmProp::ShowPreview()
{
    const Preview preview = PreviewOf(ui->txtBitmap->text());
    ui->lblPreview->setText(preview.words);
    if (preview.picture.isNull())
        ui->picPreview->clear();
    else
        ui->picPreview->setPixmap(Fitted(preview.picture, ui->picPreview->contentsRect().size()));
}

void frmProp::cmdBitmap_Click()
{
    FileSpec box;
    box.title = u"Open"_s;
    box.filter = BitmapFilter;
    const QString folder = FolderOf(ui->txtBitmap->text());
    if (FolderExists(folder))
        box.folder = folder;
    const QString path = FileBox(box);
    if (!path.isEmpty())
        ui->txtBitmap->setText(BitmapPathOf(path));
}

void frmProp::cmdDelete_Click()
{
    if (MsgBox(DeleteControlText, BoxIcon::Critical, BoxButtons::YesNo) == BoxAnswer::Yes)
        Apply(ControlFate::Deleted);
}

void frmProp::OKButton_Click()
{
    Apply(ControlFate::Kept);
}

void frmProp::Apply(ControlFate fate)
{
    end = fate == ControlFate::Deleted ? PropEnd::Deleted : PropEnd::Confirmed;
    if (ApplyProperties(GuiDesign().form.At(control), control.kind, Texts(), fate, ScreenScale()) ==
        PropertiesEnd::LacksBitmap) {
        const BoxAnswer answer = MsgBox(NoBitmapText, BoxIcon::Question, BoxButtons::YesNoCancel);
        if (answer == BoxAnswer::Yes)
            cmdBitmap_Click();
        if (answer != BoxAnswer::No)
            return;
    }
    accept();
}

PropEnd ShowProp(ControlRef control, const QString& kindWord)
{
    if (GuiDesign().GuiFormLoading) {
        SetStatusText(u"No properties until a form loads without an error. "_s + GuiDesign().GuiLoadTrouble);
        return PropEnd::Cancelled;
    }
    frmProp dialog(control, kindWord, ToolOwner());
    PrepareTool(dialog, frmProp::ManualPage);
    dialog.exec();
    if (dialog.End() != PropEnd::Cancelled)
        GuiWindow->RefreshGui();
    return dialog.End();
}

} // namespace ob
