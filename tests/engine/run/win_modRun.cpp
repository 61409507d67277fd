// SPDX-License-Identifier: GPL-3.0-or-later
// Run, debug and token commands with a real process as the engine; open, insert, save and save project.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "engine/run/modRun.h"
#include "shell/state/Module1.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QStatusBar>

using namespace ob;

namespace {

const QString NotFound = QStringLiteral(" was not found.  Be sure to specify the path to Orchard BASIC in Options!");
const QString EngineFilter = QStringLiteral("Orchard BASIC |orchard.exe;*.exe;");
const QString SaveAsFilter = QStringLiteral("BASIC code (*.bas),(*.bak)|*.bas;*.bak|All Files (*.*)| *.*");

QString StatusOf(TestBench& bench)
{
    return bench.Frame().findChild<QLabel*>(QStringLiteral("statusText"))->text();
}

} // namespace

class win_modRun : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void engineGetsTheCopyAndItsSwitches_data();
    void engineGetsTheCopyAndItsSwitches();
    void includesAreAppendedToTheCopy();
    void untitledWindowRunsFromTheProgramFolder();
    void secondRunOfAnUntitledWindow();
    void ranWindowClosesWithoutAQuestion();
    void nothingHappensWithoutAWindow();
    void engineIsRequestedAndKept();
    void engineNotFoundLeavesTheCopyUnwritten();
    void copyThatCannotBeWrittenIsNotRun();
    void engineThatCannotStartIsARuntimeError();
    void bareEngineStartsAlone();
    void tokenRunsOnTheRuntimeEngine();
    void tokenThatVanishedIsReported();
    void runtimeSearchCanBeCancelled();
    void freeformRunsByItsExtension_data();
    void freeformRunsByItsExtension();
    void freeformHintHasItsNul();
    void openCodeFileRemembersItsFolder();
    void openOfNothingChangesNothing();
    void insertedLinesAllEndInCrLf();
    void saveAsRenamesTheWindow();
    void untitledSaveAsksForAName();
    void failedSaveAsKeepsTheOldName();
    void saveProjectMergesTheIncludes();
};

void win_modRun::engineGetsTheCopyAndItsSwitches_data()
{
    QTest::addColumn<QString>("item");
    QTest::addColumn<QStringList>("switches");
    const auto row = [](const char* item, const char* first, const char* second) {
        QTest::newRow(item) << QString::fromLatin1(item)
                            << QStringList{QString::fromLatin1(first), QString::fromLatin1(second)};
    };
    row("mnuRun", "-R", "-A");
    row("mnuTKN", "-A", "-T");
    row("mnuDebug", "-A", "-D");
}

void win_modRun::engineGetsTheCopyAndItsSwitches()
{
    QFETCH(QString, item);
    QFETCH(QStringList, switches);
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("game.bas"), "print 1\r\n");
    bench.Start({path});
    OBPath = bench.MakeEngine();
    TestBench::Type(bench.Active(), "cls : ");
    bench.Choose(item);
    const EngineCall call = bench.WaitForEngine();
    const QString copy = bench.Path(QStringLiteral("game.BAK"));
    QCOMPARE(call.arguments, switches + QStringList{copy});
    QCOMPARE(call.copy, QByteArray("cls : print 1 \r\n"));
    QCOMPARE(TestBench::Read(path), QByteArray("print 1\r\n"));
    QCOMPARE(bench.Active()->Caption(), path);
}

void win_modRun::includesAreAppendedToTheCopy()
{
    TestBench bench;
    bench.Write(QStringLiteral("lib.bas"), "sub a\r\nend sub\r\n");
    const QString path = bench.Write(QStringLiteral("game.bas"), "'include LIB.bas\r\ncall a\r\n");
    bench.Start({path});
    OBPath = bench.MakeEngine();
    QTest::keyClick(&bench.Frame(), Qt::Key_F5);
    const QByteArray expected = "'include LIB.bas\r\ncall a \r\n"
                                "'*******************************\r\n"
                                "'lib.bas begins here:\r\n\r\n"
                                "sub a\r\nend sub\r\n\r\n";
    QCOMPARE(bench.WaitForEngine().copy, expected);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("'include LIB.bas\r\ncall a  "));
}

