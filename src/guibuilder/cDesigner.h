// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface without a screen: what presses, moves and keys do to the form under design, what is selected, and
// what has to be repainted. All places are twips on the surface.
#pragma once

#include "guibuilder/cFormHistory.h"
#include "guibuilder/modDesigner.h"

#include <optional>
#include <vector>

namespace ob {

class cDesigner {
public:
    // Lives as long as the main window: locks, copies and the last tool outlive the form that they come from.
    cDesigner(FormDesign& target, SurfaceScale screen);

    // The form window has been created: nothing is armed, locked or selected, and there is nothing to undo.
    void FormLoaded();
    // The form window has been closed, which also ends the armed tool and all steps.
    void FormUnloaded();

    enum class MouseButton { Left, Right, Other };
    // Adding: the press adds to the selection or removes from it. Over: an armed tool draws over other controls too.
    enum class PressMode { Plain, Adding, Over };

    // What the window has to do after an event.
    struct Request {
        enum class Kind { None, Properties, WindowDefaults } kind = Kind::None;
        ControlRef control = {};
    };

    // Arms a control tool by its word (KindTraits::toolName); the next press on the surface places.
    void ArmTool(const QString& toolName);
    bool IsArmed() const { return GuiPlacing; }
    bool IsArmed(const QString& toolName) const { return GuiPlacing && GuiToolName == toolName; }

    // The part of the surface that its window shows; without it no control is brought back from beyond its edges.
    void SetSurface(float width, float height) { surface = {0, 0, width, height}; }
    // Whether enough of a control is on the surface for the mouse.
    bool IsReachable(ControlRef ref) const { return IsReachable(RectOf(form.At(ref))); }

    // What snaps to multiples of 5 pixels. Usual: controls that are moved or sized, but not those that are drawn.
    // WithGrid: all of these while the grid is shown, none of them while it is not.
    enum class SnapMode { Usual, WithGrid };
    void SetSnapMode(SnapMode mode) { snapMode = mode; }
    SnapMode Snapping() const { return snapMode; }

    // Locked controls can be neither moved, resized, deleted nor joined by others.
    void Lock() { GuiLocked = true; }
    void Unlock() { GuiLocked = false; }
    bool IsLocked() const { return GuiLocked; }
    // Whether the lock is on; the status bar then says so.
    bool RefusesChange() const;

    Request Press(SurfacePoint point, MouseButton button, PressMode mode);
    void Drag(SurfacePoint point); // with the left button down
    Request Release(SurfacePoint point, MouseButton button);

    // Cancels the current mouse action without a trace, and disarms the tool.
    void Cancel();

    enum class Pointer { Arrow, Cross, Move, Size, NoDrop };
    Pointer PointerAt(SurfacePoint point, PressMode mode = PressMode::Plain) const;

    // Keys and commands on the selection; each change is one step to undo.
    enum class KeyPress { First, Repeated }; // repeats of a key that is held down are one step
    void Nudge(float x, float y, KeyPress press = KeyPress::First);
    void Grow(float width, float height, KeyPress press = KeyPress::First);
    void Delete();
    void Align(Alignment alignment);
    void Copy();
    void Cut();
    void Paste();
    void SelectAll();
    void Select(ControlRef ref);    // nothing for a control that has been deleted
    void SelectNext(int direction); // in the order in which controls are painted
    void ClearSelection();
    bool CanPaste() const { return !GuiCopies.empty(); }

    void Undo();
    void Redo();
    bool CanUndo() const { return history.CanUndo(); }
    bool CanRedo() const { return history.CanRedo(); }

    // A dialog may have changed the form; it is marked only if the dialog was opened by keys. The mouse's ways to the
    // dialogs leave that to the user.
    enum class OpenedBy { Mouse, Keys };
    void Commit(cFormHistory::WindowRect rect = cFormHistory::WindowRect::Drawn, OpenedBy opened = OpenedBy::Mouse);
    // Names and branches were filled in by a save or a compilation.
    void Adopt() { history.Adopt(form); }
    // The form has been replaced by another.
    void Restart();

    const std::vector<ControlRef>& Selection() const { return selection; }
    const std::optional<HandlePlaces>& Handles() const { return handles; }
    std::optional<SurfaceRect> RubberBand() const;

    FormDesign& Design() { return design; }
    const GuiForm& Form() const { return form; }
    SurfaceScale Scale() const { return scale; }

    // The changes on the surface since the last call; nothing means all of it.
    struct Damage {
        bool everything = false;
        std::vector<SurfaceRect> parts;
    };
    Damage TakeDamage();

private:
    enum class Action { None, Placing, Selecting, Moving, ResizingLower, ResizingUpper };

    void Forget();
    bool IsSelected(ControlRef ref) const;
    bool IsReachable(const SurfaceRect& rect) const { return StepOnto(surface, rect, scale) == SurfacePoint{}; }
    bool Draws(const std::optional<ControlRef>& under, PressMode mode) const;
    int MoveStep() const;
    SurfacePoint DrawnPoint(SurfacePoint point) const;
    std::optional<Handle> HandleAt(SurfacePoint point) const;
    void PressControl(ControlRef ref, SurfacePoint point, PressMode mode);
    void DragControls(SurfacePoint point);
    void DragHandle(Handle handle, SurfacePoint point);
    void EndMove();
    void PutBack();
    void StayReachable(ControlRef leader);
    void FinishPlacing(SurfacePoint point);
    void ShowHandles();
    void Spoil(const SurfaceRect& rect) { damage.parts.push_back(rect); }
    void SpoilControls(const std::vector<ControlRef>& controls);
    void SpoilSelection();
    void Changed(KeyPress press = KeyPress::First); // a command of the keyboard has changed the form
    void Take(const std::optional<GuiForm>& step);

    FormDesign& design;
    GuiForm& form; // of the design
    SurfaceScale scale;
    SurfaceRect surface;
    cFormHistory history;
    std::vector<ControlRef> selection; // the others are aligned with the first
    std::optional<HandlePlaces> handles;

    // The tool and the lock.
    bool GuiPlacing = false; // a control tool is armed
    bool GuiDragged = false; // the pointer has moved away from the anchor
    bool GuiLocked = false;
    SnapMode snapMode = SnapMode::Usual;
    QString GuiToolName; // of the last armed tool: KindTraits::toolName

    // The controls taken by Copy.
    std::vector<CopiedControl> GuiCopies;

    // The current press.
    Action action = Action::None;
    SurfacePoint anchor; // where the button went down
    SurfacePoint end;    // where the pointer is
    SurfacePoint grip;   // of the pressed control or handle
    ControlRef pressed;
    std::vector<ControlRef> moving; // the selection, and what the groupboxes in it hold
    bool pulled = false;            // the pointer has moved further than in a click
    bool taken = false;             // the press has been handled; its release does nothing
    bool narrows = false;           // a press without a move leaves only the pressed control selected
    Damage damage;
};

} // namespace ob
