// SPDX-License-Identifier: GPL-3.0-or-later
// Files over handles.
#include "orchard/library/cDiskFile.h"

#include <algorithm>

#include <windows.h>

namespace ob::basic {

namespace {

constexpr std::size_t mostAtOnce = std::size_t{1} << 30;

std::error_code ErrorOf(DWORD number)
{
    return {static_cast<int>(number), std::system_category()};
}

std::error_code LastError()
{
    return ErrorOf(GetLastError());
}

HANDLE HandleOf(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

DWORD AccessOf(DiskUse use)
{
    switch (use) {
    case DiskUse::Read:
        return GENERIC_READ;
    case DiskUse::Replace:
        return GENERIC_WRITE;
    case DiskUse::Append:
        return FILE_APPEND_DATA | SYNCHRONIZE;
    case DiskUse::Change:
        return GENERIC_READ | GENERIC_WRITE;
    }
    return GENERIC_READ;
}

DWORD DispositionOf(DiskUse use)
{
    return use == DiskUse::Read ? OPEN_EXISTING : use == DiskUse::Replace ? CREATE_ALWAYS : OPEN_ALWAYS;
}

HANDLE OpenShared(const std::filesystem::path& path, DWORD access, DWORD disposition)
{
    return CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                       disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
}

// Where a read or write of a handle with positions begins.
OVERLAPPED At(std::int64_t position)
{
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(position & 0xFFFFFFFF);
    place.OffsetHigh = static_cast<DWORD>(position >> 32);
    return place;
}

} // namespace

cDiskFile::cDiskFile(StandardStream stream)
    : handle(reinterpret_cast<std::intptr_t>(
          GetStdHandle(stream == StandardStream::Input ? STD_INPUT_HANDLE : STD_OUTPUT_HANDLE))),
      isOwned(false)
{
}

std::error_code cDiskFile::Open(const std::filesystem::path& path, DiskUse use)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        return std::make_error_code(std::errc::is_a_directory);
    HANDLE file = OpenShared(path, AccessOf(use), DispositionOf(use));
    if (file == INVALID_HANDLE_VALUE && use == DiskUse::Change && GetLastError() == ERROR_ACCESS_DENIED)
        file = OpenShared(path, GENERIC_READ, OPEN_EXISTING);
    if (file == INVALID_HANDLE_VALUE)
        return LastError();
    handle = reinterpret_cast<std::intptr_t>(file);
    hasPositions = GetFileType(file) == FILE_TYPE_DISK;
    isAppending = use == DiskUse::Append;
    return {};
}

std::error_code cDiskFile::Read(std::int64_t position, std::span<char> room, std::size_t& count)
{
    DWORD read = 0;
    OVERLAPPED place = At(position);
    const auto most = static_cast<DWORD>(std::min(room.size(), mostAtOnce));
    const BOOL done = ReadFile(HandleOf(handle), room.data(), most, &read, hasPositions ? &place : nullptr);
    const DWORD number = done != 0 ? ERROR_SUCCESS : GetLastError();
    count = read;
    const bool isEnd = number == ERROR_HANDLE_EOF || number == ERROR_BROKEN_PIPE;
    return number == ERROR_SUCCESS || isEnd ? std::error_code() : ErrorOf(number);
}

std::error_code cDiskFile::Write(std::int64_t position, std::string_view bytes)
{
    while (!bytes.empty()) {
        DWORD written = 0;
        OVERLAPPED place = At(position);
        const auto most = static_cast<DWORD>(std::min(bytes.size(), mostAtOnce));
        if (WriteFile(HandleOf(handle), bytes.data(), most, &written,
                      hasPositions && !isAppending ? &place : nullptr) == 0)
            return LastError();
        if (written == 0)
            return ErrorOf(ERROR_DISK_FULL);
        position += written;
        bytes.remove_prefix(written);
    }
    return {};
}

bool cDiskFile::WaitForInput(int milliseconds) const
{
    DWORD available = 0;
    if (GetFileType(HandleOf(handle)) != FILE_TYPE_PIPE)
        return WaitForSingleObject(HandleOf(handle), static_cast<DWORD>(milliseconds)) == WAIT_OBJECT_0;
    const BOOL isOpen = PeekNamedPipe(HandleOf(handle), nullptr, 0, nullptr, &available, nullptr);
    if (isOpen != 0 && available == 0)
        Sleep(static_cast<DWORD>(milliseconds));
    return isOpen == 0 || available > 0;
}

std::int64_t cDiskFile::Size() const
{
    LARGE_INTEGER size = {};
    return hasPositions && GetFileSizeEx(HandleOf(handle), &size) != 0 ? size.QuadPart : 0;
}

bool cDiskFile::IsTerminal() const
{
    DWORD mode = 0;
    return GetConsoleMode(HandleOf(handle), &mode) != 0;
}

DiskIdentity cDiskFile::Identity() const
{
    BY_HANDLE_FILE_INFORMATION facts = {};
    if (GetFileInformationByHandle(HandleOf(handle), &facts) == 0)
        return {};
    return {facts.dwVolumeSerialNumber, std::uint64_t{facts.nFileIndexHigh} << 32 | facts.nFileIndexLow};
}

std::error_code cDiskFile::Close()
{
    if (handle == Closed || !isOwned)
        return {};
    return CloseHandle(HandleOf(std::exchange(handle, Closed))) != 0 ? std::error_code() : LastError();
}

LocalTime LocalTimeOf(std::time_t time)
{
    std::tm parts = {};
    localtime_s(&parts, &time);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec, 0};
}

std::int64_t CoarseMilliseconds()
{
    return static_cast<std::int64_t>(GetTickCount64());
}

std::string DriveNames()
{
    std::string names;
    const DWORD drives = GetLogicalDrives();
    for (int drive = 0; drive < 26; ++drive)
        if ((drives >> drive & 1) != 0)
            names.append(names.empty() ? "" : " ").append(1, static_cast<char>('a' + drive)).append(":");
    return names;
}

} // namespace ob::basic
