// SPDX-License-Identifier: GPL-3.0-or-later
// Colours that can be read on a given background.
#include "shell/state/modColors.h"

#include "shell/state/modEditorSettings.h"

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

constexpr int MiddleLightness = 128; // of 255
constexpr TextColors LineNumbers{Rgb(92, 92, 92), Rgb(234, 234, 234)};

QColor WithLightness(const QColor& color, int lightness)
{
    return QColor::fromHsl(color.hslHue(), color.hslSaturation(), lightness);
}

// Relative luminance from 0, black, to 1, white.
double LuminanceOf(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

int ChromaOf(const QColor& color)
{
    const auto [low, high] = std::minmax({color.red(), color.green(), color.blue()});
    return high - low;
}

} // namespace

bool IsDark(const QColor& color)
{
    return color.lightness() < MiddleLightness;
}

double ContrastOf(const QColor& first, const QColor& second)
{
    const auto [low, high] = std::minmax({LuminanceOf(first), LuminanceOf(second)});
    return (high + 0.05) / (low + 0.05);
}

QColor ReadableOn(const QColor& ground, const QColor& color, double contrast)
{
    const int step = IsDark(ground) ? 5 : -5;
    QColor readable = color;
    for (int lightness = color.lightness(); ContrastOf(readable, ground) < contrast; lightness += step) {
        if (lightness < 0 || lightness > 255)
            break;
        readable = WithLightness(color, lightness);
    }
    return readable;
}

QColor GroundLike(const QColor& ground, const QColor& part)
{
    if (IsDark(part) == IsDark(ground))
        return part;
    // As far from the window's background as it was from white or black, and no more colourful.
    const int distance = IsDark(ground) ? 255 - part.lightness() : -part.lightness();
    const int lightness = std::clamp(ground.lightness() + distance, 0, 255);
    const int widest = 255 - std::abs(2 * lightness - 255);
    const int saturation = widest == 0 ? 0 : std::min(255, ChromaOf(part) / 2 * 255 / widest);
    return QColor::fromHsl(part.hslHue(), saturation, lightness);
}

ColorRef ShownText(ColorRef ground, ColorRef color)
{
    return IsDark(ColorOf(ground)) ? RefOf(ReadableOn(ColorOf(ground), ColorOf(color))) : color;
}

ColorRef ShownGround(ColorRef ground, ColorRef part)
{
    return IsDark(ColorOf(ground)) ? RefOf(GroundLike(ColorOf(ground), ColorOf(part))) : part;
}

EditorSettings ShownColors(const EditorSettings& settings)
{
    EditorSettings shown = settings;
    const ColorRef ground = settings.EditBackColor;
    shown.HighlightColor = ShownGround(ground, settings.HighlightColor);
    shown.CommentBackColor = ShownGround(ground, settings.CommentBackColor);
    // The line of the caret has its own background under all texts.
    const bool isLineLighter = ColorOf(shown.HighlightColor).lightness() > ColorOf(ground).lightness();
    const ColorRef lightest = settings.HighlightOn && isLineLighter ? shown.HighlightColor : ground;
    if (!IsDark(ColorOf(ground)))
        return shown;
    for (ColorRef* color : {&shown.BranchColor, &shown.KeywordColor, &shown.QuoteColor, &shown.NumberColor,
                            &shown.HandleColor, &shown.CommentColor})
        *color = ShownText(lightest, *color);
    shown.CommentColor = ShownText(shown.CommentBackColor, shown.CommentColor);
    return shown;
}

TextColors ShownLineNumbers(const EditorSettings& settings)
{
    const QColor ground = ColorOf(settings.EditBackColor);
    if (!IsDark(ground))
        return LineNumbers;
    const QColor back = GroundLike(ground, ColorOf(LineNumbers.back));
    return {RefOf(ReadableOn(back, ColorOf(LineNumbers.fore))), RefOf(back)};
}

} // namespace ob
