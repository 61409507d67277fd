// SPDX-License-Identifier: GPL-3.0-or-later
// The files of a package, and its making step by step.
#include "engine/package/PackageBench.h"
#include "platform/files/FileTrouble.h"

#include "engine/package/modPackage.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString CopyError = u"Error occurred!"_s;
const QString RenameError = u"Error renaming runtime engine!"_s;
const QString Aborted = u"File copying operation aborted!"_s;

// Records what is reported, and stops the work at one call of Processing, from 1.
class ListeningWatch final : public cPackageWatch {
public:
    explicit ListeningWatch(int stop = 0) : stopAt(stop) {}

    PackageRequest Processing(const PackageProgress& progress) override
    {
        ++calls;
        if (names.isEmpty() || names.last() != progress.name)
            names.append(progress.name);
        if (progress.done < lastDone || progress.done > progress.all)
            QTest::qFail("the progress runs wild", __FILE__, __LINE__);
        lastDone = progress.done;
        all = progress.all;
        return calls == stopAt ? PackageRequest::Stop : PackageRequest::GoOn;
    }
    void Tell(const MessageSpec& box) override
    {
        reports.append(box.text);
        boxes.append(box);
    }
    void EngineIsNamed(const PackagedEngine& engine) override { reports.append(u"named "_s + engine.name); }
    void FilesAreDone() override { ++done; }
    void ZipBegins() override { reports.append(u"zip"_s); }
    ZipRequest Zipping(const ZipProgress&) override { return ZipRequest::GoOn; }
    void ZipEnds() override { reports.append(u"zip ends"_s); }
    void ZipIsMade(const QString& base) override { reports.append(ZipMadeBox(base).text); }

    int stopAt;
    int calls = 0;
    int done = 0;
    qint64 lastDone = 0;
    qint64 all = 0;
    QStringList names;
    QStringList reports;
    QList<MessageSpec> boxes;
};

PackagePlan PlanOf(const PackageBench& bench)
{
    return PlanPackage(bench.Token(), bench.engine + QDir::separator());
}

QStringList ReportsOf(const PackagePlan& plan, PackageZip zip = PackageZip::No, PackageEnd end = PackageEnd::Made)
{
    ListeningWatch watch;
    const PackageOutcome outcome = MakePackage(plan, zip, watch);
    if (outcome.end != end)
        QTest::qFail("another end was expected", __FILE__, __LINE__);
    return watch.reports;
}

void Rename(const QString& folder, const char* from, const char* to)
{
    if (!QDir(folder).rename(QString::fromUtf8(from), QString::fromUtf8(to)))
        QTest::qFail(from, __FILE__, __LINE__);
}

} // namespace

class tst_modPackage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tokensEndInTkn();
    void theMarkerChoosesTheFiles_data();
    void theMarkerChoosesTheFiles();
    void theFirstMarkerCounts();
    void withoutAMarkerOnlyTheTokenIsPlanned();
    void theTokensOwnIniIsTaken();
    void namesOnDiskAreFoundInAnyCase();
    void theFirstEngineOfAPatternIsTaken();
    void aPatternWithoutAnEngineIsMissing();
    void aFolderNamedLikeAFileIsMissing();
    void placesAreFoundByNameInAnyCase();
    void wholePackagesOfThreeVersions_data();
    void wholePackagesOfThreeVersions();
    void copiesKeepTimesAndPermissions();
    void missingFilesAreListedAndSkipped();
    void withoutRunExeTheRenameFails();
    void anotherEngineBecomesRunExeFirst();
    void aTokenNamedRunNeedsNoRename();
    void aPackageMadeTwiceIsOverwritten();
    void aFileOfAnotherCaseIsReplaced();
    void aFailedRenameIsReported();
    void filesThatCannotBeReadAreReported();
    void aFullDiskIsReportedAndLeavesTheOldCopy();
    void aPackageFolderThatCannotBeMadeIsAnError();
    void aLockedPackageFolderIsReportedFileByFile();
    void stoppingEndsTheWorkAtEachStep();
    void aLargeFileCanBeStopped();
    void addedFilesFollowTheToken();
    void aPackageIsZipped();
    void theFileOfTheArchivesBareNameIsDeleted();
    void aFailedZipIsNotASuccess();
    void wordingOfTheBoxes();
};

