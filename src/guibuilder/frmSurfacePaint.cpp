// SPDX-License-Identifier: GPL-3.0-or-later
// Paints the form under design and the marks of the drawing surface.
#include "guibuilder/frmSurfacePaint.h"

#include <QPainter>
#include <QTransform>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The system's colours for edges, on a usual desktop; a form cannot change them.
constexpr QRgb Face = qRgb(240, 240, 240);
constexpr QRgb Highlight = qRgb(255, 255, 255);
constexpr QRgb Light = qRgb(227, 227, 227);
constexpr QRgb Shadow = qRgb(160, 160, 160);
constexpr QRgb DarkShadow = qRgb(105, 105, 105);
constexpr QRgb WindowFrame = qRgb(100, 100, 100);
constexpr QRgb ScrollTrack = qRgb(232, 232, 232);
constexpr QRgb ButtonText = qRgb(0, 0, 0);

// Measures in pixels of the surface.
constexpr int MostPixels = 30000;
constexpr int ScrollBarWidth = 17;
constexpr int ArrowHeight = 4;
constexpr int MarkSide = 13; // of check boxes and radio buttons
constexpr int MarkGap = 4;   // between the mark and its caption
constexpr int FieldIndent = 3;
constexpr int GroupIndent = 8; // of a group's caption, from the corner of the frame
constexpr int GroupGap = 2;    // between the caption and the frame, on both sides
constexpr int GridStep = 10;
constexpr int FirstDotTwips = 10;
constexpr int DashLength = 4;

