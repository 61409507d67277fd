// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's palette at the left edge of the main window.
#pragma once

#include <QFrame>

#include <vector>

class QToolButton;
class QVBoxLayout;

namespace ob {

class frmPalette final : public QFrame {
    Q_OBJECT

public:
    explicit frmPalette(QWidget* parent = nullptr);

    // The tools follow the form window: which can be used, which one is armed, grid and lock.
    void Refresh();
    void EnableTool(int place, bool enable);

    // The word of the control that the tool at that place arms; empty for a command.
    static QString ArmedBy(int place);

Q_SIGNALS:
    void CloseWanted();
    void ToolPressed(int place); // from 0
    void GridSwitched();
    void LockSwitched();

private:
    QToolButton* MakeButton(const char* name, const char* icon, const QString& tip);
    void MakeTools(QVBoxLayout& column);

    QToolButton* cmdGuiX = nullptr;
    QToolButton* chkGrid = nullptr;
    QToolButton* chkLock = nullptr;
    std::vector<QToolButton*> cmdTools;
    std::vector<bool> usable; // by what the form allows; none is while there is no form
};

} // namespace ob
