// SPDX-License-Identifier: GPL-3.0-or-later
// A file that is written piece by piece and takes its name only once it is whole.
#pragma once

#include "platform/files/cTemporaryFile.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <span>

namespace ob {

// The pieces go to a temporary file in the same folder. Until Finish, what is under the path stays as it was; one that
// is let go before leaves nothing. For files that are too large to be put together in memory; the others have
// ReplaceFile of modFiles.h, which raises the same errors and keeps the same of the old file.
class cFileReplacement {
public:
    // Raises PathNotFound, DiskFull, and PathFileAccess (a folder, a device, a write-protected file, a folder that
    // takes no new file).
    explicit cFileReplacement(const QString& path, Durability fileDurability = Durability::Synced);

    // Adds bytes at the end. Raises DiskFull (also a quota or a size limit) or DeviceIoError, as the next two do.
    void Write(std::span<const std::uint8_t> bytes) { file->Write(bytes); }

    // Overwrites bytes that were written before.
    void WriteAt(std::int64_t position, std::span<const std::uint8_t> bytes) { file->WriteAt(position, bytes); }

    // Gives the file its name, with what modFiles.h says is kept of the one that it replaces. Nothing can be written
    // after that.
    void Finish();

    std::int64_t Size() const { return file->Size(); }

private:
    Durability durability;
    std::optional<cTemporaryFile> file;
};

} // namespace ob
