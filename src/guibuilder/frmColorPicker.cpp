// SPDX-License-Identifier: GPL-3.0-or-later
// A box to choose one of the language's colours by name.
#include "guibuilder/frmColorPicker.h"

#include "guibuilder/modGui.h"
#include "shell/Module1.h"

#include <QEvent>
#include <QPainter>

namespace ob {

namespace {

constexpr QSize SwatchSize(28, 14);
constexpr int ButtonfacePlace = ColorCount - 1;

QColor ColorOf(ColorRef color)
{
    const auto channel = [&](int shift) { return static_cast<int>((color >> shift) & 0xFF); };
    return {channel(0), channel(8), channel(16)};
}

// A raised key: lit from the upper left, in shadow at the lower right.
void PaintButton(QPainter& painter, const QRect& rect, const QPalette& colors)
{
    painter.fillRect(rect, colors.color(QPalette::Button));
    const QColor face = colors.color(QPalette::Button);
    painter.setPen(face.lightness() > 127 ? QColor(Qt::white) : face.lighter(190));
    painter.drawPolyline(QPolygon({rect.bottomLeft(), rect.topLeft(), rect.topRight()}));
    painter.setPen(face.darker(165));
    painter.drawPolyline(QPolygon({rect.topRight(), rect.bottomRight(), rect.bottomLeft()}));
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
    const QRect outline(QPoint(0, 0), SwatchSize - QSize(1, 1));
    // Grey stands off from a light ground and a dark one, and so from every colour between.
    painter.setPen(QColor(128, 128, 128));
    painter.drawRect(outline);
    const QRect inside(QPoint(1, 1), SwatchSize - QSize(2, 2));
    if (color == ButtonfacePlace)
        PaintButton(painter, inside, palette());
    else
        painter.fillRect(inside, ColorOf(ColorValue[static_cast<std::size_t>(color)]));
    return picture;
}

} // namespace ob