void tst_modPackage::tokensEndInTkn()
{
    QVERIFY(IsTokenName(u"/a/game.tkn"_s));
    QVERIFY(IsTokenName(u"GAME.TKN"_s));
    QVERIFY(!IsTokenName(u"game.bas"_s));
    QVERIFY(!IsTokenName(QString()));
    QVERIFY(!IsTokenName(u"kn"_s));
}

void tst_modPackage::theMarkerChoosesTheFiles_data()
{
    QTest::addColumn<int>("version");
    for (int version = 1; version <= 3; ++version)
        QTest::addRow("version %d", version) << version;
}

void tst_modPackage::theMarkerChoosesTheFiles()
{
    QFETCH(int, version);
    const PackageBench bench(version);
    const PackagePlan plan = PlanOf(bench);
    QCOMPARE(static_cast<int>(plan.version), version);
    QStringList expected = Words(engineFiles[version - 1].files) + Words("run.exe");
    if (version < 3)
        expected.append(u"obasic.ini"_s);
    for (QString& name : expected)
        name = bench.engine + QDir::separator() + name;
    expected.append(bench.Token());
    QCOMPARE(plan.files, expected);
}

void tst_modPackage::theFirstMarkerCounts()
{
    const PackageBench bench(3);
    PutFile(bench.At("engine/vwvm20.dll"), "x");
    QCOMPARE(PlanOf(bench).version, InstalledEngine::Two);
    PutFile(bench.At("engine/VWM11.DLL"), "x");
    QCOMPARE(PlanOf(bench).version, InstalledEngine::One);
    // The library of nearly the marker's name is not a marker.
    const PackageBench other(0);
    PutFile(other.At("engine/vwvm11.dll"), "x");
    QCOMPARE(PlanOf(other).version, InstalledEngine::None);
}

void tst_modPackage::withoutAMarkerOnlyTheTokenIsPlanned()
{
    const PackageBench bench(0);
    QCOMPARE(PlanOf(bench).files, QStringList(bench.Token()));
    const QString before = QDir::currentPath();
    QDir::setCurrent(bench.engine);
    PutFile(u"vwm11.dll"_s, "x");
    // A missing engine does not mean the current folder.
    QCOMPARE(PlanPackage(bench.Token(), {}).version, InstalledEngine::None);
    QDir::setCurrent(before);
    QVERIFY(QFile::remove(bench.At("engine/vwm11.dll")));
    QCOMPARE(ReportsOf(PlanOf(bench)), QStringList(RenameError));
    QCOMPARE(bench.PackedNames(), Words("game.tkn"));
}

void tst_modPackage::theTokensOwnIniIsTaken()
{
    const PackageBench bench(2);
    PutFile(bench.At("work/OBasic.INI"), "own ini");
    const PackagePlan plan = PlanOf(bench);
    QVERIFY(plan.files.contains(bench.At("work/obasic.ini")));
    QVERIFY(!plan.files.contains(bench.At("engine/obasic.ini")));
    ReportsOf(plan);
    QCOMPARE(bench.Get("obasic.ini"), QByteArray("own ini"));
}

void tst_modPackage::namesOnDiskAreFoundInAnyCase()
{
    const PackageBench bench(1);
    Rename(bench.engine, "vwm11.dll", "VWM11.DLL");
    Rename(bench.engine, "vwfont.dll", "VWFont.Dll");
    Rename(bench.engine, "run.exe", "RUN.EXE");
    Rename(bench.engine, "obasic.ini", "OBASIC.INI");
    QCOMPARE(ReportsOf(PlanOf(bench)), QStringList(u"named game.exe"_s));
    QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
    QCOMPARE(bench.Get("vwfont.dll"), QByteArray("the vwfont.dll"));
}

