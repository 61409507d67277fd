// SPDX-License-Identifier: GPL-3.0-or-later
// The list of files and the archive made of it, read back by programs that did not write it.
#include "engine/ZipBench.h"
#include "platform/FileTrouble.h"

#include "engine/CGZipFiles.h"

#include <QRegularExpression>

using namespace ob;

namespace {

constexpr int fileIsInList = static_cast<int>(0x800407D1);

// Files in a folder of their own, which is the current one.
class ZipFolder {
public:
    ZipFolder() : before(QDir::currentPath()) { QDir::setCurrent(folder.path()); }
    ZipFolder(const ZipFolder&) = delete;
    ZipFolder& operator=(const ZipFolder&) = delete;
    ~ZipFolder() { QDir::setCurrent(before); }

    QString At(const char* name) const { return folder.filePath(QString::fromUtf8(name)); }
    void Put(const char* name, const QByteArray& bytes) const { PutFile(At(name), bytes); }

private:
    QTemporaryDir folder;
    QString before;
};

// A list of relative names with the current folder for its root.
CGZipFiles ListOf(const QStringList& specs, const QString& archive = QStringLiteral("out.zip"))
{
    CGZipFiles zip;
    zip.RootDirectory = QDir::currentPath();
    zip.ZipFileName = archive;
    for (const QString& spec : specs)
        zip.AddFile(spec);
    return zip;
}

QString Out()
{
    return QDir::current().absoluteFilePath(QStringLiteral("out.zip"));
}

QStringList Names(const char* names)
{
    return QString::fromUtf8(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

// The line that zipinfo shows for an entry, its blanks folded.
QString InfoOf(const QString& archive, const QString& name)
{
    const QByteArray out = RunProgram(QStringLiteral("zipinfo"), {QStringLiteral("-T"), archive, name}).out;
    return QString::fromUtf8(out).simplified();
}

#ifdef Q_OS_UNIX
// As PlainUser, also for questions that go by the user who started the process.
class RealPlainUser {
public:
    RealPlainUser() : changed(getuid() == 0 && setresuid(65534, 65534, 0) == 0) {}
    ~RealPlainUser()
    {
        if (changed && setresuid(0, 0, 0) != 0)
            qFatal("cannot be root again");
    }
    RealPlainUser(const RealPlainUser&) = delete;
    RealPlainUser& operator=(const RealPlainUser&) = delete;

private:
    bool changed;
};
#endif

qint64 PeakMemoryKb()
{
    const QByteArray status = GetFile(QStringLiteral("/proc/self/status"));
    const qsizetype place = status.indexOf("VmHWM:");
    return place < 0 ? -1 : status.mid(place + 6, 20).trimmed().split(' ').first().toLongLong();
}

} // namespace

class tst_CGZipFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNewListHasItsDefaults();
    void aFileIsListedOnce();
    void onlyListedFilesCanBeRemoved();
    void thePlaceholderIsTaken();
    void ninetyNineNamesAreTheMost_data();
    void ninetyNineNamesAreTheMost();
    void filesAreStoredUnderPlainNames();
    void wildcardsIgnoreCaseAndStarDotStarIsEveryFile_data();
    void wildcardsIgnoreCaseAndStarDotStarIsEveryFile();
    void namesAreFoundInAnyCase();
    void relativeNamesStartInTheRootFolder();
    void subfoldersAreEnteredOnRequest();
    void unmatchedSpecsArePassedOver();
    void noMatchAtAllIsAFailure();
    void twoFilesOfOneNameAreAFailure();
    void oneFileMeantTwiceIsStoredOnce();
    void theArchiveNeverHoldsItself();
    void anOlderArchiveIsReplaced();
    void updatingKeepsWhatIsThere();
    void timesAndAttributesAreKept();
    void timesBeyondTheFormatAreKeptWithinIt();
    void namesOutsideAsciiAreFlaggedAsUtf8();
    void emptyFilesAreStored();
    void noiseIsStoredAndTextIsDeflated();
    void memoryStaysFlat();
    void unreadableFilesAreAFailureWithTheirName();
    void foldersAndPipesAreNoFiles();
    void aFullDiskLeavesTheOldArchive();
    void aFolderThatTakesNoFileIsTold();
    void onlyFilesAreReplaced();
    void stoppingLeavesTheOldArchive();
    void aLinkedArchiveStaysALink();
};

void tst_CGZipFiles::aNewListHasItsDefaults()
{
    const CGZipFiles zip;
    QCOMPARE(zip.RecurseFolders, false);
    QCOMPARE(zip.ZipFileName, QString());
    QCOMPARE(zip.Encrypted, false);
    QCOMPARE(zip.IncludeSystemFiles, false);
    QCOMPARE(zip.ZipFileCount(), std::int16_t(0));
    QCOMPARE(zip.RootDirectory, QStringLiteral("\\"));
    QCOMPARE(zip.UpdatingZip, false);
    QCOMPARE(zip.GetLastMessage(), QString());
}

void tst_CGZipFiles::aFileIsListedOnce()
{
    CGZipFiles zip;
    zip.AddFile(QStringLiteral("a.txt"));
    for (const char* again : {"a.txt", "A.TXT"}) {
        try {
            zip.AddFile(QString::fromLatin1(again));
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number, fileIsInList);
            QCOMPARE(error.source, QStringLiteral("CGZip::AddFile"));
            QCOMPARE(error.description, QStringLiteral("File is already in Zip List"));
        }
    }
    QCOMPARE(zip.ZipFileCount(), std::int16_t(1));
}

