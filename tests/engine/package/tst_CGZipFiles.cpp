// SPDX-License-Identifier: GPL-3.0-or-later
// The list of files and the archive made from it, read back by other programs.
#include "engine/package/ZipListBench.h"
#include "platform/files/FileTrouble.h"
#include "platform/language/cRuntimeError.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr int fileIsInList = static_cast<int>(0x800407D1);

// The line that zipinfo shows for an entry, with runs of spaces reduced to one.
QString InfoOf(const QString& archive, const QString& name)
{
    const QByteArray out = RunProgram(u"zipinfo"_s, {u"-T"_s, archive, name}).out;
    return QString::fromUtf8(out).simplified();
}

} // namespace

class tst_CGZipFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNewListHasItsDefaults();
    void aFileIsListedOnce();
    void onlyListedFilesCanBeRemoved();
    void thePlaceholderIsReserved();
    void ninetyNineNamesAreTheMost_data();
    void ninetyNineNamesAreTheMost();
    void filesAreStoredUnderPlainNames();
    void wildcardsIgnoreCaseAndStarDotStarIsEveryFile_data();
    void wildcardsIgnoreCaseAndStarDotStarIsEveryFile();
    void namesAreFoundInAnyCase();
    void relativeNamesStartInTheRootFolder();
    void subfoldersAreEnteredOnRequest();
    void unmatchedSpecsAreSkipped();
    void noMatchAtAllIsAFailure();
    void twoFilesOfOneNameAreAFailure();
    void aFileMatchedTwiceIsStoredOnce();
    void theArchiveNeverHoldsItself();
    void anOlderArchiveIsReplaced();
    void updatingKeepsExistingEntries();
    void timesAndAttributesAreKept();
    void timesBeyondTheFormatAreKeptWithinIt();
    void namesOutsideAsciiAreFlaggedAsUtf8();
    void aBackslashInANameDoesNotReachTheArchive();
    void emptyFilesAreStored();
    void noiseIsStoredAndTextIsDeflated();
};

void tst_CGZipFiles::aNewListHasItsDefaults()
{
    const CGZipFiles zip;
    QCOMPARE(zip.RecurseFolders, false);
    QCOMPARE(zip.ZipFileName, QString());
    QCOMPARE(zip.Encrypted, false);
    QCOMPARE(zip.IncludeSystemFiles, false);
    QCOMPARE(zip.ZipFileCount(), std::int16_t(0));
    QCOMPARE(zip.RootDirectory, u"\\"_s);
    QCOMPARE(zip.UpdatingZip, false);
    QCOMPARE(zip.GetLastMessage(), QString());
}

void tst_CGZipFiles::aFileIsListedOnce()
{
    CGZipFiles zip;
    zip.AddFile(u"a.txt"_s);
    for (const char* again : {"a.txt", "A.TXT"}) {
        try {
            zip.AddFile(QString::fromLatin1(again));
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number, fileIsInList);
            QCOMPARE(error.source, u"CGZip::AddFile"_s);
            QCOMPARE(error.description, u"File is already in Zip List"_s);
        }
    }
    QCOMPARE(zip.ZipFileCount(), std::int16_t(1));
}

void tst_CGZipFiles::onlyListedFilesCanBeRemoved()
{
    CGZipFiles zip;
    try {
        zip.RemoveFile(u"a.txt"_s);
        QFAIL("no error");
    } catch (const RuntimeError& error) {
        QCOMPARE(error.source, u"CGZip::RemoveFile"_s);
        QCOMPARE(error.description, u"File is not in Zip List"_s);
    }
    zip.AddFile(u"a.txt"_s);
    zip.RemoveFile(u"A.txt"_s);
    QCOMPARE(zip.ZipFileCount(), std::int16_t(0));
}

