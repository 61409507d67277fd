// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the records of a .wmf file: state, objects, shapes. Parameters are in records from the last to the first.
#include "imagetools/metafiles/cWmfPlayer.h"

#include "imagetools/metafiles/modMetafileDib.h"
#include "platform/language/modAnsi.h"

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

constexpr std::uint16_t SetWindowOriginFunction = 0x020B;
constexpr std::uint16_t SetWindowExtentFunction = 0x020C;
constexpr std::size_t MostObjects = 65'536;

// The cost of a record without effect: the loop around it.
constexpr double RecordWork = 100;

std::vector<QPointF> Points(cMetafileRecord& record, std::size_t count)
{
    std::vector<QPointF> points;
    if (!record.Holds(count, 4))
        return points;
    points.reserve(count);
    for (std::size_t i = 0; i < count; ++i) {
        const int x = record.Int16();
        const int y = record.Int16();
        points.emplace_back(x, y);
    }
    return points;
}

} // namespace

// clang-format off
const cWmfPlayer::Row cWmfPlayer::rows[] = {
    {0x001E, &cWmfPlayer::SaveState},        {0x00F7, &cWmfPlayer::CreatePalette},
    {0x0102, &cWmfPlayer::SetBackMode},      {0x0103, &cWmfPlayer::SetMapMode},
    {0x0104, &cWmfPlayer::SetRasterOperation}, {0x0106, &cWmfPlayer::SetFillMode},
    {0x0107, &cWmfPlayer::SetStretchMode},   {0x0127, &cWmfPlayer::RestoreState},
    {0x012A, &cWmfPlayer::InvertRegion},     {0x012B, &cWmfPlayer::PaintRegion},
    {0x012C, &cWmfPlayer::SelectClipRegion}, {0x012D, &cWmfPlayer::SelectObject},
    {0x012E, &cWmfPlayer::SetTextAlign},     {0x0142, &cWmfPlayer::CreateDibBrush},
    {0x01F0, &cWmfPlayer::DeleteObject},     {0x01F9, &cWmfPlayer::CreatePatternBrush},
    {0x0201, &cWmfPlayer::SetBackColor},     {0x0209, &cWmfPlayer::SetTextColor},
    {0x020B, &cWmfPlayer::SetWindowOrigin},  {0x020C, &cWmfPlayer::SetWindowExtent},
    {0x020D, &cWmfPlayer::SetViewportOrigin}, {0x020E, &cWmfPlayer::SetViewportExtent},
    {0x020F, &cWmfPlayer::OffsetWindow},     {0x0211, &cWmfPlayer::OffsetViewport},
    {0x0213, &cWmfPlayer::LineTo},           {0x0214, &cWmfPlayer::MoveTo},
    {0x0220, &cWmfPlayer::OffsetClip},       {0x0228, &cWmfPlayer::FillRegion},
    {0x02FA, &cWmfPlayer::CreatePen},        {0x02FB, &cWmfPlayer::CreateFont},
    {0x02FC, &cWmfPlayer::CreateBrush},      {0x0324, &cWmfPlayer::Polygon},
    {0x0325, &cWmfPlayer::Polyline},         {0x0410, &cWmfPlayer::ScaleWindow},
    {0x0412, &cWmfPlayer::ScaleViewport},    {0x0415, &cWmfPlayer::ExcludeClip},
    {0x0416, &cWmfPlayer::IntersectClip},    {0x0418, &cWmfPlayer::Ellipse},
    {0x041B, &cWmfPlayer::Rectangle},        {0x041F, &cWmfPlayer::SetPixel},
    {0x0429, &cWmfPlayer::FrameRegion},      {0x0521, &cWmfPlayer::TextOut},
    {0x0538, &cWmfPlayer::PolyPolygon},      {0x061C, &cWmfPlayer::RoundRectangle},
    {0x061D, &cWmfPlayer::PatternBlt},       {0x06FF, &cWmfPlayer::CreateRegion},
    {0x0817, &cWmfPlayer::Arc},              {0x081A, &cWmfPlayer::Pie},
    {0x0830, &cWmfPlayer::Chord},            {0x0922, &cWmfPlayer::DeviceBlt},
    {0x0940, &cWmfPlayer::DibBlt},           {0x0A32, &cWmfPlayer::ExtTextOut},
    {0x0B23, &cWmfPlayer::DeviceStretchBlt}, {0x0B41, &cWmfPlayer::DibStretchBlt},
    {0x0D33, &cWmfPlayer::DibToDevice},      {0x0F43, &cWmfPlayer::StretchDib},
};
// clang-format on

