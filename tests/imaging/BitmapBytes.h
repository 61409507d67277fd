// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the bytes of bitmap files for tests.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <vector>

struct BitmapBytes {
    std::vector<std::uint8_t> bytes;

    BitmapBytes& Put(std::int64_t value, int count)
    {
        for (int index = 0; index < count; ++index)
            bytes.push_back(
                static_cast<std::uint8_t>(index < 8 ? static_cast<std::uint64_t>(value) >> (8 * index) : 0));
        return *this;
    }
    BitmapBytes& Bytes(std::initializer_list<int> values)
    {
        for (const int value : values)
            Put(value, 1);
        return *this;
    }
    BitmapBytes& Colors(std::initializer_list<std::uint32_t> colors) // red in the third byte
    {
        for (const std::uint32_t color : colors)
            Put(color, 4);
        return *this;
    }
    BitmapBytes& FileHeader(std::int64_t offset, std::int64_t size = 0)
    {
        return Put(19778, 2).Put(size, 4).Put(0, 4).Put(offset, 4);
    }
    BitmapBytes& InfoHeader(std::int64_t width, std::int64_t height, int bits, int compression = 0,
                            std::int64_t sizeImage = 0, int colorsUsed = 0, int headerSize = 40)
    {
        Put(headerSize, 4).Put(width, 4).Put(height, 4).Put(1, 2).Put(bits, 2).Put(compression, 4);
        return Put(sizeImage, 4).Put(2835, 4).Put(2836, 4).Put(colorsUsed, 4).Put(7, 4);
    }
};