void win_modRun::untitledWindowRunsFromTheProgramFolder()
{
    TestBench bench;
    bench.Start();
    OBPath = bench.MakeEngine();
    bench.Choose(QStringLiteral("mnuFileNew"));
    TestBench::Type(bench.Active(), "beep");
    bench.Choose(QStringLiteral("mnuRun"));
    const QString copy = bench.ProgramPath(QStringLiteral("untitled.bak"));
    QCOMPARE(bench.WaitForEngine().arguments.last(), copy);
    QCOMPARE(bench.Active()->Caption(), copy);
    // From now on a save goes there, without a question.
    TestBench::Type(bench.Active(), "x");
    bench.Choose(QStringLiteral("mnuFileSave"));
    QVERIFY(TestBench::Read(copy).startsWith("beep"));
}

void win_modRun::secondRunOfAnUntitledWindow()
{
    TestBench bench;
    bench.Start();
    OBPath = bench.MakeEngine();
    bench.Choose(QStringLiteral("mnuFileNew"));
    bench.Choose(QStringLiteral("mnuRun"));
    bench.WaitForEngine();
    bench.Choose(QStringLiteral("mnuRun"));
    QCOMPARE(bench.WaitForEngine().arguments.last(), bench.ProgramPath(QStringLiteral("untitled.BAK")));
}

void win_modRun::ranWindowClosesWithoutAQuestion()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("game.bas"), "print 1\r\n")});
    OBPath = bench.MakeEngine();
    TestBench::Type(bench.Active(), "x");
    bench.Choose(QStringLiteral("mnuRun"));
    bench.WaitForEngine();
    QVERIFY(bench.Close());
}

void win_modRun::nothingHappensWithoutAWindow()
{
    TestBench bench;
    bench.Start();
    mnuRun_Click();
    mnuTKN_Click();
    mnuDebug_Click();
    QVERIFY(bench.dialogs.Finished());
}

void win_modRun::engineIsRequestedAndKept()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("game.bas"), "print 1\r\n")});
    const QString engine = bench.MakeEngine();
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Find Orchard BASIC"), EngineFilter, engine);
    bench.Choose(QStringLiteral("mnuRun"));
    bench.WaitForEngine();
    QCOMPARE(OBPath, engine);
    bench.Choose(QStringLiteral("mnuRun"));
    bench.WaitForEngine();
}

void win_modRun::engineNotFoundLeavesTheCopyUnwritten()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("game.bas"), "print 1\r\n")});
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Find Orchard BASIC"), EngineFilter, QString());
    bench.dialogs.ExpectMessage(QStringLiteral("Orchard BASIC") + NotFound, BoxAnswer::Ok, BoxIcon::None);
    bench.Choose(QStringLiteral("mnuRun"));
    QCOMPARE(OBPath, QString());
    QVERIFY(!QFile::exists(bench.Path(QStringLiteral("game.BAK"))));
}

void win_modRun::copyThatCannotBeWrittenIsNotRun()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("game.bas"), "print 1\r\n")});
    OBPath = bench.MakeEngine();
    // A folder in place of the copy prevents the write.
    QDir().mkdir(bench.Path(QStringLiteral("game.BAK")));
    TestBench::Type(bench.Active(), "x");
    bench.dialogs.ExpectMessage(QStringLiteral("Error creating file to run."));
    bench.Choose(QStringLiteral("mnuRun"));
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("xprint 1"));
    QVERIFY(SendSci(bench.Active()->sci, SCI_GETMODIFY) != 0);
    QTest::qWait(200);
    QVERIFY(!QFile::exists(bench.Path(QStringLiteral("engine.call"))));
    QuitQuery = false;
}

void win_modRun::engineThatCannotStartIsARuntimeError()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("game.bas"), "print 1\r\n")});
    OBPath = bench.Write(QStringLiteral("engine"), "no program at all\n");
    bench.dialogs.ExpectMessage(QStringLiteral("Run-time error '5':\nInvalid procedure call or argument"));
    bench.Choose(QStringLiteral("mnuRun"));
    QCOMPARE(TestBench::Read(bench.Path(QStringLiteral("game.BAK"))), QByteArray("print 1 \r\n"));
}

void win_modRun::bareEngineStartsAlone()
{
    TestBench bench;
    bench.Start();
    OBPath = bench.MakeEngine();
    QTest::keyClick(&bench.Frame(), Qt::Key_F9);
    QCOMPARE(bench.WaitForEngine().arguments, QStringList());
}

