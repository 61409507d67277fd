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

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString NotFound = u" was not found.  Be sure to specify the path to Orchard BASIC in Options!"_s;
const QString EngineFilter = u"Orchard BASIC |orchard.exe;*.exe;"_s;
const QString SaveAsFilter = u"BASIC code (*.bas),(*.bak)|*.bas;*.bak|All Files (*.*)| *.*"_s;

QString StatusOf(TestBench& bench)
{
    return bench.Frame().findChild<QLabel*>(u"statusText"_s)->text();
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
    const QString path = bench.Write(u"game.bas"_s, "print 1\r\n");
    bench.Start({path});
    OBPath = bench.MakeEngine();
    TestBench::Type(bench.Active(), "cls : ");
    bench.Choose(item);
    const EngineCall call = bench.WaitForEngine();
    const QString copy = bench.Path(u"game.BAK"_s);
    QCOMPARE(call.arguments, switches + QStringList{copy});
    QCOMPARE(call.copy, QByteArray("cls : print 1 \r\n"));
    QCOMPARE(TestBench::Read(path), QByteArray("print 1\r\n"));
    QCOMPARE(bench.Active()->Caption(), path);
}

void win_modRun::includesAreAppendedToTheCopy()
{
    TestBench bench;
    bench.Write(u"lib.bas"_s, "sub a\r\nend sub\r\n");
    const QString path = bench.Write(u"game.bas"_s, "'include LIB.bas\r\ncall a\r\n");
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
    bench.Choose(u"mnuFileNew"_s);
    TestBench::Type(bench.Active(), "beep");
    bench.Choose(u"mnuRun"_s);
    const QString copy = bench.ProgramPath(u"untitled.bak"_s);
    QCOMPARE(bench.WaitForEngine().arguments.last(), copy);
    QCOMPARE(bench.Active()->Caption(), copy);
    // From now on a save goes there, without a question.
    TestBench::Type(bench.Active(), "x");
    bench.Choose(u"mnuFileSave"_s);
    QVERIFY(TestBench::Read(copy).startsWith("beep"));
}

void win_modRun::secondRunOfAnUntitledWindow()
{
    TestBench bench;
    bench.Start();
    OBPath = bench.MakeEngine();
    bench.Choose(u"mnuFileNew"_s);
    bench.Choose(u"mnuRun"_s);
    bench.WaitForEngine();
    bench.Choose(u"mnuRun"_s);
    QCOMPARE(bench.WaitForEngine().arguments.last(), bench.ProgramPath(u"untitled.BAK"_s));
}

void win_modRun::ranWindowClosesWithoutAQuestion()
{
    TestBench bench;
    bench.Start({bench.Write(u"game.bas"_s, "print 1\r\n")});
    OBPath = bench.MakeEngine();
    TestBench::Type(bench.Active(), "x");
    bench.Choose(u"mnuRun"_s);
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
    bench.Start({bench.Write(u"game.bas"_s, "print 1\r\n")});
    const QString engine = bench.MakeEngine();
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Find Orchard BASIC"_s, EngineFilter, engine);
    bench.Choose(u"mnuRun"_s);
    bench.WaitForEngine();
    QCOMPARE(OBPath, engine);
    bench.Choose(u"mnuRun"_s);
    bench.WaitForEngine();
}

void win_modRun::engineNotFoundLeavesTheCopyUnwritten()
{
    TestBench bench;
    bench.Start({bench.Write(u"game.bas"_s, "print 1\r\n")});
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Find Orchard BASIC"_s, EngineFilter, QString());
    bench.dialogs.ExpectMessage(u"Orchard BASIC"_s + NotFound, BoxAnswer::Ok, BoxIcon::None);
    bench.Choose(u"mnuRun"_s);
    QCOMPARE(OBPath, QString());
    QVERIFY(!QFile::exists(bench.Path(u"game.BAK"_s)));
}

