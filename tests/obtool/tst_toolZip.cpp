// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool zip" as a process.
#include "obtool/RunObtool.h"

#include "engine/package/ZipBench.h"
#include "platform/files/FileTrouble.h"

#include <memory>

using namespace ob;

namespace {

Outcome Run(const QStringList& arguments)
{
    return RunObtool(QStringList{QStringLiteral("zip")} + arguments);
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
        QVERIFY(QDir().mkpath(QStringLiteral("sub")));
        PutFile(QStringLiteral("a.txt"), "a");
        PutFile(QStringLiteral("b.DLL"), "b");
        PutFile(QStringLiteral("sub/c.txt"), "c");
    }

    void cleanup() { QDir::setCurrent(QDir::rootPath()); }

    void filesAreZippedUnderPlainNames()
    {
        const Outcome end = Run("make out.zip a.txt sub/c.txt");
        QCOMPARE(end.status, 0);
        QCOMPARE(end.out, QByteArray());
        QCOMPARE(end.error, QByteArray());
        QCOMPARE(NamesInZip(QStringLiteral("out.zip")),
                 QStringList({QStringLiteral("a.txt"), QStringLiteral("c.txt")}));
        QCOMPARE(FileInZip(QStringLiteral("out.zip"), QStringLiteral("c.txt")), QByteArray("c"));
        QCOMPARE(NamesIn(QStringLiteral(".")).size(), 4);
    }

    void wildcardsAreExpandedByTheTool()
    {
        QCOMPARE(Run("make out.zip *.*").status, 0);
        QCOMPARE(NamesInZip(QStringLiteral("out.zip")),
                 QStringList({QStringLiteral("a.txt"), QStringLiteral("b.DLL")}));
        // Again, now that the archive exists.
        QCOMPARE(Run("make out.zip ?.dll SUB/*.TXT").status, 0);
        QCOMPARE(NamesInZip(QStringLiteral("out.zip")),
                 QStringList({QStringLiteral("b.DLL"), QStringLiteral("c.txt")}));
    }

    void aNameWithoutAnExtensionGetsZip()
    {
        QCOMPARE(Run("make out a.txt").status, 0);
        QVERIFY(QFile::exists(QStringLiteral("out.zip")));
        QCOMPARE(Run("make out.pkg a.txt").status, 0);
        QVERIFY(QFile::exists(QStringLiteral("out.pkg")));
    }

    void bracketsAndDashesAreCharacters()
    {
        PutFile(QStringLiteral("[a,b]"), "x");
        PutFile(QStringLiteral("-n.txt"), "x");
        QCOMPARE(Run("make out.zip -- [a,b] -n.txt").status, 0);
        QCOMPARE(NamesInZip(QStringLiteral("out.zip")),
                 QStringList({QStringLiteral("[a,b]"), QStringLiteral("-n.txt")}));
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
        QVERIFY(QDir().mkdir(QStringLiteral("twin")));
        PutFile(QStringLiteral("twin/a.txt"), "other");
        PutFile(QStringLiteral("out.zip"), "old");
        const Outcome end = Run(arguments.constData());
        QCOMPARE(end.status, 1);
        QCOMPARE(end.out, QByteArray());
        QVERIFY2(end.error.startsWith(error), end.error.constData());
        QCOMPARE(end.error.count('\n'), 1);
        QCOMPARE(GetFile(QStringLiteral("out.zip")), QByteArray("old"));
        QCOMPARE(NamesIn(QStringLiteral(".")).size(), 5);
    }

    void ninetyNineSpecsAreTheMaximum()
    {
        QStringList specs;
        for (int number = 0; number < 100; ++number) {
            specs.append(QStringLiteral("f%1").arg(number));
            PutFile(specs.last(), "x");
        }
        const QStringList start = {QStringLiteral("make"), QStringLiteral("out.zip")};
        const Outcome tooMany = Run(start + specs);
        QCOMPARE(tooMany.status, 1);
        QVERIFY(tooMany.error.startsWith("obtool: out.zip: "));
        QVERIFY(!QFile::exists(QStringLiteral("out.zip")));
        QCOMPARE(Run(start + specs.first(99)).status, 0);
        QCOMPARE(NamesInZip(QStringLiteral("out.zip")).size(), 99);
    }

    void aFullDiskLeavesTheOldArchive()
    {
#ifdef Q_OS_UNIX
        PutFile(QStringLiteral("noise.bin"), NoiseBytes(400'000));
        PutFile(QStringLiteral("out.zip"), "old");
        Outcome end;
        {
            const FileSizeLimit limit(100'000);
            end = Run("make out.zip noise.bin");
        }
        QCOMPARE(end.status, 1);
        QVERIFY2(end.error.startsWith("obtool: out.zip: "), end.error.constData());
        QCOMPARE(GetFile(QStringLiteral("out.zip")), QByteArray("old"));
        QCOMPARE(NamesIn(QStringLiteral(".")).size(), 5);
#else
        QSKIP("cannot make a disk full");
#endif
    }

    void wrongUsageIsStatusTwo_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::newRow("no verb") << QStringList();
        QTest::newRow("no archive") << QStringList(QStringLiteral("make"));
        QTest::newRow("no file") << QStringList({QStringLiteral("make"), QStringLiteral("out.zip")});
        QTest::newRow("empty") << QStringList({QStringLiteral("make"), QStringLiteral("out.zip"), QString()});
        QTest::newRow("option") << QStringList(
            {QStringLiteral("make"), QStringLiteral("--fast"), QStringLiteral("out.zip"), QStringLiteral("a.txt")});
    }

    void wrongUsageIsStatusTwo()
    {
        QFETCH(QStringList, arguments);
        const Outcome end = Run(arguments);
        QCOMPARE(end.status, 2);
        QCOMPARE(end.out, QByteArray());
        QVERIFY2(end.error.contains("usage: obtool zip "), end.error.constData());
        QVERIFY(!QFile::exists(QStringLiteral("out.zip")));
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
