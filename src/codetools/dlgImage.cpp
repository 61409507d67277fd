// SPDX-License-Identifier: GPL-3.0-or-later
// Browses the standard pictures for toolbar buttons.
#include "codetools/dlgImage.h"

#include "codetools/modToolbarStrip.h"
#include "platform/dialogs/frmCommand.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/Module1.h"
#include "ui_dlgImage.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Large enough to see each pixel, and the same on every screen.
constexpr int Enlargement = 6;

const QImage& Strip()
{
    static const QImage strip(u":/icons/standard-toolbar.png"_s);
    return strip;
}

} // namespace

int dlgImage::StandardImageCount()
{
    return Strip().width() / ToolbarPictureSide;
}

QImage dlgImage::StandardImage(int number)
{
    return Strip().copy((number - 1) * ToolbarPictureSide, 0, ToolbarPictureSide, ToolbarPictureSide);
}

dlgImage::dlgImage(QWidget* parent) : QDialog(parent), ui(std::make_unique<Ui::dlgImage>())
{
    ui->setupUi(this);
    const auto on = [this](const QPushButton* button, Step step) {
        On(button, this, [this, step] { cmdNext_Click(step); });
    };
    on(ui->cmdNext0, Step::Back);
    on(ui->cmdNext1, Step::Next);
    const auto onKey = [this](Qt::Key key, Step step) {
        On(new QShortcut(key, this), &QShortcut::activated, this, [this, step] { cmdNext_Click(step); });
    };
    onKey(Qt::Key_Left, Step::Back);
    onKey(Qt::Key_Right, Step::Next);
    connect(ui->OKButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui->CancelButton, &QPushButton::clicked, this, &QDialog::reject);
    // Opens on the picture chosen last; after a Cancel, on the first.
    if (ToolImageIndex < 1)
        ToolImageIndex = 1;
    ShowImage();
}

dlgImage::~dlgImage() = default;

void dlgImage::reject()
{
    ToolImageIndex = 0;
    QDialog::reject();
}

void dlgImage::cmdNext_Click(Step step)
{
    ToolImageIndex += static_cast<int>(step);
    if (ToolImageIndex > StandardImageCount())
        ToolImageIndex = 1;
    if (ToolImageIndex < 1)
        ToolImageIndex = StandardImageCount();
    ShowImage();
}

void dlgImage::ShowImage()
{
    const int side = ToolbarPictureSide * Enlargement;
    ui->picBox->setPixmap(QPixmap::fromImage(StandardImage(ToolImageIndex).scaled(side, side)));
    ui->lblPlace->setText(u"%1 of %2"_s.arg(ToolImageIndex).arg(StandardImageCount()));
}

} // namespace ob
