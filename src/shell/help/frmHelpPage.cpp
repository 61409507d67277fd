// SPDX-License-Identifier: GPL-3.0-or-later
// A page of the manual: its appearance, its pictures, its sections.
#include "shell/help/frmHelpPage.h"

#include <QEvent>
#include <QFontDatabase>
#include <QImage>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextTable>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString PictureFolder = u":/manual/"_s;

constexpr int PageMargin = 28;     // left and right of the text, in pixels
constexpr int WidestLine = 92;     // in average characters; longer lines are hard to follow
constexpr double LineHeight = 132; // in percent
constexpr double HeadingSizes[] = {1.7, 1.28, 1.1, 1.0, 1.0, 1.0}; // of the text's size, from level 1

// A colour between the two, `part` of the way to the second.
QColor Blend(const QColor& from, const QColor& to, double part)
{
    const auto channel = [part](int left, int right) { return left + qRound((right - left) * part); };
    return {channel(from.red(), to.red()), channel(from.green(), to.green()), channel(from.blue(), to.blue())};
}

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Base).lightness() < 128;
}

// Most palettes have the same link colour for light and dark, which is unreadable on a dark page.
QColor LinkColor(const QPalette& palette)
{
    return IsDark(palette) ? QColor(0x7a, 0xb8, 0xf0) : QColor(0x1f, 0x5f, 0xa8);
}

QColor Tint(const QPalette& palette, double part)
{
    return Blend(palette.color(QPalette::Base), palette.color(QPalette::Text), part);
}

bool HasPicture(const QTextBlock& block)
{
    return block.text().contains(QChar::ObjectReplacementCharacter);
}

QImage Picture(const QString& target)
{
    return QImage(PictureFolder + target);
}

} // namespace

frmHelpPage::frmHelpPage(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    setFrameShape(QFrame::NoFrame);
    document()->setUndoRedoEnabled(false);
    document()->setDocumentMargin(0);
    document()->setIndentWidth(24);
}

void frmHelpPage::ShowPage(const QString& name, const QString& section)
{
    if (shown != name) {
        shown = name;
        marked.clear();
        Render();
    }
    GoToSection(section);
    // The first layout is that of the window's size when it appears.
    sectionToShow = isVisible() ? std::nullopt : std::optional(section);
}

void frmHelpPage::Render()
{
    // The document's own text colours come from the application's palette, which a picture of the window may not share.
    document()->setMarkdown(ManualText(shown), QTextDocument::MarkdownDialectGitHub);
    // The caret follows the text into the document's end, and a control scrolls to its caret when it appears.
    setTextCursor(QTextCursor(document()));
    fittedWidth = 0;
    Style();
    FitPictures();
    MarkWords(marked);
}

void frmHelpPage::Style()
{
    QTextCursor all(document());
    all.beginEditBlock();
    StyleFrame(*document()->rootFrame());
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next())
        StyleBlock(block);
    all.endEditBlock();
}

void frmHelpPage::StyleFrame(QTextFrame& frame)
{
    QTextFrameFormat format = frame.frameFormat();
    format.setLeftMargin(PageMargin);
    format.setTopMargin(PageMargin * 0.75);
    format.setBottomMargin(PageMargin);
    format.setRightMargin(std::max(PageMargin, viewport()->width() - PageMargin - TextWidth()));
    frame.setFrameFormat(format);
    for (QTextFrame* child : frame.childFrames())
        if (auto* table = qobject_cast<QTextTable*>(child))
            StyleTable(*table);
}

void frmHelpPage::StyleTable(QTextTable& table)
{
    QTextTableFormat format = table.format();
    format.setBorder(1);
    format.setBorderCollapse(true);
    format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
    format.setBorderBrush(Tint(palette(), 0.22));
    format.setCellPadding(5);
    format.setCellSpacing(0);
    format.setTopMargin(4);
    format.setBottomMargin(14);
    table.setFormat(format);
    for (int column = 0; column < table.columns(); ++column) {
        QTextTableCell cell = table.cellAt(0, column);
        QTextCharFormat head = cell.format();
        head.setBackground(Tint(palette(), 0.07));
        head.setFontWeight(QFont::DemiBold);
        cell.setFormat(head);
    }
}

void frmHelpPage::StyleBlock(const QTextBlock& block)
{
    QTextCursor cursor(block);
    QTextBlockFormat format = block.blockFormat();
    const int level = format.headingLevel();
    const bool isCode = format.hasProperty(QTextFormat::BlockCodeFence) || format.nonBreakableLines();
    const bool isCell = cursor.currentTable() != nullptr;
    if (isCode) {
        const bool isFirst = !block.previous().isValid() || !block.previous().blockFormat().nonBreakableLines();
        const bool isLast = !block.next().isValid() || !block.next().blockFormat().nonBreakableLines();
        format.setBackground(Tint(palette(), 0.06));
        format.setLeftMargin(10);
        format.setTopMargin(isFirst ? 6 : 0);
        format.setBottomMargin(isLast ? 14 : 0);
    } else if (level > 0) {
        format.setTopMargin(level == 1 ? 0 : 20);
        format.setBottomMargin(level == 1 ? 12 : 6);
    } else if (!isCell) {
        // A picture counts as a character of its line, which must not be stretched.
        if (!HasPicture(block))
            format.setLineHeight(LineHeight, QTextBlockFormat::ProportionalHeight);
        format.setTopMargin(0);
        format.setBottomMargin(block.textList() != nullptr ? 5 : 10);
    }
    cursor.setBlockFormat(format);
    if (level > 0) {
        cursor.select(QTextCursor::BlockUnderCursor);
        QTextCharFormat charFormat;
        charFormat.setFontPointSize(font().pointSizeF() * HeadingSizes[std::clamp(level, 1, 6) - 1]);
        charFormat.setFontWeight(QFont::DemiBold);
        cursor.mergeCharFormat(charFormat);
    }
    StylePieces(block);
}