void tst_CGZipFiles::onlyListedFilesCanBeRemoved()
{
    CGZipFiles zip;
    try {
        zip.RemoveFile(QStringLiteral("a.txt"));
        QFAIL("no error");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.source, QStringLiteral("CGZip::RemoveFile"));
        QCOMPARE(error.description, QStringLiteral("File is not in Zip List"));
    }
    zip.AddFile(QStringLiteral("a.txt"));
    zip.RemoveFile(QStringLiteral("A.txt"));
    QCOMPARE(zip.ZipFileCount(), std::int16_t(0));
}

void tst_CGZipFiles::thePlaceholderIsTaken()
{
    const ZipFolder folder;
    folder.Put("querty", "x");
    folder.Put("a.txt", "a");
    CGZipFiles zip = ListOf(Names("a.txt"));
    QCOMPARE(ErrorOf([&] { zip.AddFile(QStringLiteral("querty")); }), fileIsInList);
    QCOMPARE(ErrorOf([&] { zip.AddFile(QStringLiteral("QUERTY")); }), fileIsInList);
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("a.txt"));
    QCOMPARE(zip.UnmatchedFiles(), QStringList());
}

void tst_CGZipFiles::ninetyNineNamesAreTheMost_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("result");
    QTest::newRow("99") << 99 << 0;
    QTest::newRow("100") << 100 << -99;
}

void tst_CGZipFiles::ninetyNineNamesAreTheMost()
{
    QFETCH(int, count);
    QFETCH(int, result);
    const ZipFolder folder;
    CGZipFiles zip = ListOf({});
    for (int number = 0; number < count; ++number) {
        const QString name = QStringLiteral("file%1.txt").arg(number);
        PutFile(name, "x");
        zip.AddFile(name);
    }
    QCOMPARE(zip.ZipFileCount(), static_cast<std::int16_t>(count));
    QCOMPARE(zip.MakeZipFile(), result);
    QCOMPARE(QFile::exists(Out()), result == 0);
    if (result == 0) {
        QCOMPARE(NamesInZip(Out()).size(), count);
    } else {
        QCOMPARE(zip.GetLastMessage(),
                 QStringLiteral("Run-time error '9': Subscript out of range (CGZipFiles::MakeZipFile)"));
        // A wildcard is one name, however many files it means.
        CGZipFiles wildcard = ListOf(Names("*.txt"));
        QCOMPARE(wildcard.MakeZipFile(), 0);
        QCOMPARE(NamesInZip(Out()).size(), count);
    }
}

