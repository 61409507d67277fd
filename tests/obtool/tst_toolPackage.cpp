// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool package" as a process.
#include "obtool/RunObtool.h"

#include "engine/package/PackageBench.h"
#include "platform/files/FileTrouble.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

Outcome Run(const QStringList& arguments)
{
    return RunObtool(QStringList{u"package"_s} + arguments);
}

// Packages the bench's token with its engine's folder, and further arguments.
Outcome Make(const PackageBench& bench, const QStringList& more = {})
{
    return Run(QStringList{u"make"_s, bench.Token(), u"--engine"_s, bench.engine} + more);
}

QStringList Sorted(QStringList names)
{
    names.sort(Qt::CaseSensitive);
    return names;
}

QStringList StagesIn(const QString& folder)
{
    return QDir(folder).entryList({u".ob-*"_s}, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

// Where the program is; the question whether to test it, which nobody can answer here, is left out.
QByteArray EngineNote(const PackageBench& bench)
{
    return "obtool: note: The runtime engine is now called game.exe  All files can be found in " +
           bench.Package().toUtf8() + "\n";
}

QByteArray RenameNote(const PackageBench& bench)
{
    return "obtool: note: Error renaming runtime engine! " + bench.Package().toUtf8() +
           ": no runtime engine could get the program's name\n";
}

QByteArray NotComplete(const PackageBench& bench)
{
    return "obtool: " + bench.Package().toUtf8() + ": The package is not complete.\n";
}

} // namespace

class tst_toolPackage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void wholePackagesReportTheNameOfTheEngine_data()
    {
        QTest::addColumn<int>("version");
        for (int version = 1; version <= 3; ++version)
            QTest::addRow("version %d", version) << version;
    }

    void wholePackagesReportTheNameOfTheEngine()
    {
        QFETCH(int, version);
        const PackageBench bench(version);
        for (int round = 0; round < 2; ++round) {
            const Outcome end = Make(bench);
            QCOMPARE(end.status, 0);
            QCOMPARE(end.out, QByteArray());
            QCOMPARE(end.error, EngineNote(bench));
            QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(version));
            QCOMPARE(bench.Get("game.exe"), QByteArray("the engine"));
        }
    }

    void theEngineIsAFileOrAFolder()
    {
        const PackageBench bench(1);
        const QString before = QDir::currentPath();
        for (const char* engine : {"engine/orchard.exe", "engine/", "engine", "./engine/gone.exe"}) {
            QDir::setCurrent(QFileInfo(bench.engine).path());
            QDir(bench.Package()).removeRecursively();
            const Outcome end = Run({u"make"_s, u"work/game.tkn"_s, u"--engine"_s, QString::fromLatin1(engine)});
            QCOMPARE(end.error, EngineNote(bench));
            QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
        }
        // A bare name is in the current folder.
        QDir::setCurrent(bench.engine);
        QDir(bench.Package()).removeRecursively();
        Run({u"make"_s, u"../work/game.tkn"_s, u"--engine"_s, u"orchard.exe"_s});
        QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
        QDir::setCurrent(before);
    }

    void withoutAnEngineThereIsANote()
    {
        const PackageBench bench(0);
        const Outcome end = Make(bench);
        QCOMPARE(end.status, 1);
        QCOMPARE(end.error,
                 QByteArray("obtool: note: Orchard Bench cannot find your copy of Orchard BASIC.  Please set "
                            "the path to 'orchard.exe' in the Prefernces Menu, under 'Options/Paths'.\n") +
                     RenameNote(bench) + NotComplete(bench));
        QCOMPARE(bench.PackedNames(), Words("game.tkn"));
    }

    void missingFilesAreNotesAndAFailure()
    {
        const PackageBench bench(2);
        QVERIFY(QFile::remove(bench.At("engine/vwhelp.dll")));
        QVERIFY(QFile::remove(bench.At("engine/vwicons.dll")));
        const Outcome end = Make(bench);
        QCOMPARE(end.status, 1);
        QCOMPARE(end.error, EngineNote(bench) + "obtool: note: Orchard Bench could not find these needed files:" +
                                bench.At("engine/vwhelp.dll").toUtf8() + ' ' + bench.At("engine/vwicons.dll").toUtf8() +
                                '\n' + NotComplete(bench));
    }

    void filesAreAddedAndLeftOut()
    {
        const PackageBench bench(3);
        PutFile(bench.At("work/[a,b].txt"), "one");
        PutFile(bench.At("work/two.txt"), "two");
        const Outcome end =
            Run({u"make"_s, u"--add"_s, bench.At("work/[a,b].txt"), u"--add"_s, bench.At("work/two.txt"), u"--remove"_s,
                 u"VTHK31W.dll"_s, u"--engine"_s, bench.engine, bench.Token()});
        QCOMPARE(end.error, EngineNote(bench));
        QCOMPARE(end.status, 0);
        QStringList expected = PackageBench::WholePackage(3) + Words("[a,b].txt two.txt");
        expected.removeOne(u"Vthk31w.dll"_s);
        QCOMPARE(bench.PackedNames(), Sorted(expected));
        QCOMPARE(bench.Get("[a,b].txt"), QByteArray("one"));
    }

    void theFirstFileOfANameIsLeftOut()
    {
        const PackageBench bench(1);
        PutFile(bench.At("work/vwabort.dll"), "my own");
        const QStringList add = {u"--add"_s, bench.At("work/vwabort.dll")};
        const QStringList remove = {u"--remove"_s, u"vwabort.dll"_s};
        QCOMPARE(Make(bench, add + remove).status, 0);
        QCOMPARE(bench.Get("vwabort.dll"), QByteArray("my own"));
        QDir(bench.Package()).removeRecursively();
        QCOMPARE(Make(bench, add + remove + remove).status, 0);
        QVERIFY(!QFileInfo::exists(bench.Packed("vwabort.dll")));
    }

    void aMissingNameIsAFailureBeforeAnyCopy()
    {
        const PackageBench bench(1);
        const Outcome end = Make(bench, {u"--remove"_s, u"gone.dll"_s});
        QCOMPARE(end.status, 1);
        QVERIFY2(end.error.startsWith("obtool: gone.dll: "), end.error.constData());
        QCOMPARE(end.error.count('\n'), 1);
        QVERIFY(!QFileInfo::exists(bench.Package()));
    }

    void withoutRunExeThereIsANote()
    {
        const PackageBench bench(1);
        const Outcome end = Make(bench, {u"--remove"_s, u"run.exe"_s});
        QCOMPARE(end.status, 1);
        QCOMPARE(end.error, RenameNote(bench) + NotComplete(bench));
    }

    void copiesThatFailAreNamedWithTheirReason()
    {
#ifdef Q_OS_UNIX
        const PackageBench bench(1);
        const Outcome end = Make(bench, {u"--add"_s, u"/proc/self/mem"_s});
        QCOMPARE(end.status, 1);
        QVERIFY2(end.error.startsWith("obtool: note: Error occurred! /proc/self/mem: "), end.error.constData());
        QVERIFY(end.error.endsWith(EngineNote(bench) + NotComplete(bench)));
        QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
#else
        QSKIP("has no such files");
#endif
    }

    void aFullDiskIsAFailureAndLeavesTheOldFile()
    {
#ifdef Q_OS_UNIX
        const PackageBench bench(1);
        QCOMPARE(Make(bench).status, 0);
        PutFile(bench.At("engine/vwfont.dll"), QByteArray(3'000'000, 'x'));
        Surroundings full;
        full.setup = "ulimit -f 1000; trap '' XFSZ";
        const Outcome end = RunObtool({u"package"_s, u"make"_s, bench.Token(), u"--engine"_s, bench.engine}, full);
        QCOMPARE(end.status, 1);
        QVERIFY2(end.error.startsWith("obtool: note: Error occurred! " + bench.At("engine/vwfont.dll").toUtf8() + ": "),
                 end.error.constData());
        QCOMPARE(bench.Get("vwfont.dll"), QByteArray("the vwfont.dll"));
        QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
#else
        QSKIP("cannot make a disk full");
#endif
    }

    // A file of many gigabytes without content keeps the copy busy until it is killed.
    void aKilledRunLeavesTheOldPackage()
    {
#ifdef Q_OS_UNIX
        const PackageBench bench(1);
        QCOMPARE(Make(bench).status, 0);
        for (const QString& name : bench.PackedNames())
            PutFile(bench.Package() + u'/' + name, "of the older package");
        PutFile(bench.At("engine/vwabort.dll"), QByteArray(1000, 'n'));
        QFile large(bench.At("engine/vwvm11.dll"));
        QVERIFY(large.open(QIODevice::WriteOnly) && large.resize(qint64{20} << 30));
        large.close();
        QProcess run;
        run.start(Obtool, {u"package"_s, u"make"_s, bench.Token(), u"--engine"_s, bench.engine});
        const auto hasStage = [&] { return !StagesIn(bench.work).isEmpty(); };
        QVERIFY(QTest::qWaitFor(hasStage, 20'000));
        QTest::qWait(200);
        run.kill();
        QVERIFY(run.waitForFinished());
        for (const QString& name : PackageBench::WholePackage(1))
            QCOMPARE(bench.Get(qPrintable(name)), QByteArray("of the older package"));
        QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));

        // The next one removes what the kill left.
        PutFile(bench.At("engine/vwvm11.dll"), "small");
        QCOMPARE(Make(bench).status, 0);
        QCOMPARE(StagesIn(bench.work), QStringList());
        QCOMPARE(bench.Get("vwvm11.dll"), QByteArray("small"));
#else
        QSKIP("looks into a folder while it is worked on");
#endif
    }

    void olderFilesOfThePackageStay()
    {
        const PackageBench bench(1);
        QVERIFY(QDir().mkpath(bench.Packed("pictures")));
        PutFile(bench.Packed("pictures/rose.bmp"), "rose");
        PutFile(bench.Packed("readme.txt"), "read me");
        QCOMPARE(Make(bench).status, 0);
        QCOMPARE(bench.Get("pictures/rose.bmp"), QByteArray("rose"));
        QCOMPARE(bench.Get("readme.txt"), QByteArray("read me"));
        QCOMPARE(bench.Get("game.exe"), QByteArray("the engine"));
    }

    void anAddedFileThatDoesNotExistIsMissing()
    {
        const PackageBench bench(1);
        const Outcome end = Make(bench, {u"--add"_s, bench.At("work/gone.txt")});
        QCOMPARE(end.status, 1);
        QVERIFY(
            end.error.startsWith(EngineNote(bench) + "obtool: note: Orchard Bench could not find these needed files:"));
        QVERIFY(end.error.endsWith("gone.txt\n" + NotComplete(bench)));
    }

    void thePackageIsZipped()
    {
        const PackageBench bench(2);
        const Outcome end = Make(bench, {u"--zip"_s});
        QCOMPARE(end.status, 0);
        QCOMPARE(end.error, EngineNote(bench));
        QCOMPARE(Sorted(NamesInZip(bench.Packed("game.zip"))), PackageBench::WholePackage(2));
    }

    void aZipThatFailsIsAFailure()
    {
        const PackageBench bench(2);
        QVERIFY(QDir().mkpath(bench.Packed("game.zip")));
        const Outcome end = Make(bench, {u"--zip"_s});
        QCOMPARE(end.status, 1);
        QVERIFY2(end.error.startsWith(EngineNote(bench) + "obtool: " + bench.Packed("game.zip").toUtf8() + ": "),
                 end.error.constData());
    }

    void filesThatAreNotTokensFail()
    {
        const PackageBench bench(1);
        PutFile(bench.At("work/game.bas"), "x");
        QVERIFY(QDir().mkdir(bench.At("work/folder.tkn")));
        for (const char* token : {"work/game.bas", "work/gone.tkn", "work/folder.tkn"}) {
            const Outcome end = Run({u"make"_s, bench.At(token), u"--engine"_s, bench.engine});
            QCOMPARE(end.status, 1);
            QVERIFY2(end.error.startsWith("obtool: " + bench.At(token).toUtf8() + ": "), end.error.constData());
            QCOMPARE(end.error.count('\n'), 1);
        }
        QVERIFY(!QFileInfo::exists(bench.Package()));
    }

    void aPackageFolderThatCannotBeMadeIsAFailure()
    {
        const PackageBench bench(1);
        PutFile(bench.Package(), "a file");
        const Outcome end = Make(bench);
        QCOMPARE(end.status, 1);
        QCOMPARE(end.error, "obtool: " + bench.Package().toUtf8() + ": Path/File access error\n");
    }

    void wrongUsageIsStatusTwo()
    {
        const PackageBench bench(1);
        QCOMPARE(Run({u"make"_s, bench.Token()}).status, 2);
        QCOMPARE(Run({u"make"_s, u"--engine"_s, bench.engine}).status, 2);
        QCOMPARE(Make(bench, {u"--add"_s}).status, 2);
        QCOMPARE(Make(bench, {u"--remove"_s, QString()}).status, 2);
        const Outcome end = Make(bench, {u"second.tkn"_s});
        QCOMPARE(end.status, 2);
        QVERIFY(
            end.error.contains("usage: obtool package make TOKEN --engine ENGINE [--add FILE]... [--remove NAME]... "
                               "[--zip]"));
        QVERIFY(!QFileInfo::exists(bench.Package()));
    }
};

QTEST_APPLESS_MAIN(tst_toolPackage)
#include "tst_toolPackage.moc"
