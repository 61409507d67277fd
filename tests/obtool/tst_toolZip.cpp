// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool zip" as a process.
#include "obtool/RunObtool.h"

#include "engine/package/ZipBench.h"
#include "platform/files/FileTrouble.h"

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

Outcome Run(const QStringList& arguments)
{
    return RunObtool(QStringList{u"zip"_s} + arguments);
}

Outcome Run(const char* arguments)
{
    return Run(WordsOf(arguments));
}

} // namespace

class tst_toolZip : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<QTemporaryDir> folder;

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(folder->path());
        QVERIFY(QDir().mkpath(u"sub"_s));
        PutFile(u"a.txt"_s, "a");
        PutFile(u"b.DLL"_s, "b");
        PutFile(u"sub/c.txt"_s, "c");
    }

    void cleanup() { QDir::setCurrent(QDir::rootPath()); }

    void filesAreZippedUnderPlainNames()
    {
        const Outcome end = Run("make out.zip a.txt sub/c.txt");
        QCOMPARE(end.status, 0);
        QCOMPARE(end.out, QByteArray());
        QCOMPARE(end.error, QByteArray());
        QCOMPARE(NamesInZip(u"out.zip"_s), QStringList({u"a.txt"_s, u"c.txt"_s}));
        QCOMPARE(FileInZip(u"out.zip"_s, u"c.txt"_s), QByteArray("c"));
        QCOMPARE(NamesIn(u"."_s).size(), 4);
    }

    void wildcardsAreExpandedByTheTool()
    {
        QCOMPARE(Run("make out.zip *.*").status, 0);
        QCOMPARE(NamesInZip(u"out.zip"_s), QStringList({u"a.txt"_s, u"b.DLL"_s}));
        // Again, now that the archive exists.
        QCOMPARE(Run("make out.zip ?.dll SUB/*.TXT").status, 0);
        QCOMPARE(NamesInZip(u"out.zip"_s), QStringList({u"b.DLL"_s, u"c.txt"_s}));
    }

    void aNameWithoutAnExtensionGetsZip()
    {
        QCOMPARE(Run("make out a.txt").status, 0);
        QVERIFY(QFile::exists(u"out.zip"_s));
        QCOMPARE(Run("make out.pkg a.txt").status, 0);
        QVERIFY(QFile::exists(u"out.pkg"_s));
    }

    void bracketsAndDashesAreCharacters()
    {
        PutFile(u"[a,b]"_s, "x");
        PutFile(u"-n.txt"_s, "x");
        QCOMPARE(Run("make out.zip -- [a,b] -n.txt").status, 0);
        QCOMPARE(NamesInZip(u"out.zip"_s), QStringList({u"[a,b]"_s, u"-n.txt"_s}));
    }

    void unmatchedSpecsAreNotes()
    {
        const Outcome end = Run("make out.zip a.txt *.exe");
        QCOMPARE(end.status, 0);
        QCOMPARE(end.error, QByteArray("obtool: note: no file matches *.exe\n"));
    }

    void failuresReportTheirReasonAndLeaveTheOldArchive_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QByteArray>("error");
        const auto row = [](const char* arguments, const char* error) {
            QTest::newRow(arguments) << QByteArray(arguments) << QByteArray(error);
        };
        row("make out.zip *.exe", "obtool: out.zip: ");
        row("make out.zip a.txt A.TXT", "obtool: A.TXT: File is already in Zip List\n");
        row("make out.zip querty", "obtool: querty: File is already in Zip List\n");
        row("make out.zip a.txt twin/a.txt", "obtool: out.zip: Two files are named a.txt: ");
        row("make nowhere/out.zip a.txt", "obtool: nowhere/out.zip: ");
        row("make out.zip out.zip", "obtool: out.zip: ");
    }

    void failuresReportTheirReasonAndLeaveTheOldArchive()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QByteArray, error);
        QVERIFY(QDir().mkdir(u"twin"_s));
        PutFile(u"twin/a.txt"_s, "other");
        PutFile(u"out.zip"_s, "old");
        const Outcome end = Run(arguments.constData());
        QCOMPARE(end.status, 1);
        QCOMPARE(end.out, QByteArray());
        QVERIFY2(end.error.startsWith(error), end.error.constData());
        QCOMPARE(end.error.count('\n'), 1);
        QCOMPARE(GetFile(u"out.zip"_s), QByteArray("old"));
        QCOMPARE(NamesIn(u"."_s).size(), 5);
    }

    void ninetyNineSpecsAreTheMaximum()
    {
        QStringList specs;
        for (int number = 0; number < 100; ++number) {
            specs.append(u"f%1"_s.arg(number));
            PutFile(specs.last(), "x");
        }
        const QStringList start = {u"make"_s, u"out.zip"_s};
        const Outcome tooMany = Run(start + specs);
        QCOMPARE(tooMany.status, 1);
        QVERIFY(tooMany.error.startsWith("obtool: out.zip: "));
        QVERIFY(!QFile::exists(u"out.zip"_s));
        QCOMPARE(Run(start + specs.first(99)).status, 0);
        QCOMPARE(NamesInZip(u"out.zip"_s).size(), 99);
    }

    void aFullDiskLeavesTheOldArchive()
    {
#ifdef Q_OS_UNIX
        PutFile(u"noise.bin"_s, NoiseBytes(400'000));
        PutFile(u"out.zip"_s, "old");
        Outcome end;
        {
            const FileSizeLimit limit(100'000);
            end = Run("make out.zip noise.bin");
        }
        QCOMPARE(end.status, 1);
        QVERIFY2(end.error.startsWith("obtool: out.zip: "), end.error.constData());
        QCOMPARE(GetFile(u"out.zip"_s), QByteArray("old"));
        QCOMPARE(NamesIn(u"."_s).size(), 5);
#else
        QSKIP("cannot make a disk full");
#endif
    }

    void wrongUsageIsStatusTwo_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no verb") << QStringList();
        QTest::newRow("no archive") << QStringList(u"make"_s);
        QTest::newRow("no file") << QStringList({u"make"_s, u"out.zip"_s});
        QTest::newRow("empty") << QStringList({u"make"_s, u"out.zip"_s, QString()});
        QTest::newRow("option") << QStringList({u"make"_s, u"--fast"_s, u"out.zip"_s, u"a.txt"_s});
    }

    void wrongUsageIsStatusTwo()
    {
        QFETCH(QStringList, arguments);
        const Outcome end = Run(arguments);
        QCOMPARE(end.status, 2);
        QCOMPARE(end.out, QByteArray());
        QVERIFY2(end.error.contains("usage: obtool zip "), end.error.constData());
        QVERIFY(!QFile::exists(u"out.zip"_s));
    }

    void helpShowsTheUsage()
    {
        const Outcome end = Run("make --help");
        QCOMPARE(end.status, 0);
        QVERIFY(end.out.contains("obtool zip make OUT SPEC..."));
    }
};

QTEST_APPLESS_MAIN(tst_toolZip)
#include "tst_toolZip.moc"
