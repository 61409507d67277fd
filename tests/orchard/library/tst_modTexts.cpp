// SPDX-License-Identifier: GPL-3.0-or-later
// Functions of texts, the items of a line, the table of errors, random numbers.
#include "orchard/library/LibraryTest.h"

#include <QFile>

#include <set>

#include "orchard/library/cItems.h"
#include "orchard/library/cRandom.h"
#include "orchard/library/cWordFinder.h"
#include "orchard/library/modTexts.h"

using namespace ob::basic;

namespace {

QByteArray ItemsOf(std::string_view line)
{
    QByteArray all;
    for (cItems items(line); !items.IsEmpty();)
        all += '<' + Shown(items.Take()) + '>';
    return all;
}

} // namespace

class tst_modTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void piecesOfTextsGiveTheNearestSense();
    void piecesAreViewsIntoTheText();
    void negativeCountsAreErrors();
    void textsAreFoundFromAPositionOn();
    void findingTakesLinearTime();
    void wordsAreSplit_data();
    void wordsAreSplit();
    void wordsInAnyOrderAreTheSame();
    void wordsInTurnTakeLinearTime();
    void capitalsAreThoseOfTheCodePage();
    void onlySpacesAreTrimmed();
    void charactersAreBytes();
    void linesAreSplitIntoItems_data();
    void linesAreSplitIntoItems();
    void everyErrorHasATextOfItsOwn();
    void theManualListsEveryError();
    void aSeedGivesItsSequence();
    void randomNumbersFillTheirRange();
};

void tst_modTexts::piecesOfTextsGiveTheNearestSense()
{
    QCOMPARE(Left("abc", 2), std::string_view("ab"));
    QCOMPARE(Left("ab", 9), std::string_view("ab"));
    QCOMPARE(Left("ab", 0.9), std::string_view());
    QCOMPARE(Left("ab", -0.9), std::string_view());
    QCOMPARE(Left("ab", 1e300), std::string_view("ab"));
    QCOMPARE(Right("abc", 2), std::string_view("bc"));
    QCOMPARE(Right("ab", 9), std::string_view("ab"));
    QCOMPARE(Mid("abcd", 2), std::string_view("bcd"));
    QCOMPARE(Mid("abcd", 2, 2), std::string_view("bc"));
    QCOMPARE(Mid("ab", 9), std::string_view());
    QCOMPARE(Mid("ab", 3, 1), std::string_view());
    QCOMPARE(Mid("abcd", -3, 2), std::string_view("ab"));
    QCOMPARE(Mid("abcd", 0, 2), std::string_view("ab"));
    QCOMPARE(Mid("abcd", 2.9, 1.9), std::string_view("b"));
    QCOMPARE(Mid("ab", 1e300, 1e300), std::string_view());
    QCOMPARE(Mid("", 1, 1), std::string_view());
}

void tst_modTexts::piecesAreViewsIntoTheText()
{
    const std::string text = "  one two  ";
    const auto isInside = [&text](std::string_view piece) {
        return piece.data() >= text.data() && piece.data() + piece.size() <= text.data() + text.size();
    };
    QVERIFY(isInside(Left(text, 3)) && isInside(Right(text, 3)) && isInside(Mid(text, 2, 3)));
    QVERIFY(isInside(Trim(text)) && isInside(Word(text, 2)) && isInside(Word(text, 1, "e")));
}

void tst_modTexts::negativeCountsAreErrors()
{
    const int number = NumberOf(ErrorNumber::OutOfRange);
    QCOMPARE(ErrorOf([] { return Left("ab", -1); }), number);
    QCOMPARE(ErrorOf([] { return Right("ab", -1); }), number);
    QCOMPARE(ErrorOf([] { return Mid("ab", 1, -1); }), number);
    QCOMPARE(ErrorOf([] { return Space(-1); }), number);
    QCOMPARE(ErrorOf([] { return Space(1e300); }), NumberOf(ErrorNumber::OutOfMemory));
    QCOMPARE(Space(2.9), std::string("  "));
    QCOMPARE(Space(0), std::string());
}

void tst_modTexts::textsAreFoundFromAPositionOn()
{
    QCOMPARE(Instr("banana", "an"), 2.0);
    QCOMPARE(Instr("banana", "an", 3), 4.0);
    QCOMPARE(Instr("banana", "an", 5), 0.0);
    QCOMPARE(Instr("banana", "an", -5), 2.0);
    QCOMPARE(Instr("banana", ""), 0.0);
    QCOMPARE(Instr("", "a"), 0.0);
    QCOMPARE(Instr("banana", "AN"), 0.0);
    QCOMPARE(Instr("banana", "a", 1e300), 0.0);
    const std::string pattern = std::string(40, 'a') + "b" + std::string(40, 'a');
    QCOMPARE(Instr("xx" + std::string(60, 'a') + pattern.substr(40) + "c", pattern), 23.0);
    QCOMPARE(Instr(std::string(500, 'a'), pattern), 0.0);
    QCOMPARE(Instr(pattern + pattern, pattern, 2), 82.0);
}

