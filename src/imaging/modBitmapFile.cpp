// SPDX-License-Identifier: GPL-3.0-or-later
// Reads bitmap files as pictures.
#include "imaging/modBitmapFile.h"

#include "imaging/modBitmapLayout.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <vector>

namespace ob {

namespace {

using Color = std::array<std::uint8_t, 3>;

std::uint8_t* TargetLine(cDIBSection& picture, const BitmapLayout& layout, std::int64_t line)
{
    return picture.Line(layout.topDown ? layout.height - 1 - line : line);
}

// One channel of a pixel with masks, widened to 8 bits by repeating its bits.
class Channel {
public:
    explicit Channel(std::uint32_t channelMask)
        : mask(channelMask), shift(channelMask == 0 ? 0 : std::countr_zero(channelMask)),
          width(static_cast<int>(std::bit_width(channelMask >> shift)))
    {
    }

    std::uint8_t Of(std::uint32_t pixel) const
    {
        const std::uint32_t value = (pixel & mask) >> shift;
        if (width >= 8)
            return static_cast<std::uint8_t>(value >> (width - 8));
        if (width == 0)
            return 0;
        std::uint32_t widened = value;
        int have = width;
        for (; have < 8; have += width)
            widened = widened << width | value;
        return static_cast<std::uint8_t>(widened >> (have - 8));
    }

private:
    std::uint32_t mask;
    int shift;
    int width;
};

class LineDecoder {
public:
    explicit LineDecoder(const BitmapLayout& bitmap)
        : layout(bitmap), channels{Channel(bitmap.masks[0]), Channel(bitmap.masks[1]), Channel(bitmap.masks[2])},
          hasPlainBytes(bitmap.bits == 32 && bitmap.masks[0] == 0xFF && bitmap.masks[1] == 0xFF00 &&
                        bitmap.masks[2] == 0xFF0000)
    {
        for (std::size_t index = 0; index < wideColors.size(); ++index)
            std::copy(bitmap.colors[index].begin(), bitmap.colors[index].end(), wideColors[index].begin());
    }

    void Decode(const std::uint8_t* source, std::uint8_t* target) const
    {
        switch (layout.packing) {
        case BitmapPacking::TrueColor:
            std::memcpy(target, source, static_cast<std::size_t>(layout.width) * 3);
            return;
        case BitmapPacking::Masks:
            if (hasPlainBytes)
                DecodePlainBytes(source, target);
            else
                DecodeMasks(source, target);
            return;
        case BitmapPacking::Indexed:
        case BitmapPacking::RunLengths:
            if (layout.bits == 8)
                DecodeIndices<8>(source, target);
            else if (layout.bits == 4)
                DecodeIndices<4>(source, target);
            else
                DecodeIndices<1>(source, target);
            return;
        }
    }

private:
    void DecodePlainBytes(const std::uint8_t* source, std::uint8_t* target) const
    {
        for (std::int32_t x = 0; x < layout.width; ++x, source += 4, target += 3) {
            target[0] = source[0];
            target[1] = source[1];
            target[2] = source[2];
        }
    }

    void DecodeMasks(const std::uint8_t* source, std::uint8_t* target) const
    {
        const int byteCount = layout.bits / 8;
        for (std::int32_t x = 0; x < layout.width; ++x, source += byteCount, target += 3) {
            std::uint32_t pixel = 0;
            for (int index = 0; index < byteCount; ++index)
                pixel |= static_cast<std::uint32_t>(source[index]) << (8 * index);
            for (std::size_t channel = 0; channel < 3; ++channel)
                target[channel] = channels[channel].Of(pixel);
        }
    }

    template <int Bits>
    void DecodeIndices(const std::uint8_t* source, std::uint8_t* target) const
    {
        constexpr int perByte = 8 / Bits;
        constexpr unsigned mask = (1U << Bits) - 1;
        // Copies, as the compiler must reckon with a target that overlaps this object.
        const WideColor* const colors = wideColors.data();
        const std::int32_t last = layout.width - 1;
        const auto colorAt = [=](std::int32_t x) {
            const int shift = 8 - Bits * (x % perByte + 1);
            return colors[source[x / perByte] >> shift & mask].data();
        };
        // The next pixel overwrites the fourth byte.
        for (std::int32_t x = 0; x < last; ++x, target += 3)
            std::memcpy(target, colorAt(x), sizeof(WideColor));
        if (last >= 0)
            std::memcpy(target, colorAt(last), 3);
    }

    // A colour of the table and a byte more: one load and one store.
    using WideColor = std::array<std::uint8_t, 4>;