// Removes the next record from the front; function 0 ends the file, as does its end. Nothing for a record that extends
// beyond it.
std::optional<cWmfPlayer::Step> cWmfPlayer::NextRecord(QByteArrayView& records)
{
    constexpr qsizetype head = 6;
    if (records.size() < head)
        return Step{};
    cMetafileRecord start(records);
    const std::uint64_t size = std::uint64_t{start.UInt32()} * 2;
    const std::uint16_t function = start.UInt16();
    if (function == 0)
        return Step{};
    if (size < static_cast<std::uint64_t>(head) || size > static_cast<std::uint64_t>(records.size()))
        return std::nullopt;
    const Step step{function, records.first(static_cast<qsizetype>(size)).sliced(head)};
    records = records.sliced(static_cast<qsizetype>(size));
    return step;
}

QPointF cWmfPlayer::PointBackwards(cMetafileRecord& record)
{
    const int y = record.Int16();
    const int x = record.Int16();
    return QPointF(x, y);
}

QSizeF cWmfPlayer::SizeBackwards(cMetafileRecord& record)
{
    const QPointF point = PointBackwards(record);
    return {point.x(), point.y()};
}

QRectF cWmfPlayer::BoxBackwards(cMetafileRecord& record)
{
    const QPointF last = PointBackwards(record);
    const QPointF first = PointBackwards(record);
    return {first, last};
}

std::optional<MetafileError> cWmfPlayer::Play(QByteArrayView records)
{
    for (;;) {
        const auto step = NextRecord(records);
        if (!step)
            return MetafileError::Damaged;
        if (step->function == 0)
            return std::nullopt;
        const auto* row =
            std::lower_bound(std::begin(rows), std::end(rows), step->function,
                             [](const Row& each, std::uint16_t wanted) { return each.function < wanted; });
        if (row != std::end(rows) && row->function == step->function) {
            cMetafileRecord record(step->parameters);
            (this->*row->play)(record);
        }
        if (!canvas.Spend(RecordWork))
            return MetafileError::TooMuchWork;
    }
}

QRectF cWmfPlayer::FirstWindow(QByteArrayView records)
{
    QPointF origin;
    while (const auto step = NextRecord(records)) {
        if (step->function == 0)
            break;
        cMetafileRecord record(step->parameters);
        if (step->function == SetWindowOriginFunction) {
            origin = PointBackwards(record);
        } else if (step->function == SetWindowExtentFunction) {
            const QPointF extent = PointBackwards(record);
            if (extent.x() != 0 && extent.y() != 0)
                return {origin, QSizeF(extent.x(), extent.y())};
        }
    }
    return {origin, QSizeF(0, 0)};
}

// --- State. ---------------------------------------------------------------------------------------------------------

void cWmfPlayer::SetBackMode(cMetafileRecord& record)
{
    canvas.State().backMode = record.UInt16() == 1 ? BackgroundMode::Transparent : BackgroundMode::Opaque;
}

void cWmfPlayer::SetMapMode(cMetafileRecord& record)
{
    canvas.SetMapMode(record.UInt16());
}

void cWmfPlayer::SetRasterOperation(cMetafileRecord& record)
{
    canvas.State().rasterOperation = record.UInt16();
}

void cWmfPlayer::SetFillMode(cMetafileRecord& record)
{
    canvas.State().fillRule = record.UInt16() == 2 ? Qt::WindingFill : Qt::OddEvenFill;
}

void cWmfPlayer::SetStretchMode(cMetafileRecord& record)
{
    canvas.State().isSmoothStretch = record.UInt16() == 4;
}

void cWmfPlayer::SetTextAlign(cMetafileRecord& record)
{
    canvas.State().textAlign = record.UInt16();
}

void cWmfPlayer::SetBackColor(cMetafileRecord& record)
{
    canvas.State().backColor = ColorOfRecord(record.UInt32());
}

void cWmfPlayer::SetTextColor(cMetafileRecord& record)
{
    canvas.State().textColor = ColorOfRecord(record.UInt32());
}

void cWmfPlayer::SaveState(cMetafileRecord&)
{
    canvas.SaveState();
}

void cWmfPlayer::RestoreState(cMetafileRecord& record)
{
    canvas.RestoreState(record.Int16());
}

