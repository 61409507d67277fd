// SPDX-License-Identifier: GPL-3.0-or-later
// Programs started by the system's own routine.
#include "platform/desktop/modLaunchSystem.h"

#include <windows.h>

namespace ob {

namespace {

// A part as programs split their command line: a backslash is literal except before a double quote.
std::wstring Quoted(const std::u16string& part)
{
    std::wstring quoted = L"\"";
    std::size_t backslashes = 0;
    for (const char16_t character : part) {
        if (character == u'"')
            quoted.append(backslashes + 1, L'\\');
        backslashes = character == u'\\' ? backslashes + 1 : 0;
        quoted += static_cast<wchar_t>(character);
    }
    quoted.append(backslashes, L'\\');
    return quoted + L'"';
}

// The line must be in writable memory. Without a program the routine finds it in the line.
StartEnd Start(const wchar_t* program, std::wstring line, WindowMode mode)
{
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = mode == WindowMode::Normal ? SW_SHOWNORMAL : SW_SHOWMINIMIZED;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? StartEnd::NotFound : StartEnd::Refused;
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return StartEnd::Started;
}

} // namespace

StartEnd StartCommandLine(const std::u16string& commandLine, WindowMode mode)
{
    return Start(nullptr, std::wstring(commandLine.begin(), commandLine.end()), mode);
}

StartEnd StartProgram(const ProgramCall& call)
{
    const std::wstring program(call.program.begin(), call.program.end());
    std::wstring line = Quoted(call.program);
    for (const std::u16string& argument : call.arguments)
        line += L' ' + Quoted(argument);
    return Start(program.c_str(), line, WindowMode::Normal);
}

} // namespace ob