// A painter whose unit is the device's pixel during its lifetime: at a scale of 1.5, edges in the surface's own pixels
// would be blurred or uneven. Without a scale both are the same. The painter's unit is restored at the end.
class Canvas {
public:
    explicit Canvas(QPainter& target)
        : painter(target), world(target.worldTransform()), device(target.deviceTransform()), pen(target.pen()),
          brush(target.brush())
    {
        isScaled = device.type() == QTransform::TxScale;
        if (!isScaled)
            return;
        scaleX = device.m11();
        scaleY = device.m22();
        line = std::max(1, static_cast<int>(std::min(scaleX, scaleY)));
        devicePixels = device.inverted() * world;
        painter.setWorldTransform(devicePixels);
    }
    ~Canvas()
    {
        if (isScaled)
            painter.setWorldTransform(world);
        painter.setPen(pen);
        painter.setBrush(brush);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    int X(double x) const { return isScaled ? static_cast<int>(std::lround(x * scaleX + device.dx())) : Whole(x); }
    int Y(double y) const { return isScaled ? static_cast<int>(std::lround(y * scaleY + device.dy())) : Whole(y); }
    int Across(double pixels) const { return static_cast<int>(std::lround(pixels * scaleX)); }
    int Down(double pixels) const { return static_cast<int>(std::lround(pixels * scaleY)); }
    QRect Rect(QRect pixels) const
    {
        const int left = X(pixels.x());
        const int top = Y(pixels.y());
        return {left, top, X(pixels.x() + pixels.width()) - left, Y(pixels.y() + pixels.height()) - top};
    }
    // The part of the device that can be painted at all.
    QRect Bounds() const
    {
        QRectF bounds = world.inverted().mapRect(QRectF(painter.window()));
        if (isScaled)
            bounds = device.mapRect(bounds);
        if (painter.hasClipping())
            bounds &= painter.clipBoundingRect();
        return bounds.toAlignedRect();
    }

    void Fill(QRect rect, QColor color) const
    {
        if (!rect.isEmpty())
            painter.fillRect(rect, color);
    }
    // Many small ones at once cost a fraction of the calls one by one.
    void Fill(std::span<const QRect> rects, QColor color) const
    {
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRects(rects.data(), static_cast<int>(rects.size()));
    }
    // The runs of a text whose upper left corner is there, clipped to the rectangle.
    void Text(const SurfaceText& text, double left, double top, QRect within, QColor color) const
    {
        if (within.isEmpty() || text.runs.isEmpty())
            return;
        const bool isInside = left >= within.left() && top >= within.top() &&
                              left + text.size.width() * scaleX <= within.right() + 1 &&
                              top + text.size.height() * scaleY <= within.bottom() + 1;
        if (!isInside) {
            painter.save();
            painter.setClipRect(within, Qt::IntersectClip);
        }
        if (isScaled)
            painter.setWorldTransform(world);
        painter.setPen(color);
        const QPointF place =
            isScaled ? QPointF((left - device.dx()) / scaleX, (top - device.dy()) / scaleY) : QPointF(left, top);
        for (const QGlyphRun& run : text.runs)
            painter.drawGlyphRun(place, run);
        if (isScaled)
            painter.setWorldTransform(devicePixels);
        if (text.underline) {
            const QLineF& mark = *text.underline;
            const int start = static_cast<int>(std::lround(left + mark.x1() * scaleX));
            const int width = static_cast<int>(std::lround(mark.dx() * scaleX));
            Fill({start, static_cast<int>(std::lround(top + mark.y1() * scaleY)), std::max(width, line), line}, color);
        }
        if (!isInside)
            painter.restore();
    }

    QPainter& painter;
    int line = 1; // the width of an edge in device pixels
    double scaleX = 1;
    double scaleY = 1;

private:
    static int Whole(double value) { return static_cast<int>(value); }

    QTransform world;
    QTransform device;
    QTransform devicePixels;
    QPen pen;
    QBrush brush;
    bool isScaled = false;
};

QRect Inside(QRect rect, int margin)
{
    return rect.adjusted(margin, margin, -margin, -margin);
}

// One line inside the rectangle. In the corners right and bottom cover left and top.
void Edge(const Canvas& canvas, QRect rect, QRgb upperLeft, QRgb lowerRight)
{
    if (rect.isEmpty())
        return;
    const int across = std::min(canvas.line, rect.width());
    const int down = std::min(canvas.line, rect.height());
    const int right = rect.x() + rect.width() - across;
    const int bottom = rect.y() + rect.height() - down;
    canvas.Fill({rect.x(), rect.y(), rect.width() - across, down}, upperLeft);
    canvas.Fill({rect.x(), rect.y(), across, rect.height() - down}, upperLeft);
    canvas.Fill({right, rect.y(), across, rect.height()}, lowerRight);
    canvas.Fill({rect.x(), bottom, rect.width(), down}, lowerRight);
}

QRect RaisedFace(const Canvas& canvas, QRect rect)
{
    canvas.Fill(rect, Face);
    Edge(canvas, rect, Highlight, DarkShadow);
    Edge(canvas, Inside(rect, canvas.line), Light, Shadow);
    return Inside(rect, 2 * canvas.line);
}

QRect SunkenField(const Canvas& canvas, QRect rect, QColor color)
{
    const QRect inside = Inside(rect, 2 * canvas.line);
    Edge(canvas, rect, Shadow, Highlight);
    Edge(canvas, Inside(rect, canvas.line), DarkShadow, Light);
    canvas.Fill(inside, color);
    return inside;
}

enum class Arrow { Up, Down, Left, Right };

// A triangle of rows, each two device pixels wider than the last, so that its slopes are even at any scale.
void Triangle(const Canvas& canvas, QPoint center, Arrow arrow, QRgb color)
{
    const bool isUpright = arrow == Arrow::Up || arrow == Arrow::Down;
    const bool growsOnward = arrow == Arrow::Up || arrow == Arrow::Left;
    const int height = isUpright ? canvas.Down(ArrowHeight) : canvas.Across(ArrowHeight);
    QVarLengthArray<QRect, 4 * ArrowHeight> rows;
    for (int row = 0; row < height; ++row) {
        const int half = growsOnward ? row : height - 1 - row;
        const int along = row - height / 2;
        if (isUpright)
            rows.emplace_back(center.x() - half, center.y() + along, 2 * half + 1, 1);
        else
            rows.emplace_back(center.x() + along, center.y() - half, 1, 2 * half + 1);
    }
    canvas.Fill(rows, color);
}

// A dimmed one has nothing to scroll.
enum class ArrowState { Ready, Dim };

void ArrowButton(const Canvas& canvas, QRect rect, Arrow arrow, ArrowState state)
{
    const QRect inside = RaisedFace(canvas, rect);
    const bool isUpright = arrow == Arrow::Up || arrow == Arrow::Down;
    const int height = canvas.Down(ArrowHeight);
    const QSize size = isUpright ? QSize(2 * height - 1, height) : QSize(height, 2 * height - 1);
    if (inside.width() < size.width() || inside.height() < size.height())
        return;
    const QPoint center(rect.x() + (rect.width() - 1) / 2, rect.y() + rect.height() / 2);
    if (state == ArrowState::Dim)
        Triangle(canvas, center + QPoint(canvas.line, canvas.line), arrow, Highlight);
    Triangle(canvas, center, arrow, state == ArrowState::Dim ? Shadow : ButtonText);
}

void ScrollBar(const Canvas& canvas, QRect rect, Qt::Orientation orientation)
{
    if (rect.isEmpty())
        return;
    canvas.Fill(rect, ScrollTrack);
    if (orientation == Qt::Vertical) {
        const int side = std::min(canvas.Down(ScrollBarWidth), rect.height() / 2);
        ArrowButton(canvas, {rect.x(), rect.y(), rect.width(), side}, Arrow::Up, ArrowState::Dim);
        ArrowButton(canvas, {rect.x(), rect.y() + rect.height() - side, rect.width(), side}, Arrow::Down,
                    ArrowState::Dim);
    } else {
        const int side = std::min(canvas.Across(ScrollBarWidth), rect.width() / 2);
        ArrowButton(canvas, {rect.x(), rect.y(), side, rect.height()}, Arrow::Left, ArrowState::Dim);
        ArrowButton(canvas, {rect.x() + rect.width() - side, rect.y(), side, rect.height()}, Arrow::Right,
                    ArrowState::Dim);
    }
}

void CenteredText(const Canvas& canvas, const SurfaceText& text, QRect within, QColor color)
{
    const double left = within.x() + (within.width() - text.size.width() * canvas.scaleX) / 2;
    const double top = within.y() + (within.height() - text.size.height() * canvas.scaleY) / 2;
    canvas.Text(text, std::floor(left), std::floor(top), within, color);
}

void PaintButton(const Canvas& canvas, const SurfaceStyle& style, const ControlRecord& control, QRect rect)
{
    CenteredText(canvas, style.Line(control.caption, Ampersands::Mark), RaisedFace(canvas, rect), QColor(ButtonText));
}

void PaintBmpbutton(const Canvas& canvas, const SurfaceStyle& style, const ControlRecord& control, QRect rect)
{
    const QRect inside = RaisedFace(canvas, rect);
    if (control.picture.IsNull()) {
        // For a picture that was not found the file's name is more useful than its folder.
        const QString name =
            control.caption.mid(1 + std::max(control.caption.lastIndexOf(u'\\'), control.caption.lastIndexOf(u'/')));
        CenteredText(canvas, style.SmallLine(name), inside, QColor(ButtonText));
        return;
    }
    // A picture as large as the button covers the button's edges, as it does in the program.
    const QSize full(canvas.Across(control.picture.Image().width()), canvas.Down(control.picture.Image().height()));
    const QPoint place(rect.x() + std::max(0, (rect.width() - full.width()) / 2),
                       rect.y() + std::max(0, (rect.height() - full.height()) / 2));
    const QSize seen = full.boundedTo(rect.size());
    const QRectF source(0, 0, seen.width() / canvas.scaleX, seen.height() / canvas.scaleY);
    canvas.painter.drawImage(QRectF(place, QSizeF(seen)), control.picture.Image(), source);
}

void PaintStatictext(const Canvas& canvas, const SurfaceStyle& style, const ControlRecord& control, QRect rect,
                     int width)
{
    canvas.Fill(rect, style.surface);
    canvas.Text(style.Paragraph(control.caption, width), rect.x(), rect.y(), rect, style.fore);
}

void PaintGroupbox(const Canvas& canvas, const SurfaceStyle& style, const ControlRecord& control, QRect rect)
{
    const int above = std::min(canvas.Down(style.metrics.height()) / 2, std::max(0, rect.height() - 2 * canvas.line));
    const QRect frame = rect.adjusted(0, above, -canvas.line, -canvas.line);
    Edge(canvas, frame.translated(canvas.line, canvas.line), Highlight, Highlight);
    Edge(canvas, frame, Shadow, Shadow);
    if (control.caption.isEmpty())
        return;
    const SurfaceText text = style.Line(control.caption, Ampersands::Mark);
    const int indent = canvas.Across(GroupIndent);
    const int gap = canvas.Across(GroupGap);
    const int width =
        std::min(static_cast<int>(std::ceil(text.size.width() * canvas.scaleX)) + 2 * gap, rect.width() - 2 * indent);
    const int height = std::min(static_cast<int>(std::ceil(text.size.height() * canvas.scaleY)), rect.height());
    const QRect heading(rect.x() + indent, rect.y(), width, height);
    canvas.Fill(heading, style.surface);
    canvas.Text(text, heading.x() + gap, heading.y(), heading, style.fore);
}

void PaintMark(const Canvas& canvas, const SurfaceStyle& style, const ControlRecord& control, ControlKind kind,
               QRect rect)
{
    canvas.Fill(rect, style.surface);
    const int side = std::min({canvas.Down(MarkSide), rect.width(), rect.height()});
    const QRect mark(rect.x(), rect.y() + (rect.height() - side) / 2, side, side);
    if (kind == ControlKind::Checkbox)
        SunkenField(canvas, mark, Qt::white);
    else
        canvas.painter.drawImage(mark.topLeft(), style.RadioRing(side));
    const SurfaceText text = style.Line(control.caption, Ampersands::Mark);
    const QRect within = rect.adjusted(side + canvas.Across(MarkGap), 0, 0, 0);
    const double top = within.y() + (within.height() - text.size.height() * canvas.scaleY) / 2;
    canvas.Text(text, within.x(), std::floor(top), within, style.fore);
}

void FieldText(const Canvas& canvas, const SurfaceStyle& style, const QString& text, QRect within)
{
    const int indent = canvas.Across(FieldIndent) - canvas.line;
    canvas.Text(style.Line(text, Ampersands::Keep), within.x() + indent, within.y() + canvas.line, within, style.fore);
}

void PaintTexteditor(const Canvas& canvas, const SurfaceStyle& style, const ControlRecord& control, QRect rect)
{
    QRect inside = SunkenField(canvas, rect, style.texteditor);
    const int across = std::min(canvas.Across(ScrollBarWidth), std::max(0, inside.width()));
    const int down = std::min(canvas.Down(ScrollBarWidth), std::max(0, inside.height()));
    ScrollBar(canvas, {inside.x() + inside.width() - across, inside.y(), across, inside.height() - down}, Qt::Vertical);
    ScrollBar(canvas, {inside.x(), inside.y() + inside.height() - down, inside.width() - across, down}, Qt::Horizontal);
    canvas.Fill({inside.x() + inside.width() - across, inside.y() + inside.height() - down, across, down}, Face);
    inside.adjust(0, 0, -across, -down);
    FieldText(canvas, style, control.caption, inside);
}

void PaintListbox(const Canvas& canvas, const SurfaceStyle& style, const ControlRecord& control, QRect rect)
{
    QRect inside = SunkenField(canvas, rect, style.listbox);
    const int across = std::min(canvas.Across(ScrollBarWidth), std::max(0, inside.width()));
    ScrollBar(canvas, {inside.x() + inside.width() - across, inside.y(), across, inside.height()}, Qt::Vertical);
    inside.adjust(0, 0, -across, 0);
    FieldText(canvas, style, control.caption, inside);
}

void PaintCombobox(const Canvas& canvas, const SurfaceStyle& style, int index, QRect rect)
{
    QRect inside = SunkenField(canvas, rect, style.combobox);
    const int across = std::min(canvas.Across(ScrollBarWidth), std::max(0, inside.width()));
    const QRect button(inside.x() + inside.width() - across, inside.y(), across, inside.height());
    ArrowButton(canvas, button, Arrow::Down, ArrowState::Ready);
    inside.adjust(0, 0, -across, 0);
    const QString text = u"Combobox  %1"_s.arg(index);
    canvas.Text(style.Line(text, Ampersands::Keep), inside.x(), inside.y(), inside, style.fore);
}

void PaintGraphicbox(const Canvas& canvas, const ControlRecord& control, QRect rect)
{
    canvas.Fill(rect, SurfaceColor(control.backColor));
    Edge(canvas, rect, WindowFrame, WindowFrame);
}

int PixelsDown(float twips, int twipsPerPixel)
{
    if (std::isnan(twips))
        return 0;
    const double pixels = std::floor(static_cast<double>(twips) / std::max(twipsPerPixel, 1));
    return static_cast<int>(std::clamp(pixels, -1.0 * MostPixels, 1.0 * MostPixels));
}

bool IsDarkSurface(const QString& name)
{
    static constexpr std::array<std::string_view, 8> dark = {"Black",     "Darkgray", "Darkred",  "Brown",
                                                             "Darkgreen", "Darkblue", "Darkcyan", "Darkpink"};
    return std::ranges::any_of(dark, [&](std::string_view each) { return name == LatinText(each); });
}

// The first dot at or after that place.
int DotFrom(int place, int firstDot)
{
    const int steps = (place - firstDot + GridStep - 1) / GridStep;
    return firstDot + std::max(0, steps) * GridStep;
}

} // namespace

