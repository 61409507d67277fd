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
    bool operator==(const SurfaceRect&) const = default;
};

inline constexpr int SnapPixels = 5;         // controls stand on multiples of it
inline constexpr int DragPixels = 5;         // a pointer that went less far has clicked
inline constexpr float HandleTwips = 135;    // each handle is as wide and high
inline constexpr float LeastSideTwips = 135; // of a control under a handle, before the snap

SurfaceRect RectOf(const ControlRecord& control);
void SetRect(ControlRecord& control, const SurfaceRect& rect);
SurfaceRect RectBetween(SurfacePoint one, SurfacePoint other);

// Down to a multiple of 5 pixels, below zero too.
float SnapDown(float twips, int twipsPerPixel);

// Whether the pointer has gone 5 pixels or more from the anchor in either direction.
bool LeftAnchor(SurfacePoint anchor, SurfacePoint point, SurfaceScale scale);

// A new control of the kind between anchor and point, shown, in front, with the kind's caption; the list's count is its
// index. One that was not drawn but clicked gets the kind's size at least. A combobox has its own height.
enum class Drawn { Clicked, Dragged };
ControlRef PlaceControl(GuiForm& form, ControlKind kind, SurfacePoint anchor, SurfacePoint point, Drawn drawn,
                        SurfaceScale scale);

// The caption of a new control: the kind's word and the number with its leading blank; empty for some kinds.
QString NewCaption(ControlKind kind, int index);

// Where a control goes whose grip, a place in it measured from its upper left corner, follows the pointer. The X factor
// serves both axes.
SurfacePoint MovedTo(SurfacePoint pointer, SurfacePoint grip, SurfaceScale scale);

// The handles of a control: the lower right corner's and the upper left corner's.
struct HandlePlaces {
    SurfacePoint lower;
    SurfacePoint upper;
};
enum class Handle { Lower, Upper };
HandlePlaces HandlesOf(const SurfaceRect& control);
SurfaceRect HandleRect(SurfacePoint place);

// The control's rectangle once a handle stands where handles says; nothing when the handles have passed each other.
// The corner at the other handle stays; a combobox keeps its height.
std::optional<SurfaceRect> ResizedBy(Handle moved, const HandlePlaces& handles, ControlKind kind,
                                     const SurfaceRect& control, SurfaceScale scale);

// "X -  40    Y -  20", and "Width:   80        Height:   30": pixels.
QString PlaceText(const SurfaceRect& control, SurfaceScale scale);
QString SizeText(const SurfaceRect& control, SurfaceScale scale);

// All visible controls as they are painted, the hindmost first: groupboxes lie behind the others, which stand in them.
std::vector<ControlRef> PaintOrder(const GuiForm& form);

// The control in front at that place, and all that a rectangle touches.
std::optional<ControlRef> ControlAt(const GuiForm& form, SurfacePoint point);
std::vector<ControlRef> ControlsIn(const GuiForm& form, const SurfaceRect& rect);

// Puts all but the first control in line with it.
enum class Alignment { Left, Top, Right, Bottom, SameWidth, SameHeight };
void AlignControls(GuiForm& form, const std::vector<ControlRef>& controls, Alignment alignment);

// Moves all controls, and grows or shrinks them from their upper left corner (a combobox in width only) down to one
// snap.
void MoveControls(GuiForm& form, const std::vector<ControlRef>& controls, float x, float y);
void GrowControls(GuiForm& form, const std::vector<ControlRef>& controls, float width, float height,
                  SurfaceScale scale);

void DeleteControls(GuiForm& form, const std::vector<ControlRef>& controls);

// Controls that were copied, the hindmost first. Pasted ones stand two snaps further right and down, under names and
// branches that no other control has.
struct CopiedControl {
    ControlKind kind;
    ControlRecord record;
};
std::vector<CopiedControl> CopyControls(const GuiForm& form, const std::vector<ControlRef>& controls);
std::vector<ControlRef> PasteControls(GuiForm& form, const std::vector<CopiedControl>& copies, SurfaceScale scale);

} // namespace ob
