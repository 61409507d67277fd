// SPDX-License-Identifier: GPL-3.0-or-later
// The coloured preview of code: its colours, its keys, its scrolling.
#include "codetools/MakerBench.h"

#include "editor/document/modSyntaxTable.h"
#include "editor/frmCodePreview.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"
#include "shell/state/modOptions.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QVBoxLayout>

#include <cmath>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Sample = u"[start] ' note\r\nprint #main, \"text\" ; 12\r\nnothing"_s;

QTextCharFormat FormatAt(const frmCodePreview& preview, int line, int column)
{
    for (const auto& range : preview.document()->findBlockByNumber(line).layout()->formats())
        if (column >= range.start && column < range.start + range.length)
            return range.format;
    return {};
}

QColor InkAt(const frmCodePreview& preview, int line, int column)
{
    return FormatAt(preview, line, column).foreground().color();
}

QColor ColorOf(ColorRef color)
{
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

QPalette DarkPalette()
{
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    return dark;
}

// From 0, black, to 1, white. On the dark background here text is readable from 0.15 on.
double Luminance(const QColor& color)
{
    return 0.2126 * std::pow(color.redF(), 2.2) + 0.7152 * std::pow(color.greenF(), 2.2) +
           0.0722 * std::pow(color.blueF(), 2.2);
}

struct PreviewBench {
    PreviewBench()
    {
        BuildSyntaxTable();
        ReadAllSettings();
        preview.setPalette(QPalette(Qt::lightGray));
    }

    TestBench bench;
    frmCodePreview preview;
};

} // namespace

