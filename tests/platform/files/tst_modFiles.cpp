// SPDX-License-Identifier: GPL-3.0-or-later
// Finding, reading and writing files without errors.
#include "platform/files/modFiles.h"

#include "platform/files/FileTrouble.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

class tst_modFiles : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFolderIsNotAFile();
    void readingGivesAllBytes();
    void readingAMadeUpFileGivesAllBytes();
    void replacingMakesAndReplaces();
    void replacingKeepsPermissions();
    void aNewFileHasTheUsualPermissions();
    void replacingFollowsLinks();
    void replacingThroughADanglingLinkMakesItsTarget();
    void replacingWritesDevicesInPlace();
    void replacingWritesAPipeThatIsRead();
    void appendingAddsALineEnd();
    void writingKeepsALongerFilesTail();
    void namesAndFoldersOfPaths_data();
    void namesAndFoldersOfPaths();
    void sizeAndDateOfAFile();
    void datesAreTextInTheShortFormat_data();
    void datesAreTextInTheShortFormat();
    void namesAreFoundInAnyCase();
    void theNameAsWrittenComesFirst();
    void namesInFoldersAreFoundInAnyCase();

private:
    QString At(const QString& name) const { return folder->filePath(name); }
    QStringList Entries() const
    {
        return QDir(folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    std::unique_ptr<QTemporaryDir> folder;
};

void tst_modFiles::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(folder->isValid());
}

void tst_modFiles::cleanup()
{
    folder.reset();
}

void tst_modFiles::aFolderIsNotAFile()
{
    Put(At(QStringLiteral("a.bas")), "x");
    QVERIFY(ob::FileExists(At(QStringLiteral("a.bas"))));
    QVERIFY(!ob::FolderExists(At(QStringLiteral("a.bas"))));
    QVERIFY(!ob::FileExists(folder->path()));
    QVERIFY(ob::FolderExists(folder->path()));
    QVERIFY(!ob::FileExists(QString()));
    QVERIFY(!ob::FolderExists(QString()));
    QVERIFY(!ob::FileExists(At(QStringLiteral("b.bas"))));
    QVERIFY(!ob::FileExists(QStringLiteral("no path")));
    QVERIFY(!ob::FileExists(At(QStringLiteral("a.bas")) + QChar::Null));
#ifdef Q_OS_UNIX
    QVERIFY(QFile::link(At(QStringLiteral("a.bas")), At(QStringLiteral("link"))));
    QVERIFY(QFile::link(At(QStringLiteral("b.bas")), At(QStringLiteral("dangling"))));
    QVERIFY(QFile::link(folder->path(), At(QStringLiteral("folderlink"))));
    QVERIFY(ob::FileExists(At(QStringLiteral("link"))));
    QVERIFY(!ob::FileExists(At(QStringLiteral("dangling"))));
    QVERIFY(!ob::FileExists(At(QStringLiteral("folderlink"))));
    QVERIFY(ob::FolderExists(At(QStringLiteral("folderlink"))));
#endif
}

void tst_modFiles::readingGivesAllBytes()
{
    for (const qsizetype size : {qsizetype{0}, qsizetype{1}, qsizetype{65535}, qsizetype{65536}, qsizetype{1000003}}) {
        QByteArray bytes(size, '\0');
        for (qsizetype index = 0; index < size; ++index)
            bytes[index] = static_cast<char>(index * 31 + index / 256);
        Put(At(QStringLiteral("a.bin")), bytes);
        QCOMPARE(ob::ReadWhole(At(QStringLiteral("a.bin"))), bytes);
    }
}

void tst_modFiles::readingAMadeUpFileGivesAllBytes()
{
#ifdef Q_OS_LINUX
    const QByteArray status = ob::ReadWhole(QStringLiteral("/proc/self/status"));
    QVERIFY(status.startsWith("Name:\ttst_modFiles\n"));
    QVERIFY(status.endsWith('\n'));
#else
    QSKIP("has no such files");
#endif
}

