// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface.
#include "guibuilder/frmSurface.h"

#include "guibuilder/cGuiWindow.h"
#include "guibuilder/dlgMenu.h"
#include "guibuilder/frmColorDefault.h"
#include "guibuilder/frmProp.h"
#include "guibuilder/frmSurfacePaint.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/Module1.h"
#include "shell/state/frmTool.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>

#include <cmath>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int ViewMargin = 12; // pixels around a control that the view has gone to: room for its handles

const QString ArmedText =
    u"Draw the control, or click for its usual size. With Shift you can draw over other controls."_s;
const QString OutsideText = u"This control is outside the form. An arrow key brings it back."_s;

cDesigner::MouseButton ButtonOf(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return cDesigner::MouseButton::Left;
    case Qt::RightButton:
        return cDesigner::MouseButton::Right;
    default:
        return cDesigner::MouseButton::Other;
    }
}

Qt::CursorShape ShapeOf(cDesigner::Pointer pointer)
{
    switch (pointer) {
    case cDesigner::Pointer::Arrow:
        return Qt::ArrowCursor;
    case cDesigner::Pointer::Cross:
        return Qt::CrossCursor;
    case cDesigner::Pointer::Move:
        return Qt::SizeAllCursor;
    case cDesigner::Pointer::Size:
        return Qt::SizeFDiagCursor;
    case cDesigner::Pointer::NoDrop:
        return Qt::ForbiddenCursor;
    }
    return Qt::ArrowCursor;
}

// Ctrl selects several; an armed tool draws over other controls with Shift.
cDesigner::PressMode ModeOf(Qt::KeyboardModifiers held)
{
    if (held.testFlag(Qt::ControlModifier))
        return cDesigner::PressMode::Adding;
    return held.testFlag(Qt::ShiftModifier) ? cDesigner::PressMode::Over : cDesigner::PressMode::Plain;
}

// The way from a to b along one axis that brings the part onto a view of that extent, its start first.
int WayTo(int start, int extent, int view)
{
    if (start < 0)
        return start;
    return std::max(0, std::min(start, start + extent - view));
}

// The keys of the surface that the main window's menu would otherwise take.
bool IsSurfaceKey(const QKeyEvent& key)
{
    for (const QKeySequence::StandardKey each :
         {QKeySequence::Undo, QKeySequence::Redo, QKeySequence::Copy, QKeySequence::Paste, QKeySequence::SelectAll,
          QKeySequence::Delete, QKeySequence::Cut})
        if (key.matches(each))
            return true;
    return key.key() == Qt::Key_Y && key.modifiers() == Qt::ControlModifier;
}

} // namespace

frmSurface::frmSurface(cDesigner& target, QWidget* parent) : QWidget(parent), designer(target)
{
    setObjectName(u"picBase"_s);
    setAccessibleName(u"Drawing surface"_s);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    Refresh();
}

frmSurface::~frmSurface() = default;

void frmSurface::Refresh()
{
    style = std::make_unique<SurfaceStyle>(designer.Form(), designer.Scale());
    update();
}

void frmSurface::Restart()
{
    designer.Restart();
    Refresh();
}

void frmSurface::ArmTool(const QString& toolName)
{
    designer.ArmTool(toolName);
    setCursor(Qt::CrossCursor);
    setFocus();
    SetStatusText(ArmedText);
}

SurfacePoint frmSurface::PointAt(QPointF pixel) const
{
    const QPointF place = pixel + scroll;
    return {static_cast<float>(place.x() * designer.Scale().x), static_cast<float>(place.y() * designer.Scale().y)};
}

QRect frmSurface::FormPixels(const SurfaceRect& rect) const
{
    ControlRecord record;
    SetRect(record, rect);
    return PixelRect(record, designer.Scale());
}

QRect frmSurface::PixelsOf(const SurfaceRect& rect) const
{
    return FormPixels(rect).translated(-scroll);
}

