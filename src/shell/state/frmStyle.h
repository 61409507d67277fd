// SPDX-License-Identifier: GPL-3.0-or-later
// What every window has beyond the desktop's style.
#pragma once

#include <QProxyStyle>

namespace ob {

// A list that has the keyboard has a frame in the colour of the selection. A menu item's icon can be seen on the
// selected row. A field of one line holds what it shows, unless it has a validator of its own, its property
// "keepsLineEnds" is set, or it belongs to a file box. The hint in an empty field and an
// empty check box can be seen in every palette.
class frmStyle final : public QProxyStyle {
public:
    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void polish(QPalette& palette) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

// Gives the application this style; does nothing when it has it.
void UseBenchStyle();

} // namespace ob
