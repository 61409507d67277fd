// SPDX-License-Identifier: GPL-3.0-or-later
// The list of recent files: read with its single cleaning pass, shown, moved, stored.
#include "shell/state/modRecent.h"

#include "core/CoreBench.h"

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modRecent : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    void anEmptyStoreGivesErrors()
    {
        FillRecentFiles();
        QCOMPARE(Recent(), QStringList(8, u"error"_s));
        QVERIFY(ShowRecentFiles() == RecentMenu::Filled);
        QCOMPARE(RecentCount, 0);
        QVERIFY(bench->form.ShownItems().isEmpty());
        for (const QString& caption : bench->form.captions)
            QCOMPARE(caption, QString());
    }

    void aFileNamedUntitledInTheCurrentFolderMakesTheListEmpty_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("as the default") << u"untitled"_s;
        QTest::newRow("in another case") << u"UnTitled"_s;
    }

    void aFileNamedUntitledInTheCurrentFolderMakesTheListEmpty()
    {
        QFETCH(QString, name);
        bench->Put(name, "x");
        bench->Put(u"b.bas"_s, "b");
        WriteSetting(u"MRU1"_s, name);
        WriteSetting(u"MRU2"_s, bench->Path(u"b.bas"_s));
        RecentCount = 5;
        FillRecentFiles();
        QCOMPARE(RecentFiles[0], name);
        QVERIFY(ShowRecentFiles() == RecentMenu::WantsNewWindow);
        QCOMPARE(RecentCount, 0);
        QCOMPARE(bench->form.captions[0], u"no files"_s);
        QCOMPARE(bench->form.captions[1], QString());
        QVERIFY(bench->form.ShownItems().isEmpty());
    }

    void untitledAfterTheFirstEntryIsAFileLikeOthers()
    {
        bench->Put(u"untitled"_s, "x");
        const QString first = bench->Put(u"a.bas"_s, "a");
        WriteSetting(u"MRU1"_s, first);
        FillRecentFiles();
        QCOMPARE(Recent(), QStringList{first} + QStringList(7, u"untitled"_s));
        QVERIFY(ShowRecentFiles() == RecentMenu::Filled);
        QCOMPARE(RecentCount, 8);
        QCOMPARE(bench->form.captions[7], u"untitled"_s);
    }

    // One digit for each stored entry, 0 for a missing file; the second text is the list after reading, "e" being
    // "error".
    void missingEntriesAreRemovedInOnePass_data()
    {
        QTest::addColumn<QByteArray>("stored");
        QTest::addColumn<QByteArray>("read");
        QTest::addColumn<QList<int>>("shown");
        const QList<int> all = {1, 2, 3, 4, 5, 6, 7, 8};
        QTest::newRow("none missing") << QByteArray("12345678") << QByteArray("12345678") << all;
        QTest::newRow("the last is doubled") << QByteArray("10345678") << QByteArray("13456788") << all;
        QTest::newRow("the first missing") << QByteArray("02345678") << QByteArray("23456788") << all;
        QTest::newRow("the last missing stays")
            << QByteArray("12345670") << QByteArray("1234567e") << QList<int>{1, 2, 3, 4, 5, 6, 7};
        QTest::newRow("of two in a row the second is not checked")
            << QByteArray("12005678") << QByteArray("12e56788") << QList<int>{1, 2, 4, 5, 6, 7, 8};
        QTest::newRow("two apart are removed, the last is there three times")
            << QByteArray("10305678") << QByteArray("13567888") << all;
        QTest::newRow("a missing last is doubled too")
            << QByteArray("10345670") << QByteArray("134567ee") << QList<int>{1, 2, 3, 4, 5, 6};
        QTest::newRow("all missing") << QByteArray("00000000") << QByteArray("eeeeeeee") << QList<int>{};
    }

    void missingEntriesAreRemovedInOnePass()
    {
        QFETCH(QByteArray, stored);
        QFETCH(QByteArray, read);
        QFETCH(QList<int>, shown);
        for (char digit = '1'; digit <= '8'; ++digit)
            bench->Put(QString(QLatin1Char(digit)), "x");
        for (int i = 0; i < 8; ++i)
            WriteSetting(u"MRU%1"_s.arg(i + 1), bench->Path(QString(QLatin1Char(stored[i]))));
        FillRecentFiles();
        QStringList expected;
        for (const char name : read)
            expected.append(name == 'e' ? u"error"_s : bench->Path(QString(QLatin1Char(name))));
        QCOMPARE(Recent(), expected);

        QVERIFY(ShowRecentFiles() == RecentMenu::Filled);
        QCOMPARE(bench->form.ShownItems(), shown);
        QCOMPARE(RecentCount, static_cast<int>(shown.size()));
        for (const int number : shown)
            QCOMPARE(bench->form.captions[static_cast<std::size_t>(number - 1)], expected[number - 1]);
    }

    void anEntryThatIsAFolderIsNotAFile()
    {
        QDir().mkdir(u"folder"_s);
        WriteSetting(u"MRU1"_s, bench->Path(u"folder"_s));
        const QString second = bench->Put(u"b.bas"_s, "b");
        WriteSetting(u"MRU2"_s, second);
        FillRecentFiles();
        QCOMPARE(RecentFiles[0], second);
    }

    void readingTheListWritesNothing()
    {
        FillRecentFiles();
        ShowRecentFiles();
        SyncSettings();
        QVERIFY(!QFile::exists(bench->StorePath()));
    }

    void aNewNameGoesToTheFrontAndTheLastFallsOut()
    {
        SetRecent("abcdefgh");
        RecentCount = 8;
        AddRecentFile(u"x"_s);
        QCOMPARE(Recent(), Split("xabcdefg"));
        QCOMPARE(Captions(), Split("xabcdefg"));
        QCOMPARE(Stored(), Split("xabcdefg"));
    }

    void aKnownNameMovesToTheFront_data()
    {
        QTest::addColumn<char>("name");
        QTest::addColumn<QByteArray>("list");
        QTest::newRow("first") << 'a' << QByteArray("abcdefgh");
        QTest::newRow("second") << 'b' << QByteArray("bacdefgh");
        QTest::newRow("middle") << 'e' << QByteArray("eabcdfgh");
        QTest::newRow("last") << 'h' << QByteArray("habcdefg");
    }

    void aKnownNameMovesToTheFront()
    {
        QFETCH(char, name);
        QFETCH(QByteArray, list);
        SetRecent("abcdefgh");
        RecentCount = 3;
        AddRecentFile(QString(QLatin1Char(name)));
        QCOMPARE(Recent(), Split(list));
        QCOMPARE(RecentCount, 3);
        QCOMPARE(bench->form.ShownItems(), (QList<int>{1, 2, 3}));
        QCOMPARE(Captions(), Split(list));
        QCOMPARE(Stored(), Split(list));
    }

    void aNameInAnotherCaseIsANewName()
    {
        SetRecent("abcdefgh");
        RecentCount = 2;
        AddRecentFile(u"C"_s);
        QCOMPARE(Recent(), Split("Cabcdefg"));
        QCOMPARE(RecentCount, 3);
    }

    void theFirstOfTwoEqualEntriesMoves()
    {
        SetRecent("abcdegg!");
        AddRecentFile(u"g"_s);
        QCOMPARE(Recent(), Split("gabcdeg!"));
    }

    void itemsAreShownUpToTheCount()
    {
        FillRecentFiles();
        ShowRecentFiles();
        AddRecentFile(u"a"_s);
        QCOMPARE(RecentCount, 1);
        QCOMPARE(bench->form.ShownItems(), QList<int>{1});
        AddRecentFile(u"b"_s);
        QCOMPARE(bench->form.ShownItems(), (QList<int>{1, 2}));
        QCOMPARE(bench->form.captions[0], u"b"_s);
        QCOMPARE(bench->form.captions[2], u"error"_s);
    }

    void theCountGrowsPastTheListAndPastNineNothingIsStored()
    {
        SetRecent("abcdefgh");
        SaveRecentFiles();
        RecentCount = 7;
        AddRecentFile(u"1"_s);
        QCOMPARE(RecentCount, 8);
        QCOMPARE(Stored(), Split("1abcdefg"));
        AddRecentFile(u"2"_s);
        QCOMPARE(RecentCount, 9);
        QCOMPARE(bench->form.ShownItems(), (QList<int>{1, 2, 3, 4, 5, 6, 7, 8}));
        QCOMPARE(Stored(), Split("21abcdef"));
        AddRecentFile(u"1"_s);
        QCOMPARE(RecentCount, 9);
        QCOMPARE(Stored(), Split("12abcdef"));

        AddRecentFile(u"3"_s);
        QCOMPARE(RecentCount, 10);
        QCOMPARE(Recent(), Split("312abcde"));
        QCOMPARE(Captions(), Split("312abcde"));
        QCOMPARE(Stored(), Split("12abcdef"));
        AddRecentFile(u"2"_s);
        QCOMPARE(RecentCount, 10);
        QCOMPARE(Recent(), Split("231abcde"));
        QCOMPARE(Stored(), Split("12abcdef"));

        SaveRecentFiles();
        QCOMPARE(Stored(), Split("231abcde"));
    }

    void pastNineNoFurtherItemIsShown()
    {
        SetRecent("abcdefgh");
        RecentCount = 9;
        AddRecentFile(u"x"_s);
        QVERIFY(bench->form.ShownItems().isEmpty());
    }

    void aStoredListIsOnTheDiskAtOnce()
    {
        SetRecent("abcdefgh");
        AddRecentFile(u"x"_s);
        const QByteArray store = CoreBench::Get(bench->StorePath());
        QVERIFY(store.contains("MRU1=x"));
        QVERIFY(store.contains("MRU8=g"));
    }

private:
    static QStringList Split(const QByteArray& names)
    {
        QStringList list;
        for (const char name : names)
            list.append(QString(QLatin1Char(name)));
        return list;
    }

    static void SetRecent(const QByteArray& names)
    {
        const QStringList list = Split(names);
        std::copy(list.begin(), list.end(), RecentFiles.begin());
    }

    static QStringList Recent() { return {RecentFiles.begin(), RecentFiles.end()}; }
    QStringList Captions() const { return {bench->form.captions.begin(), bench->form.captions.end()}; }

    static QStringList Stored()
    {
        QStringList list;
        for (int number = 1; number <= 8; ++number)
            list.append(ReadSetting(u"MRU%1"_s.arg(number), u"(none)"_s));
        return list;
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modRecent)
#include "tst_modRecent.moc"
