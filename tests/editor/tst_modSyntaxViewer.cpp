// SPDX-License-Identifier: GPL-3.0-or-later
// The order and the form of the Syntax Viewer.
#include "editor/document/modSyntaxTable.h"
#include "editor/modSyntaxViewer.h"

#include <QTest>

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
        QCOMPARE(keys.first(), QStringLiteral("!contents"));
        QCOMPARE(keys.last(), QStringLiteral("word$"));
        QCOMPARE(keys.count(QStringLiteral("select")), qsizetype{2});
    }

    void aKeyWithoutASpaceContinuesIntoTheComment()
    {
        const QStringList keys = SyntaxKeys(SortedSyntaxRows(Words().SyntaxTable));
        QVERIFY(keys.contains(QStringLiteral("txcount(#handle)\n'return")));
    }

    void lineFeedsBecomeWholeLineEnds()
    {
        QCOMPARE(SyntaxRowText("a b\n'c\n'd"), QStringLiteral("a b\r\n'c\r\n'd"));
        QCOMPARE(SyntaxRowText("a\n\nb\n"), QStringLiteral("a\r\n\r\nb\r\n"));
        QCOMPARE(SyntaxRowText("a"), QStringLiteral("a"));
        QCOMPARE(SyntaxRowText({}), QString());
    }
};

QTEST_APPLESS_MAIN(tst_modSyntaxViewer)
#include "tst_modSyntaxViewer.moc"
