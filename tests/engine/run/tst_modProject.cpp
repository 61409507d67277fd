// SPDX-License-Identifier: GPL-3.0-or-later
// Open, insert, save, save as and save project, without windows.
#include "engine/run/modProject.h"

#include "core/CoreBench.h"
#include "editor/files/modFileCommands.h"
#include "editor/files/modSave.h"
#include "platform/files/modFiles.h"

#include <QDir>

using namespace ob;

namespace {

const QString OpenFilter = QStringLiteral("BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK");
const QString InsertFilter = QStringLiteral("BASIC code |*.bas;*.bak;*.rtf;");
const QString SaveFilter = QStringLiteral("BASIC code (*.bas)(*.bak)|*.bas;*.bak");
const QString SaveAsFilter = QStringLiteral("BASIC code (*.bas),(*.bak)|*.bas;*.bak|All Files (*.*)| *.*");

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
        QDir().mkdir(QStringLiteral("programs"));
        const QString path = bench->Put(QStringLiteral("programs/a.bas"), "print 1\r\n");
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."), OpenFilter, path);
        mnuFileOpenCode_Click();
        QCOMPARE(bench->form.active->Caption(), path);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1"));
        QCOMPARE(LastDir, bench->Path(QStringLiteral("programs/")));
        QCOMPARE(RecentFiles[0], path);
        QCOMPARE(bench->form.status, QStringLiteral("a.bas  Size: 9 KB   Last Modified: ") + FileDateText(path));
    }

    void theTagIsThatOfTheSlotSearch()
    {
        Documents.push_back(nullptr);
        Documents.push_back(std::make_unique<cDocument>(1));
        const QString path = bench->Put(QStringLiteral("a.bas"), "print 1\r\n");
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."), OpenFilter, path);
        mnuFileOpenCode_Click();
        QCOMPARE(Documents[1]->Tag, TagOpen);
        // A slot that had to be added stays unmarked.
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."), OpenFilter, path);
        mnuFileOpenCode_Click();
        QCOMPARE(Documents[2]->Tag, QString());
    }

    void noFileOrAMissingOneOpensNothing_data()
    {
        QTest::addColumn<QString>("chosen");
        QTest::newRow("none") << QString();
        QTest::newRow("missing") << QStringLiteral("gone.bas");
    }

    void noFileOrAMissingOneOpensNothing()
    {
        QFETCH(QString, chosen);
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."), OpenFilter, chosen);
        mnuFileOpenCode_Click();
        QVERIFY(bench->form.log.isEmpty());
        QVERIFY(Documents.empty());
        QCOMPARE(LastDir, QStringLiteral("app.path"));
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
        cDocument& document = bench->Open(QStringLiteral("untitled.bas"), "[]");
        bench->form.ActiveControl().caret = 1;
        const QString path = bench->Put(QStringLiteral("a.bas"), file);
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), InsertFilter, path);
        mnuFileInsert_Click();
        QCOMPARE(bench->form.ActiveControl().text, "[" + inserted + "]");
        QCOMPARE(bench->form.ActiveControl().caret, inserted.size() + 1);
        QCOMPARE(document.Caption(), QStringLiteral("untitled.bas"));
        QCOMPARE(RecentFiles[0], QStringLiteral("untitled"));
    }

    void insertWithoutACodeWindowIsSilent()
    {
        mnuFileInsert_Click();
        bench->form.kind = ActiveChild::Gui;
        mnuFileInsert_Click();
    }

    void insertWithoutAFileChangesNothing()
    {
        bench->Open(QStringLiteral("untitled.bas"), "x");
        bench->dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), InsertFilter, {});
        mnuFileInsert_Click();
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("x"));
    }

    // --- Save and Save As. ---

    void saveWritesUnderTheCaption()
    {
        const QString path = bench->Put(QStringLiteral("a.bas"), "old\r\n");
        cDocument& document = bench->Open(path, "new");
        mnuFileSave_Click();
        QCOMPARE(CoreBench::Get(path), QByteArray("new \r\n"));
        ExpectSaved(document, path);
    }

    void saveOfAnUntitledWindowAsksForAName_data()
    {
        QTest::addColumn<QString>("caption");
        QTest::newRow("lower case") << QStringLiteral("untitled.bas");
        QTest::newRow("mixed case") << QStringLiteral("Untitled.Bas");
    }

    void saveOfAnUntitledWindowAsksForAName()
    {
        QFETCH(QString, caption);
        cDocument& document = bench->Open(caption, "new");
        const QString path = bench->Path(QStringLiteral("name without an ending"));
        bench->dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save"), SaveFilter, path);
        mnuFileSave_Click();
        QCOMPARE(CoreBench::Get(path), QByteArray("new \r\n"));
        ExpectSaved(document, path);
    }

    void noNameSavesNothing()
    {
        cDocument& document = bench->Open(QStringLiteral("untitled.bas"), "new");
        bench->dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save"), SaveFilter, {});
        mnuFileSave_Click();
        bench->dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"), SaveAsFilter, {});
        mnuFileSaveAs_Click();
        bench->dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"), SaveAsFilter, {});
        mnuFileProject_Click();
        ExpectUntouched(document, QStringLiteral("untitled.bas"));
    }

    void saveWithoutANameIsReported()
    {
        cDocument& document = bench->Open({}, "new");
        bench->dialogs.ExpectMessage(QStringLiteral("Error saving file!"));
        mnuFileSave_Click();
        ExpectUntouched(document, {});
    }

    void saveAsAlwaysAsks()
    {
        const QString before = bench->Put(QStringLiteral("a.bas"), "old\r\n");
        const QString path = bench->Path(QStringLiteral("b.bas"));
        cDocument& document = bench->Open(before, "new");
        bench->dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"), SaveAsFilter, path);
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
        cDocument& document = bench->Open(QStringLiteral("untitled.bas"), "new");
        const QString path = bench->Path(QStringLiteral("gone/a.bas"));
        void (*const commands[])() = {mnuFileSave_Click, mnuFileSaveAs_Click, mnuFileProject_Click};
        bench->dialogs.ExpectFile(FilePurpose::Save, command == 0 ? QStringLiteral("Save") : QStringLiteral("Save As"),
                                  command == 0 ? SaveFilter : SaveAsFilter, path);
        QCOMPARE(RaisedBy(commands[command]), 76);
        ExpectUntouched(document, QStringLiteral("untitled.bas"));
    }

    void aDeclinedSaveLeavesTheWindowAsItWas()
    {
        cDocument& document = bench->Open(bench->Path(QStringLiteral("a.bas")), "new\xCE\xB1");
        bench->dialogs.ExpectQuestion(QStringLiteral("Line 1 holds a character that BASIC source files cannot store.\n"
                                                     "Save with a question mark in place of each such character?"),
                                      BoxAnswer::No);
        mnuFileSave_Click();
        QCOMPARE(document.Tag, TagOpen);
        QVERIFY(!QFile::exists(bench->Path(QStringLiteral("a.bas"))));
        QCOMPARE(bench->form.status, QString());
    }

    void commandsThatNeedACodeWindowShowAMessage()
    {
        for (void (*const command)() : {mnuFileSave_Click, mnuFileSaveAs_Click, mnuFileProject_Click}) {
            bench->dialogs.ExpectMessage(QStringLiteral("No code window is active!"));
            command();
        }
    }

    // --- Save Project. ---

    void aProjectHoldsTheIncludesOfItsOwnFolder()
    {
        QDir().mkdir(QStringLiteral("out"));
        bench->Put(QStringLiteral("lib.bas"), "'not this one\r\n");
        bench->Put(QStringLiteral("out/lib.bas"), "'this one\r\n");
        cDocument& document = bench->Open(bench->Put(QStringLiteral("a.bas"), "old\r\n"), "'include lib.bas\r\nend");
        const QString path = bench->Path(QStringLiteral("out/whole.bas"));
        bench->dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"), SaveAsFilter, path);
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
        cDocument& document = bench->Open(QStringLiteral("untitled.bas"), "'include gone.bas\r\nend");
        const QString path = bench->Path(QStringLiteral("whole.bas"));
        bench->dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"), SaveAsFilter, path);
        mnuFileProject_Click();
        QCOMPARE(CoreBench::Get(path), QByteArray("'include gone.bas\r\nend \r\n"));
        ExpectSaved(document, path);
    }

private:
    void ExpectSaved(const cDocument& document, const QString& path) const
    {
        QCOMPARE(document.Caption(), path);
        QCOMPARE(document.Tag, QString());
        QCOMPARE(bench->form.status, QStringLiteral("File saved as ") + path);
        QCOMPARE(RecentFiles[0], path);
        QVERIFY(!FakeMainForm::Control(document).modified);
    }

    void ExpectUntouched(const cDocument& document, const QString& caption) const
    {
        QCOMPARE(document.Caption(), caption);
        QCOMPARE(document.Tag, TagOpen);
        QCOMPARE(bench->form.status, QString());
        QCOMPARE(RecentFiles[0], QStringLiteral("untitled"));
        QCOMPARE(FakeMainForm::Control(document).text, QByteArray("new"));
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modProject)
#include "tst_modProject.moc"
