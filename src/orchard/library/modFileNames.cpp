// SPDX-License-Identifier: GPL-3.0-or-later
// The code page in names, and looking names up.
#include "orchard/library/modFileNames.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "orchard/library/cProgramError.h"
#include "orchard/library/modTexts.h"

namespace ob::basic {

namespace {

namespace fs = std::filesystem;

constexpr bool hasBackslashFolders = fs::path::preferred_separator == '\\';

// The characters of 0x80 to 0x9F; all others have their own code.
constexpr std::array<char32_t, 32> upperControls = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                                    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                                    0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                                    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

char32_t CharacterOf(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? upperControls[byte - 0x80u] : byte;
}

std::optional<char> ByteOf(char32_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(character);
    const auto* found = std::find(upperControls.begin(), upperControls.end(), character);
    if (found == upperControls.end())
        return {};
    return static_cast<char>(0x80 + (found - upperControls.begin()));
}

void AppendUtf8(std::string& text, char32_t character)
{
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0 | character >> 6);
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | character >> 12);
        text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

// The character of two or three bytes at a place, which moves past it; nothing for others and for malformed bytes.
std::optional<char32_t> ReadUtf8(std::string_view text, std::size_t& at)
{
    const auto lead = static_cast<unsigned char>(text[at]);
    if (lead < 0x80)
        return static_cast<char32_t>(text[at++]);
    const std::size_t length = lead >= 0xC2 && lead < 0xE0 ? 2 : lead >= 0xE0 && lead < 0xF0 ? 3 : 0;
    if (length == 0 || at + length > text.size())
        return {};
    char32_t character = lead & (length == 2 ? 0x1F : 0x0F);
    for (std::size_t place = 1; place < length; ++place) {
        const auto next = static_cast<unsigned char>(text[at + place]);
        if ((next & 0xC0) != 0x80)
            return {};
        character = character << 6 | (next & 0x3F);
    }
    at += length;
    return length == 3 && character < 0x800 ? std::nullopt : std::optional(character);
}

fs::path PathOfUtf8(const std::string& text)
{
    return {std::u8string(text.begin(), text.end())};
}

bool IsThere(const fs::path& path)
{
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

// What a folder has under a name in other capitals; of several the first by its bytes.
std::optional<fs::path> EntryOf(const fs::path& folder, std::string_view name)
{
    std::optional<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const fs::path entryName = entry->path().filename();
        if (CompareIgnoringCase(NameOfPath(entryName), name) == 0 && (!found || entryName < *found))
            found = entryName;
    }
    return found;
}

// Follows a path as far as there is something under its names in any capitals.
fs::path FollowedPath(std::string_view name)
{
    fs::path path;
    bool isFollowing = true;
    for (std::size_t start = 0; start < name.size();) {
        const std::size_t end = std::min(name.find('/', start), name.size());
        const std::string_view part = name.substr(start, end - start);
        start = end + 1;
        if (part.empty() && path.empty())
            path = "/";
        if (part.empty())
            continue;
        const fs::path next = path / PathOfUtf8(Utf8OfAnsi(part));
        const std::optional<fs::path> entry =
            isFollowing && !IsThere(next) ? EntryOf(path, part) : std::optional<fs::path>();
        isFollowing = isFollowing && (entry || IsThere(next));
        path = entry ? path / *entry : next;
    }
    return path;
}

} // namespace

std::string Utf8OfAnsi(std::string_view text)
{
    std::string utf8;
    utf8.reserve(text.size());
    for (const char c : text)
        AppendUtf8(utf8, CharacterOf(static_cast<unsigned char>(c)));
    return utf8;
}

std::string AnsiOfUtf8(std::string_view text)
{
    std::string ansi;
    ansi.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const std::optional<char32_t> character = ReadUtf8(text, at);
        const std::optional<char> byte = character ? ByteOf(*character) : std::nullopt;
        if (!byte)
            return std::string(text);
        ansi += *byte;
    }
    return ansi;
}

fs::path PathOfName(std::string_view name)
{
    if (name.empty() || name.find('\0') != std::string_view::npos)
        Fail(ErrorNumber::WrongFileName, name.substr(0, name.find('\0')));
    std::string plain(name);
    if (!hasBackslashFolders)
        std::replace(plain.begin(), plain.end(), '\\', '/');
    const fs::path path = PathOfUtf8(Utf8OfAnsi(plain));
    return hasBackslashFolders || IsThere(path) ? path : FollowedPath(plain);
}

fs::path LastPart(std::string_view name)
{
    const std::size_t slash = name.find_last_of("/\\");
    return PathOfUtf8(Utf8OfAnsi(name.substr(slash == std::string_view::npos ? 0 : slash + 1)));
}

std::string NameOfPath(const fs::path& path)
{
    const std::u8string text = path.u8string();
    return AnsiOfUtf8({reinterpret_cast<const char*>(text.data()), text.size()});
}

// Goes back to the last * only, which takes the product of both lengths at worst; names are short.
bool FitsPattern(std::string_view name, std::string_view pattern)
{
    if (pattern.empty() || pattern == "*.*")
        return true;
    std::size_t at = 0;
    std::size_t place = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starAt = 0;
    while (at < name.size()) {
        if (place < pattern.size() && pattern[place] == '*') {
            star = place++;
            starAt = at;
        } else if (place < pattern.size() &&
                   (pattern[place] == '?' || LowerCharacter(pattern[place]) == LowerCharacter(name[at]))) {
            ++place;
            ++at;
        } else if (star != std::string_view::npos) {
            place = star + 1;
            at = ++starAt;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', place) == std::string_view::npos;
}

} // namespace ob::basic
