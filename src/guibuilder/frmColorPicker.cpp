// SPDX-License-Identifier: GPL-3.0-or-later
// A box to choose one of the language's colours by name.
#include "guibuilder/frmColorPicker.h"

#include "guibuilder/modGui.h"
#include "platform/language/modColorNames.h"
#include "shell/state/modColors.h"

#include <QEvent>
#include <QPainter>

namespace ob {

namespace {

constexpr QSize SwatchSize(28, 14);
constexpr int ButtonfacePlace = ColorCount - 1;

// Grey contrasts with both light and dark backgrounds, and so with every colour between.
constexpr QColor OutlineColor(128, 128, 128);

// Drawn like a current button: round corners, lit from above.
void PaintButton(QPainter& painter, const QRectF& outline, const QPalette& colors)
{
    const QColor face = colors.color(QPalette::Button);
    QLinearGradient shade(outline.topLeft(), outline.bottomLeft());
    shade.setColorAt(0, face.lighter(118));
    shade.setColorAt(0.5, face);
    shade.setColorAt(1, face.darker(118));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(OutlineColor);
    painter.setBrush(shade);
    painter.drawRoundedRect(outline, 3, 3);
}

} // namespace

frmColorPicker::frmColorPicker(QWidget* parent) : QComboBox(parent)
{
    setMaxVisibleItems(ColorCount);
    setIconSize(SwatchSize);
    for (const std::string_view name : ColorName)
        addItem(LatinText(name));
    PaintSwatches();
    setCurrentIndex(-1);
}

void frmColorPicker::SelectName(const QString& name)
{
    setCurrentIndex(findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive));
    setPlaceholderText(name);
}

QString frmColorPicker::Name() const
{
    return currentIndex() < 0 ? placeholderText() : currentText();
}

void frmColorPicker::changeEvent(QEvent* event)
{
    QComboBox::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        PaintSwatches();
}

void frmColorPicker::PaintSwatches()
{
    for (int color = 0; color < count(); ++color)
        setItemIcon(color, Swatch(color));
}

QIcon frmColorPicker::Swatch(int color) const
{
    QPixmap picture(SwatchSize * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    if (color == ButtonfacePlace) {
        PaintButton(painter, QRectF(QPointF(0.5, 0.5), QSizeF(SwatchSize - QSize(1, 1))), palette());
        return picture;
    }
    painter.setPen(OutlineColor);
    painter.setBrush(ColorOf(ColorValue[static_cast<std::size_t>(color)]));
    painter.drawRect(QRect(QPoint(0, 0), SwatchSize - QSize(1, 1)));
    return picture;
}

} // namespace ob
