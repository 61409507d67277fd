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

using namespace Qt::StringLiterals;

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
    void aBareNameIsNeverTakenFromTheCurrentDirectory();
    void aProgramOfTheSearchPathComesBeforeOneOfTheCurrentDirectory();
    void aSettingThatNamesAFileIsTheProgram();
    void aSettingThatNamesNoFileIsACommandLine();
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
    const QByteArray log = QFile::encodeName(At(u"log"_s));
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
    const QString log = At(u"log"_s);
    if (!QTest::qWaitFor([&] { return QFileInfo::exists(log); }, 10000))
        return {u"nothing was written down"_s};
    QFile file(log);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    const QString directory = lines.takeFirst();
    if (QFileInfo(directory).canonicalFilePath() != QFileInfo(folder->path()).canonicalFilePath())
        lines.prepend(u"started in "_s + directory);
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
    QTest::newRow("spaces") << u"   "_s;
    QTest::newRow("missing") << u"/p/gone.exe x"_s;
    QTest::newRow("extension is not added twice") << u"/p/run.com"_s;
    QTest::newRow("quoted, missing") << u"\"/p/gone\" /p/run.exe"_s;
    QTest::newRow("nothing in quotes") << u"\"\" x"_s;
    QTest::newRow("one quote") << u"\""_s;
}

void tst_modLaunch::noFileMeansNoCommand()
{
    QFETCH(QString, line);
    const QSet<QString> files = {u"/p/run.exe"_s, u"/p/run.com.exe"_s, u".exe"_s};
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
    MakeProgram(u"engine"_s);
    ob::Launch(At(u"engine"_s) + u"  -R -A /tmp/a \"b c\""_s);
    QCOMPARE(WaitForLog().join(u' '), u"engine [-R] [-A] [/tmp/a] [b c]"_s);
}

void tst_modLaunch::aProgramWithSpacesInItsPathIsStarted()
{
    QVERIFY(QDir(folder->path()).mkdir(u"my programs"_s));
    MakeProgram(u"my programs/the engine"_s);
    ob::Launch(At(u"my programs/the engine"_s) + u"  -R x"_s, ob::WindowMode::Minimized);
    QCOMPARE(WaitForLog().join(u' '), u"my programs/the engine [-R] [x]"_s);
}

void tst_modLaunch::aKnownProgramGetsItsArgumentsUnchanged()
{
    MakeProgram(u"my engine"_s);
    ob::Launch(ob::ProgramCall{At(u"my engine"_s).toStdU16String(), {u"a b", u"\"c\"", u"", u"d\\"}});
    QCOMPARE(WaitForLog().join(u' '), u"my engine [a b] [\"c\"] [] [d\\]"_s);
}

void tst_modLaunch::anExtensionIsAddedToAProgramOnDisk()
{
    MakeProgram(u"engine.exe"_s);
    ob::Launch(At(u"engine"_s) + u" x"_s);
    QCOMPARE(WaitForLog().join(u' '), u"engine.exe [x]"_s);
}

void tst_modLaunch::aRelativeProgramIsTakenFromTheCurrentDirectory()
{
    MakeProgram(u"sleep"_s);
    ob::Launch(u"./sleep 0"_s);
    QCOMPARE(WaitForLog().join(u' '), u"sleep [0]"_s);
}

void tst_modLaunch::aBareNameIsNeverTakenFromTheCurrentDirectory()
{
    MakeProgram(u"orchard-of-a-project"_s);
    MakeProgram(u"orchard.exe"_s);
    QCOMPARE(LaunchError(u"orchard-of-a-project x"_s), fileNotFound);
    QCOMPARE(LaunchError(u"orchard.exe  -R -A x"_s), fileNotFound);
    QCOMPARE(LaunchError(u"orchard"_s), fileNotFound);
    for (const char* path : {".:", ":", "./", ""}) {
        qputenv("PATH", path);
        QCOMPARE(LaunchError(u"orchard-of-a-project x"_s), fileNotFound);
    }
    QVERIFY(!QFileInfo::exists(At(u"log"_s)));
}

void tst_modLaunch::aProgramOfTheSearchPathComesBeforeOneOfTheCurrentDirectory()
{
    QVERIFY(QDir(folder->path()).mkdir(u"tools"_s));
    MakeProgram(u"tools/viewer"_s);
    MakeProgram(u"viewer"_s);
    qputenv("PATH", ".:" + QFile::encodeName(At(u"tools"_s)) + ":" + oldPath);
    ob::Launch(u"viewer  a.txt"_s);
    QCOMPARE(WaitForLog().join(u' '), u"tools/viewer [a.txt]"_s);
}

