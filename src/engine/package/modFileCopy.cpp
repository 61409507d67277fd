// SPDX-License-Identifier: GPL-3.0-or-later
// Copying piece by piece into a file that takes its name at the end.
#include "engine/package/modFileCopy.h"

#include "platform/files/cTemporaryFile.h"
#include "platform/files/modFileErrors.h"
#include "platform/files/modNativePath.h"

#include <QFile>
#include <QFileInfo>

#include <vector>

namespace ob {

namespace {

namespace fs = std::filesystem;

CopyEnd CopyBytes(QFile& source, cTemporaryFile& copy, const CopyWatch& watch)
{
    std::vector<std::uint8_t> piece(std::size_t{1} << 20);
    for (;;) {
        const qint64 count = source.read(reinterpret_cast<char*>(piece.data()), static_cast<qint64>(piece.size()));
        if (count < 0 || source.error() != QFileDevice::NoError)
            throw RuntimeErrorOf(ErrorNumber::DeviceIoError, source.fileName(), source.errorString());
        if (count == 0)
            return CopyEnd::Copied;
        copy.Write(std::span(piece).first(static_cast<std::size_t>(count)));
        if (watch && watch(copy.Size()) == CopyRequest::Stop)
            return CopyEnd::Stopped;
    }
}

// Disks of other systems and shares may refuse both; the bytes are what counts.
void TakeRightsAndTime(const fs::path& from, const fs::path& copy)
{
    std::error_code error;
    const fs::perms permissions = fs::status(from, error).permissions();
    if (!error)
        fs::permissions(copy, permissions, error);
    const fs::file_time_type time = fs::last_write_time(from, error);
    if (!error)
        fs::last_write_time(copy, time, error);
}

} // namespace

CopyEnd CopyWholeFile(const QString& from, const QString& to, const CopyWatch& watch)
{
    // A pipe or an endless device would keep the copy for ever.
    if (!QFileInfo(from).isFile())
        RaiseFileError(ErrorNumber::PathFileAccess, from, std::errc::no_such_file_or_directory);
    QFile source(from);
    if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess, from, source.errorString());
    cTemporaryFile copy(NativePath(to), to, Rights::Private);
    if (CopyBytes(source, copy, watch) == CopyEnd::Stopped)
        return CopyEnd::Stopped;
    copy.Complete(Durability::Unsynced);
    TakeRightsAndTime(NativePath(from), copy.Path());
    copy.TakeName(Durability::Unsynced);
    return CopyEnd::Copied;
}

} // namespace ob
