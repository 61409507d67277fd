// SPDX-License-Identifier: GPL-3.0-or-later
// The raw content of one bitmap file.
#include "imaging/cDIB.h"

#include "imaging/cImagingError.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace ob {

bool cDIB::CreateFromFile(const std::string& fileName, const FileReader& read, const NoticeSink& notice)
{
    FileContent content = read(fileName);
    switch (content.outcome) {
    case FileOutcome::Done:
        break;
    case FileOutcome::Missing:
        notice("File does not exist:\r\n" + fileName, NoticeIcon::Stop);
        return false;
    case FileOutcome::Locked:
        notice("File is locked - cannot access:\r\n" + fileName, NoticeIcon::Stop);
        return false;
    case FileOutcome::NotOpened:
    case FileOutcome::Failed:
        notice(content.description, NoticeIcon::Information);
        return false;
    }
    if (CreateFromBytes(std::move(content.bytes)))
        return true;
    notice("File is not a supported bitmap format:\r\n" + fileName, NoticeIcon::Information);
    return false;
}

bool cDIB::CreateFromBytes(std::vector<std::uint8_t> file)
{
    fileHeader = ReadFileHeader(file);
    if (fileHeader.bfType != BitmapFileType)
        return false;
    const ByteView content(file);
    infoHeader = ReadInfoHeader(content.subspan(std::min(FileHeaderSize, content.size())));
    if (infoHeader.biSizeImage < 1 || fileHeader.bfOffBits < static_cast<std::int32_t>(FileHeaderSize))
        RaiseSubscriptError();
    const auto pixelOffset = static_cast<std::size_t>(fileHeader.bfOffBits);
    pixels = {pixelOffset, static_cast<std::size_t>(infoHeader.biSizeImage), {}};
    // One byte more than there are before the pixels.
    info = {FileHeaderSize, pixelOffset - FileHeaderSize + 1, {}};
    held = std::move(file);
    return true;
}

bool cDIB::CreateFromPackedDIBPointer(ByteView memory)
{
    infoHeader = ReadInfoHeader(memory);
    if (infoHeader.biBitCount < 16 || infoHeader.biSizeImage < 1)
        return false;
    const auto pixelCount = static_cast<std::size_t>(infoHeader.biSizeImage);
    if (memory.size() < InfoHeaderSize || memory.size() - InfoHeaderSize < pixelCount)
        return false;
    const ByteView packed = memory.first(InfoHeaderSize + pixelCount);
    held.assign(packed.begin(), packed.end());
    info = {0, InfoHeaderSize, {}};
    pixels = {InfoHeaderSize, pixelCount, {}};
    // One more than the file has.
    const auto fileSize = static_cast<std::uint32_t>(infoHeader.biSizeImage) + 55U;
    fileHeader = {BitmapFileType, static_cast<std::int32_t>(fileSize), 0, 0,
                  static_cast<std::int32_t>(FileHeaderSize + InfoHeaderSize)};
    return true;
}

bool cDIB::WriteToFile(const std::string& fileName, const FileWriter& write) const
{
    const auto header = BytesOf(fileHeader);
    // An empty object writes only its header.
    const std::array<ByteView, 3> pieces = {header, info.size == 0 ? ByteView() : PointerToBitmapInfo(),
                                            pixels.size == 0 ? ByteView() : PointerToBits()};
    write(fileName, pieces);
    return true;
}

std::int32_t cDIB::SizeBitmapInfo() const
{
    if (info.size == 0)
        RaiseSubscriptError();
    return static_cast<std::int32_t>(info.size);
}

ByteView cDIB::BytesOfBlock(Block& block) const
{
    if (block.size == 0)
        RaiseSubscriptError();
    const ByteView all(held);
    if (block.offset <= all.size() && block.size <= all.size() - block.offset)
        return all.subspan(block.offset, block.size);
    if (block.copy.Size() == 0) {
        if (!block.copy.Allocate(block.size))
            RaiseOutOfMemory();
        if (block.offset < all.size()) {
            const ByteView rest = all.subspan(block.offset);
            std::memcpy(block.copy.Data(), rest.data(), rest.size());
        }
    }
    return block.copy.View();
}

} // namespace ob
