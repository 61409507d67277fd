// SPDX-License-Identifier: GPL-3.0-or-later
// A file of which only parts are read.
#include "platform/files/cFileSource.h"

#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"

#include <QFileInfo>

#include <algorithm>

namespace ob {

namespace {

constexpr std::uint64_t BlockBytes = 8192;
constexpr std::size_t BlockCount = 256; // each place of the file has one block that can hold it

} // namespace

cFileSource::cFileSource(const QString& path) : file(path), blocks(BlockCount)
{
    if (!FileExists(path))
        throw RuntimeErrorOf(ErrorNumber::FileNotFound, path);
    // Opening a pipe would wait for its other end.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess, path);
    size = static_cast<std::uint64_t>(file.size());
}

void cFileSource::Read(std::uint64_t offset, std::span<std::uint8_t> target) const
{
    if (target.size() >= BlockBytes) {
        ReadDisk(offset, target);
        return;
    }
    while (!target.empty()) {
        const Block& block = BlockAt(offset);
        const auto start = static_cast<std::size_t>(offset - block.offset);
        const ByteView rest = ByteView(block.bytes).subspan(std::min(start, block.bytes.size()));
        const std::size_t count = std::min(target.size(), rest.size());
        if (count == 0)
            throw RuntimeErrorOf(ErrorNumber::DeviceIoError, file.fileName());
        std::copy_n(rest.begin(), count, target.begin());
        target = target.subspan(count);
        offset += count;
    }
}

ByteView cFileSource::Look(const ByteRange& range, std::vector<std::uint8_t>& buffer) const
{
    if (range.IsEmpty() || range.offset / BlockBytes != (range.offset + range.size - 1) / BlockBytes)
        return cByteSource::Look(range, buffer);
    const Block& block = BlockAt(range.offset);
    return BytesAt(block.bytes, range.offset - block.offset, range.size);
}

const cFileSource::Block& cFileSource::BlockAt(std::uint64_t offset) const
{
    const std::uint64_t start = offset / BlockBytes * BlockBytes;
    Block& block = blocks[static_cast<std::size_t>(offset / BlockBytes % BlockCount)];
    if (block.bytes.empty() || block.offset != start) {
        std::vector<std::uint8_t> bytes = std::move(block.bytes);
        bytes.resize(static_cast<std::size_t>(std::min(BlockBytes, size - std::min(start, size))));
        ReadDisk(start, bytes);
        block = {start, std::move(bytes)};
    }
    return block;
}

void cFileSource::ReadDisk(std::uint64_t offset, std::span<std::uint8_t> target) const
{
    const auto wanted = static_cast<qint64>(target.size());
    if (!file.seek(static_cast<qint64>(offset)) || file.read(reinterpret_cast<char*>(target.data()), wanted) != wanted)
        throw RuntimeErrorOf(ErrorNumber::DeviceIoError, file.fileName());
}

} // namespace ob