QRect PixelRect(const ControlRecord& control, SurfaceScale scale)
{
    return {PixelsDown(control.left, scale.x), PixelsDown(control.top, scale.y),
            std::max(0, PixelsDown(control.width, scale.x)), std::max(0, PixelsDown(control.height, scale.y))};
}

QRect PaintedRect(const GuiForm& form, ControlRef ref, SurfaceScale scale)
{
    const ControlRecord& control = form.At(ref);
    if (!control.visible)
        return {};
    const QRect rect = PixelRect(control, scale);
    // At a scale of 1.5 an edge may be half a device pixel further out.
    return rect.isEmpty() ? QRect() : rect.adjusted(-1, -1, 1, 1);
}

void PaintControl(QPainter& painter, const SurfaceStyle& style, const GuiForm& form, ControlRef ref)
{
    const QRect painted = PaintedRect(form, ref, style.scale);
    if (painted.isEmpty())
        return;
    if (painter.hasClipping() && !painter.clipBoundingRect().intersects(QRectF(painted)))
        return;
    const ControlRecord& control = form.At(ref);
    const QRect pixels = PixelRect(control, style.scale);
    const Canvas canvas(painter);
    const QRect rect = canvas.Rect(pixels);
    switch (ref.kind) {
    case ControlKind::Button:
        return PaintButton(canvas, style, control, rect);
    case ControlKind::Bmpbutton:
        return PaintBmpbutton(canvas, style, control, rect);
    case ControlKind::Statictext:
        return PaintStatictext(canvas, style, control, rect, pixels.width());
    case ControlKind::Groupbox:
        return PaintGroupbox(canvas, style, control, rect);
    case ControlKind::Textbox:
        return FieldText(canvas, style, control.caption, SunkenField(canvas, rect, style.textbox));
    case ControlKind::Texteditor:
        return PaintTexteditor(canvas, style, control, rect);
    case ControlKind::Checkbox:
    case ControlKind::Radiobutton:
        return PaintMark(canvas, style, control, ref.kind, rect);
    case ControlKind::Listbox:
        return PaintListbox(canvas, style, control, rect);
    case ControlKind::Combobox:
        return PaintCombobox(canvas, style, ref.index, rect);
    case ControlKind::Graphicbox:
        return PaintGraphicbox(canvas, control, rect);
    }
}

