// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's palette at the left edge of the main window.
#pragma once

#include <QFrame>

class QCheckBox;
class QToolButton;

namespace ob {

class frmPalette final : public QFrame {
    Q_OBJECT

public:
    explicit frmPalette(QWidget* parent = nullptr);

Q_SIGNALS:
    void CloseWanted();

private:
    QToolButton* cmdGuiX = nullptr;
    QCheckBox* chkGrid = nullptr;
    QCheckBox* chkLock = nullptr;
};

} // namespace ob
