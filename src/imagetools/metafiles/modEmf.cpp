// SPDX-License-Identifier: GPL-3.0-or-later
// Metafiles of 32-bit records: their header and their size.
#include "imagetools/metafiles/modEmf.h"

#include "imagetools/metafiles/cEmfPlayer.h"
#include "imagetools/metafiles/modMetafileSize.h"

#include <algorithm>

namespace ob {

namespace {

constexpr std::uint32_t HeaderKind = 1;
constexpr std::uint32_t Signature = 0x464D4520;
constexpr qsizetype HeaderBytes = 88;
constexpr double FrameUnitsPerInch = 2540;
constexpr double FrameUnitsPerMillimetre = 100;
constexpr double DotsPerInch = 96;

QRectF BoxOf(cMetafileRecord& record)
{
    const double left = record.Int32();
    const double top = record.Int32();
    const double right = record.Int32();
    const double bottom = record.Int32();
    return QRectF(QPointF(left, top), QPointF(right, bottom)).normalized();
}

struct EmfFrame {
    QRectF device; // the part of the device that the picture shows
    QPointF pixelsPerMillimetre;
    QSizeF size; // in pixels
};

std::optional<EmfFrame> FrameOf(QByteArrayView file)
{
    cMetafileRecord header(file);
    header.Skip(8);
    const QRectF bounds = BoxOf(header);
    const QRectF frame = BoxOf(header);
    header.Skip(32);
    const double across = header.Int32();
    const double down = header.Int32();
    const double acrossMillimetres = header.Int32();
    const double downMillimetres = header.Int32();
    EmfFrame result;
    result.pixelsPerMillimetre = {DotsPerInch / 25.4, DotsPerInch / 25.4};
    if (across > 0 && down > 0 && acrossMillimetres > 0 && downMillimetres > 0)
        result.pixelsPerMillimetre = {across / acrossMillimetres, down / downMillimetres};
    if (frame.isEmpty()) {
        if (bounds.isEmpty())
            return std::nullopt;
        // The bounds include their last line and column.
        result.device = bounds.adjusted(0, 0, 1, 1);
        result.size = result.device.size();
        return result;
    }
    const QPointF unit = result.pixelsPerMillimetre / FrameUnitsPerMillimetre;
    result.device = QRectF(QPointF(frame.left() * unit.x(), frame.top() * unit.y()),
                           QPointF(frame.right() * unit.x(), frame.bottom() * unit.y()));
    result.size = frame.size() * (DotsPerInch / FrameUnitsPerInch);
    return result;
}

} // namespace

bool IsEmf(QByteArrayView bytes)
{
    cMetafileRecord header(bytes);
    const std::uint32_t kind = header.UInt32();
    header.Skip(36);
    return kind == HeaderKind && header.UInt32() == Signature && bytes.size() >= HeaderBytes;
}

std::variant<QImage, MetafileError> PlayEmf(QByteArrayView bytes)
{
    if (!IsEmf(bytes))
        return MetafileError::NotAMetafile;
    const auto frame = FrameOf(bytes);
    if (!frame)
        return MetafileError::Damaged;
    QImage picture = EmptyMetafilePicture(frame->size);
    if (picture.isNull())
        return MetafileError::NoMemory;
    {
        cMetafileCanvas canvas(&picture, LastPixels::Drawn);
        QTransform toPicture =
            QTransform::fromScale(picture.width() / frame->device.width(), picture.height() / frame->device.height());
        toPicture.translate(-frame->device.left(), -frame->device.top());
        canvas.SetDevice(toPicture, frame->pixelsPerMillimetre);
        if (const auto error = cEmfPlayer(canvas).Play(bytes))
            return *error;
    }
    return picture;
}

} // namespace ob
