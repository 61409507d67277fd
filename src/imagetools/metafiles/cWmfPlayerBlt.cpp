// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the records of a .wmf file: regions, pictures, text.
#include "imagetools/metafiles/cWmfPlayer.h"

#include "imagetools/metafiles/modMetafileDib.h"

namespace ob {

// --- Regions and clipping. ------------------------------------------------------------------------------------------

void cWmfPlayer::FillRegion(cMetafileRecord& record)
{
    const MetafileObject* region = Object(record.UInt16());
    const MetafileObject* brush = Object(record.UInt16());
    if (region != nullptr && brush != nullptr && std::holds_alternative<MetafileRegion>(*region) &&
        std::holds_alternative<MetafileBrush>(*brush))
        canvas.FillRegion(std::get<MetafileRegion>(*region), std::get<MetafileBrush>(*brush));
}

void cWmfPlayer::FrameRegion(cMetafileRecord& record)
{
    const MetafileObject* region = Object(record.UInt16());
    const MetafileObject* brush = Object(record.UInt16());
    const QPointF thickness = PointBackwards(record);
    if (region != nullptr && brush != nullptr && std::holds_alternative<MetafileRegion>(*region) &&
        std::holds_alternative<MetafileBrush>(*brush) && !record.IsShort())
        canvas.FrameRegion(std::get<MetafileRegion>(*region), std::get<MetafileBrush>(*brush), thickness);
}

void cWmfPlayer::InvertRegion(cMetafileRecord& record)
{
    const MetafileObject* region = Object(record.UInt16());
    if (region != nullptr && std::holds_alternative<MetafileRegion>(*region))
        canvas.InvertRegion(std::get<MetafileRegion>(*region));
}

void cWmfPlayer::PaintRegion(cMetafileRecord& record)
{
    const MetafileObject* region = Object(record.UInt16());
    if (region != nullptr && std::holds_alternative<MetafileRegion>(*region))
        canvas.FillRegion(std::get<MetafileRegion>(*region), canvas.State().brush);
}

void cWmfPlayer::SelectClipRegion(cMetafileRecord& record)
{
    const MetafileObject* region = Object(record.UInt16());
    if (region != nullptr && std::holds_alternative<MetafileRegion>(*region))
        canvas.ClipToRegion(std::get<MetafileRegion>(*region), ClipMode::Copy);
    else
        canvas.ResetClip();
}

void cWmfPlayer::OffsetClip(cMetafileRecord& record)
{
    canvas.OffsetClip(PointBackwards(record));
}

void cWmfPlayer::ExcludeClip(cMetafileRecord& record)
{
    const QRectF box = BoxBackwards(record);
    if (!record.IsShort())
        canvas.ExcludeClip(box);
}

void cWmfPlayer::IntersectClip(cMetafileRecord& record)
{
    const QRectF box = BoxBackwards(record);
    if (!record.IsShort())
        canvas.IntersectClip(box);
}

// --- Pictures. ------------------------------------------------------------------------------------------------------

void cWmfPlayer::PatternBlt(cMetafileRecord& record)
{
    const std::uint32_t operation = record.UInt32();
    const QSizeF size = SizeBackwards(record);
    const QPointF place = PointBackwards(record);
    if (!record.IsShort())
        canvas.PatternBlt(QRectF(place, size), operation);
}

// A record with a picture, or one without, which has an unused word in the middle.
void cWmfPlayer::PlayBlt(cMetafileRecord& record, Stretch stretch, BltSource kind)
{
    const qsizetype withoutPicture = stretch == Stretch::Yes ? 22 : 18;
    const bool hasPicture = record.Size() > withoutPicture;
    MetafileBlt blt;
    blt.operation = record.UInt32();
    const QSizeF sourceSize = stretch == Stretch::Yes ? SizeBackwards(record) : QSizeF();
    const QPointF source = PointBackwards(record);
    if (!hasPicture)
        record.Skip(2);
    const QSizeF targetSize = SizeBackwards(record);
    blt.target = QRectF(PointBackwards(record), targetSize);
    blt.source = QRectF(source, stretch == Stretch::Yes ? sourceSize : targetSize);
    if (record.IsShort())
        return;
    if (!hasPicture) {
        canvas.PatternBlt(blt.target, blt.operation);
        return;
    }
    const QByteArrayView picture = record.Rest();
    blt.image = kind == BltSource::Dib
                    ? PayFor(picture)
                    : ImageOfDeviceBitmap(picture, canvas.State().textColor, canvas.State().backColor);
    canvas.Blt(blt);
}

void cWmfPlayer::DeviceBlt(cMetafileRecord& record)
{
    PlayBlt(record, Stretch::No, BltSource::Device);
}

void cWmfPlayer::DeviceStretchBlt(cMetafileRecord& record)
{
    PlayBlt(record, Stretch::Yes, BltSource::Device);
}

void cWmfPlayer::DibBlt(cMetafileRecord& record)
{
    PlayBlt(record, Stretch::No, BltSource::Dib);
}

void cWmfPlayer::DibStretchBlt(cMetafileRecord& record)
{
    PlayBlt(record, Stretch::Yes, BltSource::Dib);
}

void cWmfPlayer::StretchDib(cMetafileRecord& record)
{
    MetafileBlt blt;
    blt.operation = record.UInt32();
    const std::uint32_t usage = record.UInt16();
    const QSizeF sourceSize = SizeBackwards(record);
    const QPointF source = PointBackwards(record);
    const QSizeF targetSize = SizeBackwards(record);
    blt.target = QRectF(PointBackwards(record), targetSize);
    const QByteArrayView picture = record.Rest();
    if (record.IsShort() || usage == PaletteColors)
        return;
    blt.image = PayFor(picture);
    blt.source = FromBottom(QRectF(source, sourceSize), SizeOfDib(picture));
    canvas.Blt(blt);
}

void cWmfPlayer::DibToDevice(cMetafileRecord& record)
{
    const std::uint32_t usage = record.UInt16();
    record.Skip(4);
    const QPointF source = PointBackwards(record);
    const QSizeF size = SizeBackwards(record);
    MetafileBlt blt;
    blt.target = QRectF(PointBackwards(record), size);
    const QByteArrayView picture = record.Rest();
    if (record.IsShort() || usage == PaletteColors)
        return;
    blt.image = PayFor(picture);
    blt.source = FromBottom(QRectF(source, size), SizeOfDib(picture));
    canvas.Blt(blt);
}

// --- Text. ----------------------------------------------------------------------------------------------------------

void cWmfPlayer::TextOut(cMetafileRecord& record)
{
    const int length = record.Int16();
    const QByteArrayView bytes = record.Bytes(length);
    record.Skip(length % 2);
    MetafileText text;
    text.text = canvas.TextOfBytes(bytes);
    text.position = PointBackwards(record);
    if (!record.IsShort())
        canvas.Text(text);
}

void cWmfPlayer::ExtTextOut(cMetafileRecord& record)
{
    MetafileText text;
    text.position = PointBackwards(record);
    const int length = record.Int16();
    text.options = record.UInt16();
    if ((text.options & (MetafileText::Opaque | MetafileText::Clipped)) != 0) {
        const int left = record.Int16();
        const int top = record.Int16();
        const int right = record.Int16();
        const int bottom = record.Int16();
        text.box = QRectF(QPointF(left, top), QPointF(right, bottom));
    }
    text.text = canvas.TextOfBytes(record.Bytes(length));
    if (record.IsShort())
        return;
    // A multi-byte character set has its widths per byte: these are ignored.
    if (record.Left() >= length % 2 + 2 * length && text.text.size() == length) {
        record.Skip(length % 2);
        for (int i = 0; i < length; ++i)
            text.advances.push_back(record.Int16());
    }
    canvas.Text(text);
}

} // namespace ob
