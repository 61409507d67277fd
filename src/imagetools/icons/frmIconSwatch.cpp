// SPDX-License-Identifier: GPL-3.0-or-later
// A button that shows one colour to paint with.
#include "imagetools/icons/frmIconSwatch.h"

#include "shell/state/modColors.h"

#include <QPainter>

namespace ob {

frmIconSwatch::frmIconSwatch(QWidget* parent) : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::PointingHandCursor);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void frmIconSwatch::SetColor(ColorRef newColor)
{
    color = newColor;
    update();
}

QSize frmIconSwatch::sizeHint() const
{
    return {28, 28};
}

void frmIconSwatch::paintEvent(QPaintEvent*)
{
    // The colour extends to its frame; the chosen one has a ring around it, with a gap so that no colour can hide it.
    constexpr int gap = 4;
    constexpr int ring = 2;
    QPainter painter(this);
    const QRect inner = rect().adjusted(gap, gap, -gap, -gap);
    painter.fillRect(inner, palette().color(QPalette::Mid));
    painter.fillRect(inner.adjusted(1, 1, -1, -1), ColorOf(color));
    if (!isChecked() && !hasFocus())
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::WindowText), ring));
    painter.drawRoundedRect(rect().adjusted(ring / 2, ring / 2, -ring / 2, -ring / 2), 3, 3);
}

} // namespace ob
