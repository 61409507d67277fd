// SPDX-License-Identifier: GPL-3.0-or-later
// Maps the colours of a picture to those of a palette.
#include "imaging/modMapColors.h"

#include "imaging/cImagingError.h"
#include "imaging/modSimd.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace ob {

namespace {

// Errors whose sum is no more than this are not passed on.
constexpr int SmallError = 3;

inline int Clamp(int value)
{
    return std::min(std::max(value, 0), 255);
}

void Put(std::uint8_t* pixel, std::uint32_t color)
{
    pixel[0] = static_cast<std::uint8_t>(color);
    pixel[1] = static_cast<std::uint8_t>(color >> 8);
    pixel[2] = static_cast<std::uint8_t>(color >> 16);
}

} // namespace

cMappedLines::cMappedLines(const cDIBSection& original, cDIBSection& result, std::span<const PaletteEntry> palette)
    : source(original), target(result), entries(palette), nearest(palette, Distance::CityBlock),
      before(static_cast<std::size_t>(result.Width()))
{
}

std::uint32_t cMappedLines::NearestColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    const std::int32_t index = nearest.Find(red, green, blue);
    if (index < 0)
        RaiseSubscriptError();
    const PaletteEntry& entry = entries[static_cast<std::size_t>(index)];
    return std::uint32_t{entry.red} << 16 | std::uint32_t{entry.green} << 8 | entry.blue;
}

void cMappedLines::MakeLinePlain(LinePair line)
{
    for (std::int32_t x = 0; x < target.Width(); ++x, line.source += 3, line.target += 3)
        Put(line.target, NearestColor(line.source[2], line.source[1], line.source[0]));
}

void cMappedLines::DitherLinePlain(LinePair line)
{
    const std::int32_t last = target.Width() - 1;
    std::array<int, 3> fromLeft = {};
    for (std::int32_t x = 0; x <= last; ++x, line.source += 3, line.target += 3) {
        Error& above = before[static_cast<std::size_t>(x)];
        std::array<std::uint8_t, 3> value;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            int sum = line.source[channel];
            if (x > 0 && x < last)
                sum = Clamp(Clamp(sum + fromLeft[channel]) + above.shares[channel]);
            value[channel] = static_cast<std::uint8_t>(sum);
        }
        Put(line.target, NearestColor(value[2], value[1], value[0]));
        std::array<int, 3> error;
        int size = 0;
        for (std::size_t channel = 0; channel < 3; ++channel) {
            error[channel] = value[channel] - line.target[channel];
            size += std::abs(error[channel]);
        }
        for (std::size_t channel = 0; channel < 3; ++channel) {
            const int passed = size > SmallError ? error[channel] : 0;
            fromLeft[channel] = passed * 7 / 16;
            above.shares[channel] = static_cast<std::int8_t>(passed * 4 / 16);
        }
    }
}

#ifdef OB_X86

// The same steps on vectors. The lanes of a pixel are blue, green, red and an empty one.
struct cMappedLines::VectorSteps {
    struct Found {
        const std::uint32_t* colors;
        std::uint32_t place;
    };

    // The nearest entry of a cell: each block gives its least value of distance and lane, which is the first lane of
    // the least distance.
    OB_TARGET("sse4.1")
    static inline Found FindIn(const cNearest& nearest, const cNearest::Cell& cell, __m128i pixel)
    {
        const __m128i blue = _mm_shuffle_epi8(pixel, _mm_setzero_si128());
        const __m128i green = _mm_shuffle_epi8(pixel, _mm_set1_epi8(1));
        const __m128i red = _mm_shuffle_epi8(pixel, _mm_set1_epi8(2));
        const NearestBlock* block = nearest.Blocks(cell);
        auto best = static_cast<std::uint32_t>(FarthestCityBlock);
        std::uint32_t bestPlace = 0;
        for (std::uint32_t index = 0; index < cell.blockCount; ++index, ++block) {
            const std::uint32_t key = LeastKey(Load(block->blue), Load(block->green), Load(block->red), blue, green, red);
            if (key >> 4 < best) {
                best = key >> 4;
                bestPlace = index * 16 + (key & 15U);
            }
        }
        if (best == static_cast<std::uint32_t>(FarthestCityBlock))
            RaiseSubscriptError();
        return {nearest.Colors(cell), bestPlace};
    }