void win_modRun::copyThatCannotBeWrittenIsNotRun()
{
    TestBench bench;
    bench.Start({bench.Write(u"game.bas"_s, "print 1\r\n")});
    OBPath = bench.MakeEngine();
    // A folder in place of the copy prevents the write.
    QDir().mkdir(bench.Path(u"game.BAK"_s));
    TestBench::Type(bench.Active(), "x");
    bench.dialogs.ExpectMessage(u"Error creating file to run."_s);
    bench.Choose(u"mnuRun"_s);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("xprint 1"));
    QVERIFY(SendSci(bench.Active()->sci, SCI_GETMODIFY) != 0);
    QTest::qWait(200);
    QVERIFY(!QFile::exists(bench.Path(u"engine.call"_s)));
    QuitQuery = false;
}

void win_modRun::engineThatCannotStartIsARuntimeError()
{
    TestBench bench;
    bench.Start({bench.Write(u"game.bas"_s, "print 1\r\n")});
    OBPath = bench.Write(u"engine"_s, "no program at all\n");
    bench.dialogs.ExpectMessage(u"Run-time error '5':\nInvalid procedure call or argument"_s);
    bench.Choose(u"mnuRun"_s);
    QCOMPARE(TestBench::Read(bench.Path(u"game.BAK"_s)), QByteArray("print 1 \r\n"));
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
    OBRuntimePath = bench.MakeEngine(u"run.exe"_s);
    const QString token = bench.Write(u"game.tkn"_s, "token");
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, u"OB Token (*.tkn)|*.tkn"_s, token);
    QTest::keyClick(&bench.Frame(), Qt::Key_F8);
    const EngineCall call = bench.WaitForEngine();
    QCOMPARE(call.arguments, QStringList{token});
    QCOMPARE(call.copy, QByteArray("token"));
}

void win_modRun::tokenThatVanishedIsReported()
{
    TestBench bench;
    bench.Start();
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, u"OB Token (*.tkn)|*.tkn"_s, bench.Path(u"gone.tkn"_s));
    bench.dialogs.ExpectMessage(u"Error running TKN."_s);
    bench.Choose(u"mnuRunTKN"_s);
}

void win_modRun::runtimeSearchCanBeCancelled()
{
    TestBench bench;
    bench.Start();
    const QString token = bench.Write(u"game.tkn"_s, "token");
    const QString question = u"Find Orchard BASIC Runtime Engine?"_s;
    bench.dialogs.ExpectMessage(question, BoxAnswer::Cancel, BoxIcon::None, BoxButtons::OkCancel);
    RunTokenFile(token);
    QCOMPARE(OBRuntimePath, u"no path"_s);

    bench.dialogs.ExpectMessage(question, BoxAnswer::Ok, BoxIcon::None, BoxButtons::OkCancel);
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, u"Runtime Engine (run.exe))|*.EXE;RUN.EXE"_s,
                             QString());
    bench.dialogs.ExpectMessage(u"Orchard BASIC Runtime Engine"_s + NotFound, BoxAnswer::Ok, BoxIcon::None);
    RunTokenFile(token);
    QCOMPARE(OBRuntimePath, u"no path"_s);
}

void win_modRun::freeformRunsByItsExtension_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("source") << u"ff.BAS"_s << QStringList{u"-R"_s, u"-A"_s};
    QTest::newRow("token") << u"ff.tkn"_s << QStringList();
    QTest::newRow("other") << u"ff.txt"_s << QStringList();
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
        bench.dialogs.ExpectMessage(u"Orchard FreeForm must be in *.bas or *.tkn form!"_s);
        bench.Choose(u"mnuToolFreeform"_s);
        QVERIFY(bench.Active() == nullptr);
        return;
    }
    bench.Choose(u"mnuToolFreeform"_s);
    QCOMPARE(bench.WaitForEngine().arguments, arguments + QStringList{OBFreeformPath});
    QCOMPARE(bench.Active()->Caption(), u"untitled.bas"_s);
    QuitQuery = false;
}

