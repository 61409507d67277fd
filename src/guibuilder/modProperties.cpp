// SPDX-License-Identifier: GPL-3.0-or-later
// A control's properties as texts.
#include "guibuilder/modProperties.h"

#include "guibuilder/modBitmap.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modColorNames.h"
#include "platform/language/modRuntime.h"
#include "platform/language/modSystem.h"
#include "shell/state/Module1.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QLatin1String TooltipMark(" *");
const QString NotApplicableText = u"N/A"_s;

// What a field shows: the control's text, editable or not; "N/A"; nothing. The last three are disabled.
enum class FieldUse { Edited, Fixed, NotApplicable, Empty };

struct KindFields {
    FieldUse caption;
    FieldUse branch;
    FieldUse bitmap;
    FieldUse tooltip;
};

using enum FieldUse;

// In the order of ControlKind.
constexpr std::array<KindFields, KindCount> FieldTable = {{
    {Edited, Edited, Empty, Edited},                       // Button
    {Fixed, Edited, Edited, Edited},                       // Bmpbutton
    {Edited, NotApplicable, NotApplicable, NotApplicable}, // Statictext
    {Edited, NotApplicable, NotApplicable, NotApplicable}, // Groupbox
    {NotApplicable, NotApplicable, Empty, Edited},         // Textbox
    {NotApplicable, NotApplicable, Empty, Edited},         // Texteditor
    {Edited, Edited, Empty, Edited},                       // Checkbox
    {Edited, Edited, Empty, Edited},                       // Radiobutton
    {Empty, Edited, Empty, Edited},                        // Listbox
    {Empty, Edited, Empty, Edited},                        // Combobox
    {NotApplicable, Edited, Empty, Edited},                // Graphicbox
}};

const KindFields& FieldsOf(ControlKind kind)
{
    return FieldTable[static_cast<std::size_t>(kind)];
}

QString ShownText(FieldUse use, const QString& text)
{
    switch (use) {
    case Edited:
    case Fixed:
        return text;
    case NotApplicable:
        return NotApplicableText;
    case Empty:
        break;
    }
    return {};
}

int ColorPlace(ColorRef value)
{
    const auto place = std::ranges::find(ColorValue, value);
    return place == ColorValue.end() ? -1 : static_cast<int>(place - ColorValue.begin());
}

// Beyond the range of a double is beyond the bound too, on the same side.
double PixelsOf(const QString& trimmed)
{
    try {
        return Val(trimmed);
    } catch (const RuntimeError&) {
        return trimmed.startsWith(u'-') ? -MostTwips : MostTwips;
    }
}

void ApplyRect(ControlRecord& control, const PropertyTexts& texts, SurfaceScale scale)
{
    control.left = TwipsOf(texts.left, scale.x, control.left);
    control.top = TwipsOf(texts.top, scale.y, control.top);
    control.width = std::max(TwipsOf(texts.width, scale.x, control.width), LeastControlTwips);
    control.height = std::max(TwipsOf(texts.height, scale.y, control.height), LeastControlTwips);
}

void ApplyBitmap(ControlRecord& control, const QString& path, SurfaceScale scale)
{
    control.caption = path;
    try {
        control.picture = LoadBitmap(path);
    } catch (const RuntimeError&) {
        return;
    }
    control.width = static_cast<float>(control.picture.Image().width() * scale.x);
    control.height = static_cast<float>(control.picture.Image().height() * scale.y);
}

} // namespace

QString PixelText(float twips, int twipsPerPixel)
{
    return NumberText(twips / static_cast<float>(twipsPerPixel));
}

float TwipsOf(const QString& pixels, int twipsPerPixel, float before)
{
    const QString trimmed = TrimSpaces(pixels);
    if (trimmed == PixelText(before, twipsPerPixel))
        return before;
    // The sum turns a negative zero into a plain one.
    return static_cast<float>(std::clamp(PixelsOf(trimmed) * twipsPerPixel, -MostTwips, MostTwips) + 0.0);
}

PropertyFields PropertiesOf(const ControlRecord& control, ControlKind kind, SurfaceScale scale)
{
    const KindFields& uses = FieldsOf(kind);
    // Spaces around the name are shown, so that OK keeps them.
    const qsizetype mark = control.tag.indexOf(TooltipMark);
    const QString tooltip = mark < 0 ? QString() : control.tag.mid(mark + TooltipMark.size());
    PropertyFields fields;
    fields.texts.name = mark < 0 ? control.tag : control.tag.left(mark);
    fields.texts.caption = ShownText(uses.caption, control.caption);
    fields.texts.branch = ShownText(uses.branch, control.branch);
    fields.texts.tooltip = ShownText(uses.tooltip, tooltip);
    fields.texts.bitmap = ShownText(uses.bitmap, control.caption);
    fields.texts.left = PixelText(control.left, scale.x);
    fields.texts.top = PixelText(control.top, scale.y);
    fields.texts.width = PixelText(control.width, scale.x);
    fields.texts.height = PixelText(control.height, scale.y);
    fields.captionEnabled = uses.caption == Edited;
    fields.branchEnabled = uses.branch == Edited;
    fields.tooltipEnabled = uses.tooltip == Edited;
    fields.bitmapEnabled = uses.bitmap == Edited;
    fields.colorEnabled = kind == ControlKind::Graphicbox;
    if (fields.colorEnabled)
        fields.texts.color = ColorPlace(control.backColor);
    return fields;
}

PropertiesEnd ApplyProperties(ControlRecord& control, ControlKind kind, const PropertyTexts& texts, ControlFate fate,
                              SurfaceScale scale)
{
    if (fate == ControlFate::Deleted)
        control.visible = false;
    ApplyRect(control, texts, scale);
    control.tag = texts.name;
    if (FieldsOf(kind).tooltip == Edited)
        control.tag += TooltipMark + texts.tooltip;
    control.branch = texts.branch;
    if (FieldsOf(kind).caption == Edited)
        control.caption = texts.caption;
    if (kind == ControlKind::Graphicbox && texts.color >= 0)
        control.backColor = ColorValue[static_cast<std::size_t>(texts.color)];
    if (kind != ControlKind::Bmpbutton)
        return PropertiesEnd::Applied;
    if (!texts.bitmap.isEmpty() && texts.bitmap != NoBitmap)
        ApplyBitmap(control, texts.bitmap, scale);
    else if (control.visible)
        return PropertiesEnd::LacksBitmap;
    return PropertiesEnd::Applied;
}

QString BitmapPathOf(const QString& path)
{
    const QString shortPath = ShortPathOf(path);
    // In lower case only where file names have no case.
    return ThisSystem == System::Windows ? shortPath.toLower() : shortPath;
}

} // namespace ob
