// SPDX-License-Identifier: GPL-3.0-or-later
// The icon bench: draws an icon of 32 x 32 pixels, makes one from a picture, and writes it into a runtime engine.
#pragma once

#include "imagetools/icons/modIcon.h"
#include "imagetools/icons/modIconImage.h"
#include "platform/language/modColorNames.h"

#include <QDialog>
#include <QHash>
#include <QList>

#include <memory>
#include <optional>

class QAction;
class QButtonGroup;

namespace Ui {
class frmIcon;
}

namespace ob {

class frmIcon final : public QDialog {
    Q_OBJECT

public:
    static constexpr char ManualPage[] = "icon-editor";

    explicit frmIcon(QWidget* parent = nullptr);
    ~frmIcon() override;

    void reject() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Handler = void (frmIcon::*)();

    void ConnectItems();
    void ConnectControls();
    void MakeSwatches();
    enum class Leaving { Closes, Stays };
    Leaving QueryUnload();

    // Shows the sheet's icon, the available commands, and a status text.
    void ShowSheet(const QString& news = {});
    void ShowPlace(IconPoint place);
    void ShowHint();
    void ShowOriginal(const Icon& icon, const QString& words);
    void ShowHeldIcon();
    void ShowPicture();
    void HidePicture();
    void SetTool(IconTool newTool);
    void Transform(Icon (*operation)(const Icon&));
    void PaintCells(const std::vector<IconPoint>& cells);

    void Picture2_Click(int index);
    void Picture3_MouseDown(IconPoint place, Qt::MouseButton button);
    void Picture3_MouseMove(IconPoint place);
    void Picture3_MouseUp();
    void Picture4_Click();
    void picBmp_Selected(const IconRegion& region);
    void cmdIcon_Click(int index);
    void cmdChoose_Click();

    void mnuNew_Click();
    void op_Click();
    void openBitmap_Click();
    void sva_Click();
    void runtimeicon_Click();
    void und_Click();
    void mnuPaint_Click();
    void chCol_Click();
    void flHor_Click();
    void flVer_Click();
    void Rotat_Click();
    void mnuUp_Click();
    void mnuDown_Click();
    void mnuLeft_Click();
    void mnuRight_Click();
    void hlp_Click();
    void abo_Click();

    std::unique_ptr<Ui::frmIcon> ui;
    QHash<QString, QAction*> items;
    QList<QAction*> buttons;
    QButtonGroup* swatches = nullptr;

    IconSheet sheet;
    IconTool tool = IconTool::Paint;
    ColorRef currentColor = 0;
    bool painting = false; // the left button is down in the grid
    IconPoint lastPlace;   // of the pointer, while painting
    QString iconPath;      // the file whose icons are browsed
    int iconCount = 0;
    int iconIndex = 0;
    std::optional<IconImage> heldIcon; // taken by cmdChoose
    cDIBSection bitmap;                // shown by picBmp
    int widthBefore = 0;               // the window's, before the picture was shown
};

void mnuToolIcon_Click();

} // namespace ob
