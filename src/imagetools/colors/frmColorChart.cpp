// SPDX-License-Identifier: GPL-3.0-or-later
// A chart of the language's colours.
#include "imagetools/colors/frmColorChart.h"

#include "platform/desktop/modSystemColors.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int Columns = 4;
constexpr int Rows = 5;
constexpr int Gap = 6;    // pixels between fields
constexpr int Margin = 8; // pixels around a field's text
constexpr int SystemColorPlace = ColorCount - 1;

QString NameOfColor(int color)
{
    const std::string_view name = ColorName[static_cast<std::size_t>(color)];
    return QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

// The last one is a colour of the desktop and is shown as it is now.
ColorRef ValueOf(int color)
{
    return color == SystemColorPlace ? GetSysColor(SystemColor::ButtonFace)
                                     : ColorValue[static_cast<std::size_t>(color)];
}

QColor ToolkitColor(ColorRef color)
{
    const auto part = [&](int shift) { return static_cast<int>((color >> shift) & 0xFF); };
    return {part(0), part(8), part(16)};
}

// Black or white, whichever has more contrast.
QColor TextColorOn(const QColor& ground)
{
    const auto light = [](float part) { return std::pow(part, 2.2F); };
    const float luminance =
        0.2126F * light(ground.redF()) + 0.7152F * light(ground.greenF()) + 0.0722F * light(ground.blueF());
    constexpr float even = 0.179F; // both have the same contrast
    return luminance > even ? Qt::black : Qt::white;
}

QFont Bold(QFont font)
{
    font.setBold(true);
    return font;
}

// Wide enough for every text in this font.
QSize FieldSize(const QFont& font)
{
    const QFontMetrics plain(font);
    const QFontMetrics bold(Bold(font));
    int width = plain.horizontalAdvance(u"255 255 255"_s);
    for (int color = 0; color < ColorCount; ++color)
        width = std::max(width, bold.horizontalAdvance(NameOfColor(color)));
    return {width + 2 * Margin, bold.lineSpacing() + plain.lineSpacing() + 2 * Margin};
}

} // namespace

QString ColorPartsText(ColorRef color)
{
    return u"%1 %2 %3"_s.arg(color & 0xFF).arg((color >> 8) & 0xFF).arg((color >> 16) & 0xFF);
}

frmColorChart::frmColorChart(QWidget* parent) : QWidget(parent)
{
    QStringList texts;
    for (int color = 0; color < ColorCount; ++color)
        texts.append(NameOfColor(color) + u' ' + ColorPartsText(ValueOf(color)));
    setAccessibleDescription(texts.join(u", "_s));
}

QSize frmColorChart::sizeHint() const
{
    return minimumSizeHint().grownBy({20, 15, 20, 15});
}

QSize frmColorChart::minimumSizeHint() const
{
    const QSize field = FieldSize(font());
    return {Columns * field.width() + (Columns - 1) * Gap, Rows * field.height() + (Rows - 1) * Gap};
}

QRect frmColorChart::FieldOf(int color) const
{
    const auto edge = [](int place, int count, int length) { return place * (length + Gap) / count; };
    const int column = color % Columns;
    const int row = color / Columns;
    const int left = edge(column, Columns, width());
    const int top = edge(row, Rows, height());
    // The colour of the desktop has the last row to itself.
    const int right = color == SystemColorPlace ? width() + Gap : edge(column + 1, Columns, width());
    return {left, top, right - left - Gap, edge(row + 1, Rows, height()) - top - Gap};
}

void frmColorChart::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (int color = 0; color < ColorCount; ++color) {
        const QColor ground = ToolkitColor(ValueOf(color));
        const QRect field = FieldOf(color);
        painter.setPen(palette().color(QPalette::Mid));
        painter.setBrush(ground);
        painter.drawRect(field.adjusted(0, 0, -1, -1));
        painter.setPen(TextColorOn(ground));
        const int middle = field.center().y();
        painter.setFont(Bold(font()));
        painter.drawText(QRect(field.left(), field.top(), field.width(), middle - field.top()),
                         Qt::AlignHCenter | Qt::AlignBottom, NameOfColor(color));
        painter.setFont(font());
        painter.drawText(QRect(field.left(), middle, field.width(), field.bottom() - middle),
                         Qt::AlignHCenter | Qt::AlignTop, ColorPartsText(ValueOf(color)));
    }
}

} // namespace ob
