// SPDX-License-Identifier: GPL-3.0-or-later
// Copying through a temporary file and a rename.
#include "engine/package/modFileCopy.h"

#include "platform/files/modFiles.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <filesystem>
#include <system_error>

namespace ob {

namespace {

namespace fs = std::filesystem;

fs::path NativePath(const QString& path)
{
    return QFileInfo(path).filesystemFilePath();
}

// A new file in the folder with a name that nobody has; goes away with this unless it was settled.
class TemporaryCopy {
public:
    explicit TemporaryCopy(const QString& folder)
    {
        constexpr int maximumTries = 100;
        for (int count = 0; count < maximumTries && !file.isOpen(); ++count) {
            file.setFileName(folder + QStringLiteral(".ob-%1.tmp").arg(QRandomGenerator::global()->generate()));
            if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered) &&
                !QFileInfo::exists(file.fileName()))
                return;
            isMade = file.isOpen();
        }
    }
    TemporaryCopy(const TemporaryCopy&) = delete;
    TemporaryCopy& operator=(const TemporaryCopy&) = delete;
    ~TemporaryCopy()
    {
        if (isMade)
            file.remove();
    }

    QFile file;
    bool isMade = false;
};

CopyEnd CopyBytes(QFile& source, QFile& copy, const CopyWatch& watch)
{
    constexpr qint64 piece = 1 << 20;
    QByteArray bytes(piece, Qt::Uninitialized);
    qint64 copied = 0;
    for (;;) {
        const qint64 count = source.read(bytes.data(), piece);
        if (count < 0 || source.error() != QFileDevice::NoError)
            return CopyEnd::Failed;
        if (count == 0)
            break;
        if (copy.write(bytes.constData(), count) != count)
            return CopyEnd::Failed;
        copied += count;
        if (watch && watch(copied) == CopyRequest::Stop)
            return CopyEnd::Stopped;
    }
    return CopyEnd::Copied;
}

// Makes the written copy the file of that name.
CopyEnd Settle(const fs::path& from, const fs::path& copy, const fs::path& to)
{
    std::error_code error;
    const fs::perms permissions = fs::status(from, error).permissions();
    // Disks of other systems and shares may refuse both; the bytes are what counts.
    if (!error)
        fs::permissions(copy, permissions, error);
    const fs::file_time_type time = fs::last_write_time(from, error);
    if (!error)
        fs::last_write_time(copy, time, error);
    fs::rename(copy, to, error);
    return error ? CopyEnd::Failed : CopyEnd::Copied;
}

} // namespace

CopyEnd CopyWholeFile(const QString& from, const QString& to, const CopyWatch& watch)
{
    // A pipe or an endless device would keep the copy for ever.
    QFile source(from);
    if (!QFileInfo(from).isFile() || !source.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return CopyEnd::Failed;
    TemporaryCopy copy(FolderOf(to));
    if (!copy.isMade)
        return CopyEnd::Failed;
    const CopyEnd end = CopyBytes(source, copy.file, watch);
    if (end != CopyEnd::Copied)
        return end;
    copy.file.close();
    // A share or a quota may report a lost write only here.
    if (copy.file.error() != QFileDevice::NoError)
        return CopyEnd::Failed;
    if (Settle(NativePath(from), NativePath(copy.file.fileName()), NativePath(to)) == CopyEnd::Failed)
        return CopyEnd::Failed;
    copy.isMade = false;
    return CopyEnd::Copied;
}

} // namespace ob
