// SPDX-License-Identifier: GPL-3.0-or-later
// Code windows as slots: which one is taken, what is read into it, what is written from it.
#include "editor/document/modDocument.h"
#include "editor/files/modDocumentFile.h"

#include "core/CoreBench.h"
#include "platform/files/modFiles.h"

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modDocument : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup() { bench.reset(); }

    // --- Slots. ---

    void theFirstSlotThatIsNotOpenIsTaken_data()
    {
        QTest::addColumn<QStringList>("tags");
        QTest::addColumn<int>("slot");
        QTest::newRow("no slots yet") << QStringList{} << 1;
        QTest::newRow("empty") << QStringList{QString()} << 1;
        QTest::newRow("closed") << QStringList{TagOpen, TagClosed, QString()} << 2;
        QTest::newRow("saved") << QStringList{TagOpen, TagOpen, QString()} << 3;
        QTest::newRow("another case is not open") << QStringList{TagOpen, u"open"_s} << 2;
        QTest::newRow("all open") << QStringList{TagOpen, TagOpen} << 3;
    }

    void theFirstSlotThatIsNotOpenIsTaken()
    {
        QFETCH(QStringList, tags);
        QFETCH(int, slot);
        MakeSlots(tags);
        QCOMPARE(FreeDocumentSlot(), slot);
        const auto place = static_cast<std::size_t>(slot);
        QCOMPARE(Documents.size(), std::max(place, static_cast<std::size_t>(tags.size())) + 1);
        QCOMPARE(Documents[place]->number, slot);
        // A slot that was added is marked only when a file has been opened into it.
        QCOMPARE(Documents[place]->Tag, slot > tags.size() ? QString() : TagOpen);
    }

    void anAddedSlotIsTakenAgainAndOnlyThenMarked()
    {
        MakeSlots({TagOpen});
        QCOMPARE(FreeDocumentSlot(), 2);
        QCOMPARE(FreeDocumentSlot(), 2);
        QCOMPARE(FreeDocumentSlot(), 3);
    }

    void aNewDocumentIsNamedAfterItsSlot()
    {
        MakeSlots({TagOpen, TagClosed});
        cDocument* document = NewDocument();
        QVERIFY(document != nullptr && document == Documents[2].get());
        QCOMPARE(document->Caption(), u"Document 2"_s);
        QVERIFY(bench->form.active == document);
        QCOMPARE(bench->form.log, QStringList{u"show 2"_s});
    }

    void aNewDocumentWithoutAControlIsNone()
    {
        bench->form.hasEditLibrary = false;
        QVERIFY(NewDocument() == nullptr);
        QCOMPARE(Documents[1]->Caption(), u"Document 1"_s);
    }

    // --- Reading. ---

    void theLastTwoBytesOfAFileAreDropped_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("loaded");
        QTest::newRow("line end") << QByteArray("print 1\r\n") << QByteArray("print 1");
        QTest::newRow("space and line end") << QByteArray("print 1 \r\n") << QByteArray("print 1 ");
        QTest::newRow("two line ends") << QByteArray("a\r\n\r\n") << QByteArray("a\r\n");
        QTest::newRow("no line end") << QByteArray("print 1") << QByteArray("print");
        QTest::newRow("LF only") << QByteArray("ab\n") << QByteArray("a");
        QTest::newRow("two bytes") << QByteArray("\r\n") << QByteArray("");
        QTest::newRow("NUL") << QByteArray("a\0b\r\n", 5) << QByteArray("a\0b", 3);
    }

    void theLastTwoBytesOfAFileAreDropped()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, loaded);
        QCOMPARE(LoadedBytes(file), loaded);
        bench->Open(u"Document 1"_s, "old");
        LoadDocumentFile(*ActiveDocument(), bench->Put(u"a.bas"_s, file));
        QCOMPARE(bench->form.ActiveControl().text, loaded);
    }

    void aFileOfFewerThanTwoBytesIsAnErrorAndChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("empty") << QByteArray("");
        QTest::newRow("one byte") << QByteArray("x");
    }

    void aFileOfFewerThanTwoBytesIsAnErrorAndChangesNothing()
    {
        QFETCH(QByteArray, file);
        QCOMPARE(RaisedBy([&] { LoadedBytes(file); }), 5);
        bench->Open(u"Document 1"_s, "old");
        const QString path = bench->Put(u"a.bas"_s, file);
        QCOMPARE(RaisedBy([&] { LoadDocumentFile(*ActiveDocument(), path); }), 5);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("old"));
        QVERIFY(bench->form.ActiveControl().messages.isEmpty());
    }

    void aMissingFileIsReportedAndChangesNothing()
    {
        bench->Open(u"Document 1"_s, "old");
        bench->dialogs.ExpectMessage(u"File does not exist or is corrupt."_s, BoxAnswer::Ok, BoxIcon::Critical,
                                     BoxButtons::Ok, u"Error"_s);
        LoadDocumentFile(*ActiveDocument(), bench->Path(u"gone.bas"_s));
        QVERIFY(bench->dialogs.Finished());
        QVERIFY(bench->form.ActiveControl().messages.isEmpty());
        QVERIFY(bench->form.log.isEmpty());
    }

    void aLoadedFileStaysUndoableAndCountsAsSaved()
    {
        bench->Open(u"Document 1"_s, "old");
        bench->form.ActiveControl().Type("more");
        LoadDocumentFile(*ActiveDocument(), bench->Put(u"a.bas"_s, "new\r\n"));
        const FakeSci& control = bench->form.ActiveControl();
        QCOMPARE(control.messages,
                 (QList<unsigned>{SCI_EMPTYUNDOBUFFER, SCI_CLEARALL, SCI_ADDTEXT, SCI_GOTOPOS, SCI_SETSAVEPOINT}));
        QCOMPARE(control.text, QByteArray("new"));
        QCOMPARE(control.caret, qsizetype{0});
        QVERIFY(!control.modified);
        QCOMPARE(bench->form.log, QStringList{u"show 1"_s});
    }

    void aFileOfTheCodePageIsReadAsText()
    {
        bench->Open(u"Document 1"_s);
        LoadDocumentFile(*ActiveDocument(), bench->Put(u"a.bas"_s, "'\x80 \xE4\x81\r\n"));
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("'\xE2\x82\xAC \xC3\xA4\xC2\x81"));
    }

    void anOpenedFileGivesTheWindowItsNameAndItsPlaceInTheList()
    {
        const QString path = bench->Put(u"a.bas"_s, QByteArray(2048, 'x'));
        cDocument& document = bench->Open(u"Document 1"_s);
        document.Tag.clear();
        AfterFileOpen(*ActiveDocument(), path);
        QCOMPARE(document.Caption(), path);
        QCOMPARE(document.Tag, TagOpen);
        QCOMPARE(RecentFiles[0], path);
        QCOMPARE(bench->form.status, u"a.bas  Size: 2048 KB   Last Modified: "_s + FileDateText(path));
    }

    void textSentToAWindowIsInsertedBeforeTheCaret()
    {
        cDocument& document = bench->Open(u"Document 1"_s, "'end");
        SendToDocument(*ActiveDocument(), "print \"\xE4\"\r\n", u"untitled.bas"_s);
        QCOMPARE(document.Caption(), u"untitled.bas"_s);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print \"\xC3\xA4\"\r\n'end"));
        QCOMPARE(bench->form.ActiveControl().caret, qsizetype{0});
    }

    // --- Writing. ---

    void aFileHasTheTextOneSpaceAndALineEnd_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("empty") << QByteArray() << QByteArray(" \r\n");
        QTest::newRow("text") << QByteArray("print 1") << QByteArray("print 1 \r\n");
        QTest::newRow("line end at the end stays") << QByteArray("a\r\n") << QByteArray("a\r\n \r\n");
        QTest::newRow("line ends stay as they are") << QByteArray("a\nb\rc\r\n") << QByteArray("a\nb\rc\r\n \r\n");
        QTest::newRow("spaces") << QByteArray("  a  ") << QByteArray("  a   \r\n");
        QTest::newRow("NUL") << QByteArray("a\0b", 3) << QByteArray("a\0b \r\n", 6);
        QTest::newRow("code page") << QByteArray("\xE2\x82\xAC\xC3\xA4\xC2\x81") << QByteArray("\x80\xE4\x81 \r\n");
    }

    void aFileHasTheTextOneSpaceAndALineEnd()
    {
        QFETCH(QByteArray, text);
        QFETCH(QByteArray, file);
        QCOMPARE(SavedBytes(text).bytes, file);
        QCOMPARE(SavedBytes(text).lostLine, 0);
        bench->Open(u"a.bas"_s, text);
        QVERIFY(SaveDocumentFile(*ActiveDocument(), bench->Path(u"a.bas"_s)) == SaveEnd::Written);
        QCOMPARE(CoreBench::Get(bench->Path(u"a.bas"_s)), file);
        QCOMPARE(bench->form.ActiveControl().text, text + "  ");
    }

    void aSaveIsTheSavePointAndLeavesTheCaret()
    {
        bench->Open(u"a.bas"_s);
        FakeSci& control = bench->form.ActiveControl();
        control.Type("print 1");
        control.caret = 3;
        QVERIFY(SaveDocumentFile(*ActiveDocument(), bench->Path(u"a.bas"_s)) == SaveEnd::Written);
        QVERIFY(!control.modified);
        QCOMPARE(control.caret, qsizetype{3});
    }

    void eachSaveAddsTwoSpacesToTheTextAndOneToTheFileOfAReload()
    {
        const QString path = bench->Put(u"a.bas"_s, "print 1\r\n");
        bench->Open(path);
        LoadDocumentFile(*ActiveDocument(), path);
        SaveDocumentFile(*ActiveDocument(), path);
        QCOMPARE(CoreBench::Get(path), QByteArray("print 1 \r\n"));
        SaveDocumentFile(*ActiveDocument(), path);
        QCOMPARE(CoreBench::Get(path), QByteArray("print 1   \r\n"));
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1    "));
        LoadDocumentFile(*ActiveDocument(), path);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("print 1   "));
        SaveDocumentFile(*ActiveDocument(), path);
        QCOMPARE(CoreBench::Get(path), QByteArray("print 1    \r\n"));
    }

    void aLostCharacterIsReportedWithItsLine_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("line");
        QTest::addColumn<QByteArray>("file");
        QTest::newRow("first line") << QByteArray("\xCE\xB1") << 1 << QByteArray("? \r\n");
        QTest::newRow("CR LF") << QByteArray("a\r\nb\r\nc\xE4\xB8\xAD\r\nd") << 3
                               << QByteArray("a\r\nb\r\nc?\r\nd \r\n");
        QTest::newRow("LF") << QByteArray("a\n\n\xCE\xB1") << 3 << QByteArray("a\n\n? \r\n");
        QTest::newRow("CR") << QByteArray("a\r\xCE\xB1") << 2 << QByteArray("a\r? \r\n");
        QTest::newRow("the first of several")
            << QByteArray("a\r\n\xCE\xB1\r\n\xCE\xB2") << 2 << QByteArray("a\r\n?\r\n? \r\n");
        QTest::newRow("one mark for four bytes") << QByteArray("\xF0\x9F\x98\x80!") << 1 << QByteArray("?! \r\n");
    }

    void aLostCharacterIsReportedWithItsLine()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, line);
        QFETCH(QByteArray, file);
        QCOMPARE(SavedBytes(text).lostLine, line);
        const QString path = bench->Put(u"a.bas"_s, "old\r\n");
        bench->Open(path);
        FakeSci& control = bench->form.ActiveControl();
        control.Type(text);

        bench->dialogs.ExpectQuestion(Question(line), BoxAnswer::No);
        QVERIFY(SaveDocumentFile(*ActiveDocument(), path) == SaveEnd::Declined);
        QVERIFY(bench->dialogs.Finished());
        QCOMPARE(CoreBench::Get(path), QByteArray("old\r\n"));
        QCOMPARE(control.text, text);
        QVERIFY(control.modified);

        bench->dialogs.ExpectQuestion(Question(line), BoxAnswer::Yes);
        QVERIFY(SaveDocumentFile(*ActiveDocument(), path) == SaveEnd::Written);
        QVERIFY(bench->dialogs.Finished());
        QCOMPARE(CoreBench::Get(path), file);
        QCOMPARE(control.text, text + "  ");
        QVERIFY(!control.modified);
    }

    void aWriteThatFailsChangesNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("error");
        QTest::newRow("missing folder") << u"gone/a.bas"_s << 76;
        QTest::newRow("a folder") << u"folder"_s << 75;
    }

    void aWriteThatFailsChangesNothing()
    {
        QFETCH(QString, name);
        QFETCH(int, error);
        QDir().mkdir(u"folder"_s);
        const QStringList before = QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        bench->Open(u"a.bas"_s);
        FakeSci& control = bench->form.ActiveControl();
        control.Type("print 1");
        QCOMPARE(RaisedBy([&] { SaveDocumentFile(*ActiveDocument(), bench->Path(name)); }), error);
        QCOMPARE(control.text, QByteArray("print 1"));
        QVERIFY(control.modified);
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), before);
    }

    void anotherWindowThanTheActiveOneCanBeSaved()
    {
        cDocument& first = bench->Open(u"a.bas"_s, "first");
        cDocument& second = bench->Open(u"b.bas"_s, "second");
        QVERIFY(SaveDocumentFile(first, bench->Path(u"a.bas"_s)) == SaveEnd::Written);
        QCOMPARE(CoreBench::Get(bench->Path(u"a.bas"_s)), QByteArray("first \r\n"));
        QCOMPARE(FakeMainForm::Control(second).text, QByteArray("second"));
    }

    // --- Without a code window. ---

    void withoutACodeWindowCommandsShowAMessage_data()
    {
        QTest::addColumn<int>("kind");
        QTest::newRow("none") << static_cast<int>(ActiveChild::None);
        QTest::newRow("form") << static_cast<int>(ActiveChild::Gui);
    }

    void withoutACodeWindowCommandsShowAMessage()
    {
        QFETCH(int, kind);
        bench->form.kind = static_cast<ActiveChild>(kind);
        QVERIFY(ActiveDocument() == nullptr);
        QVERIFY(bench->form.log.isEmpty());
        bench->dialogs.ExpectMessage(u"No code window is active!"_s);
        QVERIFY(NeedDocument() == nullptr);
        QVERIFY(bench->dialogs.Finished());
    }

    // --- What windows enable and disable. ---

    void codeCommandsAreSixButtonsSixItemsAndTools()
    {
        EnableCodeCommands(Switch::On);
        QCOMPARE(bench->form.log.join(QLatin1Char(',')),
                 u"enable button Save,enable button Print,enable button Cut,enable button Copy,"
                 "enable button Paste,enable button Find,enable mnuFileClose,enable mnuFileSave,enable mnuFileSaveAs,"
                 "enable mnuFileInsert,enable mnuFilePrint,enable mnuFileProject,enable code tools"_s);
        bench->form.log.clear();
        EnableCodeCommands(Switch::Off);
        QCOMPARE(bench->form.log.size(), 13);
        QCOMPARE(bench->form.log.filter(u"disable "_s).size(), 13);
    }

    void runCommandsAreTwoButtonsAndThreeItems()
    {
        EnableRunCommands(Switch::Off);
        QCOMPARE(bench->form.log.join(QLatin1Char(',')),
                 u"disable button Run,disable button Debug,disable mnuRun,disable mnuTKN,disable mnuDebug"_s);
    }

private:
    static void MakeSlots(const QStringList& tags)
    {
        if (!tags.isEmpty())
            Documents.push_back(nullptr);
        for (const QString& tag : tags) {
            Documents.push_back(std::make_unique<cDocument>(static_cast<int>(Documents.size())));
            Documents.back()->Tag = tag;
        }
    }

    static QString Question(int line)
    {
        return u"Line %1 holds a character that BASIC source files cannot store.\n"
               "Save with a question mark in place of each such character?"_s.arg(line);
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modDocument)
#include "tst_modDocument.moc"
