// SPDX-License-Identifier: GPL-3.0-or-later
// The index of branch labels, subs and functions.
#include "editor/modLabels.h"

#include <QElapsedTimer>
#include <QTest>

using namespace Qt::StringLiterals;

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

Entries Sorted(const QByteArray& text)
{
    Entries entries;
    for (const LabelEntry& entry : SortedLabels(LabelIndex(text)))
        entries.append(QByteArray::number(entry.line) + ':' + entry.text);
    return entries;
}

} // namespace

class tst_modLabels : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLineIsListedByItsStart_data()
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
        listed("   [after spaces]", "[after spaces]");
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
        passedOver("\t[after a tab]");
        passedOver("'[commented]");
        passedOver("rem [commented]");
        passedOver("goto [start]");
        passedOver("end sub ");
        passedOver("declare sub x");
        passedOver("]");
    }

    void aLineIsListedByItsStart()
    {
        QFETCH(QByteArray, line);
        QTEST(Index(line + "\r\nprint"), "entries");
        QTEST(Index(line + "\nprint"), "entries");
        QTEST(Index(line + "\rprint"), "entries");
    }

    void theLastLineLosesItsLastTwoCharacters_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<Entries>("entries");
        QTest::newRow("a label") << QByteArray("[start]") << Entries{"0:[star"};
        QTest::newRow("two spaces of a save") << QByteArray("print\r\n[start]  ") << Entries{"1:[start]"};
        QTest::newRow("one character stays") << QByteArray("[") << Entries{"0:["};
        QTest::newRow("of two one stays") << QByteArray("[a") << Entries{"0:["};
        QTest::newRow("of three one stays") << QByteArray("[ab") << Entries{"0:["};
        QTest::newRow("a sub that is no more") << QByteArray("sub x") << Entries{};
        QTest::newRow("a sub that just stays") << QByteArray("sub xy") << Entries{"0:sub "};
        QTest::newRow("characters of two bytes") << QByteArray("[\xC3\xA4\xC3\xB6\xC3\xBC") << Entries{"0:[\xC3\xA4"};
        QTest::newRow("characters of four bytes") << QByteArray("[x\xF0\x9F\x98\x80\xE2\x82\xAC") << Entries{"0:[x"};
        QTest::newRow("one character of two bytes") << QByteArray("[\xC3\xA4") << Entries{"0:["};
        QTest::newRow("after a line end there is nothing") << QByteArray("[start]\r\n") << Entries{"0:[start]"};
        QTest::newRow("spaces only") << QByteArray("  [") << Entries{};
    }

    void theLastLineLosesItsLastTwoCharacters()
    {
        QFETCH(QByteArray, text);
        QTEST(Index(text), "entries");
    }

    void linesAreCountedAtEveryKindOfLineEnd()
    {
        QCOMPARE(Index("[a]\r\n\r\n[b]\n\n[c]\r\r[d]\n\r[e]\r\n"),
                 (Entries{"0:[a]", "2:[b]", "4:[c]", "6:[d]", "8:[e]"}));
    }

    void equalLabelsAreAllListed() { QCOMPARE(Index("[a]\r\n[a]\r\n[A]\r\n"), (Entries{"0:[a]", "1:[a]", "2:[A]"})); }

    void aTextWithoutLabelsHasNone()
    {
        QVERIFY(Index({}).isEmpty());
        QVERIFY(LabelIndex(QByteArrayView()).empty());
        QVERIFY(Index("\r\n\r\n").isEmpty());
        QVERIFY(Index("print 1\r\nend").isEmpty());
    }

    void aNulIsAnOrdinaryCharacter()
    {
        QCOMPARE(Index(QByteArray("[a\0b]\r\nx", 8)), Entries{QByteArray("0:[a\0b]", 7)});
    }

    void theSortedListGoesByLowerCaseCharacters()
    {
        // "_" comes before the lower-case letters and after the capitals.
        QCOMPARE(Sorted("[b]\r\nSub Z\r\n[_a]\r\n[A]\r\nfunction f\r\nsub a\r\n[a]x\r\n[Ba]\r\n"),
                 (Entries{"2:[_a]", "3:[A]", "6:[a]x", "0:[b]", "7:[Ba]", "4:function f", "5:sub a", "1:Sub Z"}));
    }

    void equalEntriesKeepTheirOrder()
    {
        QCOMPARE(Sorted("[x]\r\n[X]\r\n[a]\r\n[x]\r\n"), (Entries{"2:[a]", "0:[x]", "1:[X]", "3:[x]"}));
    }

    void charactersBeyondAsciiAreSortedWithoutCaseToo()
    {
        QCOMPARE(Sorted("[\xC3\xB6]\r\n[\xC3\x84]\r\n[z]\r\n[\xC3\x96]b\r\n[\xC3\xA4]a\r\n"),
                 (Entries{"2:[z]", "1:[\xC3\x84]", "4:[\xC3\xA4]a", "0:[\xC3\xB6]", "3:[\xC3\x96]b"}));
    }

    void anEntryIsFoundAtItsFirstLine_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("target");
        QTest::addColumn<int>("line");
        const QByteArray text = "print\r\n  [a]\r\n[A]\r\nsub Twice x  \r\n\r\n[last]  ";
        const auto row = [](const char* name, const QByteArray& searched, const char* target, int line) {
            QTest::newRow(name) << searched << QByteArray(target) << line;
        };
        row("after spaces", text, "[a]", 1);
        row("in another case the first equal line wins", text, "[A]", 1);
        row("the line's own spaces at its end go", text, "sub twice x", 3);
        row("spaces in the target stay", text, "sub Twice x  ", -1);
        row("the last line without its last two", text, "[last]", 5);
        row("a last line whose entry is cut", "[start]", "[star", 0);
        row("and not by its whole name", "[start]", "[start]", -1);
        row("the placeholder", text, "[ branch labels ]", -1);
        row("nothing is on no empty line", text, "", -1);
        row("a part of a line", text, "sub Twice", -1);
        row("any line will do", text, "PRINT", 0);
        row("characters beyond ASCII", "[\xC3\xA4]\r\n", "[\xC3\x84]", 0);
        row("in an empty text", "", "[a]", -1);
        row("after other line ends", "x\ny\r[a]\n", "[a]", 2);
    }

    void anEntryIsFoundAtItsFirstLine()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, target);
        QTEST(FindLabel(text, target).value_or(-1), "line");
    }

    void everyEntryWithoutTrailingSpacesIsFound()
    {
        const QByteArray text = "[one]\r\n   sub two a\r\nprint\r\n[three] x\r\nfunction four(\xE2\x82\xAC)\r\n[five]";
        const std::vector<LabelEntry> index = LabelIndex(text);
        QCOMPARE(index.size(), std::size_t{5});
        for (const LabelEntry& entry : index)
            QCOMPARE(FindLabel(text, entry.text).value_or(-1), entry.line);
    }

    // A scan that looked at the rest of the text for each line would take minutes in one of the three cases.
    void everyKindOfLineEndIsScannedInOnePass_data()
    {
        QTest::addColumn<QByteArray>("lineEnd");
        QTest::newRow("CR LF") << QByteArray("\r\n");
        QTest::newRow("LF") << QByteArray("\n");
        QTest::newRow("CR") << QByteArray("\r");
    }

    void everyKindOfLineEndIsScannedInOnePass()
    {
        QFETCH(QByteArray, lineEnd);
        constexpr int lines = 1'000'000;
        const QByteArray text = ("[a] print" + lineEnd).repeated(lines);
        QElapsedTimer timer;
        timer.start();
        const std::size_t found = LabelIndex(text).size();
        QVERIFY2(timer.elapsed() < 20'000, qPrintable(u"%1 ms"_s.arg(timer.elapsed())));
        QCOMPARE(found, std::size_t{lines});
    }
};

QTEST_APPLESS_MAIN(tst_modLabels)
#include "tst_modLabels.moc"
