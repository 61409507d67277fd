// SPDX-License-Identifier: GPL-3.0-or-later
// Finding, reading and writing files without errors.
#include "platform/files/modFiles.h"

#include "platform/files/FileTrouble.h"
#include "platform/language/cRuntimeError.h"

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

using namespace Qt::StringLiterals;

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
    void aNameThatIsNoTextIsRefused();
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
    Put(At(u"a.bas"_s), "x");
    QVERIFY(ob::FileExists(At(u"a.bas"_s)));
    QVERIFY(!ob::FolderExists(At(u"a.bas"_s)));
    QVERIFY(!ob::FileExists(folder->path()));
    QVERIFY(ob::FolderExists(folder->path()));
    QVERIFY(!ob::FileExists(QString()));
    QVERIFY(!ob::FolderExists(QString()));
    QVERIFY(!ob::FileExists(At(u"b.bas"_s)));
    QVERIFY(!ob::FileExists(u"no path"_s));
    QVERIFY(!ob::FileExists(At(u"a.bas"_s) + QChar::Null));
#ifdef Q_OS_UNIX
    QVERIFY(QFile::link(At(u"a.bas"_s), At(u"link"_s)));
    QVERIFY(QFile::link(At(u"b.bas"_s), At(u"dangling"_s)));
    QVERIFY(QFile::link(folder->path(), At(u"folderlink"_s)));
    QVERIFY(ob::FileExists(At(u"link"_s)));
    QVERIFY(!ob::FileExists(At(u"dangling"_s)));
    QVERIFY(!ob::FileExists(At(u"folderlink"_s)));
    QVERIFY(ob::FolderExists(At(u"folderlink"_s)));
#endif
}

void tst_modFiles::readingGivesAllBytes()
{
    for (const qsizetype size : {qsizetype{0}, qsizetype{1}, qsizetype{65535}, qsizetype{65536}, qsizetype{1000003}}) {
        QByteArray bytes(size, '\0');
        for (qsizetype index = 0; index < size; ++index)
            bytes[index] = static_cast<char>(index * 31 + index / 256);
        Put(At(u"a.bin"_s), bytes);
        QCOMPARE(ob::ReadWhole(At(u"a.bin"_s)), bytes);
    }
}

void tst_modFiles::readingAMadeUpFileGivesAllBytes()
{
#ifdef Q_OS_LINUX
    const QByteArray status = ob::ReadWhole(u"/proc/self/status"_s);
    QVERIFY(status.startsWith("Name:\ttst_modFiles\n"));
    QVERIFY(status.endsWith('\n'));
#else
    QSKIP("has no such files");
#endif
}

void tst_modFiles::replacingMakesAndReplaces()
{
    const QString path = At(u"a.bas"_s);
    ob::ReplaceFile(path, QByteArrayView("first\0text", 10));
    QCOMPARE(Get(path), QByteArray("first\0text", 10));
    ob::ReplaceFile(path, "2");
    QCOMPARE(Get(path), QByteArray("2"));
    ob::ReplaceFile(path, {});
    QCOMPARE(Get(path), QByteArray());
    const QByteArray big(5000000, 'b');
    ob::ReplaceFile(path, big);
    QCOMPARE(Get(path), big);
    QCOMPARE(Entries(), QStringList{u"a.bas"_s});

    const QString longName = At(QString(255, u'n'));
    ob::ReplaceFile(longName, "long");
    QCOMPARE(Get(longName), QByteArray("long"));

    const QString oldFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder->path()));
    ob::ReplaceFile(u"relative.bas"_s, "here");
    QVERIFY(QDir::setCurrent(oldFolder));
    QCOMPARE(Get(At(u"relative.bas"_s)), QByteArray("here"));
}

void tst_modFiles::replacingKeepsPermissions()
{
#ifdef Q_OS_UNIX
    const QByteArray path = QFile::encodeName(At(u"a.bas"_s));
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
    ob::ReplaceFile(At(u"new.bas"_s), "x");
    ob::AppendToFile(At(u"newer.bas"_s), "x");
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
    QVERIFY(QDir(folder->path()).mkdir(u"sub"_s));
    Put(At(u"sub/real.bas"_s), "old");
    QCOMPARE(symlink("sub/real.bas", QFile::encodeName(At(u"one.bas"_s)).constData()), 0);
    QCOMPARE(symlink("one.bas", QFile::encodeName(At(u"two.bas"_s)).constData()), 0);
    ob::ReplaceFile(At(u"two.bas"_s), "new");
    QCOMPARE(Get(At(u"sub/real.bas"_s)), QByteArray("new"));
    QVERIFY(QFileInfo(At(u"one.bas"_s)).isSymLink());
    QVERIFY(QFileInfo(At(u"two.bas"_s)).isSymLink());
    QCOMPARE(QDir(At(u"sub"_s)).entryList(QDir::Files | QDir::Hidden).size(), 1);
#else
    QSKIP("links need rights here");
#endif
}

