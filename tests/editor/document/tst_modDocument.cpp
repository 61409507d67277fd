// SPDX-License-Identifier: GPL-3.0-or-later
// Code windows as slots: which one is taken, what is read into it, what is written from it.
#include "editor/document/modDocument.h"
#include "editor/files/modDocumentFile.h"

#include "core/CoreBench.h"
#include "platform/files/modFiles.h"

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
        QTest::newRow("another case is not open") << QStringList{TagOpen, QStringLiteral("open")} << 2;
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
        QCOMPARE(document->Caption(), QStringLiteral("Document 2"));
        QVERIFY(bench->form.active == document);
        QCOMPARE(bench->form.log, QStringList{QStringLiteral("show 2")});
    }

    void aNewDocumentWithoutAControlIsNone()
    {
        bench->form.hasEditLibrary = false;
        QVERIFY(NewDocument() == nullptr);
        QCOMPARE(Documents[1]->Caption(), QStringLiteral("Document 1"));
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
        bench->Open(QStringLiteral("Document 1"), "old");
        LoadDocumentFile(*ActiveDocument(), bench->Put(QStringLiteral("a.bas"), file));
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
        bench->Open(QStringLiteral("Document 1"), "old");
        const QString path = bench->Put(QStringLiteral("a.bas"), file);
        QCOMPARE(RaisedBy([&] { LoadDocumentFile(*ActiveDocument(), path); }), 5);
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("old"));
        QVERIFY(bench->form.ActiveControl().messages.isEmpty());
    }

    void aMissingFileIsReportedAndChangesNothing()
    {
        bench->Open(QStringLiteral("Document 1"), "old");
        bench->dialogs.ExpectMessage(QStringLiteral("File does not exist or is corrupt."), BoxAnswer::Ok,
                                     BoxIcon::Critical, BoxButtons::Ok, QStringLiteral("Error"));
        LoadDocumentFile(*ActiveDocument(), bench->Path(QStringLiteral("gone.bas")));
        QVERIFY(bench->dialogs.Finished());
        QVERIFY(bench->form.ActiveControl().messages.isEmpty());
        QVERIFY(bench->form.log.isEmpty());
    }

    void aLoadedFileStaysUndoableAndCountsAsSaved()
    {
        bench->Open(QStringLiteral("Document 1"), "old");
        bench->form.ActiveControl().Type("more");
        LoadDocumentFile(*ActiveDocument(), bench->Put(QStringLiteral("a.bas"), "new\r\n"));
        const FakeSci& control = bench->form.ActiveControl();
        QCOMPARE(control.messages,
                 (QList<unsigned>{SCI_EMPTYUNDOBUFFER, SCI_CLEARALL, SCI_ADDTEXT, SCI_GOTOPOS, SCI_SETSAVEPOINT}));
        QCOMPARE(control.text, QByteArray("new"));
        QCOMPARE(control.caret, qsizetype{0});
        QVERIFY(!control.modified);
        QCOMPARE(bench->form.log, QStringList{QStringLiteral("show 1")});
    }

    void aFileOfTheCodePageIsReadAsText()
    {
        bench->Open(QStringLiteral("Document 1"));
        LoadDocumentFile(*ActiveDocument(), bench->Put(QStringLiteral("a.bas"), "'\x80 \xE4\x81\r\n"));
        QCOMPARE(bench->form.ActiveControl().text, QByteArray("'\xE2\x82\xAC \xC3\xA4\xC2\x81"));
    }

    void anOpenedFileGivesTheWindowItsNameAndItsPlaceInTheList()
    {
        const QString path = bench->Put(QStringLiteral("a.bas"), QByteArray(2048, 'x'));
        cDocument& document = bench->Open(QStringLiteral("Document 1"));
        document.Tag.clear();
        AfterFileOpen(*ActiveDocument(), path);
        QCOMPARE(document.Caption(), path);
        QCOMPARE(document.Tag, TagOpen);
        QCOMPARE(RecentFiles[0], path);
        QCOMPARE(bench->form.status, QStringLiteral("a.bas  Size: 2048 KB   Last Modified: ") + FileDateText(path));
    }

    void textSentToAWindowIsInsertedBeforeTheCaret()
    {
        cDocument& document = bench->Open(QStringLiteral("Document 1"), "'end");
        SendToDocument(*ActiveDocument(), "print \"\xE4\"\r\n", QStringLiteral("untitled.bas"));
        QCOMPARE(document.Caption(), QStringLiteral("untitled.bas"));
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
        bench->Open(QStringLiteral("a.bas"), text);
        QVERIFY(SaveDocumentFile(*ActiveDocument(), bench->Path(QStringLiteral("a.bas"))) == SaveEnd::Written);
        QCOMPARE(CoreBench::Get(bench->Path(QStringLiteral("a.bas"))), file);
        QCOMPARE(bench->form.ActiveControl().text, text + "  ");
    }

    void aSaveIsTheSavePointAndLeavesTheCaret()
    {
        bench->Open(QStringLiteral("a.bas"));
        FakeSci& control = bench->form.ActiveControl();
        control.Type("print 1");
        control.caret = 3;
        QVERIFY(SaveDocumentFile(*ActiveDocument(), bench->Path(QStringLiteral("a.bas"))) == SaveEnd::Written);
        QVERIFY(!control.modified);
        QCOMPARE(control.caret, qsizetype{3});
    }

    void eachSaveAddsTwoSpacesToTheTextAndOneToTheFileOfAReload()
    {
        const QString path = bench->Put(QStringLiteral("a.bas"), "print 1\r\n");
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
        const QString path = bench->Put(QStringLiteral("a.bas"), "old\r\n");
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
        QTest::newRow("missing folder") << QStringLiteral("gone/a.bas") << 76;
        QTest::newRow("a folder") << QStringLiteral("folder") << 75;
    }

    void aWriteThatFailsChangesNothing()
    {
        QFETCH(QString, name);
        QFETCH(int, error);
        QDir().mkdir(QStringLiteral("folder"));
        const QStringList before = QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
        bench->Open(QStringLiteral("a.bas"));
        FakeSci& control = bench->form.ActiveControl();
        control.Type("print 1");
        QCOMPARE(RaisedBy([&] { SaveDocumentFile(*ActiveDocument(), bench->Path(name)); }), error);
        QCOMPARE(control.text, QByteArray("print 1"));
        QVERIFY(control.modified);
        QCOMPARE(QDir().entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot), before);
    }

    void anotherWindowThanTheActiveOneCanBeSaved()
    {
        cDocument& first = bench->Open(QStringLiteral("a.bas"), "first");
        cDocument& second = bench->Open(QStringLiteral("b.bas"), "second");
        QVERIFY(SaveDocumentFile(first, bench->Path(QStringLiteral("a.bas"))) == SaveEnd::Written);
        QCOMPARE(CoreBench::Get(bench->Path(QStringLiteral("a.bas"))), QByteArray("first \r\n"));
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
        bench->dialogs.ExpectMessage(QStringLiteral("No code window is active!"));
        QVERIFY(NeedDocument() == nullptr);
        QVERIFY(bench->dialogs.Finished());
    }

    // --- What windows enable and disable. ---

    void CodeCommandsAreSixButtonsSixItemsAndTools()
    {
        EnableCodeCommands(Switch::On);
        QCOMPARE(
            bench->form.log.join(QLatin1Char(',')),
            QStringLiteral(
                "enable button Save,enable button Print,enable button Cut,enable button Copy,"
                "enable button Paste,enable button Find,enable mnuFileClose,enable mnuFileSave,enable mnuFileSaveAs,"
                "enable mnuFileInsert,enable mnuFilePrint,enable mnuFileProject,enable code tools"));
        bench->form.log.clear();
        EnableCodeCommands(Switch::Off);
        QCOMPARE(bench->form.log.size(), 13);
        QCOMPARE(bench->form.log.filter(QStringLiteral("disable ")).size(), 13);
    }

    void runCommandsAreTwoButtonsAndThreeItems()
    {
        EnableRunCommands(Switch::Off);
        QCOMPARE(
            bench->form.log.join(QLatin1Char(',')),
            QStringLiteral("disable button Run,disable button Debug,disable mnuRun,disable mnuTKN,disable mnuDebug"));
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
        return QStringLiteral("Line %1 holds a character that BASIC source files cannot store.\n"
                              "Save with a question mark in place of each such character?")
            .arg(line);
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modDocument)
#include "tst_modDocument.moc"