void frmSurface::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    designer.SetSurface(static_cast<float>(width() * designer.Scale().x),
                        static_cast<float>(height() * designer.Scale().y));
    FollowSelection();
}

// The view stays at the form but for a selected control that is out of reach there.
void frmSurface::FollowSelection()
{
    QPoint wanted;
    const auto& selection = designer.Selection();
    if (selection.size() == 1 && !designer.IsReachable(selection.front())) {
        const QRect control = FormPixels(RectOf(designer.Form().At(selection.front())))
                                  .adjusted(-ViewMargin, -ViewMargin, ViewMargin, ViewMargin);
        wanted = {WayTo(control.x(), control.width(), width()), WayTo(control.y(), control.height(), height())};
        SetStatusText(OutsideText);
    }
    if (wanted == scroll)
        return;
    scroll = wanted;
    update();
}

// What is beyond the form's edges is hatched.
void frmSurface::PaintOutside(QPainter& painter, const QRect& exposed) const
{
    const QRegion outside = QRegion(exposed) - QRect(QPoint(), size());
    for (const QRect& part : outside) {
        painter.fillRect(part, palette().color(QPalette::Mid));
        painter.fillRect(part, QBrush(palette().color(QPalette::Dark), Qt::BDiagPattern));
    }
}

void frmSurface::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.translate(-scroll);
    const QRect exposed = event->rect().translated(scroll);
    painter.fillRect(exposed, style->surface);
    const GuiForm& form = designer.Form();
    if (designer.Design().GuiGridOn)
        PaintGrid(painter, exposed, form, designer.Scale());
    PaintOutside(painter, exposed);
    const QRegion region = event->region().translated(scroll);
    for (const ControlRef ref : PaintOrder(form))
        if (region.intersects(PaintedRect(form, ref, designer.Scale())))
            PaintControl(painter, *style, form, ref);
    const auto& selection = designer.Selection();
    if (const auto& handles = designer.Handles())
        PaintHandles(painter, FormPixels(HandleRect(handles->lower)), FormPixels(HandleRect(handles->upper)),
                     designer.IsLocked() ? HandleState::Locked : HandleState::Free);
    else
        for (const ControlRef ref : selection)
            PaintSelectionFrame(painter, FormPixels(RectOf(form.At(ref))));
    if (const auto band = designer.RubberBand())
        PaintRubberBand(painter, FormPixels(*band));
}

void frmSurface::UpdateDamage()
{
    const cDesigner::Damage damage = designer.TakeDamage();
    if (damage.everything) {
        update();
        return;
    }
    for (const SurfaceRect& part : damage.parts)
        update(PixelsOf(part).adjusted(-SelectionMargin, -SelectionMargin, SelectionMargin, SelectionMargin));
}

void frmSurface::UpdatePointer(QPointF pixel, Qt::KeyboardModifiers held)
{
    const Qt::CursorShape shape = ShapeOf(designer.PointerAt(PointAt(pixel), ModeOf(held)));
    if (cursor().shape() != shape)
        setCursor(shape);
}

void frmSurface::mousePressEvent(QMouseEvent* event)
{
    RunCommand([&] {
        const auto request =
            designer.Press(PointAt(event->position()), ButtonOf(event->button()), ModeOf(event->modifiers()));
        UpdateDamage();
        if (request.kind == cDesigner::Request::Kind::Properties)
            ShowProperties(request.control, cDesigner::OpenedBy::Mouse);
    });
}

void frmSurface::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons().testFlag(Qt::LeftButton))
        designer.Drag(PointAt(event->position()));
    UpdateDamage();
    UpdatePointer(event->position(), event->modifiers());
}

void frmSurface::mouseReleaseEvent(QMouseEvent* event)
{
    RunCommand([&] {
        const auto request = designer.Release(PointAt(event->position()), ButtonOf(event->button()));
        UpdateDamage();
        FollowSelection();
        UpdatePointer(event->position(), event->modifiers());
        Q_EMIT ToolUsed();
        if (request.kind == cDesigner::Request::Kind::WindowDefaults)
            ShowWindowDefaults();
    });
}

