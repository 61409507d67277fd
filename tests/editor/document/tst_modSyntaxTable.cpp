// SPDX-License-Identifier: GPL-3.0-or-later
// Tests of the catalogue of syntax hints and of the keyword lists.
#include "editor/document/modSyntaxTable.h"

#include <QFile>
#include <QtTest>

#include <algorithm>
#include <set>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

struct FixedRow {
    int row;
    const char* text;
};

// Rows whose words are fixed to the character.
constexpr FixedRow FixedRows[] = {
    {2, "box x y\n'draw box from current pos to x y"},
    {21, "goto x y   -or-  goto branchlabel\n'draw graphics line from current pos to x,y\n"
         "'or go to specified branch label in code"},
    {25, "font facename [w] h [bold][italic][underscore][strikeout]\n'specify font face, width, height, attributes"},
    {27, "locate x y w h OR locate row column\n'locate control at x,y,width,height\n'or locate text in mainwin"},
    {31, "!contents varname$ (or) !contents #handle\n"
         "'replace text in texteditor with string or with contents of open file"},
    {43, "bmpbutton #h.ext, bmpfile$, branchlabel, corner, posx, posy\n'create a bmpbutton from image file"},
    {48, "combobox #h.ext, array$(), branchLabel, x, y, w, h\n'create a combobox control"},
    {49, "select string$\n'select list item equal to string$"},
    {56, "menu #h , \"title\", \n\"text\", branchLabel, \"text2\", branchLabel2, . . .etc.\n"
         "'create a top level menu and menu items"},
    {89, "using (template, number) (template ~~ ####.##)\n'format numbers to align per template"},
    {96, "call subname [param1, param2 ,...paramx]\n'invoke a sub routine"},
    {97, "calldll #dllhandle, \"function\", parm1 as type1 \n[, parm2 as type2 ], return as returntype\n"
         "'call an API function"},
    {100, "date$ () or (\"mm/dd/yyyy\") or (\"mm/dd/yy\")\nor (\"yyyy/mm/dd\") or (\"days\")\n"
          "'return date in specified format"},
    {106, "function function_name([param1],[param2] [,...paramx])\n{code} : function_name=value : end function)\n"
          "'implement a programmer-defined function"},
    {134, "sub subname [param1, param2...,paramx] : {code} : end sub\n'implement a sub routine"},
    {143, "open entity for use as #handle\n'entity = window, DLL or file\n"
          "'use = window type or DLL or file open type"},
    {145, "rem or '\n'comment"},
    {146, "struct name, field1 as type1 [, field2 as type2, ... etc.]\n'set up a structure"},
    {154, "for i = low to high [step n] : {actions} : \n{exit for} : next i\n"
          "'perform actions multiple times in a counted loop"},
    {155, "if condition then : {actions} : [else {actions}] : [end if]\n"
          "'perform actions based on boolean condition evaluation"},
    {162, "while condition : {actions} : {exit while} : wend\n'perform looping action while condition is true"},
    {184, "select case var (or) select case var$:case var1...\ncase varx:case else:end select\n"
          "'perform actions based on selected case"},
    {186, "callback addressname, functionname(type1,type2,...typeX), returntype\n"
          "'set up a function address for a callback"},
    {193, "txcount(#handle)\n'return number of bytes in transmit queue"},
    {202, "do ... loop until/while expr\n'loop until or while expr is true"},
    {223, "stylebits #handle, addBits, removeBits, addExtendedBits, removeExtendedBits \n"
          "'add or remove style bits from window or control"},
};

