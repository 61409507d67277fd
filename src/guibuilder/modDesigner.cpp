// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of the drawing surface.
#include "guibuilder/modDesigner.h"

#include "platform/language/modRuntime.h"
#include "shell/state/Module1.h"

#include <QSet>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

float Twips(int pixels, int twipsPerPixel)
{
    return static_cast<float>(pixels * twipsPerPixel);
}

// The sides set by a handle: not too small, snapped.
float HandleSide(float side, int twipsPerPixel, int stepPixels)
{
    return SnapDown(std::max(side, LeastSideTwips), twipsPerPixel, stepPixels);
}

// One axis of StepOnto.
float StepOntoSide(float surface, float start, float extent, int twipsPerPixel)
{
    const float shown = std::min({Twips(LeastShownPixels, twipsPerPixel), extent, surface});
    const float snap = Twips(SnapPixels, twipsPerPixel);
    if (surface <= 0)
        return 0;
    if (start + extent < shown)
        return std::ceil((shown - start - extent) / snap) * snap;
    if (start > surface - shown)
        return -std::ceil((start - surface + shown) / snap) * snap;
    return 0;
}

// Whether the caption is that of a new control of the kind, whatever its number.
bool IsNewCaption(ControlKind kind, const QString& caption)
{
    const QString stem = LatinText(TraitsOf(kind).newCaption) + u' ';
    const QStringView number = QStringView(caption).mid(stem.size());
    return NewCaption(kind, 1).startsWith(stem) && caption.startsWith(stem) && !number.isEmpty() &&
           std::ranges::all_of(number, [](QChar each) { return each >= u'0' && each <= u'9'; });
}

QString PixelText(float twips, int twipsPerPixel)
{
    return Str(twips / static_cast<float>(twipsPerPixel));
}

bool TakesPart(const GuiForm& form, ControlRef ref)
{
    return form.At(ref).visible;
}

// A name and a branch made of the kind and the first number from the control's own on that are not in use.
void GiveFreshName(ControlRecord& control, ControlRef ref, const QSet<QString>& taken)
{
    const KindTraits& traits = TraitsOf(ref.kind);
    const auto nameOf = [&](int number) { return LatinText(traits.keyword) + QString::number(number); };
    const auto branchOf = [&](int number) { return nameOf(number) + u".click"_s; };
    int number = ref.index;
    while (taken.contains(nameOf(number)) || taken.contains(branchOf(number)) ||
           taken.contains(BracketedBranch(branchOf(number))))
        ++number;
    const QString tooltip = SplitTag(control.tag).tooltip;
    control.tag = tooltip.isEmpty() ? nameOf(number) : nameOf(number) + u" *"_s + tooltip;
    if (traits.branch == BranchUse::Label)
        control.branch = branchOf(number);
}

} // namespace

SurfaceRect RectOf(const ControlRecord& control)
{
    return {control.left, control.top, control.width, control.height};
}

void SetRect(ControlRecord& control, const SurfaceRect& rect)
{
    control.left = rect.left;
    control.top = rect.top;
    control.width = rect.width;
    control.height = rect.height;
}

SurfaceRect RectBetween(SurfacePoint one, SurfacePoint other)
{
    return {std::min(one.x, other.x), std::min(one.y, other.y), std::abs(one.x - other.x), std::abs(one.y - other.y)};
}

float SnapDown(float twips, int twipsPerPixel, int stepPixels)
{
    const double step = static_cast<double>(twipsPerPixel) * stepPixels;
    return static_cast<float>(std::floor(static_cast<double>(twips) / step) * step);
}

bool LeftAnchor(SurfacePoint anchor, SurfacePoint point, SurfaceScale scale, int pixels)
{
    return std::abs(point.x - anchor.x) >= Twips(pixels, scale.x) ||
           std::abs(point.y - anchor.y) >= Twips(pixels, scale.y);
}

QString NewCaption(ControlKind kind, int index)
{
    const KindTraits& traits = TraitsOf(kind);
    if (kind == ControlKind::Bmpbutton)
        return NoBitmap;
    // The text that a combobox shows is derived from its index.
    if (traits.newCaption.empty() || kind == ControlKind::Combobox)
        return {};
    return LatinText(traits.newCaption) + Str(index);
}

