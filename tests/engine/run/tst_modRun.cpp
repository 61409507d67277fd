// SPDX-License-Identifier: GPL-3.0-or-later
// Passing code to the engine: the place of the copy, its contents, and the command line that is started.
#include "engine/run/modRun.h"

#include "core/CoreBench.h"
#include "editor/document/modDocument.h"
#include "platform/files/modFiles.h"

#include <QDir>

using namespace ob;

#ifdef Q_OS_UNIX
class tst_modRun : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<CoreBench>();
        OBPath = MakeEngine(QStringLiteral("orchard.exe"));
        OBRuntimePath = MakeEngine(QStringLiteral("run.exe"));
    }
    void cleanup()
    {
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
    }

    // --- The copy's place. ---

    void theCopyIsNextToAnExistingFile_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("copy");
        QTest::newRow("game.bas") << QStringLiteral("game.bas") << QStringLiteral("game.BAK");
        QTest::newRow("prog.basic") << QStringLiteral("prog.basic") << QStringLiteral("prog.baBAK");
        QTest::newRow("a.b") << QStringLiteral("a.b") << QStringLiteral("BAK");
        QTest::newRow("game.BAK is its own copy") << QStringLiteral("game.BAK") << QStringLiteral("game.BAK");
        QTest::newRow("no extension") << QStringLiteral("program") << QStringLiteral("progBAK");
        QTest::newRow("untitled.bas on disk") << QStringLiteral("untitled.bas") << QStringLiteral("untitled.BAK");
        QTest::newRow("untitled.bak on disk") << QStringLiteral("untitled.bak") << QStringLiteral("untitled.BAK");
        QTest::newRow("characters beyond ASCII") << QStringLiteral("\u00FC.b\u00E4s") << QStringLiteral("\u00FC.BAK");
    }

    void theCopyIsNextToAnExistingFile()
    {
        QFETCH(QString, name);
        QFETCH(QString, copy);
        const QString path = bench->Put(name, "x\r\n");
        QCOMPARE(PlaceOfCopy(path, QStringLiteral("/p")).path, bench->Path(copy));
        QCOMPARE(PlaceOfCopy(path, QStringLiteral("/p")).caption, path);
        QCOMPARE(PlaceOfCopy(name, QStringLiteral("/p")).path, copy);
    }

    void anUntitledWindowIsRenamedToTheCopyInTheProgramsFolder_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("lower case") << QStringLiteral("untitled.bas");
        QTest::newRow("mixed case") << QStringLiteral("Untitled.BAS");
    }

    void anUntitledWindowIsRenamedToTheCopyInTheProgramsFolder()
    {
        QFETCH(QString, caption);
        const CopyPlace place = PlaceOfCopy(caption, QStringLiteral("/p"));
        QCOMPARE(place.path,
                 QDir::toNativeSeparators(QStringLiteral("/p")) + QDir::separator() + QStringLiteral("untitled.bak"));
        QCOMPARE(place.caption, place.path);
    }

    void aMissingFileIsWrittenUnderItsOwnName()
    {
        const QString path = bench->Path(QStringLiteral("gone.bas"));
        QCOMPARE(PlaceOfCopy(path, QStringLiteral("/p")).path, path);
        QCOMPARE(PlaceOfCopy(path, QStringLiteral("/p")).caption, path);
        QCOMPARE(PlaceOfCopy(QStringLiteral("Document 3"), QStringLiteral("/p")).path, QStringLiteral("Document 3"));
    }

    void aNameTooShortToCutIsAnError()
    {
        bench->Put(QStringLiteral("ab"), "x\r\n");
        QCOMPARE(RaisedBy([] { (void)PlaceOfCopy(QStringLiteral("ab"), QStringLiteral("/p")); }), 5);
        bench->Put(QStringLiteral("abc"), "x\r\n");
        QCOMPARE(PlaceOfCopy(QStringLiteral("abc"), QStringLiteral("/p")).path, QStringLiteral("BAK"));
    }

    void pathsAreNeverQuoted()
    {
        QCOMPARE(
            EngineCommand(QStringLiteral("c:\\or chard.exe"), QStringLiteral(" -R -A "), QStringLiteral("c:\\a b.BAK")),
            QStringLiteral("c:\\or chard.exe  -R -A c:\\a b.BAK"));
    }

    // --- Run, debug and make token. ---

    void theSwitchesDistinguishTheCommands_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QStringList>("switches");
        QTest::newRow("run") << 0 << QStringList{QStringLiteral("-R"), QStringLiteral("-A")};
        QTest::newRow("make token") << 1 << QStringList{QStringLiteral("-A"), QStringLiteral("-T")};
        QTest::newRow("debug") << 2 << QStringList{QStringLiteral("-A"), QStringLiteral("-D")};
    }

    void theSwitchesDistinguishTheCommands()
    {
        QFETCH(int, command);
        QFETCH(QStringList, switches);
        const QString path = bench->Put(QStringLiteral("game.bas"), "old\r\n");
        bench->Put(QStringLiteral("lib.bas"), "'lib\r\n");
        cDocument& document = bench->Open(path, "'include LIB.bas\r\nprint 1");
        bench->form.ActiveControl().modified = true;
        void (*const commands[])() = {mnuRun_Click, mnuTKN_Click, mnuDebug_Click};
        commands[command]();

        const QString copy = bench->Path(QStringLiteral("game.BAK"));
        QCOMPARE(Call(OBPath), switches + QStringList{copy});
        QCOMPARE(CoreBench::Get(copy), QByteArray("'include LIB.bas\r\nprint 1 \r\n'*******************************\r\n"
                                                  "'lib.bas begins here:\r\n\r\n'lib\r\n\r\n"));
        QCOMPARE(CoreBench::Get(path), QByteArray("old\r\n"));
        QCOMPARE(document.Caption(), path);
        QCOMPARE(document.Tag, TagOpen);
        // The copy counts as a save although the real file was not written.
        QVERIFY(!bench->form.ActiveControl().modified);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("'include LIB.bas\r\nprint 1  "));
        QCOMPARE(bench->form.log, QStringList{QStringLiteral("back")});
        QCOMPARE(RecentFiles[0], QStringLiteral("untitled"));
    }

    void anUntitledWindowKeepsTheCopysName()
    {
        cDocument& document = bench->Open(QStringLiteral("untitled.bas"), "print 1");
        mnuRun_Click();
        const QString copy = bench->ProgramPath(QStringLiteral("untitled.bak"));
        QCOMPARE(document.Caption(), copy);
        QCOMPARE(Call(OBPath).last(), copy);
        QCOMPARE(CoreBench::Get(copy), QByteArray("print 1 \r\n"));

        mnuRun_Click();
        QCOMPARE(document.Caption(), copy);
        QCOMPARE(Call(OBPath).last(), bench->ProgramPath(QStringLiteral("untitled.BAK")));
    }

    void withoutAWindowNothingHappens()
    {
        mnuRun_Click();
        mnuTKN_Click();
        mnuDebug_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void aFormIsCompiledIntoACodeWindowFirst()
    {
        bench->form.ShowGui();
        GuiDesign().form.caption = QStringLiteral("From the form");
        mnuRun_Click();
        QCOMPARE(bench->form.log, (QStringList{QStringLiteral("show gui"), QStringLiteral("enable mnuFileSaveGui"),
                                               QStringLiteral("show 1"), QStringLiteral("back")}));
        QCOMPARE(Call(OBPath).last(), bench->ProgramPath(QStringLiteral("untitled.bak")));
        const QByteArray copy = CoreBench::Get(bench->ProgramPath(QStringLiteral("untitled.bak")));
        QVERIFY(copy.startsWith("'** Created by Orchard Bench - "));
        QVERIFY(copy.contains("\r\nOpen \"From the form\" for Window as #main\r\n"));
        QVERIFY(copy.endsWith("[quit]\r\n    close #main : END\r\n\r\n \r\n"));
    }

    void anEngineThatIsNotFoundLeavesTheCopyUnwritten()
    {
        OBPath = QStringLiteral("no path");
        const QString path = bench->Put(QStringLiteral("game.bas"), "old\r\n");
        bench->Open(path, "print 1");
        ExpectEngineSearch({});
        mnuRun_Click();
        QCOMPARE(OBPath, QString());
        QVERIFY(!QFile::exists(bench->Path(QStringLiteral("game.BAK"))));
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1"));
        QVERIFY(bench->form.log.isEmpty());
    }

    void anEngineThatIsFoundIsUsedAtOnce()
    {
        const QString engine = OBPath;
        OBPath = bench->Path(QStringLiteral("gone.exe"));
        bench->Open(bench->Put(QStringLiteral("game.bas"), "old\r\n"), "print 1");
        ExpectEngineSearch(engine);
        mnuRun_Click();
        QCOMPARE(OBPath, engine);
        QCOMPARE(Call(engine).last(), bench->Path(QStringLiteral("game.BAK")));
    }

    void aCopyThatCannotBeWrittenIsReported()
    {
        bench->Open(bench->Path(QStringLiteral("gone/game.bas")), "print 1");
        bench->dialogs.ExpectMessage(QStringLiteral("Error creating file to run."));
        mnuRun_Click();
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1"));
        QVERIFY(bench->form.log.isEmpty());
    }

    void anOldCopyIsNotRunWhenTheNewOneCannotBeWritten()
    {
        const QString path = bench->Put(QStringLiteral("game.bas"), "old\r\n");
        QDir().mkdir(QStringLiteral("game.BAK"));
        bench->Open(path, "print 1");
        bench->dialogs.ExpectMessage(QStringLiteral("Error creating file to run."));
        mnuRun_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void aDeclinedCopyEndsTheCommandSilently()
    {
        const QString path = bench->Put(QStringLiteral("game.bas"), "old\r\n");
        bench->Open(path, "'\xCE\xB1");
        bench->dialogs.ExpectQuestion(QStringLiteral("Line 1 holds a character that BASIC source files cannot store.\n"
                                                     "Save with a question mark in place of each such character?"),
                                      BoxAnswer::No);
        mnuRun_Click();
        QVERIFY(!QFile::exists(bench->Path(QStringLiteral("game.BAK"))));
        QVERIFY(bench->form.log.isEmpty());
    }

    void aLaunchThatFailsIsARuntimeError()
    {
        OBPath = bench->Put(QStringLiteral("text.exe"), "#!/no/such/interpreter\n");
        bench->Open(bench->Put(QStringLiteral("game.bas"), "old\r\n"), "print 1");
        QVERIFY(RaisedBy(mnuRun_Click) != 0);
        QCOMPARE(CoreBench::Get(bench->Path(QStringLiteral("game.BAK"))), QByteArray("print 1 \r\n"));
        QVERIFY(bench->form.log.isEmpty());
    }

    // --- Token, engine, FreeForm. ---

    void aTokenFileGoesToTheRuntimeEngine()
    {
        const QString token = bench->Put(QStringLiteral("game.tkn"), "t");
        ExpectTokenBox(token);
        mnuRunTKN_Click();
        QCOMPARE(Call(OBRuntimePath), QStringList{token});
        QCOMPARE(bench->form.log, QStringList{QStringLiteral("back")});
    }

    void noTokenFileEndsTheCommand()
    {
        ExpectTokenBox({});
        mnuRunTKN_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void aMissingTokenFileIsReported()
    {
        ExpectTokenBox(bench->Path(QStringLiteral("gone.tkn")));
        bench->dialogs.ExpectMessage(QStringLiteral("Error running TKN."));
        mnuRunTKN_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void withoutARuntimeEngineATokenFileEndsInTheSearch()
    {
        OBRuntimePath = QStringLiteral("No Path");
        bench->dialogs.ExpectMessage(QStringLiteral("Find Orchard BASIC Runtime Engine?"), BoxAnswer::Cancel,
                                     BoxIcon::None, BoxButtons::OkCancel);
        RunTokenFile(bench->Put(QStringLiteral("game.tkn"), "t"));
        QCOMPARE(OBRuntimePath, QStringLiteral("No Path"));
        QVERIFY(bench->form.log.isEmpty());
    }

    void theBareEngineNeedsNoCodeWindow()
    {
        mnuRunOB_Click();
        QCOMPARE(Call(OBPath), QStringList{});
        QCOMPARE(bench->form.log, QStringList{QStringLiteral("back")});
    }

    void theBareEngineIsSearchedForToo()
    {
        OBPath.clear();
        ExpectEngineSearch({});
        mnuRunOB_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void freeformAsSourceRunsAndAWindowForItsOutputOpens()
    {
        OBFreeformPath = bench->Put(QStringLiteral("ff15.BAS"), "x");
        mnuToolFreeform_Click();
        QCOMPARE(Call(OBPath), (QStringList{QStringLiteral("-R"), QStringLiteral("-A"), OBFreeformPath}));
        QCOMPARE(bench->form.active->Caption(), QStringLiteral("untitled.bas"));
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("Paste FreeForm output here!\0", 28));
        QCOMPARE(bench->form.log, QStringList{QStringLiteral("show 1")});
    }

    void freeformAsTokenGoesToTheRuntimeEngine()
    {
        OBFreeformPath = bench->Put(QStringLiteral("ff15.tkn"), "x");
        mnuToolFreeform_Click();
        QCOMPARE(Call(OBRuntimePath), QStringList{OBFreeformPath});
        QCOMPARE(bench->form.log, (QStringList{QStringLiteral("back"), QStringLiteral("show 1")}));
    }

    void freeformInAnotherFormIsReported()
    {
        OBFreeformPath = bench->Put(QStringLiteral("ff15.txt"), "x");
        bench->dialogs.ExpectMessage(QStringLiteral("Orchard FreeForm must be in *.bas or *.tkn form!"));
        mnuToolFreeform_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void withoutFreeformItsSearchComesFirst()
    {
        bench->dialogs.ExpectMessage(QStringLiteral("Find FreeForm?"), BoxAnswer::Cancel, BoxIcon::Question,
                                     BoxButtons::OkCancel);
        mnuToolFreeform_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void freeformNeedsTheEngineToo()
    {
        OBFreeformPath = bench->Put(QStringLiteral("ff15.tkn"), "x");
        OBPath = QStringLiteral("no path");
        ExpectEngineSearch({});
        mnuToolFreeform_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

private:
    // A program that records its arguments, one per line, in a file of its own name and ".call".
    QString MakeEngine(const QString& name) const
    {
        const QString path = bench->Put(name, "#!/bin/sh\n"
                                              "for argument in \"$@\"; do echo \"$argument\"; done > \"$0.new\"\n"
                                              "mv \"$0.new\" \"$0.call\"\n");
        QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        return path;
    }

    static QStringList Call(const QString& engine)
    {
        const QString file = engine + QStringLiteral(".call");
        if (!QTest::qWaitFor([&] { return QFile::exists(file); }, 20'000))
            return {QStringLiteral("(not called)")};
        const QStringList arguments =
            QString::fromUtf8(CoreBench::Get(file)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QFile::remove(file);
        return arguments;
    }

    void ExpectEngineSearch(const QString& found)
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Find Orchard BASIC"),
                                  QStringLiteral("Orchard BASIC |orchard.exe;*.exe;"), found);
        if (found.isEmpty())
            bench->dialogs.ExpectMessage(
                QStringLiteral(
                    "Orchard BASIC was not found.  Be sure to specify the path to Orchard BASIC in Options!"),
                BoxAnswer::Ok, BoxIcon::None);
    }

    void ExpectTokenBox(const QString& chosen)
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), QStringLiteral("OB Token (*.tkn)|*.tkn"),
                                  chosen);
    }

    std::unique_ptr<CoreBench> bench;
};
#else
class tst_modRun : public QObject {
    Q_OBJECT
};
#endif

OB_CORE_TEST(tst_modRun)
#include "tst_modRun.moc"
