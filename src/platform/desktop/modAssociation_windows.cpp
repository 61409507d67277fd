// SPDX-License-Identifier: GPL-3.0-or-later
// File association in the registry.
#include "platform/desktop/modAssociationSystem.h"

#include <windows.h>

#include <algorithm>

namespace ob {

namespace {

DWORD SizeOf(const std::wstring& value)
{
    return static_cast<DWORD>(value.size() * sizeof(wchar_t));
}

// Creates or opens the class's key and sets the default value of the key with this name below it; an empty name is the
// key itself.
bool SetDefaultValue(const std::wstring& name, const std::wstring& below, const std::wstring& value)
{
    HKEY key = nullptr;
    if (RegCreateKeyW(HKEY_CLASSES_ROOT, name.c_str(), &key) != ERROR_SUCCESS)
        return false;
    const auto end = RegSetValueW(key, below.c_str(), REG_SZ, value.c_str(), SizeOf(value));
    RegCloseKey(key);
    return end == ERROR_SUCCESS;
}

// The user's own choice, which the file manager remembers, is removed in favour of the association.
void DropTheUsersChoice(const std::wstring& command)
{
    HKEY key = nullptr;
    const wchar_t name[] = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\FileExts\\.bas";
    if (RegCreateKeyW(HKEY_CURRENT_USER, name, &key) != ERROR_SUCCESS)
        return;
    for (const wchar_t* value : {L"Application", L"Progid"}) {
        RegDeleteValueW(key, value);
        RegSetValueW(key, value, REG_SZ, command.c_str(), SizeOf(command));
    }
    RegCloseKey(key);
}

bool Associate(const std::wstring& program)
{
    const std::wstring kind = L"OB Bench";
    const std::wstring name = program.substr(program.rfind(L'\\') + 1);
    if (!SetDefaultValue(kind, L"", L"BAS") || !SetDefaultValue(kind, L"shell\\open\\command", program + L" %1") ||
        !SetDefaultValue(kind, L"DefaultIcon", program) || !SetDefaultValue(L".bas", L"", kind))
        return false;
    DropTheUsersChoice(name + L" %1");
    return SetDefaultValue(L".obf", L"", kind);
}

} // namespace

RegistryEnd AssociateInRegistry(const std::u16string& program)
{
    std::wstring path(program.begin(), program.end());
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return Associate(path) ? RegistryEnd::Written : RegistryEnd::Refused;
}

} // namespace ob
