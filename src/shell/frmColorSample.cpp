// SPDX-License-Identifier: GPL-3.0-or-later
// A label that shows what a color of the code windows looks like.
#include "shell/frmColorSample.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

namespace ob {

static QColor ColorOf(ColorRef color)
{
    const auto channel = [&](int shift) { return static_cast<int>((color >> shift) & 0xFF); };
    return {channel(0), channel(8), channel(16)};
}

void SetLabelColors(QLabel& label, ColorRef fore, ColorRef back)
{
    QPalette colors = label.palette();
    colors.setColor(QPalette::WindowText, ColorOf(fore));
    colors.setColor(QPalette::Window, ColorOf(back));
    label.setPalette(colors);
    label.setAutoFillBackground(true);
}

frmColorSample::frmColorSample(QWidget* parent) : QLabel(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
}

void frmColorSample::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
        Q_EMIT Pressed();
}

void frmColorSample::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space)
        Q_EMIT Pressed();
    else
        QLabel::keyPressEvent(event);
}

void frmColorSample::paintEvent(QPaintEvent* event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    constexpr int inset = 3; // pixels, clear of the frame
    option.rect = rect().adjusted(inset, inset, -inset, -inset);
    option.backgroundColor = palette().color(QPalette::Window);
    option.state |= QStyle::State_KeyboardFocusChange;
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void frmColorSample::focusInEvent(QFocusEvent* event)
{
    QLabel::focusInEvent(event);
    update();
}

void frmColorSample::focusOutEvent(QFocusEvent* event)
{
    QLabel::focusOutEvent(event);
    update();
}

} // namespace ob
