// SPDX-License-Identifier: GPL-3.0-or-later
// Resolving and splitting command lines, and real processes that record how they were called.
#include "platform/desktop/modLaunch.h"

#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

constexpr int invalidCall = 5;
constexpr int fileNotFound = 53;

int LaunchError(const QString& commandLine)
{
    try {
        ob::Launch(commandLine);
    } catch (const ob::RuntimeError& error) {
        return error.number;
    }
    return 0;
}

} // namespace

class tst_modLaunch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theShortestFirstPartThatIsAFileIsTheProgram_data();
    void theShortestFirstPartThatIsAFileIsTheProgram();
    void noFileMeansNoCommand_data();
    void noFileMeansNoCommand();
    void argumentsAreSplitAtSpaces_data();
    void argumentsAreSplitAtSpaces();

    void aProgramIsStartedWithItsArguments();
    void aProgramWithSpacesInItsPathIsStarted();
    void aKnownProgramGetsItsArgumentsUnchanged();
    void anExtensionIsAddedToAProgramOnDisk();
    void aRelativeProgramIsTakenFromTheCurrentDirectory();
    void aBareNameIsSearchedForOnTheSearchPath();
    void aProgramForWindowsRunsThroughWine();
    void withoutWineTheStartFails();
    void aScriptWithThatExtensionRunsByItself();
    void aMissingProgramIsReported();
    void aProgramThatIsNotExecutableIsReported();

private:
    QString At(const QString& name) const { return folder->filePath(name); }
    // A program that writes its working directory and its arguments, one a line, into the log.
    void MakeProgram(const QString& name, const QByteArray& start = "#!/bin/sh\n") const;
    QStringList WaitForLog() const;

    std::unique_ptr<QTemporaryDir> folder;
    QByteArray oldPath;
    QString oldFolder;
};

void tst_modLaunch::init()
{
    folder = std::make_unique<QTemporaryDir>();
    oldPath = qgetenv("PATH");
    oldFolder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder->path()));
}

void tst_modLaunch::cleanup()
{
    qputenv("PATH", oldPath);
    QVERIFY(QDir::setCurrent(oldFolder));
    folder.reset();
}

void tst_modLaunch::MakeProgram(const QString& name, const QByteArray& start) const
{
    const QByteArray log = QFile::encodeName(At(QStringLiteral("log")));
    QFile file(At(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(start);
    file.write("{ pwd; echo \"" + QFile::encodeName(name) + "\"; for part in \"$@\"; do echo \"[$part]\"; done; } >'" +
               log + ".new'\nmv '" + log + ".new' '" + log + "'\n");
    file.close();
    QVERIFY(file.setPermissions(QFile::Permissions(0x7755)));
}

QStringList tst_modLaunch::WaitForLog() const
{
    const QString log = At(QStringLiteral("log"));
    if (!QTest::qWaitFor([&] { return QFileInfo::exists(log); }, 10000))
        return {QStringLiteral("nothing was written down")};
    QFile file(log);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    const QString directory = lines.takeFirst();
    if (QFileInfo(directory).canonicalFilePath() != QFileInfo(folder->path()).canonicalFilePath())
        lines.prepend(QStringLiteral("started in ") + directory);
    return lines;
}

void tst_modLaunch::theShortestFirstPartThatIsAFileIsTheProgram_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("argumentText");
    const auto row = [](const char* name, const char* line, const char* files, const char* program, const char* rest) {
        QTest::newRow(name) << QString::fromLatin1(line) << QString::fromLatin1(files).split(u'|')
                            << QString::fromLatin1(program) << QString::fromLatin1(rest);
    };
    row("alone", "/p/orchard.exe", "/p/orchard.exe", "/p/orchard.exe", "");
    row("run line", "/p/orchard.exe  -R -A /t/x.bak", "/p/orchard.exe", "/p/orchard.exe", "-R -A /t/x.bak");
    row("space in path", "/my p/orchard.exe  -R -A x", "/my p/orchard.exe", "/my p/orchard.exe", "-R -A x");
    row("shorter file wins", "/my p/orchard.exe x", "/my|/my p/orchard.exe", "/my", "p/orchard.exe x");
    row("shorter with extension wins", "/my p/orchard.exe x", "/my.exe|/my p/orchard.exe", "/my.exe",
        "p/orchard.exe x");
    row("as written before extension", "/p/run x", "/p/run|/p/run.exe", "/p/run", "x");
    row("extension added", "/p/run x", "/p/run.exe", "/p/run.exe", "x");
    row("dot in a folder is not an extension", "/p.d/run x", "/p.d/run.exe", "/p.d/run.exe", "x");
    row("two spaces in path", "/my  p/run.exe x", "/my  p/run.exe", "/my  p/run.exe", "x");
    row("no file ends in a space", "/my  p/run.exe x", "/my |/my  p/run.exe", "/my  p/run.exe", "x");
    row("tab", "/p/run.exe\tx", "/p/run.exe", "/p/run.exe", "x");
    row("spaces before", "   /p/run.exe x", "/p/run.exe", "/p/run.exe", "x");
    row("spaces at the end stay", "/p/run.exe x  ", "/p/run.exe", "/p/run.exe", "x  ");
    row("backslashes", "c:\\my p\\run x", "c:\\my p\\run.exe", "c:\\my p\\run.exe", "x");
    row("quoted", "\"/my p/run.exe\" x y", "/my|/my p/run.exe", "/my p/run.exe", "x y");
    row("quoted, extension added", "\"/my p/run\"  x", "/my p/run.exe", "/my p/run.exe", "x");
    row("quoted, text at once", "\"/p/run.exe\"x", "/p/run.exe", "/p/run.exe", "x");
    row("quote left open", "\"/my p/run.exe", "/my p/run.exe", "/my p/run.exe", "");
    row("bare name", "notepad a.txt", "notepad.exe", "notepad.exe", "a.txt");
}

void tst_modLaunch::theShortestFirstPartThatIsAFileIsTheProgram()
{
    QFETCH(QString, line);
    QFETCH(QStringList, files);
    QFETCH(QString, program);
    QFETCH(QString, argumentText);
    const auto command = ob::ResolveCommand(line, [&](const QString& path) { return files.contains(path); });
    QVERIFY(command.has_value());
    QCOMPARE(command->program, program);
    QCOMPARE(command->argumentText, argumentText);
    QCOMPARE(command->arguments, ob::SplitArguments(argumentText));
}

void tst_modLaunch::noFileMeansNoCommand_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << QString();
    QTest::newRow("spaces") << QStringLiteral("   ");
    QTest::newRow("missing") << QStringLiteral("/p/gone.exe x");
    QTest::newRow("extension is not added twice") << QStringLiteral("/p/run.com");
    QTest::newRow("quoted, missing") << QStringLiteral("\"/p/gone\" /p/run.exe");
    QTest::newRow("nothing in quotes") << QStringLiteral("\"\" x");
    QTest::newRow("one quote") << QStringLiteral("\"");
}