void frmHelpPage::StylePieces(const QTextBlock& block)
{
    struct Piece {
        int start;
        int end;
        QTextCharFormat charFormat;
    };
    std::vector<Piece> pieces;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat was = fragment.charFormat();
        QTextCharFormat charFormat;
        if (was.isAnchor()) {
            charFormat.setForeground(LinkColor(palette()));
            charFormat.setFontUnderline(false);
        } else if (was.fontFixedPitch()) {
            charFormat.setFontFamilies({QFontDatabase::systemFont(QFontDatabase::FixedFont).family()});
            charFormat.setFontPointSize(font().pointSizeF());
            if (!block.blockFormat().nonBreakableLines())
                charFormat.setBackground(Tint(palette(), 0.07));
        } else {
            continue;
        }
        pieces.push_back({fragment.position(), fragment.position() + fragment.length(), charFormat});
    }
    for (const Piece& piece : pieces) {
        QTextCursor cursor(document());
        cursor.setPosition(piece.start);
        cursor.setPosition(piece.end, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(piece.charFormat);
    }
}

int frmHelpPage::TextWidth() const
{
    const int room = viewport()->width() - 2 * PageMargin;
    return std::max(80, std::min(room, fontMetrics().averageCharWidth() * WidestLine));
}

void frmHelpPage::FitPictures()
{
    if (fittedWidth == TextWidth())
        return;
    fittedWidth = TextWidth();
    // The document's cached picture must go, or it would be scaled from the old size.
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextImageFormat format = it.fragment().charFormat().toImageFormat();
            if (!format.isValid())
                continue;
            const QUrl url(format.name());
            document()->addResource(QTextDocument::ImageResource, url, loadResource(QTextDocument::ImageResource, url));
            document()->markContentsDirty(block.position(), block.length());
        }
    }
}

QVariant frmHelpPage::loadResource(int type, const QUrl& name)
{
    if (type != QTextDocument::ImageResource)
        return {};
    QImage picture = Picture(name.toString());
    if (picture.isNull())
        return {};
    const double scale = devicePixelRatioF();
    const int width = std::min(picture.width(), TextWidth());
    const int pixels = std::min(picture.width(), qRound(width * scale));
    if (pixels < picture.width())
        picture = picture.scaledToWidth(pixels, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(static_cast<double>(pixels) / width);
    return picture;
}

void frmHelpPage::MarkWords(const QStringList& words)
{
    marked = words;
    QList<QTextEdit::ExtraSelection> selections;
    QTextCharFormat mark;
    mark.setBackground(IsDark(palette()) ? QColor(0x6b, 0x58, 0x12) : QColor(0xff, 0xec, 0x9e));
    for (QTextBlock block = document()->begin(); block.isValid() && !words.isEmpty(); block = block.next()) {
        for (const TextSpan& span : FindWords(block.text(), words)) {
            QTextCursor cursor(block);
            cursor.setPosition(block.position() + static_cast<int>(span.start));
            cursor.setPosition(cursor.position() + static_cast<int>(span.length), QTextCursor::KeepAnchor);
            selections.append({cursor, mark});
        }
    }
    setExtraSelections(selections);
}

void frmHelpPage::GoToSection(const QString& section)
{
    verticalScrollBar()->setValue(0);
    if (section.isEmpty())
        return;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockFormat().headingLevel() == 0 || AnchorOf(block.text()) != section)
            continue;
        QTextCursor cursor(block);
        verticalScrollBar()->setValue(verticalScrollBar()->value() + cursorRect(cursor).top() - PageMargin / 2);
        return;
    }
}

void frmHelpPage::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    const bool isLook = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (!isLook || shown.isEmpty())
        return;
    const int scroll = verticalScrollBar()->value();
    Render();
    verticalScrollBar()->setValue(scroll);
}

void frmHelpPage::showEvent(QShowEvent* event)
{
    QTextBrowser::showEvent(event);
    if (sectionToShow)
        GoToSection(*sectionToShow);
    sectionToShow.reset();
}

void frmHelpPage::resizeEvent(QResizeEvent* event)
{
    if (!shown.isEmpty() && fittedWidth != 0) {
        StyleFrame(*document()->rootFrame());
        FitPictures();
    }
    QTextBrowser::resizeEvent(event);
}

} // namespace ob
