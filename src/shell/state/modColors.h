// SPDX-License-Identifier: GPL-3.0-or-later
// Colours in the toolkit's form.
#pragma once

#include "shell/state/modContrast.h"

#include <QColor>

namespace ob {

inline QColor ColorOf(ColorRef color)
{
    const auto part = [color](int shift) { return static_cast<int>((color >> shift) & 0xFF); };
    return {part(0), part(8), part(16)};
}

inline ColorRef RefOf(const QColor& color)
{
    return Rgb(static_cast<unsigned>(color.red()), static_cast<unsigned>(color.green()),
               static_cast<unsigned>(color.blue()));
}

// The same as those of modContrast.
inline bool IsDark(const QColor& color)
{
    return IsDark(RefOf(color));
}

inline double ContrastOf(const QColor& first, const QColor& second)
{
    return ContrastOf(RefOf(first), RefOf(second));
}

inline QColor ReadableOn(const QColor& ground, const QColor& color, double contrast = ReadableContrast)
{
    return ColorOf(ReadableOn(RefOf(ground), RefOf(color), contrast));
}

inline QColor GroundLike(const QColor& ground, const QColor& part)
{
    return ColorOf(GroundLike(RefOf(ground), RefOf(part)));
}

} // namespace ob
