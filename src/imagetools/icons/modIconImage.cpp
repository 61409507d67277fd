// SPDX-License-Identifier: GPL-3.0-or-later
// One image of an icon: a bitmap without file header whose height counts the mask too, or a PNG file.
#include "imagetools/icons/modIconImage.h"

#include "imaging/cByteReader.h"
#include "imaging/cByteWriter.h"
#include "imaging/modBitmapFile.h"
#include "imaging/modBitmapHeaders.h"
#include "platform/files/modByteViews.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <variant>

namespace ob {

namespace {

// The first chunk with its length, with which a PNG file always starts.
constexpr std::array<std::uint8_t, 16> PngStart = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                   0,    0,   0,   13,  'I',  'H',  'D',  'R'};
constexpr std::size_t PngHeaderEnd = 29;
// No picture of a thousand points a side needs that many.
constexpr std::uint64_t MostPngBytes = 64U << 20;

static_assert(IconHeadBytes >= InfoHeaderSize && IconHeadBytes >= PngHeaderEnd);

// The places of the parts of a bitmap, from its first byte.
struct IconParts {
    IconImageSize size;
    std::size_t colors = 0;
    std::size_t colorLine = 0;
    std::size_t mask = 0;
    std::size_t maskLine = 0;

    std::size_t End() const { return mask + maskLine * static_cast<std::size_t>(size.height); }
};

bool IsSide(std::int64_t side)
{
    return side >= 1 && side <= MostIconSide;
}

std::size_t LineBytes(int width, int bits)
{
    return static_cast<std::size_t>((width * bits + 31) / 32 * 4);
}

std::optional<IconParts> IconPartsOf(ByteView bytes)
{
    constexpr std::uint32_t largestHeader = 4096;
    if (bytes.size() < InfoHeaderSize)
        return {};
    const BitmapInfoHeader header = ReadInfoHeader(bytes);
    const auto headerSize = static_cast<std::uint32_t>(header.biSize);
    if (headerSize < InfoHeaderSize || headerSize > largestHeader || header.biCompression != 0)
        return {};
    constexpr std::array<int, 6> depths = {1, 4, 8, 16, 24, 32};
    const int bits = header.biBitCount;
    if (!IsSide(header.biWidth) || !IsSide(header.biHeight / 2) || std::ranges::count(depths, bits) == 0)
        return {};
    const auto colorsUsed = static_cast<std::uint32_t>(header.biClrUsed);
    const std::uint32_t most = bits <= 8 ? 1U << bits : 256;
    if (colorsUsed > most)
        return {};

    IconParts parts;
    parts.size = {header.biWidth, header.biHeight / 2, bits};
    const auto height = static_cast<std::size_t>(parts.size.height);
    const std::uint32_t tableEntries = colorsUsed == 0 && bits <= 8 ? most : colorsUsed;
    parts.colors = headerSize + std::size_t{tableEntries} * 4;
    parts.colorLine = LineBytes(parts.size.width, bits);
    parts.mask = parts.colors + parts.colorLine * height;
    parts.maskLine = LineBytes(parts.size.width, 1);
    return parts;
}

bool IsPng(ByteView bytes)
{
    return bytes.size() >= PngStart.size() && std::equal(PngStart.begin(), PngStart.end(), bytes.begin());
}

std::optional<IconImageSize> PngSize(ByteView bytes)
{
    constexpr std::array<int, 7> channelsOfKind = {1, 0, 3, 1, 2, 0, 4};
    if (bytes.size() < PngHeaderEnd)
        return {};
    cByteReader header(bytes.subspan(PngStart.size()));
    const auto width = header.Next<std::uint32_t, std::endian::big>();
    const auto height = header.Next<std::uint32_t, std::endian::big>();
    const auto depth = std::min<std::uint8_t>(header.Next<std::uint8_t>(), 16);
    const auto kind = header.Next<std::uint8_t>();
    const int bits = kind < channelsOfKind.size() ? depth * channelsOfKind[kind] : 0;
    if (!IsSide(width) || !IsSide(height) || bits == 0)
        return {};
    return IconImageSize{static_cast<int>(width), static_cast<int>(height), bits};
}

IconImage EmptyImage(const IconImageSize& size)
{
    IconImage image{size.width, size.height, size.bits, {}, {}, {}};
    const auto count = static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
    image.colors.resize(count);
    image.mask.resize(count);
    return image;
}

std::optional<IconImage> ReadPng(ByteView bytes, const IconImageSize& size)
{
    const QImage decoded = QImage::fromData(QtViewOf(bytes), "PNG").convertToFormat(QImage::Format_ARGB32);
    if (decoded.width() != size.width || decoded.height() != size.height)
        return {};
    IconImage image = EmptyImage(size);
    image.alpha.resize(image.colors.size());
    std::size_t place = 0;
    for (int y = 0; y < size.height; ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(decoded.constScanLine(y));
        for (int x = 0; x < size.width; ++x, ++place) {
            image.colors[place] = Rgb(static_cast<unsigned>(qRed(line[x])), static_cast<unsigned>(qGreen(line[x])),
                                      static_cast<unsigned>(qBlue(line[x])));
            image.alpha[place] = static_cast<std::uint8_t>(qAlpha(line[x]));
        }
    }
    return image;
}

// The colours are a bitmap of their own, whose header says nothing of the mask.
std::optional<cDIBSection> ReadColors(ByteView bytes, const IconParts& parts)
{
    BitmapInfoHeader header = ReadInfoHeader(bytes);
    header.biHeight = parts.size.height;
    cByteWriter info;
    info.Bytes(BytesOf(header)).Bytes(bytes.subspan(InfoHeaderSize, parts.colors - InfoHeaderSize));
    auto read = ReadBitmap({info.View(), bytes.subspan(parts.colors, parts.mask - parts.colors)});
    auto* picture = std::get_if<cDIBSection>(&read);
    return picture == nullptr ? std::nullopt : std::optional(std::move(*picture));
}

void TakeAlpha(IconImage& image, ByteView bytes, const IconParts& parts)
{
    constexpr std::size_t alphaInPixel = 3;
    image.alpha.resize(image.colors.size());
    std::size_t place = 0;
    for (int y = image.height - 1; y >= 0; --y) {
        const std::size_t line = parts.colors + parts.colorLine * static_cast<std::size_t>(y);
        for (int x = 0; x < image.width; ++x, ++place)
            image.alpha[place] = bytes[line + static_cast<std::size_t>(x) * 4 + alphaInPixel];
    }
    if (std::ranges::count(image.alpha, 0) == std::ssize(image.alpha))
        image.alpha.clear();
}

std::optional<IconImage> ReadIconBitmap(ByteView bytes, const IconParts& parts)
{
    const std::optional<cDIBSection> picture = ReadColors(bytes, parts);
    if (!picture)
        return {};
    IconImage image = EmptyImage(parts.size);
    std::size_t place = 0;
    for (int y = image.height - 1; y >= 0; --y) {
        const std::uint8_t* pixel = picture->Line(y);
        const ByteView maskLine = bytes.subspan(parts.mask + parts.maskLine * static_cast<std::size_t>(y));
        for (int x = 0; x < image.width; ++x, ++place, pixel += 3) {
            image.colors[place] = Rgb(pixel[2], pixel[1], pixel[0]);
            image.mask[place] = maskLine[static_cast<std::size_t>(x / 8)] >> (7 - x % 8) & 1;
        }
    }
    if (parts.size.bits == 32)
        TakeAlpha(image, bytes, parts);
    return image;
}

ColorRef Blend(ColorRef background, ColorRef color, unsigned alpha)
{
    ColorRef blended = 0;
    for (int shift = 0; shift < 24; shift += 8) {
        const unsigned over = color >> shift & 255;
        const unsigned under = background >> shift & 255;
        blended |= (over * alpha + under * (255 - alpha) + 127) / 255 << shift;
    }
    return blended;
}

} // namespace

