// SPDX-License-Identifier: GPL-3.0-or-later
// Lines that are too long to be measured whole: plain, shown around the caret, and their text untouched.
#include "SciBench.h"
#include "scilexer/modLexer.h"

#include <QElapsedTimer>
#include <QtTest>

#include <string>

using namespace ob;

namespace {

constexpr int VisibleStyle = 0; // of text without colours

// Without a line end.
std::string LongLine(std::size_t length)
{
    std::string line;
    while (line.size() < length)
        line += "print \"a\"; x(i) + 12.5 : ";
    line.resize(length);
    return line;
}

int StyleAt(const SciBench& bench, std::intptr_t position)
{
    return static_cast<int>(SendSci(bench.sci, SCI_GETSTYLEAT, static_cast<std::uintptr_t>(position)));
}

void GoTo(SciBench& bench, std::intptr_t position)
{
    SendSci(bench.sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(position));
    bench.Paint();
    QTest::qWait(10);
    bench.Paint();
}

bool HasText(const QImage& image)
{
    const QRgb paper = image.pixel(image.width() - 60, image.height() - 60);
    for (int x = 30; x < image.width() - 30; ++x)
        for (int y = 0; y < 15; ++y)
            if (image.pixel(x, y) != paper)
                return true;
    return false;
}

} // namespace

class win_SciLongLines : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLineOfMegabytesIsShownAtOnce();
    void theNeighborsOfALongLineKeepTheirColors();
    void theLongestColoredLineIsColored();
    void theTextAroundTheCaretIsShown();
    void typingGoesIntoTheTextAndIsUndone();
    void aPastedLineIsPlainBeforeItIsPainted();
    void aLongLineThatIsCutShortIsColored();
    void aSelectionOfHiddenTextCanBeReplaced();
    void charactersOfSeveralBytesStayWhole();
};

