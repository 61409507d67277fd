// SPDX-License-Identifier: GPL-3.0-or-later
// A preview of the code that a tool would generate, coloured as in a code window.
#include "editor/frmCodePreview.h"

#include "editor/document/modSyntaxTable.h"
#include "platform/dialogs/frmPlainText.h"
#include "platform/language/modAnsi.h"
#include "platform/language/modColorNames.h"
#include "scilexer/modLexer.h"
#include "shell/state/Module1.h"
#include "shell/state/modColors.h"

#include <QEvent>
#include <QFontDatabase>
#include <QStyle>
#include <QSyntaxHighlighter>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr int FewestLines = 3;
constexpr int ShownColumns = 60;

std::string_view ViewOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

} // namespace

// Colours each line by the lexer. Colours chosen for a light window are made readable on a dark background, and vice
// versa.
class frmCodeColors final : public QSyntaxHighlighter {
public:
    explicit frmCodeColors(QTextDocument* document) : QSyntaxHighlighter(document) {}

    void TakeSettings(const EditorSettings& settings, const QPalette& palette)
    {
        keywords = KeywordSet(ViewOf(DecodeAnsi(Words().LexerKeywords)));
        formats = {};
        isOn = settings.SyntaxColor > 0;
        if (!isOn)
            return;
        const QColor ground = palette.color(QPalette::Base);
        const auto set = [&](Style style, ColorRef color) {
            formats[style].setForeground(ReadableOn(ground, ColorOf(color)));
        };
        set(StyleKeyword, settings.KeywordColor);
        set(StyleString, settings.QuoteColor);
        set(StyleNumber, settings.NumberColor);
        set(StyleOperator, settings.NumberColor);
        set(StyleHandle, settings.HandleColor);
        set(StyleLabel, settings.BranchColor);
        const QColor back = GroundLike(ground, ColorOf(settings.CommentBackColor));
        formats[StyleComment].setBackground(back);
        formats[StyleComment].setForeground(ReadableOn(back, ColorOf(settings.CommentColor)));
        formats[StyleComment].setFontItalic(true);
    }

protected:
    void highlightBlock(const QString& text) override
    {
        if (!isOn)
            return;
        QByteArray utf8;
        std::vector<int> lastBytes; // for each UTF-16 unit
        for (qsizetype i = 0; i < text.size(); ++i) {
            const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
            utf8 += QStringView(text).mid(i, isPair ? 2 : 1).toUtf8();
            lastBytes.insert(lastBytes.end(), isPair ? 2 : 1, static_cast<int>(utf8.size()) - 1);
            i += isPair ? 1 : 0;
        }
        utf8 += "\r\n";
        std::vector<unsigned char> styles(static_cast<std::size_t>(utf8.size()));
        setCurrentBlockState(LexLine(previousBlockState(), ViewOf(utf8), keywords, styles.data()));
        for (std::size_t i = 0; i < lastBytes.size(); ++i)
            setFormat(static_cast<int>(i), 1, formats[styles[static_cast<std::size_t>(lastBytes[i])]]);
    }

private:
    KeywordSet keywords;
    std::array<QTextCharFormat, StyleLabel + 1> formats;
    bool isOn = false;
};

frmCodePreview::frmCodePreview(QWidget* parent) : QPlainTextEdit(parent), colors(new frmCodeColors(document()))
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setLineWrapMode(NoWrap);
    setUndoRedoEnabled(false);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    setAccessibleName(u"Preview of the code"_s);
    colors->TakeSettings(Editor, palette());
}

frmCodePreview::~frmCodePreview() = default;

void frmCodePreview::ShowCode(const QString& code)
{
    colors->TakeSettings(Editor, palette());
    const QString before = PlainTextOf(*this);
    if (code == shownCode) {
        colors->rehighlight();
        return;
    }
    shownCode = code;
    setPlainText(code);
    const QString now = PlainTextOf(*this);
    if (before.isEmpty())
        return;
    const auto lastChange = std::mismatch(now.crbegin(), now.crend(), before.crbegin(), before.crend()).first;
    QTextCursor cursor = textCursor();
    cursor.setPosition(static_cast<int>(now.crend() - lastChange));
    setTextCursor(cursor);
    ensureCursorVisible();
}

void frmCodePreview::SetShownLines(int lines)
{
    shownLines = std::max(1, lines);
    updateGeometry();
}

QSize frmCodePreview::sizeHint() const
{
    return {ShownColumns * fontMetrics().averageCharWidth(), HeightOf(shownLines)};
}

QSize frmCodePreview::minimumSizeHint() const
{
    return {QPlainTextEdit::minimumSizeHint().width(), HeightOf(std::min(shownLines, FewestLines))};
}

int frmCodePreview::HeightOf(int lines) const
{
    const int around = static_cast<int>(2 * document()->documentMargin()) + 2 * frameWidth();
    return lines * fontMetrics().lineSpacing() + around + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
}

void frmCodePreview::changeEvent(QEvent* event)
{
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        colors->TakeSettings(Editor, palette());
        colors->rehighlight();
    }
}

} // namespace ob