QByteArray Bytes(std::string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

QList<QByteArray> LinesOfData(const char* name)
{
    QFile file(u"" OB_TEST_DATA "/syntax/"_s + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QList<QByteArray> lines = file.readAll().split('\n');
    lines.removeLast();
    return lines;
}

} // namespace

class tst_modSyntaxTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { BuildSyntaxTable(); }

    void tableHoldsRowsZeroTo230()
    {
        QCOMPARE(Words().SyntaxTable.size(), std::size_t{231});
        QCOMPARE(Words().SyntaxTableLast, std::int16_t{230});
    }

    void keysHaveTheirOrderAndSpelling()
    {
        QList<QByteArray> keys;
        for (const std::string_view row : Words().SyntaxTable)
            keys.append(Bytes(ReportedKey(row)));
        QCOMPARE(keys, LinesOfData("keys.txt"));
    }

    void fixedRowMatchesToTheCharacter_data()
    {
        QTest::addColumn<int>("row");
        QTest::addColumn<QByteArray>("text");
        for (const FixedRow& fixed : FixedRows)
            QTest::addRow("row %d", fixed.row) << fixed.row << QByteArray(fixed.text);
    }

    void fixedRowMatchesToTheCharacter()
    {
        QFETCH(int, row);
        QTEST(Bytes(Words().SyntaxTable.at(static_cast<std::size_t>(row))), "text");
    }

    void everyRowIsSyntaxThenComments()
    {
        for (const std::string_view row : Words().SyntaxTable) {
            const QList<QByteArray> lines = Bytes(row).split('\n');
            QVERIFY2(lines.size() >= 2, lines.first().constData());
            QVERIFY2(!lines.first().startsWith('\''), lines.first().constData());
            const auto comments = std::find_if(lines.begin() + 1, lines.end(),
                                               [](const QByteArray& line) { return line.startsWith('\''); });
            QVERIFY2(comments != lines.end(), lines.first().constData());
            QVERIFY2(std::all_of(comments, lines.end(),
                                 [](const QByteArray& line) { return line.startsWith('\'') && line.size() > 1; }),
                     lines.first().constData());
        }
    }

    void onlySixRowsHaveASecondLineOfSyntax()
    {
        std::set<int> found;
        for (std::size_t i = 0; i < Words().SyntaxTable.size(); ++i)
            if (Words().SyntaxTable[i].at(Words().SyntaxTable[i].find('\n') + 1) != '\'')
                found.insert(static_cast<int>(i));
        QCOMPARE(found, (std::set<int>{56, 97, 100, 106, 154, 184}));
    }

    void noLineEndsInASpaceSaveOneWordRowsAndFourOthers()
    {
        std::set<int> found;
        for (std::size_t i = 0; i < Words().SyntaxTable.size(); ++i) {
            const QByteArray row = Bytes(Words().SyntaxTable[i]);
            const bool oneWord = row.indexOf(" \n") == row.indexOf(' ');
            QVERIFY2(!row.endsWith(' ') && !row.contains("  \n"), row.constData());
            if (row.contains(" \n") && !oneWord)
                found.insert(static_cast<int>(i));
        }
        QCOMPARE(found, (std::set<int>{56, 97, 154, 223}));
    }

    void rowsArePrintableAsciiWithoutTheRowEnd()
    {
        for (const std::string_view row : Words().SyntaxTable)
            QVERIFY2(std::ranges::all_of(
                         row, [](char c) { return c == '\n' || (c >= ' ' && c < '|') || c == '}' || c == '~'; }),
                     Bytes(row).constData());
    }

    void everyRowSaveTheOneWithoutASpaceHasAOneWordKey()
    {
        std::set<int> found;
        for (std::size_t i = 0; i < Words().SyntaxTable.size(); ++i)
            if (KeyOfRow(Words().SyntaxTable[i]) != ReportedKey(Words().SyntaxTable[i]))
                found.insert(static_cast<int>(i));
        QCOMPARE(found, std::set<int>{193});
    }

    void everyKeyFindsItsFirstRow()
    {
        const QList<QByteArray> keys = LinesOfData("keys.txt");
        QCOMPARE(keys.size(), qsizetype{231});
        for (const QByteArray& key : keys) {
            if (key == "txcount(#handle)")
                continue;
            const QByteArray lower = key.toLower();
            const auto first = std::ranges::find_if(keys, [&](const QByteArray& k) { return k.toLower() == lower; });
            QCOMPARE(FindSyntaxRow(key.toStdString()), std::optional<int>(static_cast<int>(first - keys.begin())));
        }
    }

    void caseOfTheTermIsIgnored()
    {
        QCOMPARE(FindSyntaxRow("read"), std::optional<int>(181));
        QCOMPARE(FindSyntaxRow("READ"), std::optional<int>(181));
        QCOMPARE(FindSyntaxRow("commandline$"), std::optional<int>(163));
        QCOMPARE(FindSyntaxRow("Left$"), std::optional<int>(79));
        QCOMPARE(FindSyntaxRow("!CONTENTS?"), std::optional<int>(32));
    }

    void firstOfTwoRowsWithOneKeyWins()
    {
        QCOMPARE(FindSyntaxRow("select"), std::optional<int>(49));
        QCOMPARE(SyntaxTip("Select"), std::string_view("select string$\n'select list item equal to string$"));
    }

    void unknownTermsFindNothing_data()
    {
        QTest::addColumn<QByteArray>("term");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("unknown") << QByteArray("banana");
        QTest::newRow("start of a key") << QByteArray("backcol");
        QTest::newRow("more than a key") << QByteArray("backcolors");
        QTest::newRow("space after") << QByteArray("beep ");
        QTest::newRow("space before") << QByteArray(" beep");
        QTest::newRow("function with its parenthesis") << QByteArray("abs(");
        QTest::newRow("row without a space") << QByteArray("txcount(#handle)");
        QTest::newRow("word of the row without a space") << QByteArray("txcount");
        QTest::newRow("character outside ASCII") << QByteArray("\xC3\x84");
        QTest::newRow("zero byte") << QByteArray("beep\0", 5);
    }

    void unknownTermsFindNothing()
    {
        QFETCH(QByteArray, term);
        QCOMPARE(FindSyntaxRow(std::string_view(term.constData(), static_cast<std::size_t>(term.size()))),
                 std::nullopt);
        QCOMPARE(Bytes(SyntaxTip(std::string_view(term.constData(), static_cast<std::size_t>(term.size())))),
                 QByteArray("No syntax help available for that term."));
    }

    void tipIsTheWholeRow()
    {
        QCOMPARE(Bytes(SyntaxTip("DATE$")),
                 QByteArray("date$ () or (\"mm/dd/yyyy\") or (\"mm/dd/yy\")\nor (\"yyyy/mm/dd\") or (\"days\")\n"
                            "'return date in specified format"));
    }

    void keywordListMatchesToTheCharacter()
    {
        const QByteArray expected = LinesOfData("keywords.txt").join();
        QVERIFY(expected.startsWith("Abs( "));
        QCOMPARE(Words().KeywordList, expected);
        QVERIFY(Words().KeywordList.endsWith(' '));
    }

    void endIsTwiceInTheKeywordList()
    {
        const QList<QByteArray> words = Words().KeywordList.split(' ');
        QCOMPARE(words.count("End"), qsizetype{2});
        QCOMPARE(words.count(""), qsizetype{1});
    }

    void lexerKeywordsAreTheKeywordListInLowerCase()
    {
        QCOMPARE(Words().LexerKeywords, LinesOfData("keywords.txt").join().toLower());
    }

    void buildingAgainOverwritesEverything()
    {
        const std::vector<std::string_view> rows = Words().SyntaxTable;
        Words().SyntaxTable = {"altered row"};
        Words().SyntaxTableLast = 0;
        Words().KeywordList = "altered ";
        Words().LexerKeywords.prepend("pear apple\r\n");
        BuildSyntaxTable();
        QCOMPARE(Words().SyntaxTable, rows);
        QCOMPARE(Words().SyntaxTableLast, std::int16_t{230});
        QCOMPARE(Words().KeywordList, LinesOfData("keywords.txt").join());
        QCOMPARE(Words().LexerKeywords, Words().KeywordList.toLower());
    }
};

QTEST_APPLESS_MAIN(tst_modSyntaxTable)
#include "tst_modSyntaxTable.moc"
