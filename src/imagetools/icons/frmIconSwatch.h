// SPDX-License-Identifier: GPL-3.0-or-later
// A button that shows one colour to paint with.
#pragma once

#include "platform/language/modColorNames.h"

#include <QAbstractButton>

namespace ob {

// In an exclusive group the arrow keys choose.
class frmIconSwatch final : public QAbstractButton {
    Q_OBJECT

public:
    explicit frmIconSwatch(QWidget* parent = nullptr);

    void SetColor(ColorRef newColor);
    ColorRef Color() const { return color; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ColorRef color = 0;
};

} // namespace ob