// --- Mapping. -------------------------------------------------------------------------------------------------------

void cWmfPlayer::SetWindowOrigin(cMetafileRecord& record)
{
    canvas.SetOrigin(&MetafileMapping::windowOrigin, PointBackwards(record));
}

void cWmfPlayer::SetWindowExtent(cMetafileRecord& record)
{
    canvas.SetExtent(&MetafileMapping::windowExtent, PointBackwards(record));
}

void cWmfPlayer::SetViewportOrigin(cMetafileRecord& record)
{
    canvas.SetOrigin(&MetafileMapping::viewportOrigin, PointBackwards(record));
}

void cWmfPlayer::SetViewportExtent(cMetafileRecord& record)
{
    canvas.SetExtent(&MetafileMapping::viewportExtent, PointBackwards(record));
}

void cWmfPlayer::OffsetWindow(cMetafileRecord& record)
{
    canvas.MoveOrigin(&MetafileMapping::windowOrigin, PointBackwards(record));
}

void cWmfPlayer::OffsetViewport(cMetafileRecord& record)
{
    canvas.MoveOrigin(&MetafileMapping::viewportOrigin, PointBackwards(record));
}

static MetafileScale Scale(cMetafileRecord& record)
{
    MetafileScale scale;
    scale.yDivisor = record.Int16();
    scale.y = record.Int16();
    scale.xDivisor = record.Int16();
    scale.x = record.Int16();
    return record.IsShort() ? MetafileScale() : scale;
}

void cWmfPlayer::ScaleWindow(cMetafileRecord& record)
{
    canvas.ScaleExtent(&MetafileMapping::windowExtent, Scale(record));
}

void cWmfPlayer::ScaleViewport(cMetafileRecord& record)
{
    canvas.ScaleExtent(&MetafileMapping::viewportExtent, Scale(record));
}

// --- Objects: a new one takes the first free place. -----------------------------------------------------------------

void cWmfPlayer::Add(MetafileObject object)
{
    if (!freePlaces.empty()) {
        objects[static_cast<std::size_t>(freePlaces.top())] = std::move(object);
        freePlaces.pop();
    } else if (objects.size() < MostObjects) {
        objects.push_back(std::move(object));
    }
}

const MetafileObject* cWmfPlayer::Object(int number) const
{
    return static_cast<std::size_t>(number) < objects.size() ? &objects[static_cast<std::size_t>(number)] : nullptr;
}

void cWmfPlayer::CreatePen(cMetafileRecord& record)
{
    const std::uint16_t style = record.UInt16();
    const int width = record.Int16();
    record.Skip(2);
    Add(PenOfStyle(style & 0xF, width, record.UInt32()));
}

void cWmfPlayer::CreateBrush(cMetafileRecord& record)
{
    const std::uint16_t style = record.UInt16();
    const std::uint32_t color = record.UInt32();
    Add(BrushOfStyle(style, color, record.UInt16()));
}

void cWmfPlayer::CreateFont(cMetafileRecord& record)
{
    MetafileFont font;
    font.height = record.Int16();
    font.width = record.Int16();
    font.escapement = record.Int16();
    record.Skip(2);
    font.weight = record.Int16();
    font.isItalic = record.UInt8() != 0;
    font.isUnderlined = record.UInt8() != 0;
    font.isStruckOut = record.UInt8() != 0;
    font.charset = record.UInt8();
    record.Skip(3);
    font.pitch = record.UInt8();
    const QByteArrayView face = record.Rest();
    const qsizetype end = face.indexOf('\0');
    font.face = TextFromAnsi(face.first(std::min<qsizetype>(end < 0 ? face.size() : end, 32)));
    Add(font);
}

void cWmfPlayer::CreatePalette(cMetafileRecord&)
{
    Add(MetafileUnused{});
}

QImage cWmfPlayer::PayFor(QByteArrayView dib)
{
    const DibSize size = SizeOfDib(dib);
    return size.width != 0 && canvas.Spend(2000 + 8 * size.Points()) ? ImageOfPackedDib(dib) : QImage();
}

void cWmfPlayer::CreatePatternBrush(cMetafileRecord& record)
{
    // Between the head and the lines are a pointer and 18 unused bytes.
    constexpr qsizetype head = 10;
    const QByteArrayView parameters = record.Rest();
    MetafileBrush brush;
    brush.style = Qt::TexturePattern;
    if (parameters.size() > head + 22) {
        const QByteArray bitmap = parameters.first(head).toByteArray() + parameters.sliced(head + 22).toByteArray();
        brush.texture = ImageOfDeviceBitmap(bitmap, canvas.State().textColor, canvas.State().backColor);
    }
    Add(brush);
}

