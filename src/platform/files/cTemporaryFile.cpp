// SPDX-License-Identifier: GPL-3.0-or-later
// A file under a temporary name.
#include "platform/files/cTemporaryFile.h"

#include "platform/files/modFileErrors.h"

namespace ob {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t MostPending = 1 << 16;

} // namespace

cTemporaryFile::cTemporaryFile(fs::path targetPath, const QString& callersPath, Rights rights)
    : path(callersPath), target(std::move(targetPath))
{
    constexpr int maximumTries = 100;
    std::error_code error;
    if (fs::exists(target, error))
        rights = Rights::Private; // until it takes over those of the target
    RemoveAbandoned(FolderOfNative(target));
    for (int count = 0; count < maximumTries; ++count) {
        temporary = target.parent_path() / TemporaryName();
        mark.Set(temporary);
        error = file.Open(temporary, Opening::New, rights);
        if (!error)
            error = lock.Hold(temporary);
        if (!error)
            return;
        mark.Clear();
        if (TroubleOf(error) != FileTrouble::Exists)
            break;
    }
    RaiseCreationError(error, temporary, path);
}

cTemporaryFile::~cTemporaryFile()
{
    if (hasName)
        return;
    (void)file.Close();
    std::error_code ignored;
    fs::remove(temporary, ignored);
}

void cTemporaryFile::Check(std::error_code error) const
{
    if (error)
        RaiseFileError(error, path);
}

void cTemporaryFile::Flush()
{
    Check(file.Write(pending));
    pending.clear();
}

void cTemporaryFile::Put(std::span<const std::uint8_t> bytes)
{
    if (pending.size() + bytes.size() > MostPending)
        Flush();
    if (bytes.size() > MostPending)
        Check(file.Write(bytes));
    else
        pending.insert(pending.end(), bytes.begin(), bytes.end());
}

void cTemporaryFile::Write(std::span<const std::uint8_t> bytes)
{
    Put(bytes);
    size += static_cast<std::int64_t>(bytes.size());
}

void cTemporaryFile::WriteAt(std::int64_t position, std::span<const std::uint8_t> bytes)
{
    Flush();
    Check(file.WriteAt(position, bytes));
    Check(file.WriteAt(size, {}));
}

void cTemporaryFile::Complete(Durability durability)
{
    Flush();
    if (durability == Durability::Synced)
        Check(SyncBytes(file));
    Check(file.Close());
}

void cTemporaryFile::TakeName(Durability durability)
{
    Check(RenameOver(temporary, target));
    hasName = true;
    mark.Clear();
    if (durability == Durability::Synced)
        Check(SyncNames(FolderOfNative(target)));
}

} // namespace ob