ControlRef PlaceControl(GuiForm& form, ControlKind kind, SurfacePoint anchor, SurfacePoint point, Drawn drawn,
                        SurfaceScale scale)
{
    const KindTraits& traits = TraitsOf(kind);
    const ControlRef ref = AddControl(form, kind);
    ControlRecord& control = form.At(ref);
    SurfaceRect rect = RectBetween(anchor, point);
    if (drawn == Drawn::Clicked) {
        rect.width = std::max(rect.width, Twips(traits.width, scale.x));
        rect.height = std::max(rect.height, Twips(traits.height, scale.y));
    }
    if (kind == ControlKind::Combobox)
        rect.height = control.height;
    SetRect(control, rect);
    control.caption = NewCaption(kind, ref.index);
    if (traits.branch == BranchUse::NotApplicable)
        control.branch = u"N/A"_s;
    control.visible = true;
    return ref;
}

SurfacePoint MovedTo(SurfacePoint pointer, SurfacePoint grip, SurfaceScale scale, int stepPixels)
{
    return {SnapDown(pointer.x - grip.x, scale.x, stepPixels), SnapDown(pointer.y - grip.y, scale.x, stepPixels)};
}

HandlePlaces HandlesOf(const SurfaceRect& control)
{
    return {{control.Right(), control.Bottom()}, {control.left - HandleTwips, control.top - HandleTwips}};
}

SurfaceRect HandleRect(SurfacePoint place)
{
    return {place.x, place.y, HandleTwips, HandleTwips};
}

std::optional<SurfaceRect> ResizedBy(Handle moved, const HandlePlaces& handles, ControlKind kind,
                                     const SurfaceRect& control, SurfaceScale scale, int stepPixels)
{
    if (handles.lower.x <= handles.upper.x - HandleTwips || handles.lower.y <= handles.upper.y - HandleTwips)
        return std::nullopt;
    SurfaceRect rect = control;
    if (moved == Handle::Lower) {
        rect.width = HandleSide(handles.lower.x - control.left, scale.x, stepPixels);
        rect.height = HandleSide(handles.lower.y - control.top, scale.y, stepPixels);
    } else {
        rect.width = HandleSide(control.Right() - (handles.upper.x + HandleTwips), scale.x, stepPixels);
        rect.height = HandleSide(control.Bottom() - (handles.upper.y + HandleTwips), scale.y, stepPixels);
    }
    if (kind == ControlKind::Combobox)
        rect.height = control.height;
    if (moved == Handle::Upper) {
        rect.left = control.Right() - rect.width;
        rect.top = control.Bottom() - rect.height;
    }
    return rect;
}

QString PlaceText(const SurfaceRect& control, SurfaceScale scale)
{
    return u"X - "_s + PixelText(control.left, scale.x) + u"    Y - "_s + PixelText(control.top, scale.y);
}

QString SizeText(const SurfaceRect& control, SurfaceScale scale)
{
    return u"Width:  "_s + PixelText(control.width, scale.x) + u"        Height:  "_s +
           PixelText(control.height, scale.y);
}

std::vector<ControlRef> PaintOrder(const GuiForm& form)
{
    std::vector<ControlRef> order;
    order.reserve(form.order.size());
    std::ranges::copy_if(form.order, std::back_inserter(order), [&](ControlRef ref) { return TakesPart(form, ref); });
    std::stable_partition(order.begin(), order.end(), [](ControlRef ref) { return ref.kind == ControlKind::Groupbox; });
    return order;
}

std::optional<ControlRef> ControlAt(const GuiForm& form, SurfacePoint point)
{
    std::optional<ControlRef> groupbox;
    for (auto ref = form.order.rbegin(); ref != form.order.rend(); ++ref) {
        if (!TakesPart(form, *ref) || !RectOf(form.At(*ref)).Contains(point))
            continue;
        if (ref->kind != ControlKind::Groupbox)
            return *ref;
        if (!groupbox)
            groupbox = *ref;
    }
    return groupbox;
}

std::vector<ControlRef> ControlsIn(const GuiForm& form, const SurfaceRect& rect)
{
    std::vector<ControlRef> found;
    for (const ControlRef ref : PaintOrder(form))
        if (RectOf(form.At(ref)).Meets(rect))
            found.push_back(ref);
    return found;
}