void tst_modPackage::theFirstEngineOfAPatternIsTaken()
{
    const PackageBench bench(3);
    Rename(bench.engine, "run.exe", "orun4.exe");
    PutFile(bench.At("engine/MyRun.EXE"), "the first");
    PutFile(bench.At("engine/Zrun.exe"), "x");
    QVERIFY(QDir().mkdir(bench.At("engine/arun.exe")));
    QVERIFY(PlanOf(bench).files.contains(bench.At("engine/MyRun.EXE")));
    QCOMPARE(ReportsOf(PlanOf(bench)), QStringList(u"named game.exe"_s));
    QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(3));
    QCOMPARE(bench.Get("game.exe"), QByteArray("the first"));
}

void tst_modPackage::aPatternWithoutAnEngineIsMissing()
{
    const PackageBench bench(3);
    QVERIFY(QFile::remove(bench.At("engine/run.exe")));
    const QStringList reports = ReportsOf(PlanOf(bench));
    QCOMPARE(reports.size(), 2);
    QCOMPARE(reports[0], RenameError);
    QVERIFY(reports[1].endsWith(bench.At("engine/*run*.exe") + u"\r\n"_s));
}

void tst_modPackage::aFolderNamedLikeAFileIsMissing()
{
    const PackageBench bench(1);
    QVERIFY(QFile::remove(bench.At("engine/vwabort.dll")));
    QVERIFY(QDir().mkdir(bench.At("engine/vwabort.dll")));
    QVERIFY(ReportsOf(PlanOf(bench)).last().endsWith(bench.At("engine/vwabort.dll") + u"\r\n"_s));
    QVERIFY(!QFileInfo::exists(bench.Packed("vwabort.dll")));
    // A file in another case matches.
    PutFile(bench.At("engine/VWABORT.dll"), "other");
    QCOMPARE(ReportsOf(PlanOf(bench)), QStringList(u"named game.exe"_s));
    QCOMPARE(bench.Get("vwabort.dll"), QByteArray("other"));
    // A folder with a marker's name selects nothing.
    const PackageBench none(0);
    QVERIFY(QDir().mkdir(none.At("engine/vwm11.dll")));
    QCOMPARE(PlanOf(none).version, InstalledEngine::None);
}

void tst_modPackage::placesAreFoundByNameInAnyCase()
{
    const PackageBench bench(1);
    PackagePlan plan = PlanOf(bench);
    QCOMPARE(PlaceInPackage(plan, u"VWABORT.dll"_s), 0);
    QCOMPARE(PlaceInPackage(plan, u"game.tkn"_s), plan.files.size() - 1);
    QCOMPARE(PlaceInPackage(plan, u"gone.txt"_s), -1);
    plan.files.append(bench.At("work/vwabort.dll"));
    QCOMPARE(PlaceInPackage(plan, u"vwabort.dll"_s), 0);
}

void tst_modPackage::wholePackagesOfThreeVersions_data()
{
    theMarkerChoosesTheFiles_data();
}

void tst_modPackage::wholePackagesOfThreeVersions()
{
    QFETCH(int, version);
    const PackageBench bench(version);
    ListeningWatch watch;
    QCOMPARE(MakePackage(PlanOf(bench), PackageZip::No, watch).end, PackageEnd::Made);
    QCOMPARE(watch.reports, QStringList(u"named game.exe"_s));
    QCOMPARE(watch.done, 1);
    QCOMPARE(watch.lastDone, watch.all);
    QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(version));
    QCOMPARE(bench.Get("game.exe"), QByteArray("the engine"));
    QCOMPARE(bench.Get("game.tkn"), QByteArray("token"));
    for (const QString& name : Words(engineFiles[version - 1].files))
        QCOMPARE(bench.Get(qPrintable(name)), "the " + name.toUtf8());
    // Each file is reported in the order of the plan, and nothing leaves the engine's folder.
    QStringList names;
    for (const QString& file : PlanOf(bench).files)
        names.append(QFileInfo(file).fileName());
    QCOMPARE(watch.names, names);
    QCOMPARE(GetFile(bench.At("engine/run.exe")), QByteArray("the engine"));
}