void win_modRun::freeformHintHasItsNul()
{
    TestBench bench;
    bench.Start();
    OBPath = bench.MakeEngine();
    const QString freeform = bench.Write(u"ff.bas"_s, "'ff\r\n");
    bench.dialogs.ExpectMessage(u"Find FreeForm?"_s, BoxAnswer::Ok, BoxIcon::Question, BoxButtons::OkCancel);
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, u"FreeForm |*ff*.bas;*.bas;*.bak"_s, freeform);
    bench.Choose(u"mnuToolFreeform"_s);
    bench.WaitForEngine();
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("Paste FreeForm output here!\0", 28));
    QuitQuery = false;
}

void win_modRun::openCodeFileRemembersItsFolder()
{
    TestBench bench;
    bench.Start();
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s,
                             u"BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK"_s, path);
    bench.Choose(u"mnuFileOpenCode"_s);
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
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s,
                             u"BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK"_s, QString());
    bench.Choose(u"mnuFileOpenCode"_s);
    QVERIFY(bench.Active() == nullptr);
    QCOMPARE(LastDir, u"app.path"_s);
}

void win_modRun::insertedLinesAllEndInCrLf()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "one\r\n")});
    const QString other = bench.Write(u"b.bas"_s, "x\ny\r\n\rz");
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, u"BASIC code |*.bas;*.bak;*.rtf;"_s, other);
    bench.Choose(u"mnuFileInsert"_s);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("x\r\ny\r\n\r\nz\r\none"));
    QuitQuery = false;
}

void win_modRun::saveAsRenamesTheWindow()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n")});
    const QString path = bench.Path(u"b.bas"_s);
    bench.dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveAsFilter, path);
    bench.Choose(u"mnuFileSaveAs"_s);
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(bench.Active()->Tag, QString());
    QCOMPARE(TestBench::Read(path), QByteArray("end \r\n"));
    QCOMPARE(RecentFiles[0], path);
    QCOMPARE(StatusOf(bench), u"File saved as "_s + path);
}

void win_modRun::untitledSaveAsksForAName()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuFileNew"_s);
    const QString filter = u"BASIC code (*.bas)(*.bak)|*.bas;*.bak"_s;
    bench.dialogs.ExpectFile(FilePurpose::Save, u"Save"_s, filter, QString());
    bench.Choose(u"mnuFileSave"_s);
    QCOMPARE(bench.Active()->Caption(), u"untitled.bas"_s);
    // The program adds no extension of its own.
    const QString path = bench.Path(u"plain"_s);
    bench.dialogs.ExpectFile(FilePurpose::Save, u"Save"_s, filter, path);
    bench.Choose(u"mnuFileSave"_s);
    QCOMPARE(TestBench::Read(path), QByteArray(" \r\n"));
    QCOMPARE(bench.Active()->Caption(), path);
}

void win_modRun::failedSaveAsKeepsTheOldName()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    bench.Start({path});
    bench.dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveAsFilter, bench.Path(u"no/such/folder.bas"_s));
    bench.dialogs.ExpectMessage(u"Run-time error '76':\nPath not found"_s);
    bench.Choose(u"mnuFileSaveAs"_s);
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(RecentFiles[0], path);
}

void win_modRun::saveProjectMergesTheIncludes()
{
    TestBench bench;
    bench.Write(u"lib.bas"_s, "sub a\r\nend sub\r\n");
    bench.Start({bench.Write(u"game.bas"_s, "'include lib.bas\r\ncall a\r\n")});
    const QString path = bench.Path(u"whole.bas"_s);
    bench.dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveAsFilter, path);
    bench.Choose(u"mnuFileProject"_s);
    const QByteArray merged = "'include lib.bas\r\ncall a \r\n"
                              "'*******************************\r\n'lib.bas begins here:\r\n\r\n"
                              "sub a\r\nend sub\r\n\r\n";
    QCOMPARE(TestBench::Read(path), merged);
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(bench.Active()->Tag, QString());
    QCOMPARE(StatusOf(bench), u"File saved as "_s + path);
    // A plain save goes to the same file and writes only the code.
    bench.Choose(u"mnuFileSave"_s);
    QCOMPARE(TestBench::Read(path), QByteArray("'include lib.bas\r\ncall a   \r\n"));
}

OB_BENCH_TEST(win_modRun)
#include "win_modRun.moc"
