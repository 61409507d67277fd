// SPDX-License-Identifier: GPL-3.0-or-later
// A file that is written piece by piece and takes its name only once it is whole.
#pragma once

#include <QString>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>

namespace ob {

// The pieces go to a file of another name in the same folder. Until Finish, what stands under the path stays as it was;
// one that is let go before leaves nothing. For files that are too large to be put together in memory; the others have
// ReplaceFile of modFiles.h, which raises the same errors.
class cFileReplacement {
public:
    // Raises PathNotFound, DiskFull, and PathFileAccess (a folder, a device, a write-protected file, a folder that
    // takes no new file).
    explicit cFileReplacement(const QString& path);
    cFileReplacement(const cFileReplacement&) = delete;
    cFileReplacement& operator=(const cFileReplacement&) = delete;
    ~cFileReplacement();

    // Adds bytes at the end. Raises DiskFull (also a quota or a size limit) or DeviceIoError, as the next two do.
    void Write(std::span<const std::uint8_t> bytes);

    // Overwrites bytes that were written before.
    void WriteAt(std::int64_t position, std::span<const std::uint8_t> bytes);

    // Gives the file its name, with the permissions of the file that it replaces. Nothing can be written behind that.
    void Finish();

    std::int64_t Size() const { return size; }

private:
    void Put(std::span<const std::uint8_t> bytes);
    [[noreturn]] void RaiseWriteError(int error) const;

    QString callersPath;
    std::filesystem::path target;
    std::filesystem::path temporary; // empty once it has its name
    std::filebuf file;
    std::int64_t size = 0;
};

} // namespace ob
