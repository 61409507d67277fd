// SPDX-License-Identifier: GPL-3.0-or-later
// What is left of files when the disk is full, and when a file or folder is not accessible.
#include "platform/files/modFiles.h"

#include "platform/files/FileTrouble.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

class tst_modFilesTrouble : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void readingFailsWithTheRightNumber();
    void linksInACircleAreAnError();
    void aFullDeviceIsAFullDisk();
    void aFullDiskLeavesTheOldFile();
    void aFullDiskLeavesNoNewFile();
    void missingFoldersAreReported();
    void foldersThatTakeNoFileAreReported();
    void aWritableFileInAClosedFolderIsWrittenInPlace();
    void aWriteProtectedFileIsNotReplaced();
    void aFolderIsNotReplaced();
    void appendingToAFullDiskLeavesTheOldFile();
    void writingBeyondAFullDiskKeepsTheOldLength();

private:
    QString At(const QString& name) const { return folder->filePath(name); }
    QStringList Entries() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> folder;
};

void tst_modFilesTrouble::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
}

void tst_modFilesTrouble::cleanup()
{
    folder.reset();
}

void tst_modFilesTrouble::readingFailsWithTheRightNumber()
{
    QCOMPARE(ErrorOf([&] { ob::ReadWhole(At(QStringLiteral("gone.bas"))); }), fileNotFound);
    QCOMPARE(ErrorOf([&] { ob::ReadWhole(At(QStringLiteral("gone/a.bas"))); }), fileNotFound);
    QCOMPARE(ErrorOf([] { ob::ReadWhole(QString()); }), fileNotFound);
    QCOMPARE(ErrorOf([&] { ob::ReadWhole(folder->path()); }), pathFileAccess);
#ifdef Q_OS_LINUX
    QCOMPARE(ErrorOf([] { ob::ReadWhole(QStringLiteral("/proc/self/mem")); }), deviceIoError);
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
    Put(At(QStringLiteral("closed.bas")), "x");
    QVERIFY(QFile::setPermissions(At(QStringLiteral("closed.bas")), {}));
    const PlainUser user;
    QCOMPARE(ErrorOf([&] { ob::ReadWhole(At(QStringLiteral("closed.bas"))); }), pathFileAccess);
#endif
    try {
        ob::ReadWhole(At(QStringLiteral("gone.bas")));
        QFAIL("nothing raised");
    } catch (const ob::RuntimeError& error) {
        QCOMPARE(error.description, QStringLiteral("File not found"));
        QCOMPARE(error.source, QDir::toNativeSeparators(At(QStringLiteral("gone.bas"))));
    }
}

void tst_modFilesTrouble::linksInACircleAreAnError()
{
#ifdef Q_OS_UNIX
    QCOMPARE(symlink("b", QFile::encodeName(At(QStringLiteral("a"))).constData()), 0);
    QCOMPARE(symlink("a", QFile::encodeName(At(QStringLiteral("b"))).constData()), 0);
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(QStringLiteral("a")), "x"); }), pathFileAccess);
    QCOMPARE(ErrorOf([&] { ob::AppendToFile(At(QStringLiteral("a")), "x"); }), pathFileAccess);
    QCOMPARE(Entries().size(), 2);
#else
    QSKIP("links need rights here");
#endif
}

void tst_modFilesTrouble::aFullDeviceIsAFullDisk()
{
#ifdef Q_OS_LINUX
    const QString full = QStringLiteral("/dev/full");
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(full, "x"); }), diskFull);
    QCOMPARE(ErrorOf([&] { ob::AppendToFile(full, "x"); }), diskFull);
    QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(full, "x"); }), diskFull);
    QVERIFY(QFileInfo::exists(full));
#else
    QSKIP("has no such device");
#endif
}

void tst_modFilesTrouble::aFullDiskLeavesTheOldFile()
{
#ifdef Q_OS_UNIX
    const QString path = At(QStringLiteral("a.bas"));
    Put(path, "the old text");
    {
        const FileSizeLimit limit(10000);
        QCOMPARE(ErrorOf([&] { ob::ReplaceFile(path, QByteArray(10001, 'n')); }), diskFull);
    }
    QCOMPARE(Get(path), QByteArray("the old text"));
    QCOMPARE(Entries(), QStringList{QStringLiteral("a.bas")});
#else
    QSKIP("cannot make a disk full");
#endif
}

void tst_modFilesTrouble::aFullDiskLeavesNoNewFile()
{
#ifdef Q_OS_UNIX
    {
        const FileSizeLimit limit(10000);
        const QByteArray bytes(20000, 'n');
        QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(QStringLiteral("a.bas")), bytes); }), diskFull);
        QCOMPARE(ErrorOf([&] { ob::AppendToFile(At(QStringLiteral("b.bas")), bytes); }), diskFull);
        QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(At(QStringLiteral("c.bas")), bytes); }), diskFull);
    }
    QCOMPARE(Entries(), QStringList());
#else
    QSKIP("cannot make a disk full");
#endif
}