void tst_CGZipFiles::filesAreStoredUnderPlainNames()
{
    const ZipFolder folder;
    QVERIFY(QDir().mkpath(QStringLiteral("sub/deep")));
    folder.Put("sub/deep/one.txt", "one");
    folder.Put("two.txt", "two");
    CGZipFiles zip = ListOf({folder.At("sub/deep/one.txt"), QStringLiteral("./two.txt")});
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(zip.GetLastMessage(), QString());
    QCOMPARE(NamesInZip(Out()), Names("one.txt two.txt"));
    QCOMPARE(FileInZip(Out(), QStringLiteral("one.txt")), QByteArray("one"));
    QCOMPARE(FileInZip(Out(), QStringLiteral("two.txt")), QByteArray("two"));
}

void tst_CGZipFiles::wildcardsIgnoreCaseAndStarDotStarIsEveryFile_data()
{
    QTest::addColumn<QString>("spec");
    QTest::addColumn<QStringList>("names");
    const auto row = [](const char* spec, const char* names) {
        QTest::newRow(spec) << QString::fromLatin1(spec) << Names(names);
    };
    row("*.*", ".hidden [x].txt A.TXT ab.txt b.DLL noending");
    row("*", ".hidden [x].txt A.TXT ab.txt b.DLL noending");
    row("*.txt", "[x].txt A.TXT ab.txt");
    row("?.*", "A.TXT b.DLL");
    row("a*.TXT", "A.TXT ab.txt");
    row("[x].txt", "[x].txt");
    row("[a]*.txt", "");
    row(".\\*.dll", "b.DLL");
}

void tst_CGZipFiles::wildcardsIgnoreCaseAndStarDotStarIsEveryFile()
{
    QFETCH(QString, spec);
    QFETCH(QStringList, names);
    const ZipFolder folder;
    QVERIFY(QDir().mkdir(QStringLiteral("folder.txt")));
    for (const char* name : {".hidden", "A.TXT", "ab.txt", "b.DLL", "noending", "[x].txt", "folder.txt/inner.txt"})
        folder.Put(name, "x");
    CGZipFiles zip = ListOf({spec});
    QCOMPARE(zip.MakeZipFile(), names.isEmpty() ? ZipNoFiles : 0);
    if (!names.isEmpty())
        QCOMPARE(NamesInZip(Out()), names);
}

void tst_CGZipFiles::namesAreFoundInAnyCase()
{
    const ZipFolder folder;
    QVERIFY(QDir().mkdir(QStringLiteral("Sub")));
    folder.Put("Sub/ReadMe.TXT", "x");
    CGZipFiles zip = ListOf({folder.At("sub/readme.txt")});
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("ReadMe.TXT"));
    CGZipFiles wildcard = ListOf(Names("SUB/*.*"));
    QCOMPARE(wildcard.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("ReadMe.TXT"));
}

void tst_CGZipFiles::relativeNamesStartInTheRootFolder()
{
    const ZipFolder folder;
    QVERIFY(QDir().mkdir(QStringLiteral("base")));
    folder.Put("base/a.txt", "x");
    CGZipFiles zip = ListOf(Names("a.txt"));
    zip.RootDirectory = folder.At("base");
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(folder.At("base/out.zip")), Names("a.txt"));
    // The default is the root of the disk.
    zip.RootDirectory = QStringLiteral("\\");
    zip.ZipFileName = folder.At("other.zip");
    QCOMPARE(zip.MakeZipFile(), ZipNoFiles);
    CGZipFiles fromRoot;
    fromRoot.ZipFileName = folder.At("root");
    fromRoot.AddFile(folder.At("base/a.txt").sliced(QDir::rootPath().size()));
    QCOMPARE(fromRoot.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(folder.At("root.zip")), Names("a.txt"));
}