void cWmfPlayer::CreateDibBrush(cMetafileRecord& record)
{
    constexpr int pattern = 3;
    const int style = record.UInt16();
    record.Skip(2);
    const QByteArrayView bitmap = record.Rest();
    MetafileBrush brush;
    brush.style = Qt::TexturePattern;
    brush.texture = PayFor(bitmap);
    if (brush.texture.isNull() && style == pattern)
        brush.texture = ImageOfDeviceBitmap(bitmap, canvas.State().textColor, canvas.State().backColor);
    Add(brush);
}

void cWmfPlayer::CreateRegion(cMetafileRecord& record)
{
    record.Skip(10);
    const int scanCount = record.UInt16();
    record.Skip(10);
    MetafileRegion region;
    for (int scan = 0; scan < scanCount && !record.IsShort(); ++scan) {
        const int count = record.UInt16();
        const int top = record.Int16();
        const int bottom = record.Int16();
        for (int pair = 0; pair < count / 2 && !record.IsShort(); ++pair) {
            const int left = record.Int16();
            const int right = record.Int16();
            region.boxes.append(QRectF(QPointF(left, top), QPointF(right, bottom)));
        }
        record.Skip(2);
    }
    Add(region);
}

void cWmfPlayer::SelectObject(cMetafileRecord& record)
{
    if (const MetafileObject* object = Object(record.UInt16()))
        canvas.Select(*object);
}

void cWmfPlayer::DeleteObject(cMetafileRecord& record)
{
    const int number = record.UInt16();
    const MetafileObject* object = Object(number);
    if (object == nullptr || std::holds_alternative<std::monostate>(*object))
        return;
    objects[static_cast<std::size_t>(number)] = {};
    freePlaces.push(number);
}

// --- Shapes. --------------------------------------------------------------------------------------------------------

void cWmfPlayer::MoveTo(cMetafileRecord& record)
{
    canvas.MoveTo(PointBackwards(record));
}

void cWmfPlayer::LineTo(cMetafileRecord& record)
{
    const QPointF place = PointBackwards(record);
    if (!record.IsShort())
        canvas.LineTo(place);
}

void cWmfPlayer::Polygon(cMetafileRecord& record)
{
    canvas.Poly(Points(record, record.UInt16()), Outline::Polygon);
}

void cWmfPlayer::Polyline(cMetafileRecord& record)
{
    canvas.Poly(Points(record, record.UInt16()), Outline::Polyline);
}

void cWmfPlayer::PolyPolygon(cMetafileRecord& record)
{
    const std::size_t polygons = record.UInt16();
    if (!record.Holds(polygons, 2))
        return;
    std::vector<std::uint32_t> counts;
    std::size_t sum = 0;
    for (std::size_t i = 0; i < polygons; ++i) {
        counts.push_back(record.UInt16());
        sum += counts.back();
    }
    canvas.PolyPoly(Points(record, sum), counts, Outline::Polygon);
}

void cWmfPlayer::Rectangle(cMetafileRecord& record)
{
    const QRectF box = BoxBackwards(record);
    if (!record.IsShort())
        canvas.Rectangle(box);
}

void cWmfPlayer::RoundRectangle(cMetafileRecord& record)
{
    const QPointF corner = PointBackwards(record);
    const QRectF box = BoxBackwards(record);
    if (!record.IsShort())
        canvas.RoundRectangle(box, corner);
}

void cWmfPlayer::Ellipse(cMetafileRecord& record)
{
    const QRectF box = BoxBackwards(record);
    if (!record.IsShort())
        canvas.Ellipse(box);
}

void cWmfPlayer::PlayArc(cMetafileRecord& record, ArcKind kind)
{
    const QPointF end = PointBackwards(record);
    const QPointF start = PointBackwards(record);
    const QRectF box = BoxBackwards(record);
    if (!record.IsShort())
        canvas.Arc(kind, box, start, end);
}

void cWmfPlayer::SetPixel(cMetafileRecord& record)
{
    const QRgb color = ColorOfRecord(record.UInt32());
    const QPointF place = PointBackwards(record);
    if (!record.IsShort())
        canvas.SetPixel(place, color);
}

} // namespace ob
