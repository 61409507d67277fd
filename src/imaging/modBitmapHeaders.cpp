// SPDX-License-Identifier: GPL-3.0-or-later
// The two headers of a bitmap file, and their bytes.
#include "imaging/modBitmapHeaders.h"

#include "imaging/cByteReader.h"
#include "imaging/cByteWriter.h"

namespace ob {

BitmapFileHeader ReadFileHeader(ByteView bytes)
{
    const cByteReader reader(bytes);
    return {reader.SignedWord(0), reader.SignedLong(2), reader.SignedWord(6), reader.SignedWord(8),
            reader.SignedLong(10)};
}

BitmapInfoHeader ReadInfoHeader(ByteView bytes)
{
    const cByteReader reader(bytes);
    return {reader.SignedLong(0),  reader.SignedLong(4),  reader.SignedLong(8),  reader.SignedWord(12),
            reader.SignedWord(14), reader.SignedLong(16), reader.SignedLong(20), reader.SignedLong(24),
            reader.SignedLong(28), reader.SignedLong(32), reader.SignedLong(36)};
}

std::vector<std::uint8_t> BytesOf(const BitmapFileHeader& header)
{
    cByteWriter writer;
    writer.Reserve(FileHeaderSize);
    writer.SignedWord(header.bfType).SignedLong(header.bfSize);
    writer.SignedWord(header.bfReserved1).SignedWord(header.bfReserved2).SignedLong(header.bfOffBits);
    return writer.Take();
}

std::vector<std::uint8_t> BytesOf(const BitmapInfoHeader& header)
{
    cByteWriter writer;
    writer.Reserve(InfoHeaderSize);
    writer.SignedLong(header.biSize).SignedLong(header.biWidth).SignedLong(header.biHeight);
    writer.SignedWord(header.biPlanes).SignedWord(header.biBitCount);
    writer.SignedLong(header.biCompression).SignedLong(header.biSizeImage);
    writer.SignedLong(header.biXPelsPerMeter).SignedLong(header.biYPelsPerMeter);
    writer.SignedLong(header.biClrUsed).SignedLong(header.biClrImportant);
    return writer.Take();
}

} // namespace ob