void frmSurface::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void frmSurface::ShowControl(ControlRef control)
{
    designer.Select(control);
    UpdateDamage();
    FollowSelection();
    setFocus();
}

void frmSurface::ShowProperties(ControlRef control, cDesigner::OpenedBy opened)
{
    ShowProp(control, LatinText(TraitsOf(control.kind).propWord));
    BringToFront(designer.Design().form, control);
    designer.Commit(cFormHistory::WindowRect::Drawn, opened);
    UpdateDamage();
    FollowSelection();
}

void frmSurface::ShowWindowDefaults(cDesigner::OpenedBy opened)
{
    // A window that the user has pulled before is no change of the dialog's.
    designer.Commit();
    ShowColorDefault();
    designer.Commit(cFormHistory::WindowRect::Set, opened);
    UpdateDamage();
}

void frmSurface::ShowMenuEditor()
{
    ShowToolModally<dlgMenu>();
    designer.Commit();
    UpdateDamage();
}

void frmSurface::AskToDelete()
{
    const auto count = designer.Selection().size();
    if (count == 0 || designer.RefusesChange())
        return;
    const QString question = count == 1 ? u"Delete this control?"_s : u"Delete these %1 controls?"_s.arg(count);
    if (MsgBox(question, BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::Yes)
        designer.Delete();
}

bool frmSurface::TakeArrow(const QKeyEvent& event)
{
    int x = 0;
    int y = 0;
    switch (event.key()) {
    case Qt::Key_Left:
        x = -1;
        break;
    case Qt::Key_Right:
        x = 1;
        break;
    case Qt::Key_Up:
        y = -1;
        break;
    case Qt::Key_Down:
        y = 1;
        break;
    default:
        return false;
    }
    const int pixels = event.modifiers().testFlag(Qt::ControlModifier) ? 1 : SnapPixels;
    const auto stepX = static_cast<float>(x * pixels * designer.Scale().x);
    const auto stepY = static_cast<float>(y * pixels * designer.Scale().y);
    const auto press = event.isAutoRepeat() ? cDesigner::KeyPress::Repeated : cDesigner::KeyPress::First;
    if (event.modifiers().testFlag(Qt::ShiftModifier))
        designer.Grow(stepX, stepY, press);
    else
        designer.Nudge(stepX, stepY, press);
    return true;
}

// Undo or redo may change the menus, the panels or the window.
void frmSurface::TakeStep(void (cDesigner::*step)())
{
    (designer.*step)();
    GuiWindow->RefreshGui();
    EnableMenuEditor(designer.Form().GuiWindowType);
}

// The properties of the selected control, or of the window, by a key.
void frmSurface::ShowDialog()
{
    if (designer.Selection().empty())
        ShowWindowDefaults(cDesigner::OpenedBy::Keys);
    else
        ShowProperties(designer.Selection().front(), cDesigner::OpenedBy::Keys);
}

bool frmSurface::TakeKey(const QKeyEvent& event)
{
    if (event.matches(QKeySequence::Undo))
        TakeStep(&cDesigner::Undo);
    else if (event.matches(QKeySequence::Redo) ||
             (event.key() == Qt::Key_Y && event.modifiers() == Qt::ControlModifier))
        TakeStep(&cDesigner::Redo);
    else if (event.matches(QKeySequence::Copy))
        designer.Copy();
    else if (event.matches(QKeySequence::Cut))
        designer.Cut();
    else if (event.matches(QKeySequence::Paste))
        designer.Paste();
    else if (event.matches(QKeySequence::SelectAll))
        designer.SelectAll();
    else if (event.matches(QKeySequence::Delete))
        AskToDelete();
    else if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier)
        ShowMenu(mapToGlobal(rect().center()));
    else if (event.key() == Qt::Key_Escape)
        designer.Cancel();
    else if (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter)
        ShowDialog();
    else
        return TakeArrow(event);
    return true;
}

