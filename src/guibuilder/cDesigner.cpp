// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface without a screen.
#include "guibuilder/cDesigner.h"

#include "shell/state/cMainForm.h"

#include <algorithm>

using namespace Qt::StringLiterals;

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
    taken = pulled = false;
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
        moving = selection;
        return {};
    }
    if (Draws(control, mode)) {
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

// Other controls are drawn inside a groupbox.
bool cDesigner::Draws(const std::optional<ControlRef>& under, PressMode mode) const
{
    return GuiPlacing && (!under || under->kind == ControlKind::Groupbox || mode == PressMode::Over);
}

// The pixels that what is moved or sized snaps to.
int cDesigner::MoveStep() const
{
    return snapMode == SnapMode::Usual || design.GuiGridOn ? SnapPixels : 1;
}

// Where a corner is that is drawn at that point.
SurfacePoint cDesigner::DrawnPoint(SurfacePoint point) const
{
    if (snapMode == SnapMode::Usual || !design.GuiGridOn)
        return point;
    return {SnapDown(point.x, scale.x), SnapDown(point.y, scale.y)};
}

void cDesigner::PressControl(ControlRef ref, SurfacePoint point, PressMode mode)
{
    if (MarksWhenPressed(ref.kind))
        design.GuiFormModified = true;
    pressed = ref;
    narrows = mode != PressMode::Adding;
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
    moving = WithHeld(form, selection);
    if (IsSelected(ref))
        action = Action::Moving;
}

void cDesigner::Drag(SurfacePoint point)
{
    pulled = pulled || LeftAnchor(anchor, point, scale, ClickPixels);
    switch (action) {
    case Action::None:
        return;
    case Action::Placing: {
        GuiDragged = GuiDragged || LeftAnchor(anchor, point, scale);
        Spoil(RectBetween(DrawnPoint(anchor), DrawnPoint(end)));
        end = point;
        const SurfaceRect drawn = RectBetween(DrawnPoint(anchor), DrawnPoint(end));
        Spoil(drawn);
        SetStatusText(PlaceText(drawn, scale) + u"    "_s + SizeText(drawn, scale));
        return;
    }
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
    const SurfacePoint place = MovedTo(point, grip, scale, MoveStep());
    const SurfacePoint step = Difference(place, {form.At(pressed).left, form.At(pressed).top});
    SetStatusText(PlaceText({place.x, place.y, 0, 0}, scale));
    if (step == SurfacePoint{})
        return;
    SpoilControls(moving);
    MoveControls(form, moving, step.x, step.y);
    // Not only by steps: a rounding error would accumulate over many of them.
    form.At(pressed).left = place.x;
    form.At(pressed).top = place.y;
    SpoilControls(moving);
}

void cDesigner::DragHandle(Handle handle, SurfacePoint point)
{
    if (GuiLocked || !handles || selection.size() != 1)
        return;
    design.GuiFormModified = true;
    ControlRecord& control = form.At(selection.front());
    SpoilSelection();
    (handle == Handle::Lower ? handles->lower : handles->upper) = Difference(point, grip);
    if (const auto rect = ResizedBy(handle, *handles, selection.front().kind, RectOf(control), scale, MoveStep())) {
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
        EndMove();
        return {};
    case Action::ResizingLower:
    case Action::ResizingUpper:
        if (!pulled)
            PutBack();
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

void cDesigner::EndMove()
{
    BringToFront(form, pressed);
    if (pulled)
        StayReachable(pressed);
    else
        PutBack();
    if (!pulled && narrows && selection.size() > 1) {
        SpoilSelection();
        selection = {pressed};
    }
    ShowHandles();
    history.Commit(form);
}

// The controls of the current press where they were before it.
void cDesigner::PutBack()
{
    SpoilControls(moving);
    for (const ControlRef ref : moving)
        SetRect(form.At(ref), RectOf(history.Current().At(ref)));
    SpoilControls(moving);
}

// What has just been moved beyond an edge comes back until the mouse can reach it. What was out of reach before may be
// so for a reason; only the leader comes back from there.
void cDesigner::StayReachable(ControlRef leader)
{
    const auto wasOut = [this](ControlRef ref) {
        const auto& list = history.Current().List(ref.kind);
        const auto index = static_cast<std::size_t>(ref.index);
        return index < list.size() && !IsReachable(RectOf(list[index]));
    };
    for (const ControlRef ref : selection) {
        const SurfacePoint step = StepOnto(surface, RectOf(form.At(ref)), scale);
        if (step == SurfacePoint{} || (ref != leader && wasOut(ref)))
            continue;
        const std::vector<ControlRef> all = WithHeld(form, selection);
        SpoilControls(all);
        MoveControls(form, all, step.x, step.y);
        SpoilControls(all);
        SetStatusText(PlaceText(RectOf(form.At(leader)), scale));
    }
}

void cDesigner::Cancel()
{
    if (action == Action::Moving || action == Action::ResizingLower || action == Action::ResizingUpper) {
        SpoilSelection();
        PutBack();
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
    Spoil(RectBetween(DrawnPoint(anchor), DrawnPoint(end)));
    if (const auto kind = KindOfTool(GuiToolName)) {
        const ControlRef ref = PlaceControl(form, *kind, DrawnPoint(anchor), DrawnPoint(point),
                                            GuiDragged ? Drawn::Dragged : Drawn::Clicked, scale);
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

cDesigner::Pointer cDesigner::PointerAt(SurfacePoint point, PressMode mode) const
{
    if (action == Action::Placing)
        return Pointer::Cross;
    if (HandleAt(point))
        return GuiLocked ? Pointer::NoDrop : Pointer::Size;
    const auto control = ControlAt(form, point);
    if (Draws(control, mode))
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
    design.GuiFormModified = true;
    ShowHandles();
    damage.everything = true;
}

// Nothing is changed while the controls are locked, and the status bar says why.
bool cDesigner::RefusesChange() const
{
    if (GuiLocked)
        SetStatusText(u"The controls are locked."_s);
    return GuiLocked;
}

void cDesigner::Nudge(float x, float y, KeyPress press)
{
    if (selection.empty() || RefusesChange())
        return;
    MoveControls(form, WithHeld(form, selection), x, y);
    StayReachable(selection.front());
    SetStatusText(PlaceText(RectOf(form.At(selection.front())), scale));
    Changed(press);
}

void cDesigner::Grow(float width, float height, KeyPress press)
{
    if (selection.empty() || RefusesChange())
        return;
    GrowControls(form, selection, width, height, scale);
    SetStatusText(SizeText(RectOf(form.At(selection.front())), scale));
    Changed(press);
}

void cDesigner::Delete()
{
    if (selection.empty() || RefusesChange())
        return;
    DeleteControls(form, selection);
    ClearSelection();
    Changed();
}

void cDesigner::Align(Alignment alignment)
{
    if (RefusesChange())
        return;
    AlignControls(form, selection, alignment);
    Changed();
}

void cDesigner::Copy()
{
    if (!selection.empty())
        GuiCopies = CopyControls(form, selection);
}

void cDesigner::Cut()
{
    if (RefusesChange())
        return;
    Copy();
    Delete();
}

void cDesigner::Paste()
{
    if (GuiCopies.empty() || RefusesChange())
        return;
    selection = PasteControls(form, GuiCopies, scale);
    StayReachable(selection.front());
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

void cDesigner::Select(ControlRef ref)
{
    ClearSelection();
    if (static_cast<std::size_t>(ref.index) >= form.List(ref.kind).size() || !form.At(ref).visible)
        return;
    selection = {ref};
    ShowHandles();
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
    Select(order[static_cast<std::size_t>(place)]);
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

void cDesigner::Commit(cFormHistory::WindowRect rect, OpenedBy opened)
{
    std::erase_if(selection, [this](ControlRef ref) { return !form.At(ref).visible; });
    // The control may have another place or size now.
    if (handles)
        ShowHandles();
    if (history.Commit(form, rect) && opened == OpenedBy::Keys)
        design.GuiFormModified = true;
    damage.everything = true;
}

std::optional<SurfaceRect> cDesigner::RubberBand() const
{
    if (action == Action::Placing && end != anchor)
        return RectBetween(DrawnPoint(anchor), DrawnPoint(end));
    if (action == Action::Selecting && LeftAnchor(anchor, end, scale))
        return RectBetween(anchor, end);
    return std::nullopt;
}

void cDesigner::SpoilControls(const std::vector<ControlRef>& controls)
{
    for (const ControlRef ref : controls)
        Spoil(RectOf(form.At(ref)));
}

void cDesigner::SpoilSelection()
{
    SpoilControls(selection);
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
