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

using namespace Qt::StringLiterals;

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
    QCOMPARE(ErrorOf([&] { ob::ReadWhole(At(u"gone.bas"_s)); }), fileNotFound);
    QCOMPARE(ErrorOf([&] { ob::ReadWhole(At(u"gone/a.bas"_s)); }), fileNotFound);
    QCOMPARE(ErrorOf([] { ob::ReadWhole(QString()); }), fileNotFound);
    QCOMPARE(ErrorOf([&] { ob::ReadWhole(folder->path()); }), pathFileAccess);
#ifdef Q_OS_LINUX
    QCOMPARE(ErrorOf([] { ob::ReadWhole(u"/proc/self/mem"_s); }), deviceIoError);
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
    Put(At(u"closed.bas"_s), "x");
    QVERIFY(QFile::setPermissions(At(u"closed.bas"_s), {}));
    const PlainUser user;
    QCOMPARE(ErrorOf([&] { ob::ReadWhole(At(u"closed.bas"_s)); }), pathFileAccess);
#endif
    try {
        ob::ReadWhole(At(u"gone.bas"_s));
        QFAIL("nothing raised");
    } catch (const ob::RuntimeError& error) {
        QCOMPARE(error.description, u"File not found"_s);
        QCOMPARE(error.source, QDir::toNativeSeparators(At(u"gone.bas"_s)));
    }
}

void tst_modFilesTrouble::linksInACircleAreAnError()
{
#ifdef Q_OS_UNIX
    QCOMPARE(symlink("b", QFile::encodeName(At(u"a"_s)).constData()), 0);
    QCOMPARE(symlink("a", QFile::encodeName(At(u"b"_s)).constData()), 0);
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(u"a"_s), "x"); }), pathFileAccess);
    QCOMPARE(ErrorOf([&] { ob::AppendToFile(At(u"a"_s), "x"); }), pathFileAccess);
    QCOMPARE(Entries().size(), 2);
#else
    QSKIP("links need rights here");
#endif
}

void tst_modFilesTrouble::aFullDeviceIsAFullDisk()
{
#ifdef Q_OS_LINUX
    const QString full = u"/dev/full"_s;
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
    const QString path = At(u"a.bas"_s);
    Put(path, "the old text");
    {
        const FileSizeLimit limit(10000);
        QCOMPARE(ErrorOf([&] { ob::ReplaceFile(path, QByteArray(10001, 'n')); }), diskFull);
    }
    QCOMPARE(Get(path), QByteArray("the old text"));
    QCOMPARE(Entries(), QStringList{u"a.bas"_s});
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
        QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(u"a.bas"_s), bytes); }), diskFull);
        QCOMPARE(ErrorOf([&] { ob::AppendToFile(At(u"b.bas"_s), bytes); }), diskFull);
        QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(At(u"c.bas"_s), bytes); }), diskFull);
    }
    QCOMPARE(Entries(), QStringList());
#else
    QSKIP("cannot make a disk full");
#endif
}

void tst_modFilesTrouble::missingFoldersAreReported()
{
    const QString path = At(u"gone/a.bas"_s);
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(path, "x"); }), pathNotFound);
    QCOMPARE(ErrorOf([&] { ob::AppendToFile(path, "x"); }), pathNotFound);
    QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(path, "x"); }), pathNotFound);
    Put(At(u"file"_s), "x");
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(u"file/a.bas"_s), "x"); }), pathNotFound);
    QCOMPARE(ErrorOf([] { ob::ReplaceFile(QString(), "x"); }), pathFileAccess);
    QCOMPARE(ErrorOf([] { ob::AppendToFile(QString(), "x"); }), pathFileAccess);
}

void tst_modFilesTrouble::foldersThatTakeNoFileAreReported()
{
#ifdef Q_OS_LINUX
    for (const QString& path : {u"/proc/a.bas"_s, u"/proc/self/a.bas"_s}) {
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
    Put(At(u"a.bas"_s), "old");
    QVERIFY(QFile::setPermissions(At(u"a.bas"_s), QFile::Permissions(0x6666)));
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x5555)));
    {
        const PlainUser user;
        ob::ReplaceFile(At(u"a.bas"_s), "a longer new one");
        QCOMPARE(Get(At(u"a.bas"_s)), QByteArray("a longer new one"));
        {
            const FileSizeLimit full(16);
            QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(u"a.bas"_s), QByteArray(100, 'x')); }), diskFull);
        }
        QCOMPARE(Get(At(u"a.bas"_s)), QByteArray("a longer new one"));
        ob::ReplaceFile(At(u"a.bas"_s), "old");
        QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(u"b.bas"_s), "new"); }), pathFileAccess);
        ob::AppendToFile(At(u"a.bas"_s), "er");
    }
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
    QCOMPARE(Get(At(u"a.bas"_s)), QByteArray("older\r\n"));
    QCOMPARE(Entries(), QStringList{u"a.bas"_s});
#else
    QSKIP("has no such permissions");
#endif
}

void tst_modFilesTrouble::aWriteProtectedFileIsNotReplaced()
{
#ifdef Q_OS_UNIX
    Put(At(u"a.bas"_s), "old");
    QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(At(u"a.bas"_s), QFile::Permissions(0x4444)));
    {
        const PlainUser user;
        QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(u"a.bas"_s), "new"); }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { ob::AppendToFile(At(u"a.bas"_s), "new"); }), pathFileAccess);
        QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(At(u"a.bas"_s), "new"); }), pathFileAccess);
    }
    QCOMPARE(Get(At(u"a.bas"_s)), QByteArray("old"));
    QCOMPARE(Entries(), QStringList{u"a.bas"_s});
#else
    QSKIP("has no such permissions");
#endif
}

void tst_modFilesTrouble::aFolderIsNotReplaced()
{
    QVERIFY(QDir(folder->path()).mkdir(u"sub"_s));
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(At(u"sub"_s), "x"); }), pathFileAccess);
    QCOMPARE(ErrorOf([&] { ob::AppendToFile(At(u"sub"_s), "x"); }), pathFileAccess);
    QCOMPARE(ErrorOf([&] { ob::WriteKeepingTail(At(u"sub"_s), "x"); }), pathFileAccess);
    QVERIFY(QFileInfo(At(u"sub"_s)).isDir());
    QCOMPARE(Entries().size(), 1);
}

void tst_modFilesTrouble::appendingToAFullDiskLeavesTheOldFile()
{
#ifdef Q_OS_UNIX
    const QString path = At(u"game.BAK"_s);
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
    const QString path = At(u"wrapper32.bas"_s);
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