void tst_modPackage::copiesKeepTimesAndPermissions()
{
    const PackageBench bench(2);
    const QDateTime time(QDate(1999, 12, 31), QTime(23, 59, 58));
    SetTime(bench.At("engine/run.exe"), time);
    SetTime(bench.At("engine/vwhelp.dll"), time);
    PutFile(bench.At("engine/vwicons.dll"), "");
    const QFile::Permissions program = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;
    QVERIFY(QFile::setPermissions(bench.At("engine/run.exe"), program));
    QVERIFY(QFile::setPermissions(bench.At("engine/vwhelp.dll"), QFile::ReadOwner));
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(ReportsOf(PlanOf(bench)), QStringList(u"named game.exe"_s));
        QCOMPARE(QFileInfo(bench.Packed("game.exe")).lastModified(), time);
        QCOMPARE(QFileInfo(bench.Packed("vwhelp.dll")).lastModified(), time);
        QVERIFY(QFile::permissions(bench.Packed("game.exe")) & QFile::ExeOwner);
        QVERIFY(!(QFile::permissions(bench.Packed("vwhelp.dll")) & QFile::WriteOwner));
        QCOMPARE(bench.Get("vwicons.dll"), QByteArray());
    }
}

void tst_modPackage::missingFilesAreListedAndSkipped()
{
    const PackageBench bench(1);
    QVERIFY(QFile::remove(bench.At("engine/vwfloat.dll")));
    QVERIFY(QFile::remove(bench.At("engine/obasic.ini")));
#ifdef Q_OS_UNIX
    QVERIFY(QFile::link(bench.At("engine/gone"), bench.At("engine/VWFLOAT.DLL")));
#endif
    const QStringList reports = ReportsOf(PlanOf(bench));
    const QStringList expected = {u"named game.exe"_s,
                                  u"Orchard Bench could not find these needed files:%1\r\n%2\r\n"_s.arg(
                                      bench.At("engine/vwfloat.dll"), bench.At("engine/obasic.ini"))};
    QCOMPARE(reports, expected);
    QVERIFY(QFileInfo::exists(bench.Packed("vwvm11.dll")));
}

void tst_modPackage::withoutRunExeTheRenameFails()
{
    const PackageBench bench(1);
    PackagePlan plan = PlanOf(bench);
    plan.files.removeAt(PlaceInPackage(plan, u"run.exe"_s));
    QCOMPARE(ReportsOf(plan), QStringList(RenameError));
    QVERIFY(!bench.PackedNames().contains(u"game.exe"_s));
    QVERIFY(bench.PackedNames().contains(u"game.tkn"_s));
}

void tst_modPackage::anotherEngineBecomesRunExeFirst()
{
    const PackageBench bench(1);
    PackagePlan plan = PlanOf(bench);
    plan.files.removeAt(PlaceInPackage(plan, u"run.exe"_s));
    QVERIFY(QDir().mkdir(bench.Package()));
    PutFile(bench.Packed("myrun.exe"), "my engine");
    QCOMPARE(ReportsOf(plan), QStringList(u"named game.exe"_s));
    QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
    QCOMPARE(bench.Get("game.exe"), QByteArray("my engine"));
    // It also precedes the existing run.exe, and replaces it.
    PutFile(bench.Packed("MYRUN.exe"), "my second engine");
    QCOMPARE(ReportsOf(PlanOf(bench)), QStringList(u"named game.exe"_s));
    QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
    QCOMPARE(bench.Get("game.exe"), QByteArray("my second engine"));
}

void tst_modPackage::aTokenNamedRunNeedsNoRename()
{
    const PackageBench bench(1);
    PutFile(bench.At("work/Run.TKN"), "token");
    const PackagePlan plan = PlanPackage(bench.At("work/Run.TKN"), bench.engine + QDir::separator());
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(ReportsOf(plan), QStringList(u"named Run.exe"_s));
        QCOMPARE(bench.Get("run.exe"), QByteArray("the engine"));
    }
}

