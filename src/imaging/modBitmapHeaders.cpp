// SPDX-License-Identifier: GPL-3.0-or-later
// The two headers of a bitmap file, and their bytes.
#include "imaging/modBitmapHeaders.h"

namespace ob {

namespace {

class Writer {
public:
    explicit Writer(std::uint8_t* target) : next(target) {}

    void Word(std::int16_t value) { Put(static_cast<std::uint16_t>(value), 2); }
    void Long(std::int32_t value) { Put(static_cast<std::uint32_t>(value), 4); }

private:
    void Put(std::uint32_t value, int count)
    {
        for (int index = 0; index < count; ++index)
            *next++ = static_cast<std::uint8_t>(value >> (8 * index));
    }

    std::uint8_t* next;
};

} // namespace

BitmapFileHeader ReadFileHeader(std::span<const std::uint8_t> bytes)
{
    const cByteReader reader(bytes);
    return {reader.SignedWord(0), reader.SignedLong(2), reader.SignedWord(6), reader.SignedWord(8),
            reader.SignedLong(10)};
}

BitmapInfoHeader ReadInfoHeader(std::span<const std::uint8_t> bytes)
{
    const cByteReader reader(bytes);
    return {reader.SignedLong(0),  reader.SignedLong(4),  reader.SignedLong(8),  reader.SignedWord(12),
            reader.SignedWord(14), reader.SignedLong(16), reader.SignedLong(20), reader.SignedLong(24),
            reader.SignedLong(28), reader.SignedLong(32), reader.SignedLong(36)};
}

std::array<std::uint8_t, FileHeaderSize> BytesOf(const BitmapFileHeader& header)
{
    std::array<std::uint8_t, FileHeaderSize> bytes;
    Writer writer(bytes.data());
    writer.Word(header.bfType);
    writer.Long(header.bfSize);
    writer.Word(header.bfReserved1);
    writer.Word(header.bfReserved2);
    writer.Long(header.bfOffBits);
    return bytes;
}

std::array<std::uint8_t, InfoHeaderSize> BytesOf(const BitmapInfoHeader& header)
{
    std::array<std::uint8_t, InfoHeaderSize> bytes;
    Writer writer(bytes.data());
    writer.Long(header.biSize);
    writer.Long(header.biWidth);
    writer.Long(header.biHeight);
    writer.Word(header.biPlanes);
    writer.Word(header.biBitCount);
    writer.Long(header.biCompression);
    writer.Long(header.biSizeImage);
    writer.Long(header.biXPelsPerMeter);
    writer.Long(header.biYPelsPerMeter);
    writer.Long(header.biClrUsed);
    writer.Long(header.biClrImportant);
    return bytes;
}

} // namespace ob
