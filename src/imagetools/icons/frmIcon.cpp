// SPDX-License-Identifier: GPL-3.0-or-later
// The icon bench.
#include "imagetools/icons/frmIcon.h"

#include "imagetools/icons/dlgBmp.h"
#include "imagetools/icons/frmIconMenu.h"
#include "imagetools/icons/modIconFile.h"
#include "imagetools/pictures/frmPictureReading.h"
#include "imagetools/pictures/modPicture.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/cMainForm.h"
#include "shell/state/frmTool.h"
#include "shell/state/modColors.h"
#include "ui_frmIcon.h"

#include <QAction>
#include <QButtonGroup>
#include <QEvent>
#include <QMenuBar>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int RuntimeButton = 16;     // the number of the toolbar's button, from 1
constexpr int TransparentSwatch = 16; // after the sixteen

QString ColorText(ColorRef color)
{
    return color == TransparentColor ? u"Transparent"_s : NameFromColor(QString::number(color));
}

QPixmap PixmapOf(const Icon& icon)
{
    return QPixmap::fromImage(ImageOf(PictureOf(icon)));
}

} // namespace

frmIcon::frmIcon(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::frmIcon>())
{
    ui->setupUi(this);
    auto* menus = new QMenuBar(this);
    menus->setNativeMenuBar(false);
    layout()->setMenuBar(menus);
    items = BuildIconMenu(*menus);
    buttons = BuildIconToolbar(*ui->Toolbar1, items);
    MakeSwatches();
    ConnectItems();
    ConnectControls();
    ui->fraBmp->hide();
    ui->fraChoose->hide();
    ShowOriginal({}, {});
    Picture2_Click(0);
    SetTool(IconTool::Paint);
    mnuNew_Click();
    ui->Picture3->setFocus();
    if (parent != nullptr)
        parent->installEventFilter(this);
}

frmIcon::~frmIcon()
{
    RemoveTempIcon();
}

void frmIcon::MakeSwatches()
{
    swatches = new QButtonGroup(this);
    for (int index = 0; index < static_cast<int>(SwatchColor.size()); ++index) {
        auto* swatch = findChild<frmIconSwatch*>(u"Picture2_%1"_s.arg(index));
        swatch->SetColor(SwatchColor[static_cast<std::size_t>(index)]);
        swatch->setToolTip(ColorText(swatch->Color()));
        swatch->setAccessibleName(ColorText(swatch->Color()));
        swatches->addButton(swatch, index);
    }
    ui->Picture4->SetColor(TransparentColor);
    swatches->addButton(ui->Picture4, TransparentSwatch);
}

void frmIcon::ConnectItems()
{
    static constexpr std::pair<const char*, Handler> handlers[] = {
        {"mnuNew", &frmIcon::mnuNew_Click},
        {"op", &frmIcon::op_Click},
        {"openBitmap", &frmIcon::openBitmap_Click},
        {"sva", &frmIcon::sva_Click},
        {"runtimeicon", &frmIcon::runtimeicon_Click},
        {"mnuExit", &frmIcon::reject},
        {"und", &frmIcon::und_Click},
        {"mnuPaint", &frmIcon::mnuPaint_Click},
        {"chCol", &frmIcon::chCol_Click},
        {"flHor", &frmIcon::flHor_Click},
        {"flVer", &frmIcon::flVer_Click},
        {"Rotat", &frmIcon::Rotat_Click},
        {"mnuUp", &frmIcon::mnuUp_Click},
        {"mnuDown", &frmIcon::mnuDown_Click},
        {"mnuLeft", &frmIcon::mnuLeft_Click},
        {"mnuRight", &frmIcon::mnuRight_Click},
        {"hlp", &frmIcon::hlp_Click},
        {"abo", &frmIcon::abo_Click},
    };
    for (const auto& [name, handler] : handlers) {
        On(items.value(QString::fromLatin1(name)), &QAction::triggered, this, handler);
    }
}

