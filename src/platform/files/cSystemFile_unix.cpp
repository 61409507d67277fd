// SPDX-License-Identifier: GPL-3.0-or-later
// Files over descriptors.
#include "platform/files/cSystemFile.h"

#include <cerrno>
#include <cstdio>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace ob {

namespace {

namespace fs = std::filesystem;

std::error_code LastError()
{
    return {errno, std::system_category()};
}

std::error_code ErrorOf(int result)
{
    return result == 0 ? std::error_code() : LastError();
}

// What some disks and all devices answer, as there is nothing for them to do.
std::error_code SyncDescriptor(int descriptor)
{
    if (::fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS)
        return {};
    return LastError();
}

int Descriptor(std::intptr_t handle)
{
    return static_cast<int>(handle);
}

// The system labels files by rules of its own, and takes a program's privileges away when its bytes change.
bool IsOwners(std::string_view name)
{
    return name.starts_with("user.") || name.starts_with("system.");
}

void CopyAttribute(int descriptor, const fs::path& old, const char* name)
{
    const ssize_t size = ::getxattr(old.c_str(), name, nullptr, 0);
    if (size < 0)
        return;
    std::vector<char> value(static_cast<std::size_t>(size));
    if (::getxattr(old.c_str(), name, value.data(), value.size()) == size)
        (void)!::fsetxattr(descriptor, name, value.data(), value.size(), 0);
}

void CopyAttributes(int descriptor, const fs::path& old)
{
    const ssize_t size = ::listxattr(old.c_str(), nullptr, 0);
    if (size <= 0)
        return;
    std::vector<char> names(static_cast<std::size_t>(size));
    const ssize_t length = ::listxattr(old.c_str(), names.data(), names.size());
    const std::string_view all(names.data(), static_cast<std::size_t>(length < 0 ? 0 : length));
    for (std::size_t start = 0; start < all.size();) {
        const char* name = all.data() + start;
        if (IsOwners(name))
            CopyAttribute(descriptor, old, name);
        start += std::string_view(name).size() + 1;
    }
}

} // namespace

std::error_code cSystemFile::Open(const fs::path& path, Opening opening, Rights rights)
{
    int flags = O_WRONLY | O_CLOEXEC | O_NOCTTY;
    if (opening == Opening::New)
        flags |= O_CREAT | O_EXCL;
    else if (opening == Opening::Append)
        flags |= O_APPEND;
    // Opening a pipe that nobody reads would otherwise wait for a reader, and stop the program for good.
    const int descriptor = ::open(path.c_str(), flags | O_NONBLOCK, rights == Rights::Private ? 0600 : 0666);
    if (descriptor < 0)
        return LastError();
    ::fcntl(descriptor, F_SETFL, ::fcntl(descriptor, F_GETFL) & ~O_NONBLOCK);
    handle = descriptor;
    return {};
}

std::error_code cSystemFile::Hold()
{
    // Some disks know no locks, and there nobody takes the file for abandoned.
    if (::flock(Descriptor(handle), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        return LastError();
    struct stat status = {};
    const bool isThere = ::fstat(Descriptor(handle), &status) == 0 && status.st_nlink > 0;
    return isThere ? std::error_code() : std::error_code(EEXIST, std::system_category());
}

std::error_code cSystemFile::Hold(const fs::path& path)
{
    (void)Close();
    handle = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (handle >= 0)
        return Hold();
    return errno == ENOENT ? std::error_code(EEXIST, std::system_category()) : std::error_code();
}

std::error_code cSystemFile::Write(std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(Descriptor(handle), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return written < 0 ? LastError() : std::error_code(ENOSPC, std::system_category());
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return {};
}

std::error_code cSystemFile::WriteAt(std::int64_t position, std::span<const std::uint8_t> bytes)
{
    if (::lseek(Descriptor(handle), position, SEEK_SET) < 0)
        return LastError();
    return Write(bytes);
}

std::int64_t cSystemFile::Size() const
{
    struct stat status = {};
    return ::fstat(Descriptor(handle), &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

std::error_code cSystemFile::Resize(std::int64_t size)
{
    return ErrorOf(::ftruncate(Descriptor(handle), size));
}

std::error_code cSystemFile::Sync()
{
    return SyncDescriptor(Descriptor(handle));
}

std::error_code cSystemFile::Close()
{
    if (handle == Closed)
        return {};
    const int descriptor = Descriptor(std::exchange(handle, Closed));
    // An interrupted close has closed.
    return ::close(descriptor) == 0 || errno == EINTR ? std::error_code() : LastError();
}

void cSystemFile::TakeOver(const fs::path& old)
{
    struct stat status = {};
    if (::stat(old.c_str(), &status) != 0)
        return;
    const int descriptor = Descriptor(handle);
    (void)!::fchown(descriptor, status.st_uid, status.st_gid);
    (void)::fchmod(descriptor, status.st_mode & 0777);
    CopyAttributes(descriptor, old);
}

std::error_code WriteTrouble(const fs::path& path)
{
    return ErrorOf(::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS));
}

std::error_code SyncFolder(const fs::path& folder)
{
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // A folder may take files and yet not be read.
    if (descriptor < 0)
        return errno == EACCES ? std::error_code() : LastError();
    const std::error_code error = SyncDescriptor(descriptor);
    ::close(descriptor);
    return error;
}

std::error_code RenameOver(const fs::path& from, const fs::path& to)
{
    return ErrorOf(::rename(from.c_str(), to.c_str()));
}

std::error_code ExchangeNames(const fs::path& one, const fs::path& other)
{
    if (::renameat2(AT_FDCWD, one.c_str(), AT_FDCWD, other.c_str(), RENAME_EXCHANGE) == 0)
        return {};
    fs::path between = one;
    between += "-old";
    std::error_code error = RenameOver(other, between);
    if (!error)
        error = RenameOver(one, other);
    return error ? error : RenameOver(between, one);
}

void LimitRights(const fs::path& file, const fs::path& other)
{
    struct stat own = {};
    struct stat others = {};
    if (::stat(file.c_str(), &own) == 0 && ::stat(other.c_str(), &others) == 0)
        (void)!::chmod(file.c_str(), own.st_mode & others.st_mode & 0777);
}

FileTrouble TroubleOf(std::error_code error)
{
    switch (error.value()) {
    case ENOSPC:
    case EFBIG:
    case EDQUOT:
        return FileTrouble::Full;
    case ENOENT:
    case ENOTDIR:
        return FileTrouble::Missing;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENAMETOOLONG:
    case ELOOP:
    case EINVAL:
        return FileTrouble::Closed;
    case EBUSY:
    case ETXTBSY:
        return FileTrouble::InUse;
    case EEXIST:
        return FileTrouble::Exists;
    default:
        return FileTrouble::Other;
    }
}

} // namespace ob