    OB_TARGET("sse4.1")
    static inline __m128i Load(const std::array<std::uint8_t, 16>& bytes)
    {
        return _mm_load_si128(reinterpret_cast<const __m128i*>(bytes.data()));
    }

    OB_TARGET("sse4.1")
    static inline __m128i Apart(__m128i one, __m128i other)
    {
        return _mm_or_si128(_mm_subs_epu8(one, other), _mm_subs_epu8(other, one));
    }

    OB_TARGET("sse4.1")
    static inline std::uint32_t LeastKey(__m128i blues, __m128i greens, __m128i reds, __m128i blue, __m128i green,
                                         __m128i red)
    {
        const __m128i blueApart = Apart(blues, blue);
        const __m128i greenApart = Apart(greens, green);
        const __m128i redApart = Apart(reds, red);
        const __m128i ones = _mm_set1_epi8(1);
        const __m128i zero = _mm_setzero_si128();
        const __m128i low = _mm_add_epi16(_mm_maddubs_epi16(_mm_unpacklo_epi8(blueApart, greenApart), ones),
                                          _mm_unpacklo_epi8(redApart, zero));
        const __m128i high = _mm_add_epi16(_mm_maddubs_epi16(_mm_unpackhi_epi8(blueApart, greenApart), ones),
                                           _mm_unpackhi_epi8(redApart, zero));
        const __m128i lowKeys = _mm_or_si128(_mm_slli_epi16(low, 4), _mm_setr_epi16(0, 1, 2, 3, 4, 5, 6, 7));
        const __m128i highKeys = _mm_or_si128(_mm_slli_epi16(high, 4), _mm_setr_epi16(8, 9, 10, 11, 12, 13, 14, 15));
        const __m128i least = _mm_minpos_epu16(_mm_min_epu16(lowKeys, highKeys));
        return static_cast<std::uint32_t>(_mm_cvtsi128_si32(least)) & 0xFFFFU;
    }

    static inline std::uint32_t Pixel(const std::uint8_t* bytes)
    {
        return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16;
    }

    OB_TARGET("sse4.1")
    static inline std::uint32_t Nearest(cNearest& nearest, std::uint32_t color, __m128i pixel)
    {
        const cNearest::Cell& cell = nearest.CellOf(color >> 16 & 255U, color >> 8 & 255U, color & 255U);
        const Found found = FindIn(nearest, cell, pixel);
        return found.colors[found.place];
    }

    OB_TARGET("sse4.1")
    static inline __m128i Clamped(__m128i value)
    {
        return _mm_min_epi16(_mm_max_epi16(value, _mm_setzero_si128()), _mm_set1_epi16(255));
    }

    // A line that is being made.
    struct Line {
        const std::uint8_t* source;
        std::uint8_t* target;
        __m128i fromLeft;
    };

    OB_TARGET("sse4.1")
    static inline void Step(cMappedLines& lines, Line& line, std::int64_t column, bool takesShares)
    {
        Error& share = lines.before[static_cast<std::size_t>(column)];
        __m128i value = _mm_cvtepu8_epi16(_mm_cvtsi32_si128(static_cast<int>(Pixel(line.source + column * 3))));
        if (takesShares) {
            int fromBefore;
            std::memcpy(&fromBefore, share.shares.data(), sizeof fromBefore);
            value = Clamped(_mm_add_epi16(value, line.fromLeft));
            value = Clamped(_mm_add_epi16(value, _mm_cvtepi8_epi16(_mm_cvtsi32_si128(fromBefore))));
        }
        const __m128i bytes = _mm_packus_epi16(value, value);
        const std::uint32_t color =
            Nearest(lines.nearest, static_cast<std::uint32_t>(_mm_cvtsi128_si32(bytes)), bytes);
        Put(line.target + column * 3, color);

        const __m128i mapped = _mm_cvtepu8_epi16(_mm_cvtsi32_si128(static_cast<int>(color)));
        const __m128i error = _mm_sub_epi16(value, mapped);
        // The sum of four lanes in each of them.
        __m128i size = _mm_abs_epi16(error);
        size = _mm_add_epi16(size, _mm_shufflelo_epi16(size, 0xB1));
        size = _mm_add_epi16(size, _mm_shufflelo_epi16(size, 0x4E));
        const __m128i passed = _mm_and_si128(error, _mm_cmpgt_epi16(size, _mm_set1_epi16(SmallError)));
        const __m128i sign = _mm_srai_epi16(passed, 15);
        const __m128i sevenfold = _mm_mullo_epi16(passed, _mm_set1_epi16(7));
        // Shifts round down; the sign's bits make them cut.
        line.fromLeft = _mm_srai_epi16(_mm_add_epi16(sevenfold, _mm_and_si128(sign, _mm_set1_epi16(15))), 4);
        const __m128i down = _mm_srai_epi16(_mm_add_epi16(passed, _mm_and_si128(sign, _mm_set1_epi16(3))), 2);
        const int below = _mm_cvtsi128_si32(_mm_packs_epi16(down, down));
        std::memcpy(share.shares.data(), &below, sizeof below);
    }

