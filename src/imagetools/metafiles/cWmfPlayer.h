// SPDX-License-Identifier: GPL-3.0-or-later
// Plays the records of a .wmf file on a canvas.
#pragma once

#include "imagetools/metafiles/cMetafileCanvas.h"
#include "imagetools/metafiles/cMetafileRecord.h"
#include "imagetools/metafiles/modMetafile.h"

#include <functional>
#include <optional>
#include <queue>
#include <vector>

namespace ob {

class cWmfPlayer {
public:
    explicit cWmfPlayer(cMetafileCanvas& target) : canvas(target) {}

    // Plays the records after the header; returns the error, or nothing.
    std::optional<MetafileError> Play(QByteArrayView records);

    // The first window origin and extent of the records; an extent of 0 when there is none.
    static QRectF FirstWindow(QByteArrayView records);

private:
    using Handler = void (cWmfPlayer::*)(cMetafileRecord&);
    struct Row {
        std::uint16_t function;
        Handler play;
    };
    static const Row rows[];

    struct Step {
        std::uint16_t function = 0;
        QByteArrayView parameters;
    };
    static std::optional<Step> NextRecord(QByteArrayView& records);

    static QPointF PointBackwards(cMetafileRecord& record);
    static QSizeF SizeBackwards(cMetafileRecord& record);
    static QRectF BoxBackwards(cMetafileRecord& record);

    void Add(MetafileObject object);
    const MetafileObject* Object(int number) const;

    void SetBackMode(cMetafileRecord& record);
    void SetMapMode(cMetafileRecord& record);
    void SetRasterOperation(cMetafileRecord& record);
    void SetFillMode(cMetafileRecord& record);
    void SetStretchMode(cMetafileRecord& record);
    void SetTextAlign(cMetafileRecord& record);
    void SetBackColor(cMetafileRecord& record);
    void SetTextColor(cMetafileRecord& record);
    void SaveState(cMetafileRecord& record);
    void RestoreState(cMetafileRecord& record);

    void SetWindowOrigin(cMetafileRecord& record);
    void SetWindowExtent(cMetafileRecord& record);
    void SetViewportOrigin(cMetafileRecord& record);
    void SetViewportExtent(cMetafileRecord& record);
    void OffsetWindow(cMetafileRecord& record);
    void OffsetViewport(cMetafileRecord& record);
    void ScaleWindow(cMetafileRecord& record);
    void ScaleViewport(cMetafileRecord& record);

    void CreatePen(cMetafileRecord& record);
    void CreateBrush(cMetafileRecord& record);
    void CreateFont(cMetafileRecord& record);
    void CreatePalette(cMetafileRecord& record);
    void CreatePatternBrush(cMetafileRecord& record);
    void CreateDibBrush(cMetafileRecord& record);
    void CreateRegion(cMetafileRecord& record);
    void SelectObject(cMetafileRecord& record);
    void DeleteObject(cMetafileRecord& record);

    void MoveTo(cMetafileRecord& record);
    void LineTo(cMetafileRecord& record);
    void Polygon(cMetafileRecord& record);
    void Polyline(cMetafileRecord& record);
    void PolyPolygon(cMetafileRecord& record);
    void Rectangle(cMetafileRecord& record);
    void RoundRectangle(cMetafileRecord& record);
    void Ellipse(cMetafileRecord& record);
    void PlayArc(cMetafileRecord& record, ArcKind kind);
    void Arc(cMetafileRecord& record) { PlayArc(record, ArcKind::Arc); }
    void Chord(cMetafileRecord& record) { PlayArc(record, ArcKind::Chord); }
    void Pie(cMetafileRecord& record) { PlayArc(record, ArcKind::Pie); }
    void SetPixel(cMetafileRecord& record);

    void FillRegion(cMetafileRecord& record);
    void FrameRegion(cMetafileRecord& record);
    void InvertRegion(cMetafileRecord& record);
    void PaintRegion(cMetafileRecord& record);
    void SelectClipRegion(cMetafileRecord& record);
    void OffsetClip(cMetafileRecord& record);
    void ExcludeClip(cMetafileRecord& record);
    void IntersectClip(cMetafileRecord& record);

    void PatternBlt(cMetafileRecord& record);
    void DeviceBlt(cMetafileRecord& record);
    void DeviceStretchBlt(cMetafileRecord& record);
    void DibBlt(cMetafileRecord& record);
    void DibStretchBlt(cMetafileRecord& record);
    void StretchDib(cMetafileRecord& record);
    void DibToDevice(cMetafileRecord& record);

    void TextOut(cMetafileRecord& record);
    void ExtTextOut(cMetafileRecord& record);

    enum class Stretch { No, Yes };
    enum class BltSource { Device, Dib };
    void PlayBlt(cMetafileRecord& record, Stretch stretch, BltSource kind);
    QImage PayFor(QByteArrayView dib);

    cMetafileCanvas& canvas;
    std::vector<MetafileObject> objects;
    std::priority_queue<int, std::vector<int>, std::greater<>> freePlaces;
};

} // namespace ob