void tst_modFilesTrouble::missingFoldersAreReported()
{
    const QString path = At(QStringLiteral("gone/a.bas"));
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(path, "x"); }), pathNotFound);
    QCOMPARE(ErrorOf([&] { ob::AppendToFile(path, "x"); }), pathNotFound);
    QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(path, "x"); }), pathNotFound);
    Put(At(QStringLiteral("file")), "x");
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(QStringLiteral("file/a.bas")), "x"); }), pathNotFound);
    QCOMPARE(ErrorOf([] { ob::ReplaceFile(QString(), "x"); }), pathFileAccess);
    QCOMPARE(ErrorOf([] { ob::AppendToFile(QString(), "x"); }), pathFileAccess);
}

void tst_modFilesTrouble::foldersThatTakeNoFileAreReported()
{
#ifdef Q_OS_LINUX
    for (const QString& path : {QStringLiteral("/proc/a.bas"), QStringLiteral("/proc/self/a.bas")}) {
        QCOMPARE(ErrorOf([&] { ob::ReplaceFile(path, "x"); }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { ob::AppendToFile(path, "x"); }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(path, "x"); }), pathFileAccess);
    }
#else
    QSKIP("has no such folder");
#endif
}

void tst_modFilesTrouble::aWritableFileInAClosedFolderIsWrittenInPlace()
{
#ifdef Q_OS_UNIX
    Put(At(QStringLiteral("a.bas")), "old");
    QVERIFY(QFile::setPermissions(At(QStringLiteral("a.bas")), QFile::Permissions(0x6666)));
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x5555)));
    {
        const PlainUser user;
        ob::ReplaceFile(At(QStringLiteral("a.bas")), "a longer new one");
        QCOMPARE(Get(At(QStringLiteral("a.bas"))), QByteArray("a longer new one"));
        {
            const FileSizeLimit full(16);
            QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(QStringLiteral("a.bas")), QByteArray(100, 'x')); }), diskFull);
        }
        QCOMPARE(Get(At(QStringLiteral("a.bas"))), QByteArray("a longer new one"));
        ob::ReplaceFile(At(QStringLiteral("a.bas")), "old");
        QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(QStringLiteral("b.bas")), "new"); }), pathFileAccess);
        ob::AppendToFile(At(QStringLiteral("a.bas")), "er");
    }
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
    QCOMPARE(Get(At(QStringLiteral("a.bas"))), QByteArray("older\r\n"));
    QCOMPARE(Entries(), QStringList{QStringLiteral("a.bas")});
#else
    QSKIP("has no such permissions");
#endif
}

void tst_modFilesTrouble::aWriteProtectedFileIsNotReplaced()
{
#ifdef Q_OS_UNIX
    Put(At(QStringLiteral("a.bas")), "old");
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(At(QStringLiteral("a.bas")), QFile::Permissions(0x4444)));
    {
        const PlainUser user;
        QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(QStringLiteral("a.bas")), "new"); }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { ob::AppendToFile(At(QStringLiteral("a.bas")), "new"); }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(At(QStringLiteral("a.bas")), "new"); }), pathFileAccess);
    }
    QCOMPARE(Get(At(QStringLiteral("a.bas"))), QByteArray("old"));
    QCOMPARE(Entries(), QStringList{QStringLiteral("a.bas")});
#else
    QSKIP("has no such permissions");
#endif
}

void tst_modFilesTrouble::aFolderIsNotReplaced()
{
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("sub")));
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(QStringLiteral("sub")), "x"); }), pathFileAccess);
    QCOMPARE(ErrorOf([&] { ob::AppendToFile(At(QStringLiteral("sub")), "x"); }), pathFileAccess);
    QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(At(QStringLiteral("sub")), "x"); }), pathFileAccess);
    QVERIFY(QFileInfo(At(QStringLiteral("sub"))).isDir());
    QCOMPARE(Entries().size(), 1);
}

void tst_modFilesTrouble::appendingToAFullDiskLeavesTheOldFile()
{
#ifdef Q_OS_UNIX
    const QString path = At(QStringLiteral("game.BAK"));
    Put(path, QByteArray(9000, 'o'));
    {
        const FileSizeLimit limit(10000);
        QCOMPARE(ErrorOf([&] { ob::AppendToFile(path, QByteArray(2000, 'n')); }), diskFull);
        QCOMPARE(Get(path), QByteArray(9000, 'o'));
        QCOMPARE(ErrorOf([&] { ob::AppendToFile(path, QByteArray(999, 'n')); }), diskFull);
        QCOMPARE(Get(path), QByteArray(9000, 'o'));
        ob::AppendToFile(path, QByteArray(998, 'n'));
    }
    QCOMPARE(Get(path), QByteArray(9000, 'o') + QByteArray(998, 'n') + "\r\n");
#else
    QSKIP("cannot make a disk full");
#endif
}

void tst_modFilesTrouble::writingBeyondAFullDiskKeepsTheOldLength()
{
#ifdef Q_OS_UNIX
    const QString path = At(QStringLiteral("wrapper32.bas"));
    Put(path, "old");
    {
        const FileSizeLimit limit(10000);
        QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(path, QByteArray(20000, 'n')); }), diskFull);
    }
    QCOMPARE(QFileInfo(path).size(), 3);
#else
    QSKIP("cannot make a disk full");
#endif
}

QTEST_APPLESS_MAIN(tst_modFilesTrouble)
#include "tst_modFilesTrouble.moc"
