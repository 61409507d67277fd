// SPDX-License-Identifier: GPL-3.0-or-later
// A chart of the language's colours: one field each, with its name and its red, green and blue.
#pragma once

#include "platform/language/modColorNames.h"

#include <QWidget>

namespace ob {

// The text of a field's second line, "255 0 255".
QString ColorPartsText(ColorRef color);

class frmColorChart final : public QWidget {
    Q_OBJECT

public:
    explicit frmColorChart(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    // The place of the field of that index in ColorName.
    QRect FieldOf(int color) const;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace ob
