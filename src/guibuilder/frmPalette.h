// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's palette at the left edge of the main window.
#pragma once

#include <QFrame>

#include <vector>

class QGridLayout;
class QToolButton;
class QVBoxLayout;

namespace ob {

class cDesigner;
class frmGui;

class frmPalette final : public QFrame {
    Q_OBJECT

public:
    explicit frmPalette(cDesigner& target, QWidget* parent = nullptr);

    // The form window that the tools apply to; null while there is none.
    void Follow(frmGui* window);

    // Updates the tools from the form: which are enabled, which one is armed, grid and lock.
    void Refresh();

    // By the tool's name, which is its tip; an unknown name is ignored.
    void EnableTool(const QString& name, bool enable);

Q_SIGNALS:
    void CloseWanted();

private:
    QToolButton* MakeButton(const char* name, const char* icon, const QString& tip);
    QGridLayout* AddGroup(QVBoxLayout& column);
    void MakeTools(QVBoxLayout& column);
    void Use(std::size_t number);
    void RepaintSurface();

    cDesigner& designer;
    frmGui* gui = nullptr;
    QToolButton* cmdGuiX = nullptr;
    QToolButton* chkGrid = nullptr;
    QToolButton* chkLock = nullptr;
    QToolButton* chkSnap = nullptr;
    std::vector<QToolButton*> cmdTools;
    std::vector<bool> usable; // as the form allows; none while there is no form
};

} // namespace ob
