// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the records of an .emf file: state and objects.
#include "imagetools/metafiles/cEmfPlayer.h"

#include "imagetools/metafiles/modMetafileDib.h"

#include <algorithm>
#include <cmath>

namespace ob {

namespace {

// The cost of a record without effect: the loop around it.
constexpr double RecordWork = 100;
constexpr std::uint32_t EndOfFile = 14;
constexpr std::uint32_t MostObjects = 65'536;
constexpr std::uint32_t StockBit = 0x80000000;

} // namespace

// clang-format off
const cEmfPlayer::Row cEmfPlayer::rows[] = {
    {2, &cEmfPlayer::Poly<Numbers::Long, &cEmfPlayer::DrawBeziers>},
    {3, &cEmfPlayer::Poly<Numbers::Long, &cEmfPlayer::DrawPolygon>},
    {4, &cEmfPlayer::Poly<Numbers::Long, &cEmfPlayer::DrawPolyline>},
    {5, &cEmfPlayer::Poly<Numbers::Long, &cEmfPlayer::DrawBeziersTo>},
    {6, &cEmfPlayer::Poly<Numbers::Long, &cEmfPlayer::DrawPolylineTo>},
    {7, &cEmfPlayer::PolyPoly<Numbers::Long, Outline::Polyline>},
    {8, &cEmfPlayer::PolyPoly<Numbers::Long, Outline::Polygon>},
    {9, &cEmfPlayer::SetWindowExtent},    {10, &cEmfPlayer::SetWindowOrigin},
    {11, &cEmfPlayer::SetViewportExtent}, {12, &cEmfPlayer::SetViewportOrigin},
    {13, &cEmfPlayer::SetBrushOrigin},    {15, &cEmfPlayer::SetPixel},
    {17, &cEmfPlayer::SetMapMode},        {18, &cEmfPlayer::SetBackMode},
    {19, &cEmfPlayer::SetFillMode},       {20, &cEmfPlayer::SetRasterOperation},
    {21, &cEmfPlayer::SetStretchMode},    {22, &cEmfPlayer::SetTextAlign},
    {24, &cEmfPlayer::SetTextColor},      {25, &cEmfPlayer::SetBackColor},
    {26, &cEmfPlayer::OffsetClip},        {27, &cEmfPlayer::MoveTo},
    {29, &cEmfPlayer::ExcludeClip},       {30, &cEmfPlayer::IntersectClip},
    {31, &cEmfPlayer::ScaleViewport},     {32, &cEmfPlayer::ScaleWindow},
    {33, &cEmfPlayer::SaveState},         {34, &cEmfPlayer::RestoreState},
    {35, &cEmfPlayer::SetWorld},          {36, &cEmfPlayer::ModifyWorld},
    {37, &cEmfPlayer::SelectObject},      {38, &cEmfPlayer::CreatePen},
    {39, &cEmfPlayer::CreateBrush},       {40, &cEmfPlayer::DeleteObject},
    {41, &cEmfPlayer::AngleArc},          {42, &cEmfPlayer::Ellipse},
    {43, &cEmfPlayer::Rectangle},         {44, &cEmfPlayer::RoundRectangle},
    {45, &cEmfPlayer::Arc<ArcKind::Arc>}, {46, &cEmfPlayer::Arc<ArcKind::Chord>},
    {47, &cEmfPlayer::Arc<ArcKind::Pie>}, {49, &cEmfPlayer::CreatePalette},
    {54, &cEmfPlayer::LineTo},            {55, &cEmfPlayer::Arc<ArcKind::ArcTo>},
    {56, &cEmfPlayer::PolyDraw<Numbers::Long>}, {57, &cEmfPlayer::SetArcDirection},
    {58, &cEmfPlayer::SetMiterLimit},     {59, &cEmfPlayer::BeginPath},
    {60, &cEmfPlayer::EndPath},           {61, &cEmfPlayer::CloseFigure},
    {62, &cEmfPlayer::FillPath},          {63, &cEmfPlayer::StrokeAndFillPath},
    {64, &cEmfPlayer::StrokePath},        {67, &cEmfPlayer::SelectClipPath},
    {68, &cEmfPlayer::AbortPath},         {71, &cEmfPlayer::FillRegion},
    {72, &cEmfPlayer::FrameRegion},       {73, &cEmfPlayer::InvertRegion},
    {74, &cEmfPlayer::PaintRegion},       {75, &cEmfPlayer::SelectClipRegion},
    {76, &cEmfPlayer::BitBlt},            {77, &cEmfPlayer::StretchBlt},
    {80, &cEmfPlayer::DibToDevice},       {81, &cEmfPlayer::StretchDib},
    {82, &cEmfPlayer::CreateFont},        {83, &cEmfPlayer::ExtTextOutAnsi},
    {84, &cEmfPlayer::ExtTextOutUnicode},
    {85, &cEmfPlayer::Poly<Numbers::Short, &cEmfPlayer::DrawBeziers>},
    {86, &cEmfPlayer::Poly<Numbers::Short, &cEmfPlayer::DrawPolygon>},
    {87, &cEmfPlayer::Poly<Numbers::Short, &cEmfPlayer::DrawPolyline>},
    {88, &cEmfPlayer::Poly<Numbers::Short, &cEmfPlayer::DrawBeziersTo>},
    {89, &cEmfPlayer::Poly<Numbers::Short, &cEmfPlayer::DrawPolylineTo>},
    {90, &cEmfPlayer::PolyPoly<Numbers::Short, Outline::Polyline>},
    {91, &cEmfPlayer::PolyPoly<Numbers::Short, Outline::Polygon>},
    {92, &cEmfPlayer::PolyDraw<Numbers::Short>}, {93, &cEmfPlayer::CreateDibBrush},
    {94, &cEmfPlayer::CreateDibBrush},    {95, &cEmfPlayer::ExtCreatePen},
    {108, &cEmfPlayer::SmallTextOut},     {114, &cEmfPlayer::AlphaBlend},
    {116, &cEmfPlayer::TransparentBlt},   {118, &cEmfPlayer::GradientFill},
};
// clang-format on

std::optional<MetafileError> cEmfPlayer::Play(QByteArrayView file)
{
    constexpr qsizetype head = 8;
    while (file.size() >= head) {
        Record start(file);
        const std::uint32_t kind = start.UInt32();
        const std::uint32_t size = start.UInt32();
        if (kind == EndOfFile)
            return std::nullopt;
        if (size < head || size > static_cast<std::uint64_t>(file.size()))
            return MetafileError::Damaged;
        const auto* row = std::lower_bound(std::begin(rows), std::end(rows), kind,
                                           [](const Row& each, std::uint32_t wanted) { return each.kind < wanted; });
        if (row != std::end(rows) && row->kind == kind) {
            Record record(file.first(static_cast<qsizetype>(size)));
            record.Skip(head);
            (this->*row->play)(record);
        }
        file = file.sliced(static_cast<qsizetype>(size));
        if (!canvas.Spend(RecordWork))
            return MetafileError::TooMuchWork;
    }
    return std::nullopt;
}

// --- The parts of records. ------------------------------------------------------------------------------------------

QPointF cEmfPlayer::Point(Record& record, Numbers numbers)
{
    const double x = numbers == Numbers::Short ? record.Int16() : record.Int32();
    const double y = numbers == Numbers::Short ? record.Int16() : record.Int32();
    return {x, y};
}

QSizeF cEmfPlayer::Size(Record& record)
{
    const QPointF point = Point(record);
    return {point.x(), point.y()};
}

QRectF cEmfPlayer::Box(Record& record)
{
    const QPointF first = Point(record);
    const QPointF last = Point(record);
    return {first, last};
}

QTransform cEmfPlayer::Transform(Record& record)
{
    double numbers[6];
    for (double& number : numbers) {
        number = record.Float();
        if (!std::isfinite(number) || std::abs(number) > 1e9)
            record.Skip(record.Left() + 1);
    }
    return {numbers[0], numbers[1], numbers[2], numbers[3], numbers[4], numbers[5]};
}

std::vector<QPointF> cEmfPlayer::Points(Record& record, std::uint64_t count, Numbers numbers)
{
    std::vector<QPointF> points;
    if (!record.Holds(count, numbers == Numbers::Short ? 4 : 8))
        return points;
    points.reserve(count);
    for (std::uint64_t i = 0; i < count; ++i)
        points.push_back(Point(record, numbers));
    return points;
}

// A head of 32 bytes with the number of boxes in its third number, then the boxes.
MetafileRegion cEmfPlayer::Region(Record& record, std::uint64_t bytes)
{
    constexpr std::uint64_t head = 32;
    MetafileRegion region;
    if (bytes < head || !record.Holds(bytes, 1)) {
        record.Skip(record.Left() + 1);
        return region;
    }
    record.Skip(8);
    const std::uint32_t count = record.UInt32();
    record.Skip(20);
    if (record.Holds(count, 16))
        for (std::uint32_t i = 0; i < count; ++i)
            region.boxes.append(Box(record));
    return region;
}

// --- State. ---------------------------------------------------------------------------------------------------------

void cEmfPlayer::SetWindowExtent(Record& record)
{
    canvas.SetExtent(&MetafileMapping::windowExtent, Point(record));
}

void cEmfPlayer::SetViewportExtent(Record& record)
{
    canvas.SetExtent(&MetafileMapping::viewportExtent, Point(record));
}

void cEmfPlayer::SetWindowOrigin(Record& record)
{
    canvas.SetOrigin(&MetafileMapping::windowOrigin, Point(record));
}

void cEmfPlayer::SetViewportOrigin(Record& record)
{
    canvas.SetOrigin(&MetafileMapping::viewportOrigin, Point(record));
}

static MetafileScale Scale(cMetafileRecord& record)
{
    MetafileScale scale;
    scale.x = record.Int32();
    scale.xDivisor = record.Int32();
    scale.y = record.Int32();
    scale.yDivisor = record.Int32();
    return record.IsShort() ? MetafileScale() : scale;
}

void cEmfPlayer::ScaleWindow(Record& record)
{
    canvas.ScaleExtent(&MetafileMapping::windowExtent, Scale(record));
}

void cEmfPlayer::ScaleViewport(Record& record)
{
    canvas.ScaleExtent(&MetafileMapping::viewportExtent, Scale(record));
}

void cEmfPlayer::SetBrushOrigin(Record& record)
{
    canvas.State().brushOrigin = Point(record);
}

void cEmfPlayer::SetMapMode(Record& record)
{
    canvas.SetMapMode(record.Int32());
}

void cEmfPlayer::SetBackMode(Record& record)
{
    canvas.State().backMode = record.UInt32() == 1 ? BackgroundMode::Transparent : BackgroundMode::Opaque;
}

void cEmfPlayer::SetFillMode(Record& record)
{
    canvas.State().fillRule = record.UInt32() == 2 ? Qt::WindingFill : Qt::OddEvenFill;
}

void cEmfPlayer::SetRasterOperation(Record& record)
{
    canvas.State().rasterOperation = record.Int32();
}

void cEmfPlayer::SetStretchMode(Record& record)
{
    canvas.State().isSmoothStretch = record.UInt32() == 4;
}

void cEmfPlayer::SetTextAlign(Record& record)
{
    canvas.State().textAlign = record.UInt32();
}

void cEmfPlayer::SetTextColor(Record& record)
{
    canvas.State().textColor = ColorOfRecord(record.UInt32());
}

void cEmfPlayer::SetBackColor(Record& record)
{
    canvas.State().backColor = ColorOfRecord(record.UInt32());
}

void cEmfPlayer::SetArcDirection(Record& record)
{
    canvas.State().isClockwise = record.UInt32() == 2;
}

void cEmfPlayer::SetMiterLimit(Record& record)
{
    const double limit = record.Float();
    if (std::isfinite(limit))
        canvas.State().miterLimit = limit;
}

void cEmfPlayer::SaveState(Record&)
{
    canvas.SaveState();
}

void cEmfPlayer::RestoreState(Record& record)
{
    canvas.RestoreState(record.Int32());
}

void cEmfPlayer::SetWorld(Record& record)
{
    MetafileMapping mapping = canvas.State().mapping;
    mapping.world = Transform(record);
    if (!record.IsShort())
        canvas.SetMapping(mapping);
}

void cEmfPlayer::ModifyWorld(Record& record)
{
    const QTransform given = Transform(record);
    const std::uint32_t mode = record.UInt32();
    if (record.IsShort())
        return;
    MetafileMapping mapping = canvas.State().mapping;
    if (mode == 1)
        mapping.world = QTransform();
    else if (mode == 2)
        mapping.world = given * mapping.world;
    else if (mode == 3)
        mapping.world = mapping.world * given;
    else if (mode == 4)
        mapping.world = given;
    canvas.SetMapping(mapping);
}

// --- Objects are stored under the number in their record. -----------------------------------------------------------

void cEmfPlayer::Put(std::uint32_t number, MetafileObject object)
{
    if (number >= MostObjects)
        return;
    if (number >= objects.size())
        objects.resize(number + 1);
    objects[number] = std::move(object);
}

MetafileObject cEmfPlayer::Object(std::uint32_t number) const
{
    if ((number & StockBit) != 0)
        return StockObject(number & ~StockBit);
    return number < objects.size() ? objects[number] : MetafileObject();
}

MetafileBrush cEmfPlayer::BrushOfObject(std::uint32_t number) const
{
    const MetafileObject object = Object(number);
    const auto* brush = std::get_if<MetafileBrush>(&object);
    return brush == nullptr ? BrushOfStyle(1, 0, 0) : *brush;
}

void cEmfPlayer::SelectObject(Record& record)
{
    canvas.Select(Object(record.UInt32()));
}

void cEmfPlayer::DeleteObject(Record& record)
{
    const std::uint32_t number = record.UInt32();
    if (number < objects.size())
        objects[number] = {};
}

void cEmfPlayer::CreatePen(Record& record)
{
    const std::uint32_t number = record.UInt32();
    const std::uint32_t style = record.UInt32();
    const double width = record.Int32();
    record.Skip(4);
    const std::uint32_t color = record.UInt32();
    if (!record.IsShort())
        Put(number, PenOfStyle(style & 0xF, width, color));
}

void cEmfPlayer::ExtCreatePen(Record& record)
{
    constexpr std::uint32_t userStyle = 7;
    constexpr std::uint32_t geometric = 0x10000;
    constexpr std::uint32_t mostDashes = 16;
    const std::uint32_t number = record.UInt32();
    record.Skip(16);
    const std::uint32_t style = record.UInt32();
    const double width = record.UInt32();
    const std::uint32_t brushStyle = record.UInt32();
    const std::uint32_t color = record.UInt32();
    record.Skip(4);
    const std::uint32_t dashCount = record.UInt32();
    if (record.IsShort())
        return;
    MetafilePen pen = PenOfStyle(style, width, color);
    pen.isCosmetic = (style & geometric) == 0;
    if (brushStyle == 1)
        pen.style = Qt::NoPen;
    if ((style & 0xF) == userStyle && dashCount >= 1 && dashCount <= mostDashes) {
        pen.style = Qt::CustomDashLine;
        for (std::uint32_t i = 0; i < dashCount; ++i)
            pen.dashes.append(std::max(1.0, record.UInt32() / std::max(width, 1.0)));
        if (pen.dashes.size() % 2 == 1)
            pen.dashes += QList<qreal>(pen.dashes);
    } else if (!pen.isCosmetic && !pen.dashes.isEmpty()) {
        // The dashes of a wide pen are counted in its width.
        for (qreal& dash : pen.dashes)
            dash = std::max(1.0, dash / 6);
    }
    if (!record.IsShort())
        Put(number, pen);
}

void cEmfPlayer::CreateBrush(Record& record)
{
    const std::uint32_t number = record.UInt32();
    const std::uint32_t style = record.UInt32();
    const std::uint32_t color = record.UInt32();
    const std::uint32_t hatch = record.UInt32();
    if (!record.IsShort())
        Put(number, BrushOfStyle(style, color, hatch));
}

void cEmfPlayer::CreateDibBrush(Record& record)
{
    const std::uint32_t number = record.UInt32();
    record.Skip(4);
    MetafileBrush brush;
    brush.style = Qt::TexturePattern;
    brush.texture = PayFor(Dib(record));
    if (!record.IsShort())
        Put(number, brush);
}

void cEmfPlayer::CreatePalette(Record& record)
{
    Put(record.UInt32(), MetafileUnused{});
}

void cEmfPlayer::CreateFont(Record& record)
{
    constexpr qsizetype faceBytes = 64;
    const std::uint32_t number = record.UInt32();
    MetafileFont font;
    font.height = record.Int32();
    font.width = record.Int32();
    font.escapement = record.Int32();
    record.Skip(4);
    font.weight = record.Int32();
    font.isItalic = record.UInt8() != 0;
    font.isUnderlined = record.UInt8() != 0;
    font.isStruckOut = record.UInt8() != 0;
    font.charset = record.UInt8();
    record.Skip(3);
    font.pitch = record.UInt8();
    font.face = TextOfUnits(record.Bytes(faceBytes));
    const qsizetype end = font.face.indexOf(QChar(0));
    if (end >= 0)
        font.face.truncate(end);
    if (!record.IsShort())
        Put(number, font);
}

} // namespace ob