void win_modRun::tokenRunsOnTheRuntimeEngine()
{
    TestBench bench;
    bench.Start();
    OBRuntimePath = bench.MakeEngine(QStringLiteral("run.exe"));
    const QString token = bench.Write(QStringLiteral("game.tkn"), "token");
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), QStringLiteral("OB Token (*.tkn)|*.tkn"),
                             token);
    QTest::keyClick(&bench.Frame(), Qt::Key_F8);
    const EngineCall call = bench.WaitForEngine();
    QCOMPARE(call.arguments, QStringList{token});
    QCOMPARE(call.copy, QByteArray("token"));
}

void win_modRun::tokenThatVanishedIsReported()
{
    TestBench bench;
    bench.Start();
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), QStringLiteral("OB Token (*.tkn)|*.tkn"),
                             bench.Path(QStringLiteral("gone.tkn")));
    bench.dialogs.ExpectMessage(QStringLiteral("Error running TKN."));
    bench.Choose(QStringLiteral("mnuRunTKN"));
}

void win_modRun::runtimeSearchCanBeCancelled()
{
    TestBench bench;
    bench.Start();
    const QString token = bench.Write(QStringLiteral("game.tkn"), "token");
    const QString question = QStringLiteral("Find Orchard BASIC Runtime Engine?");
    bench.dialogs.ExpectMessage(question, BoxAnswer::Cancel, BoxIcon::None, BoxButtons::OkCancel);
    RunTokenFile(token);
    QCOMPARE(OBRuntimePath, QStringLiteral("no path"));

    bench.dialogs.ExpectMessage(question, BoxAnswer::Ok, BoxIcon::None, BoxButtons::OkCancel);
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."),
                             QStringLiteral("Runtime Engine (run.exe))|*.EXE;RUN.EXE"), QString());
    bench.dialogs.ExpectMessage(QStringLiteral("Orchard BASIC Runtime Engine") + NotFound, BoxAnswer::Ok,
                                BoxIcon::None);
    RunTokenFile(token);
    QCOMPARE(OBRuntimePath, QStringLiteral("no path"));
}

void win_modRun::freeformRunsByItsExtension_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("source") << QStringLiteral("ff.BAS") << QStringList{QStringLiteral("-R"), QStringLiteral("-A")};
    QTest::newRow("token") << QStringLiteral("ff.tkn") << QStringList();
    QTest::newRow("other") << QStringLiteral("ff.txt") << QStringList();
}

void win_modRun::freeformRunsByItsExtension()
{
    QFETCH(QString, name);
    QFETCH(QStringList, arguments);
    TestBench bench;
    bench.Start();
    OBPath = OBRuntimePath = bench.MakeEngine();
    OBFreeformPath = bench.Write(name, "'ff\r\n");
    if (name.endsWith(QLatin1String("txt"))) {
        bench.dialogs.ExpectMessage(QStringLiteral("Orchard FreeForm must be in *.bas or *.tkn form!"));
        bench.Choose(QStringLiteral("mnuToolFreeform"));
        QVERIFY(bench.Active() == nullptr);
        return;
    }
    bench.Choose(QStringLiteral("mnuToolFreeform"));
    QCOMPARE(bench.WaitForEngine().arguments, arguments + QStringList{OBFreeformPath});
    QCOMPARE(bench.Active()->Caption(), QStringLiteral("untitled.bas"));
    QuitQuery = false;
}

void win_modRun::freeformHintHasItsNul()
{
    TestBench bench;
    bench.Start();
    OBPath = bench.MakeEngine();
    const QString freeform = bench.Write(QStringLiteral("ff.bas"), "'ff\r\n");
    bench.dialogs.ExpectMessage(QStringLiteral("Find FreeForm?"), BoxAnswer::Ok, BoxIcon::Question,
                                BoxButtons::OkCancel);
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"),
                             QStringLiteral("FreeForm |*ff*.bas;*.bas;*.bak"), freeform);
    bench.Choose(QStringLiteral("mnuToolFreeform"));
    bench.WaitForEngine();
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("Paste FreeForm output here!\0", 28));
    QuitQuery = false;
}

