// SPDX-License-Identifier: GPL-3.0-or-later
// The system's own ANSI code page.
#include "platform/language/modAnsiSystem.h"

#include <windows.h>

namespace ob {

namespace {

std::u16string Decode(std::string_view ansi)
{
    const int length = static_cast<int>(ansi.size());
    std::wstring text(ansi.size(), L'\0'); // no byte is more than one unit
    text.resize(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, ansi.data(), length, text.data(), length)));
    return {text.begin(), text.end()};
}

std::wstring UnitsOf(char32_t character)
{
    if (character < 0x10000)
        return {static_cast<wchar_t>(character)};
    return {static_cast<wchar_t>(0xD7C0 + (character >> 10)), static_cast<wchar_t>(0xDC00 + (character & 0x3FF))};
}

std::string Encode(char32_t character)
{
    const std::wstring units = UnitsOf(character);
    // UTF-8 lacks no character, and for it the routine accepts neither flags nor a request to report losses.
    const bool pageIsUtf8 = GetACP() == CP_UTF8;
    std::string bytes(8, '\0');
    BOOL isLost = FALSE;
    const int count =
        WideCharToMultiByte(CP_ACP, pageIsUtf8 ? 0 : WC_NO_BEST_FIT_CHARS, units.data(), static_cast<int>(units.size()),
                            bytes.data(), static_cast<int>(bytes.size()), nullptr, pageIsUtf8 ? nullptr : &isLost);
    bytes.resize(isLost ? 0 : static_cast<std::size_t>(count));
    return bytes;
}

} // namespace

std::array<char16_t, 256> CharactersOfBytes()
{
    std::array<char16_t, 256> characters = {};
    for (unsigned number = 0; number < characters.size(); ++number) {
        const char byte = static_cast<char>(number);
        wchar_t character = static_cast<wchar_t>(number);
        MultiByteToWideChar(CP_ACP, 0, &byte, 1, &character, 1);
        characters[number] = static_cast<char16_t>(character);
    }
    return characters;
}

const MultiByteCodePage* SystemMultiByteCodePage()
{
    static constexpr MultiByteCodePage page = {Decode, Encode};
    CPINFO info = {};
    return !GetCPInfo(CP_ACP, &info) || info.MaxCharSize == 1 ? nullptr : &page;
}

} // namespace ob