void tst_CGZipFiles::thePlaceholderIsReserved()
{
    const ZipFolder folder;
    folder.Put("querty", "x");
    folder.Put("a.txt", "a");
    CGZipFiles zip = ListOf(Names("a.txt"));
    QCOMPARE(ErrorOf([&] { zip.AddFile(u"querty"_s); }), fileIsInList);
    QCOMPARE(ErrorOf([&] { zip.AddFile(u"QUERTY"_s); }), fileIsInList);
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
        const QString name = u"file%1.txt"_s.arg(number);
        PutFile(name, "x");
        zip.AddFile(name);
    }
    QCOMPARE(zip.ZipFileCount(), static_cast<std::int16_t>(count));
    QCOMPARE(zip.MakeZipFile(), result);
    QCOMPARE(QFile::exists(Out()), result == 0);
    if (result == 0) {
        QCOMPARE(NamesInZip(Out()).size(), count);
    } else {
        QCOMPARE(zip.GetLastMessage(), u"Run-time error '9': Subscript out of range (CGZipFiles::MakeZipFile)"_s);
        // A wildcard is one name, however many files match it.
        CGZipFiles wildcard = ListOf(Names("*.txt"));
        QCOMPARE(wildcard.MakeZipFile(), 0);
        QCOMPARE(NamesInZip(Out()).size(), count);
    }
}

void tst_CGZipFiles::filesAreStoredUnderPlainNames()
{
    const ZipFolder folder;
    QVERIFY(QDir().mkpath(u"sub/deep"_s));
    folder.Put("sub/deep/one.txt", "one");
    folder.Put("two.txt", "two");
    CGZipFiles zip = ListOf({folder.At("sub/deep/one.txt"), u"./two.txt"_s});
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(zip.GetLastMessage(), QString());
    QCOMPARE(NamesInZip(Out()), Names("one.txt two.txt"));
    QCOMPARE(FileInZip(Out(), u"one.txt"_s), QByteArray("one"));
    QCOMPARE(FileInZip(Out(), u"two.txt"_s), QByteArray("two"));
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
    QVERIFY(QDir().mkdir(u"folder.txt"_s));
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
    QVERIFY(QDir().mkdir(u"Sub"_s));
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
    QVERIFY(QDir().mkdir(u"base"_s));
    folder.Put("base/a.txt", "x");
    CGZipFiles zip = ListOf(Names("a.txt"));
    zip.RootDirectory = folder.At("base");
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(folder.At("base/out.zip")), Names("a.txt"));
    // The default is the root of the disk.
    zip.RootDirectory = u"\\"_s;
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
    QVERIFY(QDir().mkpath(u"p/sub/deep"_s));
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

void tst_CGZipFiles::unmatchedSpecsAreSkipped()
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
    QVERIFY(QDir().mkpath(u"x"_s));
    QVERIFY(QDir().mkpath(u"y"_s));
    folder.Put("x/a.txt", "1");
    folder.Put("y/A.txt", "2");
    CGZipFiles zip = ListOf(Names("x/a.txt y/*.*"));
    QCOMPARE(zip.MakeZipFile(), ZipTwoOfOneName);
    QVERIFY(zip.GetLastMessage().contains(folder.At("x/a.txt")));
    QVERIFY(zip.GetLastMessage().contains(folder.At("y/A.txt")));
    QCOMPARE(NamesIn(u"."_s), Names("x y"));
}

void tst_CGZipFiles::aFileMatchedTwiceIsStoredOnce()
{
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    folder.Put("b.txt", "b");
    CGZipFiles zip = ListOf({u"a.txt"_s, u"*.txt"_s, folder.At("a.txt")});
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
        QCOMPARE(NamesIn(u"."_s), Names("a.txt out.zip"));
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
    // Even one that is not an archive.
    folder.Put("out.zip", "not an archive");
    QCOMPARE(both.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("a.txt b.txt"));
}