void win_modRun::openCodeFileRemembersItsFolder()
{
    TestBench bench;
    bench.Start();
    const QString path = bench.Write(QStringLiteral("a.bas"), "end\r\n");
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."),
                             QStringLiteral("BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK"), path);
    bench.Choose(QStringLiteral("mnuFileOpenCode"));
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("end"));
    QCOMPARE(LastDir, bench.Path(QString()));
    QCOMPARE(RecentFiles[0], path);
    QVERIFY2(StatusOf(bench).startsWith(QLatin1String("a.bas  Size: 5 KB   Last Modified: ")),
             qPrintable(StatusOf(bench)));
}

void win_modRun::openOfNothingChangesNothing()
{
    TestBench bench;
    bench.Start();
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."),
                             QStringLiteral("BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK"), QString());
    bench.Choose(QStringLiteral("mnuFileOpenCode"));
    QVERIFY(bench.Active() == nullptr);
    QCOMPARE(LastDir, QStringLiteral("app.path"));
}

void win_modRun::insertedLinesAllEndInCrLf()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "one\r\n")});
    const QString other = bench.Write(QStringLiteral("b.bas"), "x\ny\r\n\rz");
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"),
                             QStringLiteral("BASIC code |*.bas;*.bak;*.rtf;"), other);
    bench.Choose(QStringLiteral("mnuFileInsert"));
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("x\r\ny\r\n\r\nz\r\none"));
    QuitQuery = false;
}

void win_modRun::saveAsRenamesTheWindow()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "end\r\n")});
    const QString path = bench.Path(QStringLiteral("b.bas"));
    bench.dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"), SaveAsFilter, path);
    bench.Choose(QStringLiteral("mnuFileSaveAs"));
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(bench.Active()->Tag, QString());
    QCOMPARE(TestBench::Read(path), QByteArray("end \r\n"));
    QCOMPARE(RecentFiles[0], path);
    QCOMPARE(StatusOf(bench), QStringLiteral("File saved as ") + path);
}

void win_modRun::untitledSaveAsksForAName()
{
    TestBench bench;
    bench.Start();
    bench.Choose(QStringLiteral("mnuFileNew"));
    const QString filter = QStringLiteral("BASIC code (*.bas)(*.bak)|*.bas;*.bak");
    bench.dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save"), filter, QString());
    bench.Choose(QStringLiteral("mnuFileSave"));
    QCOMPARE(bench.Active()->Caption(), QStringLiteral("untitled.bas"));
    // The program adds no extension of its own.
    const QString path = bench.Path(QStringLiteral("plain"));
    bench.dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save"), filter, path);
    bench.Choose(QStringLiteral("mnuFileSave"));
    QCOMPARE(TestBench::Read(path), QByteArray(" \r\n"));
    QCOMPARE(bench.Active()->Caption(), path);
}

void win_modRun::failedSaveAsKeepsTheOldName()
{
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("a.bas"), "end\r\n");
    bench.Start({path});
    bench.dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"), SaveAsFilter,
                             bench.Path(QStringLiteral("no/such/folder.bas")));
    bench.dialogs.ExpectMessage(QStringLiteral("Run-time error '76':\nPath not found"));
    bench.Choose(QStringLiteral("mnuFileSaveAs"));
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(RecentFiles[0], path);
}

void win_modRun::saveProjectMergesTheIncludes()
{
    TestBench bench;
    bench.Write(QStringLiteral("lib.bas"), "sub a\r\nend sub\r\n");
    bench.Start({bench.Write(QStringLiteral("game.bas"), "'include lib.bas\r\ncall a\r\n")});
    const QString path = bench.Path(QStringLiteral("whole.bas"));
    bench.dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"), SaveAsFilter, path);
    bench.Choose(QStringLiteral("mnuFileProject"));
    const QByteArray merged = "'include lib.bas\r\ncall a \r\n"
                              "'*******************************\r\n'lib.bas begins here:\r\n\r\n"
                              "sub a\r\nend sub\r\n\r\n";
    QCOMPARE(TestBench::Read(path), merged);
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(bench.Active()->Tag, QString());
    QCOMPARE(StatusOf(bench), QStringLiteral("File saved as ") + path);
    // A plain save goes to the same file and writes only the code.
    bench.Choose(QStringLiteral("mnuFileSave"));
    QCOMPARE(TestBench::Read(path), QByteArray("'include lib.bas\r\ncall a   \r\n"));
}

OB_BENCH_TEST(win_modRun)
#include "win_modRun.moc"
