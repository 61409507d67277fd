// SPDX-License-Identifier: GPL-3.0-or-later
// The program's folders and the forms of a path.
#include "platform/files/modPaths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;

class tst_modPaths : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void theExecutablesFolderIsThatOfTheTest();
    void theProgramsFolderIsTheExecutablesWhereItCanBeWritten();
    void theProgramsFolderIsTheUsersWhereTheExecutablesIsClosed();
    void theAttemptToWriteLeavesNoFile();
    void aFolderSetForATestCountsUntilItIsReset();
    void aLibraryIsTakenOnlyFromBesideTheExecutable();
    void theLibrarysFolderCanBeSet();
    void longAndShortPathsAreThePathOfWhatExists();
    void absolutePathsStartAtTheRoot();
};

void tst_modPaths::cleanup()
{
    ob::SetProgramFolder({});
    ob::SetLibraryFolder({});
}

void tst_modPaths::theExecutablesFolderIsThatOfTheTest()
{
    QVERIFY(QFileInfo(ob::ExecutableFolder()).isDir());
    QCOMPARE(QFileInfo(ob::ExecutableFolder()).canonicalFilePath(),
             QFileInfo(QCoreApplication::applicationFilePath()).canonicalPath());
}

void tst_modPaths::theProgramsFolderIsTheExecutablesWhereItCanBeWritten()
{
    if (!QFileInfo(ob::ExecutableFolder()).isWritable())
        QSKIP("the test's own folder is closed");
    QCOMPARE(ob::ProgramFolder(), ob::ExecutableFolder());
    QCOMPARE(ob::ProgramFile(u"keywords.txt"_s), ob::ExecutableFolder() + QDir::separator() + u"keywords.txt"_s);
}

// Runs a copy of this test from a folder to which an ordinary user cannot write.
void tst_modPaths::theProgramsFolderIsTheUsersWhereTheExecutablesIsClosed()
{
#ifdef Q_OS_LINUX
    QTemporaryDir folder;
    QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7755)));
    QVERIFY(QDir(folder.path()).mkdir(u"bin"_s));
    QVERIFY(QDir(folder.path()).mkdir(u"data"_s));
    const QString copy = folder.filePath(u"bin/copy"_s);
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), copy));
    QVERIFY(QFile::setPermissions(copy, QFile::Permissions(0x7755)));
    QVERIFY(QFile::setPermissions(folder.filePath(u"data"_s), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(folder.filePath(u"bin"_s), QFile::Permissions(0x5555)));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_DATA_HOME"_s, folder.filePath(u"data"_s));
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([] {
        if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
            ::_exit(9);
    });
    process.start(copy, {u"--print-program-folder"_s});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QString expected = folder.filePath(u"data/orchard-bench"_s);
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()), expected);
    QVERIFY(QFileInfo(expected).isDir());
    QCOMPARE(QDir(folder.filePath(u"bin"_s)).entryList(QDir::Files | QDir::Hidden).size(), 1);
    QVERIFY(QFile::setPermissions(folder.filePath(u"bin"_s), QFile::Permissions(0x7777)));
#else
    QSKIP("needs the other system's permissions");
#endif
}

void tst_modPaths::theAttemptToWriteLeavesNoFile()
{
    const QDir dir(ob::ExecutableFolder());
    const QStringList before = dir.entryList({u"*ob*tmp*"_s}, QDir::AllEntries | QDir::Hidden);
    ob::ProgramFolder();
    QCOMPARE(dir.entryList({u"*ob*tmp*"_s}, QDir::AllEntries | QDir::Hidden), before);
}

void tst_modPaths::aFolderSetForATestCountsUntilItIsReset()
{
    const QString usual = ob::ProgramFolder();
    const QTemporaryDir folder;
    ob::SetProgramFolder(folder.path() + u'/');
    QCOMPARE(ob::ProgramFolder(), QDir::toNativeSeparators(folder.path()));
    QCOMPARE(ob::ProgramFile(u"untitled.bak"_s), QDir::toNativeSeparators(folder.filePath(u"untitled.bak"_s)));
    ob::SetProgramFolder({});
    QCOMPARE(ob::ProgramFolder(), usual);
    ob::SetProgramFolder(QDir::rootPath());
    QCOMPARE(ob::ProgramFile(u"x"_s), QDir::toNativeSeparators(QDir::rootPath()) + u'x');
}

void tst_modPaths::aLibraryIsTakenOnlyFromBesideTheExecutable()
{
#ifdef Q_OS_WIN
    const QString file = u"NoSuchLibrary.dll"_s;
#else
    const QString file = u"NoSuchLibrary.so"_s;
#endif
    const QTemporaryDir folder;
    ob::SetProgramFolder(folder.path());
    QFile library(folder.filePath(file));
    QVERIFY(library.open(QIODevice::WriteOnly));
    library.close();
    QCOMPARE(ob::LibraryFile(u"NoSuchLibrary"_s), ob::ExecutableFolder() + QDir::separator() + file);
}

void tst_modPaths::theLibrarysFolderCanBeSet()
{
    const QTemporaryDir folder;
    ob::SetLibraryFolder(folder.path());
    const QString path = ob::LibraryFile(u"SciLexerOB"_s);
    QCOMPARE(QFileInfo(path).path(), folder.path());
    QCOMPARE(QFileInfo(path).completeBaseName(), u"SciLexerOB"_s);
}

void tst_modPaths::longAndShortPathsAreThePathOfWhatExists()
{
#ifdef Q_OS_WIN
    QSKIP("the system has short names of its own");
#endif
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"A long name.bas"_s);
    QCOMPARE(ob::LongPathOf(path), u"error"_s);
    QCOMPARE(ob::ShortPathOf(path), u"error"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QCOMPARE(ob::LongPathOf(path), path);
    QCOMPARE(ob::ShortPathOf(path), path);
    QCOMPARE(ob::LongPathOf(folder.path()), folder.path());
    QCOMPARE(ob::LongPathOf({}), u"error"_s);
    QCOMPARE(ob::LongPathOf(path + QChar::Null), u"error"_s);

    const QString link = folder.filePath(u"link"_s);
    QVERIFY(QFile::link(path, link));
    QCOMPARE(ob::LongPathOf(link), link);

    const QString oldFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    QCOMPARE(ob::LongPathOf(u"untitled"_s), u"error"_s);
    QVERIFY(QFile::copy(path, u"untitled"_s));
    QCOMPARE(ob::LongPathOf(u"untitled"_s), u"untitled"_s);
    QVERIFY(QDir::setCurrent(oldFolder));
}

void tst_modPaths::absolutePathsStartAtTheRoot()
{
    const QString here = QDir::toNativeSeparators(QDir::currentPath());
    QCOMPARE(ob::AbsolutePathOf(u"a.bas"_s), here + QDir::separator() + u"a.bas"_s);
    QCOMPARE(ob::AbsolutePathOf(u"./x/../a.bas"_s), here + QDir::separator() + u"a.bas"_s);
    QCOMPARE(ob::AbsolutePathOf(here), here);
    QCOMPARE(ob::AbsolutePathOf({}), QString());
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc == 2 && qstrcmp(argv[1], "--print-program-folder") == 0) {
        QFile out;
        const QByteArray folder = ob::ProgramFolder().toUtf8();
        return out.open(1, QIODevice::WriteOnly) && out.write(folder) == folder.size() ? 0 : 1;
    }
    tst_modPaths test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_modPaths.moc"
