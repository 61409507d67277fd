// SPDX-License-Identifier: GPL-3.0-or-later
// Metafiles of 16-bit records: their headers and their size.
#include "imagetools/metafiles/modWmf.h"

#include "imagetools/metafiles/cWmfPlayer.h"
#include "imagetools/metafiles/modMetafileSize.h"

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

constexpr std::uint32_t PlaceableKey = 0x9AC6CDD7;
constexpr qsizetype PlaceableBytes = 22;
constexpr qsizetype HeaderBytes = 18;
constexpr double DotsPerInch = 96;
constexpr double LongestUnknownSide = 1024;

bool IsHeader(QByteArrayView bytes)
{
    cMetafileRecord header(bytes);
    const int kind = header.UInt16();
    const int words = header.UInt16();
    const int version = header.UInt16();
    return bytes.size() >= HeaderBytes && (kind == 1 || kind == 2) && words == HeaderBytes / 2 &&
           (version == 0x100 || version == 0x300);
}

bool IsPlaceable(QByteArrayView bytes)
{
    return cMetafileRecord(bytes).UInt32() == PlaceableKey && bytes.size() > PlaceableBytes;
}

struct WmfFrame {
    QRectF window; // logical; its sides may be below 0
    QSizeF size;   // in pixels
};

// Nothing when the header has no size.
std::optional<WmfFrame> FrameOfHeader(QByteArrayView bytes)
{
    cMetafileRecord header(bytes);
    header.Skip(6);
    const double left = header.Int16();
    const double top = header.Int16();
    const double right = header.Int16();
    const double bottom = header.Int16();
    const int inch = header.UInt16();
    if (right == left || bottom == top)
        return std::nullopt;
    const double scale = DotsPerInch / (inch == 0 ? 1440 : inch);
    return WmfFrame{{QPointF(left, top), QPointF(right, bottom)},
                    {std::abs(right - left) * scale, std::abs(bottom - top) * scale}};
}

std::optional<WmfFrame> FrameOfRecords(QByteArrayView records)
{
    QRectF window = cWmfPlayer::FirstWindow(records);
    if (window.width() == 0) {
        cMetafileCanvas measure(nullptr, LastPixels::LeftOut);
        measure.SetMapMode(static_cast<int>(MapMode::Anisotropic));
        if (cWmfPlayer(measure).Play(records) || measure.Extent().isEmpty())
            return std::nullopt;
        window = measure.Extent();
    }
    QSizeF size(std::abs(window.width()), std::abs(window.height()));
    const double longest = std::max(size.width(), size.height());
    if (longest > LongestUnknownSide)
        size *= LongestUnknownSide / longest;
    return WmfFrame{window, size};
}

} // namespace

bool IsWmf(QByteArrayView bytes)
{
    return IsPlaceable(bytes) || IsHeader(bytes);
}

std::variant<QImage, MetafileError> PlayWmf(QByteArrayView bytes)
{
    const bool isPlaceable = IsPlaceable(bytes);
    const QByteArrayView plain = isPlaceable ? bytes.sliced(PlaceableBytes) : bytes;
    if (!IsHeader(plain))
        return MetafileError::NotAMetafile;
    const QByteArrayView records = plain.sliced(HeaderBytes);
    std::optional<WmfFrame> frame;
    if (isPlaceable)
        frame = FrameOfHeader(bytes);
    if (!frame)
        frame = FrameOfRecords(records);
    if (!frame)
        return MetafileError::Damaged;
    QImage picture = EmptyMetafilePicture(frame->size);
    if (picture.isNull())
        return MetafileError::NoMemory;
    {
        cMetafileCanvas canvas(&picture, LastPixels::LeftOut);
        MetafileMapping mapping;
        mapping.mode = MapMode::Anisotropic;
        mapping.windowOrigin = frame->window.topLeft();
        mapping.windowExtent = {frame->window.width(), frame->window.height()};
        mapping.viewportExtent = QPointF(picture.width(), picture.height());
        canvas.SetMapping(mapping);
        if (const auto error = cWmfPlayer(canvas).Play(records))
            return *error;
    }
    return picture;
}

} // namespace ob
