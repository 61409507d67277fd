// SPDX-License-Identifier: GPL-3.0-or-later
// A label that shows a colour of the code windows and asks for another one when pressed.
#pragma once

#include "platform/language/modColorNames.h"

#include <QLabel>

namespace ob {

// Shows a label's text and background in these colours.
void SetLabelColors(QLabel& label, ColorRef fore, ColorRef back);

class frmColorSample final : public QLabel {
    Q_OBJECT

public:
    explicit frmColorSample(QWidget* parent = nullptr);

Q_SIGNALS:
    void Pressed();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};

} // namespace ob