void tst_CGZipFiles::subfoldersAreEnteredOnRequest()
{
    const ZipFolder folder;
    QVERIFY(QDir().mkpath(QStringLiteral("p/sub/deep")));
    folder.Put("p/a.txt", "a");
    folder.Put("p/sub/b.txt", "b");
    folder.Put("p/sub/deep/c.txt", "c");
    QVERIFY(QFile::link(folder.At("p"), folder.At("p/sub/loop")));
    CGZipFiles zip = ListOf(Names("p/*.*"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("a.txt"));
    zip.RecurseFolders = true;
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("a.txt b.txt c.txt"));
}

void tst_CGZipFiles::unmatchedSpecsArePassedOver()
{
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    CGZipFiles zip = ListOf(Names("gone.txt a.txt *.dll nowhere/*.*"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("a.txt"));
    QCOMPARE(zip.UnmatchedFiles(), Names("gone.txt *.dll nowhere/*.*"));
}

void tst_CGZipFiles::noMatchAtAllIsAFailure()
{
    const ZipFolder folder;
    folder.Put("out.zip", "old");
    CGZipFiles zip = ListOf(Names("*.dll"));
    QCOMPARE(zip.MakeZipFile(), ZipNoFiles);
    QVERIFY(!zip.GetLastMessage().isEmpty());
    CGZipFiles empty = ListOf({});
    QCOMPARE(empty.MakeZipFile(), ZipNoFiles);
    QCOMPARE(GetFile(Out()), QByteArray("old"));
}

void tst_CGZipFiles::twoFilesOfOneNameAreAFailure()
{
    const ZipFolder folder;
    QVERIFY(QDir().mkpath(QStringLiteral("x")));
    QVERIFY(QDir().mkpath(QStringLiteral("y")));
    folder.Put("x/a.txt", "1");
    folder.Put("y/A.txt", "2");
    CGZipFiles zip = ListOf(Names("x/a.txt y/*.*"));
    QCOMPARE(zip.MakeZipFile(), ZipTwoOfOneName);
    QVERIFY(zip.GetLastMessage().contains(folder.At("x/a.txt")));
    QVERIFY(zip.GetLastMessage().contains(folder.At("y/A.txt")));
    QCOMPARE(NamesIn(QStringLiteral(".")), Names("x y"));
}

void tst_CGZipFiles::oneFileMeantTwiceIsStoredOnce()
{
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    folder.Put("b.txt", "b");
    CGZipFiles zip = ListOf({QStringLiteral("a.txt"), QStringLiteral("*.txt"), folder.At("a.txt")});
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("a.txt b.txt"));
    QCOMPARE(zip.UnmatchedFiles(), QStringList());
}

void tst_CGZipFiles::theArchiveNeverHoldsItself()
{
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    CGZipFiles zip = ListOf(Names("*.*"));
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(zip.MakeZipFile(), 0);
        QCOMPARE(NamesInZip(Out()), Names("a.txt"));
        QCOMPARE(NamesIn(QStringLiteral(".")), Names("a.txt out.zip"));
    }
    CGZipFiles alone = ListOf(Names("out.zip"));
    QCOMPARE(alone.MakeZipFile(), ZipNoFiles);
}

void tst_CGZipFiles::anOlderArchiveIsReplaced()
{
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    folder.Put("b.txt", "b");
    CGZipFiles both = ListOf(Names("a.txt b.txt"));
    QCOMPARE(both.MakeZipFile(), 0);
    CGZipFiles one = ListOf(Names("b.txt"));
    QCOMPARE(one.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("b.txt"));
    // Also one that is no archive.
    folder.Put("out.zip", "not an archive");
    QCOMPARE(both.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("a.txt b.txt"));
}

