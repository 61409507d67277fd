// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface without a screen.
#include "guibuilder/cDesigner.h"

#include "shell/state/cMainForm.h"

#include <algorithm>

namespace ob {

namespace {

std::optional<ControlKind> KindOfTool(const QString& toolName)
{
    for (const KindTraits& traits : KindTable)
        if (toolName == LatinText(traits.toolName))
            return traits.kind;
    return std::nullopt;
}

bool MarksWhenPressed(ControlKind kind)
{
    return kind == ControlKind::Groupbox || kind == ControlKind::Statictext;
}

SurfacePoint Difference(SurfacePoint one, SurfacePoint other)
{
    return {one.x - other.x, one.y - other.y};
}

} // namespace

cDesigner::cDesigner(FormDesign& target, SurfaceScale screen) : design(target), form(target.form), scale(screen)
{
    Restart();
}

void cDesigner::FormLoaded()
{
    GuiPlacing = GuiLocked = GuiDragged = false;
    Restart();
}

void cDesigner::FormUnloaded()
{
    GuiPlacing = false;
    Forget();
    history.Restart({});
}

void cDesigner::Forget()
{
    selection.clear();
    handles.reset();
    action = Action::None;
    damage = {true, {}};
}

void cDesigner::Restart()
{
    Forget();
    history.Restart(form);
}

void cDesigner::ArmTool(const QString& toolName)
{
    GuiPlacing = true;
    GuiDragged = false;
    GuiToolName = toolName;
}

bool cDesigner::IsSelected(ControlRef ref) const
{
    return std::ranges::find(selection, ref) != selection.end();
}

std::optional<Handle> cDesigner::HandleAt(SurfacePoint point) const
{
    if (!handles)
        return std::nullopt;
    if (HandleRect(handles->lower).Contains(point))
        return Handle::Lower;
    if (HandleRect(handles->upper).Contains(point))
        return Handle::Upper;
    return std::nullopt;
}

cDesigner::Request cDesigner::Press(SurfacePoint point, MouseButton button, PressMode mode)
{
    action = Action::None;
    anchor = end = point;
    taken = false;
    if (button == MouseButton::Right && HandleAt(point)) {
        ClearSelection();
        taken = true;
        return {};
    }
    const auto control = ControlAt(form, point);
    if (button == MouseButton::Right && control) {
        // The properties appear at once; the control comes to the front after they are closed.
        ClearSelection();
        if (MarksWhenPressed(control->kind))
            design.GuiFormModified = true;
        taken = true;
        return {Request::Kind::Properties, *control};
    }
    if (button != MouseButton::Left)
        return {};
    const auto handle = HandleAt(point);
    if (handle) {
        action = *handle == Handle::Lower ? Action::ResizingLower : Action::ResizingUpper;
        grip = Difference(point, *handle == Handle::Lower ? handles->lower : handles->upper);
        return {};
    }
    // Other controls are drawn inside a groupbox.
    if (GuiPlacing && (!control || control->kind == ControlKind::Groupbox)) {
        GuiDragged = false;
        action = Action::Placing;
    } else if (control) {
        PressControl(*control, point, mode);
    } else {
        action = Action::Selecting;
        if (mode == PressMode::Plain)
            ClearSelection();
    }
    return {};
}

void cDesigner::PressControl(ControlRef ref, SurfacePoint point, PressMode mode)
{
    if (MarksWhenPressed(ref.kind))
        design.GuiFormModified = true;
    pressed = ref;
    narrows = mode == PressMode::Plain;
    grip = Difference(point, {form.At(ref).left, form.At(ref).top});
    SpoilSelection();
    if (mode == PressMode::Adding) {
        if (IsSelected(ref))
            std::erase(selection, ref);
        else
            selection.push_back(ref);
    } else if (!IsSelected(ref)) {
        selection = {ref};
    } else {
        // The others are moved with it, relative to it.
        std::erase(selection, ref);
        selection.insert(selection.begin(), ref);
    }
    handles.reset();
    SpoilSelection();
    if (IsSelected(ref))
        action = Action::Moving;
}

void cDesigner::Drag(SurfacePoint point)
{
    switch (action) {
    case Action::None:
        return;
    case Action::Placing:
        GuiDragged = GuiDragged || LeftAnchor(anchor, point, scale);
        [[fallthrough]];
    case Action::Selecting:
        Spoil(RectBetween(anchor, end));
        end = point;
        Spoil(RectBetween(anchor, end));
        return;
    case Action::Moving:
        if (!GuiLocked)
            DragControls(point);
        return;
    case Action::ResizingLower:
        DragHandle(Handle::Lower, point);
        return;
    case Action::ResizingUpper:
        DragHandle(Handle::Upper, point);
        return;
    }
}

void cDesigner::DragControls(SurfacePoint point)
{
    const SurfacePoint place = MovedTo(point, grip, scale);
    const SurfacePoint step = Difference(place, {form.At(pressed).left, form.At(pressed).top});
    SetStatusText(PlaceText({place.x, place.y, 0, 0}, scale));
    if (step == SurfacePoint{})
        return;
    narrows = false;
    SpoilSelection();
    MoveControls(form, selection, step.x, step.y);
    // Not only by steps: a rounding error would accumulate over many of them.
    form.At(pressed).left = place.x;
    form.At(pressed).top = place.y;
    SpoilSelection();
}

void cDesigner::DragHandle(Handle handle, SurfacePoint point)
{
    if (GuiLocked || !handles || selection.size() != 1)
        return;
    design.GuiFormModified = true;
    ControlRecord& control = form.At(selection.front());
    SpoilSelection();
    (handle == Handle::Lower ? handles->lower : handles->upper) = Difference(point, grip);
    if (const auto rect = ResizedBy(handle, *handles, selection.front().kind, RectOf(control), scale)) {
        SetRect(control, *rect);
        SetStatusText(SizeText(*rect, scale));
    }
    SpoilSelection();
}

cDesigner::Request cDesigner::Release(SurfacePoint point, MouseButton button)
{
    const Action ended = action;
    action = Action::None;
    switch (ended) {
    case Action::Placing:
        FinishPlacing(point);
        return {};
    case Action::Selecting: {
        const SurfaceRect band = RectBetween(anchor, end);
        Spoil(band);
        if (LeftAnchor(anchor, end, scale))
            for (const ControlRef ref : ControlsIn(form, band))
                if (!IsSelected(ref))
                    selection.push_back(ref);
        handles.reset();
        SpoilSelection();
        return {};
    }
    case Action::Moving:
        BringToFront(form, pressed);
        if (narrows && selection.size() > 1) {
            SpoilSelection();
            selection = {pressed};
        }
        ShowHandles();
        history.Commit(form);
        return {};
    case Action::ResizingLower:
    case Action::ResizingUpper:
        ClearSelection();
        history.Commit(form);
        return {};
    case Action::None:
        break;
    }
    if (taken || ControlAt(form, anchor))
        return {};
    ClearSelection();
    if (GuiPlacing) {
        anchor = end = point;
        FinishPlacing(point);
    }
    if (button == MouseButton::Right)
        return {Request::Kind::WindowDefaults, {}};
    return {};
}

void cDesigner::Cancel()
{
    if (action == Action::Moving || action == Action::ResizingLower || action == Action::ResizingUpper) {
        SpoilSelection();
        for (const ControlRef ref : selection)
            form.At(ref) = history.Current().At(ref);
        ShowHandles();
    }
    if (const auto band = RubberBand())
        Spoil(*band);
    action = Action::None;
    GuiPlacing = GuiDragged = false;
}

void cDesigner::FinishPlacing(SurfacePoint point)
{
    ClearSelection();
    Spoil(RectBetween(anchor, end));
    if (const auto kind = KindOfTool(GuiToolName)) {
        const ControlRef ref =
            PlaceControl(form, *kind, anchor, point, GuiDragged ? Drawn::Dragged : Drawn::Clicked, scale);
        selection = {ref};
        SpoilSelection();
        history.Commit(form);
    }
    GuiDragged = GuiPlacing = false;
}

void cDesigner::ShowHandles()
{
    handles.reset();
    // A bmpbutton has the size of its bitmap.
    if (selection.size() == 1 && selection.front().kind != ControlKind::Bmpbutton)
        handles = HandlesOf(RectOf(form.At(selection.front())));
    SpoilSelection();
}

cDesigner::Pointer cDesigner::PointerAt(SurfacePoint point) const
{
    if (action == Action::Placing)
        return Pointer::Cross;
    if (HandleAt(point))
        return GuiLocked ? Pointer::NoDrop : Pointer::Size;
    const auto control = ControlAt(form, point);
    if (GuiPlacing && (!control || control->kind == ControlKind::Groupbox))
        return Pointer::Cross;
    if (!control)
        return Pointer::Arrow;
    return GuiLocked ? Pointer::NoDrop : Pointer::Move;
}

void cDesigner::Changed(KeyPress press)
{
    if (press == KeyPress::Repeated)
        history.Extend(form);
    else if (!history.Commit(form))
        return;
    ShowHandles();
    damage.everything = true;
}

void cDesigner::MarkAsPress()
{
    if (std::ranges::any_of(selection, MarksWhenPressed, &ControlRef::kind))
        design.GuiFormModified = true;
}

void cDesigner::Nudge(float x, float y, KeyPress press)
{
    if (GuiLocked || selection.empty())
        return;
    MarkAsPress();
    MoveControls(form, selection, x, y);
    SetStatusText(PlaceText(RectOf(form.At(selection.front())), scale));
    Changed(press);
}

void cDesigner::Grow(float width, float height, KeyPress press)
{
    if (GuiLocked || selection.empty())
        return;
    design.GuiFormModified = true;
    GrowControls(form, selection, width, height, scale);
    SetStatusText(SizeText(RectOf(form.At(selection.front())), scale));
    Changed(press);
}

void cDesigner::Delete()
{
    MarkAsPress();
    DeleteControls(form, selection);
    ClearSelection();
    Changed();
}

void cDesigner::Align(Alignment alignment)
{
    if (GuiLocked)
        return;
    if (alignment == Alignment::SameWidth || alignment == Alignment::SameHeight)
        design.GuiFormModified = true;
    MarkAsPress();
    AlignControls(form, selection, alignment);
    Changed();
}

void cDesigner::Copy()
{
    if (!selection.empty())
        GuiCopies = CopyControls(form, selection);
}

void cDesigner::Paste()
{
    if (GuiCopies.empty())
        return;
    design.GuiFormModified = true;
    selection = PasteControls(form, GuiCopies, scale);
    // A second paste continues from the place of the first.
    GuiCopies = CopyControls(form, selection);
    Changed();
}

void cDesigner::SelectAll()
{
    selection = PaintOrder(form);
    ShowHandles();
    damage.everything = true;
}

void cDesigner::SelectNext(int direction)
{
    std::vector<ControlRef> order = form.order;
    std::erase_if(order, [this](ControlRef ref) { return !form.At(ref).visible; });
    if (order.empty())
        return;
    // The order of the stack changes with each click; that of the lists does not.
    std::ranges::sort(order, {}, [](ControlRef ref) { return std::pair(ref.kind, ref.index); });
    const auto size = static_cast<std::ptrdiff_t>(order.size());
    std::ptrdiff_t place = direction > 0 ? 0 : size - 1;
    if (!selection.empty()) {
        const auto now = std::ranges::find(order, selection.front());
        if (now != order.end())
            place = (now - order.begin() + direction + size) % size;
    }
    ClearSelection();
    selection = {order[static_cast<std::size_t>(place)]};
    ShowHandles();
}

void cDesigner::ClearSelection()
{
    SpoilSelection();
    selection.clear();
    handles.reset();
}

void cDesigner::Undo()
{
    Take(history.Undo(form));
}

void cDesigner::Redo()
{
    Take(history.Redo(form));
}

void cDesigner::Take(const std::optional<GuiForm>& step)
{
    if (!step)
        return;
    form = *step;
    std::erase_if(selection, [this](ControlRef ref) {
        return static_cast<std::size_t>(ref.index) >= form.List(ref.kind).size() || !form.At(ref).visible;
    });
    ShowHandles();
    action = Action::None;
    design.GuiFormModified = true;
    damage.everything = true;
}

void cDesigner::Commit(cFormHistory::WindowRect rect)
{
    std::erase_if(selection, [this](ControlRef ref) { return !form.At(ref).visible; });
    history.Commit(form, rect);
    damage.everything = true;
}

std::optional<SurfaceRect> cDesigner::RubberBand() const
{
    if ((action == Action::Placing && end != anchor) || (action == Action::Selecting && LeftAnchor(anchor, end, scale)))
        return RectBetween(anchor, end);
    return std::nullopt;
}

void cDesigner::SpoilControl(ControlRef ref)
{
    Spoil(RectOf(form.At(ref)));
}

void cDesigner::SpoilSelection()
{
    for (const ControlRef ref : selection)
        SpoilControl(ref);
    if (handles) {
        Spoil(HandleRect(handles->lower));
        Spoil(HandleRect(handles->upper));
    }
}

cDesigner::Damage cDesigner::TakeDamage()
{
    return std::exchange(damage, {});
}

} // namespace ob
