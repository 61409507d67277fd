// SPDX-License-Identifier: GPL-3.0-or-later
// The scan for assignments, its table and the jump to a line.
#include "engine/run/cVariableTable.h"
#include "engine/run/modVariables.h"

#include <QElapsedTimer>
#include <QPersistentModelIndex>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// "name@line" for each entry.
QList<QByteArray> Scan(const QByteArray& text)
{
    QList<QByteArray> entries;
    for (const VariableEntry& entry : ScanVariables(text))
        entries.append(entry.name.toByteArray() + '@' + QByteArray::number(entry.line));
    return entries;
}

using Entries = QList<QByteArray>;

QStringList Column(const cVariableTable& table, int column)
{
    QStringList texts;
    for (int row = 0; row < table.rowCount(); ++row)
        texts.append(table.index(row, column).data().toString());
    return texts;
}

QStringList Words(const char* words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// Returns the first visible line and records the requests.
class ScrollSci final : public cSciControl {
public:
    explicit ScrollSci(std::intptr_t firstVisible) : first(firstVisible) {}

    std::intptr_t Send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override
    {
        calls.append({static_cast<std::intptr_t>(message), static_cast<std::intptr_t>(wParam), lParam});
        return message == SCI_GETFIRSTVISIBLELINE ? first : 0;
    }

    QList<QList<std::intptr_t>> calls;
    std::intptr_t first;
};

} // namespace

