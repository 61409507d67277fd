// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's own programs, as the system names them.
#include "platform/desktop/modDesktop.h"

#include <windows.h>

#include <shellapi.h>
#undef FindExecutable // a macro for one of the system's two routines

#include <algorithm>

namespace ob {

namespace {

ProgramCall CallOf(const std::wstring& program)
{
    return {std::u16string(program.begin(), program.end()), {}};
}

// The program of that name (which starts with a backslash) in the system's folder.
std::optional<ProgramCall> InWindowsFolder(const wchar_t* name)
{
    wchar_t folder[MAX_PATH + 1] = {};
    GetWindowsDirectoryW(folder, MAX_PATH);
    const std::wstring program = std::wstring(folder) + name;
    if (GetFileAttributesW(program.c_str()) == INVALID_FILE_ATTRIBUTES)
        return std::nullopt;
    return CallOf(program);
}

} // namespace

std::optional<ProgramCall> FindExecutable(const std::u16string& path)
{
    std::wstring file(path.begin(), path.end());
    std::replace(file.begin(), file.end(), L'/', L'\\');
    wchar_t found[MAX_PATH + 1] = {};
    if (reinterpret_cast<INT_PTR>(FindExecutableW(file.c_str(), nullptr, found)) <= 32)
        return std::nullopt;
    return CallOf(found);
}

std::optional<ProgramCall> FileManager()
{
    return InWindowsFolder(L"\\Explorer.exe");
}

std::optional<ProgramCall> Calculator()
{
    auto calculator = InWindowsFolder(L"\\calc.exe");
    return calculator ? calculator : InWindowsFolder(L"\\system32\\calc.exe");
}

} // namespace ob
