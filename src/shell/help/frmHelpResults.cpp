// SPDX-License-Identifier: GPL-3.0-or-later
// The appearance of a search result.
#include "shell/help/frmHelpResults.h"

#include <QApplication>
#include <QPainter>
#include <QTextLayout>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int Margin = 7;
constexpr int Gap = 3;

QFont TitleFont(const QStyleOptionViewItem& option)
{
    QFont font = option.font;
    font.setWeight(QFont::DemiBold);
    return font;
}

QFont SnippetFont(const QStyleOptionViewItem& option)
{
    QFont font = option.font;
    font.setPointSizeF(font.pointSizeF() * 0.9);
    return font;
}

// The part of a line around its first word that fits the width.
QString CutAround(const QString& line, const QStringList& words, const QFontMetrics& metrics, int width)
{
    if (metrics.horizontalAdvance(line) <= width)
        return line;
    const QList<TextSpan> found = FindWords(line, words);
    const qsizetype first = found.isEmpty() ? 0 : found.first().start;
    // A few words before it give the context, unless the word itself would not be visible.
    qsizetype start = first;
    while (start > 0 && metrics.horizontalAdvance(line.mid(start, first - start)) < width / 3)
        --start;
    while (start > 0 && start < first && line[start - 1] != u' ')
        ++start;
    const QString cut = start == 0 ? line : u"… "_s + line.mid(start);
    return metrics.elidedText(cut, Qt::ElideRight, width);
}

void PaintSnippet(QPainter& painter, QPoint corner, const QString& text, const QStringList& words, const QFont& font)
{
    QTextLayout layout(text, font);
    QList<QTextLayout::FormatRange> bold;
    for (const TextSpan& span : FindWords(text, words)) {
        QTextLayout::FormatRange range;
        range.start = static_cast<int>(span.start);
        range.length = static_cast<int>(span.length);
        range.format.setFontWeight(QFont::Bold);
        bold.append(range);
    }
    layout.setFormats(bold);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    layout.draw(&painter, corner);
}

} // namespace

void frmHelpResults::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem frame = option;
    initStyleOption(&frame, index);
    frame.text.clear();
    const QStyle* style = frame.widget == nullptr ? QApplication::style() : frame.widget->style();
    style->drawControl(QStyle::CE_ItemViewItem, &frame, painter, frame.widget);

    const bool isSelected = (option.state & QStyle::State_Selected) != 0;
    const QColor ink = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
    const QRect inside = option.rect.adjusted(Margin, Margin, -Margin, -Margin);
    painter->save();
    painter->setClipRect(option.rect);
    painter->setPen(ink);
    painter->setFont(TitleFont(option));
    const QFontMetrics titleMetrics(TitleFont(option));
    painter->drawText(inside.left(), inside.top() + titleMetrics.ascent(),
                      titleMetrics.elidedText(index.data().toString(), Qt::ElideRight, inside.width()));

    QColor faint = ink;
    faint.setAlphaF(0.75F);
    painter->setPen(faint);
    const QFontMetrics metrics(SnippetFont(option));
    int top = inside.top() + titleMetrics.height() + Gap;
    const QStringList snippets = index.data(SnippetsRole).toStringList();
    for (const QString& snippet : snippets) {
        // Bold characters are wider than the measured ones.
        const QString cut = CutAround(snippet, words, metrics, inside.width() - 12);
        PaintSnippet(*painter, QPoint(inside.left(), top), cut, words, SnippetFont(option));
        top += metrics.height() + 1;
    }
    painter->restore();
}

QSize frmHelpResults::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int lines = static_cast<int>(index.data(SnippetsRole).toStringList().size());
    const int snippets = lines * (QFontMetrics(SnippetFont(option)).height() + 1);
    return {100, 2 * Margin + QFontMetrics(TitleFont(option)).height() + Gap + snippets};
}

} // namespace ob
