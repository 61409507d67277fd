// SPDX-License-Identifier: GPL-3.0-or-later
// The ANSI code page of a system that has none: windows-1252.
#include "platform/language/modAnsiSystem.h"

#include <algorithm>
#include <numeric>

namespace ob {

// The bytes 80 to 9F; every other byte is the character of the same number.
static constexpr std::array<char16_t, 32> windows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

std::array<char16_t, 256> CharactersOfBytes()
{
    std::array<char16_t, 256> characters;
    std::iota(characters.begin(), characters.end(), char16_t{0});
    std::copy(windows1252.begin(), windows1252.end(), characters.begin() + 0x80);
    return characters;
}

const MultiByteCodePage* SystemMultiByteCodePage()
{
    return nullptr;
}

} // namespace ob