std::vector<ControlRef> WithHeld(const GuiForm& form, const std::vector<ControlRef>& controls)
{
    std::vector<ControlRef> all = controls;
    for (const ControlRef box : controls) {
        if (box.kind != ControlKind::Groupbox)
            continue;
        for (const ControlRef ref : form.order)
            if (TakesPart(form, ref) && RectOf(form.At(box)).Holds(RectOf(form.At(ref))) &&
                std::ranges::find(all, ref) == all.end())
                all.push_back(ref);
    }
    return all;
}

SurfacePoint StepOnto(const SurfaceRect& surface, const SurfaceRect& control, SurfaceScale scale)
{
    return {StepOntoSide(surface.width, control.left, control.width, scale.x),
            StepOntoSide(surface.height, control.top, control.height, scale.y)};
}

void AlignControls(GuiForm& form, const std::vector<ControlRef>& controls, Alignment alignment)
{
    if (controls.empty())
        return;
    const SurfaceRect model = RectOf(form.At(controls.front()));
    for (const ControlRef ref : controls) {
        ControlRecord& control = form.At(ref);
        switch (alignment) {
        case Alignment::Left:
            control.left = model.left;
            break;
        case Alignment::Top:
            control.top = model.top;
            break;
        case Alignment::Right:
            control.left = model.Right() - control.width;
            break;
        case Alignment::Bottom:
            control.top = model.Bottom() - control.height;
            break;
        case Alignment::SameWidth:
            control.width = model.width;
            break;
        case Alignment::SameHeight:
            if (ref.kind != ControlKind::Combobox)
                control.height = model.height;
            break;
        }
    }
}

void MoveControls(GuiForm& form, const std::vector<ControlRef>& controls, float x, float y)
{
    for (const ControlRef ref : controls) {
        form.At(ref).left += x;
        form.At(ref).top += y;
    }
}

void GrowControls(GuiForm& form, const std::vector<ControlRef>& controls, float width, float height, SurfaceScale scale)
{
    const auto grow = [](float& side, float by, int twipsPerPixel) {
        // A side that is already smaller does not grow by a step down.
        if (by > 0 || side + by >= Twips(SnapPixels, twipsPerPixel))
            side += by;
    };
    for (const ControlRef ref : controls) {
        grow(form.At(ref).width, width, scale.x);
        if (ref.kind != ControlKind::Combobox)
            grow(form.At(ref).height, height, scale.y);
    }
}

void DeleteControls(GuiForm& form, const std::vector<ControlRef>& controls)
{
    for (const ControlRef ref : controls)
        form.At(ref).visible = false;
}

std::vector<CopiedControl> CopyControls(const GuiForm& form, const std::vector<ControlRef>& controls)
{
    std::vector<CopiedControl> copies;
    for (const ControlRef ref : PaintOrder(form))
        if (std::ranges::find(controls, ref) != controls.end())
            copies.push_back({ref.kind, form.At(ref)});
    return copies;
}

std::vector<ControlRef> PasteControls(GuiForm& form, const std::vector<CopiedControl>& copies, SurfaceScale scale)
{
    QSet<QString> taken;
    for (const ControlRef ref : form.order) {
        if (!TakesPart(form, ref))
            continue;
        taken.insert(SplitTag(form.At(ref).tag).name);
        taken.insert(form.At(ref).branch);
    }
    std::vector<ControlRef> pasted;
    for (const CopiedControl& copy : copies) {
        const ControlRef ref = AddControl(form, copy.kind);
        ControlRecord& control = form.At(ref);
        control = copy.record;
        control.left += Twips(2 * SnapPixels, scale.x);
        control.top += Twips(2 * SnapPixels, scale.y);
        if (IsNewCaption(copy.kind, control.caption))
            control.caption = NewCaption(copy.kind, ref.index);
        pasted.push_back(ref);
        const QString name = SplitTag(control.tag).name;
        if (name.isEmpty() || taken.contains(name))
            GiveFreshName(control, ref, taken);
        taken.insert(SplitTag(control.tag).name);
    }
    return pasted;
}

} // namespace ob