void tst_modLaunch::aSettingThatNamesAFileIsTheProgram()
{
    QVERIFY(QDir(folder->path()).mkdir(u"My Apps"_s));
    MakeProgram(u"My"_s);
    MakeProgram(u"My Apps/orchard.exe"_s);
    ob::LaunchSetting(At(u"My Apps/orchard.exe"_s), u"  -R -A x"_s);
    QCOMPARE(WaitForLog().join(u' '), u"My Apps/orchard.exe [-R] [-A] [x]"_s);
}

void tst_modLaunch::aSettingThatNamesNoFileIsACommandLine()
{
    MakeProgram(u"engine"_s);
    ob::LaunchSetting(At(u"engine -s"_s), u"  -R -A x"_s);
    QCOMPARE(WaitForLog().join(u' '), u"engine [-s] [-R] [-A] [x]"_s);
}

void tst_modLaunch::aBareNameIsSearchedForOnTheSearchPath()
{
    QVERIFY(QDir(folder->path()).mkdir(u"tools"_s));
    MakeProgram(u"tools/viewer"_s);
    qputenv("PATH", QFile::encodeName(At(u"tools"_s)) + ":" + oldPath);
    ob::Launch(u"viewer  a.txt"_s);
    QCOMPARE(WaitForLog().join(u' '), u"tools/viewer [a.txt]"_s);
}

void tst_modLaunch::aProgramForWindowsRunsThroughWine()
{
    QVERIFY(QDir(folder->path()).mkdir(u"tools"_s));
    MakeProgram(u"tools/wine"_s);
    qputenv("PATH", QFile::encodeName(At(u"tools"_s)) + ":" + oldPath);
    MakeProgram(u"Orchard.EXE"_s, QByteArray("MZ\x90\0\n", 5));
    ob::Launch(u"./Orchard.EXE  -R -A x.bak"_s);
    const QStringList log = WaitForLog();
    QCOMPARE(log.size(), 5);
    QCOMPARE(log[0], u"tools/wine"_s);
    QCOMPARE(QFileInfo(log[1].mid(1, log[1].size() - 2)).canonicalFilePath(),
             QFileInfo(At(u"Orchard.EXE"_s)).canonicalFilePath());
    QCOMPARE(log.mid(2).join(u' '), u"[-R] [-A] [x.bak]"_s);
}

void tst_modLaunch::withoutWineTheStartFails()
{
    MakeProgram(u"orchard.exe"_s, QByteArray("MZ\x90\0\n", 5));
    qputenv("PATH", QFile::encodeName(folder->path()));
    QCOMPARE(LaunchError(At(u"orchard.exe"_s)), invalidCall);
}

void tst_modLaunch::aScriptWithThatExtensionRunsByItself()
{
    MakeProgram(u"wine"_s);
    MakeProgram(u"orchard.exe"_s);
    qputenv("PATH", QFile::encodeName(folder->path()) + ":" + oldPath);
    ob::Launch(At(u"orchard.exe"_s));
    QCOMPARE(WaitForLog().join(u' '), u"orchard.exe"_s);
}

void tst_modLaunch::aMissingProgramIsReported()
{
    QCOMPARE(LaunchError(At(u"gone.exe"_s) + u" x"_s), fileNotFound);
    QCOMPARE(LaunchError(u"surely-no-program-has-this-name x"_s), fileNotFound);
    QCOMPARE(LaunchError(QString()), fileNotFound);
    QCOMPARE(LaunchError(folder->path()), fileNotFound);
    QCOMPARE(LaunchError(u"no path  -R -A x"_s), fileNotFound);
}

void tst_modLaunch::aProgramThatIsNotExecutableIsReported()
{
    MakeProgram(u"engine"_s);
    QVERIFY(QFile::setPermissions(At(u"engine"_s), QFile::Permissions(0x6644)));
    QCOMPARE(LaunchError(At(u"engine"_s)), invalidCall);
    QVERIFY(!QFileInfo::exists(At(u"log"_s)));
}

QTEST_GUILESS_MAIN(tst_modLaunch)
#include "tst_modLaunch.moc"
