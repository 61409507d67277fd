// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface: paints the form under design and hands the mouse and the keys to the designer.
#pragma once

#include "guibuilder/cDesigner.h"

#include <QWidget>

#include <memory>

namespace ob {

class SurfaceStyle;

class frmSurface final : public QWidget {
    Q_OBJECT

public:
    explicit frmSurface(cDesigner& target, QWidget* parent = nullptr);
    ~frmSurface() override;

    // The form has been changed from outside the surface: refreshes fonts, colours and all controls.
    void Refresh();
    // The form has been replaced by another, which cannot be undone.
    void Restart();

    void ArmTool(const QString& toolName);
    // Selects a control, and shows it wherever it is.
    void ShowControl(ControlRef control);
    void ShowWindowDefaults(cDesigner::OpenedBy opened = cDesigner::OpenedBy::Mouse);
    void ShowMenuEditor();

    cDesigner& Designer() { return designer; }
    const SurfaceStyle& Style() const { return *style; }

    // From a place on the widget to one on the surface, and the reverse.
    SurfacePoint PointAt(QPointF pixel) const;
    QRect PixelsOf(const SurfaceRect& rect) const;

Q_SIGNALS:
    // The mouse or the keys may have used, or given up, the armed tool.
    void ToolUsed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;

private:
    void TakeStep(void (cDesigner::*step)());
    bool TakeKey(const QKeyEvent& event);
    bool TakeArrow(const QKeyEvent& event);
    void ShowProperties(ControlRef control, cDesigner::OpenedBy opened);
    void ShowDialog();
    void AskToDelete();
    void ShowMenu(QPoint place);
    void UpdateDamage();
    void UpdatePointer(QPointF pixel, Qt::KeyboardModifiers held);
    void FollowSelection();
    QRect FormPixels(const SurfaceRect& rect) const;
    void PaintOutside(QPainter& painter, const QRect& exposed) const;
    QString BranchUnder(QPointF pixel) const;

    cDesigner& designer;
    std::unique_ptr<SurfaceStyle> style;
    QPoint scroll; // the pixel of the form at the widget's upper left corner; zero but for a control that is beyond it
};

} // namespace ob
