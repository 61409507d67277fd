// SPDX-License-Identifier: GPL-3.0-or-later
// What a form's controls look like on the drawing surface.
#include "guibuilder/frmSurfaceStyle.h"

#include "platform/language/modColorNames.h"
#include "platform/language/modRuntime.h"

#include <QFontDatabase>
#include <QLineF>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr ColorRef SystemColorMark = 0x80000000;

// The system colours in the order of their numbers, as on a typical desktop.
constexpr std::array<ColorRef, 25> SystemColors = {
    Rgb(200, 200, 200), Rgb(0, 0, 0),       Rgb(153, 180, 209), Rgb(191, 205, 219), Rgb(240, 240, 240),
    Rgb(255, 255, 255), Rgb(100, 100, 100), Rgb(0, 0, 0),       Rgb(0, 0, 0),       Rgb(0, 0, 0),
    Rgb(180, 180, 180), Rgb(244, 247, 252), Rgb(171, 171, 171), Rgb(0, 120, 215),   Rgb(255, 255, 255),
    Rgb(240, 240, 240), Rgb(160, 160, 160), Rgb(109, 109, 109), Rgb(0, 0, 0),       Rgb(0, 0, 0),
    Rgb(255, 255, 255), Rgb(105, 105, 105), Rgb(227, 227, 227), Rgb(0, 0, 0),       Rgb(255, 255, 225)};

constexpr double TwipsPerPoint = 20;
constexpr double UsualPoints = 10;
constexpr double MostPoints = 400;
constexpr int SmallPixels = 7;

// No screen shows more characters than these.
constexpr qsizetype MostLineCharacters = 2048;
constexpr qsizetype MostParagraphCharacters = 8192;
constexpr qreal Endless = 1000000;

// More than the captions of a usual form; beyond that the layouts are discarded.
constexpr qsizetype MostTexts = 8192;

bool NameHasAnyOf(const QString& name, std::initializer_list<const char*> words)
{
    return std::ranges::any_of(
        words, [&](const char* word) { return name.contains(QLatin1String(word), Qt::CaseInsensitive); });
}

void AddSubstitute(QFont& font, const QString& name)
{
    QString family = u"Liberation Sans"_s;
    QFont::StyleHint hint = QFont::SansSerif;
    if (NameHasAnyOf(name, {"courier", "mono", "consol", "fixed", "terminal", "typewriter", "lucida con"})) {
        family = u"Liberation Mono"_s;
        hint = QFont::Monospace;
    } else if (!NameHasAnyOf(name, {"sans"}) &&
               NameHasAnyOf(name, {"times", "roman", "serif", "georgia", "garamond", "palatino", "book", "cambria"})) {
        family = u"Liberation Serif"_s;
        hint = QFont::Serif;
    }
    font.setStyleHint(hint);
    font.setFamilies(QFontDatabase::hasFamily(name) ? QStringList{name, family} : QStringList{family});
}

// The number at the start. The text comes from a file: what is not a usable font size counts as the usual one.
double PointsOf(const QString& text)
{
    const QString trimmed = TrimSpaces(text);
    const auto end =
        std::ranges::find_if_not(trimmed, [](QChar each) { return (each >= u'0' && each <= u'9') || each == u'.'; });
    const double points = QStringView(trimmed.begin(), end).toDouble();
    return points > 0 ? std::min(points, MostPoints) : UsualPoints;
}

QColor NamedColor(const QString& name, const char* usual)
{
    ColorRef color = ColorFromName(QString::fromLatin1(usual));
    SetColorByName(color, name);
    return SurfaceColor(color);
}

struct MarkedText {
    QString text;
    qsizetype marked = -1;
};

MarkedText ReadAmpersands(const QString& caption)
{
    MarkedText result;
    result.text.reserve(caption.size());
    for (qsizetype place = 0; place < caption.size(); ++place) {
        const bool isMark = caption[place] == u'&';
        if (isMark && ++place == caption.size())
            break;
        if (isMark && caption[place] != u'&')
            result.marked = result.text.size();
        result.text += caption[place];
    }
    return result;
}

QString WithoutControls(QString text)
{
    for (QChar& character : text)
        if (character.unicode() < u' ' || character == QChar::LineSeparator || character == QChar::ParagraphSeparator)
            character = u' ';
    return text;
}

QString WithLineSeparators(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (QChar& character : text)
        if (character == u'\n' || character == u'\r')
            character = QChar::LineSeparator;
        else if (character.unicode() < u' ')
            character = u' ';
    return text;
}