void tst_CGZipFiles::updatingKeepsWhatIsThere()
{
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    folder.Put("b.txt", "b");
    SetTime(folder.At("b.txt"), QDateTime::currentDateTime().addDays(-2));
    CGZipFiles first = ListOf(Names("*.txt"));
    QCOMPARE(first.MakeZipFile(), 0);
    folder.Put("c.txt", "c");
    folder.Put("b.txt", "older");
    SetTime(folder.At("b.txt"), QDateTime::currentDateTime().addDays(-3));
    folder.Put("a.txt", "newer");
    SetTime(folder.At("a.txt"), QDateTime::currentDateTime().addDays(1));
    CGZipFiles second = ListOf(Names("*.txt"));
    second.UpdatingZip = true;
    QCOMPARE(second.MakeZipFile(), 0);
    QStringList names = NamesInZip(Out());
    names.sort();
    QCOMPARE(names, Names("a.txt b.txt c.txt"));
    QCOMPARE(FileInZip(Out(), QStringLiteral("a.txt")), QByteArray("newer"));
    QCOMPARE(FileInZip(Out(), QStringLiteral("b.txt")), QByteArray("b"));
    QCOMPARE(FileInZip(Out(), QStringLiteral("c.txt")), QByteArray("c"));
    folder.Put("out.zip", "not an archive");
    QVERIFY(second.MakeZipFile() > 0);
    QCOMPARE(GetFile(Out()), QByteArray("not an archive"));
}

