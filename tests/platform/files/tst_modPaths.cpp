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

class tst_modPaths : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void theExecutablesFolderIsThatOfTheTest();
    void theProgramsFolderIsTheExecutablesWhereItCanBeWritten();
    void theProgramsFolderIsTheUsersWhereTheExecutablesIsClosed();
    void theAttemptToWriteLeavesNoFile();
    void aFolderSetForATestCountsUntilItIsReset();
    void theLibraryIsTakenFromTheProgramsFolderFirst();
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
    QCOMPARE(ob::ProgramFile(QStringLiteral("keywords.txt")),
             ob::ExecutableFolder() + QDir::separator() + QStringLiteral("keywords.txt"));
}

// Runs a copy of this test from a folder to which an ordinary user cannot write.
void tst_modPaths::theProgramsFolderIsTheUsersWhereTheExecutablesIsClosed()
{
#ifdef Q_OS_LINUX
    QTemporaryDir folder;
    QVERIFY(QFile::setPermissions(folder.path(), QFile::Permissions(0x7755)));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("bin")));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("data")));
    const QString copy = folder.filePath(QStringLiteral("bin/copy"));
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), copy));
    QVERIFY(QFile::setPermissions(copy, QFile::Permissions(0x7755)));
    QVERIFY(QFile::setPermissions(folder.filePath(QStringLiteral("data")), QFile::Permissions(0x7777)));
    QVERIFY(QFile::setPermissions(folder.filePath(QStringLiteral("bin")), QFile::Permissions(0x5555)));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), folder.filePath(QStringLiteral("data")));
    process.setProcessEnvironment(environment);
    process.setChildProcessModifier([] {
        if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0))
            ::_exit(9);
    });
    process.start(copy, {QStringLiteral("--print-program-folder")});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QString expected = folder.filePath(QStringLiteral("data/orchard-bench"));
    QCOMPARE(QString::fromUtf8(process.readAllStandardOutput()), expected);
    QVERIFY(QFileInfo(expected).isDir());
    QCOMPARE(QDir(folder.filePath(QStringLiteral("bin"))).entryList(QDir::Files | QDir::Hidden).size(), 1);
    QVERIFY(QFile::setPermissions(folder.filePath(QStringLiteral("bin")), QFile::Permissions(0x7777)));
#else
    QSKIP("needs the other system's permissions");
#endif
}

void tst_modPaths::theAttemptToWriteLeavesNoFile()
{
    const QDir dir(ob::ExecutableFolder());
    const QStringList before = dir.entryList({QStringLiteral("*ob*tmp*")}, QDir::AllEntries | QDir::Hidden);
    ob::ProgramFolder();
    QCOMPARE(dir.entryList({QStringLiteral("*ob*tmp*")}, QDir::AllEntries | QDir::Hidden), before);
}

void tst_modPaths::aFolderSetForATestCountsUntilItIsReset()
{
    const QString usual = ob::ProgramFolder();
    const QTemporaryDir folder;
    ob::SetProgramFolder(folder.path() + u'/');
    QCOMPARE(ob::ProgramFolder(), QDir::toNativeSeparators(folder.path()));
    QCOMPARE(ob::ProgramFile(QStringLiteral("untitled.bak")),
             QDir::toNativeSeparators(folder.filePath(QStringLiteral("untitled.bak"))));
    ob::SetProgramFolder({});
    QCOMPARE(ob::ProgramFolder(), usual);
    ob::SetProgramFolder(QDir::rootPath());
    QCOMPARE(ob::ProgramFile(QStringLiteral("x")), QDir::toNativeSeparators(QDir::rootPath()) + u'x');
}

void tst_modPaths::theLibraryIsTakenFromTheProgramsFolderFirst()
{
#ifdef Q_OS_WIN
    const QString file = QStringLiteral("NoSuchLibrary.dll");
#else
    const QString file = QStringLiteral("NoSuchLibrary.so");
#endif
    const QTemporaryDir folder;
    ob::SetProgramFolder(folder.path());
    QCOMPARE(ob::LibraryFile(QStringLiteral("NoSuchLibrary")), ob::ExecutableFolder() + QDir::separator() + file);
    QFile library(folder.filePath(file));
    QVERIFY(library.open(QIODevice::WriteOnly));
    library.close();
    QCOMPARE(ob::LibraryFile(QStringLiteral("NoSuchLibrary")), QDir::toNativeSeparators(folder.filePath(file)));
}

void tst_modPaths::theLibrarysFolderCanBeSet()
{
    const QTemporaryDir folder;
    ob::SetLibraryFolder(folder.path());
    const QString path = ob::LibraryFile(QStringLiteral("SciLexerOB"));
    QCOMPARE(QFileInfo(path).path(), folder.path());
    QCOMPARE(QFileInfo(path).completeBaseName(), QStringLiteral("SciLexerOB"));
}

void tst_modPaths::longAndShortPathsAreThePathOfWhatExists()
{
#ifdef Q_OS_WIN
    QSKIP("the system has short names of its own");
#endif
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("A long name.bas"));
    QCOMPARE(ob::LongPathOf(path), QStringLiteral("error"));
    QCOMPARE(ob::ShortPathOf(path), QStringLiteral("error"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QCOMPARE(ob::LongPathOf(path), path);
    QCOMPARE(ob::ShortPathOf(path), path);
    QCOMPARE(ob::LongPathOf(folder.path()), folder.path());
    QCOMPARE(ob::LongPathOf({}), QStringLiteral("error"));
    QCOMPARE(ob::LongPathOf(path + QChar::Null), QStringLiteral("error"));

    const QString link = folder.filePath(QStringLiteral("link"));
    QVERIFY(QFile::link(path, link));
    QCOMPARE(ob::LongPathOf(link), link);

    const QString oldFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder.path()));
    QCOMPARE(ob::LongPathOf(QStringLiteral("untitled")), QStringLiteral("error"));
    QVERIFY(QFile::copy(path, QStringLiteral("untitled")));
    QCOMPARE(ob::LongPathOf(QStringLiteral("untitled")), QStringLiteral("untitled"));
    QVERIFY(QDir::setCurrent(oldFolder));
}

void tst_modPaths::absolutePathsStartAtTheRoot()
{
    const QString here = QDir::toNativeSeparators(QDir::currentPath());
    QCOMPARE(ob::AbsolutePathOf(QStringLiteral("a.bas")), here + QDir::separator() + QStringLiteral("a.bas"));
    QCOMPARE(ob::AbsolutePathOf(QStringLiteral("./x/../a.bas")), here + QDir::separator() + QStringLiteral("a.bas"));
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
