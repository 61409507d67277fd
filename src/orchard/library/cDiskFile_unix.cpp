// SPDX-License-Identifier: GPL-3.0-or-later
// Files over descriptors.
#include "orchard/library/cDiskFile.h"

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ob::basic {

namespace {

std::error_code LastError()
{
    return {errno, std::system_category()};
}

int Descriptor(std::intptr_t handle)
{
    return static_cast<int>(handle);
}

int FlagsOf(DiskUse use)
{
    switch (use) {
    case DiskUse::Read:
        return O_RDONLY;
    case DiskUse::Replace:
        return O_WRONLY | O_CREAT | O_TRUNC;
    case DiskUse::Append:
        return O_WRONLY | O_CREAT | O_APPEND;
    case DiskUse::Change:
        return O_RDWR | O_CREAT;
    }
    return O_RDONLY;
}

// Opening a pipe would otherwise wait for its other end, and the program could not be stopped.
int OpenAtOnce(const std::filesystem::path& path, int flags)
{
    const int descriptor = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY | O_NONBLOCK, 0666);
    if (descriptor >= 0)
        ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
    return descriptor;
}

} // namespace

cDiskFile::cDiskFile(StandardStream stream)
    : handle(stream == StandardStream::Input ? STDIN_FILENO : STDOUT_FILENO), isOwned(false)
{
}

std::error_code cDiskFile::Open(const std::filesystem::path& path, DiskUse use)
{
    int descriptor = OpenAtOnce(path, FlagsOf(use));
    if (descriptor < 0 && use == DiskUse::Change && (errno == EACCES || errno == EROFS || errno == EPERM))
        descriptor = OpenAtOnce(path, O_RDONLY);
    if (descriptor < 0)
        return LastError();
    struct stat status = {};
    ::fstat(descriptor, &status);
    if (S_ISDIR(status.st_mode)) {
        ::close(descriptor);
        return {EISDIR, std::system_category()};
    }
    handle = descriptor;
    hasPositions = S_ISREG(status.st_mode) || S_ISBLK(status.st_mode);
    isAppending = use == DiskUse::Append;
    return {};
}

std::error_code cDiskFile::Read(std::int64_t position, std::span<char> room, std::size_t& count)
{
    ssize_t read = 0;
    do
        read = hasPositions ? ::pread(Descriptor(handle), room.data(), room.size(), position)
                            : ::read(Descriptor(handle), room.data(), room.size());
    while (read < 0 && errno == EINTR);
    count = read < 0 ? 0 : static_cast<std::size_t>(read);
    return read < 0 ? LastError() : std::error_code();
}

std::error_code cDiskFile::Write(std::int64_t position, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = hasPositions && !isAppending
                                    ? ::pwrite(Descriptor(handle), bytes.data(), bytes.size(), position)
                                    : ::write(Descriptor(handle), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? LastError() : std::error_code(ENOSPC, std::system_category());
        position += written;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return {};
}

bool cDiskFile::WaitForInput(int milliseconds) const
{
    pollfd waiting = {Descriptor(handle), POLLIN, 0};
    return ::poll(&waiting, 1, milliseconds) > 0;
}

std::int64_t cDiskFile::Size() const
{
    struct stat status = {};
    return ::fstat(Descriptor(handle), &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : 0;
}

bool cDiskFile::IsTerminal() const
{
    return ::isatty(Descriptor(handle)) == 1;
}

DiskIdentity cDiskFile::Identity() const
{
    struct stat status = {};
    if (::fstat(Descriptor(handle), &status) != 0)
        return {};
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

std::error_code cDiskFile::Close()
{
    if (handle == Closed || !isOwned)
        return {};
    const int descriptor = Descriptor(std::exchange(handle, Closed));
    // An interrupted close has closed.
    return ::close(descriptor) == 0 || errno == EINTR ? std::error_code() : LastError();
}

LocalTime LocalTimeOf(std::time_t time)
{
    std::tm parts = {};
    ::localtime_r(&time, &parts);
    return {parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec, 0};
}

std::int64_t CoarseMilliseconds()
{
    timespec now = {};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1000000;
}

std::string DriveNames()
{
    return "/";
}

} // namespace ob::basic
