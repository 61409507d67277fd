// SPDX-License-Identifier: GPL-3.0-or-later
// Files over handles.
#include "platform/files/cSystemFile.h"

#include <algorithm>
#include <vector>

#include <windows.h>

namespace ob {

namespace {

namespace fs = std::filesystem;

std::error_code ErrorOf(DWORD number)
{
    return {static_cast<int>(number), std::system_category()};
}

std::error_code LastError()
{
    return ErrorOf(GetLastError());
}

std::error_code ResultOf(BOOL done)
{
    return done != 0 ? std::error_code() : LastError();
}

HANDLE HandleOf(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

std::error_code Seek(HANDLE file, std::int64_t position, DWORD origin)
{
    LARGE_INTEGER distance = {};
    distance.QuadPart = position;
    return ResultOf(SetFilePointerEx(file, distance, nullptr, origin));
}

// Disks that cannot flush, and pipes, say so in one of these ways.
std::error_code Flush(HANDLE file)
{
    if (FlushFileBuffers(file) != 0)
        return {};
    const DWORD number = GetLastError();
    const bool hasNoSuchStep = number == ERROR_INVALID_FUNCTION || number == ERROR_NOT_SUPPORTED ||
                               number == ERROR_ACCESS_DENIED || number == ERROR_INVALID_HANDLE;
    return hasNoSuchStep ? std::error_code() : ErrorOf(number);
}

} // namespace

std::error_code cSystemFile::Open(const fs::path& path, Opening opening, Rights)
{
    const DWORD disposition = opening == Opening::New ? CREATE_NEW : OPEN_EXISTING;
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return LastError();
    handle = reinterpret_cast<std::intptr_t>(file);
    return opening == Opening::Append ? Seek(file, 0, FILE_END) : std::error_code();
}

// An open file cannot be removed here, so there is nothing to lock.
std::error_code cSystemFile::Hold()
{
    return {};
}

std::error_code cSystemFile::Hold(const fs::path&)
{
    return {};
}

std::error_code cSystemFile::Write(std::span<const std::uint8_t> bytes)
{
    constexpr std::size_t mostAtOnce = std::size_t{1} << 30;
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min(bytes.size(), mostAtOnce));
        if (WriteFile(HandleOf(handle), bytes.data(), count, &written, nullptr) == 0)
            return LastError();
        if (written == 0)
            return ErrorOf(ERROR_DISK_FULL);
        bytes = bytes.subspan(written);
    }
    return {};
}

std::error_code cSystemFile::WriteAt(std::int64_t position, std::span<const std::uint8_t> bytes)
{
    if (const std::error_code error = Seek(HandleOf(handle), position, FILE_BEGIN))
        return error;
    return Write(bytes);
}

std::int64_t cSystemFile::Size() const
{
    LARGE_INTEGER size = {};
    const bool isOnDisk = GetFileType(HandleOf(handle)) == FILE_TYPE_DISK;
    return isOnDisk && GetFileSizeEx(HandleOf(handle), &size) != 0 ? size.QuadPart : -1;
}

std::error_code cSystemFile::Resize(std::int64_t size)
{
    if (const std::error_code error = Seek(HandleOf(handle), size, FILE_BEGIN))
        return error;
    return ResultOf(SetEndOfFile(HandleOf(handle)));
}

std::error_code cSystemFile::Sync()
{
    return Flush(HandleOf(handle));
}

std::error_code cSystemFile::Close()
{
    if (handle == Closed)
        return {};
    return ResultOf(CloseHandle(HandleOf(std::exchange(handle, Closed))));
}

// RenameOver merges them into the new file.
void cSystemFile::TakeOver(const fs::path&) {}

std::error_code WriteTrouble(const fs::path& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return LastError();
    // On a folder the attribute says nothing about new files.
    const bool isProtected =
        (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0 && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
    return isProtected ? ErrorOf(ERROR_ACCESS_DENIED) : std::error_code();
}

std::error_code SyncFolder(const fs::path& folder)
{
    const HANDLE opened =
        CreateFileW(folder.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    // Shares and folders of other users cannot be opened so.
    if (opened == INVALID_HANDLE_VALUE)
        return {};
    const std::error_code error = Flush(opened);
    CloseHandle(opened);
    return error;
}

std::error_code RenameOver(const fs::path& from, const fs::path& to)
{
    if (GetFileAttributesW(to.c_str()) == INVALID_FILE_ATTRIBUTES)
        return ResultOf(MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_WRITE_THROUGH));
    // The old file keeps a name until the new one has its own; without that, a failure halfway would leave none.
    fs::path kept = from;
    kept += L".old";
    if (ReplaceFileW(to.c_str(), from.c_str(), kept.c_str(), REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0) {
        DeleteFileW(kept.c_str());
        return {};
    }
    const DWORD number = GetLastError();
    if (number == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2)
        MoveFileExW(kept.c_str(), to.c_str(), 0);
    return ErrorOf(number);
}

std::error_code ExchangeNames(const fs::path& one, const fs::path& other)
{
    fs::path between = one;
    between += "-old";
    std::error_code error;
    fs::rename(other, between, error);
    if (!error)
        fs::rename(one, other, error);
    if (!error)
        fs::rename(between, one, error);
    return error;
}

void LimitRights(const fs::path&, const fs::path&) {}

FileTrouble TroubleOf(std::error_code error)
{
    constexpr DWORD quotaExceeded = 1295; // some headers have no name for it
    switch (static_cast<DWORD>(error.value())) {
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case quotaExceeded:
    case ERROR_FILE_TOO_LARGE:
        return FileTrouble::Full;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
        return FileTrouble::Missing;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY:
        return FileTrouble::Closed;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return FileTrouble::InUse;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return FileTrouble::Exists;
    default:
        return FileTrouble::Other;
    }
}

} // namespace ob
