// SPDX-License-Identifier: GPL-3.0-or-later
// The look of code windows: under a dark palette of the desktop, and after the preferences have been applied.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "scilexer/modLexer.h"
#include "shell/bench/modPreferences.h"
#include "shell/state/Module1.h"
#include "shell/state/modColors.h"

#include <QImage>
#include <QPalette>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr unsigned GetCaretFore = 2138;
constexpr std::uintptr_t LineNumberStyle = 33;
constexpr double Readable = 4.5;

// The palette of a dark desktop for as long as it lives.
class DarkDesktop {
public:
    DarkDesktop()
    {
        QPalette dark(QColor(49, 54, 59));
        dark.setColor(QPalette::Base, QColor(27, 30, 32));
        dark.setColor(QPalette::Text, QColor(239, 240, 241));
        QApplication::setPalette(dark);
    }
    ~DarkDesktop() { QApplication::setPalette(QPalette()); }
};

QByteArray Program()
{
    return "' a comment\r\n[start] \"text\" 12 #main\r\nprint x\r\n";
}

QColor ColorAt(const TestBench& bench, unsigned message, std::uintptr_t style)
{
    return ColorOf(static_cast<ColorRef>(SendSci(bench.Active()->sci, message, style)));
}

double ContrastOfStyle(const TestBench& bench, std::uintptr_t style)
{
    return ContrastOf(ColorAt(bench, SCI_STYLEGETFORE, style), ColorAt(bench, SCI_STYLEGETBACK, style));
}

// The share of light pixels in the control's picture, from 0 to 1.
double LightShare(const TestBench& bench)
{
    const QImage picture = bench.ActiveWindowEdit()->grab().toImage();
    int light = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            light += IsDark(picture.pixelColor(x, y)) ? 0 : 1;
    return static_cast<double>(light) / (picture.width() * picture.height());
}

} // namespace

class win_modStyling : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lightWindowHasTheChosenColors();
    void darkWindowCanBeRead();
    void darkWindowKeepsTheSettings();
    void colorsThatCanBeReadInTheDarkStay();
    void lineNumbersKeepTheirColorsAfterApply();
};

void win_modStyling::lightWindowHasTheChosenColors()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    QCOMPARE(ColorAt(bench, SCI_STYLEGETFORE, StyleKeyword), QColor(0, 0, 200));
    QCOMPARE(ColorAt(bench, SCI_STYLEGETBACK, StyleComment), QColor(240, 240, 240));
    QCOMPARE(ColorAt(bench, SCI_STYLEGETFORE, LineNumberStyle), QColor(92, 92, 92));
    QCOMPARE(ColorAt(bench, SCI_STYLEGETBACK, LineNumberStyle), QColor(234, 234, 234));
}

void win_modStyling::darkWindowCanBeRead()
{
    const DarkDesktop desktop;
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    for (const std::uintptr_t style : {StyleComment, StyleNumber, StyleKeyword, StyleString, StyleHandle, StyleOperator,
                                       StyleIdentifier, StyleLabel})
        QVERIFY2(ContrastOfStyle(bench, style) >= Readable, qPrintable(QString::number(style)));
    QVERIFY(ContrastOfStyle(bench, LineNumberStyle) >= Readable);
    QVERIFY(IsDark(ColorAt(bench, SCI_STYLEGETBACK, StyleComment)));
    QVERIFY(IsDark(ColorAt(bench, SCI_STYLEGETBACK, LineNumberStyle)));
    QVERIFY(!IsDark(ColorAt(bench, GetCaretFore, 0)));
    // No block of white: margin, comment and the caret's line are dark too.
    const double light = LightShare(bench);
    QVERIFY2(light < 0.05, qPrintable(QString::number(light)));
}

void win_modStyling::darkWindowKeepsTheSettings()
{
    const DarkDesktop desktop;
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    QCOMPARE(Editor.KeywordColor, Rgb(0, 0, 200));
    Preferences values = LoadPreferences(bench.ProgramPath(QString()));
    ApplyPreferences(values, bench.ProgramPath(QString()));
    QCOMPARE(Editor.KeywordColor, Rgb(0, 0, 200));
    QVERIFY(ContrastOfStyle(bench, StyleKeyword) >= Readable);
    QVERIFY(IsDark(ColorAt(bench, SCI_STYLEGETBACK, LineNumberStyle)));
}

void win_modStyling::colorsThatCanBeReadInTheDarkStay()
{
    const DarkDesktop desktop;
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    Preferences values = LoadPreferences(bench.ProgramPath(QString()));
    values.keywordColor = Rgb(120, 200, 255);
    values.commentBackColor = Rgb(10, 40, 10);
    ApplyPreferences(values, bench.ProgramPath(QString()));
    QCOMPARE(ColorAt(bench, SCI_STYLEGETFORE, StyleKeyword), QColor(120, 200, 255));
    QCOMPARE(ColorAt(bench, SCI_STYLEGETBACK, StyleComment), QColor(10, 40, 10));
}

void win_modStyling::lineNumbersKeepTheirColorsAfterApply()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    Preferences values = LoadPreferences(bench.ProgramPath(QString()));
    values.syntaxColor = 0;
    ApplyPreferences(values, bench.ProgramPath(QString()));
    QCOMPARE(ColorAt(bench, SCI_STYLEGETFORE, LineNumberStyle), QColor(92, 92, 92));
    QCOMPARE(ColorAt(bench, SCI_STYLEGETBACK, LineNumberStyle), QColor(234, 234, 234));
}

OB_BENCH_TEST(win_modStyling)
#include "win_modStyling.moc"
