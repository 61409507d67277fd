// SPDX-License-Identifier: GPL-3.0-or-later
// The index of branch labels, subs and functions.
#include "editor/modLabels.h"

#include <QElapsedTimer>
#include <QTest>

using namespace ob;

namespace {

// "line:entry" for each entry.
QList<QByteArray> Index(const QByteArray& text)
{
    QList<QByteArray> entries;
    for (const LabelEntry& entry : LabelIndex(text))
        entries.append(QByteArray::number(entry.line) + ':' + entry.text);
    return entries;
}

using Entries = QList<QByteArray>;

} // namespace

class tst_modLabels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void ALineIsListedByItsStart_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<Entries>("entries");
        const auto listed = [](const char* line, const char* entry) {
            QTest::newRow(line) << QByteArray(line) << Entries{QByteArray("0:") + entry};
        };
        const auto passedOver = [](const char* line) {
            QTest::newRow(*line == '\0' ? "empty" : line) << QByteArray(line) << Entries{};
        };
        listed("[start]", "[start]");
        listed("[quit] close #1:end", "[quit] close #1:end");
        listed("[a] 'with a comment  ", "[a] 'with a comment  ");
        listed("   [behind blanks]", "[behind blanks]");
        listed("[", "[");
        listed("[no end", "[no end");
        listed("sub first a, b", "sub first a, b");
        listed("SUB x", "SUB x");
        listed("Sub  x", "Sub  x");
        listed("sub ", "sub ");
        listed("  fUnCtIoN f(x)", "fUnCtIoN f(x)");
        listed("function ", "function ");
        passedOver("");
        passedOver("sub");
        passedOver("function");
        passedOver("subroutine x");
        passedOver("functional x");
        passedOver("sub\tx");
        passedOver("\t[behind a tab]");
        passedOver("'[commented]");
        passedOver("rem [commented]");
        passedOver("goto [start]");
        passedOver("end sub ");
        passedOver("declare sub x");
        passedOver("]");
    }

    void ALineIsListedByItsStart()
    {
        QFETCH(QByteArray, line);
        QTEST(Index(line + "\r\nprint"), "entries");
        QTEST(Index(line + "\nprint"), "entries");
        QTEST(Index(line + "\rprint"), "entries");
    }

    void TheLastLineLosesItsLastTwoCharacters_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<Entries>("entries");
        QTest::newRow("a label") << QByteArray("[start]") << Entries{"0:[star"};
        QTest::newRow("two blanks of a save") << QByteArray("print\r\n[start]  ") << Entries{"1:[start]"};
        QTest::newRow("one character stays") << QByteArray("[") << Entries{"0:["};
        QTest::newRow("of two one stays") << QByteArray("[a") << Entries{"0:["};
        QTest::newRow("of three one stays") << QByteArray("[ab") << Entries{"0:["};
        QTest::newRow("a sub that is no more") << QByteArray("sub x") << Entries{};
        QTest::newRow("a sub that just stays") << QByteArray("sub xy") << Entries{"0:sub "};
        QTest::newRow("letters of two bytes") << QByteArray("[\xC3\xA4\xC3\xB6\xC3\xBC") << Entries{"0:[\xC3\xA4"};
        QTest::newRow("letters of four bytes") << QByteArray("[x\xF0\x9F\x98\x80\xE2\x82\xAC") << Entries{"0:[x"};
        QTest::newRow("one letter of two bytes") << QByteArray("[\xC3\xA4") << Entries{"0:["};
        QTest::newRow("behind a line end there is nothing") << QByteArray("[start]\r\n") << Entries{"0:[start]"};
        QTest::newRow("blanks only") << QByteArray("  [") << Entries{};
    }

    void TheLastLineLosesItsLastTwoCharacters()
    {
        QFETCH(QByteArray, text);
        QTEST(Index(text), "entries");
    }

    void LinesAreCountedAtEveryKindOfLineEnd()
    {
        QCOMPARE(Index("[a]\r\n\r\n[b]\n\n[c]\r\r[d]\n\r[e]\r\n"),
                 (Entries{"0:[a]", "2:[b]", "4:[c]", "6:[d]", "8:[e]"}));
    }

    void EqualLabelsAllStandInTheList()
    {
        QCOMPARE(Index("[a]\r\n[a]\r\n[A]\r\n"), (Entries{"0:[a]", "1:[a]", "2:[A]"}));
    }

    void ATextWithoutLabelsHasNone()
    {
        QVERIFY(Index({}).isEmpty());
        QVERIFY(LabelIndex(QByteArrayView()).empty());
        QVERIFY(Index("\r\n\r\n").isEmpty());
        QVERIFY(Index("print 1\r\nend").isEmpty());
    }

    void ANulIsACharacterLikeOthers()
    {
        QCOMPARE(Index(QByteArray("[a\0b]\r\nx", 8)), Entries{QByteArray("0:[a\0b]", 7)});
    }

    // A scan that looked at the rest of the text for each line would need minutes for one of the three.
    void EveryKindOfLineEndIsScannedInOnePass_data()
    {
        QTest::addColumn<QByteArray>("lineEnd");
        QTest::newRow("CR LF") << QByteArray("\r\n");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
    }

    void EveryKindOfLineEndIsScannedInOnePass()
    {
        QFETCH(QByteArray, lineEnd);
        constexpr int lines = 1'000'000;
        const QByteArray text = ("[a] print" + lineEnd).repeated(lines);
        QElapsedTimer timer;
        timer.start();
        const std::size_t found = LabelIndex(text).size();
        QVERIFY2(timer.elapsed() < 20'000, qPrintable(QStringLiteral("%1 ms").arg(timer.elapsed())));
        QCOMPARE(found, std::size_t{lines});
    }
};

QTEST_APPLESS_MAIN(tst_modLabels)
#include "tst_modLabels.moc"
