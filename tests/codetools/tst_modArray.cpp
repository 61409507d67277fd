// SPDX-License-Identifier: GPL-3.0-or-later
// The array maker: names, the number of items, whole texts.
#include "codetools/modArray.h"

#include "codetools/MakerFiles.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QString ItemsOf(const QStringList& items)
{
    QString all;
    for (const QString& item : items)
        all = WithArrayItem(all, item);
    return all;
}

} // namespace

class tst_modArray : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNameIsCompleted_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<ArrayType>("type");
        QTest::addColumn<QString>("ready");
        const auto row = [](const char* name, ArrayType type, const char* ready) {
            QTest::addRow("%s %s", type == ArrayType::String ? "string" : "numeric", name)
                << QString::fromLatin1(name) << type << QString::fromLatin1(ready);
        };
        row("days", ArrayType::String, "days$(");
        row("days(", ArrayType::String, "days$(");
        row("days(7)", ArrayType::String, "days$(");
        row("(", ArrayType::String, "$(");
        row("days$", ArrayType::String, "days$(");
        row("da$ys", ArrayType::String, "da$ys(");
        row("days$(", ArrayType::String, "days$(");
        row("days$(x", ArrayType::String, "days$(x");
        row("days(x$", ArrayType::String, "days(x$");
        row(" my days ", ArrayType::String, " my days $(");
        row("n", ArrayType::Numeric, "n(");
        row("n$", ArrayType::Numeric, "n$(");
        row("n(", ArrayType::Numeric, "n(");
        row("n(3)(4)", ArrayType::Numeric, "n(");
        row("n$(x", ArrayType::Numeric, "n$(");
        row("(", ArrayType::Numeric, "(");
    }

    void aNameIsCompleted()
    {
        QFETCH(QString, name);
        QFETCH(ArrayType, type);
        QTEST(ReadyArrayName(name, type), "ready");
    }

    void itemsAreCountedByTheirMarks()
    {
        QCOMPARE(ArrayBound({}), -1);
        QCOMPARE(ArrayBound(ItemsOf({QString()})), 1);
        QCOMPARE(ArrayBound(ItemsOf({u"a"_s, u"b"_s})), 2);
        QCOMPARE(ArrayBound(ItemsOf({u"a|b"_s})), 2);
        QCOMPARE(ArrayBound(ItemsOf({u"|"_s, u"||"_s})), 5);
    }

    void theWholeTextMatches_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<ArrayType>("type");
        QTest::addColumn<QStringList>("items");
        QTest::addColumn<QByteArray>("expected");
        const auto row = [](const char* file, const char* name, ArrayType type, const QStringList& items) {
            QTest::newRow(file) << QString::fromLatin1(name) << type << items << MakerBytes(file);
        };
        const QStringList days{u"Mon"_s, u"Tue"_s};
        row("array/days.bas", "days", ArrayType::String, days);
        row("array/no-items.bas", "", ArrayType::String, {});
        row("array/numeric.bas", "total", ArrayType::Numeric, {u"1"_s, u"-2.5"_s, u"x + 1"_s});
        row("array/numeric-dollar.bas", "a$", ArrayType::Numeric, {u"7"_s});
        row("array/numeric-parenthesis.bas", "x$(foo", ArrayType::Numeric, {u"5"_s, u".5"_s});
        row("array/string-parenthesis.bas", "days(7)", ArrayType::String, {u"Mon"_s});
        row("array/string-both.bas", "days$(x", ArrayType::String, days);
        row("array/string-only-parenthesis.bas", "(7", ArrayType::String, {u"Mon"_s});
        row("array/parts.bas", "a$", ArrayType::String, {u"left|right"_s, QString(), u"|"_s});
        row("array/unchanged.bas", "[a,b] c", ArrayType::String,
            {u"say \"hi\""_s, u"  two  spaces "_s, u"[open,close]"_s, QString::fromUtf8("Grüße"), u"{}"_s, u"a=b"_s});
    }

    void theWholeTextMatches()
    {
        QFETCH(QString, name);
        QFETCH(ArrayType, type);
        QFETCH(QStringList, items);
        QTEST(BytesOf(ArrayCode({name, type, ItemsOf(items)})), "expected");
    }

    void withoutNameAndItemsANumericArrayIsTheSame()
    {
        QCOMPARE(BytesOf(ArrayCode({{}, ArrayType::Numeric, {}})), MakerBytes("array/no-items.bas"));
    }

    void manyItemsAreNumberedToTheEnd()
    {
        QStringList items;
        for (int i = 1; i <= 40'000; ++i)
            items.append(QString::number(i));
        const QStringList lines = ArrayCode({u"n"_s, ArrayType::Numeric, u'|' + items.join(u'|')}).split(u"\r\n"_s);
        QCOMPARE(lines.size(), 40'004);
        QCOMPARE(lines[0], u"    DIM n(40000)"_s);
        QCOMPARE(lines[40'000], u"    n(40000) = 40000"_s);
    }
};

QTEST_GUILESS_MAIN(tst_modArray)
#include "tst_modArray.moc"