void tst_modFiles::replacingThroughADanglingLinkMakesItsTarget()
{
#ifdef Q_OS_UNIX
    QCOMPARE(symlink("real.bas", QFile::encodeName(At(u"link.bas"_s)).constData()), 0);
    ob::ReplaceFile(At(u"link.bas"_s), "new");
    QCOMPARE(Get(At(u"real.bas"_s)), QByteArray("new"));
    QVERIFY(QFileInfo(At(u"link.bas"_s)).isSymLink());
    QCOMPARE(symlink("made.bas", QFile::encodeName(At(u"other.bas"_s)).constData()), 0);
    ob::AppendToFile(At(u"other.bas"_s), "x");
    QCOMPARE(Get(At(u"made.bas"_s)), QByteArray("x\r\n"));
#else
    QSKIP("links need rights here");
#endif
}

void tst_modFiles::replacingWritesDevicesInPlace()
{
#ifdef Q_OS_UNIX
    ob::ReplaceFile(u"/dev/null"_s, "gone");
    struct stat status = {};
    QCOMPARE(stat("/dev/null", &status), 0);
    QVERIFY(S_ISCHR(status.st_mode));
    const QString pipe = At(u"pipe"_s);
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
    ob::ReplaceFile(u"/proc/self/fd/%1"_s.arg(ends[1]), "through the pipe");
    char bytes[100];
    const ssize_t count = read(ends[0], bytes, sizeof bytes);
    close(ends[0]);
    close(ends[1]);
    QCOMPARE(QByteArray(bytes, count), QByteArray("through the pipe"));
#else
    QSKIP("has no such paths");
#endif
}

void tst_modFiles::aNameThatIsNoTextIsRefused()
{
    // What a name with the byte FF becomes as text, which is the name of another file.
    const QString path = At(u"b\uFFFD.txt"_s);
    {
        QFile other(path);
        QVERIFY(other.open(QIODevice::WriteOnly) && other.write("other") == 5);
    }
    const auto isRefused = [&](auto call) {
        try {
            call();
        } catch (const ob::RuntimeError& error) {
            return error.number == 75 && error.source == path && error.reason.startsWith(u"the name has bytes"_s);
        }
        return false;
    };
    QVERIFY(isRefused([&] { ob::ReadWhole(path); }));
    QVERIFY(isRefused([&] { ob::ReplaceFile(path, "new"); }));
    QVERIFY(isRefused([&] { ob::AppendToFile(path, "new"); }));
    QVERIFY(isRefused([&] { ob::WriteKeepingTail(path, "new"); }));
    QCOMPARE(Get(path), QByteArray("other"));
}

void tst_modFiles::appendingAddsALineEnd()
{
    const QString path = At(u"game.BAK"_s);
    ob::AppendToFile(path, "one");
    ob::AppendToFile(path, QByteArrayView("t\0o", 3));
    ob::AppendToFile(path, {});
    QCOMPARE(Get(path), QByteArray("one\r\nt\0o\r\n\r\n", 12));
}

void tst_modFiles::writingKeepsALongerFilesTail()
{
    const QString path = At(u"wrapper32.bas"_s);
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
    QTest::newRow("absolute") << u"/a/b/c.bas"_s << u"/a/b/"_s << u"c.bas"_s;
    QTest::newRow("root") << u"/c.bas"_s << u"/"_s << u"c.bas"_s;
    QTest::newRow("bare") << u"c.bas"_s << QString() << u"c.bas"_s;
    QTest::newRow("relative") << u"a/c.bas"_s << u"a/"_s << u"c.bas"_s;
    QTest::newRow("folder") << u"/a/b/"_s << u"/a/b/"_s << QString();
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
    const QString path = At(u"a.bas"_s);
    Put(path, QByteArray(12345, 'x'));
    const QDateTime when(QDate(2024, 3, 5), QTime(14, 5, 9));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(when, QFileDevice::FileModificationTime));
    file.close();
    QCOMPARE(ob::SizeOf(path), 12345);
    QCOMPARE(ob::ModifiedOf(path), when);
    QCOMPARE(ob::FileDateText(path), ob::DateText(when, QLocale::system()));
    QVERIFY(ob::FileDateText(path).contains(u"2024"_s));
    for (const QString& gone : {At(u"gone"_s), folder->path(), QString()}) {
        QCOMPARE(ErrorOf([&] { ob::SizeOf(gone); }), fileNotFound);
        QCOMPARE(ErrorOf([&] { ob::ModifiedOf(gone); }), fileNotFound);
        QCOMPARE(ErrorOf([&] { ob::FileDateText(gone); }), fileNotFound);
    }
}