void tst_modFiles::replacingMakesAndReplaces()
{
    const QString path = At(QStringLiteral("a.bas"));
    ob::ReplaceFile(path, QByteArrayView("first\0text", 10));
    QCOMPARE(Get(path), QByteArray("first\0text", 10));
    ob::ReplaceFile(path, "2");
    QCOMPARE(Get(path), QByteArray("2"));
    ob::ReplaceFile(path, {});
    QCOMPARE(Get(path), QByteArray());
    const QByteArray big(5000000, 'b');
    ob::ReplaceFile(path, big);
    QCOMPARE(Get(path), big);
    QCOMPARE(Entries(), QStringList{QStringLiteral("a.bas")});

    const QString longName = At(QString(255, u'n'));
    ob::ReplaceFile(longName, "long");
    QCOMPARE(Get(longName), QByteArray("long"));

    const QString oldFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder->path()));
    ob::ReplaceFile(QStringLiteral("relative.bas"), "here");
    QVERIFY(QDir::setCurrent(oldFolder));
    QCOMPARE(Get(At(QStringLiteral("relative.bas"))), QByteArray("here"));
}

void tst_modFiles::replacingKeepsPermissions()
{
#ifdef Q_OS_UNIX
    const QByteArray path = QFile::encodeName(At(QStringLiteral("a.bas")));
    for (const mode_t mode : {mode_t{0640}, mode_t{0755}, mode_t{0600}, mode_t{0666}}) {
        Put(QFile::decodeName(path), "old");
        QCOMPARE(chmod(path.constData(), mode), 0);
        if (geteuid() == 0)
            QCOMPARE(chown(path.constData(), 1234, 4321), 0);
        ob::ReplaceFile(QFile::decodeName(path), "new");
        struct stat status = {};
        QCOMPARE(stat(path.constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, mode);
        if (geteuid() == 0) {
            QCOMPARE(status.st_uid, uid_t{1234});
            QCOMPARE(status.st_gid, gid_t{4321});
        }
    }
#else
    QSKIP("has no such permissions");
#endif
}

void tst_modFiles::aNewFileHasTheUsualPermissions()
{
#ifdef Q_OS_UNIX
    const mode_t oldMask = umask(027);
    ob::ReplaceFile(At(QStringLiteral("new.bas")), "x");
    ob::AppendToFile(At(QStringLiteral("newer.bas")), "x");
    umask(oldMask);
    for (const char* name : {"new.bas", "newer.bas"}) {
        struct stat status = {};
        QCOMPARE(stat(QFile::encodeName(At(QLatin1String(name))).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, mode_t{0640});
    }
#else
    QSKIP("has no such permissions");
#endif
}

void tst_modFiles::replacingFollowsLinks()
{
#ifdef Q_OS_UNIX
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("sub")));
    Put(At(QStringLiteral("sub/real.bas")), "old");
    QCOMPARE(symlink("sub/real.bas", QFile::encodeName(At(QStringLiteral("one.bas"))).constData()), 0);
    QCOMPARE(symlink("one.bas", QFile::encodeName(At(QStringLiteral("two.bas"))).constData()), 0);
    ob::ReplaceFile(At(QStringLiteral("two.bas")), "new");
    QCOMPARE(Get(At(QStringLiteral("sub/real.bas"))), QByteArray("new"));
    QVERIFY(QFileInfo(At(QStringLiteral("one.bas"))).isSymLink());
    QVERIFY(QFileInfo(At(QStringLiteral("two.bas"))).isSymLink());
    QCOMPARE(QDir(At(QStringLiteral("sub"))).entryList(QDir::Files | QDir::Hidden).size(), 1);
#else
    QSKIP("links need rights here");
#endif
}

void tst_modFiles::replacingThroughADanglingLinkMakesItsTarget()
{
#ifdef Q_OS_UNIX
    QCOMPARE(symlink("real.bas", QFile::encodeName(At(QStringLiteral("link.bas"))).constData()), 0);
    ob::ReplaceFile(At(QStringLiteral("link.bas")), "new");
    QCOMPARE(Get(At(QStringLiteral("real.bas"))), QByteArray("new"));
    QVERIFY(QFileInfo(At(QStringLiteral("link.bas"))).isSymLink());
    QCOMPARE(symlink("made.bas", QFile::encodeName(At(QStringLiteral("other.bas"))).constData()), 0);
    ob::AppendToFile(At(QStringLiteral("other.bas")), "x");
    QCOMPARE(Get(At(QStringLiteral("made.bas"))), QByteArray("x\r\n"));
#else
    QSKIP("links need rights here");
#endif
}

