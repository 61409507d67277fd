// SPDX-License-Identifier: GPL-3.0-or-later
// A file of which only parts are read.
#pragma once

#include "imaging/cByteSource.h"

#include <QFile>
#include <QString>

namespace ob {

// Small reads go through a cache of blocks, so that walking a table costs no call of the system for each entry. Another
// program may change the file meanwhile: what is read then is old or new, and a file that has become too short raises.
class cFileSource final : public cByteSource {
public:
    // Raises FileNotFound, or PathFileAccess (a folder, a device, or not to be read).
    explicit cFileSource(const QString& path);

    // As it was when the file was opened.
    std::uint64_t Size() const override { return size; }

    // Raises DeviceIoError, also when the file ends before the size that it had.
    void Read(std::uint64_t offset, std::span<std::uint8_t> target) const override;
    ByteView Look(const ByteRange& range, std::vector<std::uint8_t>& buffer) const override;

private:
    struct Block {
        std::uint64_t offset = 0;
        std::vector<std::uint8_t> bytes; // none until it is read
    };

    const Block& BlockAt(std::uint64_t offset) const;
    void ReadDisk(std::uint64_t offset, std::span<std::uint8_t> target) const;

    mutable QFile file;
    std::uint64_t size;
    mutable std::vector<Block> blocks;
};

} // namespace ob
