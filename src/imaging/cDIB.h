// SPDX-License-Identifier: GPL-3.0-or-later
// The raw content of one bitmap file: its headers, the bytes up to the pixels, and the pixels. Nothing is decoded.
#pragma once

#include "imaging/cBytes.h"
#include "imaging/modBitmapHeaders.h"
#include "imaging/modFileAccess.h"

#include <cstdint>
#include <string>
#include <vector>

namespace ob {

class cDIB {
public:
    // Loads a file that starts with "BM", whatever else it contains. False after a notice when it is missing, cannot be
    // opened or starts otherwise. Raises the subscript error when its header gives an image size below 1 or pixels that
    // start before offset 14. Where the file ends early, missing bytes are zeros.
    bool CreateFromFile(const std::string& fileName, const FileReader& read, const NoticeSink& notice);

    // The same for bytes that were read before; false when they do not start with "BM".
    bool CreateFromBytes(std::vector<std::uint8_t> file);

    // Copies a bitmap in its memory layout: header, then pixels. False below 16 bits per pixel, for an image size below
    // 1, and when the memory is shorter than that size.
    bool CreateFromPackedDIBPointer(ByteView memory);

    // Writes file header, info bytes and pixels. Always true. After a load from a file the pixels are one byte later
    // than the header says. The writer is expected to keep the rest of a longer file.
    bool WriteToFile(const std::string& fileName, const FileWriter& write) const;

    std::int16_t BitCount() const { return infoHeader.biBitCount; }
    std::int32_t Height() const { return infoHeader.biHeight; }
    std::int32_t Width() const { return infoHeader.biWidth; }
    std::int32_t Compression() const { return infoHeader.biCompression; }
    std::int32_t SizeInfoHeader() const { return infoHeader.biSize; }
    std::int32_t SizeImage() const { return infoHeader.biSizeImage; }
    std::int16_t Planes() const { return infoHeader.biPlanes; }
    std::int32_t ClrImportant() const { return infoHeader.biClrImportant; }
    std::int32_t ClrUsed() const { return infoHeader.biClrUsed; }
    std::int32_t XPPM() const { return infoHeader.biXPelsPerMeter; }
    std::int32_t YPPM() const { return infoHeader.biYPelsPerMeter; }
    std::int16_t FileType() const { return fileHeader.bfType; }
    std::int32_t SizeFileHeader() const { return fileHeader.bfSize; } // of the whole file, despite the name
    std::int32_t BitOffset() const { return fileHeader.bfOffBits; }

    // The pixels (SizeImage bytes), and the bytes from offset 14 on: header, colour table and, after a load from a
    // file, the first byte of the pixels. Both are good until the next load. Raise the subscript error when nothing was
    // loaded, and the memory error when there is no memory for the zeros of a truncated file.
    ByteView PointerToBits() const { return BytesOfBlock(pixels); }
    ByteView PointerToBitmapInfo() const { return BytesOfBlock(info); }
    std::int32_t SizeBitmapInfo() const;

private:
    // A range of the loaded bytes. One that extends beyond their end gets its own bytes on request, so that a header
    // that claims gigabytes costs nothing.
    struct Block {
        std::size_t offset = 0;
        std::size_t size = 0;
        cBytes copy;
    };

    ByteView BytesOfBlock(Block& block) const;

    std::vector<std::uint8_t> held;
    mutable Block pixels;
    mutable Block info;
    BitmapInfoHeader infoHeader;
    BitmapFileHeader fileHeader;
};

} // namespace ob
