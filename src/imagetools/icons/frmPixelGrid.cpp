// SPDX-License-Identifier: GPL-3.0-or-later
// The enlarged view of an icon.
#include "imagetools/icons/frmPixelGrid.h"

#include "imagetools/icons/frmIconSwatch.h"
#include "platform/language/modColorNames.h"
#include "shell/state/modColors.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>

namespace ob {

namespace {

constexpr ColorRef GridColor = 16448;

IconPoint PlaceOf(const QMouseEvent& event)
{
    const QPointF position = event.position();
    return {qFloor(position.x()), qFloor(position.y())};
}

IconPoint MiddleOf(IconPoint cell)
{
    return {cell.x * CellSide + CellSide / 2, cell.y * CellSide + CellSide / 2};
}

// A cell of the view with the lines around it.
QRect RectOf(IconPoint cell)
{
    return {cell.x * CellSide, cell.y * CellSide, CellSide + 1, CellSide + 1};
}

// The view in pixels of the screen, from its own top left corner.
class ScreenGrid {
public:
    explicit ScreenGrid(qreal screenScale) : scale(screenScale), line(std::max(1, static_cast<int>(screenScale))) {}

    QRect Cell(int x, int y) const
    {
        const int left = Edge(x) + line;
        const int top = Edge(y) + line;
        return {left, top, Edge(x + 1) - left, Edge(y + 1) - top};
    }
    QRect All() const { return {0, 0, Edge(IconSide) + line, Edge(IconSide) + line}; }

private:
    int Edge(int cell) const { return qRound(cell * CellSide * scale); }

    qreal scale;
    int line;
};

// From here on the painter's unit is the screen's pixel, from the widget's corner. Returns how many of them make one.
qreal CountScreenPixels(QPainter& painter)
{
    const QTransform toScreen = painter.deviceTransform();
    const QPoint corner = toScreen.map(QPointF(0, 0)).toPoint();
    painter.setTransform(QTransform::fromTranslate(corner.x(), corner.y()) * toScreen.inverted());
    return toScreen.m11();
}

// A frame of two shades, one of which is visible on any colour, and the colour within.
void PaintKeyCell(QPainter& painter, const QRect& cell, const QColor& color)
{
    const int width = std::max(1, cell.width() / 9);
    painter.fillRect(cell, Qt::white);
    painter.fillRect(cell.adjusted(width, width, -width, -width), Qt::black);
    painter.fillRect(cell.adjusted(2 * width, 2 * width, -2 * width, -2 * width), color);
}

} // namespace

frmPixelGrid::frmPixelGrid(QWidget* parent) : QWidget(parent)
{
    setFixedSize(GridSide, GridSide);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void frmPixelGrid::ShowIcon(const Icon& newIcon)
{
    for (int y = 0; y < IconSide; ++y)
        for (int x = 0; x < IconSide; ++x)
            if (icon.At(x, y) != newIcon.At(x, y))
                UpdateCell({x, y});
    icon = newIcon;
}

void frmPixelGrid::UpdateCell(IconPoint cell)
{
    update(RectOf(cell));
}

void frmPixelGrid::ShowKeyCell(bool shown)
{
    if (keyCellShown != shown)
        UpdateCell(keyCell);
    keyCellShown = shown;
}

void frmPixelGrid::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    const ScreenGrid grid(CountScreenPixels(painter));
    painter.fillRect(grid.All(), ColorOf(GridColor));
    for (int y = 0; y < IconSide; ++y) {
        for (int x = 0; x < IconSide; ++x) {
            if (!event->region().intersects(RectOf({x, y})))
                continue;
            const QColor color = ColorOf(icon.At(x, y));
            if (keyCellShown && keyCell == IconPoint{x, y})
                PaintKeyCell(painter, grid.Cell(x, y), color);
            else
                painter.fillRect(grid.Cell(x, y), color);
        }
    }
}

void frmPixelGrid::mousePressEvent(QMouseEvent* event)
{
    const IconPoint place = PlaceOf(*event);
    ShowKeyCell(false);
    keyCell = CellAt(place).value_or(keyCell);
    Q_EMIT MouseDown(place, event->button());
}

void frmPixelGrid::mouseMoveEvent(QMouseEvent* event)
{
    // A box that opens while the button is held gets its release.
    if (!spaceHeld && !event->buttons().testFlag(Qt::LeftButton))
        Q_EMIT MouseUp();
    Q_EMIT MouseMove(PlaceOf(*event));
}

void frmPixelGrid::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT MouseUp();
}

void frmPixelGrid::leaveEvent(QEvent* event)
{
    Q_EMIT MouseLeft();
    QWidget::leaveEvent(event);
}

bool frmPixelGrid::MoveKeyCell(int key)
{
    constexpr int last = IconSide - 1;
    IconPoint cell = keyCell;
    switch (key) {
    case Qt::Key_Left:
        cell.x = std::max(0, cell.x - 1);
        break;
    case Qt::Key_Right:
        cell.x = std::min(last, cell.x + 1);
        break;
    case Qt::Key_Up:
        cell.y = std::max(0, cell.y - 1);
        break;
    case Qt::Key_Down:
        cell.y = std::min(last, cell.y + 1);
        break;
    case Qt::Key_Home:
        cell.x = 0;
        break;
    case Qt::Key_End:
        cell.x = last;
        break;
    case Qt::Key_PageUp:
        cell.y = 0;
        break;
    case Qt::Key_PageDown:
        cell.y = last;
        break;
    default:
        return false;
    }
    UpdateCell(keyCell);
    UpdateCell(cell);
    keyCell = cell;
    Q_EMIT MouseMove(MiddleOf(keyCell));
    return true;
}

void frmPixelGrid::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == 0;
    const bool isEnter = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (!isPlain || !(key == Qt::Key_Space || isEnter || MoveKeyCell(key))) {
        QWidget::keyPressEvent(event);
        return;
    }
    ShowKeyCell(true);
    if (event->isAutoRepeat())
        return;
    if (isEnter) {
        Q_EMIT MouseDown(MiddleOf(keyCell), Qt::RightButton);
    } else if (key == Qt::Key_Space) {
        spaceHeld = true;
        Q_EMIT MouseDown(MiddleOf(keyCell), Qt::LeftButton);
    }
}

void frmPixelGrid::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && !event->isAutoRepeat())
        EndSpace();
    else
        QWidget::keyReleaseEvent(event);
}

void frmPixelGrid::EndSpace()
{
    if (spaceHeld)
        Q_EMIT MouseUp();
    spaceHeld = false;
}

void frmPixelGrid::focusInEvent(QFocusEvent* event)
{
    const bool byKey = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    ShowKeyCell(byKey || event->reason() == Qt::ShortcutFocusReason);
    QWidget::focusInEvent(event);
}

void frmPixelGrid::focusOutEvent(QFocusEvent* event)
{
    // Its release goes to whatever now has the focus.
    EndSpace();
    ShowKeyCell(false);
    QWidget::focusOutEvent(event);
}

} // namespace ob