    OB_TARGET("sse4.1")
    static void MakeLine(cMappedLines& lines, LinePair line)
    {
        std::uint32_t known = Pixel(line.source);
        std::uint32_t mapped = Nearest(lines.nearest, known, _mm_cvtsi32_si128(static_cast<int>(known)));
        for (std::int32_t x = 0; x < lines.target.Width(); ++x, line.source += 3, line.target += 3) {
            const std::uint32_t pixel = Pixel(line.source);
            if (pixel != known) {
                known = pixel;
                mapped = Nearest(lines.nearest, pixel, _mm_cvtsi32_si128(static_cast<int>(pixel)));
            }
            Put(line.target, mapped);
        }
    }

    // Several lines, each one column behind the line before, so that the processor works on one while it waits for the
    // result of another.
    template <int Lines>
    OB_TARGET("sse4.1")
    static void DitherTogether(cMappedLines& mapper, std::int32_t firstLine)
    {
        std::array<Line, Lines> lines;
        for (int index = 0; index < Lines; ++index)
            lines[static_cast<std::size_t>(index)] = {mapper.source.Line(firstLine + index),
                                                      mapper.target.Line(firstLine + index), _mm_setzero_si128()};
        const std::int32_t last = mapper.target.Width() - 1;
        std::int32_t step = 0;
        for (; step < std::min(Lines, last + 1); ++step)
            StepAtEdge<Lines>(mapper, lines, step, last);
        for (; step < last; ++step) {
            for (int index = 0; index < Lines; ++index)
                Step(mapper, lines[static_cast<std::size_t>(index)], step - index, true);
        }
        for (; step < last + Lines; ++step)
            StepAtEdge<Lines>(mapper, lines, step, last);
    }

    template <int Lines>
    OB_TARGET("sse4.1")
    static void StepAtEdge(cMappedLines& mapper, std::array<Line, Lines>& lines, std::int32_t step, std::int32_t last)
    {
        for (int index = 0; index < Lines; ++index) {
            const std::int32_t column = step - index;
            if (column >= 0 && column <= last)
                Step(mapper, lines[static_cast<std::size_t>(index)], column, column > 0 && column < last);
        }
    }
};

#endif

void cMappedLines::Make(std::int32_t firstLine, std::int32_t endLine)
{
    for (std::int32_t y = firstLine; y < endLine; ++y) {
        const LinePair line = {source.Line(y), target.Line(y)};
#ifdef OB_X86
        if (HasSse41()) {
            VectorSteps::MakeLine(*this, line);
            continue;
        }
#endif
        MakeLinePlain(line);
    }
}

void cMappedLines::MakeDithered(std::int32_t firstLine, std::int32_t endLine)
{
#ifdef OB_X86
    if (HasSse41()) {
        constexpr int together = 4;
        for (; firstLine + together <= endLine; firstLine += together)
            VectorSteps::DitherTogether<together>(*this, firstLine);
        for (; firstLine < endLine; ++firstLine)
            VectorSteps::DitherTogether<1>(*this, firstLine);
        return;
    }
#endif
    for (std::int32_t y = firstLine; y < endLine; ++y)
        DitherLinePlain({source.Line(y), target.Line(y)});
}

} // namespace ob
