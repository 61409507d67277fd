// SPDX-License-Identifier: GPL-3.0-or-later
// A label that shows a colour of the code windows.
#include "shell/state/frmColorSample.h"

#include "shell/state/modColors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace ob {

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
    // The style's own focus mark may be a tint, which would look like part of the colour.
    constexpr int width = 2; // pixels
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), width));
    painter.drawRect(rect().adjusted(width / 2, width / 2, -width / 2, -width / 2));
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
