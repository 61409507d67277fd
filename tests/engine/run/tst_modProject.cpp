// SPDX-License-Identifier: GPL-3.0-or-later
// Open, insert, save, save as and save project, without windows.
#include "engine/run/modProject.h"

#include "core/CoreBench.h"
#include "editor/files/modFileCommands.h"
#include "editor/files/modSave.h"
#include "platform/files/modFiles.h"

#include <QDir>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString OpenFilter = u"BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK"_s;
const QString InsertFilter = u"BASIC code |*.bas;*.bak;*.rtf;"_s;
const QString SaveFilter = u"BASIC code (*.bas)(*.bak)|*.bas;*.bak"_s;
const QString SaveAsFilter = u"BASIC code (*.bas),(*.bak)|*.bas;*.bak|All Files (*.*)| *.*"_s;

} // namespace

class tst_modProject : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup()
    {
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
    }

    // --- Open. ---

    void anOpenedFileFillsANewWindow()
    {
        QDir().mkdir(u"programs"_s);
        const QString path = bench->Put(u"programs/a.bas"_s, "print 1\r\n");
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, OpenFilter, path);
        mnuFileOpenCode_Click();
        QCOMPARE(bench->form.active->Caption(), path);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1"));
        QCOMPARE(LastDir, bench->Path(u"programs/"_s));
        QCOMPARE(RecentFiles[0], path);
        QCOMPARE(bench->form.status, u"a.bas  Size: 9 KB   Last Modified: "_s + FileDateText(path));
    }

    void theTagIsThatOfTheSlotSearch()
    {
        Documents.push_back(nullptr);
        Documents.push_back(std::make_unique<cDocument>(1));
        const QString path = bench->Put(u"a.bas"_s, "print 1\r\n");
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, OpenFilter, path);
        mnuFileOpenCode_Click();
        QCOMPARE(Documents[1]->Tag, TagOpen);
        // A slot that had to be added stays unmarked.
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, OpenFilter, path);
        mnuFileOpenCode_Click();
        QCOMPARE(Documents[2]->Tag, QString());
    }

    void noFileOrAMissingOneOpensNothing_data()
    {
        QTest::addColumn<QString>("chosen");
        QTest::newRow("none") << QString();
        QTest::newRow("missing") << u"gone.bas"_s;
    }

    void noFileOrAMissingOneOpensNothing()
    {
        QFETCH(QString, chosen);
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, OpenFilter, chosen);
        mnuFileOpenCode_Click();
        QVERIFY(bench->form.log.isEmpty());
        QVERIFY(Documents.empty());
        QCOMPARE(LastDir, u"app.path"_s);
    }

    // --- Insert. ---

    void anInsertedFileComesInLineByLine_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("inserted");
        QTest::newRow("whole lines") << QByteArray("a\r\nb\r\n") << QByteArray("a\r\nb\r\n");
        QTest::newRow("no line end at the end") << QByteArray("a\r\nb") << QByteArray("a\r\nb\r\n");
        QTest::newRow("empty lines") << QByteArray("\r\n\r\na") << QByteArray("\r\n\r\na\r\n");
        QTest::newRow("CR") << QByteArray("a\rb\r") << QByteArray("a\r\nb\r\n");
        QTest::newRow("LF") << QByteArray("a\nb\n\nc") << QByteArray("a\r\nb\r\n\r\nc\r\n");
        QTest::newRow("empty file") << QByteArray("") << QByteArray("");
        QTest::newRow("code page") << QByteArray("'\xE4") << QByteArray("'\xC3\xA4\r\n");
    }

    void anInsertedFileComesInLineByLine()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, inserted);
        cDocument& document = bench->Open(u"untitled.bas"_s, "[]");
        bench->form.ActiveControl().caret = 1;
        const QString path = bench->Put(u"a.bas"_s, file);
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, InsertFilter, path);
        mnuFileInsert_Click();
        QCOMPARE(bench->form.ActiveControl().text, "[" + inserted + "]");
        QCOMPARE(bench->form.ActiveControl().caret, inserted.size() + 1);
        QCOMPARE(document.Caption(), u"untitled.bas"_s);
        QCOMPARE(RecentFiles[0], u"untitled"_s);
    }

    void insertWithoutACodeWindowIsSilent()
    {
        mnuFileInsert_Click();
        bench->form.kind = ActiveChild::Gui;
        mnuFileInsert_Click();
    }

    void insertWithoutAFileChangesNothing()
    {
        bench->Open(u"untitled.bas"_s, "x");
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, InsertFilter, {});
        mnuFileInsert_Click();
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("x"));
    }

    // --- Save and Save As. ---

    void saveWritesUnderTheCaption()
    {
        const QString path = bench->Put(u"a.bas"_s, "old\r\n");
        cDocument& document = bench->Open(path, "new");
        mnuFileSave_Click();
        QCOMPARE(CoreBench::Get(path), QByteArray("new \r\n"));
        ExpectSaved(document, path);
    }

    void saveOfAnUntitledWindowAsksForAName_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("lower case") << u"untitled.bas"_s;
        QTest::newRow("mixed case") << u"Untitled.Bas"_s;
    }

    void saveOfAnUntitledWindowAsksForAName()
    {
        QFETCH(QString, caption);
        cDocument& document = bench->Open(caption, "new");
        const QString path = bench->Path(u"name without an ending"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save"_s, SaveFilter, path);
        mnuFileSave_Click();
        QCOMPARE(CoreBench::Get(path), QByteArray("new \r\n"));
        ExpectSaved(document, path);
    }

    void noNameSavesNothing()
    {
        cDocument& document = bench->Open(u"untitled.bas"_s, "new");
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save"_s, SaveFilter, {});
        mnuFileSave_Click();
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveAsFilter, {});
        mnuFileSaveAs_Click();
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveAsFilter, {});
        mnuFileProject_Click();
        ExpectUntouched(document, u"untitled.bas"_s);
    }

    void saveWithoutANameIsReported()
    {
        cDocument& document = bench->Open({}, "new");
        bench->dialogs.ExpectMessage(u"Error saving file!"_s);
        mnuFileSave_Click();
        ExpectUntouched(document, {});
    }

    void saveAsAlwaysAsks()
    {
        const QString before = bench->Put(u"a.bas"_s, "old\r\n");
        const QString path = bench->Path(u"b.bas"_s);
        cDocument& document = bench->Open(before, "new");
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveAsFilter, path);
        mnuFileSaveAs_Click();
        QCOMPARE(CoreBench::Get(before), QByteArray("old\r\n"));
        QCOMPARE(CoreBench::Get(path), QByteArray("new \r\n"));
        ExpectSaved(document, path);
    }

    void aSaveThatFailsLeavesTheWindowAsItWas_data()
    {
        QTest::addColumn<int>("command");
        QTest::newRow("save") << 0;
        QTest::newRow("save as") << 1;
        QTest::newRow("save project") << 2;
    }

    void aSaveThatFailsLeavesTheWindowAsItWas()
    {
        QFETCH(int, command);
        cDocument& document = bench->Open(u"untitled.bas"_s, "new");
        const QString path = bench->Path(u"gone/a.bas"_s);
        void (*const commands[])() = {mnuFileSave_Click, mnuFileSaveAs_Click, mnuFileProject_Click};
        bench->dialogs.ExpectFile(FilePurpose::Save, command == 0 ? u"Save"_s : u"Save As"_s,
                                  command == 0 ? SaveFilter : SaveAsFilter, path);
        QCOMPARE(RaisedBy(commands[command]), 76);
        ExpectUntouched(document, u"untitled.bas"_s);
    }

    void aDeclinedSaveLeavesTheWindowAsItWas()
    {
        cDocument& document = bench->Open(bench->Path(u"a.bas"_s), "new\xCE\xB1");
        bench->dialogs.ExpectQuestion(u"Line 1 holds a character that BASIC source files cannot store.\n"
                                      "Save with a question mark in place of each such character?"_s,
                                      BoxAnswer::No);
        mnuFileSave_Click();
        QCOMPARE(document.Tag, TagOpen);
        QVERIFY(!QFile::exists(bench->Path(u"a.bas"_s)));
        QCOMPARE(bench->form.status, QString());
    }

    void commandsThatNeedACodeWindowShowAMessage()
    {
        for (void (*const command)() : {mnuFileSave_Click, mnuFileSaveAs_Click, mnuFileProject_Click}) {
            bench->dialogs.ExpectMessage(u"No code window is active!"_s);
            command();
        }
    }

    // --- Save Project. ---

    void aProjectHoldsTheIncludesOfItsOwnFolder()
    {
        QDir().mkdir(u"out"_s);
        bench->Put(u"lib.bas"_s, "'not this one\r\n");
        bench->Put(u"out/lib.bas"_s, "'this one\r\n");
        cDocument& document = bench->Open(bench->Put(u"a.bas"_s, "old\r\n"), "'include lib.bas\r\nend");
        const QString path = bench->Path(u"out/whole.bas"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveAsFilter, path);
        mnuFileProject_Click();
        QCOMPARE(CoreBench::Get(path), QByteArray("'include lib.bas\r\nend \r\n'*******************************\r\n"
                                                  "'lib.bas begins here:\r\n\r\n'this one\r\n\r\n"));
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("'include lib.bas\r\nend  "));
        ExpectSaved(document, path);

        // A plain save afterwards writes that file without the included text.
        document.Tag = TagOpen;
        mnuFileSave_Click();
        QCOMPARE(CoreBench::Get(path), QByteArray("'include lib.bas\r\nend   \r\n"));
    }

    void aProjectWhoseIncludesAreMissingIsTheCodeAlone()
    {
        cDocument& document = bench->Open(u"untitled.bas"_s, "'include gone.bas\r\nend");
        const QString path = bench->Path(u"whole.bas"_s);
        bench->dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, SaveAsFilter, path);
        mnuFileProject_Click();
        QCOMPARE(CoreBench::Get(path), QByteArray("'include gone.bas\r\nend \r\n"));
        ExpectSaved(document, path);
    }

private:
    void ExpectSaved(const cDocument& document, const QString& path) const
    {
        QCOMPARE(document.Caption(), path);
        QCOMPARE(document.Tag, QString());
        QCOMPARE(bench->form.status, u"File saved as "_s + path);
        QCOMPARE(RecentFiles[0], path);
        QVERIFY(!FakeMainForm::Control(document).modified);
    }

    void ExpectUntouched(const cDocument& document, const QString& caption) const
    {
        QCOMPARE(document.Caption(), caption);
        QCOMPARE(document.Tag, TagOpen);
        QCOMPARE(bench->form.status, QString());
        QCOMPARE(RecentFiles[0], u"untitled"_s);
        QCOMPARE(FakeMainForm::Control(document).text, QByteArray("new"));
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modProject)
#include "tst_modProject.moc"