void tst_modFiles::datesAreTextInTheShortFormat_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("text");
    QTest::newRow("C") << QLocale::c() << u"5 Mar 2024 14:05:09"_s;
    QTest::newRow("American") << QLocale(QLocale::English, QLocale::UnitedStates) << u"3/5/2024 2:05:09 PM"_s;
    QTest::newRow("British") << QLocale(QLocale::English, QLocale::UnitedKingdom) << u"05/03/2024 14:05:09"_s;
    QTest::newRow("German") << QLocale(QLocale::German, QLocale::Germany) << u"05.03.2024 14:05:09"_s;
    QTest::newRow("Danish") << QLocale(QLocale::Danish, QLocale::Denmark) << u"05.03.2024 14.05.09"_s;
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
    Put(At(u"Lib.Bas"_s), "x");
    QCOMPARE(ob::FindIgnoringCase(folder->path(), u"lib.bas"_s).value_or(QString()), u"Lib.Bas"_s);
    QCOMPARE(ob::FindIgnoringCase(folder->path() + u'/', u"LIB.BAS"_s).value_or(QString()), u"Lib.Bas"_s);
    QVERIFY(!ob::FindIgnoringCase(folder->path(), u"lib.ba"_s));
    QVERIFY(!ob::FindIgnoringCase(folder->path(), QString()));
    QVERIFY(!ob::FindIgnoringCase(folder->path(), u"/"_s));
    QVERIFY(!ob::FindIgnoringCase(At(u"gone"_s), u"lib.bas"_s));
    QVERIFY(!ob::FindIgnoringCase(folder->path(), u"lib.bas"_s + QChar::Null));

    const QString oldFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder->path()));
    const std::optional<QString> inCurrent = ob::FindIgnoringCase(QString(), u"LIB.bas"_s);
    QVERIFY(QDir::setCurrent(oldFolder));
    QCOMPARE(inCurrent.value_or(QString()), u"Lib.Bas"_s);
}

void tst_modFiles::theNameAsWrittenComesFirst()
{
#ifdef Q_OS_LINUX
    Put(At(u"A.bas"_s), "x");
    Put(At(u"a.bas"_s), "x");
    QCOMPARE(ob::FindIgnoringCase(folder->path(), u"a.bas"_s).value_or(QString()), u"a.bas"_s);
    QCOMPARE(ob::FindIgnoringCase(folder->path(), u"A.bas"_s).value_or(QString()), u"A.bas"_s);
    QCOMPARE(ob::FindIgnoringCase(folder->path(), u"a.BAS"_s).value_or(QString()), u"A.bas"_s);
#else
    QSKIP("the disk minds no case");
#endif
}

void tst_modFiles::namesInFoldersAreFoundInAnyCase()
{
#ifdef Q_OS_LINUX
    QVERIFY(QDir(folder->path()).mkpath(u"Lib/Deep"_s));
    QVERIFY(QDir(folder->path()).mkpath(u"lib"_s));
    Put(At(u"Lib/Deep/X.bas"_s), "x");
    const auto find = [&](const char* name) {
        return ob::FindIgnoringCase(folder->path(), QLatin1String(name)).value_or(u"nothing"_s);
    };
    QCOMPARE(find("Lib/Deep/X.bas"), u"Lib/Deep/X.bas"_s);
    QCOMPARE(find("lib/deep/x.bas"), u"Lib/Deep/X.bas"_s);
    QCOMPARE(find("LIB\\deep\\x.BAS"), u"Lib/Deep/X.bas"_s);
    QCOMPARE(find("lib/../LIB/deep//x.bas"), u"lib/../Lib/Deep/X.bas"_s);
    QCOMPARE(find("lib/deep/y.bas"), u"nothing"_s);
    QCOMPARE(find("Lib/Deep/X.bas/z"), u"nothing"_s);
#else
    QSKIP("the disk minds no case");
#endif
}

QTEST_APPLESS_MAIN(tst_modFiles)
#include "tst_modFiles.moc"