void tst_CGZipFiles::timesAndAttributesAreKept()
{
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    folder.Put("b.txt", "b");
    const QDateTime time(QDate(2001, 2, 3), QTime(4, 5, 7));
    SetTime(folder.At("a.txt"), time);
    QVERIFY(QFile::setPermissions(folder.At("b.txt"), QFile::ReadOwner | QFile::ReadGroup));
    CGZipFiles zip = ListOf(Names("a.txt b.txt"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QVERIFY(InfoOf(Out(), QStringLiteral("a.txt")).contains(QStringLiteral("20010203.04050")));
    // The DOS attributes: archive for both, read-only for the second.
    const auto attributes = [](const QString& name) {
        const QByteArray out = RunProgram(QStringLiteral("zipinfo"), {QStringLiteral("-v"), Out(), name}).out;
        const QRegularExpression pattern(QStringLiteral("MS-DOS file attributes \\((\\w+) hex\\)"));
        return pattern.match(QString::fromUtf8(out)).captured(1);
    };
    QCOMPARE(attributes(QStringLiteral("a.txt")), QStringLiteral("20"));
    QCOMPARE(attributes(QStringLiteral("b.txt")), QStringLiteral("21"));
    // What comes out again is as it went in, to the second.
    QVERIFY(QDir().mkdir(QStringLiteral("again")));
    QCOMPARE(RunProgram(QStringLiteral("unzip"), {QStringLiteral("-q"), Out(), QStringLiteral("-d"), folder.At("again")})
                 .status,
             0);
    QCOMPARE(QFileInfo(folder.At("again/a.txt")).lastModified(), time);
    QCOMPARE(QFileInfo(folder.At("again/b.txt")).permissions() & QFile::WriteOwner, QFile::Permissions());
}

void tst_CGZipFiles::timesBeyondTheFormatAreKeptWithinIt()
{
    const ZipFolder folder;
    folder.Put("old.txt", "a");
    folder.Put("new.txt", "b");
    SetTime(folder.At("old.txt"), QDateTime(QDate(1975, 6, 1), QTime(12, 0)));
    SetTime(folder.At("new.txt"), QDateTime(QDate(2150, 6, 1), QTime(12, 0)));
    CGZipFiles zip = ListOf(Names("old.txt new.txt"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("old.txt new.txt"));
    QVERIFY2(InfoOf(Out(), QStringLiteral("new.txt")).contains(QStringLiteral(" 2107")),
             qPrintable(InfoOf(Out(), QStringLiteral("new.txt"))));
}

void tst_CGZipFiles::namesOutsideAsciiAreFlaggedAsUtf8()
{
    const ZipFolder folder;
    folder.Put("Gr\xC3\xBC\xC3\x9F" "e.txt", "a");
    folder.Put("\xE6\xBC\xA2\xE5\xAD\x97.txt", "b");
    folder.Put("plain.txt", "c");
    CGZipFiles zip = ListOf(Names("*.txt"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("Gr\xC3\xBC\xC3\x9F" "e.txt plain.txt \xE6\xBC\xA2\xE5\xAD\x97.txt"));
    // Bit 11 of the flags, in the first local header and in the third's.
    const QByteArray bytes = GetFile(Out());
    const auto flagsBefore = [&](const QByteArray& name) {
        return static_cast<unsigned char>(bytes.at(bytes.indexOf(name) - 30 + 7));
    };
    QCOMPARE(flagsBefore("Gr\xC3\xBC") & 0x08, 0x08);
    QCOMPARE(flagsBefore("\xE6\xBC\xA2") & 0x08, 0x08);
    QCOMPARE(flagsBefore("plain.txt") & 0x08, 0);
}

void tst_CGZipFiles::emptyFilesAreStored()
{
    const ZipFolder folder;
    folder.Put("empty.txt", "");
    CGZipFiles zip = ListOf(Names("empty.txt"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("empty.txt"));
    QCOMPARE(FileInZip(Out(), QStringLiteral("empty.txt")), QByteArray());
}

void tst_CGZipFiles::noiseIsStoredAndTextIsDeflated()
{
    const ZipFolder folder;
    folder.Put("noise.bin", NoiseBytes(2'000'000));
    folder.Put("text.txt", QByteArray("print \"hello\"\r\n").repeated(100'000));
    // Noise with a text in its middle is worth deflating.
    folder.Put("mixed.bin",
               NoiseBytes(900'000) + QByteArray("print \"hello\"\r\n").repeated(100'000) + NoiseBytes(900'000));
    CGZipFiles zip = ListOf(Names("noise.bin text.txt mixed.bin"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QVERIFY(InfoOf(Out(), QStringLiteral("noise.bin")).contains(QStringLiteral(" stor ")));
    QVERIFY(InfoOf(Out(), QStringLiteral("text.txt")).contains(QStringLiteral(" def")));
    QVERIFY(InfoOf(Out(), QStringLiteral("mixed.bin")).contains(QStringLiteral(" def")));
    QVERIFY(QFileInfo(Out()).size() < 2'000'000 + 1'820'000 + 20'000);
    QCOMPARE(FileInZip(Out(), QStringLiteral("noise.bin")), NoiseBytes(2'000'000));
    NamesInZip(Out());
}

void tst_CGZipFiles::memoryStaysFlat()
{
    if (PeakMemoryKb() < 0)
        QSKIP("the system tells no memory figures");
    const ZipFolder folder;
    {
        QFile sparse(folder.At("sparse.bin"));
        QVERIFY(sparse.open(QIODevice::WriteOnly));
        QVERIFY(sparse.resize(200'000'000));
        QFile noise(folder.At("noise.bin"));
        QVERIFY(noise.open(QIODevice::WriteOnly));
        for (int part = 0; part < 60; ++part)
            noise.write(NoiseBytes(1'000'000));
    }
    folder.Put("small.txt", "x");
    CGZipFiles small = ListOf(Names("small.txt"));
    QCOMPARE(small.MakeZipFile(), 0);
    const qint64 before = PeakMemoryKb();
    CGZipFiles zip = ListOf(Names("*.bin"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QVERIFY2(PeakMemoryKb() - before < 8'000, qPrintable(QString::number(PeakMemoryKb() - before)));
}

void tst_CGZipFiles::unreadableFilesAreAFailureWithTheirName()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    folder.Put("out.zip", "old");
    // A file that opens and then cannot be read.
    CGZipFiles memory = ListOf(Names("a.txt /proc/self/mem"));
    QCOMPARE(memory.MakeZipFile(), 5);
    QVERIFY2(memory.GetLastMessage().startsWith(QStringLiteral("mem cannot be read: ")),
             qPrintable(memory.GetLastMessage()));
    QCOMPARE(GetFile(Out()), QByteArray("old"));
    QCOMPARE(NamesIn(QStringLiteral(".")), Names("a.txt out.zip"));

    folder.Put("closed.txt", "secret");
    QVERIFY(QFile::setPermissions(folder.At("closed.txt"), QFile::Permissions()));
    QVERIFY(QFile::setPermissions(QDir::currentPath(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(Out(), QFile::Permissions(0x6666)));
    const PlainUser user;
    CGZipFiles closed = ListOf(Names("*.txt"));
    QCOMPARE(closed.MakeZipFile(), ZipCannotOpen);
    QCOMPARE(closed.GetLastMessage(), QStringLiteral("closed.txt cannot be read: Permission denied"));
    QCOMPARE(GetFile(Out()), QByteArray("old"));
#else
    QSKIP("has no such files");
#endif
}

void tst_CGZipFiles::foldersAndPipesAreNoFiles()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    QVERIFY(QDir().mkdir(QStringLiteral("like.txt")));
    QCOMPARE(RunProgram(QStringLiteral("mkfifo"), {folder.At("pipe.txt")}).status, 0);
    QVERIFY(QFile::link(folder.At("gone"), folder.At("dangling.txt")));
    CGZipFiles none = ListOf(Names("like.txt pipe.txt dangling.txt /dev/zero *.txt"));
    QCOMPARE(none.MakeZipFile(), ZipNoFiles);
    folder.Put("a.txt", "a");
    QVERIFY(QFile::link(folder.At("a.txt"), folder.At("link.txt")));
    CGZipFiles zip = ListOf(Names("*.txt"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("a.txt link.txt"));
    QCOMPARE(FileInZip(Out(), QStringLiteral("link.txt")), QByteArray("a"));
#else
    QSKIP("has no such files");
#endif
}

void tst_CGZipFiles::aFullDiskLeavesTheOldArchive()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    folder.Put("noise.bin", NoiseBytes(500'000));
    folder.Put("out.zip", "old");
    CGZipFiles zip = ListOf(Names("noise.bin"));
    {
        const FileSizeLimit limit(100'000);
        QCOMPARE(zip.MakeZipFile(), 6);
    }
    QVERIFY(!zip.GetLastMessage().isEmpty());
    QCOMPARE(GetFile(Out()), QByteArray("old"));
    QCOMPARE(NamesIn(QStringLiteral(".")), Names("noise.bin out.zip"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(zip.GetLastMessage(), QString());
    QCOMPARE(NamesInZip(Out()), Names("noise.bin"));
#else
    QSKIP("cannot make a disk full");
#endif
}

void tst_CGZipFiles::aFolderThatTakesNoFileIsTold()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    CGZipFiles missing = ListOf(Names("a.txt"), QStringLiteral("nowhere/out.zip"));
    QVERIFY(missing.MakeZipFile() > 0);
    QVERIFY(missing.GetLastMessage().contains(QStringLiteral("No such file")));
    CGZipFiles system = ListOf(Names("a.txt"), QStringLiteral("/proc/out.zip"));
    QVERIFY(system.MakeZipFile() > 0);
    QVERIFY(QFile::setPermissions(QDir::currentPath(), QFile::Permissions(0x5555)));
    {
        const PlainUser user;
        CGZipFiles zip = ListOf(Names("a.txt"));
        QVERIFY(zip.MakeZipFile() > 0);
        QVERIFY2(zip.GetLastMessage().contains(QStringLiteral("Permission denied")), qPrintable(zip.GetLastMessage()));
    }
    QVERIFY(QFile::setPermissions(QDir::currentPath(), QFile::Permissions(0x7700)));
    QCOMPARE(NamesIn(QStringLiteral(".")), Names("a.txt"));
#else
    QSKIP("has no such permissions");
#endif
}

void tst_CGZipFiles::onlyFilesAreReplaced()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    QVERIFY(QDir().mkdir(QStringLiteral("folder.zip")));
    CGZipFiles overFolder = ListOf(Names("a.txt"), QStringLiteral("folder.zip"));
    QCOMPARE(overFolder.MakeZipFile(), ZipCannotOpen);
    QVERIFY(QFileInfo(folder.At("folder.zip")).isDir());
    QCOMPARE(RunProgram(QStringLiteral("mkfifo"), {folder.At("pipe.zip")}).status, 0);
    CGZipFiles overPipe = ListOf(Names("a.txt"), QStringLiteral("pipe.zip"));
    QCOMPARE(overPipe.MakeZipFile(), ZipCannotOpen);
    QVERIFY(!QFileInfo(folder.At("pipe.zip")).isFile());
    folder.Put("out.zip", "old");
    QVERIFY(QFile::setPermissions(Out(), QFile::Permissions(0x4444)));
    QVERIFY(QFile::setPermissions(QDir::currentPath(), QFile::Permissions(0x7777)));
    const RealPlainUser user;
    CGZipFiles overLocked = ListOf(Names("a.txt"));
    QCOMPARE(overLocked.MakeZipFile(), ZipCannotOpen);
    QCOMPARE(GetFile(Out()), QByteArray("old"));
#else
    QSKIP("has no such files");
#endif
}

void tst_CGZipFiles::stoppingLeavesTheOldArchive()
{
    const ZipFolder folder;
    folder.Put("a.bin", NoiseBytes(300'000));
    folder.Put("b.txt", QByteArray(300'000, 'b'));
    folder.Put("out.zip", "old");
    CGZipFiles zip = ListOf(Names("a.bin b.txt"));
    int calls = 0;
    std::uint64_t last = 0;
    QCOMPARE(zip.MakeZipFile([&](const ZipProgress& progress) {
        ++calls;
        if (progress.done < last || progress.done > progress.all || progress.all != 600'000)
            QTest::qFail("the progress runs wild", __FILE__, __LINE__);
        last = progress.done;
        return ZipWish::GoOn;
    }),
             0);
    QCOMPARE(last, std::uint64_t(600'000));
    folder.Put("out.zip", "old");
    for (int stopAt = 1; stopAt <= calls; stopAt += calls / 12 + 1) {
        int count = 0;
        const ZipWatch stop = [&](const ZipProgress&) { return ++count >= stopAt ? ZipWish::Stop : ZipWish::GoOn; };
        QCOMPARE(zip.MakeZipFile(stop), ZipStopped);
        QCOMPARE(GetFile(Out()), QByteArray("old"));
        QCOMPARE(NamesIn(QStringLiteral(".")), Names("a.bin b.txt out.zip"));
    }
}

void tst_CGZipFiles::aLinkedArchiveStaysALink()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    QVERIFY(QDir().mkdir(QStringLiteral("real")));
    folder.Put("a.txt", "a");
    folder.Put("real/true.zip", "old");
    QVERIFY(QFile::link(folder.At("real/true.zip"), Out()));
    CGZipFiles zip = ListOf(Names("*.*"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QVERIFY(QFileInfo(Out()).isSymLink());
    QCOMPARE(NamesInZip(folder.At("real/true.zip")), Names("a.txt"));
#else
    QSKIP("has no such links");
#endif
}

QTEST_APPLESS_MAIN(tst_CGZipFiles)
#include "tst_CGZipFiles.moc"
