// SPDX-License-Identifier: GPL-3.0-or-later
// Files of groups with lines "key=value": the format, its escapes, lists and translations.
#include "platform/desktop/cKeyFile.h"

#include <QTest>

using namespace Qt::StringLiterals;

using ob::cKeyFile;

class tst_cKeyFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linesAreGroupsKeysOrComments_data();
    void linesAreGroupsKeysOrComments();
    void escapesAreReplaced_data();
    void escapesAreReplaced();
    void listsAreSplitAtSemicolons_data();
    void listsAreSplitAtSemicolons();
    void theBestTranslationIsTaken_data();
    void theBestTranslationIsTaken();
    void onlyTheWordTrueIsTrue();
    void aMissingFileHasNoGroups();
};

void tst_cKeyFile::linesAreGroupsKeysOrComments_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("value");
    const auto row = [](const char* name, const char* text, const char* value) {
        QTest::newRow(name) << QByteArray(text) << QString::fromUtf8(value);
    };
    row("plain", "[G]\nk=v\n", "v");
    row("no line end at the end", "[G]\nk=v", "v");
    row("lines that end in CR LF", "[G]\r\nk=v\r\n", "v");
    row("spaces around the sign", "[G]\nk = v w \n", "v w");
    row("a sign in the value", "[G]\nk=a=b\n", "a=b");
    row("the case of a key counts", "[G]\nK=v\n", "");
    row("the case of a group counts", "[g]\nk=v\n", "");
    row("comments and empty lines", "# k=1\n\n[G]\n# k=2\n#k=3\n\nk=v\n", "v");
    row("a comment sign in a value", "[G]\nk=v # w\n", "v # w");
    row("before the first group", "k=v\n[G]\n", "");
    row("in another group", "[F]\nk=v\n[G]\nj=w\n", "");
    row("after another group", "[F]\nk=w\n[G]\nk=v\n[H]\nk=x\n", "v");
    row("of two the first", "[G]\nk=v\nk=w\n", "v");
    row("a line without a meaning", "[G]\nk\n=w\nk=v\n", "v");
    row("UTF-8", "[G]\nk=\xC3\xA4\xE2\x82\xAC\n", "\xC3\xA4\xE2\x82\xAC");
    row("empty", "", "");
}

void tst_cKeyFile::linesAreGroupsKeysOrComments()
{
    QFETCH(QByteArray, text);
    QTEST(cKeyFile(text).Text(u"G"_s, u"k"_s), "value");
}

void tst_cKeyFile::escapesAreReplaced_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QString>("value");
    QTest::newRow("space") << QByteArray(R"(\sa\s)") << u" a "_s;
    QTest::newRow("line feed") << QByteArray(R"(a\nb)") << u"a\nb"_s;
    QTest::newRow("tab") << QByteArray(R"(a\tb)") << u"a\tb"_s;
    QTest::newRow("return") << QByteArray(R"(a\rb)") << u"a\rb"_s;
    QTest::newRow("backslash") << QByteArray(R"(a\\nb)") << u"a\\nb"_s;
    QTest::newRow("four backslashes") << QByteArray(R"(a\\\\b)") << u"a\\\\b"_s;
    QTest::newRow("no escape") << QByteArray(R"(a\"b)") << u"a\\\"b"_s;
    QTest::newRow("backslash at the end") << QByteArray("a\\") << u"a\\"_s;
    QTest::newRow("semicolons") << QByteArray("a;b;") << u"a;b;"_s;
}

void tst_cKeyFile::escapesAreReplaced()
{
    QFETCH(QByteArray, written);
    QTEST(cKeyFile("[G]\nk=" + written + '\n').Text(u"G"_s, u"k"_s), "value");
}

void tst_cKeyFile::listsAreSplitAtSemicolons_data()
{
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<QStringList>("parts");
    const auto row = [](const char* name, const char* written, const QStringList& parts) {
        QTest::newRow(name) << QByteArray(written) << parts;
    };
    const QString a = u"a"_s;
    const QString b = u"b"_s;
    row("ended", "a;b;", {a, b});
    row("not ended", "a;b", {a, b});
    row("one", "a", {a});
    row("none", "", {});
    row("empty parts", ";a;;b;", {a, b});
    row("a semicolon in a part", R"(a\;b;b)", {u"a;b"_s, b});
    row("a backslash before the end", R"(a\\;b)", {u"a\\"_s, b});
    row("a space in a part", R"(a\sb;b)", {u"a b"_s, b});
}

void tst_cKeyFile::listsAreSplitAtSemicolons()
{
    QFETCH(QByteArray, written);
    QTEST(cKeyFile("[G]\nk=" + written + '\n').List(u"G"_s, u"k"_s), "parts");
}

void tst_cKeyFile::theBestTranslationIsTaken_data()
{
    QTest::addColumn<QString>("locale");
    QTest::addColumn<QByteArray>("keys");
    QTest::addColumn<QString>("value");
    const auto row = [](const char* locale, const char* keys, const char* value) {
        QTest::addRow("%s of %s", locale, keys)
            << QString::fromLatin1(locale) << QByteArray(keys) << QString::fromLatin1(value);
    };
    const char* all = "k=0\nk[sr]=1\nk[sr@Latn]=2\nk[sr_YU]=3\nk[sr_YU@Latn]=4\n";
    row("sr_YU.UTF-8@Latn", all, "4");
    row("sr_YU@Latn", "k=0\nk[sr]=1\nk[sr@Latn]=2\nk[sr_YU]=3\n", "3");
    row("sr_YU@Latn", "k=0\nk[sr]=1\nk[sr@Latn]=2\n", "2");
    row("sr_YU@Latn", "k=0\nk[sr]=1\n", "1");
    row("sr_YU@Latn", "k=0\nk[de]=1\n", "0");
    row("sr_YU", all, "3");
    row("sr@Latn", all, "2");
    row("sr", all, "1");
    row("C.UTF-8", all, "0");
    row("", all, "0");
}

void tst_cKeyFile::theBestTranslationIsTaken()
{
    QFETCH(QString, locale);
    QFETCH(QByteArray, keys);
    QTEST(cKeyFile("[G]\n" + keys).Text(u"G"_s, u"k"_s, locale), "value");
}

void tst_cKeyFile::onlyTheWordTrueIsTrue()
{
    const cKeyFile file("[G]\na=true\nb=false\nc=True\nd=1\n");
    QVERIFY(file.IsTrue(u"G"_s, u"a"_s));
    for (const char* key : {"b", "c", "d", "e"})
        QVERIFY2(!file.IsTrue(u"G"_s, QString::fromLatin1(key)), key);
}

void tst_cKeyFile::aMissingFileHasNoGroups()
{
    const cKeyFile file = cKeyFile::Read(u"/nowhere/at/all"_s);
    QCOMPARE(file.Text(u"G"_s, u"k"_s), QString());
    QCOMPARE(file.List(u"G"_s, u"k"_s), QStringList());
}

QTEST_GUILESS_MAIN(tst_cKeyFile)
#include "tst_cKeyFile.moc"