// The product of both lengths would take minutes.
void tst_modTexts::findingTakesLinearTime()
{
    const std::string text(8 << 20, 'a');
    const std::string sought = std::string(1 << 20, 'a') + 'b';
    QCOMPARE(Instr(text, sought), 0.0);
    QCOMPARE(Shown(Word(text, 2, sought)), QByteArray());
}

void tst_modTexts::wordsAreSplit_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("number");
    QTest::addColumn<QByteArray>("delimiter");
    QTest::addColumn<QByteArray>("word");
    const auto row = [](const char* name, const char* text, double number, const char* delimiter, const char* word) {
        QTest::newRow(name) << QByteArray(text) << number << QByteArray(delimiter) << QByteArray(word);
    };
    row("first", "one two", 1, " ", "one");
    row("second after many spaces", "  one   two  ", 2, " ", "two");
    row("beyond the last", "one two", 3, " ", "");
    row("below the first", "one two", 0, " ", "");
    row("negative", "one two", -1, ",", "");
    row("fraction is cut", "one two", 2.9, " ", "two");
    row("empty delimiter", "one  two", 2, "", "two");
    row("two spaces split as a whole", "one  two three", 2, "  ", "two three");
    row("comma", "a,b,c", 2, ",", "b");
    row("comma without a word", "a,,c", 2, ",", "");
    row("comma, third", "a,,c", 3, ",", "c");
    row("comma, last is empty", "a,", 2, ",", "");
    row("comma, beyond", "a,", 3, ",", "");
    row("spaces stay with a comma", "a, b ,c", 2, ",", " b ");
    row("long delimiter", "a<>b<>c", 3, "<>", "c");
    row("delimiter is missing", "abc", 1, ",", "abc");
    row("delimiter is missing, second", "abc", 2, ",", "");
    row("tabs are no blanks", "a\tb c", 1, " ", "a\tb");
    row("nothing", "", 1, " ", "");
    row("spaces only", "   ", 1, " ", "");
    row("huge", "a b", 1e300, " ", "");
}

void tst_modTexts::wordsAreSplit()
{
    QFETCH(QByteArray, text);
    QFETCH(double, number);
    QFETCH(QByteArray, delimiter);
    QFETCH(QByteArray, word);
    QCOMPARE(Shown(Word(View(text), number, View(delimiter))), word);
}

void tst_modTexts::wordsInAnyOrderAreTheSame()
{
    const std::string texts[] = {"  one  two,three ,, four<>five<>", ",,a,b", "", "a", "<><>x y<>z  "};
    const std::string_view delimiters[] = {" ", "", ",", "<>", "  "};
    cRandom random(9);
    cWordFinder finder;
    for (int i = 0; i < 20000; ++i) {
        const std::string& text = texts[static_cast<std::size_t>(random.Next() * random.Next() * 5)];
        const std::string_view delimiter = delimiters[static_cast<std::size_t>(random.Next() * random.Next() * 5)];
        const double number = random.Next() * 9 - 1;
        QCOMPARE(Shown(finder.Find(text, number, delimiter)), Shown(Word(text, number, delimiter)));
    }
    std::string changed = "a b";
    QCOMPARE(finder.Find(changed, 2, " "), std::string_view("b"));
    changed = "c  ";
    finder.Forget();
    QCOMPARE(finder.Find(changed, 2, " "), std::string_view());
}

// From the start each time it would take hours.
void tst_modTexts::wordsInTurnTakeLinearTime()
{
    constexpr int count = 2000000;
    std::string spaced;
    for (int i = 0; i < count; ++i)
        spaced += "ab ";
    cWordFinder finder;
    for (const std::string_view delimiter : {" ", "b"})
        for (int i = 1; i <= count; ++i)
            QVERIFY(finder.Find(spaced, i, delimiter).size() == (delimiter == " " || i > 1 ? 2u : 1u));
}

void tst_modTexts::capitalsAreThoseOfTheCodePage()
{
    QCOMPARE(Upper("abc xyz 1"), std::string("ABC XYZ 1"));
    QCOMPARE(Lower("ABC {[}]"), std::string("abc {[}]"));
    QCOMPARE(Upper("\xE4\xF6\xFC\xE9"), std::string("\xC4\xD6\xDC\xC9"));
    QCOMPARE(Lower("\x8A\x8C\x8E\x9F"), std::string("\x9A\x9C\x9E\xFF"));
    QCOMPARE(Upper("\xDF\xF7\xD7\x83\xB5"), std::string("\xDF\xF7\xD7\x83\xB5"));
    QCOMPARE(Lower("\xD7\xDF"), std::string("\xD7\xDF"));
    for (int code = 0; code < 256; ++code) {
        const char c = static_cast<char>(code);
        QCOMPARE(LowerCharacter(UpperCharacter(c)), LowerCharacter(c));
        QCOMPARE(UpperCharacter(LowerCharacter(c)), UpperCharacter(c));
    }
    QVERIFY(CompareIgnoringCase("readme.TXT", "README.txt") == 0);
    QVERIFY(CompareIgnoringCase("a", "B") < 0);
    QVERIFY(CompareIgnoringCase("ab", "a") > 0);
}