void frmIcon::ConnectControls()
{
    On(ui->Picture3, &frmPixelGrid::MouseDown, this, &frmIcon::Picture3_MouseDown);
    On(ui->Picture3, &frmPixelGrid::MouseMove, this, &frmIcon::Picture3_MouseMove);
    On(ui->Picture3, &frmPixelGrid::MouseUp, this, &frmIcon::Picture3_MouseUp);
    On(ui->Picture3, &frmPixelGrid::MouseLeft, this, &frmIcon::ShowHint);
    On(swatches, &QButtonGroup::idClicked, this, [this](int index) {
        if (index == TransparentSwatch)
            Picture4_Click();
        else
            Picture2_Click(index);
    });
    On(ui->cmdIcon0, this, [this] { cmdIcon_Click(0); });
    On(ui->cmdIcon1, this, [this] { cmdIcon_Click(1); });
    On(ui->cmdChoose, this, &frmIcon::cmdChoose_Click);
    On(ui->picBmp, &frmPictureArea::Selected, this, &frmIcon::picBmp_Selected);
    On(ui->picBmp, &frmPictureArea::Ended, this, &frmIcon::HidePicture);
    On(ui->picBmp, &frmPictureArea::Followed, this,
       [this](QPoint place) { ui->scrBmp->ensureVisible(place.x(), place.y(), 8, 8); });
}

// --- What is shown. -------------------------------------------------------------------------------------------------

void frmIcon::ShowSheet(const QString& news)
{
    ui->Picture1->setPixmap(PixmapOf(sheet.icon));
    ui->Picture3->ShowIcon(sheet.icon);
    items.value(u"und"_s)->setEnabled(sheet.canUndo);
    buttons[RuntimeButton - 1]->setEnabled(!sheet.isEmpty);
    if (news.isEmpty())
        ShowHint();
    else
        ui->lblState->setText(news);
}

void frmIcon::ShowHint()
{
    ui->lblState->setText(tool == IconTool::Paint
                              ? u"Left button: paint. Right button: take the color of a pixel."_s
                              : u"Left button: change every pixel of that color. Right button: take the "
                                "color of a pixel."_s);
}

void frmIcon::ShowPlace(IconPoint place)
{
    const std::optional<IconPoint> cell = CellAt(place);
    if (cell)
        ui->lblState->setText(
            u"%1, %2   %3"_s.arg(cell->x).arg(cell->y).arg(ColorText(sheet.icon.At(cell->x, cell->y))));
    else
        ShowHint();
}

void frmIcon::ShowOriginal(const Icon& icon, const QString& words)
{
    ui->picOrig->setPixmap(PixmapOf(icon));
    ui->lblOrig->setText(words);
    ui->picOrig->setVisible(!words.isEmpty());
    ui->lblOrig->setVisible(!words.isEmpty());
}

void frmIcon::SetTool(IconTool newTool)
{
    tool = newTool;
    const bool paints = tool == IconTool::Paint;
    items.value(paints ? u"mnuPaint"_s : u"chCol"_s)->setChecked(true);
    ui->Picture3->setCursor(paints ? Qt::CrossCursor : Qt::UpArrowCursor);
    ShowHint();
}

// --- Drawing. -------------------------------------------------------------------------------------------------------

void frmIcon::Picture2_Click(int index)
{
    auto* swatch = static_cast<frmIconSwatch*>(swatches->button(index));
    swatch->setChecked(true);
    currentColor = swatch->Color();
    QPixmap sample(IconSide, IconSide);
    sample.fill(ColorOf(currentColor));
    ui->Picture5->setPixmap(sample);
    ui->lblCurrent->setText(ColorText(currentColor));
}

void frmIcon::Picture4_Click()
{
    Picture2_Click(TransparentSwatch);
}

void frmIcon::PaintCells(const std::vector<IconPoint>& cells)
{
    for (const IconPoint cell : cells)
        sheet.icon.At(cell.x, cell.y) = currentColor;
}

void frmIcon::Picture3_MouseDown(IconPoint place, Qt::MouseButton button)
{
    if (IsOnGridLine(place))
        return;
    const IconPoint cell = *CellAt(place);
    const ColorRef color = sheet.icon.At(cell.x, cell.y);
    if (button == Qt::RightButton) {
        if (const std::optional<int> swatch = SwatchOf(color))
            Picture2_Click(*swatch);
    } else if (button == Qt::LeftButton) {
        SaveUndo(sheet);
        painting = tool == IconTool::Paint;
        lastPlace = place;
        if (painting)
            PaintCells({cell});
        else
            sheet.icon = ChangeAll(sheet.icon, color, currentColor);
        ShowSheet();
        ShowPlace(place);
    }
}

void frmIcon::Picture3_MouseMove(IconPoint place)
{
    if (painting) {
        PaintCells(CellsBetween(lastPlace, place));
        lastPlace = place;
        ShowSheet();
    }
    ShowPlace(place);
}

