// SPDX-License-Identifier: GPL-3.0-or-later
// A control's properties as texts in the fields of a dialog, and back into the control.
#pragma once

#include "guibuilder/modGui.h"

#include <QString>

namespace ob {

inline const QString DeleteControlText = QStringLiteral("Delete this control?");
inline const QString NoBitmapText =
    QStringLiteral("This bmpbutton does not have an associated bitmap.  Would you like to choose a bitmap for this "
                   "button.");

// Whole pixels of any screen at 15 twips are far below it, and up to it a single represents each twip in seven digits.
inline constexpr double MostTwips = 9'999'990;
inline constexpr float LeastControlTwips = 10;

// A measure in pixels, by division; and the measure in twips for a text in pixels. Spaces are ignored, what is not a
// number is 0, and values are limited to MostTwips on either side. For a text that is still PixelText of before the
// result is before, so that a measure of many digits survives a dialog in which it was not edited.
QString PixelText(float twips, int twipsPerPixel);
float TwipsOf(const QString& pixels, int twipsPerPixel, float before);

// The values in the fields. The rectangle is in pixels; color is an index into ColorName, -1 for none chosen.
struct PropertyTexts {
    QString name;
    QString caption;
    QString branch;
    QString tooltip;
    QString bitmap;
    QString left;
    QString top;
    QString width;
    QString height;
    int color = -1;

    bool operator==(const PropertyTexts&) const = default;
};

// The fields of a control at first, and those that its kind lets the user change (the others always do).
struct PropertyFields {
    PropertyTexts texts;
    bool captionEnabled = false;
    bool branchEnabled = false;
    bool tooltipEnabled = false;
    bool bitmapEnabled = false;
    bool colorEnabled = false;
};
PropertyFields PropertiesOf(const ControlRecord& control, ControlKind kind, SurfaceScale scale);

// Stores the fields in the control, after hiding a deleted one. A bitmap that cannot be read is ignored: its path stays
// in the caption, picture and size remain as they were. LacksBitmap: all is done, but a visible bmpbutton has no bitmap
// in its field, and the user is to be asked.
enum class ControlFate { Kept, Deleted };
enum class PropertiesEnd { Applied, LacksBitmap };
PropertiesEnd ApplyProperties(ControlRecord& control, ControlKind kind, const PropertyTexts& texts, ControlFate fate,
                              SurfaceScale scale);

// A bitmap's path as it is kept: in the system's short form, and in lower case where file names have no case.
QString BitmapPathOf(const QString& path);

} // namespace ob