void tst_CGZipFiles::updatingKeepsExistingEntries()
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
    QCOMPARE(FileInZip(Out(), u"a.txt"_s), QByteArray("newer"));
    QCOMPARE(FileInZip(Out(), u"b.txt"_s), QByteArray("b"));
    QCOMPARE(FileInZip(Out(), u"c.txt"_s), QByteArray("c"));
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
    QVERIFY(InfoOf(Out(), u"a.txt"_s).contains(u"20010203.04050"_s));
    // The DOS attributes: archive for both, read-only for the second.
    const auto attributes = [](const QString& name) {
        const QByteArray out = RunProgram(u"zipinfo"_s, {u"-v"_s, Out(), name}).out;
        const QRegularExpression pattern(u"MS-DOS file attributes \\((\\w+) hex\\)"_s);
        return pattern.match(QString::fromUtf8(out)).captured(1);
    };
    QCOMPARE(attributes(u"a.txt"_s), u"20"_s);
    QCOMPARE(attributes(u"b.txt"_s), u"21"_s);
    // Extracted files are the same as before, with times exact to the second.
    QVERIFY(QDir().mkdir(u"again"_s));
    QCOMPARE(RunProgram(u"unzip"_s, {u"-q"_s, Out(), u"-d"_s, folder.At("again")}).status, 0);
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
    QVERIFY2(InfoOf(Out(), u"new.txt"_s).contains(u" 2107"_s), qPrintable(InfoOf(Out(), u"new.txt"_s)));
}

void tst_CGZipFiles::namesOutsideAsciiAreFlaggedAsUtf8()
{
    const ZipFolder folder;
    folder.Put("Gr\xC3\xBC\xC3\x9F"
               "e.txt",
               "a");
    folder.Put("\xE6\xBC\xA2\xE5\xAD\x97.txt", "b");
    folder.Put("plain.txt", "c");
    CGZipFiles zip = ListOf(Names("*.txt"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("Gr\xC3\xBC\xC3\x9F"
                                      "e.txt plain.txt \xE6\xBC\xA2\xE5\xAD\x97.txt"));
    // Bit 11 of the flags, in the first local header and in the third's.
    const QByteArray bytes = GetFile(Out());
    const auto flagsBefore = [&](const QByteArray& name) {
        return static_cast<unsigned char>(bytes.at(bytes.indexOf(name) - 30 + 7));
    };
    QCOMPARE(flagsBefore("Gr\xC3\xBC") & 0x08, 0x08);
    QCOMPARE(flagsBefore("\xE6\xBC\xA2") & 0x08, 0x08);
    QCOMPARE(flagsBefore("plain.txt") & 0x08, 0);
}

void tst_CGZipFiles::aBackslashInANameDoesNotReachTheArchive()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    folder.Put("..\\evil.txt", "a");
    CGZipFiles zip = ListOf(Names("*.txt"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names(".._evil.txt"));
#else
    QSKIP("a backslash is no character of a name");
#endif
}

void tst_CGZipFiles::emptyFilesAreStored()
{
    const ZipFolder folder;
    folder.Put("empty.txt", "");
    CGZipFiles zip = ListOf(Names("empty.txt"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("empty.txt"));
    QCOMPARE(FileInZip(Out(), u"empty.txt"_s), QByteArray());
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
    QVERIFY(InfoOf(Out(), u"noise.bin"_s).contains(u" stor "_s));
    QVERIFY(InfoOf(Out(), u"text.txt"_s).contains(u" def"_s));
    QVERIFY(InfoOf(Out(), u"mixed.bin"_s).contains(u" def"_s));
    QVERIFY(QFileInfo(Out()).size() < 2'000'000 + 1'820'000 + 20'000);
    QCOMPARE(FileInZip(Out(), u"noise.bin"_s), NoiseBytes(2'000'000));
    NamesInZip(Out());
    // No stored size exceeds the original.
    for (const qsizetype size : {1, 20, 8191, 8192, 8193, 16'384, 16'385, 100'000, 262'144, 262'145}) {
        folder.Put("noise.bin", NoiseBytes(size));
        CGZipFiles one = ListOf(Names("noise.bin"));
        QCOMPARE(one.MakeZipFile(), 0);
        QVERIFY(InfoOf(Out(), u"noise.bin"_s).contains(u" stor "_s));
        QCOMPARE(FileInZip(Out(), u"noise.bin"_s), NoiseBytes(size));
    }
    for (const int count : {50, 600, 700, 20'000}) {
        folder.Put("text.txt", QByteArray("print \"hello\"\r\n").repeated(count));
        CGZipFiles one = ListOf(Names("text.txt"));
        QCOMPARE(one.MakeZipFile(), 0);
        QVERIFY(InfoOf(Out(), u"text.txt"_s).contains(u" def"_s));
    }
}

QTEST_APPLESS_MAIN(tst_CGZipFiles)
#include "tst_CGZipFiles.moc"
