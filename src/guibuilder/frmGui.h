// SPDX-License-Identifier: GPL-3.0-or-later
// The form under design as a child window: menu label, drawing surface, status bar.
#pragma once

#include <QWidget>

#include <string_view>
#include <vector>

class QHBoxLayout;
class QLabel;
class QMdiSubWindow;

namespace ob {

class cDesigner;
class frmSurface;
struct ControlRef;
struct FormDesign;

class frmGui final : public QWidget {
    Q_OBJECT

public:
    // Loads the form window: the form under design is empty from here on.
    explicit frmGui(cDesigner& target, QWidget* parent = nullptr);

    // The window in the area that holds this one, once it has been made.
    void Join(QMdiSubWindow& window);

    // Shows the form under design.
    void Refresh();

    // The form window has become the active child.
    void Activate();

    // Arms a control tool, and makes this window the active child for it.
    void ArmTool(const QString& toolName);

    // Selects a control of the form, and makes this window the active child.
    void ShowControl(ControlRef control);

    frmSurface& Surface() { return *picBase; }

Q_SIGNALS:
    void Unloaded(QWidget* gone);

protected:
    void closeEvent(QCloseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void MakeStatusBar();
    void ShowPanels();
    void BringUp();
    QRect FormRect() const;
    void PlaceWindow();
    QPoint ScrollPlace() const;
    void TakeWindowRect();
    void TakeWindowState();
    void TakeColors();
    void lblMenu_Click(Qt::MouseButton button);
    void sBar_Click();

    cDesigner& designer;
    FormDesign& design; // the designer's
    QLabel* lblMenu = nullptr;
    frmSurface* picBase = nullptr;
    QWidget* sBar = nullptr;
    QHBoxLayout* panelRow = nullptr;
    std::vector<QLabel*> panelLabels;
    QLabel* lblStatusbar = nullptr;
    QMdiSubWindow* frame = nullptr;
    QRect wantedRect;   // of the frame, from the form
    QPoint shownScroll; // of the area at that time
    QRect shownRect;    // where it actually is, so that only the user's changes go into the form
};

} // namespace ob
