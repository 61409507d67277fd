// SPDX-License-Identifier: GPL-3.0-or-later
// Colours that can be read on a given background.
#pragma once

#include "platform/language/modColorNames.h"

namespace ob {

struct EditorSettings;

// What text needs, and what pictures need.
constexpr double ReadableContrast = 5.5;
constexpr double PictureContrast = 3.0;

bool IsDark(ColorRef color);

// From 1, the same colour, to 21, black on white.
double ContrastOf(ColorRef first, ColorRef second);

// The colour, made lighter or darker until it has that contrast with the background. One that has it already is
// returned as it is.
ColorRef ReadableOn(ColorRef ground, ColorRef color, double contrast = ReadableContrast);

// A background for parts of a window, such as a mark, made dark or light as the window's own background is. One that is
// so already is returned as it is.
ColorRef GroundLike(ColorRef ground, ColorRef part);

// A chosen colour of text, and of a background, as a code window with that background shows it: on a light one as it
// is, on a dark one made readable.
ColorRef ShownText(ColorRef ground, ColorRef color);
ColorRef ShownGround(ColorRef ground, ColorRef part);

// The settings with the colours that a code window shows.
EditorSettings ShownColors(const EditorSettings& settings);

// The line numbers of such a window.
struct TextColors {
    ColorRef fore = 0;
    ColorRef back = 0;
};
TextColors ShownLineNumbers(const EditorSettings& settings);

} // namespace ob
