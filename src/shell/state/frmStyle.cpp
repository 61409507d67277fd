// SPDX-License-Identifier: GPL-3.0-or-later
// What every window has beyond the desktop's style.
#include "shell/state/frmStyle.h"

#include "shell/state/cOneLine.h"
#include "shell/state/modColors.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFileDialog>
#include <QHash>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QStyleOption>

namespace ob {

namespace {

constexpr int DarkestLightWindow = 127;
constexpr float OutlineStrength = 0.5F;

constexpr char KeepsLineEnds[] = "keepsLineEnds";

// The colour, mixed with that of the row's text as far as it takes to be seen on the row.
QColor SeenOn(const QPalette& row, const QColor& color)
{
    const QColor text = row.color(QPalette::HighlightedText);
    const auto mixed = [&](float share) {
        const auto part = [share](float from, float to) { return from + share * (to - from); };
        return QColor::fromRgbF(part(color.redF(), text.redF()), part(color.greenF(), text.greenF()),
                                part(color.blueF(), text.blueF()));
    };
    for (int tenths = 0; tenths < 10; ++tenths)
        if (const QColor seen = mixed(static_cast<float>(tenths) / 10);
            ContrastOf(row.color(QPalette::Highlight), seen) >= PictureContrast)
            return seen;
    return text;
}

// The picture as it is shown on a selected row.
QPixmap PictureOn(const QPalette& row, const QPixmap& picture)
{
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    QHash<QRgb, QRgb> seen; // few colours, as shapes are smoothed by their alpha
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(line[x]) == 0)
                continue;
            const QRgb color = line[x] | ~RGB_MASK;
            auto found = seen.constFind(color);
            if (found == seen.constEnd())
                found = seen.insert(color, SeenOn(row, QColor(color)).rgb());
            line[x] = (*found & RGB_MASK) | (line[x] & ~RGB_MASK);
        }
    }
    return QPixmap::fromImage(image);
}

QIcon IconOnSelection(const QStyleOptionMenuItem& item, const QStyle& style, const QWidget* widget)
{
    const int size = style.pixelMetric(QStyle::PM_SmallIconSize, &item, widget);
    const qreal scale = widget == nullptr ? qApp->devicePixelRatio() : widget->devicePixelRatioF();
    const QPixmap picture =
        item.icon.pixmap(QSize(size, size), scale, QIcon::Active, item.checked ? QIcon::On : QIcon::Off);
    return picture.isNull() ? item.icon : QIcon(PictureOn(item.palette, picture));
}

bool IsFocusedList(const QWidget* widget)
{
    return qobject_cast<const QAbstractItemView*>(widget) != nullptr && widget->hasFocus();
}

} // namespace

void frmStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    auto* field = qobject_cast<QLineEdit*>(widget);
    if (field == nullptr || field->validator() != nullptr || field->property(KeepsLineEnds).toBool())
        return;
    // The name of a file may hold any character.
    if (qobject_cast<QFileDialog*>(field->window()) == nullptr)
        field->setValidator(new cOneLine(field));
}

// Some desktops name all colours of a dark palette but this one, which is then a transparent black.
void frmStyle::polish(QPalette& palette)
{
    constexpr int half = 128; // of 255
    QProxyStyle::polish(palette);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QColor ground = palette.color(group, QPalette::Base);
        if (ContrastOf(ground, palette.color(group, QPalette::PlaceholderText)) >= PictureContrast)
            continue;
        QColor hint = palette.color(group, QPalette::Text);
        hint.setAlpha(half);
        palette.setColor(group, QPalette::PlaceholderText, hint);
    }
}

void frmStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool isRound = element == PE_IndicatorRadioButton;
    const bool isMark = isRound || element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck;
    if (!isMark || option->palette.color(QPalette::Window).lightness() > DarkestLightWindow)
        return;
    // The style's outline is a darker shade of the window, which a dark window hides.
    QColor outline = option->palette.color(QPalette::WindowText);
    outline.setAlphaF(OutlineStrength);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(outline);
    painter->setBrush(Qt::NoBrush);
    const QRectF frame = QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5);
    if (isRound)
        painter->drawEllipse(frame);
    else
        painter->drawRect(frame);
    painter->restore();
}

void frmStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const
{
    const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
    const int shown = State_Selected | State_Enabled;
    if (element == CE_MenuItem && item != nullptr && !item->icon.isNull() && (item->state & shown) == shown) {
        QStyleOptionMenuItem selected = *item;
        selected.icon = IconOnSelection(*item, *this, widget);
        QProxyStyle::drawControl(element, &selected, painter, widget);
        return;
    }
    QProxyStyle::drawControl(element, option, painter, widget);
    const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (element == CE_ShapedFrame && frame != nullptr && frame->frameShape != QFrame::NoFrame &&
        IsFocusedList(widget)) {
        painter->setPen(option->palette.color(QPalette::Highlight));
        painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
    }
}

void UseBenchStyle()
{
    static QPointer<frmStyle> style;
    if (!style.isNull())
        return;
    style = new frmStyle;
    QApplication::setStyle(style);
}

} // namespace ob
