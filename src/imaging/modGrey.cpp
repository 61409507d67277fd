// SPDX-License-Identifier: GPL-3.0-or-later
// Grey values of colours.
#include "imaging/modGrey.h"

#include "imaging/modSimd.h"

namespace ob {

namespace {

#ifdef OB_X86
// The grey values of four pixels, from offset 0 or 4 of sixteen bytes on. The sums are exact in a float, and so is a
// quotient halfway between two integers; the conversion rounds halves to even.
template <int Offset>
OB_TARGET("avx2")
inline __m128i GreysOfFour(const std::uint8_t* source)
{
    constexpr char o = Offset;
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(source));
    const __m128i blueGreen = _mm_shuffle_epi8(
        bytes, _mm_setr_epi8(o, -1, o + 1, -1, o + 3, -1, o + 4, -1, o + 6, -1, o + 7, -1, o + 9, -1, o + 10, -1));
    const __m128i red = _mm_shuffle_epi8(
        bytes, _mm_setr_epi8(o + 2, -1, -1, -1, o + 5, -1, -1, -1, o + 8, -1, -1, -1, o + 11, -1, -1, -1));
    const __m128i sum = _mm_add_epi32(_mm_madd_epi16(blueGreen, _mm_set1_epi32(707 << 16 | 71)),
                                      _mm_madd_epi16(red, _mm_set1_epi32(222)));
    return _mm_cvtps_epi32(_mm_div_ps(_mm_cvtepi32_ps(sum), _mm_set1_ps(1000)));
}

// Sixteen pixels at a time; returns the number of pixels done.
OB_TARGET("avx2")
std::int32_t MakeSixteensGrey(std::uint8_t* line, std::int32_t width)
{
    const __m128i first = _mm_setr_epi8(0, 0, 0, 1, 1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 4, 5);
    const __m128i second = _mm_setr_epi8(5, 5, 6, 6, 6, 7, 7, 7, 8, 8, 8, 9, 9, 9, 10, 10);
    const __m128i third = _mm_setr_epi8(10, 11, 11, 11, 12, 12, 12, 13, 13, 13, 14, 14, 14, 15, 15, 15);
    std::int32_t done = 0;
    for (; done + 16 <= width; done += 16, line += 48) {
        const __m128i low = _mm_packs_epi32(GreysOfFour<0>(line), GreysOfFour<0>(line + 12));
        const __m128i high = _mm_packs_epi32(GreysOfFour<0>(line + 24), GreysOfFour<4>(line + 32));
        const __m128i greys = _mm_packus_epi16(low, high);
        auto* target = reinterpret_cast<__m128i*>(line);
        _mm_storeu_si128(target, _mm_shuffle_epi8(greys, first));
        _mm_storeu_si128(target + 1, _mm_shuffle_epi8(greys, second));
        _mm_storeu_si128(target + 2, _mm_shuffle_epi8(greys, third));
    }
    return done;
}
#endif

} // namespace

void MakeLineGrey(std::uint8_t* line, std::int32_t width)
{
    std::int32_t x = 0;
#ifdef OB_X86
    if (HasAvx2())
        x = MakeSixteensGrey(line, width);
#endif
    std::uint8_t* pixel = line + std::int64_t{x} * 3;
    for (; x < width; ++x, pixel += 3)
        pixel[0] = pixel[1] = pixel[2] = GreyOf(pixel[2], pixel[1], pixel[0]);
}

} // namespace ob