void tst_modPackage::aPackageMadeTwiceIsOverwritten()
{
    const PackageBench bench(2);
    ReportsOf(PlanOf(bench));
    PutFile(bench.At("engine/run.exe"), "the new engine");
    PutFile(bench.At("work/game.tkn"), "new token");
    PutFile(bench.Packed("left.txt"), "from before");
    QCOMPARE(ReportsOf(PlanOf(bench)), QStringList(u"named game.exe"_s));
    QStringList expected = PackageBench::WholePackage(2) + Words("left.txt");
    expected.sort(Qt::CaseSensitive);
    QCOMPARE(bench.PackedNames(), expected);
    QCOMPARE(bench.Get("game.exe"), QByteArray("the new engine"));
    QCOMPARE(bench.Get("game.tkn"), QByteArray("new token"));
}

void tst_modPackage::aFileOfAnotherCaseIsReplaced()
{
    const PackageBench bench(1);
    QVERIFY(QDir().mkdir(bench.Package()));
    PutFile(bench.Packed("VWABORT.DLL"), "old");
    PutFile(bench.Packed("GAME.EXE"), "old");
    PutFile(bench.Packed("RUN.EXE"), "old");
    QCOMPARE(ReportsOf(PlanOf(bench)), QStringList(u"named game.exe"_s));
    QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
    QCOMPARE(bench.Get("game.exe"), QByteArray("the engine"));
}

void tst_modPackage::aFailedRenameIsReported()
{
    const PackageBench bench(1);
    QVERIFY(QDir().mkpath(bench.Packed("game.exe")));
    QVERIFY(QFile::remove(bench.At("engine/vwfont.dll")));
    const QStringList reports = ReportsOf(PlanOf(bench));
    QCOMPARE(reports.size(), 2);
    QCOMPARE(reports[0], RenameError);
    QVERIFY(reports[1].contains(u"vwfont.dll"_s));
    QCOMPARE(bench.Get("run.exe"), QByteArray("the engine"));
}

void tst_modPackage::filesThatCannotBeReadAreReported()
{
#ifdef Q_OS_UNIX
    const PackageBench bench(1);
    PackagePlan plan = PlanOf(bench);
    plan.files += QStringList{u"/proc/self/mem"_s, u"/dev/zero"_s};
    ListeningWatch watch;
    MakePackage(plan, PackageZip::No, watch);
    const QStringList expected = {CopyError, CopyError, u"named game.exe"_s};
    QCOMPARE(watch.reports, expected);
    QCOMPARE(watch.boxes[0].title, u"SHCOPY"_s);
    QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
#else
    QSKIP("has no such files");
#endif
}

