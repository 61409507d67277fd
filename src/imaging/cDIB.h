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
    // Loads a file that starts with "BM", whatever else it holds. False after a notice when it is missing, cannot be
    // opened or starts otherwise. Raises the subscript error when its header tells an image size below 1 or pixels
    // that start before offset 14. Where the file ends early, zeros stand for what is missing.
    bool CreateFromFile(const std::string& fileName, const FileReader& read, const NoticeSink& notice);

    // The same for bytes that were read before; false when they do not start with "BM".
    bool CreateFromBytes(std::vector<std::uint8_t> file);

    // Copies a bitmap as it lies in memory: header, then pixels. False below 16 bits a pixel, for an image size below
    // 1, and when the memory is shorter than that size.
    bool CreateFromPackedDIBPointer(ByteView memory);

    // Writes file header, info bytes and pixels. Always true. After a load from a file the pixels stand one byte later
    // than the header says. The writer is expected to leave what a longer file holds behind them.
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
    // loaded, and the memory error when what the file lacks cannot be filled up with zeros.
    ByteView PointerToBits() const { return BytesOfBlock(pixels); }
    ByteView PointerToBitmapInfo() const { return BytesOfBlock(info); }
    std::int32_t SizeBitmapInfo() const;

private:
    // A stretch of the held bytes. One that reaches beyond their end gets bytes of its own when it is asked for, so
    // that a header which promises gigabytes costs nothing.
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