void PaintGrid(QPainter& painter, QRect exposed, const GuiForm& form, SurfaceScale scale)
{
    const QRect within = exposed & painter.worldTransform().inverted().mapRect(painter.window());
    if (within.isEmpty())
        return;
    const Canvas canvas(painter);
    const int left = DotFrom(within.left(), FirstDotTwips / std::max(scale.x, 1));
    const int top = DotFrom(within.top(), FirstDotTwips / std::max(scale.y, 1));
    std::vector<QRect> dots;
    dots.reserve(static_cast<std::size_t>((within.width() / GridStep + 2) * (within.height() / GridStep + 2)));
    for (int y = top; y <= within.bottom(); y += GridStep)
        for (int x = left; x <= within.right(); x += GridStep)
            dots.emplace_back(canvas.X(x), canvas.Y(y), canvas.line, canvas.line);
    canvas.Fill(dots, IsDarkSurface(form.GuiBackgroundColor) ? Qt::white : Qt::black);
}

void PaintHandles(QPainter& painter, QRect lowerRight, QRect upperLeft, HandleState state)
{
    const bool isLocked = state == HandleState::Locked;
    const Canvas canvas(painter);
    const auto paint = [&](QRect handle, QColor color) {
        const QRgb outline = color.darker(150).rgb();
        canvas.Fill(canvas.Rect(handle), color);
        Edge(canvas, canvas.Rect(handle), outline, outline);
    };
    paint(lowerRight, isLocked ? QColor(255, 170, 170) : QColor(192, 0, 0));
    paint(upperLeft, isLocked ? QColor(255, 221, 102) : QColor(255, 128, 0));
}

