// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the records of an .emf file on a canvas.
#pragma once

#include "imagetools/metafiles/cMetafileCanvas.h"
#include "imagetools/metafiles/cMetafileRecord.h"
#include "imagetools/metafiles/modMetafile.h"

#include <optional>
#include <vector>

namespace ob {

class cEmfPlayer {
public:
    explicit cEmfPlayer(cMetafileCanvas& target) : canvas(target) {}

    // Plays the records, the header being the first; returns the error, or nothing.
    std::optional<MetafileError> Play(QByteArrayView file);

private:
    using Record = cMetafileRecord;
    using Handler = void (cEmfPlayer::*)(Record&);
    struct Row {
        std::uint32_t kind;
        Handler play;
    };
    static const Row rows[];

    enum class Numbers { Short, Long };
    static QPointF Point(Record& record, Numbers numbers = Numbers::Long);
    static QSizeF Size(Record& record);
    static QRectF Box(Record& record);
    static QTransform Transform(Record& record);
    static std::vector<QPointF> Points(Record& record, std::uint64_t count, Numbers numbers);
    static MetafileRegion Region(Record& record, std::uint64_t bytes);

    void Put(std::uint32_t number, MetafileObject object);
    MetafileObject Object(std::uint32_t number) const;
    MetafileBrush BrushOfObject(std::uint32_t number) const;

    // State.
    void SetWindowExtent(Record& record);
    void SetWindowOrigin(Record& record);
    void SetViewportExtent(Record& record);
    void SetViewportOrigin(Record& record);
    void ScaleWindow(Record& record);
    void ScaleViewport(Record& record);
    void SetBrushOrigin(Record& record);
    void SetMapMode(Record& record);
    void SetBackMode(Record& record);
    void SetFillMode(Record& record);
    void SetRasterOperation(Record& record);
    void SetStretchMode(Record& record);
    void SetTextAlign(Record& record);
    void SetTextColor(Record& record);
    void SetBackColor(Record& record);
    void SetArcDirection(Record& record);
    void SetMiterLimit(Record& record);
    void SaveState(Record& record);
    void RestoreState(Record& record);
    void SetWorld(Record& record);
    void ModifyWorld(Record& record);

    // Objects.
    void SelectObject(Record& record);
    void DeleteObject(Record& record);
    void CreatePen(Record& record);
    void ExtCreatePen(Record& record);
    void CreateBrush(Record& record);
    void CreateDibBrush(Record& record);
    void CreatePalette(Record& record);
    void CreateFont(Record& record);

    // Shapes.
    void PlayPoly(Record& record, Numbers numbers, void (cEmfPlayer::*draw)(std::span<const QPointF>));
    void DrawPolygon(std::span<const QPointF> points) { canvas.Poly(points, Outline::Polygon); }
    void DrawPolyline(std::span<const QPointF> points) { canvas.Poly(points, Outline::Polyline); }
    void DrawBeziers(std::span<const QPointF> points) { canvas.Beziers(points); }
    void DrawBeziersTo(std::span<const QPointF> points) { canvas.BeziersFromHere(points); }
    void DrawPolylineTo(std::span<const QPointF> points) { canvas.PolyFromHere(points); }
    void PlayPolyPoly(Record& record, Numbers numbers, Outline outline);
    void PlayPolyDraw(Record& record, Numbers numbers);
    void PlayArc(Record& record, ArcKind kind);
    template <Numbers numbers, void (cEmfPlayer::*draw)(std::span<const QPointF>)>
    void Poly(Record& record)
    {
        PlayPoly(record, numbers, draw);
    }
    template <Numbers numbers, Outline outline>
    void PolyPoly(Record& record)
    {
        PlayPolyPoly(record, numbers, outline);
    }
    template <Numbers numbers>
    void PolyDraw(Record& record)
    {
        PlayPolyDraw(record, numbers);
    }
    template <ArcKind kind>
    void Arc(Record& record)
    {
        PlayArc(record, kind);
    }
    void SetPixel(Record& record);
    void MoveTo(Record& record);
    void LineTo(Record& record);
    void AngleArc(Record& record);
    void Ellipse(Record& record);
    void Rectangle(Record& record);
    void RoundRectangle(Record& record);
    void GradientFill(Record& record);

    // Paths, clipping, regions.
    void BeginPath(Record& record);
    void EndPath(Record& record);
    void CloseFigure(Record& record);
    void AbortPath(Record& record);
    void FillPath(Record& record);
    void StrokePath(Record& record);
    void StrokeAndFillPath(Record& record);
    void SelectClipPath(Record& record);
    void OffsetClip(Record& record);
    void ExcludeClip(Record& record);
    void IntersectClip(Record& record);
    void SelectClipRegion(Record& record);
    void FillRegion(Record& record);
    void FrameRegion(Record& record);
    void InvertRegion(Record& record);
    void PaintRegion(Record& record);

    // Pictures and text.
    struct DibPlace {
        QByteArrayView info;
        QByteArrayView pixels;
    };
    static DibPlace Dib(Record& record);
    QImage PayFor(const DibPlace& place, bool withAlpha = false);
    enum class Stretch { No, Yes };
    void PlayBlt(Record& record, Stretch stretch);
    void BitBlt(Record& record) { PlayBlt(record, Stretch::No); }
    void StretchBlt(Record& record) { PlayBlt(record, Stretch::Yes); }
    void AlphaBlend(Record& record);
    void TransparentBlt(Record& record);
    void StretchDib(Record& record);
    void DibToDevice(Record& record);
    enum class Characters { Ansi, Unicode };
    void PlayText(Record& record, Characters characters);
    void ExtTextOutAnsi(Record& record) { PlayText(record, Characters::Ansi); }
    void ExtTextOutUnicode(Record& record) { PlayText(record, Characters::Unicode); }
    void SmallTextOut(Record& record);

    cMetafileCanvas& canvas;
    std::vector<MetafileObject> objects;
};

} // namespace ob
