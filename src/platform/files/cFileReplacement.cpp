// SPDX-License-Identifier: GPL-3.0-or-later
// A file that takes its name only once it is whole, over the standard library, which keeps the system's error number.
#include "platform/files/cFileReplacement.h"

#include "platform/files/modNativePath.h"
#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QRandomGenerator>

#include <cerrno>
#include <string>
#include <system_error>

namespace ob {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Raise(ErrorNumber number, const QString& path)
{
    throw RuntimeErrorOf(number, QDir::toNativeSeparators(path));
}

bool IsFull(int error)
{
#ifdef EDQUOT
    if (error == EDQUOT)
        return true;
#endif
    return error == ENOSPC || error == EFBIG;
}

bool MayWrite(const fs::path& path)
{
    std::filebuf file;
    return file.open(path, std::ios::in | std::ios::out | std::ios::binary) != nullptr;
}

// A name that nobody has; short, because the target's may be as long as the disk allows.
fs::path FreeName(const fs::path& folder)
{
    for (;;) {
        fs::path name = folder / (".ob-" + std::to_string(QRandomGenerator::global()->generate()) + ".tmp");
        std::error_code error;
        if (!fs::exists(fs::symlink_status(name, error)))
            return name;
    }
}

} // namespace

cFileReplacement::cFileReplacement(const QString& path) : callersPath(path)
{
    if (path.isEmpty() || path.contains(QChar::Null))
        Raise(ErrorNumber::PathFileAccess, path);
    target = LinkTarget(NativePath(path), path);
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (fs::exists(status) && (!fs::is_regular_file(status) || !MayWrite(target)))
        Raise(ErrorNumber::PathFileAccess, path);
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    if (!fs::is_directory(folder, error))
        Raise(ErrorNumber::PathNotFound, path);
    temporary = FreeName(folder);
    errno = 0;
    if (file.open(temporary, std::ios::out | std::ios::binary | std::ios::trunc) == nullptr)
        Raise(IsFull(errno) ? ErrorNumber::DiskFull : ErrorNumber::PathFileAccess, path);
}

cFileReplacement::~cFileReplacement()
{
    if (temporary.empty())
        return;
    file.close();
    std::error_code ignored;
    fs::remove(temporary, ignored);
}

void cFileReplacement::Write(std::span<const std::uint8_t> bytes)
{
    Put(bytes);
    size += static_cast<std::int64_t>(bytes.size());
}

void cFileReplacement::WriteAt(std::int64_t position, std::span<const std::uint8_t> bytes)
{
    errno = 0;
    if (file.pubseekpos(position, std::ios::out) == std::streampos(-1))
        RaiseWriteError(errno);
    Put(bytes);
    errno = 0;
    if (file.pubseekpos(size, std::ios::out) == std::streampos(-1))
        RaiseWriteError(errno);
}

void cFileReplacement::Put(std::span<const std::uint8_t> bytes)
{
    const auto count = static_cast<std::streamsize>(bytes.size());
    errno = 0;
    if (file.sputn(reinterpret_cast<const char*>(bytes.data()), count) != count)
        RaiseWriteError(errno);
}

void cFileReplacement::Finish()
{
    errno = 0;
    // A disk over the network may tell only now that it is full.
    if (file.close() == nullptr)
        RaiseWriteError(errno);
    std::error_code error;
    const fs::file_status old = fs::status(target, error);
    if (fs::exists(old))
        fs::permissions(temporary, old.permissions(), error);
    fs::rename(temporary, target, error);
    if (error)
        Raise(ErrorNumber::PathFileAccess, callersPath);
    temporary.clear();
}

void cFileReplacement::RaiseWriteError(int error) const
{
    Raise(IsFull(error) ? ErrorNumber::DiskFull : ErrorNumber::DeviceIoError, callersPath);
}

} // namespace ob