void PaintSelectionFrame(QPainter& painter, QRect control)
{
    // White on both sides sets the blue off from any colour.
    constexpr QRgb blue = qRgb(0, 90, 200);
    const Canvas canvas(painter);
    const QRect rect = canvas.Rect(control);
    Edge(canvas, Inside(rect, -3 * canvas.line), Highlight, Highlight);
    Edge(canvas, Inside(rect, -2 * canvas.line), blue, blue);
    Edge(canvas, Inside(rect, -canvas.line), Highlight, Highlight);
}

void PaintRubberBand(QPainter& painter, QRect band)
{
    const Canvas canvas(painter);
    const QRect rect = canvas.Rect(band.normalized());
    if (rect.isEmpty())
        return;
    Edge(canvas, rect, Highlight, Highlight);
    // Only the visible dashes: a band may extend far beyond the window.
    const QRect seen = rect & canvas.Bounds();
    if (seen.isEmpty())
        return;
    const int dash = DashLength * canvas.line;
    const int right = rect.x() + rect.width() - canvas.line;
    const int bottom = rect.y() + rect.height() - canvas.line;
    std::vector<QRect> dashes;
    for (int x = rect.x() + (seen.x() - rect.x()) / (2 * dash) * 2 * dash; x <= seen.right(); x += 2 * dash)
        for (const int y : {rect.y(), bottom})
            dashes.emplace_back(x, y, std::min(dash, rect.x() + rect.width() - x), canvas.line);
    for (int y = rect.y() + (seen.y() - rect.y()) / (2 * dash) * 2 * dash; y <= seen.bottom(); y += 2 * dash)
        for (const int x : {rect.x(), right})
            dashes.emplace_back(x, y, canvas.line, std::min(dash, rect.y() + rect.height() - y));
    canvas.Fill(dashes, Qt::black);
}

} // namespace ob
