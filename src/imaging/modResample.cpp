// SPDX-License-Identifier: GPL-3.0-or-later
// Bilinear scaling: a whole line of the source is blended once, then the target's pixels are blended from it.
#include "imaging/modResample.h"

#include "imaging/cDIBSection.h"
#include "imaging/cImagingError.h"
#include "imaging/modSimd.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace ob {

namespace {

constexpr std::uint32_t One = 1U << 24;

// The position of a target line or column between two of the source.
struct Place {
    std::int64_t first = 0;
    float fraction = 0;
    std::uint32_t weight = 0; // the fraction in steps of 2^-24
    bool isWhole = false;     // the weight is exactly the fraction, as it is from a position of a half on
};

float ScaleOf(std::int32_t sourceSize, std::int32_t targetSize)
{
    return static_cast<float>(static_cast<double>(sourceSize - 1) / static_cast<double>(targetSize));
}

Place PlaceOf(std::int64_t index, float scale)
{
    const float position = static_cast<float>(static_cast<double>(index) * static_cast<double>(scale));
    const float whole = std::floor(position);
    Place place;
    place.first = static_cast<std::int64_t>(whole);
    place.fraction = position - whole;
    const float steps = place.fraction * static_cast<float>(One);
    place.weight = static_cast<std::uint32_t>(steps);
    place.isWhole = static_cast<float>(place.weight) == steps;
    return place;
}

// The sum of two products is below 2^32; adding just under a half, or a half when the whole part is odd, rounds ties
// to even.
inline std::uint8_t Blend(std::uint8_t first, std::uint8_t second, std::uint32_t weight)
{
    const std::uint32_t sum = first * (One - weight) + second * weight;
    return static_cast<std::uint8_t>((sum + (One / 2 - 1) + (sum >> 24 & 1U)) >> 24);
}

inline std::uint8_t BlendFraction(std::uint8_t first, std::uint8_t second, float fraction)
{
    const double share = fraction;
    return static_cast<std::uint8_t>(std::nearbyint((1.0 - share) * first + share * second));
}

void BlendLinesPlain(const std::uint8_t* first, const std::uint8_t* second, std::uint32_t weight, std::uint8_t* result,
                     std::int32_t count)
{
    for (std::int32_t index = 0; index < count; ++index)
        result[index] = Blend(first[index], second[index], weight);
}

#ifdef OB_X86
OB_TARGET("avx2")
void BlendLinesAvx2(const std::uint8_t* first, const std::uint8_t* second, std::uint32_t weight, std::uint8_t* result,
                    std::int32_t count)
{
    for (std::int32_t index = 0; index < count; ++index) {
        const std::uint32_t sum = first[index] * (One - weight) + second[index] * weight;
        result[index] = static_cast<std::uint8_t>((sum + (One / 2 - 1) + (sum >> 24 & 1U)) >> 24);
    }
}
#endif

void BlendLines(const std::uint8_t* first, const std::uint8_t* second, const Place& place, std::uint8_t* result,
                std::int32_t count)
{
    if (!place.isWhole) {
        for (std::int32_t index = 0; index < count; ++index)
            result[index] = BlendFraction(first[index], second[index], place.fraction);
        return;
    }
#ifdef OB_X86
    if (HasAvx2()) {
        BlendLinesAvx2(first, second, place.weight, result, count);
        return;
    }
#endif
    BlendLinesPlain(first, second, place.weight, result, count);
}

// The line's first byte is that of source column firstColumn.
void BlendAlong(const std::vector<std::uint8_t>& line, std::int64_t firstColumn, const std::vector<Place>& columns,
                std::uint8_t* pixel)
{
    for (const Place& place : columns) {
        const std::uint8_t* left = line.data() + (place.first - firstColumn) * 3;
        const std::uint8_t* right = left + 3;
        for (int channel = 0; channel < 3; ++channel) {
            pixel[channel] = place.isWhole ? Blend(left[channel], right[channel], place.weight)
                                           : BlendFraction(left[channel], right[channel], place.fraction);
        }
        pixel += 3;
    }
}

// The same without a blended line, for targets that use only a few columns of a long one.
void BlendColumns(const std::uint8_t* first, const std::uint8_t* second, const Place& row,
                  const std::vector<Place>& columns, std::uint8_t* pixel)
{
    const auto blend = [](std::uint8_t one, std::uint8_t other, const Place& place) {
        return place.isWhole ? Blend(one, other, place.weight) : BlendFraction(one, other, place.fraction);
    };
    for (const Place& place : columns) {
        for (std::int64_t left = place.first * 3; left < place.first * 3 + 3; ++left)
            *pixel++ =
                blend(blend(first[left], second[left], row), blend(first[left + 3], second[left + 3], row), place);
    }
}

// Columns of the target that are processed together: all of them, except for lines so long that their buffers would
// matter.
std::int32_t ColumnsAtOnce(float xScale)
{
    constexpr std::int32_t mostTargetColumns = 1 << 16;
    constexpr float mostSourceColumns = 1 << 22;
    const float columns = mostSourceColumns / std::max(xScale, 1.0F);
    return std::clamp(static_cast<std::int32_t>(columns), 1, mostTargetColumns);
}

struct ColumnRange {
    std::int32_t first;
    std::int32_t end;
};

void ResampleColumns(const cDIBSection& source, cDIBSection& target, ColumnRange range, float xScale, float yScale)
{
    std::vector<Place> columns(static_cast<std::size_t>(range.end - range.first));
    for (std::size_t x = 0; x < columns.size(); ++x)
        columns[x] = PlaceOf(range.first + static_cast<std::int64_t>(x), xScale);
    const std::int64_t firstColumn = columns.front().first;
    const auto byteCount = static_cast<std::int32_t>((columns.back().first + 2 - firstColumn) * 3);
    // Blending a line costs less per column than blending columns one by one.
    constexpr float fewColumns = 8;
    const bool takesFew = xScale > fewColumns;
    std::vector<std::uint8_t> line(takesFew ? 0 : static_cast<std::size_t>(byteCount));
    for (std::int32_t y = 0; y < target.Height(); ++y) {
        const Place place = PlaceOf(y, yScale);
        if (takesFew) {
            const std::uint8_t* start = source.Line(place.first);
            BlendColumns(start, start + source.BytesPerScanLine(), place, columns,
                         target.Line(y) + std::int64_t{range.first} * 3);
            continue;
        }
        const std::uint8_t* first = source.Line(place.first) + firstColumn * 3;
        BlendLines(first, first + source.BytesPerScanLine(), place, line.data(), byteCount);
        BlendAlong(line, firstColumn, columns, target.Line(y) + std::int64_t{range.first} * 3);
    }
}

} // namespace

void ResampleInto(const cDIBSection& source, cDIBSection& target)
{
    if (source.hdc() == 0 || target.hdc() == 0)
        RaiseSubscriptError();
    const float xScale = ScaleOf(source.Width(), target.Width());
    const float yScale = ScaleOf(source.Height(), target.Height());
    const std::int64_t lastByte = (PlaceOf(target.Width() - 1, xScale).first + 1) * 3 + 2;
    const std::int64_t lastLine = PlaceOf(target.Height() - 1, yScale).first + 1;
    if (lastByte >= source.BytesPerScanLine() || lastLine >= source.Height())
        RaiseSubscriptError();

    const std::int32_t step = ColumnsAtOnce(xScale);
    for (std::int32_t start = 0; start < target.Width(); start += step)
        ResampleColumns(source, target, {start, std::min(start + step, target.Width())}, xScale, yScale);
}

} // namespace ob
