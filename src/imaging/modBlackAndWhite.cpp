// SPDX-License-Identifier: GPL-3.0-or-later
// Error diffusion from grey to black and white.
#include "imaging/modBlackAndWhite.h"

#include <algorithm>

namespace ob {

namespace {

constexpr int Threshold = 128;
constexpr int DeepestShadow = 16;

// Deep shadows pass nothing on, and light ones about half of their true error.
int ErrorOf(int value)
{
    if (value <= DeepestShadow)
        return 0;
    return value <= Threshold ? value : 127 - value;
}

inline int Clamp(int value)
{
    return std::min(std::max(value, 0), 255);
}

} // namespace

cBlackAndWhiteLines::cBlackAndWhiteLines(const cDIBSection& greySource, cDIBSection& result)
    : source(greySource), target(result), before(static_cast<std::size_t>(result.Width()))
{
    for (std::size_t value = 0; value < 256; ++value) {
        const int error = ErrorOf(static_cast<int>(value));
        share1[value] = static_cast<std::int16_t>(error / 16);
        share5[value] = static_cast<std::int16_t>(error * 5 / 16);
        share7[value] = static_cast<std::int16_t>(error * 7 / 16);
    }
}

inline void cBlackAndWhiteLines::Step(Line& line, std::int32_t column, bool takesShares)
{
    std::uint8_t* pixel = line.target + std::int64_t{column} * 3;
    std::uint8_t& above = before[static_cast<std::size_t>(column)];
    int value = line.source[std::int64_t{column} * 3];
    if (takesShares) {
        value = Clamp(value + share1[line.beforeLeft]);
        value = Clamp(value + share7[line.left]);
        value = Clamp(value + share5[above]);
    }
    line.beforeLeft = above;
    above = line.left = static_cast<std::uint8_t>(value);
    pixel[0] = pixel[1] = pixel[2] = value > Threshold ? 255 : 0;
}

// Several lines, each one column after the line before, so that the processor works on one while it waits for the
// result of another.
template <int Lines>
void cBlackAndWhiteLines::MakeTogether(std::int32_t firstLine)
{
    std::array<Line, Lines> lines;
    for (int index = 0; index < Lines; ++index)
        lines[static_cast<std::size_t>(index)] = {source.Line(firstLine + index), target.Line(firstLine + index)};
    const std::int32_t width = target.Width();
    const std::int32_t last = width - 1;
    std::int32_t step = 0;
    const auto stepAtEdge = [&] {
        for (int index = 0; index < Lines; ++index) {
            const std::int32_t column = step - index;
            if (column >= 0 && column <= last)
                Step(lines[static_cast<std::size_t>(index)], column, column > 0 && column < last);
        }
    };
    for (; step < std::min(Lines, width); ++step)
        stepAtEdge();
    for (; step < last; ++step) {
        for (int index = 0; index < Lines; ++index)
            Step(lines[static_cast<std::size_t>(index)], step - index, true);
    }
    for (; step < width + Lines - 1; ++step)
        stepAtEdge();
}

void cBlackAndWhiteLines::Make(std::int32_t firstLine, std::int32_t endLine)
{
    constexpr int together = 4;
    for (; firstLine + together <= endLine; firstLine += together)
        MakeTogether<together>(firstLine);
    for (; firstLine < endLine; ++firstLine)
        MakeTogether<1>(firstLine);
}

} // namespace ob
