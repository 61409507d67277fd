// SPDX-License-Identifier: GPL-3.0-or-later
// Bitmaps within the records of metafiles.
#include "imagetools/metafiles/modMetafileDib.h"

#include "imagetools/images/modImage.h"
#include "imagetools/metafiles/cMetafileRecord.h"
#include "imaging/modBitmapFile.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace ob {

namespace {

constexpr std::uint32_t OldHeaderSize = 12;
constexpr std::uint32_t HeaderSize = 40;

struct DibHeader {
    std::uint32_t size = 0;
    std::int64_t width = 0;
    std::int64_t height = 0;
    int bits = 0;
    std::uint32_t compression = 0;
    std::uint32_t colors = 0;
};

DibHeader HeaderOf(QByteArrayView info)
{
    cMetafileRecord record(info);
    DibHeader header;
    header.size = record.UInt32();
    if (header.size == OldHeaderSize) {
        header.width = record.UInt16();
        header.height = record.UInt16();
        record.Skip(2);
        header.bits = record.UInt16();
    } else if (header.size >= HeaderSize) {
        header.width = record.Int32();
        header.height = record.Int32();
        record.Skip(2);
        header.bits = record.UInt16();
        header.compression = record.UInt32();
        record.Skip(12);
        header.colors = record.UInt32();
    }
    return record.IsShort() ? DibHeader() : header;
}

std::uint64_t TableBytes(const DibHeader& header)
{
    const std::uint64_t all = header.bits >= 1 && header.bits <= 8 ? std::uint64_t{1} << header.bits : 0;
    if (header.size == OldHeaderSize)
        return all * 3;
    const std::uint64_t masks = header.size == HeaderSize && header.compression == 3 ? 12 : 0;
    return masks + (header.colors == 0 ? all : std::uint64_t{header.colors}) * 4;
}

QImage ImageOfFile(QByteArrayView file, const DibHeader& header)
{
    QByteArray content = QByteArray::fromRawData(file.data(), file.size());
    QBuffer buffer(&content);
    QImageReader reader(&buffer);
    // The cost of a file larger than its header says would not be counted.
    const QSize size = reader.size();
    if (size.width() > header.width || size.height() > std::abs(header.height))
        return {};
    return reader.read().convertToFormat(QImage::Format_RGB32);
}

QImage ImageWithAlpha(QByteArrayView pixels, const DibHeader& header)
{
    const auto width = static_cast<int>(header.width);
    const auto height = static_cast<int>(std::abs(header.height));
    if (pixels.size() / 4 / width < height)
        return {};
    const QImage lines(reinterpret_cast<const uchar*>(pixels.data()), width, height, qsizetype{width} * 4,
                       QImage::Format_ARGB32_Premultiplied);
    return header.height < 0 ? lines.copy() : lines.mirrored();
}

} // namespace

DibSize SizeOfDib(QByteArrayView info)
{
    constexpr std::int64_t mostSide = 1 << 20;
    const DibHeader header = HeaderOf(info);
    const std::uint64_t offset = header.size + TableBytes(header);
    if (header.width < 1 || header.width > mostSide || header.height == 0 || std::abs(header.height) > mostSide ||
        offset > static_cast<std::uint64_t>(info.size()))
        return {};
    return {static_cast<int>(header.width), static_cast<int>(std::abs(header.height)), header.height < 0,
            static_cast<qsizetype>(offset)};
}

QRectF FromBottom(const QRectF& part, const DibSize& size)
{
    return size.isTopDown ? part : QRectF(QPointF(part.left(), size.height - part.top() - part.height()), part.size());
}

QImage ImageOfDib(QByteArrayView info, QByteArrayView pixels, DibAlpha alpha)
{
    constexpr std::uint32_t jpegFile = 4;
    constexpr std::uint32_t pngFile = 5;
    if (SizeOfDib(info).width == 0)
        return {};
    const DibHeader header = HeaderOf(info);
    if (header.size != OldHeaderSize && (header.compression == jpegFile || header.compression == pngFile))
        return ImageOfFile(pixels, header);
    if (alpha == DibAlpha::Used && header.bits == 32)
        return ImageWithAlpha(pixels, header);
    const auto read = ReadBitmap({ByteViewOf(info), ByteViewOf(pixels)});
    const auto* picture = std::get_if<cDIBSection>(&read);
    return picture == nullptr ? QImage() : ImageOf(*picture);
}

QImage ImageOfPackedDib(QByteArrayView dib)
{
    const DibSize size = SizeOfDib(dib);
    return size.width == 0 ? QImage() : ImageOfDib(dib.first(size.pixelOffset), dib.sliced(size.pixelOffset));
}

QImage ImageOfDeviceBitmap(QByteArrayView bitmap, QRgb zero, QRgb one)
{
    cMetafileRecord record(bitmap);
    record.Skip(2);
    const int width = record.Int16();
    const int height = record.Int16();
    const int lineBytes = record.Int16();
    const int planes = record.UInt8();
    const int bits = record.UInt8();
    const QByteArrayView lines = record.Rest();
    if (record.IsShort() || width < 1 || height < 1 || planes != 1 || bits != 1 || lineBytes < (width + 7) / 8 ||
        lines.size() / lineBytes < height)
        return {};
    const QImage image(reinterpret_cast<const uchar*>(lines.data()), width, height, lineBytes, QImage::Format_Mono);
    QImage copy = image.copy();
    copy.setColorTable({zero, one});
    return copy.convertToFormat(QImage::Format_RGB32);
}

} // namespace ob