void tst_modLaunch::noFileMeansNoCommand()
{
    QFETCH(QString, line);
    const QSet<QString> files = {QStringLiteral("/p/run.exe"), QStringLiteral("/p/run.com.exe"),
                                 QStringLiteral(".exe")};
    QVERIFY(!ob::ResolveCommand(line, [&](const QString& path) { return files.contains(path); }));
}

void tst_modLaunch::argumentsAreSplitAtSpaces_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("arguments");
    const auto row = [](const char* text, const QStringList& arguments) {
        QTest::newRow(text) << QString::fromLatin1(text) << arguments;
    };
    const auto L = [](const char* text) { return QString::fromLatin1(text); };
    row("", {});
    row("   ", {});
    row("-R -A /t/x.bak", {L("-R"), L("-A"), L("/t/x.bak")});
    row("  -R   -A\t x ", {L("-R"), L("-A"), L("x")});
    row("\"a b\" c", {L("a b"), L("c")});
    row("a\" b\"c d", {L("a bc"), L("d")});
    row("\"\" x", {QString(), L("x")});
    row("x \"\"", {L("x"), QString()});
    row("\"a b", {L("a b")});
    row("\"c:\\my p\\\" x", {L("c:\\my p\\"), L("x")});
}

void tst_modLaunch::argumentsAreSplitAtSpaces()
{
    QFETCH(QString, text);
    QFETCH(QStringList, arguments);
    QCOMPARE(ob::SplitArguments(text), arguments);
}

void tst_modLaunch::aProgramIsStartedWithItsArguments()
{
    MakeProgram(QStringLiteral("engine"));
    ob::Launch(At(QStringLiteral("engine")) + QStringLiteral("  -R -A /tmp/a \"b c\""));
    QCOMPARE(WaitForLog().join(u' '), QStringLiteral("engine [-R] [-A] [/tmp/a] [b c]"));
}

void tst_modLaunch::aProgramWithSpacesInItsPathIsStarted()
{
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("my programs")));
    MakeProgram(QStringLiteral("my programs/the engine"));
    ob::Launch(At(QStringLiteral("my programs/the engine")) + QStringLiteral("  -R x"), ob::WindowMode::Minimized);
    QCOMPARE(WaitForLog().join(u' '), QStringLiteral("my programs/the engine [-R] [x]"));
}

