// SPDX-License-Identifier: GPL-3.0-or-later
// Plain text laid out on pages, line by line.
#include "editor/modPlainPages.h"

#include "platform/dialogs/modPrinter.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>

namespace ob {

namespace {

constexpr int PointSize = 10;

// A line is laid out in pieces of this many characters at most: the time for a piece grows faster than its length, and
// no page is as wide.
constexpr qsizetype LongestPiece = 4096;

bool IsLineEnd(QChar character)
{
    return character == QLatin1Char('\r') || character == QLatin1Char('\n');
}

QString WithoutTabs(const QString& text, int tabSize)
{
    if (!text.contains(QLatin1Char('\t')))
        return text;
    QString expanded;
    qsizetype lineStart = 0;
    for (const QChar character : text) {
        if (character == QLatin1Char('\t')) {
            const qsizetype column = expanded.size() - lineStart;
            expanded += QString(tabSize - column % tabSize, QLatin1Char(' '));
            continue;
        }
        expanded += character;
        if (IsLineEnd(character))
            lineStart = expanded.size();
    }
    return expanded;
}

} // namespace

cPlainPages::cPlainPages(const QString& printedText, cPrintJob& printJob, int tabSize)
    : text(WithoutTabs(printedText, std::max(1, tabSize))), job(printJob),
      font(QFontDatabase::systemFont(QFontDatabase::FixedFont))
{
    font.setPointSize(PointSize);
    font = QFont(font, job.Painter().device());
    lineHeight = y = QFontMetricsF(font).lineSpacing();
    textEnd = text.size();
    while (textEnd > 0 && IsLineEnd(text[textEnd - 1]))
        --textEnd;
}

PageEnd cPlainPages::FillPage()
{
    // Even the shortest paper gets one line.
    const qreal bottom = std::max<qreal>(job.ScaleSize().height(), y + lineHeight);
    while (position < textEnd) {
        if (y + lineHeight > bottom) {
            y = 0;
            return PageEnd::MoreToCome;
        }
        if (IsLineEnd(text[position]))
            y += lineHeight;
        else
            PrintLine(bottom);
        if (position < text.size() && IsLineEnd(text[position]))
            SkipLineEnd();
    }
    return PageEnd::AllPrinted;
}

void cPlainPages::PrintLine(qreal bottom)
{
    const auto start = text.cbegin() + position;
    const auto limit = start + std::min(text.size() - position, LongestPiece);
    const auto end = std::find_if(start, limit, IsLineEnd);
    const qsizetype length = end - start;
    const bool isWhole = end == text.cend() || IsLineEnd(*end);
    QTextLayout layout(text.sliced(position, length), font, job.Painter().device());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    int rows = 0;
    qsizetype laidOut = 0;
    while (laidOut < length && y + (rows + 1) * lineHeight <= bottom) {
        QTextLine row = layout.createLine();
        row.setLineWidth(job.ScaleSize().width());
        laidOut += row.textLength();
        // The last row of a piece may have more room than text: the next piece begins with that row.
        if (!isWhole && rows > 0 && laidOut == length)
            break;
        position += row.textLength();
        ++rows;
    }
    layout.endLayout();
    for (int i = 0; i < rows; ++i) {
        layout.lineAt(i).draw(&job.Painter(), QPointF(0, y));
        y += lineHeight;
    }
}

void cPlainPages::SkipLineEnd()
{
    const bool isPair =
        position + 1 < text.size() && text[position] == QLatin1Char('\r') && text[position + 1] == QLatin1Char('\n');
    position = std::min(text.size(), position + (isPair ? 2 : 1));
}

} // namespace ob
