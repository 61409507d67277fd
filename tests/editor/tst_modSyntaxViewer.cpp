// SPDX-License-Identifier: GPL-3.0-or-later
// The order and the form of the Syntax Viewer.
#include "editor/document/modSyntaxTable.h"
#include "editor/modSyntaxViewer.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modSyntaxViewer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { BuildSyntaxTable(); }

    void rowsAreSortedWithoutCase()
    {
        const std::vector<std::string_view> rows = {"b y", "B x", "_ x", "a z", "A z", "b x"};
        const std::vector<std::string_view> sorted = {"_ x", "a z", "A z", "B x", "b x", "b y"};
        QCOMPARE(SortedSyntaxRows(rows), sorted);
    }

    // The window sorts the list of keys itself; the two orders must be the same.
    void theOrderOfRowsIsTheOrderOfKeys()
    {
        const QStringList keys = SyntaxKeys(SortedSyntaxRows(Words().SyntaxTable));
        QCOMPARE(keys.size(), qsizetype{231});
        for (qsizetype i = 1; i < keys.size(); ++i)
            QVERIFY2(keys[i - 1].toLower() <= keys[i].toLower(), qPrintable(keys[i]));
        QCOMPARE(keys.first(), u"!contents"_s);
        QCOMPARE(keys.last(), u"word$"_s);
        QCOMPARE(keys.count(u"select"_s), qsizetype{2});
    }

    void aKeyWithoutASpaceContinuesIntoTheComment()
    {
        const QStringList keys = SyntaxKeys(SortedSyntaxRows(Words().SyntaxTable));
        QVERIFY(keys.contains(u"txcount(#handle)\n'return"_s));
    }

    void lineFeedsBecomeWholeLineEnds()
    {
        QCOMPARE(SyntaxRowText("a b\n'c\n'd"), u"a b\r\n'c\r\n'd"_s);
        QCOMPARE(SyntaxRowText("a\n\nb\n"), u"a\r\n\r\nb\r\n"_s);
        QCOMPARE(SyntaxRowText("a"), u"a"_s);
        QCOMPARE(SyntaxRowText({}), QString());
    }
};

QTEST_APPLESS_MAIN(tst_modSyntaxViewer)
#include "tst_modSyntaxViewer.moc"