void tst_modLaunch::aKnownProgramGetsItsArgumentsUnchanged()
{
    MakeProgram(QStringLiteral("my engine"));
    ob::Launch(ob::ProgramCall{At(QStringLiteral("my engine")).toStdU16String(), {u"a b", u"\"c\"", u"", u"d\\"}});
    QCOMPARE(WaitForLog().join(u' '), QStringLiteral("my engine [a b] [\"c\"] [] [d\\]"));
}

void tst_modLaunch::anExtensionIsAddedToAProgramOnDisk()
{
    MakeProgram(QStringLiteral("engine.exe"));
    ob::Launch(At(QStringLiteral("engine")) + QStringLiteral(" x"));
    QCOMPARE(WaitForLog().join(u' '), QStringLiteral("engine.exe [x]"));
}

void tst_modLaunch::aRelativeProgramIsTakenFromTheCurrentDirectory()
{
    MakeProgram(QStringLiteral("sleep"));
    ob::Launch(QStringLiteral("sleep 0"));
    QCOMPARE(WaitForLog().join(u' '), QStringLiteral("sleep [0]"));
}

void tst_modLaunch::aBareNameIsSearchedForOnTheSearchPath()
{
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("tools")));
    MakeProgram(QStringLiteral("tools/viewer"));
    qputenv("PATH", QFile::encodeName(At(QStringLiteral("tools"))) + ":" + oldPath);
    ob::Launch(QStringLiteral("viewer  a.txt"));
    QCOMPARE(WaitForLog().join(u' '), QStringLiteral("tools/viewer [a.txt]"));
}

void tst_modLaunch::aProgramForWindowsRunsThroughWine()
{
    QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("tools")));
    MakeProgram(QStringLiteral("tools/wine"));
    qputenv("PATH", QFile::encodeName(At(QStringLiteral("tools"))) + ":" + oldPath);
    MakeProgram(QStringLiteral("Orchard.EXE"), QByteArray("MZ\x90\0\n", 5));
    ob::Launch(QStringLiteral("Orchard.EXE  -R -A x.bak"));
    const QStringList log = WaitForLog();
    QCOMPARE(log.size(), 5);
    QCOMPARE(log[0], QStringLiteral("tools/wine"));
    QCOMPARE(QFileInfo(log[1].mid(1, log[1].size() - 2)).canonicalFilePath(),
             QFileInfo(At(QStringLiteral("Orchard.EXE"))).canonicalFilePath());
    QCOMPARE(log.mid(2).join(u' '), QStringLiteral("[-R] [-A] [x.bak]"));
}

void tst_modLaunch::withoutWineTheStartFails()
{
    MakeProgram(QStringLiteral("orchard.exe"), QByteArray("MZ\x90\0\n", 5));
    qputenv("PATH", QFile::encodeName(folder->path()));
    QCOMPARE(LaunchError(At(QStringLiteral("orchard.exe"))), invalidCall);
}

void tst_modLaunch::aScriptWithThatExtensionRunsByItself()
{
    MakeProgram(QStringLiteral("wine"));
    MakeProgram(QStringLiteral("orchard.exe"));
    qputenv("PATH", QFile::encodeName(folder->path()) + ":" + oldPath);
    ob::Launch(At(QStringLiteral("orchard.exe")));
    QCOMPARE(WaitForLog().join(u' '), QStringLiteral("orchard.exe"));
}

void tst_modLaunch::aMissingProgramIsReported()
{
    QCOMPARE(LaunchError(At(QStringLiteral("gone.exe")) + QStringLiteral(" x")), fileNotFound);
    QCOMPARE(LaunchError(QStringLiteral("surely-no-program-has-this-name x")), fileNotFound);
    QCOMPARE(LaunchError(QString()), fileNotFound);
    QCOMPARE(LaunchError(folder->path()), fileNotFound);
    QCOMPARE(LaunchError(QStringLiteral("no path  -R -A x")), fileNotFound);
}

void tst_modLaunch::aProgramThatIsNotExecutableIsReported()
{
    MakeProgram(QStringLiteral("engine"));
    QVERIFY(QFile::setPermissions(At(QStringLiteral("engine")), QFile::Permissions(0x6644)));
    QCOMPARE(LaunchError(At(QStringLiteral("engine"))), invalidCall);
    QVERIFY(!QFileInfo::exists(At(QStringLiteral("log"))));
}

QTEST_GUILESS_MAIN(tst_modLaunch)
#include "tst_modLaunch.moc"
