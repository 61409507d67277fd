// SPDX-License-Identifier: GPL-3.0-or-later
// Passing code to the engine: the place of the copy, its contents, and the command line that is started.
#include "engine/run/modRun.h"

#include "core/CoreBench.h"
#include "editor/document/modDocument.h"
#include "platform/files/modFiles.h"

#include <QDir>

using namespace Qt::StringLiterals;

using namespace ob;

#ifdef Q_OS_UNIX
class tst_modRun : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<CoreBench>();
        OBPath = MakeEngine(u"orchard.exe"_s);
        OBRuntimePath = MakeEngine(u"run.exe"_s);
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
        QTest::newRow("game.bas") << u"game.bas"_s << u"game.BAK"_s;
        QTest::newRow("prog.basic") << u"prog.basic"_s << u"prog.baBAK"_s;
        QTest::newRow("a.b") << u"a.b"_s << u"BAK"_s;
        QTest::newRow("game.BAK is its own copy") << u"game.BAK"_s << u"game.BAK"_s;
        QTest::newRow("no extension") << u"program"_s << u"progBAK"_s;
        QTest::newRow("untitled.bas on disk") << u"untitled.bas"_s << u"untitled.BAK"_s;
        QTest::newRow("untitled.bak on disk") << u"untitled.bak"_s << u"untitled.BAK"_s;
        QTest::newRow("characters beyond ASCII") << u"\u00FC.b\u00E4s"_s << u"\u00FC.BAK"_s;
    }

    void theCopyIsNextToAnExistingFile()
    {
        QFETCH(QString, name);
        QFETCH(QString, copy);
        const QString path = bench->Put(name, "x\r\n");
        QCOMPARE(PlaceOfCopy(path, u"/p"_s).path, bench->Path(copy));
        QCOMPARE(PlaceOfCopy(path, u"/p"_s).caption, path);
        QCOMPARE(PlaceOfCopy(name, u"/p"_s).path, copy);
    }

    void anUntitledWindowIsRenamedToTheCopyInTheProgramsFolder_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("lower case") << u"untitled.bas"_s;
        QTest::newRow("mixed case") << u"Untitled.BAS"_s;
    }

    void anUntitledWindowIsRenamedToTheCopyInTheProgramsFolder()
    {
        QFETCH(QString, caption);
        const CopyPlace place = PlaceOfCopy(caption, u"/p"_s);
        QCOMPARE(place.path, QDir::toNativeSeparators(u"/p"_s) + QDir::separator() + u"untitled.bak"_s);
        QCOMPARE(place.caption, place.path);
    }

    void aMissingFileIsWrittenUnderItsOwnName()
    {
        const QString path = bench->Path(u"gone.bas"_s);
        QCOMPARE(PlaceOfCopy(path, u"/p"_s).path, path);
        QCOMPARE(PlaceOfCopy(path, u"/p"_s).caption, path);
        QCOMPARE(PlaceOfCopy(u"Document 3"_s, u"/p"_s).path, u"Document 3"_s);
    }

    void aNameTooShortToCutIsAnError()
    {
        bench->Put(u"ab"_s, "x\r\n");
        QCOMPARE(RaisedBy([] { (void)PlaceOfCopy(u"ab"_s, u"/p"_s); }), 5);
        bench->Put(u"abc"_s, "x\r\n");
        QCOMPARE(PlaceOfCopy(u"abc"_s, u"/p"_s).path, u"BAK"_s);
    }

    void pathsAreNeverQuoted() { QCOMPARE(EngineArguments(u" -R -A "_s, u"c:\\a b.BAK"_s), u"  -R -A c:\\a b.BAK"_s); }

    // --- Run, debug and make token. ---

    void theSwitchesDistinguishTheCommands_data()
    {
        QTest::addColumn<int>("command");
        QTest::addColumn<QStringList>("switches");
        QTest::newRow("run") << 0 << QStringList{u"-R"_s, u"-A"_s};
        QTest::newRow("make token") << 1 << QStringList{u"-A"_s, u"-T"_s};
        QTest::newRow("debug") << 2 << QStringList{u"-A"_s, u"-D"_s};
    }

    void theSwitchesDistinguishTheCommands()
    {
        QFETCH(int, command);
        QFETCH(QStringList, switches);
        const QString path = bench->Put(u"game.bas"_s, "old\r\n");
        bench->Put(u"lib.bas"_s, "'lib\r\n");
        cDocument& document = bench->Open(path, "'include LIB.bas\r\nprint 1");
        bench->form.ActiveControl().modified = true;
        void (*const commands[])() = {mnuRun_Click, mnuTKN_Click, mnuDebug_Click};
        commands[command]();

        const QString copy = bench->Path(u"game.BAK"_s);
        QCOMPARE(Call(OBPath), switches + QStringList{copy});
        QCOMPARE(CoreBench::Get(copy), QByteArray("'include LIB.bas\r\nprint 1 \r\n'*******************************\r\n"
                                                  "'lib.bas begins here:\r\n\r\n'lib\r\n\r\n"));
        QCOMPARE(CoreBench::Get(path), QByteArray("old\r\n"));
        QCOMPARE(document.Caption(), path);
        QCOMPARE(document.Tag, TagOpen);
        // The copy counts as a save although the real file was not written.
        QVERIFY(!bench->form.ActiveControl().modified);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("'include LIB.bas\r\nprint 1  "));
        QCOMPARE(bench->form.log, QStringList{u"back"_s});
        QCOMPARE(RecentFiles[0], u"untitled"_s);
    }

    void theCopyOfAPrivateFileIsPrivate()
    {
        const QString path = bench->Put(u"game.bas"_s, "old\r\n");
        constexpr QFile::Permissions own = QFile::ReadOwner | QFile::WriteOwner;
        constexpr QFile::Permissions others =
            QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QVERIFY(QFile::setPermissions(path, own));
        bench->Open(path, "print 1");
        mnuRun_Click();
        const QString copy = bench->Path(u"game.BAK"_s);
        QVERIFY((QFile::permissions(copy) & others) == 0);
        // An older copy that others may read is closed to them.
        QVERIFY(QFile::setPermissions(copy, own | QFile::ReadGroup | QFile::ReadOther));
        mnuRun_Click();
        QVERIFY((QFile::permissions(copy) & others) == 0);
    }

    void anUntitledWindowKeepsTheCopysName()
    {
        cDocument& document = bench->Open(u"untitled.bas"_s, "print 1");
        mnuRun_Click();
        const QString copy = bench->ProgramPath(u"untitled.bak"_s);
        QCOMPARE(document.Caption(), copy);
        QCOMPARE(Call(OBPath).last(), copy);
        QCOMPARE(CoreBench::Get(copy), QByteArray("print 1 \r\n"));

        mnuRun_Click();
        QCOMPARE(document.Caption(), copy);
        QCOMPARE(Call(OBPath).last(), bench->ProgramPath(u"untitled.BAK"_s));
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
        GuiDesign().form.caption = u"From the form"_s;
        mnuRun_Click();
        QCOMPARE(bench->form.log, (QStringList{u"show gui"_s, u"enable mnuFileSaveGui"_s, u"show 1"_s, u"back"_s}));
        QCOMPARE(Call(OBPath).last(), bench->ProgramPath(u"untitled.bak"_s));
        const QByteArray copy = CoreBench::Get(bench->ProgramPath(u"untitled.bak"_s));
        QVERIFY(copy.startsWith("'** Created by Orchard Bench - "));
        QVERIFY(copy.contains("\r\nOpen \"From the form\" for Window as #main\r\n"));
        QVERIFY(copy.endsWith("[quit]\r\n    close #main : END\r\n\r\n \r\n"));
    }

    void anEngineThatIsNotFoundLeavesTheCopyUnwritten()
    {
        OBPath = u"no path"_s;
        const QString path = bench->Put(u"game.bas"_s, "old\r\n");
        bench->Open(path, "print 1");
        ExpectEngineSearch({});
        mnuRun_Click();
        QCOMPARE(OBPath, QString());
        QVERIFY(!QFile::exists(bench->Path(u"game.BAK"_s)));
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1"));
        QVERIFY(bench->form.log.isEmpty());
    }

    void anEngineThatIsFoundIsUsedAtOnce()
    {
        const QString engine = OBPath;
        OBPath = bench->Path(u"gone.exe"_s);
        bench->Open(bench->Put(u"game.bas"_s, "old\r\n"), "print 1");
        ExpectEngineSearch(engine);
        mnuRun_Click();
        QCOMPARE(OBPath, engine);
        QCOMPARE(Call(engine).last(), bench->Path(u"game.BAK"_s));
    }

    void aCopyThatCannotBeWrittenIsReported()
    {
        bench->Open(bench->Path(u"gone/game.bas"_s), "print 1");
        bench->dialogs.ExpectMessage(u"Error creating file to run."_s);
        mnuRun_Click();
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1"));
        QVERIFY(bench->form.log.isEmpty());
    }

    void anOldCopyIsNotRunWhenTheNewOneCannotBeWritten()
    {
        const QString path = bench->Put(u"game.bas"_s, "old\r\n");
        QDir().mkdir(u"game.BAK"_s);
        bench->Open(path, "print 1");
        bench->dialogs.ExpectMessage(u"Error creating file to run."_s);
        mnuRun_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void aDeclinedCopyEndsTheCommandSilently()
    {
        const QString path = bench->Put(u"game.bas"_s, "old\r\n");
        bench->Open(path, "'\xCE\xB1");
        bench->dialogs.ExpectQuestion(u"Line 1 holds a character that BASIC source files cannot store.\n"
                                      "Save with a question mark in place of each such character?"_s,
                                      BoxAnswer::No);
        mnuRun_Click();
        QVERIFY(!QFile::exists(bench->Path(u"game.BAK"_s)));
        QVERIFY(bench->form.log.isEmpty());
    }

    void aLaunchThatFailsIsARuntimeError()
    {
        OBPath = bench->Put(u"text.exe"_s, "#!/no/such/interpreter\n");
        bench->Open(bench->Put(u"game.bas"_s, "old\r\n"), "print 1");
        QVERIFY(RaisedBy(mnuRun_Click) != 0);
        QCOMPARE(CoreBench::Get(bench->Path(u"game.BAK"_s)), QByteArray("print 1 \r\n"));
        QVERIFY(bench->form.log.isEmpty());
    }

    // --- Token, engine, FreeForm. ---

    void aTokenFileGoesToTheRuntimeEngine()
    {
        const QString token = bench->Put(u"game.tkn"_s, "t");
        ExpectTokenBox(token);
        mnuRunTKN_Click();
        QCOMPARE(Call(OBRuntimePath), QStringList{token});
        QCOMPARE(bench->form.log, QStringList{u"back"_s});
    }

    void noTokenFileEndsTheCommand()
    {
        ExpectTokenBox({});
        mnuRunTKN_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void aMissingTokenFileIsReported()
    {
        ExpectTokenBox(bench->Path(u"gone.tkn"_s));
        bench->dialogs.ExpectMessage(u"Error running TKN."_s);
        mnuRunTKN_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void withoutARuntimeEngineATokenFileEndsInTheSearch()
    {
        OBRuntimePath = u"No Path"_s;
        bench->dialogs.ExpectMessage(u"Find Orchard BASIC Runtime Engine?"_s, BoxAnswer::Cancel, BoxIcon::None,
                                     BoxButtons::OkCancel);
        RunTokenFile(bench->Put(u"game.tkn"_s, "t"));
        QCOMPARE(OBRuntimePath, u"No Path"_s);
        QVERIFY(bench->form.log.isEmpty());
    }

    void theBareEngineNeedsNoCodeWindow()
    {
        mnuRunOB_Click();
        QCOMPARE(Call(OBPath), QStringList{});
        QCOMPARE(bench->form.log, QStringList{u"back"_s});
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
        OBFreeformPath = bench->Put(u"ff15.BAS"_s, "x");
        mnuToolFreeform_Click();
        QCOMPARE(Call(OBPath), (QStringList{u"-R"_s, u"-A"_s, OBFreeformPath}));
        QCOMPARE(bench->form.active->Caption(), u"untitled.bas"_s);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("Paste FreeForm output here!\0", 28));
        QCOMPARE(bench->form.log, QStringList{u"show 1"_s});
    }

    void freeformAsTokenGoesToTheRuntimeEngine()
    {
        OBFreeformPath = bench->Put(u"ff15.tkn"_s, "x");
        mnuToolFreeform_Click();
        QCOMPARE(Call(OBRuntimePath), QStringList{OBFreeformPath});
        QCOMPARE(bench->form.log, (QStringList{u"back"_s, u"show 1"_s}));
    }

    void freeformInAnotherFormIsReported()
    {
        OBFreeformPath = bench->Put(u"ff15.txt"_s, "x");
        bench->dialogs.ExpectMessage(u"Orchard FreeForm must be in *.bas or *.tkn form!"_s);
        mnuToolFreeform_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void withoutFreeformItsSearchComesFirst()
    {
        bench->dialogs.ExpectMessage(u"Find FreeForm?"_s, BoxAnswer::Cancel, BoxIcon::Question, BoxButtons::OkCancel);
        mnuToolFreeform_Click();
        QVERIFY(bench->form.log.isEmpty());
    }

    void freeformNeedsTheEngineToo()
    {
        OBFreeformPath = bench->Put(u"ff15.tkn"_s, "x");
        OBPath = u"no path"_s;
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
        const QString file = engine + u".call"_s;
        if (!QTest::qWaitFor([&] { return QFile::exists(file); }, 20'000))
            return {u"(not called)"_s};
        const QStringList arguments =
            QString::fromUtf8(CoreBench::Get(file)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QFile::remove(file);
        return arguments;
    }

    void ExpectEngineSearch(const QString& found)
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Find Orchard BASIC"_s, u"Orchard BASIC |orchard.exe;*.exe;"_s,
                                  found);
        if (found.isEmpty())
            bench->dialogs.ExpectMessage(
                u"Orchard BASIC was not found.  Be sure to specify the path to Orchard BASIC in Options!"_s,
                BoxAnswer::Ok, BoxIcon::None);
    }

    void ExpectTokenBox(const QString& chosen)
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, u"OB Token (*.tkn)|*.tkn"_s, chosen);
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