void frmIcon::Picture3_MouseUp()
{
    painting = false;
}

void frmIcon::Transform(Icon (*operation)(const Icon&))
{
    Edit(sheet, operation(sheet.icon));
    ShowSheet();
}

void frmIcon::und_Click()
{
    painting = false;
    Undo(sheet);
    ShowSheet();
}

void frmIcon::mnuNew_Click()
{
    painting = false;
    NewIcon(sheet);
    ShowSheet();
}

void frmIcon::mnuPaint_Click()
{
    SetTool(IconTool::Paint);
}

void frmIcon::chCol_Click()
{
    SetTool(IconTool::ChangeAll);
}

void frmIcon::flHor_Click()
{
    Transform(Mirror);
}

void frmIcon::flVer_Click()
{
    Transform(Flip);
}

void frmIcon::Rotat_Click()
{
    Transform(Rotate);
}

void frmIcon::mnuUp_Click()
{
    Transform(ShiftUp);
}

void frmIcon::mnuDown_Click()
{
    Transform(ShiftDown);
}

void frmIcon::mnuLeft_Click()
{
    Transform(ShiftLeft);
}

void frmIcon::mnuRight_Click()
{
    Transform(ShiftRight);
}

// --- Icons from files. ----------------------------------------------------------------------------------------------

void frmIcon::op_Click()
{
    const QString path = ToolFileBox(*this, {FilePurpose::Open,
                                             u"Open or Extract Icon"_s,
                                             {},
                                             {},
                                             u"Icons (*.ico)(*.icl)(*.exe)(*.dll)|*.ICO;*.ICL;*.EXE;*.DLL"_s});
    if (path.isEmpty())
        return;
    heldIcon.reset();
    ui->fraChoose->hide();
    ShowOriginal({}, {});
    iconCount = IconCount(path);
    if (iconCount == 0) {
        ui->lblState->setText(u"There is no icon in %1."_s.arg(NameOf(path)));
        return;
    }
    iconPath = path;
    iconIndex = 0;
    HidePicture();
    ui->fraChoose->show();
    ShowHeldIcon();
    ui->cmdChoose->setFocus();
}

void frmIcon::ShowHeldIcon()
{
    heldIcon = ExtractIcon(iconPath, iconIndex);
    Icon original;
    if (heldIcon)
        DrawIcon(original, *heldIcon);
    const QString count = iconCount > 1 ? u"%1 of %2"_s.arg(iconIndex + 1).arg(iconCount) : QString();
    ShowOriginal(original, NameOf(iconPath) + (count.isEmpty() ? QString() : u'\n' + count));
    ui->cmdChoose->setEnabled(heldIcon.has_value());
    ui->cmdIcon0->setVisible(iconCount > 1);
    ui->cmdIcon1->setVisible(iconCount > 1);
    ui->cmdIcon0->setEnabled(iconIndex < iconCount - 1);
    ui->cmdIcon1->setEnabled(iconIndex > 0);
    if (heldIcon)
        ShowHint();
    else
        ui->lblState->setText(u"This icon cannot be read."_s);
}

void frmIcon::cmdIcon_Click(int index)
{
    iconIndex = std::clamp(iconIndex + (index == 0 ? 1 : -1), 0, iconCount - 1);
    ShowHeldIcon();
}

void frmIcon::cmdChoose_Click()
{
    Icon drawn;
    DrawIcon(drawn, *heldIcon);
    TakeIcon(sheet, WriteTempIcon(drawn));
    ShowSheet();
    ui->Picture3->setFocus();
}

// --- Icons from pictures. -------------------------------------------------------------------------------------------

void frmIcon::openBitmap_Click()
{
    const QString path =
        ToolFileBox(*this, {FilePurpose::Open, u"Open Bitmap"_s, {}, {}, u"Images (*.bmp)|*.BMP;*.JPG;*.WMF;"_s});
    if (path.isEmpty())
        return;
    std::optional<cDIBSection> read = ReadPicture(path);
    if (!read)
        return;
    bitmap = *std::move(read);
    heldIcon.reset();
    ui->fraChoose->hide();
    ShowOriginal({}, {});
    ui->picBmp->ShowPicture(ImageOf(bitmap));
    ShowPicture();
    ui->picBmp->setFocus();
    if (dlgBmp::isWanted) {
        dlgBmp instructions(this);
        PrepareTool(instructions, dlgBmp::ManualPage);
        instructions.exec();
    }
}