void frmSurface::keyPressEvent(QKeyEvent* event)
{
    bool taken = false;
    RunCommand([&] { taken = TakeKey(*event); });
    if (!taken) {
        QWidget::keyPressEvent(event);
        return;
    }
    UpdateDamage();
    FollowSelection();
    UpdatePointer(mapFromGlobal(QCursor::pos()), event->modifiers());
    Q_EMIT ToolUsed();
}

// Tab moves from control to control, as it will in the program.
bool frmSurface::focusNextPrevChild(bool next)
{
    designer.SelectNext(next ? 1 : -1);
    UpdateDamage();
    FollowSelection();
    return true;
}

QString frmSurface::BranchUnder(QPointF pixel) const
{
    const auto control = ControlAt(designer.Form(), PointAt(pixel));
    return control ? designer.Form().At(*control).branch : QString();
}

bool frmSurface::event(QEvent* event)
{
    if (event->type() == QEvent::ShortcutOverride && IsSurfaceKey(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString branch = BranchUnder(help->pos());
        if (branch.isEmpty())
            QToolTip::hideText();
        else
            QToolTip::showText(help->globalPos(), branch.toHtmlEscaped(), this);
        return true;
    }
    return QWidget::event(event);
}

void frmSurface::contextMenuEvent(QContextMenuEvent* event)
{
    // The right button has a meaning of its own here.
    if (event->reason() == QContextMenuEvent::Keyboard)
        ShowMenu(event->globalPos());
}

void frmSurface::ShowMenu(QPoint place)
{
    struct Entry {
        const char* name;
        const char* caption;
        Alignment alignment;
    };
    static constexpr Entry entries[] = {
        {"mnuAlignLeft", "Align &Left", Alignment::Left},      {"mnuAlignTop", "Align &Top", Alignment::Top},
        {"mnuAlignRight", "Align &Right", Alignment::Right},   {"mnuAlignBottom", "Align &Bottom", Alignment::Bottom},
        {"mnuSameWidth", "Same &Width", Alignment::SameWidth}, {"mnuSameHeight", "Same &Height", Alignment::SameHeight},
    };
    QMenu menu(this);
    menu.setObjectName(u"mnuSurface"_s);
    const auto add = [&](QMenu& target, const char* name, const char* caption, bool enabled, auto command) {
        QAction* action = target.addAction(QString::fromLatin1(caption));
        action->setObjectName(QString::fromLatin1(name));
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, [this, command] {
            RunCommand(command);
            UpdateDamage();
        });
    };
    const bool any = !designer.Selection().empty();
    const bool open = !designer.IsLocked();
    QMenu* format = menu.addMenu(u"&Format"_s);
    format->setEnabled(designer.Selection().size() > 1 && open);
    for (const Entry& entry : entries)
        add(*format, entry.name, entry.caption, true, [this, entry] { designer.Align(entry.alignment); });
    menu.addSeparator();
    add(menu, "mnuSurfaceCut", "Cu&t", any && open, [this] { designer.Cut(); });
    add(menu, "mnuSurfaceCopy", "&Copy", any, [this] { designer.Copy(); });
    add(menu, "mnuSurfacePaste", "&Paste", designer.CanPaste() && open, [this] { designer.Paste(); });
    add(menu, "mnuSurfaceDelete", "&Delete", any && open, [this] { AskToDelete(); });
    menu.addSeparator();
    add(menu, "mnuSurfaceProperties", "P&roperties...", any, [this] { ShowDialog(); });
    add(menu, "mnuSurfaceDefaults", "&Window Defaults...", true,
        [this] { ShowWindowDefaults(cDesigner::OpenedBy::Keys); });
    if (any)
        place = mapToGlobal(PixelsOf(RectOf(designer.Form().At(designer.Selection().front()))).center());
    menu.exec(place);
}

} // namespace ob