SurfaceText LayOut(const MarkedText& marked, const QFont& font, QTextOption::WrapMode wrapMode, qreal width)
{
    QTextLayout layout(marked.text, font);
    // Absolute: otherwise text that runs from right to left would be aligned with the end of an endless line.
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setWrapMode(wrapMode);
    layout.setTextOption(option);
    SurfaceText result;
    qreal top = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, top));
        result.size.setWidth(std::max(result.size.width(), line.naturalTextWidth()));
        const qsizetype first = line.textStart();
        if (marked.marked >= first && marked.marked < first + line.textLength()) {
            const auto character = static_cast<int>(marked.marked);
            const qreal base = top + line.ascent() + 1;
            result.underline.emplace(line.cursorToX(character), base, line.cursorToX(character + 1), base);
        }
        top += std::ceil(line.height());
    }
    layout.endLayout();
    result.size.setHeight(top);
    result.runs = layout.glyphRuns();
    return result;
}

} // namespace

QColor SurfaceColor(ColorRef color)
{
    if ((color & SystemColorMark) != 0) {
        const std::size_t number = color & 0xFF;
        color = number < SystemColors.size() ? SystemColors[number] : ColorRef{0};
    }
    const auto channel = [color](int shift) { return static_cast<int>((color >> shift) & 0xFF); };
    return {channel(0), channel(8), channel(16)};
}

QFont SurfaceFont(const QString& name, const QString& points, int twipsPerPixelY)
{
    QFont font;
    AddSubstitute(font, TrimSpaces(name));
    const double pixels = PointsOf(points) * TwipsPerPoint / std::max(twipsPerPixelY, 1);
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixels))));
    return font;
}

SurfaceStyle::SurfaceStyle(const GuiForm& form, SurfaceScale screen)
    : scale{std::max(screen.x, 1), std::max(screen.y, 1)},
      font(SurfaceFont(form.GuiFontName, form.GuiFontSize, scale.y)), metrics(font),
      fore(NamedColor(form.GuiForegroundColor, "Black")), surface(NamedColor(form.GuiBackgroundColor, "Buttonface")),
      listbox(NamedColor(form.GuiListboxColor, "White")), combobox(NamedColor(form.GuiComboboxColor, "White")),
      textbox(NamedColor(form.GuiTextboxColor, "White")), texteditor(NamedColor(form.GuiTexteditorColor, "White")),
      smallFont(SurfaceFont({}, {}, scale.y))
{
    smallFont.setPixelSize(SmallPixels);
}

SurfaceText SurfaceStyle::Remembered(const QString& text, Layout layout, int width) const
{
    const TextKey key{text, layout, width};
    const auto known = texts.constFind(key);
    if (known != texts.constEnd())
        return *known;
    if (texts.size() >= MostTexts)
        texts.clear();
    const QString line = WithoutControls(text.left(MostLineCharacters));
    SurfaceText made;
    switch (layout) {
    case Layout::Line:
        made = LayOut({line}, font, QTextOption::NoWrap, Endless);
        break;
    case Layout::MarkedLine:
        made = LayOut(ReadAmpersands(line), font, QTextOption::NoWrap, Endless);
        break;
    case Layout::Paragraph:
        made = LayOut(ReadAmpersands(WithLineSeparators(text.left(MostParagraphCharacters))), font,
                      QTextOption::WordWrap, width);
        break;
    case Layout::SmallLine:
        made = LayOut({line}, smallFont, QTextOption::NoWrap, Endless);
        break;
    }
    texts.insert(key, made);
    return made;
}

SurfaceText SurfaceStyle::Line(const QString& text, Ampersands ampersands) const
{
    return Remembered(text, ampersands == Ampersands::Mark ? Layout::MarkedLine : Layout::Line, 0);
}

SurfaceText SurfaceStyle::Paragraph(const QString& text, int width) const
{
    return Remembered(text, Layout::Paragraph, width);
}

SurfaceText SurfaceStyle::SmallLine(const QString& text) const
{
    return Remembered(text, Layout::SmallLine, 0);
}

QImage SurfaceStyle::RadioRing(int side) const
{
    if (radioRing.width() == side)
        return radioRing;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal line = side / 13.0;
    constexpr int upperLeft = 45 * 16; // sixteenths of a degree
    constexpr int half = 180 * 16;
    QRectF ring(line / 2, line / 2, side - line, side - line);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(ring);
    painter.setBrush(Qt::NoBrush);
    const auto arcs = [&](ColorRef upper, ColorRef lower) {
        painter.setPen(QPen(SurfaceColor(lower), line, Qt::SolidLine, Qt::FlatCap));
        painter.drawArc(ring, upperLeft + half, half);
        painter.setPen(QPen(SurfaceColor(upper), line, Qt::SolidLine, Qt::FlatCap));
        painter.drawArc(ring, upperLeft, half);
        ring.adjust(line, line, -line, -line);
    };
    arcs(Rgb(160, 160, 160), Rgb(255, 255, 255));
    arcs(Rgb(105, 105, 105), Rgb(227, 227, 227));
    radioRing = image;
    return image;
}

} // namespace ob
