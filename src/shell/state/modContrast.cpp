// SPDX-License-Identifier: GPL-3.0-or-later
// Colours that can be read on a given background.
#include "shell/state/modContrast.h"

#include "shell/state/modEditorSettings.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace ob {

namespace {

constexpr double MiddleLightness = 0.5;
constexpr double LightnessStep = 0.02;
constexpr TextColors LineNumbers{Rgb(92, 92, 92), Rgb(234, 234, 234)};

using Channels = std::array<double, 3>; // red, green, blue from 0 to 1

// A colour as its hue, a channel each from 0 to 1 of the chroma; how colourful it is; how light it is.
struct Shape {
    Channels hue = {};
    double chroma = 0;
    double lightness = 0;
};

Channels ChannelsOf(ColorRef color)
{
    const auto part = [color](int shift) { return ((color >> shift) & 0xFF) / 255.0; };
    return {part(0), part(8), part(16)};
}

Shape ShapeOf(ColorRef color)
{
    const Channels channels = ChannelsOf(color);
    const auto [low, high] = std::minmax({channels[0], channels[1], channels[2]});
    Shape shape{{}, high - low, (high + low) / 2};
    for (std::size_t i = 0; i < channels.size() && shape.chroma > 0; ++i)
        shape.hue[i] = (channels[i] - low) / shape.chroma;
    return shape;
}

// The largest chroma that a colour of that lightness can have.
double WidestChroma(double lightness)
{
    return 1 - std::abs(2 * lightness - 1);
}

ColorRef ColorOf(const Shape& shape)
{
    const auto channel = [&shape](std::size_t i) {
        const double value = shape.lightness + (shape.hue[i] - 0.5) * shape.chroma;
        return static_cast<unsigned>(std::lround(std::clamp(value, 0.0, 1.0) * 255));
    };
    return Rgb(channel(0), channel(1), channel(2));
}

// The same hue, as saturated as the colour is at its own lightness.
ColorRef WithLightness(const Shape& shape, double lightness)
{
    const double widest = WidestChroma(shape.lightness);
    const double saturation = widest > 0 ? std::min(1.0, shape.chroma / widest) : 0;
    return ColorOf(Shape{shape.hue, saturation * WidestChroma(lightness), lightness});
}

// Relative luminance from 0, black, to 1, white.
double LuminanceOf(ColorRef color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const Channels channels = ChannelsOf(color);
    return 0.2126 * linear(channels[0]) + 0.7152 * linear(channels[1]) + 0.0722 * linear(channels[2]);
}

} // namespace

bool IsDark(ColorRef color)
{
    return ShapeOf(color).lightness < MiddleLightness;
}

double ContrastOf(ColorRef first, ColorRef second)
{
    const auto [low, high] = std::minmax({LuminanceOf(first), LuminanceOf(second)});
    return (high + 0.05) / (low + 0.05);
}

ColorRef ReadableOn(ColorRef ground, ColorRef color, double contrast)
{
    const double step = IsDark(ground) ? LightnessStep : -LightnessStep;
    const Shape shape = ShapeOf(color);
    ColorRef readable = color;
    for (double lightness = shape.lightness; ContrastOf(readable, ground) < contrast; lightness += step) {
        if (lightness < 0 || lightness > 1)
            break;
        readable = WithLightness(shape, lightness);
    }
    return readable;
}

ColorRef GroundLike(ColorRef ground, ColorRef part)
{
    if (IsDark(part) == IsDark(ground))
        return part;
    // As far from the window's background as it was from white or black, and less colourful.
    const Shape shape = ShapeOf(part);
    const double distance = IsDark(ground) ? 1 - shape.lightness : -shape.lightness;
    const double lightness = std::clamp(ShapeOf(ground).lightness + distance, 0.0, 1.0);
    return ColorOf(Shape{shape.hue, std::min(shape.chroma / 2, WidestChroma(lightness)), lightness});
}

ColorRef ShownText(ColorRef ground, ColorRef color)
{
    return IsDark(ground) ? ReadableOn(ground, color) : color;
}

ColorRef ShownGround(ColorRef ground, ColorRef part)
{
    return IsDark(ground) ? GroundLike(ground, part) : part;
}

EditorSettings ShownColors(const EditorSettings& settings)
{
    const ColorRef ground = settings.EditBackColor;
    if (!IsDark(ground))
        return settings;
    EditorSettings shown = settings;
    shown.HighlightColor = ShownGround(ground, settings.HighlightColor);
    shown.CommentBackColor = ShownGround(ground, settings.CommentBackColor);
    // The line of the caret has its own background under all texts.
    const bool isLineLighter = ShapeOf(shown.HighlightColor).lightness > ShapeOf(ground).lightness;
    const ColorRef lightest = settings.HighlightOn && isLineLighter ? shown.HighlightColor : ground;
    for (ColorRef* color : {&shown.BranchColor, &shown.KeywordColor, &shown.QuoteColor, &shown.NumberColor,
                            &shown.HandleColor, &shown.CommentColor})
        *color = ReadableOn(lightest, *color);
    shown.CommentColor = ReadableOn(shown.CommentBackColor, shown.CommentColor);
    return shown;
}

TextColors ShownLineNumbers(const EditorSettings& settings)
{
    const ColorRef ground = settings.EditBackColor;
    if (!IsDark(ground))
        return LineNumbers;
    const ColorRef back = GroundLike(ground, LineNumbers.back);
    return {ReadableOn(back, LineNumbers.fore), back};
}

} // namespace ob
