// SPDX-License-Identifier: GPL-3.0-or-later
// Archives of large files, of unreadable files, on disks that reject them, and cancelled ones.
#include "engine/package/ZipListBench.h"
#include "platform/files/FileTrouble.h"

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

#ifdef Q_OS_UNIX
// Like PlainUser, also for checks of the user who started the process.
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
    const QByteArray status = GetFile(u"/proc/self/status"_s);
    const qsizetype place = status.indexOf("VmHWM:");
    return place < 0 ? -1 : status.mid(place + 6, 20).trimmed().split(' ').first().toLongLong();
}

} // namespace

class tst_CGZipFilesTrouble : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void memoryStaysFlat();
    void unreadableFilesAreAFailureWithTheirName();
    void foldersAndPipesAreNotFiles();
    void aFullDiskLeavesTheOldArchive();
    void aFolderThatRejectsFilesIsReported();
    void onlyFilesAreReplaced();
    void stoppingLeavesTheOldArchive();
    void aLinkedArchiveStaysALink();
};

void tst_CGZipFilesTrouble::memoryStaysFlat()
{
    if (PeakMemoryKb() < 0)
        QSKIP("the system reports no memory figures");
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

void tst_CGZipFilesTrouble::unreadableFilesAreAFailureWithTheirName()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    folder.Put("out.zip", "old");
    // A file that can be opened but not read.
    CGZipFiles memory = ListOf(Names("a.txt /proc/self/mem"));
    QCOMPARE(memory.MakeZipFile(), 5);
    QVERIFY2(memory.GetLastMessage().startsWith(u"mem cannot be read: "_s), qPrintable(memory.GetLastMessage()));
    QCOMPARE(GetFile(Out()), QByteArray("old"));
    QCOMPARE(NamesIn(u"."_s), Names("a.txt out.zip"));

    folder.Put("closed.txt", "secret");
    QVERIFY(QFile::setPermissions(folder.At("closed.txt"), QFile::Permissions()));
    QVERIFY(QFile::setPermissions(QDir::currentPath(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(Out(), QFile::Permissions(0x6666)));
    const PlainUser user;
    CGZipFiles closed = ListOf(Names("*.txt"));
    QCOMPARE(closed.MakeZipFile(), ZipCannotOpen);
    QCOMPARE(closed.GetLastMessage(), u"closed.txt cannot be read: Permission denied"_s);
    QCOMPARE(GetFile(Out()), QByteArray("old"));
#else
    QSKIP("has no such files");
#endif
}

void tst_CGZipFilesTrouble::foldersAndPipesAreNotFiles()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    QVERIFY(QDir().mkdir(u"like.txt"_s));
    QCOMPARE(RunProgram(u"mkfifo"_s, {folder.At("pipe.txt")}).status, 0);
    QVERIFY(QFile::link(folder.At("gone"), folder.At("dangling.txt")));
    CGZipFiles none = ListOf(Names("like.txt pipe.txt dangling.txt /dev/zero *.txt"));
    QCOMPARE(none.MakeZipFile(), ZipNoFiles);
    folder.Put("a.txt", "a");
    QVERIFY(QFile::link(folder.At("a.txt"), folder.At("link.txt")));
    CGZipFiles zip = ListOf(Names("*.txt"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(NamesInZip(Out()), Names("a.txt link.txt"));
    QCOMPARE(FileInZip(Out(), u"link.txt"_s), QByteArray("a"));
#else
    QSKIP("has no such files");
#endif
}

void tst_CGZipFilesTrouble::aFullDiskLeavesTheOldArchive()
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
    QCOMPARE(NamesIn(u"."_s), Names("noise.bin out.zip"));
    QCOMPARE(zip.MakeZipFile(), 0);
    QCOMPARE(zip.GetLastMessage(), QString());
    QCOMPARE(NamesInZip(Out()), Names("noise.bin"));
#else
    QSKIP("cannot make a disk full");
#endif
}

void tst_CGZipFilesTrouble::aFolderThatRejectsFilesIsReported()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    CGZipFiles missing = ListOf(Names("a.txt"), u"nowhere/out.zip"_s);
    QVERIFY(missing.MakeZipFile() > 0);
    QVERIFY(missing.GetLastMessage().contains(u"No such file"_s));
    CGZipFiles system = ListOf(Names("a.txt"), u"/proc/out.zip"_s);
    QVERIFY(system.MakeZipFile() > 0);
    QVERIFY(QFile::setPermissions(QDir::currentPath(), QFile::Permissions(0x5555)));
    {
        const PlainUser user;
        CGZipFiles zip = ListOf(Names("a.txt"));
        QVERIFY(zip.MakeZipFile() > 0);
        QVERIFY2(zip.GetLastMessage().contains(u"Permission denied"_s), qPrintable(zip.GetLastMessage()));
    }
    QVERIFY(QFile::setPermissions(QDir::currentPath(), QFile::Permissions(0x7700)));
    QCOMPARE(NamesIn(u"."_s), Names("a.txt"));
#else
    QSKIP("has no such permissions");
#endif
}

void tst_CGZipFilesTrouble::onlyFilesAreReplaced()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    folder.Put("a.txt", "a");
    QVERIFY(QDir().mkdir(u"folder.zip"_s));
    CGZipFiles overFolder = ListOf(Names("a.txt"), u"folder.zip"_s);
    QCOMPARE(overFolder.MakeZipFile(), ZipCannotOpen);
    QVERIFY(QFileInfo(folder.At("folder.zip")).isDir());
    QCOMPARE(RunProgram(u"mkfifo"_s, {folder.At("pipe.zip")}).status, 0);
    CGZipFiles overPipe = ListOf(Names("a.txt"), u"pipe.zip"_s);
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

void tst_CGZipFilesTrouble::stoppingLeavesTheOldArchive()
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
        return ZipRequest::GoOn;
    }),
             0);
    QCOMPARE(last, std::uint64_t(600'000));
    folder.Put("out.zip", "old");
    for (int stopAt = 1; stopAt <= calls; stopAt += calls / 12 + 1) {
        int count = 0;
        const ZipWatch stop = [&](const ZipProgress&) {
            return ++count >= stopAt ? ZipRequest::Stop : ZipRequest::GoOn;
        };
        QCOMPARE(zip.MakeZipFile(stop), ZipStopped);
        QCOMPARE(GetFile(Out()), QByteArray("old"));
        QCOMPARE(NamesIn(u"."_s), Names("a.bin b.txt out.zip"));
    }
}

void tst_CGZipFilesTrouble::aLinkedArchiveStaysALink()
{
#ifdef Q_OS_UNIX
    const ZipFolder folder;
    QVERIFY(QDir().mkdir(u"real"_s));
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

QTEST_APPLESS_MAIN(tst_CGZipFilesTrouble)
#include "tst_CGZipFilesTrouble.moc"