void tst_modFiles::replacingWritesDevicesInPlace()
{
#ifdef Q_OS_UNIX
    ob::ReplaceFile(QStringLiteral("/dev/null"), "gone");
    struct stat status = {};
    QCOMPARE(stat("/dev/null", &status), 0);
    QVERIFY(S_ISCHR(status.st_mode));
    const QString pipe = At(QStringLiteral("pipe"));
    QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    QCOMPARE(ErrorOf([&] { ob::ReplaceFile(pipe, "nobody reads"); }), deviceIoError);
#else
    QSKIP("has no such devices");
#endif
}

void tst_modFiles::replacingWritesAPipeThatIsRead()
{
#ifdef Q_OS_LINUX
    int ends[2] = {};
    QCOMPARE(pipe(ends), 0);
    ob::ReplaceFile(QStringLiteral("/proc/self/fd/%1").arg(ends[1]), "through the pipe");
    char bytes[100];
    const ssize_t count = read(ends[0], bytes, sizeof bytes);
    close(ends[0]);
    close(ends[1]);
    QCOMPARE(QByteArray(bytes, count), QByteArray("through the pipe"));
#else
    QSKIP("has no such paths");
#endif
}

void tst_modFiles::appendingAddsALineEnd()
{
    const QString path = At(QStringLiteral("game.BAK"));
    ob::AppendToFile(path, "one");
    ob::AppendToFile(path, QByteArrayView("t\0o", 3));
    ob::AppendToFile(path, {});
    QCOMPARE(Get(path), QByteArray("one\r\nt\0o\r\n\r\n", 12));
}

void tst_modFiles::writingKeepsALongerFilesTail()
{
    const QString path = At(QStringLiteral("wrapper32.bas"));
    ob::WriteKeepingTail(path, "0123456789");
    QCOMPARE(Get(path), QByteArray("0123456789"));
    ob::WriteKeepingTail(path, "abc");
    QCOMPARE(Get(path), QByteArray("abc3456789"));
    ob::WriteKeepingTail(path, "abcdefghijklm");
    QCOMPARE(Get(path), QByteArray("abcdefghijklm"));
    ob::WriteKeepingTail(path, {});
    QCOMPARE(Get(path), QByteArray("abcdefghijklm"));
}

void tst_modFiles::namesAndFoldersOfPaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("folderPart");
    QTest::addColumn<QString>("name");
    QTest::newRow("absolute") << QStringLiteral("/a/b/c.bas") << QStringLiteral("/a/b/") << QStringLiteral("c.bas");
    QTest::newRow("root") << QStringLiteral("/c.bas") << QStringLiteral("/") << QStringLiteral("c.bas");
    QTest::newRow("bare") << QStringLiteral("c.bas") << QString() << QStringLiteral("c.bas");
    QTest::newRow("relative") << QStringLiteral("a/c.bas") << QStringLiteral("a/") << QStringLiteral("c.bas");
    QTest::newRow("folder") << QStringLiteral("/a/b/") << QStringLiteral("/a/b/") << QString();
    QTest::newRow("empty") << QString() << QString() << QString();
}

void tst_modFiles::namesAndFoldersOfPaths()
{
    QFETCH(QString, path);
    QFETCH(QString, folderPart);
    QFETCH(QString, name);
    QCOMPARE(ob::FolderOf(path), folderPart);
    QCOMPARE(ob::NameOf(path), name);
}

void tst_modFiles::sizeAndDateOfAFile()
{
    const QString path = At(QStringLiteral("a.bas"));
    Put(path, QByteArray(12345, 'x'));
    const QDateTime when(QDate(2024, 3, 5), QTime(14, 5, 9));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(when, QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(ob::SizeOf(path), 12345);
    QCOMPARE(ob::ModifiedOf(path), when);
    QCOMPARE(ob::FileDateText(path), ob::DateText(when, QLocale::system()));
    QVERIFY(ob::FileDateText(path).contains(QStringLiteral("2024")));
    for (const QString& gone : {At(QStringLiteral("gone")), folder->path(), QString()}) {
        QCOMPARE(ErrorOf([&] { ob::SizeOf(gone); }), fileNotFound);
        QCOMPARE(ErrorOf([&] { ob::ModifiedOf(gone); }), fileNotFound);
        QCOMPARE(ErrorOf([&] { ob::FileDateText(gone); }), fileNotFound);
    }
}

void tst_modFiles::datesAreTextInTheShortFormat_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::newRow("C") << QLocale::c() << QStringLiteral("5 Mar 2024 14:05:09");
    QTest::newRow("American") << QLocale(QLocale::English, QLocale::UnitedStates)
                              << QStringLiteral("3/5/2024 2:05:09 PM");
    QTest::newRow("British") << QLocale(QLocale::English, QLocale::UnitedKingdom)
                             << QStringLiteral("05/03/2024 14:05:09");
    QTest::newRow("German") << QLocale(QLocale::German, QLocale::Germany) << QStringLiteral("05.03.2024 14:05:09");
    QTest::newRow("Danish") << QLocale(QLocale::Danish, QLocale::Denmark) << QStringLiteral("05.03.2024 14.05.09");
}

