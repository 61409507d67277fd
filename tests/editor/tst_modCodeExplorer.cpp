// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk for BASIC source: names, folders, drives, the preview, and the opening.
#include "editor/modCodeExplorer.h"

#include "core/CoreBench.h"

#include <QElapsedTimer>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace ob;

namespace {

QStringList Words(const char* words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class tst_modCodeExplorer : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void codeFilesAreToldByTheirEndingInAnyCase()
    {
        for (const QString& name : Words("a.bas A.BAS b.bak b.Bak x.y.bAs .bas"))
            QVERIFY2(IsCodeFileName(name), qPrintable(name));
        for (const QString& name : Words("bas abas a.ba a.bass a.bas~ a.oba a.txt a.bas.txt"))
            QVERIFY2(!IsCodeFileName(name), qPrintable(name));
        QVERIFY(!IsCodeFileName(u""));
    }

    void aFolderShowsItsFoldersAndItsCodeSorted()
    {
        const CoreBench bench;
        for (const QString& name : Words("zoo.bas Beta.BAS alpha.bak notes.txt .hidden.bas"))
            bench.Put(name, "x");
        const QDir folder(QDir::currentPath());
        for (const QString& name : Words("sub Another .secret folder.bas"))
            QVERIFY(folder.mkdir(name));
        const FolderContents contents = ReadFolder(folder.path());
        QCOMPARE(contents.files, Words("alpha.bak Beta.BAS zoo.bas"));
        QCOMPARE(contents.folders, Words("Another folder.bas sub"));
    }

    void aFolderThatIsNotThereHoldsNothing()
    {
        const FolderContents contents = ReadFolder(QStringLiteral("/nowhere/at/all"));
        QVERIFY(contents.files.isEmpty());
        QVERIFY(contents.folders.isEmpty());
    }

#ifdef Q_OS_UNIX
    // A pipe would hold up whoever looks into it.
    void onlyRegularFilesAreShown()
    {
        const CoreBench bench;
        const QString real = bench.Put(QStringLiteral("real.bas"), "x");
        QCOMPARE(::mkfifo(qPrintable(bench.Path(QStringLiteral("pipe.bas"))), 0600), 0);
        QVERIFY(QFile::link(real, bench.Path(QStringLiteral("link.bas"))));
        QVERIFY(QFile::link(QStringLiteral("/nowhere"), bench.Path(QStringLiteral("broken.bas"))));
        QVERIFY(QFile::link(bench.Path(QStringLiteral("pipe.bas")), bench.Path(QStringLiteral("topipe.bas"))));
        QCOMPARE(ReadFolder(QDir::currentPath()).files, Words("link.bas real.bas"));
    }
#endif

    void whatCannotBeReadRaises()
    {
        const CoreBench bench;
        QCOMPARE(RaisedBy([] { CodePreview(QDir::currentPath()); }), static_cast<int>(ErrorNumber::PathFileAccess));
    }

    void aFolderOfManyFilesIsReadInReasonableTime()
    {
        const CoreBench bench;
        constexpr int count = 20'000;
        for (int i = 0; i < count; ++i)
            bench.Put(QStringLiteral("file%1.bas").arg(i), {});
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(ReadFolder(QDir::currentPath()).files.size(), count);
        QVERIFY2(timer.elapsed() < 5'000, qPrintable(QString::number(timer.elapsed())));
    }

    void theChainLeadsFromTheRootToTheFolder()
    {
        QCOMPARE(FolderChain(QStringLiteral("/")), Words("/"));
        QCOMPARE(FolderChain(QStringLiteral("/home")), Words("/ /home"));
        QCOMPARE(FolderChain(QStringLiteral("/home/me/code/")), Words("/ /home /home/me /home/me/code"));
#ifdef Q_OS_WIN
        QCOMPARE(FolderChain(QStringLiteral("C:/")), Words("C:/"));
        QCOMPARE(FolderChain(QStringLiteral("C:/code/old")), Words("C:/ C:/code C:/code/old"));
#endif
    }

    void aPathIsJoinedWithOneSeparator()
    {
        const QChar separator = QDir::separator();
        QCOMPARE(PathIn(QStringLiteral("/code"), QStringLiteral("a.bas")),
                 separator + QStringLiteral("code") + separator + QStringLiteral("a.bas"));
        QCOMPARE(PathIn(QStringLiteral("/"), QStringLiteral("a.bas")), separator + QStringLiteral("a.bas"));
        QVERIFY(PathIn(QStringLiteral("/code"), {}).endsWith(separator));
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
        const QList<Drive> drives = {
            {QStringLiteral("/"), {}}, {QStringLiteral("/home/me"), {}}, {QStringLiteral("/mnt/disk"), {}}};
        QCOMPARE(DriveOf(drives, QStringLiteral("/")), 0);
        QCOMPARE(DriveOf(drives, QStringLiteral("/home")), 0);
        QCOMPARE(DriveOf(drives, QStringLiteral("/home/me")), 1);
        QCOMPARE(DriveOf(drives, QStringLiteral("/home/me/code")), 1);
        QCOMPARE(DriveOf(drives, QStringLiteral("/home/mean")), 0);
        QCOMPARE(DriveOf(drives, QStringLiteral("/mnt/disk/a/b")), 2);
        QCOMPARE(DriveOf({}, QStringLiteral("/home")), -1);
    }

    void thePreviewIsTheFirstTwoThousandBytes_data()
    {
        QTest::addColumn<int>("size");
        QTest::addColumn<int>("shown");
        QTest::newRow("empty") << 0 << 0;
        QTest::newRow("short") << 12 << 12;
        QTest::newRow("just all") << 2000 << 2000;
        QTest::newRow("one more") << 2001 << 2000;
        QTest::newRow("long") << 100'000 << 2000;
    }

    void thePreviewIsTheFirstTwoThousandBytes()
    {
        QFETCH(int, size);
        QFETCH(int, shown);
        const CoreBench bench;
        QByteArray bytes(size, 'x');
        if (size > 1999)
            bytes[1999] = 'y';
        const QString preview = CodePreview(bench.Put(QStringLiteral("a.bas"), bytes));
        QCOMPARE(preview, QString::fromLatin1(bytes.first(shown)));
    }

    void thePreviewIsReadInTheCodePage()
    {
        const CoreBench bench;
        QCOMPARE(CodePreview(bench.Put(QStringLiteral("a.bas"), "gr\xFC\xDF"
                                                                "e \x80\r\n")),
                 QStringLiteral("gr\u00fc\u00dfe \u20ac\r\n"));
    }

    void anExploredFileGoesToANewWindowAndNotToTheRecentList()
    {
        CoreBench bench;
        RecentFiles.fill(QStringLiteral("untitled"));
        const QString path = bench.Put(QStringLiteral("game.bas"), "print 1\r\n");
        OpenExploredFile(path);
        QCOMPARE(FakeMainForm::Control(*bench.form.active).text, QByteArray("print 1"));
        QCOMPARE(bench.form.active->Caption(), path);
        QVERIFY(bench.form.status.startsWith(QStringLiteral("game.bas  Size: 9 KB   Last Modified: ")));
        QCOMPARE(RecentFiles[0], QStringLiteral("untitled"));
        QCOMPARE(RecentCount, 0);
    }

    void aFileThatVanishedIsTold()
    {
        CoreBench bench;
        bench.dialogs.ExpectMessage(QStringLiteral("File does not exist or is corrupt."), BoxAnswer::Ok,
                                    BoxIcon::Critical, BoxButtons::Ok, QStringLiteral("Error"));
        QCOMPARE(RaisedBy([] { OpenExploredFile(QStringLiteral("/nowhere/gone.bas")); }),
                 static_cast<int>(ErrorNumber::FileNotFound));
        QVERIFY(bench.dialogs.Finished());
    }

    void withoutTheEditLibraryNothingIsOpened()
    {
        CoreBench bench;
        bench.form.hasEditLibrary = false;
        OpenExploredFile(bench.Put(QStringLiteral("game.bas"), "print 1\r\n"));
        QVERIFY(bench.form.status.isEmpty());
    }
};

OB_CORE_TEST(tst_modCodeExplorer)
#include "tst_modCodeExplorer.moc"
