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
        std::array<std::uint8_t, 3> value = {};
        for (std::size_t channel = 0; channel < 3; ++channel) {
            int sum = line.source[channel];
            if (x > 0 && x < last)
                sum = Clamp(Clamp(sum + fromLeft[channel]) + above.shares[channel]);
            value[channel] = static_cast<std::uint8_t>(sum);
        }
        Put(line.target, NearestColor(value[2], value[1], value[0]));
        std::array<int, 3> error = {};
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
    // The bytes of a pixel, for the last one of a line; others are read with the byte after them.
    static inline std::uint32_t Pixel(const std::uint8_t* bytes)
    {
        return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16;
    }

    OB_TARGET("avx2")
    static inline __m128i Load(const std::array<std::uint8_t, 16>& bytes)
    {
        return _mm_load_si128(reinterpret_cast<const __m128i*>(bytes.data()));
    }

    OB_TARGET("avx2")
    static inline __m128i Apart(__m128i one, __m128i other)
    {
        return _mm_or_si128(_mm_subs_epu8(one, other), _mm_subs_epu8(other, one));
    }

    // The minimum of distance x 16 + lane in a block: the first lane of the minimum distance.
    OB_TARGET("avx2")
    static inline std::uint32_t LeastKey(const NearestBlock& block, __m128i pixel)
    {
        const __m128i zero = _mm_setzero_si128();
        const __m128i ones = _mm_set1_epi8(1);
        const __m128i blue = Apart(Load(block.blue), _mm_shuffle_epi8(pixel, zero));
        const __m128i green = Apart(Load(block.green), _mm_shuffle_epi8(pixel, ones));
        const __m128i red = Apart(Load(block.red), _mm_shuffle_epi8(pixel, _mm_set1_epi8(2)));
        const __m128i low =
            _mm_add_epi16(_mm_maddubs_epi16(_mm_unpacklo_epi8(blue, green), ones), _mm_unpacklo_epi8(red, zero));
        const __m128i high =
            _mm_add_epi16(_mm_maddubs_epi16(_mm_unpackhi_epi8(blue, green), ones), _mm_unpackhi_epi8(red, zero));
        const __m128i lowKeys = _mm_or_si128(_mm_slli_epi16(low, 4), _mm_setr_epi16(0, 1, 2, 3, 4, 5, 6, 7));
        const __m128i highKeys = _mm_or_si128(_mm_slli_epi16(high, 4), _mm_setr_epi16(8, 9, 10, 11, 12, 13, 14, 15));
        return static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_minpos_epu16(_mm_min_epu16(lowKeys, highKeys)))) &
               0xFFFFU;
    }

    // A search in the cells of the colour cube.
    struct Cells {
        cNearest& nearest;

        OB_TARGET("avx2")
        inline std::uint32_t Nearest(__m128i pixel) const
        {
            const auto color = static_cast<std::uint32_t>(_mm_cvtsi128_si32(pixel));
            const cNearest::Cell& cell = nearest.CellOf(color >> 16 & 255U, color >> 8 & 255U, color & 255U);
            const NearestBlock* block = nearest.Blocks(cell);
            auto best = static_cast<std::uint32_t>(FarthestCityBlock);
            std::uint32_t place = 0;
            for (std::uint32_t index = 0; index < cell.blockCount; ++index, ++block) {
                const std::uint32_t key = LeastKey(*block, pixel);
                if (key >> 4 < best) {
                    best = key >> 4;
                    place = index * 16 + (key & 15U);
                }
            }
            if (best == static_cast<std::uint32_t>(FarthestCityBlock)) [[unlikely]]
                RaiseSubscriptError();
            return nearest.Colors(cell)[place];
        }
    };

    // A search in a single block.
    struct OneBlock {
        const NearestBlock& block;
        const std::uint32_t* colors;

        OB_TARGET("avx2")
        inline std::uint32_t Nearest(__m128i pixel) const
        {
            const std::uint32_t key = LeastKey(block, pixel);
            if (key >> 4 >= static_cast<std::uint32_t>(FarthestCityBlock)) [[unlikely]]
                RaiseSubscriptError();
            return colors[key & 15U];
        }
    };

    template <class Search>
    OB_TARGET("avx2")
    static void MapLine(const Search& search, LinePair line, std::int32_t width)
    {
        std::uint32_t known = Pixel(line.source);
        std::uint32_t mapped = search.Nearest(_mm_cvtsi32_si128(static_cast<int>(known)));
        for (std::int32_t x = 0; x < width; ++x, line.source += 3, line.target += 3) {
            const std::uint32_t pixel = Pixel(line.source);
            if (pixel != known) {
                known = pixel;
                mapped = search.Nearest(_mm_cvtsi32_si128(static_cast<int>(pixel)));
            }
            Put(line.target, mapped);
        }
    }

    // A line that is being dithered.
    struct Line {
        const std::uint8_t* source;
        std::uint8_t* target;
        __m128i fromLeft;
    };

    OB_TARGET("avx2")
    static inline __m128i Clamped(__m128i value)
    {
        return _mm_min_epi16(_mm_max_epi16(value, _mm_setzero_si128()), _mm_set1_epi16(255));
    }

    OB_TARGET("avx2")
    static inline __m128i Widened(std::uint32_t pixel)
    {
        return _mm_cvtepu8_epi16(_mm_cvtsi32_si128(static_cast<int>(pixel)));
    }

    // The error that a pixel of that value, mapped to that colour, passes on: to the right, and to the share of the
    // next line.
    OB_TARGET("avx2")
    static inline __m128i PassOn(__m128i value, std::uint32_t color, Error& share)
    {
        const __m128i error = _mm_sub_epi16(value, Widened(color));
        // The sum of four lanes in each of them.
        __m128i size = _mm_abs_epi16(error);
        size = _mm_add_epi16(size, _mm_shufflelo_epi16(size, 0xB1));
        size = _mm_add_epi16(size, _mm_shufflelo_epi16(size, 0x4E));
        const __m128i passed = _mm_and_si128(error, _mm_cmpgt_epi16(size, _mm_set1_epi16(SmallError)));
        // Shifts round down; adding the sign's bits makes them truncate.
        const __m128i sign = _mm_srai_epi16(passed, 15);
        const __m128i sevenfold = _mm_mullo_epi16(passed, _mm_set1_epi16(7));
        const __m128i down = _mm_srai_epi16(_mm_add_epi16(passed, _mm_srli_epi16(sign, 14)), 2);
        const int below = _mm_cvtsi128_si32(_mm_packs_epi16(down, down));
        std::memcpy(share.shares.data(), &below, sizeof below);
        return _mm_srai_epi16(_mm_add_epi16(sevenfold, _mm_srli_epi16(sign, 12)), 4);
    }

    // A pixel of the first or last column.
    template <class Search>
    OB_TARGET("avx2")
    static inline void EdgeStep(const Search& search, Line& line, std::int64_t column, Error& share)
    {
        const __m128i value = Widened(Pixel(line.source + column * 3));
        const std::uint32_t color = search.Nearest(_mm_packus_epi16(value, value));
        Put(line.target + column * 3, color);
        line.fromLeft = PassOn(value, color, share);
    }

    template <class Search>
    OB_TARGET("avx2")
    static inline void InnerStep(const Search& search, Line& line, std::int64_t column, Error& share)
    {
        std::uint32_t pixel;
        int fromBefore;
        std::memcpy(&pixel, line.source + column * 3, sizeof pixel);
        std::memcpy(&fromBefore, share.shares.data(), sizeof fromBefore);
        __m128i value = Clamped(_mm_add_epi16(Widened(pixel & 0xFFFFFFU), line.fromLeft));
        value = Clamped(_mm_add_epi16(value, _mm_cvtepi8_epi16(_mm_cvtsi32_si128(fromBefore))));
        const std::uint32_t color = search.Nearest(_mm_packus_epi16(value, value));
        // The byte after the pixel belongs to the next one, which must not change where source and target are one
        // picture.
        const std::uint32_t stored = color | (pixel & 0xFF000000U);
        std::memcpy(line.target + column * 3, &stored, sizeof stored);
        line.fromLeft = PassOn(value, color, share);
    }

    template <class Search>
    OB_TARGET("avx2")
    static void StepAtEdge(const Search& search, Line* lines, int lineCount, std::int32_t step,
                           std::vector<Error>& before)
    {
        const auto last = static_cast<std::int32_t>(before.size()) - 1;
        for (int index = 0; index < lineCount; ++index) {
            const std::int32_t column = step - index;
            if (column < 0 || column > last)
                continue;
            Error& share = before[static_cast<std::size_t>(column)];
            if (column == 0 || column == last)
                EdgeStep(search, lines[index], column, share);
            else
                InnerStep(search, lines[index], column, share);
        }
    }

    // Several lines, each one column after the line before, so that the processor works on one while it waits for the
    // result of another.
    template <int Lines, class Search>
    OB_TARGET("avx2")
    static void DitherTogether(const Search& search, const std::array<LinePair, Lines>& pairs,
                               std::vector<Error>& before)
    {
        static_assert(Lines == 1 || Lines == 4);
        Line lines[Lines];
        for (int index = 0; index < Lines; ++index) {
            const LinePair& pair = pairs[static_cast<std::size_t>(index)];
            lines[index] = {pair.source, pair.target, _mm_setzero_si128()};
        }
        const auto width = static_cast<std::int32_t>(before.size());
        std::int32_t step = 0;
        for (; step < std::min(Lines, width); ++step)
            StepAtEdge(search, lines, Lines, step, before);
        for (; step < width - 1; ++step) {
            Error* shares = before.data() + step;
            InnerStep(search, lines[0], step, shares[0]);
            if constexpr (Lines == 4) {
                InnerStep(search, lines[1], step - 1, shares[-1]);
                InnerStep(search, lines[2], step - 2, shares[-2]);
                InnerStep(search, lines[3], step - 3, shares[-3]);
            }
        }
        for (; step < width + Lines - 1; ++step)
            StepAtEdge(search, lines, Lines, step, before);
    }

    template <class Search>
    static void DitherLines(cMappedLines& mapper, const Search& search, std::int32_t firstLine, std::int32_t endLine)
    {
        const auto pair = [&](std::int32_t y) { return LinePair{mapper.source.Line(y), mapper.target.Line(y)}; };
        std::int32_t y = firstLine;
        for (; y + 4 <= endLine; y += 4)
            DitherTogether<4>(search, std::array{pair(y), pair(y + 1), pair(y + 2), pair(y + 3)}, mapper.before);
        for (; y < endLine; ++y)
            DitherTogether<1>(search, std::array{pair(y)}, mapper.before);
    }

    template <class Search>
    static void MapLines(cMappedLines& mapper, const Search& search, std::int32_t firstLine, std::int32_t endLine)
    {
        for (std::int32_t y = firstLine; y < endLine; ++y)
            MapLine(search, {mapper.source.Line(y), mapper.target.Line(y)}, mapper.target.Width());
    }

    // Calls work with the search suitable for the palette.
    template <class Work>
    static void WithSearch(cNearest& nearest, Work work)
    {
        if (nearest.HasOneBlock()) {
            const cNearest::Cell& cell = nearest.OnlyCell();
            work(OneBlock{*nearest.Blocks(cell), nearest.Colors(cell)});
        } else {
            work(Cells{nearest});
        }
    }
};

#endif

void cMappedLines::Make(std::int32_t firstLine, std::int32_t endLine)
{
#ifdef OB_X86
    if (HasAvx2()) {
        VectorSteps::WithSearch(nearest,
                                [&](const auto& search) { VectorSteps::MapLines(*this, search, firstLine, endLine); });
        return;
    }
#endif
    for (std::int32_t y = firstLine; y < endLine; ++y)
        MakeLinePlain({source.Line(y), target.Line(y)});
}

void cMappedLines::MakeDithered(std::int32_t firstLine, std::int32_t endLine)
{
#ifdef OB_X86
    if (HasAvx2()) {
        VectorSteps::WithSearch(
            nearest, [&](const auto& search) { VectorSteps::DitherLines(*this, search, firstLine, endLine); });
        return;
    }
#endif
    for (std::int32_t y = firstLine; y < endLine; ++y)
        DitherLinePlain({source.Line(y), target.Line(y)});
}

} // namespace ob