void frmIcon::ShowPicture()
{
    if (ui->fraBmp->isVisible())
        return;
    widthBefore = width();
    ui->fraBmp->show();
    // Space for a medium-sized picture; larger ones are scrolled.
    constexpr int most = 480;
    resize(widthBefore + std::clamp(bitmap.Width(), ui->scrBmp->minimumWidth(), most) + 24, height());
}

void frmIcon::HidePicture()
{
    if (!ui->fraBmp->isVisible())
        return;
    ui->fraBmp->hide();
    layout()->activate();
    resize(widthBefore, height());
    ui->Picture3->setFocus();
}

void frmIcon::picBmp_Selected(const IconRegion& region)
{
    const Icon drawn = IconFromPicture(bitmap, region);
    ShowOriginal(drawn, u"Part of the picture"_s);
    Edit(sheet, WriteTempIcon(drawn));
    SetTool(IconTool::Paint);
    ShowSheet();
}

// --- Icons to files. ------------------------------------------------------------------------------------------------

void frmIcon::sva_Click()
{
    int filter = 0;
    FileSpec box;
    box.purpose = FilePurpose::Save;
    box.title = u"Save As"_s;
    box.filter = u"Icons (*.ico)|*.ico|Bitmaps (*.bmp)|*.bmp"_s;
    box.filterIndex = &filter;
    box.extension = u"ico"_s;
    const QString path = ToolFileBox(*this, box);
    if (path.isEmpty())
        return;
    try {
        ReplaceFile(path, filter == 1 ? BitmapFileOf(sheet.icon) : IconFileOf(sheet.icon));
    } catch (RuntimeError& error) {
        error.reason += u". Choose another folder or another name."_s;
        throw;
    }
    MarkSaved(sheet);
    ShowSheet(u"Saved as %1."_s.arg(NameOf(path)));
}

void frmIcon::runtimeicon_Click()
{
    const BoxAnswer answer = MsgBox(u"Is this program written in Orchard BASIC v4.x?"_s, BoxIcon::Question,
                                    BoxButtons::YesNo, u"Orchard BASIC Version?"_s);
    const QString path = ToolFileBox(*this, {FilePurpose::Open, u"Runtime Icon"_s, {}, {}, u"Runtime engine|*.exe"_s});
    if (path.isEmpty())
        return;
    try {
        InstallIcon(path, sheet.icon, answer == BoxAnswer::Yes ? EngineVersion::Four : EngineVersion::Three);
    } catch (const RuntimeError& error) {
        // There is no box for it.
        ShowReason(error);
        ShowSheet(u"The icon was not put into %1: %2."_s.arg(NameOf(path), error.description));
        return;
    }
    sheet.icon = ReducedIcon(sheet.icon);
    ShowSheet();
    MsgBox(u"Current Icon has been included in copy of runtime engine named "_s + path);
}

void frmIcon::hlp_Click()
{
    OpenManual(QString::fromLatin1(ManualPage));
}

void frmIcon::abo_Click()
{
    ChooseMenuItem(u"mnuHelpAbout"_s);
}

// --- The end. -------------------------------------------------------------------------------------------------------

frmIcon::Leaving frmIcon::QueryUnload()
{
    if (!sheet.isChanged)
        return Leaving::Closes;
    const BoxAnswer answer = MsgBox(u"Save icon?"_s, BoxIcon::Question, BoxButtons::YesNoCancel);
    if (answer == BoxAnswer::Yes)
        RunCommand([this] { sva_Click(); });
    // A requested save that fails keeps the window open.
    return answer == BoxAnswer::No || !sheet.isChanged ? Leaving::Closes : Leaving::Stays;
}

void frmIcon::reject()
{
    // A main window that has gone has asked before closing; its end closes the tools too.
    const bool hasAsked = parentWidget() != nullptr && !parentWidget()->isVisible();
    if (hasAsked || QueryUnload() == Leaving::Closes)
        QDialog::reject();
}

// The bench closes with its main window, which must not lose an unsaved icon.
bool frmIcon::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent() && event->type() == QEvent::Close && isVisible() && QueryUnload() == Leaving::Stays) {
        event->ignore();
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void mnuToolIcon_Click()
{
    ShowTool<frmIcon>();
}

} // namespace ob
