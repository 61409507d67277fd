// SPDX-License-Identifier: GPL-3.0-or-later
// Paths by the system's own routines.
#include "platform/files/modSystemPaths.h"

#include <string>

#include <windows.h>

namespace ob {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t LongestPath = 32768;

// The text that a routine of the system writes into a buffer; empty when it fails or the buffer is too small.
template <class Fill>
fs::path Filled(Fill fill)
{
    std::wstring text(LongestPath, L'\0');
    const DWORD length = fill(text.data(), static_cast<DWORD>(text.size()));
    return length >= text.size() ? fs::path() : fs::path(text.substr(0, length));
}

} // namespace

fs::path ExecutablePath()
{
    return Filled([](wchar_t* text, DWORD size) { return GetModuleFileNameW(nullptr, text, size); });
}

fs::path WithLongNames(const fs::path& path)
{
    return Filled([&](wchar_t* text, DWORD size) { return GetLongPathNameW(path.c_str(), text, size); });
}

fs::path WithShortNames(const fs::path& path)
{
    return Filled([&](wchar_t* text, DWORD size) { return GetShortPathNameW(path.c_str(), text, size); });
}

} // namespace ob
