// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of the drawing surface: placing, moving, snapping, handles, hit-testing. All measures are twips on the
// surface unless a name says pixels; scale is that of the surface's screen.
#pragma once

#include "guibuilder/modGui.h"

#include <optional>
#include <vector>

namespace ob {

struct SurfacePoint {
    float x = 0;
    float y = 0;

    bool operator==(const SurfacePoint&) const = default;
};

struct SurfaceRect {
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;

    float Right() const { return left + width; }
    float Bottom() const { return top + height; }
    bool Contains(SurfacePoint point) const
    {
        return point.x >= left && point.y >= top && point.x < Right() && point.y < Bottom();
    }
    bool Meets(const SurfaceRect& other) const
    {
        return left < other.Right() && other.left < Right() && top < other.Bottom() && other.top < Bottom();
    }
    bool Holds(const SurfaceRect& other) const
    {
        return left <= other.left && top <= other.top && Right() >= other.Right() && Bottom() >= other.Bottom();
    }
    bool operator==(const SurfaceRect&) const = default;
};

inline constexpr int SnapPixels = 5;         // controls are placed on multiples of it
inline constexpr int DragPixels = 5;         // a shorter movement with an armed tool is a click
inline constexpr int ClickPixels = 3;        // a shorter movement on a control or a handle is a click
inline constexpr int LeastShownPixels = 8;   // of a control, for the mouse to reach it
inline constexpr float HandleTwips = 135;    // each handle is as wide and high
inline constexpr float LeastSideTwips = 135; // of a control under a handle, before the snap

SurfaceRect RectOf(const ControlRecord& control);
void SetRect(ControlRecord& control, const SurfaceRect& rect);
SurfaceRect RectBetween(SurfacePoint one, SurfacePoint other);

// Rounds down to a multiple of that many pixels, also below zero.
float SnapDown(float twips, int twipsPerPixel, int stepPixels = SnapPixels);

// Whether the pointer has moved that many pixels or more from the anchor in either direction.
bool LeftAnchor(SurfacePoint anchor, SurfacePoint point, SurfaceScale scale, int pixels = DragPixels);

// A new control of the kind between anchor and point, shown, in front, with the kind's caption; the list's count is its
// index. One that was clicked rather than drawn has at least the kind's size. A combobox has its own height.
enum class Drawn { Clicked, Dragged };
ControlRef PlaceControl(GuiForm& form, ControlKind kind, SurfacePoint anchor, SurfacePoint point, Drawn drawn,
                        SurfaceScale scale);

// The caption of a new control: the kind's word and the number with its leading space; empty for some kinds.
QString NewCaption(ControlKind kind, int index);

// Where a control goes whose grip, a place in it measured from its upper left corner, follows the pointer; to multiples
// of stepPixels. The X factor is used for both axes.
SurfacePoint MovedTo(SurfacePoint pointer, SurfacePoint grip, SurfaceScale scale, int stepPixels = SnapPixels);

// The handles of a control: the lower right corner's and the upper left corner's.
struct HandlePlaces {
    SurfacePoint lower;
    SurfacePoint upper;
};
enum class Handle { Lower, Upper };
HandlePlaces HandlesOf(const SurfaceRect& control);
SurfaceRect HandleRect(SurfacePoint place);

// The control's rectangle once a handle is where handles says, its sides multiples of stepPixels; nothing when the
// handles have passed each other. The opposite corner stays; a combobox keeps its height.
std::optional<SurfaceRect> ResizedBy(Handle moved, const HandlePlaces& handles, ControlKind kind,
                                     const SurfaceRect& control, SurfaceScale scale, int stepPixels = SnapPixels);

// "X -  40    Y -  20", and "Width:   80        Height:   30": pixels.
QString PlaceText(const SurfaceRect& control, SurfaceScale scale);
QString SizeText(const SurfaceRect& control, SurfaceScale scale);

// All visible controls in painting order, from back to front: groupboxes are at the back, as they contain others.
std::vector<ControlRef> PaintOrder(const GuiForm& form);

// The frontmost control at that place, and all controls that a rectangle touches.
std::optional<ControlRef> ControlAt(const GuiForm& form, SurfacePoint point);
std::vector<ControlRef> ControlsIn(const GuiForm& form, const SurfaceRect& rect);

// These controls and, after them, what the groupboxes among them hold: every control that is wholly inside one.
std::vector<ControlRef> WithHeld(const GuiForm& form, const std::vector<ControlRef>& controls);

// The step, in whole snaps, that brings LeastShownPixels of a control onto the surface, or all of a smaller control;
// none for a control that can be reached already, and for a surface without a size.
SurfacePoint StepOnto(const SurfaceRect& surface, const SurfaceRect& control, SurfaceScale scale);

// Aligns all other controls with the first.
enum class Alignment { Left, Top, Right, Bottom, SameWidth, SameHeight };
void AlignControls(GuiForm& form, const std::vector<ControlRef>& controls, Alignment alignment);

// Moves all controls, and grows or shrinks them from their upper left corner (a combobox in width only) down to one
// snap.
void MoveControls(GuiForm& form, const std::vector<ControlRef>& controls, float x, float y);
void GrowControls(GuiForm& form, const std::vector<ControlRef>& controls, float width, float height,
                  SurfaceScale scale);

void DeleteControls(GuiForm& form, const std::vector<ControlRef>& controls);

// Controls that were copied, from back to front. Pasted ones are two snaps further right and down. A control whose name
// is in use gets a new name and branch that no other control has; a caption that was still the one of a new control
// follows the copy's number.
struct CopiedControl {
    ControlKind kind;
    ControlRecord record;
};
std::vector<CopiedControl> CopyControls(const GuiForm& form, const std::vector<ControlRef>& controls);
std::vector<ControlRef> PasteControls(GuiForm& form, const std::vector<CopiedControl>& copies, SurfaceScale scale);

} // namespace ob
