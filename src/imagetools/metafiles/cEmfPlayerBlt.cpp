// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the records of an .emf file: pictures and text.
#include "imagetools/metafiles/cEmfPlayer.h"

#include "imagetools/metafiles/modMetafileDib.h"
#include "platform/language/modAnsi.h"

#include <algorithm>

namespace ob {

namespace {

constexpr qsizetype BoundsBytes = 16;

// Between the operation and the source's place in the bitmap are a transform, a colour and the kind of colours.
constexpr qsizetype SourceHeadBytes = 24 + 4;

} // namespace

cEmfPlayer::DibPlace cEmfPlayer::Dib(Record& record)
{
    const std::uint32_t infoAt = record.UInt32();
    const std::uint32_t infoBytes = record.UInt32();
    const std::uint32_t pixelsAt = record.UInt32();
    const std::uint32_t pixelBytes = record.UInt32();
    return {record.At(infoAt, infoBytes), record.At(pixelsAt, pixelBytes)};
}

QImage cEmfPlayer::PayFor(const DibPlace& place, bool withAlpha)
{
    const DibSize size = SizeOfDib(place.info);
    return size.width != 0 && canvas.Spend(2000 + 8 * size.Points())
               ? ImageOfDib(place.info, place.pixels, withAlpha ? DibAlpha::Used : DibAlpha::Ignored)
               : QImage();
}

// Without a bitmap, indicated by an offset of 0 or no bytes, only brush and target are combined.
void cEmfPlayer::PlayBlt(Record& record, Stretch stretch)
{
    record.Skip(BoundsBytes);
    MetafileBlt blt;
    const QPointF place = Point(record);
    blt.target = QRectF(place, Size(record));
    blt.operation = record.UInt32();
    const QPointF source = Point(record);
    record.Skip(SourceHeadBytes);
    const std::uint32_t usage = record.UInt32();
    const DibPlace dib = Dib(record);
    blt.source = QRectF(source, stretch == Stretch::Yes ? Size(record) : blt.target.size());
    if (record.IsShort() || usage == PaletteColors)
        return;
    if (dib.info.isEmpty()) {
        canvas.PatternBlt(blt.target, blt.operation);
        return;
    }
    blt.image = PayFor(dib);
    canvas.Blt(blt);
}

void cEmfPlayer::AlphaBlend(Record& record)
{
    constexpr std::uint32_t usesAlpha = 1;
    record.Skip(BoundsBytes);
    MetafileBlt blt;
    const QPointF place = Point(record);
    blt.target = QRectF(place, Size(record));
    const std::uint32_t blend = record.UInt32();
    const QPointF source = Point(record);
    record.Skip(SourceHeadBytes);
    const std::uint32_t usage = record.UInt32();
    const DibPlace dib = Dib(record);
    blt.source = QRectF(source, Size(record));
    if (record.IsShort() || usage == PaletteColors)
        return;
    blt.image = PayFor(dib, (blend >> 24 & usesAlpha) != 0);
    blt.opacity = (blend >> 16 & 0xFF) / 255.0;
    canvas.Blt(blt);
}

void cEmfPlayer::TransparentBlt(Record& record)
{
    record.Skip(BoundsBytes);
    MetafileBlt blt;
    const QPointF place = Point(record);
    blt.target = QRectF(place, Size(record));
    const QRgb leftOut = ColorOfRecord(record.UInt32());
    const QPointF source = Point(record);
    record.Skip(SourceHeadBytes);
    const std::uint32_t usage = record.UInt32();
    const DibPlace dib = Dib(record);
    blt.source = QRectF(source, Size(record));
    if (record.IsShort() || usage == PaletteColors)
        return;
    const QImage opaque = PayFor(dib);
    if (opaque.isNull())
        return;
    blt.image = opaque.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < blt.image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(blt.image.scanLine(y));
        std::replace(line, line + blt.image.width(), leftOut, qRgba(0, 0, 0, 0));
    }
    canvas.Blt(blt);
}

void cEmfPlayer::StretchDib(Record& record)
{
    record.Skip(BoundsBytes);
    MetafileBlt blt;
    const QPointF place = Point(record);
    const QPointF source = Point(record);
    const QSizeF sourceSize = Size(record);
    const DibPlace dib = Dib(record);
    const std::uint32_t usage = record.UInt32();
    blt.operation = record.UInt32();
    blt.target = QRectF(place, Size(record));
    if (record.IsShort() || usage == PaletteColors)
        return;
    if (dib.info.isEmpty()) {
        canvas.PatternBlt(blt.target, blt.operation);
        return;
    }
    blt.image = PayFor(dib);
    blt.source = FromBottom(QRectF(source, sourceSize), SizeOfDib(dib.info));
    canvas.Blt(blt);
}

void cEmfPlayer::DibToDevice(Record& record)
{
    record.Skip(BoundsBytes);
    MetafileBlt blt;
    const QPointF place = Point(record);
    const QPointF source = Point(record);
    const QSizeF size = Size(record);
    const DibPlace dib = Dib(record);
    const std::uint32_t usage = record.UInt32();
    if (record.IsShort() || usage == PaletteColors)
        return;
    blt.image = PayFor(dib);
    blt.target = QRectF(place, size);
    blt.source = FromBottom(QRectF(source, size), SizeOfDib(dib.info));
    canvas.Blt(blt);
}

// --- Text. ----------------------------------------------------------------------------------------------------------

void cEmfPlayer::PlayText(Record& record, Characters characters)
{
    constexpr unsigned pairsOfAdvances = 0x2000;
    constexpr qsizetype scaleBytes = 12;
    record.Skip(BoundsBytes + scaleBytes);
    MetafileText text;
    text.position = Point(record);
    const std::uint32_t count = record.UInt32();
    const std::uint32_t textAt = record.UInt32();
    text.options = record.UInt32();
    text.box = Box(record);
    const std::uint32_t advancesAt = record.UInt32();
    const std::uint32_t unit = characters == Characters::Unicode ? 2 : 1;
    const QByteArrayView bytes = count > record.Size() ? QByteArrayView() : record.At(textAt, count * unit);
    if (record.IsShort() || (count != 0 && bytes.isEmpty()))
        return;
    text.text = characters == Characters::Unicode ? TextOfUnits(bytes) : canvas.TextOfBytes(bytes);
    const std::uint32_t step = (text.options & pairsOfAdvances) != 0 ? 8 : 4;
    Record advances(advancesAt == 0 ? QByteArrayView() : record.At(advancesAt, count * step));
    if (text.text.size() == static_cast<qsizetype>(count))
        for (; advances.Left() > 0; advances.Skip(step - 4))
            text.advances.push_back(advances.Int32());
    canvas.Text(text);
}

void cEmfPlayer::SmallTextOut(Record& record)
{
    constexpr unsigned noBox = 0x100;
    constexpr unsigned smallCharacters = 0x200;
    MetafileText text;
    text.position = Point(record);
    const std::uint32_t count = record.UInt32();
    const std::uint32_t options = record.UInt32();
    record.Skip(12);
    text.options = options & (MetafileText::Opaque | MetafileText::Clipped);
    if ((options & noBox) == 0)
        text.box = Box(record);
    else
        text.options = 0;
    const bool isSmall = (options & smallCharacters) != 0;
    if (!record.Holds(count, isSmall ? 1 : 2))
        return;
    const QByteArrayView bytes = record.Bytes(static_cast<qsizetype>(count) * (isSmall ? 1 : 2));
    text.text = isSmall ? TextFromAnsi(bytes) : TextOfUnits(bytes);
    canvas.Text(text);
}

} // namespace ob