void tst_modFiles::datesAreTextInTheShortFormat()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, text);
    QString written = ob::DateText(QDateTime(QDate(2024, 3, 5), QTime(14, 5, 9)), locale);
    // Newer locale data put another kind of space before AM and PM.
    written.replace(QChar(0x202F), u' ');
    QCOMPARE(written, text);
}

void tst_modFiles::namesAreFoundInAnyCase()
{
    Put(At(QStringLiteral("Lib.Bas")), "x");
    QCOMPARE(ob::FindIgnoringCase(folder->path(), QStringLiteral("lib.bas")).value_or(QString()),
             QStringLiteral("Lib.Bas"));
    QCOMPARE(ob::FindIgnoringCase(folder->path() + u'/', QStringLiteral("LIB.BAS")).value_or(QString()),
             QStringLiteral("Lib.Bas"));
    QVERIFY(!ob::FindIgnoringCase(folder->path(), QStringLiteral("lib.ba")));
    QVERIFY(!ob::FindIgnoringCase(folder->path(), QString()));
    QVERIFY(!ob::FindIgnoringCase(folder->path(), QStringLiteral("/")));
    QVERIFY(!ob::FindIgnoringCase(At(QStringLiteral("gone")), QStringLiteral("lib.bas")));
    QVERIFY(!ob::FindIgnoringCase(folder->path(), QStringLiteral("lib.bas") + QChar::Null));

    const QString oldFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder->path()));
    const std::optional<QString> inCurrent = ob::FindIgnoringCase(QString(), QStringLiteral("LIB.bas"));
    QVERIFY(QDir::setCurrent(oldFolder));
    QCOMPARE(inCurrent.value_or(QString()), QStringLiteral("Lib.Bas"));
}

void tst_modFiles::theNameAsWrittenComesFirst()
{
#ifdef Q_OS_LINUX
    Put(At(QStringLiteral("A.bas")), "x");
    Put(At(QStringLiteral("a.bas")), "x");
    QCOMPARE(ob::FindIgnoringCase(folder->path(), QStringLiteral("a.bas")).value_or(QString()),
             QStringLiteral("a.bas"));
    QCOMPARE(ob::FindIgnoringCase(folder->path(), QStringLiteral("A.bas")).value_or(QString()),
             QStringLiteral("A.bas"));
    QCOMPARE(ob::FindIgnoringCase(folder->path(), QStringLiteral("a.BAS")).value_or(QString()),
             QStringLiteral("A.bas"));
#else
    QSKIP("the disk minds no case");
#endif
}

void tst_modFiles::namesInFoldersAreFoundInAnyCase()
{
#ifdef Q_OS_LINUX
    QVERIFY(QDir(folder->path()).mkpath(QStringLiteral("Lib/Deep")));
    QVERIFY(QDir(folder->path()).mkpath(QStringLiteral("lib")));
    Put(At(QStringLiteral("Lib/Deep/X.bas")), "x");
    const auto find = [&](const char* name) {
        return ob::FindIgnoringCase(folder->path(), QLatin1String(name)).value_or(QStringLiteral("nothing"));
    };
    QCOMPARE(find("Lib/Deep/X.bas"), QStringLiteral("Lib/Deep/X.bas"));
    QCOMPARE(find("lib/deep/x.bas"), QStringLiteral("Lib/Deep/X.bas"));
    QCOMPARE(find("LIB\\deep\\x.BAS"), QStringLiteral("Lib/Deep/X.bas"));
    QCOMPARE(find("lib/../LIB/deep//x.bas"), QStringLiteral("lib/../Lib/Deep/X.bas"));
    QCOMPARE(find("lib/deep/y.bas"), QStringLiteral("nothing"));
    QCOMPARE(find("Lib/Deep/X.bas/z"), QStringLiteral("nothing"));
#else
    QSKIP("the disk minds no case");
#endif
}

QTEST_APPLESS_MAIN(tst_modFiles)
#include "tst_modFiles.moc"
