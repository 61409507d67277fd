// SPDX-License-Identifier: GPL-3.0-or-later
// The machine's ANSI code page, as each system has it: modAnsi_unix.cpp, modAnsi_windows.cpp.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace ob {

// The characters of a code page in which each byte is a character; the first 128 are ASCII.
std::array<char16_t, 256> CharactersOfBytes();

// A code page in which a character may take several bytes; the system converts it.
struct MultiByteCodePage {
    // The Unicode text of ANSI bytes.
    std::u16string (*decode)(std::string_view ansi);
    // The bytes of one character; none when the code page lacks it.
    std::string (*encode)(char32_t character);
};

// The machine's, or null when each byte is a character.
const MultiByteCodePage* SystemMultiByteCodePage();

} // namespace ob