class win_frmCodePreview : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { ResetBench(); }

    void eachPieceHasTheColorOfItsKind()
    {
        PreviewBench b;
        b.preview.ShowCode(Sample);
        QCOMPARE(b.preview.toPlainText(), WithLineFeeds(Sample));
        QCOMPARE(InkAt(b.preview, 0, 0), ColorOf(Editor.BranchColor));
        QCOMPARE(InkAt(b.preview, 0, 8), ColorOf(Editor.CommentColor));
        QCOMPARE(FormatAt(b.preview, 0, 8).background().color(), ColorOf(Editor.CommentBackColor));
        QVERIFY(FormatAt(b.preview, 0, 8).fontItalic());
        QCOMPARE(InkAt(b.preview, 1, 0), ColorOf(Editor.KeywordColor));
        QCOMPARE(InkAt(b.preview, 1, 6), ColorOf(Editor.HandleColor));
        QCOMPARE(InkAt(b.preview, 1, 13), ColorOf(Editor.QuoteColor));
        QCOMPARE(InkAt(b.preview, 1, 22), ColorOf(Editor.NumberColor));
        QCOMPARE(FormatAt(b.preview, 2, 0).foreground().style(), Qt::NoBrush);
    }

    void charactersBeyondAsciiShiftNothing()
    {
        PreviewBench b;
        b.preview.ShowCode(QString::fromUtf8("\"Grüße 😀\" print"));
        const int word = static_cast<int>(b.preview.toPlainText().indexOf(QLatin1String("print")));
        QCOMPARE(InkAt(b.preview, 0, word - 2), ColorOf(Editor.QuoteColor));
        QCOMPARE(InkAt(b.preview, 0, word), ColorOf(Editor.KeywordColor));
        QCOMPARE(InkAt(b.preview, 0, word + 4), ColorOf(Editor.KeywordColor));
    }

    void theCurrentSettingsCount()
    {
        PreviewBench b;
        b.preview.ShowCode(Sample);
        Editor.KeywordColor = Rgb(1, 2, 3);
        b.preview.ShowCode(Sample);
        QCOMPARE(InkAt(b.preview, 1, 0), QColor(1, 2, 3));
        Editor.SyntaxColor = 0;
        b.preview.ShowCode(Sample);
        QCOMPARE(FormatAt(b.preview, 1, 0).foreground().style(), Qt::NoBrush);
        QCOMPARE(FormatAt(b.preview, 0, 8).background().style(), Qt::NoBrush);
    }

    void customKeywordsAreColored()
    {
        PreviewBench b;
        Words().LexerKeywords.prepend("nothing ");
        b.preview.ShowCode(Sample);
        QCOMPARE(InkAt(b.preview, 2, 0), ColorOf(Editor.KeywordColor));
    }

    void allColorsAreReadableOnADarkBackground()
    {
        PreviewBench b;
        b.preview.ShowCode(Sample);
        b.preview.setPalette(DarkPalette());
        QVERIFY(FormatAt(b.preview, 0, 8).background().color().lightness() < 60);
        for (const auto& [line, column] :
             {std::pair{0, 0}, std::pair{0, 8}, std::pair{1, 0}, std::pair{1, 6}, std::pair{1, 13}, std::pair{1, 22}})
            QVERIFY2(Luminance(InkAt(b.preview, line, column)) > 0.15,
                     qPrintable(u"line %1 column %2"_s.arg(line).arg(column)));
        // A colour chosen for a dark window stays.
        Editor.KeywordColor = Rgb(255, 255, 128);
        b.preview.ShowCode(Sample);
        QCOMPARE(InkAt(b.preview, 1, 0), QColor(255, 255, 128));
    }

    void paleColorsAreReadableOnALightBackground()
    {
        PreviewBench b;
        Editor.KeywordColor = Rgb(255, 255, 128);
        b.preview.ShowCode(Sample);
        QVERIFY(InkAt(b.preview, 1, 0).lightness() < 128);
    }

    void itCanBeReadAndCopiedButNotChanged()
    {
        PreviewBench b;
        b.preview.ShowCode(Sample);
        b.preview.show();
        QTest::keyClicks(&b.preview, u"typed"_s);
        QTest::keyClick(&b.preview, Qt::Key_Delete);
        QCOMPARE(b.preview.toPlainText(), WithLineFeeds(Sample));
        QTest::keyClick(&b.preview, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&b.preview, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(OnClipboard(), WithLineFeeds(Sample));
        QCOMPARE(b.preview.lineWrapMode(), QPlainTextEdit::NoWrap);
        QVERIFY(!b.preview.accessibleName().isEmpty());
    }

    void tabLeavesItAndEnterPressesTheDefaultButton()
    {
        const TestBench bench;
        QDialog window;
        auto* layout = new QVBoxLayout(&window);
        auto* preview = new frmCodePreview;
        auto* button = new QPushButton;
        layout->addWidget(preview);
        layout->addWidget(button);
        int presses = 0;
        connect(button, &QPushButton::clicked, button, [&presses] { ++presses; });
        button->setDefault(true);
        window.show();
        window.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &window);
        preview->setFocus();
        QTest::keyClick(preview, Qt::Key_Return);
        QCOMPARE(presses, 1);
        QTest::keyClick(preview, Qt::Key_Tab);
        QVERIFY(button->hasFocus());
        QTest::keyClick(button, Qt::Key_Tab, Qt::ShiftModifier);
        QVERIFY(preview->hasFocus());
        QTest::keyClick(preview, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }

    void changesAreScrolledIntoView()
    {
        PreviewBench b;
        b.preview.SetShownLines(4);
        b.preview.resize(200, b.preview.sizeHint().height());
        b.preview.show();
        QString code;
        for (int i = 0; i < 100; ++i)
            code += u"line %1\r\n"_s.arg(i);
        b.preview.ShowCode(code);
        QCOMPARE(b.preview.verticalScrollBar()->value(), 0);
        QString changed = code;
        changed.replace(u"line 70\r"_s, u"line 7x\r"_s);
        b.preview.ShowCode(changed);
        const int first = b.preview.verticalScrollBar()->value();
        QVERIFY2(first > 60 && first <= 70, qPrintable(QString::number(first)));
        b.preview.ShowCode(changed);
        QCOMPARE(b.preview.verticalScrollBar()->value(), first);
        b.preview.ShowCode(u"menu "_s + QString(300, u'x'));
        b.preview.ShowCode(u"menu "_s + QString(300, u'x') + u", [a]"_s);
        QVERIFY(b.preview.horizontalScrollBar()->value() > 0);
        b.preview.ShowCode({});
        QCOMPARE(b.preview.toPlainText(), QString());
    }

    void itPrefersTheHeightOfItsLines()
    {
        PreviewBench b;
        const int six = b.preview.sizeHint().height();
        b.preview.SetShownLines(7);
        QCOMPARE(b.preview.sizeHint().height() - six, b.preview.fontMetrics().lineSpacing());
        QVERIFY(b.preview.minimumSizeHint().height() < six);
    }
};

OB_BENCH_TEST(win_frmCodePreview)
#include "win_frmCodePreview.moc"