void tst_modTexts::onlySpacesAreTrimmed()
{
    QCOMPARE(Trim("  a b  "), std::string_view("a b"));
    QCOMPARE(Trim("\ta\r\n "), std::string_view("\ta\r\n"));
    QCOMPARE(Trim("   "), std::string_view());
    QCOMPARE(Trim(""), std::string_view());
}

void tst_modTexts::charactersAreBytes()
{
    QCOMPARE(Asc(""), 0.0);
    QCOMPARE(Asc("\xFFx"), 255.0);
    QCOMPARE(Chr(65.9), 'A');
    QCOMPARE(Chr(0), '\0');
    QCOMPARE(Chr(-0.5), '\0');
    for (const double code : {-1.0, 256.0, 1e300})
        QCOMPARE(ErrorOf([code] { return Chr(code); }), NumberOf(ErrorNumber::OutOfRange));
}

void tst_modTexts::linesAreSplitIntoItems_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("items");
    const auto row = [](const char* line, const char* items) {
        QTest::newRow(line) << QByteArray(line) << QByteArray(items);
    };
    row("", "<>");
    row("   ", "<>");
    row("a", "<a>");
    row(" a , b ", "<a><b>");
    row("a,", "<a><>");
    row(",", "<><>");
    row("\"a, b\",c", "<a, b><c>");
    row("  \" a \"  , c", "< a ><c>");
    row("\"a\"b,c", "<a><c>");
    row("\"a", "<a>");
    row("\"a,b", "<a,b>");
    row("\"", "<>");
    row("\"\"", "<>");
    row("\"\",\"\"", "<><>");
    row("a\"b,c\"", "<a\"b><c\">");
    row("\ta", "<\ta>");
}

void tst_modTexts::linesAreSplitIntoItems()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, items);
    QCOMPARE(ItemsOf(View(line)), items);
}

void tst_modTexts::everyErrorHasATextOfItsOwn()
{
    std::set<std::string_view> texts;
    for (int number = 0; number < 200; ++number) {
        const std::string_view text = ErrorText(static_cast<ErrorNumber>(number));
        if (text != "Unknown error")
            QVERIFY(texts.insert(text).second);
    }
    QVERIFY(texts.size() >= 30);
    QCOMPARE(cProgramError(ErrorNumber::FileNotFound, "a.txt").Text(), std::string("File not found: a.txt"));
    QCOMPARE(cProgramError(ErrorNumber::OutOfMemory).Text(), std::string("Out of memory"));
}

void tst_modTexts::theManualListsEveryError()
{
    QFile page(QStringLiteral(OB_TEST_DATA "/../../docs/language/errors.md"));
    QVERIFY(page.open(QIODevice::ReadOnly));
    const QByteArray text = page.readAll();
    int listed = 0;
    for (int number = 0; number < 200; ++number) {
        const std::string_view known = ErrorText(static_cast<ErrorNumber>(number));
        const QByteArray row = "| " + QByteArray::number(number) + " | ";
        const bool isListed = text.contains('\n' + row);
        QVERIFY2(isListed == (known != "Unknown error"), row.constData());
        QVERIFY2(!isListed || text.contains(row + Shown(known) + " | "), row.constData());
        listed += isListed ? 1 : 0;
    }
    QCOMPARE(text.count("\n| "), listed + 1);
}

void tst_modTexts::aSeedGivesItsSequence()
{
    cRandom one(1);
    cRandom two(2);
    QVERIFY(one.Next() != two.Next());
    one.Seed(0.5);
    two.Seed(0.5);
    for (int i = 0; i < 100; ++i)
        QCOMPARE(one.Next(), two.Next());
    two.Seed(0.25);
    QVERIFY(one.Next() != two.Next());
}

void tst_modTexts::randomNumbersFillTheirRange()
{
    cRandom random(3);
    std::array<int, 64> counts = {};
    for (int i = 0; i < 640000; ++i) {
        const double value = random.Next();
        QVERIFY(value >= 0 && value < 1);
        ++counts[static_cast<std::size_t>(value * 64)];
    }
    for (const int count : counts)
        QVERIFY2(count > 9500 && count < 10500, qPrintable(QString::number(count)));
}

QTEST_APPLESS_MAIN(tst_modTexts)
#include "tst_modTexts.moc"