void win_SciLongLines::aLineOfMegabytesIsShownAtOnce()
{
    constexpr qint64 most = 3000; // milliseconds; measured whole, this line took 13 seconds
    const std::string line = LongLine(20000000);
    SciBench bench;
    QElapsedTimer timer;
    timer.start();
    bench.Insert(0, line);
    SendSci(bench.sci, SCI_GOTOPOS, 0);
    const QImage image = bench.Paint();
    QVERIFY2(timer.elapsed() < most, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(HasText(image));
    QVERIFY(bench.Text() == line);
    timer.restart();
    SendSci(bench.sci, SCI_SETWRAPMODE, 1);
    QVERIFY(HasText(bench.Paint()));
    QVERIFY2(timer.elapsed() < most, qPrintable(QString::number(timer.elapsed())));
}

void win_SciLongLines::theNeighborsOfALongLineKeepTheirColors()
{
    const std::string first = "if a then\r\n";
    const std::string line = LongLine(200000) + "\r\n";
    const std::string last = "print 1\r\nend if\r\n";
    SciBench bench(first + line + last);
    SendSci(bench.sci, SCI_COLOURISE, 0, -1);
    const auto lineStart = static_cast<std::intptr_t>(first.size());
    const auto lastStart = static_cast<std::intptr_t>(first.size() + line.size());
    const SciBench without(first + last);
    SendSci(without.sci, SCI_COLOURISE, 0, -1);
    for (std::intptr_t i = 0; i < lineStart; ++i)
        QCOMPARE(StyleAt(bench, i), StyleAt(without, i));
    for (std::intptr_t i = 0; i < static_cast<std::intptr_t>(last.size()); ++i)
        QCOMPARE(StyleAt(bench, lastStart + i), StyleAt(without, lineStart + i));
    // The block opened before the long line is open after it.
    QCOMPARE(SendSci(bench.sci, SCI_GETLINESTATE, 1), 1);
    QCOMPARE(SendSci(bench.sci, SCI_GETLINESTATE, 3), 0);
    QCOMPARE(StyleAt(bench, lineStart), VisibleStyle);
    QVERIFY(StyleAt(bench, lineStart + 100000) != VisibleStyle);
}

void win_SciLongLines::theLongestColoredLineIsColored()
{
    SciBench bench(LongLine(LongestColoredLine));
    SendSci(bench.sci, SCI_COLOURISE, 0, -1);
    QCOMPARE(StyleAt(bench, 0), 3); // "print"
    bench.Insert(0, "x");
    bench.Paint();
    QCOMPARE(StyleAt(bench, 1), VisibleStyle);
    QCOMPARE(StyleAt(bench, 6), VisibleStyle);
}

void win_SciLongLines::theTextAroundTheCaretIsShown()
{
    constexpr std::intptr_t length = 1000000;
    SciBench bench(LongLine(length));
    for (const std::intptr_t place : {length / 2, length, length / 3, std::intptr_t{0}}) {
        GoTo(bench, place);
        const std::intptr_t before = std::max<std::intptr_t>(place - 1000, 0);
        const std::intptr_t after = std::min<std::intptr_t>(place + 1000, length - 1);
        QCOMPARE(StyleAt(bench, before), VisibleStyle);
        QCOMPARE(StyleAt(bench, after), VisibleStyle);
        // The caret is in the view, among text.
        const auto x = SendSci(bench.sci, SCI_POINTXFROMPOSITION, 0, place);
        QVERIFY2(x >= 0 && x < bench.control->width(), qPrintable(QString::number(x)));
        QVERIFY(HasText(bench.Paint()));
    }
    QVERIFY(bench.Text() == LongLine(length));
}

void win_SciLongLines::typingGoesIntoTheTextAndIsUndone()
{
    constexpr std::size_t length = 1000000;
    const std::string line = LongLine(length);
    SciBench bench(line);
    for (const std::size_t place : {length, length / 2}) {
        GoTo(bench, static_cast<std::intptr_t>(place));
        SendSci(bench.sci, SCI_EMPTYUNDOBUFFER);
        QTest::keyClicks(bench.control, QStringLiteral("xyz"));
        bench.Paint();
        std::string typed = line;
        typed.insert(place, "xyz");
        QVERIFY(bench.Text() == typed);
        QCOMPARE(StyleAt(bench, static_cast<std::intptr_t>(place)), VisibleStyle);
        SendSci(bench.sci, SCI_UNDO);
        QVERIFY(bench.Text() == line);
    }
}

void win_SciLongLines::aPastedLineIsPlainBeforeItIsPainted()
{
    const std::string line = LongLine(300000);
    SciBench bench("print 1\r\nprint 2\r\n");
    bench.Paint();
    bench.Replace(9, 9, line);
    QVERIFY(StyleAt(bench, 9 + 150000) != VisibleStyle);
    SendSci(bench.sci, SCI_UNDO);
    SendSci(bench.sci, SCI_REDO);
    QVERIFY(StyleAt(bench, 9 + 150000) != VisibleStyle);
    QVERIFY(bench.Text() == "print 1\r\n" + line + "print 2\r\n");
}

void win_SciLongLines::aLongLineThatIsCutShortIsColored()
{
    SciBench bench(LongLine(300000));
    bench.Paint();
    bench.Replace(26, 300000, "");
    SendSci(bench.sci, SCI_COLOURISE, 0, -1);
    QCOMPARE(bench.Text(), LongLine(26));
    QCOMPARE(StyleAt(bench, 0), 3);
    QCOMPARE(StyleAt(bench, 7), 4); // the quote
}

void win_SciLongLines::aSelectionOfHiddenTextCanBeReplaced()
{
    constexpr std::intptr_t length = 300000;
    const std::string line = LongLine(length);
    SciBench bench(line);
    const auto select = [&] {
        SendSci(bench.sci, SCI_SETSEL, 100, length - 100);
        bench.Paint();
    };
    const std::string rest = line.substr(length - 100);
    select();
    QTest::keyClicks(bench.control, QStringLiteral("x"));
    QVERIFY(bench.Text() == line.substr(0, 100) + "x" + rest);
    SendSci(bench.sci, SCI_UNDO);
    QVERIFY(bench.Text() == line);
    for (const int key : {Qt::Key_Delete, Qt::Key_Backspace}) {
        select();
        QTest::keyClick(bench.control, static_cast<Qt::Key>(key));
        QVERIFY(bench.Text() == line.substr(0, 100) + rest);
        SendSci(bench.sci, SCI_UNDO);
        QVERIFY(bench.Text() == line);
    }
    select();
    SendSci(bench.sci, SCI_CUT);
    QVERIFY(bench.Text() == line.substr(0, 100) + rest);
    SendSci(bench.sci, SCI_PASTE);
    QVERIFY(bench.Text() == line);
}

void win_SciLongLines::charactersOfSeveralBytesStayWhole()
{
    std::string line;
    while (line.size() < 300000)
        line += "\xE2\x82\xAC"; // a euro sign
    SciBench bench(line);
    GoTo(bench, 150000);
    for (std::intptr_t at = 0; at < bench.Length(); at += 3) {
        QCOMPARE(StyleAt(bench, at + 1), StyleAt(bench, at));
        QCOMPARE(StyleAt(bench, at + 2), StyleAt(bench, at));
    }
}

QTEST_MAIN(win_SciLongLines)
#include "win_SciLongLines.moc"