std::optional<IconImageSize> ReadIconImageSize(ByteView bytes)
{
    return ReadIconImageSize(bytes, bytes.size());
}

std::optional<IconImageSize> ReadIconImageSize(ByteView head, std::uint64_t byteCount)
{
    if (IsPng(head))
        return PngSize(head);
    const std::optional<IconParts> parts = IconPartsOf(head);
    return parts && parts->End() <= byteCount ? std::optional(parts->size) : std::nullopt;
}

std::uint64_t IconImageBytes(ByteView head)
{
    if (IsPng(head))
        return MostPngBytes;
    const std::optional<IconParts> parts = IconPartsOf(head);
    return parts ? parts->End() : 0;
}

std::optional<IconImage> ReadIconImage(ByteView bytes)
{
    if (IsPng(bytes)) {
        const std::optional<IconImageSize> size = PngSize(bytes);
        return size ? ReadPng(bytes, *size) : std::nullopt;
    }
    const std::optional<IconParts> parts = IconPartsOf(bytes);
    return parts && parts->End() <= bytes.size() ? ReadIconBitmap(bytes, *parts) : std::nullopt;
}

void DrawIcon(Icon& target, const IconImage& image)
{
    if (image.width < 1 || image.height < 1)
        return;
    for (int y = 0; y < IconSide; ++y) {
        for (int x = 0; x < IconSide; ++x) {
            const auto place =
                static_cast<std::size_t>(y * image.height / IconSide * image.width + x * image.width / IconSide);
            ColorRef& pixel = target.At(x, y);
            const ColorRef color = image.colors[place];
            if (!image.alpha.empty())
                pixel = Blend(pixel, color, image.alpha[place]);
            else
                pixel = (image.mask[place] != 0 ? pixel : 0) ^ color;
        }
    }
}

} // namespace ob
