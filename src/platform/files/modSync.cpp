// SPDX-License-Identifier: GPL-3.0-or-later
// The disk, and the seam at which a test takes its place.
#include "platform/files/modSync.h"

namespace ob {

namespace {

std::function<std::error_code(SyncStep)>& Disk()
{
    static std::function<std::error_code(SyncStep)> disk;
    return disk;
}

} // namespace

std::error_code SyncBytes(cSystemFile& file)
{
    return Disk() ? Disk()(SyncStep::Bytes) : file.Sync();
}

std::error_code SyncNames(const std::filesystem::path& folder)
{
    return Disk() ? Disk()(SyncStep::Names) : SyncFolder(folder);
}

void SetDisk(std::function<std::error_code(SyncStep)> disk)
{
    Disk() = std::move(disk);
}

} // namespace ob