    const BitmapLayout& layout;
    std::array<Channel, 3> channels;
    bool hasPlainBytes;
    std::array<WideColor, 256> wideColors = {};
};

void DecodeLines(const BitmapLayout& layout, cDIBSection& picture)
{
    const LineDecoder decoder(layout);
    const auto lineBytes = static_cast<std::size_t>(layout.LineBytes());
    std::vector<std::uint8_t> padded;
    for (std::int64_t line = 0; line < layout.height; ++line) {
        const std::size_t offset = static_cast<std::size_t>(line) * lineBytes;
        if (offset + lineBytes <= layout.pixels.size()) {
            decoder.Decode(layout.pixels.data() + offset, TargetLine(picture, layout, line));
            continue;
        }
        const bool isZeros = offset >= layout.pixels.size();
        // The picture starts black, and its memory is not allocated until it is touched.
        if (isZeros && (layout.packing != BitmapPacking::Indexed || layout.colors[0] == Color{}))
            return;
        padded.assign(lineBytes, 0);
        if (!isZeros) {
            const ByteView rest = layout.pixels.subspan(offset);
            std::copy(rest.begin(), rest.end(), padded.begin());
        }
        decoder.Decode(padded.data(), TargetLine(picture, layout, line));
    }
}

// Runs of equal pixels, sequences of single ones, and jumps; what is outside the picture is skipped.
class RunDecoder {
public:
    RunDecoder(const BitmapLayout& bitmap, cDIBSection& target) : layout(bitmap), picture(target) {}

    void Decode()
    {
        while (position + 2 <= layout.pixels.size() && y < layout.height) {
            const std::uint8_t first = layout.pixels[position];
            const std::uint8_t second = layout.pixels[position + 1];
            position += 2;
            if (first > 0) {
                for (int index = 0; index < first; ++index)
                    Put(IndexIn(second, index));
            } else if (second == 0) {
                x = 0;
                ++y;
            } else if (second == 1) {
                return;
            } else if (second == 2) {
                Jump();
            } else {
                PutSingles(second);
            }
        }
    }

private:
    // A byte contains one index, or two that alternate.
    std::uint8_t IndexIn(std::uint8_t byte, int place) const
    {
        if (layout.bits == 8)
            return byte;
        return place % 2 == 0 ? static_cast<std::uint8_t>(byte >> 4) : static_cast<std::uint8_t>(byte & 15);
    }

    void Put(std::uint8_t index)
    {
        if (x < layout.width) {
            const Color& color = layout.colors[index];
            std::copy(color.begin(), color.end(), TargetLine(picture, layout, y) + x * 3);
            ++x;
        }
    }

    void Jump()
    {
        if (position + 2 <= layout.pixels.size()) {
            x += layout.pixels[position];
            y += layout.pixels[position + 1];
        }
        position += 2;
    }

    void PutSingles(int count)
    {
        const std::size_t byteCount = static_cast<std::size_t>(layout.bits == 8 ? count : (count + 1) / 2);
        for (int index = 0; index < count; ++index) {
            const std::size_t offset = position + static_cast<std::size_t>(layout.bits == 8 ? index : index / 2);
            if (offset < layout.pixels.size())
                Put(IndexIn(layout.pixels[offset], index));
        }
        position += byteCount + byteCount % 2;
    }

    const BitmapLayout& layout;
    cDIBSection& picture;
    std::size_t position = 0;
    std::int64_t x = 0;
    std::int64_t y = 0;
};

void Fill(cDIBSection& picture, const Color& color)
{
    if (color == Color{})
        return;
    for (std::int32_t y = 0; y < picture.Height(); ++y) {
        std::uint8_t* pixel = picture.Line(y);
        for (std::int32_t x = 0; x < picture.Width(); ++x, pixel += 3)
            std::copy(color.begin(), color.end(), pixel);
    }
}

std::variant<cDIBSection, BitmapError> PictureOf(const std::variant<BitmapLayout, BitmapError>& read)
{
    if (const auto* error = std::get_if<BitmapError>(&read))
        return *error;
    const auto& layout = std::get<BitmapLayout>(read);
    cDIBSection picture;
    if (!picture.Create(layout.width, layout.height))
        return BitmapError::NoMemory;
    if (layout.packing == BitmapPacking::RunLengths) {
        Fill(picture, layout.colors[0]);
        RunDecoder(layout, picture).Decode();
    } else {
        DecodeLines(layout, picture);
    }
    return picture;
}

} // namespace

std::variant<cDIBSection, BitmapError> ReadBitmap(ByteView file)
{
    return PictureOf(ReadBitmapLayout(file));
}

std::variant<cDIBSection, BitmapError> ReadBitmap(const BitmapParts& parts)
{
    return PictureOf(ReadBitmapLayout(parts));
}

} // namespace ob