void tst_modPackage::aFullDiskIsReportedAndLeavesTheOldCopy()
{
#ifdef Q_OS_UNIX
    const PackageBench bench(1);
    ReportsOf(PlanOf(bench));
    PutFile(bench.At("engine/vwfont.dll"), NoiseBytes(300'000));
    PutFile(bench.At("engine/vwvm11.dll"), "small and new");
    {
        const FileSizeLimit limit(100'000);
        const QStringList expected = {CopyError, u"named game.exe"_s};
        QCOMPARE(ReportsOf(PlanOf(bench)), expected);
    }
    QCOMPARE(bench.PackedNames(), PackageBench::WholePackage(1));
    QCOMPARE(bench.Get("vwfont.dll"), QByteArray("the vwfont.dll"));
    QCOMPARE(bench.Get("vwvm11.dll"), QByteArray("small and new"));
#else
    QSKIP("cannot make a disk full");
#endif
}

void tst_modPackage::aPackageFolderThatCannotBeMadeIsAnError()
{
    const PackageBench bench(1);
    PutFile(bench.Package(), "a file");
    ListeningWatch watch;
    QCOMPARE(ErrorOf([&] { MakePackage(PlanOf(bench), PackageZip::Yes, watch); }), int(pathFileAccess));
    QCOMPARE(watch.reports, QStringList());
    QCOMPARE(GetFile(bench.Package()), QByteArray("a file"));
#ifdef Q_OS_UNIX
    const PackageBench locked(1);
    QVERIFY(QFile::setPermissions(QFileInfo(locked.work).path(), QFile::Permissions(0x7755)));
    QVERIFY(QFile::setPermissions(locked.work, QFile::Permissions(0x5555)));
    const PlainUser user;
    QCOMPARE(ErrorOf([&] { MakePackage(PlanOf(locked), PackageZip::No, watch); }), int(pathFileAccess));
#endif
}

void tst_modPackage::aLockedPackageFolderIsReportedFileByFile()
{
#ifdef Q_OS_UNIX
    const PackageBench bench(3);
    QVERIFY(QDir().mkdir(bench.Package()));
    QVERIFY(QFile::setPermissions(QFileInfo(bench.work).path(), QFile::Permissions(0x7755)));
    QVERIFY(QFile::setPermissions(bench.Package(), QFile::Permissions(0x5555)));
    {
        const PlainUser user;
        const PackagePlan plan = PlanOf(bench);
        ListeningWatch watch;
        const PackageOutcome outcome = MakePackage(plan, PackageZip::Yes, watch);
        QCOMPARE(outcome.end, PackageEnd::ZipFailed);
        QVERIFY(!outcome.reason.isEmpty());
        QStringList expected;
        for (qsizetype count = 0; count < plan.files.size(); ++count)
            expected.append(CopyError);
        QCOMPARE(watch.reports, expected + QStringList({RenameError, u"zip"_s, u"zip ends"_s}));
    }
    QVERIFY(QFile::setPermissions(bench.Package(), QFile::Permissions(0x7777)));
    QCOMPARE(bench.PackedNames(), QStringList());
#else
    QSKIP("has no such permissions");
#endif
}

void tst_modPackage::stoppingEndsTheWorkAtEachStep()
{
    const PackageBench measured(1);
    ListeningWatch all;
    MakePackage(PlanOf(measured), PackageZip::No, all);
    QVERIFY(all.calls >= 2 * PlanOf(measured).files.size());
    for (int stopAt = 1; stopAt <= all.calls; ++stopAt) {
        const PackageBench bench(1);
        ListeningWatch watch(stopAt);
        QCOMPARE(MakePackage(PlanOf(bench), PackageZip::Yes, watch).end, PackageEnd::Aborted);
        QCOMPARE(watch.calls, stopAt);
        QCOMPARE(watch.reports, QStringList(Aborted));
        QCOMPARE(watch.boxes[0].icon, BoxIcon::Critical);
        QCOMPARE(watch.done, 1);
        // Copied files are complete, nothing is renamed, nothing else exists.
        const QStringList names = bench.PackedNames();
        QVERIFY(names.size() <= watch.names.size());
        for (const QString& name : names) {
            QVERIFY(watch.names.contains(name));
            QVERIFY(!bench.Get(qPrintable(name)).isEmpty());
        }
        QVERIFY(!names.contains(u"game.exe"_s));
    }
}

void tst_modPackage::aLargeFileCanBeStopped()
{
    const PackageBench bench(1);
    QFile large(bench.At("engine/vwabort.dll"));
    QVERIFY(large.open(QIODevice::WriteOnly));
    QVERIFY(large.resize(500'000'000));
    large.close();
    QVERIFY(QDir().mkdir(bench.Package()));
    PutFile(bench.Packed("vwabort.dll"), "old");
    ListeningWatch watch(4);
    QCOMPARE(MakePackage(PlanOf(bench), PackageZip::No, watch).end, PackageEnd::Aborted);
    QCOMPARE(bench.PackedNames(), Words("vwabort.dll"));
    QCOMPARE(bench.Get("vwabort.dll"), QByteArray("old"));
    QVERIFY(watch.lastDone > 0 && watch.lastDone < 100'000'000);
}

void tst_modPackage::addedFilesFollowTheToken()
{
    const PackageBench bench(1);
    PackagePlan plan = PlanOf(bench);
    PutFile(bench.At("work/Gr\xC3\xBC\xC3\x9F"
                     "e \xE6\xBC\xA2.txt"),
            "hello");
    plan.files.append(bench.At("work/Gr\xC3\xBC\xC3\x9F"
                               "e \xE6\xBC\xA2.txt"));
    ListeningWatch watch;
    MakePackage(plan, PackageZip::No, watch);
    QCOMPARE(watch.names.last(), u"Gr\u00FC\u00DFe \u6F22.txt"_s);
    QCOMPARE(bench.Get("Gr\xC3\xBC\xC3\x9F"
                       "e \xE6\xBC\xA2.txt"),
             QByteArray("hello"));
}

void tst_modPackage::aPackageIsZipped()
{
    const PackageBench bench(3);
    for (int round = 0; round < 2; ++round) {
        const QStringList expected = {u"named game.exe"_s, u"zip"_s, u"zip ends"_s,
                                      bench.Packed("game.zip Created Successfully")};
        QCOMPARE(ReportsOf(PlanOf(bench), PackageZip::Yes), expected);
        QStringList names = NamesInZip(bench.Packed("game.zip"));
        names.sort(Qt::CaseSensitive);
        QCOMPARE(names, PackageBench::WholePackage(3));
        QCOMPARE(FileInZip(bench.Packed("game.zip"), u"game.exe"_s), QByteArray("the engine"));
    }
    // A dot in the program's name does not begin an extension; older files go in, folders do not.
    PutFile(bench.At("work/my.game.tkn"), "token");
    QVERIFY(QDir().mkdir(bench.Packed("sub")));
    PutFile(bench.Packed("sub/inner.txt"), "x");
    ReportsOf(PlanPackage(bench.At("work/my.game.tkn"), bench.engine + QDir::separator()), PackageZip::Yes);
    QStringList expected = PackageBench::WholePackage(3) + Words("game.zip my.game.exe my.game.tkn");
    expected.sort(Qt::CaseSensitive);
    QStringList names = NamesInZip(bench.Packed("my.game.zip"));
    names.sort(Qt::CaseSensitive);
    QCOMPARE(names, expected);
}

void tst_modPackage::theFileOfTheArchivesBareNameIsDeleted()
{
    const PackageBench bench(3);
    QVERIFY(QDir().mkdir(bench.Package()));
    PutFile(bench.Packed("game"), "old");
    ReportsOf(PlanOf(bench), PackageZip::No);
    QVERIFY(QFileInfo::exists(bench.Packed("game")));
    ReportsOf(PlanOf(bench), PackageZip::Yes);
    QVERIFY(!QFileInfo::exists(bench.Packed("game")));
    QVERIFY(!NamesInZip(bench.Packed("game.zip")).contains(u"game"_s));
}

void tst_modPackage::aFailedZipIsNotASuccess()
{
    const PackageBench bench(3);
    QVERIFY(QDir().mkpath(bench.Packed("game.zip")));
    ListeningWatch watch;
    const PackageOutcome outcome = MakePackage(PlanOf(bench), PackageZip::Yes, watch);
    QCOMPARE(outcome.end, PackageEnd::ZipFailed);
    QVERIFY(outcome.reason.contains(u"game.zip"_s));
    const QStringList expected = {u"named game.exe"_s, u"zip"_s, u"zip ends"_s};
    QCOMPARE(watch.reports, expected);
}

void tst_modPackage::wordingOfTheBoxes()
{
    const PackageBench bench(1);
    const PackagePlan plan = PlanOf(bench);
    const MessageSpec question = TestQuestion(plan, {u"100%2.exe"_s, QString()});
    QCOMPARE(question.text, u"The runtime engine is now called 100%2.exe  All files can be found in "_s +
                                bench.Package() + u"\r\n\r\nWould you like to test your new application?"_s);
    QCOMPARE(question.buttons, BoxButtons::YesNo);
    QCOMPARE(NoEngineBox().text, u"Orchard Bench cannot find your copy of Orchard BASIC.  Please set the path to "
                                 "'orchard.exe' in the Prefernces Menu, under 'Options/Paths'."_s);
    QCOMPARE(NoEngineBox().icon, BoxIcon::Exclamation);
    QCOMPARE(ZipMadeBox(u"/x/game"_s).text, u"/x/game.zip Created Successfully"_s);
    QCOMPARE(ZipMadeBox(QString()).icon, BoxIcon::Information);
}

QTEST_APPLESS_MAIN(tst_modPackage)
#include "tst_modPackage.moc"
