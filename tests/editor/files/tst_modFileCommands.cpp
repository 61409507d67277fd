// SPDX-License-Identifier: GPL-3.0-or-later
// New, Close, Exit and the recent items, with the slots that they use.
#include "editor/files/modFileCommands.h"

#include "core/CoreBench.h"
#include "editor/document/modDocument.h"

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modFileCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<CoreBench>();
        Documents.push_back(nullptr);
        Documents.push_back(std::make_unique<cDocument>(1));
    }
    void cleanup() { bench.reset(); }

    void theThirdEmptyDocumentReusesTheWindowOfTheSecond()
    {
        mnuFileNew_Click();
        QCOMPARE(Documents.size(), std::size_t{2});
        QCOMPARE(Documents[1]->Tag, TagOpen);
        QCOMPARE(Documents[1]->Caption(), u"untitled.bas"_s);
        mnuFileNew_Click();
        QCOMPARE(Documents.size(), std::size_t{3});
        QCOMPARE(Documents[2]->Tag, QString());
        FakeSci& control = bench->form.ActiveControl();
        control.Type("typed");
        mnuFileNew_Click();
        QCOMPARE(Documents.size(), std::size_t{3});
        QCOMPARE(Documents[2]->Tag, TagOpen);
        QVERIFY(&bench->form.ActiveControl() == &control);
        QCOMPARE(control.text, QByteArray());
        mnuFileNew_Click();
        QCOMPARE(Documents.size(), std::size_t{4});
        QCOMPARE(bench->form.log, (QStringList{u"show 1"_s, u"show 2"_s, u"show 2"_s, u"show 3"_s}));
    }

    void aNewWindowHasTheProgrammersCommentsOnRequest()
    {
        CoreBench::PutFile(bench->ProgramPath(u"comments.txt"_s), "'by J\xFCrgen\r\n'2024\r\n");
        AddComments = true;
        mnuFileNew_Click();
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("'by J\xC3\xBCrgen\r\n'2024"));
        QCOMPARE(bench->form.ActiveControl().caret, qsizetype{0});
        QCOMPARE(bench->form.active->Caption(), u"untitled.bas"_s);
    }

    void withoutACommentsFileASentenceReplacesThem()
    {
        AddComments = true;
        mnuFileNew_Click();
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("'no programmer's comments on file"));
    }

    void aCommentsFileOfOneByteIsAnEmptyText()
    {
        CoreBench::PutFile(bench->ProgramPath(u"comments.txt"_s), "'");
        AddComments = true;
        mnuFileNew_Click();
        QCOMPARE(bench->form.ActiveControl().text, QByteArray());
    }

    void withoutTheEditLibraryNoTextIsTouched()
    {
        bench->form.hasEditLibrary = false;
        AddComments = true;
        mnuFileNew_Click();
        QVERIFY(Documents[1]->sci == nullptr);
        QCOMPARE(Documents[1]->Caption(), u"Document 1"_s);
    }

    void closeUnloadsTheActiveWindowAndItsNumberIsReused()
    {
        mnuFileNew_Click();
        Documents[1]->Tag = TagOpen;
        mnuFileClose_Click();
        QCOMPARE(Documents[1]->Tag, TagClosed);
        QVERIFY(NewDocument() != nullptr);
        QCOMPARE(bench->form.active->Caption(), u"Document 1"_s);
        QCOMPARE(bench->form.log, (QStringList{u"show 1"_s, u"unload 1"_s, u"show 1"_s}));
    }

    void closeNeedsACodeWindow_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("none") << static_cast<int>(ActiveChild::None);
        QTest::newRow("form") << static_cast<int>(ActiveChild::Gui);
    }

    void closeNeedsACodeWindow()
    {
        QFETCH(int, kind);
        bench->form.kind = static_cast<ActiveChild>(kind);
        bench->dialogs.ExpectMessage(u"No code window is active!"_s);
        mnuFileClose_Click();
        QVERIFY(bench->dialogs.Finished());
        QVERIFY(bench->form.log.isEmpty());
    }

    void exitUnloadsTheFrame()
    {
        mnuFileExit_Click();
        QCOMPARE(bench->form.log, QStringList{u"unload frame"_s});
    }

    void theStatusNamesALineThatIsTooLongForColors()
    {
        RecentFiles[0] = bench->Put(u"a.bas"_s, "print\r\n" + QByteArray(70000, 'x') + "\r\nend\r\n");
        RecentFiles[1] = bench->Put(u"b.bas"_s, QByteArray(60000, 'x') + "\r\nend\r\n");
        RecentCount = 2;
        mnuFileMRU_Click(1);
        QVERIFY(bench->form.status.startsWith(u"a.bas  Size: 70014 KB   Last Modified: "_s));
        QVERIFY(bench->form.status.endsWith(u"   Line 2 is too long to be shown in colour"_s));
        mnuFileMRU_Click(2);
        QVERIFY(bench->form.status.startsWith(u"b.bas"_s));
        QVERIFY(!bench->form.status.contains(u"too long"_s));
    }

    void aRecentItemOpensItsFileAndMovesItToTheFront()
    {
        const QString first = bench->Put(u"a.bas"_s, "a\r\n");
        const QString second = bench->Put(u"b.bas"_s, "second\r\n");
        RecentFiles[0] = first;
        RecentFiles[1] = second;
        RecentCount = 2;
        mnuFileMRU_Click(2);
        QCOMPARE(bench->form.active->Caption(), second);
        QCOMPARE(bench->form.active->Tag, TagOpen);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("second"));
        QVERIFY(bench->form.status.startsWith(u"b.bas  Size: 8 KB   Last Modified: "_s));
        QCOMPARE(RecentFiles[0], second);
        QCOMPARE(RecentFiles[1], first);
        QCOMPARE(RecentCount, 2);
    }

    void aRecentItemWithoutItsFileShowsAMessage()
    {
        RecentFiles[2] = bench->Path(u"gone.bas"_s);
        bench->dialogs.ExpectMessage(u"Cannot find "_s + RecentFiles[2], BoxAnswer::Ok, BoxIcon::None);
        mnuFileMRU_Click(3);
        QVERIFY(bench->dialogs.Finished());
        QVERIFY(bench->form.log.isEmpty());
        QCOMPARE(RecentFiles[2], bench->Path(u"gone.bas"_s));
    }

    void aSavedWindowIsTakenByTheNextFile()
    {
        const QString file = bench->Put(u"b.bas"_s, "second\r\n");
        cDocument& document = bench->Open(bench->Path(u"a.bas"_s), "first");
        Documents[1]->Tag = TagOpen;
        document.Tag.clear();
        OpenRecentFile(file);
        QCOMPARE(document.Caption(), file);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("second"));
        QCOMPARE(Documents.size(), std::size_t{3});
        QCOMPARE(RecentFiles[0], u"untitled"_s);
    }

private:
    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modFileCommands)
#include "tst_modFileCommands.moc"
