// SPDX-License-Identifier: GPL-3.0-or-later
// The metafile's device: text.
#include "imagetools/metafiles/cMetafileCanvas.h"

#include "imagetools/metafiles/modMetafile.h"
#include "platform/language/modAnsi.h"

#include <QFont>
#include <QFontMetricsF>
#include <QStringDecoder>
#include <QtMath>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr std::uint32_t AlignUpdatesPosition = 1;
constexpr std::uint32_t AlignCenter = 6;
constexpr std::uint32_t AlignRight = 2;
constexpr std::uint32_t AlignBaseline = 24;
constexpr std::uint32_t AlignBottom = 8;

// Larger characters would cost more than any picture needs.
constexpr double LargestCharacters = 2000;

double LengthOf(QPointF vector)
{
    return std::hypot(vector.x(), vector.y());
}

// The code units of the character at that place: two for a pair of surrogates.
qsizetype UnitsAt(const QString& text, qsizetype place)
{
    return text[place].isHighSurrogate() && place + 1 < text.size() ? 2 : 1;
}

QFont FontOf(const MetafileFont& wanted, double pixels)
{
    QFont font(wanted.face.isEmpty() ? u"Arial"_s : wanted.face);
    font.setStyleHint((wanted.pitch & 3) == 1         ? QFont::Monospace
                      : (wanted.pitch & 0xF0) == 0x10 ? QFont::Serif
                                                      : QFont::SansSerif);
    const int weight = wanted.weight == 0 ? 400 : std::clamp(wanted.weight, 1, 1000);
    font.setWeight(static_cast<QFont::Weight>(weight));
    font.setItalic(wanted.isItalic);
    font.setUnderline(wanted.isUnderlined);
    font.setStrikeOut(wanted.isStruckOut);
    font.setPixelSize(static_cast<int>(std::clamp(std::round(pixels), 1.0, LargestCharacters)));
    return font;
}

// A positive height is that of a line, including the space above and below the characters.
QFont FontInPixels(const MetafileFont& wanted, double scale, double widthScale)
{
    const double height = wanted.height == 0 ? 16 : std::abs(wanted.height) * scale;
    QFont font = FontOf(wanted, height);
    if (wanted.height > 0) {
        const QFontMetricsF metrics(font);
        const double line = metrics.ascent() + metrics.descent();
        if (line > 0)
            font = FontOf(wanted, height * font.pixelSize() / line);
    }
    const double average = wanted.width == 0 ? 0 : QFontMetricsF(font).averageCharWidth();
    if (average > 0)
        font.setStretch(static_cast<int>(std::clamp(100 * std::abs(wanted.width) * widthScale / average, 10.0, 400.0)));
    return font;
}

const char* CodePageOf(int charset)
{
    switch (charset) {
    case 128:
        return "Shift_JIS";
    case 129:
        return "windows-949";
    case 134:
        return "GBK";
    case 136:
        return "Big5";
    case 161:
        return "windows-1253";
    case 162:
        return "windows-1254";
    case 177:
        return "windows-1255";
    case 178:
        return "windows-1256";
    case 186:
        return "windows-1257";
    case 204:
        return "windows-1251";
    case 222:
        return "windows-874";
    case 238:
        return "windows-1250";
    default:
        return nullptr;
    }
}

} // namespace

QString cMetafileCanvas::TextOfBytes(QByteArrayView bytes) const
{
    if (const char* codePage = CodePageOf(state.font.charset)) {
        QStringDecoder decoder(codePage);
        if (decoder.isValid())
            return decoder.decode(bytes);
    }
    return TextFromAnsi(bytes);
}

// The system takes milliseconds to look up a new family, and a fraction of one for each of its sizes.
bool cMetafileCanvas::PayForFont()
{
    constexpr double familyWork = 2e6;
    constexpr double sizeWork = 2e5;
    const MetafileFont& font = state.font;
    const QString one = u"%1 %2 %3 %4 %5 %6"_s.arg(font.face)
                            .arg(font.height)
                            .arg(font.width)
                            .arg(font.weight)
                            .arg(font.isItalic)
                            .arg(ToPixels({0, 1}).y() - ToPixels({0, 0}).y());
    const bool isNewFamily = fontsUsed.insert(font.face).second;
    const bool isNew = fontsUsed.insert(one).second;
    return Spend((isNewFamily ? familyWork : 0) + (isNew ? sizeWork : 0));
}

