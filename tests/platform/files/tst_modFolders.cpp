// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk: patterns, folders, drives.
#include "platform/files/modFolders.h"

#include "core/CoreBench.h"

#include <QElapsedTimer>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QStringList shown = {u"*.bas"_s, u"*.bak"_s};

QStringList Words(const char* words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class tst_modFolders : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void patternsFitInAnyCase_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<QString>("fits");
        QTest::addColumn<QString>("fitsNot");
        const auto row = [](const char* pattern, const char* fits, const char* fitsNot) {
            QTest::newRow(pattern) << QString::fromLatin1(pattern) << QString::fromLatin1(fits)
                                   << QString::fromLatin1(fitsNot);
        };
        row("*.bmp", "a.bmp A.BMP .bmp a.b.bmp", "bmp a.bm a.bmpx a.bmp.txt");
        row("*.*", "a a.b .b", "");
        row("*run*.exe", "run.exe RUN400.EXE myrun.exe prune.exe", "ru.exe run.ex run.exe.bak");
        row("a?c", "abc ABC a.c", "ac abbc");
        row("*", "a a.b", "");
        row("a*b*c", "abc axbxc aabbcc abcbc", "ab acb abcd");
        row("[ab].txt", "[ab].txt [AB].TXT", "a.txt");
        row("*.emf,*.gif", "a.emf,b.gif", "a.emf a.gif");
    }

    void patternsFitInAnyCase()
    {
        QFETCH(QString, pattern);
        QFETCH(QString, fits);
        QFETCH(QString, fitsNot);
        for (const QString& name : Words(qPrintable(fits)))
            QVERIFY2(Fits(name, NamePattern({pattern})), qPrintable(name));
        for (const QString& name : Words(qPrintable(fitsNot)))
            QVERIFY2(!Fits(name, NamePattern({pattern})), qPrintable(name));
    }

    void theEmptyNameFitsStarsOnly()
    {
        QVERIFY(Fits(u""_s, NamePattern({u"*"_s})));
        QVERIFY(Fits(u""_s, NamePattern({u""_s})));
        QVERIFY(!Fits(u""_s, NamePattern({u"?"_s})));
        QVERIFY(!Fits(u"a"_s, NamePattern({u""_s})));
    }

    // A naive matcher's work doubles with each star.
    void manyStarsTakeNoTime()
    {
        const QString name(2'000, QLatin1Char('a'));
        QString pattern;
        for (int i = 0; i < 200; ++i)
            pattern += QLatin1String("*a");
        QVERIFY(Fits(name, NamePattern({pattern})));
        QVERIFY(!Fits(name, NamePattern({pattern + QLatin1Char('b')})));
    }

    void aFolderShowsItsFoldersAndItsCodeSorted()
    {
        const CoreBench bench;
        for (const QString& name : Words("zoo.bas Beta.BAS alpha.bak notes.txt .hidden.bas"))
            bench.Put(name, "x");
        const QDir folder(QDir::currentPath());
        for (const QString& name : Words("sub Another .secret folder.bas"))
            QVERIFY(folder.mkdir(name));
        const FolderContents contents = ReadFolder(folder.path(), shown);
        QCOMPARE(contents.files, Words("alpha.bak Beta.BAS zoo.bas"));
        QCOMPARE(contents.folders, Words("Another folder.bas sub"));
    }

    void aFolderThatIsNotThereHoldsNothing()
    {
        const FolderContents contents = ReadFolder(u"/nowhere/at/all"_s, shown);
        QVERIFY(contents.files.isEmpty());
        QVERIFY(contents.folders.isEmpty());
    }

#ifdef Q_OS_UNIX
    // Opening a pipe would block.
    void onlyRegularFilesAreShown()
    {
        const CoreBench bench;
        const QString real = bench.Put(u"real.bas"_s, "x");
        QCOMPARE(::mkfifo(qPrintable(bench.Path(u"pipe.bas"_s)), 0600), 0);
        QVERIFY(QFile::link(real, bench.Path(u"link.bas"_s)));
        QVERIFY(QFile::link(u"/nowhere"_s, bench.Path(u"broken.bas"_s)));
        QVERIFY(QFile::link(bench.Path(u"pipe.bas"_s), bench.Path(u"topipe.bas"_s)));
        QCOMPARE(ReadFolder(QDir::currentPath(), shown).files, Words("link.bas real.bas"));
    }
#endif

    void aFolderOfManyFilesIsReadInReasonableTime()
    {
        const CoreBench bench;
        constexpr int count = 20'000;
        for (int i = 0; i < count; ++i)
            bench.Put(u"file%1.bas"_s.arg(i), {});
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(ReadFolder(QDir::currentPath(), shown).files.size(), count);
        QVERIFY2(timer.elapsed() < 5'000, qPrintable(QString::number(timer.elapsed())));
    }

    void theChainLeadsFromTheRootToTheFolder()
    {
        QCOMPARE(FolderChain(u"/"_s), Words("/"));
        QCOMPARE(FolderChain(u"/home"_s), Words("/ /home"));
        QCOMPARE(FolderChain(u"/home/me/code/"_s), Words("/ /home /home/me /home/me/code"));
#ifdef Q_OS_WIN
        QCOMPARE(FolderChain(u"C:/"_s), Words("C:/"));
        QCOMPARE(FolderChain(u"C:/code/old"_s), Words("C:/ C:/code C:/code/old"));
#endif
    }

    void aPathIsJoinedWithOneSeparator()
    {
        const QChar separator = QDir::separator();
        QCOMPARE(PathIn(u"/code"_s, u"a.bas"_s), separator + u"code"_s + separator + u"a.bas"_s);
        QCOMPARE(PathIn(u"/"_s, u"a.bas"_s), separator + u"a.bas"_s);
        QVERIFY(PathIn(u"/code"_s, {}).endsWith(separator));
    }

    void rootAndHomeAreAmongTheDrivesOnce()
    {
        QStringList paths;
        for (const Drive& drive : NearDrives()) {
            paths.append(drive.path);
            QVERIFY(!drive.caption.isEmpty());
        }
        QVERIFY(paths.contains(QDir::rootPath()));
        QCOMPARE(paths.count(QDir::homePath()), 1);
    }

    void mountedDrivesAreFoldersThatUsersKeepFilesOn()
    {
        for (const Drive& drive : MountedDrives())
            QVERIFY2(QFileInfo(drive.path).isDir(), qPrintable(drive.path));
    }

    void partsOfTheSystemAreNoDrives_data()
    {
        QTest::addColumn<QString>("root");
        QTest::addColumn<QByteArray>("device");
        QTest::addColumn<bool>("shown");
        const auto row = [](const char* root, const char* device, bool shown) {
            QTest::newRow(root) << QString::fromLatin1(root) << QByteArray(device) << shown;
        };
        row("/", "/dev/sda1", true);
        row("/media/me/STICK", "/dev/sdb1", true);
        row("/mnt/encrypted", "/dev/mapper/data", true);
        row("/mnt/share", "server:/export/home", true);
        row("/mnt/windows", "//server/share", true);
        row("/mnt/ssh", "me@server:/home/me", true);
        row("/boot/efi", "/dev/sda2", false);
        row("/boot", "/dev/sda3", false);
        row("/snap/core/1", "/dev/loop3", false);
        row("/run", "tmpfs", false);
        row("/dev", "udev", false);
        row("/overlay", "overlay", false);
    }

    void partsOfTheSystemAreNoDrives()
    {
        QFETCH(QString, root);
        QFETCH(QByteArray, device);
        QTEST(IsUserVolume(root, device), "shown");
    }

    void aFolderBelongsToTheInnermostDrive()
    {
        const QList<Drive> drives = {{u"/"_s, {}}, {u"/home/me"_s, {}}, {u"/mnt/disk"_s, {}}};
        QCOMPARE(DriveOf(drives, u"/"_s), 0);
        QCOMPARE(DriveOf(drives, u"/home"_s), 0);
        QCOMPARE(DriveOf(drives, u"/home/me"_s), 1);
        QCOMPARE(DriveOf(drives, u"/home/me/code"_s), 1);
        QCOMPARE(DriveOf(drives, u"/home/mean"_s), 0);
        QCOMPARE(DriveOf(drives, u"/mnt/disk/a/b"_s), 2);
        QCOMPARE(DriveOf({}, u"/home"_s), -1);
    }
};

OB_CORE_TEST(tst_modFolders)
#include "tst_modFolders.moc"
