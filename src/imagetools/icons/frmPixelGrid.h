// SPDX-License-Identifier: GPL-3.0-or-later
// The enlarged view of an icon: one cell per pixel, with lines between; it reports what mouse and keys do to it.
#pragma once

#include "imagetools/icons/modIcon.h"

#include <QWidget>

namespace ob {

// The view has a width and height of GridSide logical pixels. Cells and lines start and end on whole screen pixels at
// any scale.
//
// The keys act as a mouse on a cell with a frame: arrows, Home, End, Page Up and Page Down move it, Space is the left
// button for as long as it is held, Enter the right one.
class frmPixelGrid final : public QWidget {
    Q_OBJECT

public:
    explicit frmPixelGrid(QWidget* parent = nullptr);

    // Repaints the cells that differ from the icon before.
    void ShowIcon(const Icon& newIcon);

Q_SIGNALS:
    void MouseDown(ob::IconPoint place, Qt::MouseButton button);
    void MouseMove(ob::IconPoint place); // whether or not a button is down
    void MouseUp();                      // also when a move comes without a button down
    void MouseLeft();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    bool MoveKeyCell(int key);
    void EndSpace();
    void UpdateCell(IconPoint cell);
    void ShowKeyCell(bool shown);

    Icon icon;
    IconPoint keyCell;
    bool keyCellShown = false;
    bool spaceHeld = false;
};

} // namespace ob