void cMetafileCanvas::Text(const MetafileText& text)
{
    if ((text.options & MetafileText::Opaque) != 0) {
        const MetafileBrush before = state.brush;
        state.brush = BrushOfStyle(0, 0, 0);
        state.brush.color = state.backColor;
        PatternBlt(text.box, 0x00F00021);
        state.brush = before;
    }
    const bool movesOn = (state.textAlign & AlignUpdatesPosition) != 0;
    const QPointF place = movesOn ? state.position : text.position;
    const double scale = std::max(LengthOf(toPixels.map(QPointF(0, 1)) - toPixels.map(QPointF(0, 0))), 0.0);
    const double across = LengthOf(toPixels.map(QPointF(1, 0)) - toPixels.map(QPointF(0, 0)));
    if (text.text.isEmpty() || (text.options & MetafileText::GlyphNumbers) != 0 || !std::isfinite(scale * across))
        return;
    const double height = std::clamp(std::abs(state.font.height) * scale, 8.0, LargestCharacters);
    if (!Spend(static_cast<double>(text.text.size()) * CharacterCost(height)))
        return;
    if (!painter) {
        Note(QRectF(ToPixels(place), QSizeF(height * 0.6 * static_cast<double>(text.text.size()), height)));
        return;
    }
    if (!UseClip() || !Spend(ClippedCost(linesOfClip, height / image->height())) || !PayForFont() || !CanDrawText())
        return;
    const QFont font = FontInPixels(state.font, scale, across);
    double width = QFontMetricsF(font).horizontalAdvance(text.text);
    if (!text.advances.empty()) {
        width = 0;
        for (const double advance : text.advances)
            width += advance * across;
    }
    PaintText(text, font, place, across);
    if (movesOn && across > 0)
        state.position += QPointF(width / across, 0);
}

void cMetafileCanvas::PaintText(const MetafileText& text, const QFont& font, QPointF origin, double advanceScale)
{
    const QFontMetricsF metrics(font);
    double width = metrics.horizontalAdvance(text.text);
    if (!text.advances.empty()) {
        width = 0;
        for (const double advance : text.advances)
            width += advance * advanceScale;
    }
    const std::uint32_t across = state.textAlign & AlignCenter;
    const double left = across == AlignCenter ? -width / 2 : across == AlignRight ? -width : 0;
    const std::uint32_t down = state.textAlign & AlignBaseline;
    const double baseline = down == AlignBaseline ? 0 : down == AlignBottom ? -metrics.descent() : metrics.ascent();

    const QPointF direction = toPixels.map(QPointF(1, 0)) - toPixels.map(QPointF(0, 0));
    const double turned =
        toPixels.type() > QTransform::TxScale ? qRadiansToDegrees(std::atan2(direction.y(), direction.x())) : 0;
    painter->save();
    if ((text.options & MetafileText::Clipped) != 0)
        painter->setClipRect(PixelArea(text.box), Qt::IntersectClip);
    painter->setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter->setFont(font);
    painter->translate(ToPixels(origin));
    painter->rotate(turned - state.font.escapement / 10.0);
    if (state.backMode == BackgroundMode::Opaque)
        painter->fillRect(QRectF(left, baseline - metrics.ascent(), width, metrics.ascent() + metrics.descent()),
                          QColor(state.backColor));
    painter->setPen(QColor(state.textColor));
    if (text.advances.empty()) {
        painter->drawText(QPointF(left, baseline), text.text);
    } else {
        double x = left;
        std::size_t number = 0;
        for (qsizetype place = 0; place < text.text.size(); ++number) {
            const qsizetype length = UnitsAt(text.text, place);
            painter->drawText(QPointF(x, baseline), text.text.mid(place, length));
            for (qsizetype unit = 0; unit < length; ++unit, ++place)
                x += static_cast<std::size_t>(place) < text.advances.size()
                         ? text.advances[static_cast<std::size_t>(place)] * advanceScale
                         : 0;
        }
    }
    painter->restore();
}

} // namespace ob