class tst_modVariables : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLineGivesItsNames_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<Entries>("names");
        const auto row = [](const char* line, const Entries& names) {
            QTest::newRow(line) << QByteArray(line) << names;
        };
        row("total = 5", {"total"});
        row("   total=5   ", {"total"});
        row("let total = 5", {"total"});
        row("if a=1 then b=2", {"a", "b"});
        row("if x = 3 then", {"x"});
        row("print x: total = 5", {"total"});
        row("print x:total = 5", {"total"});
        row("a:b:c = 5", {"b:c"});
        row("for  i  = 1 to 5", {"i"});
        row("name$ = \"x\"", {"name$"});
        row("x >= 5", {"x"});
        row("xy <= 5", {"xy"});
        row("x>=5", {"x"});
        row("x >= 5 and count = 3", {"x", "count"});
        row("x => 5", {"x"});
        row("ab == 5: c1 = 3", {"ab"});
        row("value(1) = 5", {});
        row("value(i) = 5: j1 = 2", {"j1"});
        row("print \"ab=cd\"", {});
        row("a1=2:b1=3:c1=4", {"a1", "b1", "c1"});
        row("a1=:b1=3", {"a1", "b1"});
        row("ab: = 5", {""});
        row("no sign at all", {});
        row("\ttab = 5", {"\ttab"});
        row("a\tb = 5", {"a\tb"});
    }

    void aLineGivesItsNames()
    {
        QFETCH(QByteArray, line);
        QFETCH(Entries, names);
        for (QByteArray& name : names)
            name += "@0";
        for (const char* lineEnd : {"\r\n", "\n", "\r"})
            QCOMPARE(Scan(line + lineEnd), names);
    }

    void aSignInTheFirstTwoPlacesEndsTheLine()
    {
        QCOMPARE(Scan("a=1: total = 2\r\n"), Entries{});
        QCOMPARE(Scan("=1: total = 2\r\n"), Entries{});
        QCOMPARE(Scan("   a=1\r\n"), Entries{});
        QCOMPARE(Scan("a =1\r\n"), Entries{"a@0"});
        QCOMPARE(Scan("total = 1:b=2: other = 3\r\n"), (Entries{"total@0", "b@0", "other@0"}));
        QCOMPARE(Scan("total = :b=2: other = 3\r\n"), Entries{"total@0"});
    }

    void aQuotedSignDoesNotCount()
    {
        QCOMPARE(Scan("a$ = \"b=c\"\r\n"), Entries{"a$@0"});
        QCOMPARE(Scan("a$ = \"b=c\": total = 5\r\n"), (Entries{"a$@0", "total@0"}));
    }

    // The cut at a space drops the quote as it would drop a word.
    void aQuotedSpaceBeforeTheSignHidesTheQuote() { QCOMPARE(Scan("a$ = \"see b=c\"\r\n"), (Entries{"a$@0", "b@0"})); }

    void theLastLineLosesItsLastTwoCharacters_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<Entries>("entries");
        QTest::newRow("still there") << QByteArray("total = 5") << Entries{"total@0"};
        QTest::newRow("the sign is lost") << QByteArray("total=5") << Entries{};
        QTest::newRow("just left") << QByteArray("total=50") << Entries{"total@0"};
        QTest::newRow("after other lines") << QByteArray("ab=1\r\ncd=1") << Entries{"ab@0"};
        QTest::newRow("characters of two bytes") << QByteArray("ab=\xC3\xA4\xC3\xB6") << Entries{"ab@0"};
        QTest::newRow("one character of two bytes") << QByteArray("ab=\xC3\xA4") << Entries{};
        QTest::newRow("one character stays") << QByteArray("=") << Entries{};
    }

    void theLastLineLosesItsLastTwoCharacters()
    {
        QFETCH(QByteArray, text);
        QTEST(Scan(text), "entries");
    }

    void linesAreCountedAtEveryKindOfLineEnd()
    {
        QCOMPARE(Scan("aa=1\r\n\r\nbb=1\n\ncc=1\r\rdd=1\n\ree=1\r\n"),
                 (Entries{"aa@0", "bb@2", "cc@4", "dd@6", "ee@8"}));
    }

    void aNameIsListedOnceForEachAssignment()
    {
        QCOMPARE(Scan("ab=1\r\nab=2: ab = 3\r\n"), (Entries{"ab@0", "ab@1", "ab@1"}));
    }

    void aTextWithoutAssignmentsHasNone()
    {
        QVERIFY(ScanVariables({}).empty());
        QVERIFY(ScanVariables("").empty());
        QVERIFY(Scan("\r\n\r\n").isEmpty());
        QVERIFY(Scan("print 1\r\nend").isEmpty());
    }

    void anyBytesAreScanned()
    {
        QCOMPARE(Scan(QByteArray("a\0b = 1\r\n", 9)), Entries{QByteArray("a\0b@0", 5)});
        QCOMPARE(Scan("\xFF\xFE = 1\r\n"), Entries{"\xFF\xFE@0"});
        QCOMPARE(Scan("\x80\x80\x80"), Entries{});
        QCOMPARE(Scan(QByteArray(1'000'000, '=')), Entries{});
    }

    // A scan that started over for each sign or line would take minutes.
    void longLinesAndManyLinesAreScannedInOnePass()
    {
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(ScanVariables(QByteArray("ab=1:").repeated(1'000'000) + "\r\n").size(), std::size_t{1'000'000});
        for (const char* lineEnd : {"\r\n", "\n", "\r"})
            QCOMPARE(ScanVariables((QByteArray("ab=1") + lineEnd).repeated(1'000'000)).size(), std::size_t{1'000'000});
        QVERIFY2(timer.elapsed() < 20'000, qPrintable(u"%1 ms"_s.arg(timer.elapsed())));
    }

    void theTableShowsNamesAndLinesInScanOrder()
    {
        const cVariableTable table("bb=1\r\naa=2\r\ncc=\xC3\xA4: \xC3\xA4\xC3\xB6=4\r\n");
        QCOMPARE(table.columnCount(), 2);
        QCOMPARE(table.headerData(0, Qt::Horizontal).toString(), u"Variable Name"_s);
        QCOMPARE(table.headerData(1, Qt::Horizontal).toString(), u"Line #"_s);
        QCOMPARE(Column(table, 0), Words("bb aa cc") << u"\u00e4\u00f6"_s);
        QCOMPARE(Column(table, 1), Words("0 1 2 2"));
    }

    void theTableOutlivesTheText()
    {
        QByteArray text("first=1\r\n");
        const cVariableTable table(text);
        text.fill('?');
        QCOMPARE(Column(table, 0), Words("first"));
    }

    void linesSortAsText()
    {
        QByteArray text;
        for (int line = 0; line <= 112; ++line)
            text +=
                (line == 0 || line == 2 || line == 9 || line == 10 || line == 100 || line == 112) ? "ab=1\r\n" : "\r\n";
        cVariableTable table(text);
        table.sort(1, Qt::AscendingOrder);
        QCOMPARE(Column(table, 1), Words("0 10 100 112 2 9"));
        table.sort(1, Qt::DescendingOrder);
        QCOMPARE(Column(table, 1), Words("9 2 112 100 10 0"));
    }

    void namesSortWithoutRegardToCase()
    {
        cVariableTable table("beta=1\r\nAlpha=1\r\nalphabet1=1\r\nAlphabet=1\r\nZeta=1\r\nbeta$=1\r\nB1=1\r\n");
        table.sort(0, Qt::AscendingOrder);
        QCOMPARE(Column(table, 0), Words("Alpha Alphabet alphabet1 B1 beta beta$ Zeta"));
        table.sort(0, Qt::DescendingOrder);
        QCOMPARE(Column(table, 0), Words("Zeta beta$ beta B1 alphabet1 Alphabet Alpha"));
    }

    void equalNamesStayInTheirOrder()
    {
        cVariableTable table("ab=1\r\naa=1\r\nAB=1\r\nab=1\r\n");
        table.sort(0, Qt::AscendingOrder);
        QCOMPARE(Column(table, 1), Words("1 0 2 3"));
        table.sort(0, Qt::DescendingOrder);
        QCOMPARE(Column(table, 1), Words("0 2 3 1"));
    }

    void aChosenRowIsFollowedThroughASort()
    {
        cVariableTable table("cc=1\r\nbb=1\r\naa=1\r\n");
        const QPersistentModelIndex chosen = table.index(0, 1);
        table.sort(0, Qt::AscendingOrder);
        QCOMPARE(chosen.row(), 2);
        QCOMPARE(chosen.data().toString(), u"0"_s);
        QCOMPARE(table.Entry(2).line, 0);
    }

    void theChosenLineLandsOneBelowTheTop()
    {
        ScrollSci sci(100);
        GotoVariableLine(&sci, 40);
        const QList<QList<std::intptr_t>> expected = {
            {SCI_GOTOLINE, 40, 0}, {SCI_GETFIRSTVISIBLELINE, 0, 0}, {SCI_LINESCROLL, 0, -61}, {SCI_GRABFOCUS, 0, 0}};
        QCOMPARE(sci.calls, expected);
    }
};

QTEST_APPLESS_MAIN(tst_modVariables)
#include "tst_modVariables.moc"
