// SPDX-License-Identifier: GPL-3.0-or-later
// The keyword editor: what it shows, and what its buttons do to the file and to open code windows.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "editor/frmDocument.h"
#include "editor/frmKeywords.h"
#include "shell/state/Module1.h"

#include <QDir>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QString Sentence = u"no custom keywords found"_s;
const QString NothingText = u"No keywords to add to custom keyword file.\n"
                            "Choose OK to close this dialog, or\n"
                            "CANCEL to return and edit the keywords further."_s;

} // namespace

class win_frmKeywords : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<frmKeywords> window;

    QString File() const { return bench->ProgramPath(u"keywords.txt"_s); }
    void WriteFile(const QByteArray& bytes) const
    {
        QFile file(File());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QPlainTextEdit* Field() const { return window->findChild<QPlainTextEdit*>(u"txtDisplay"_s); }
    void Press(const char* button) const
    {
        window->findChild<QPushButton*>(QString::fromLatin1(button))->click();
        QApplication::processEvents();
    }
    void Open()
    {
        window = std::make_unique<frmKeywords>(bench->Frame().isVisible() ? &bench->Frame() : nullptr);
        window->show();
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
    }

    // A code window with the word in it, and the style of its first character: 3 is a keyword, 7 any other word.
    void OpenCode()
    {
        bench->Choose(u"mnuFileNew"_s);
        TestBench::Type(bench->Active(), "pear");
    }
    std::intptr_t StyleOfWord() const
    {
        SendSci(bench->Active()->sci, SCI_COLOURISE, 0, -1);
        return SendSci(bench->Active()->sci, SCI_GETSTYLEAT, 0);
    }

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<TestBench>();
        bench->Start();
        QuitQuery = false;
    }
    void cleanup()
    {
        window.reset();
        bench.reset();
    }

    void withoutKeywordsTheSentenceIsSelected()
    {
        Open();
        QCOMPARE(Field()->toPlainText(), Sentence);
        QCOMPARE(Field()->textCursor().selectedText(), Sentence);
        QCOMPARE(window->focusWidget(), Field());
        QTest::keyClicks(Field(), u"Fig"_s);
        QCOMPARE(Field()->toPlainText(), u"Fig"_s);
    }

    void keywordsAreShownWithTheirLineEnd()
    {
        WriteFile("pear apple\r\n");
        Open();
        QCOMPARE(Field()->toPlainText(), u"pear apple\n"_s);
        QTest::keyClicks(Field(), u"fig"_s);
        QCOMPARE(Field()->toPlainText(), u"pear apple\nfig"_s);
    }

    void okayColoursTheWordsInOpenWindows()
    {
        OpenCode();
        QCOMPARE(StyleOfWord(), 7);
        bench->ExpectModal(u"frmKeywords"_s, [](QDialog& dialog) {
            QTest::keyClicks(dialog.focusWidget(), u"PEAR fig"_s);
            dialog.findChild<QPushButton*>(u"cmdOkay"_s)->click();
        });
        mnuOptionsKeywords_Click();
        QCOMPARE(TestBench::Read(File()), QByteArray("pear fig\r\n"));
        QCOMPARE(StyleOfWord(), 3);
        OpenCode();
        QCOMPARE(StyleOfWord(), 3);
    }

    void deletingRemovesTheColour()
    {
        WriteFile("pear\r\n");
        bench->Close();
        bench->Start();
        QuitQuery = false;
        OpenCode();
        QCOMPARE(StyleOfWord(), 3);
        Open();
        Press("cmdDelete");
        QVERIFY(!window->isVisible());
        QVERIFY(!QFile::exists(File()));
        QCOMPARE(StyleOfWord(), 7);
    }

    void enterIsOkay()
    {
        Open();
        QTest::keyClicks(Field(), u"fig"_s);
        QTest::keyClick(Field(), Qt::Key_Return);
        QVERIFY(!window->isVisible());
        QCOMPARE(TestBench::Read(File()), QByteArray("fig\r\n"));
    }

    void escapeAndCancelChangeNothing_data()
    {
        QTest::addColumn<bool>("byKey");
        QTest::newRow("Escape") << true;
        QTest::newRow("Cancel") << false;
    }

    void escapeAndCancelChangeNothing()
    {
        QFETCH(bool, byKey);
        Open();
        QTest::keyClicks(Field(), u"fig"_s);
        if (byKey)
            QTest::keyClick(Field(), Qt::Key_Escape);
        else
            Press("cmdCancel");
        QVERIFY(!window->isVisible());
        QVERIFY(!QFile::exists(File()));
    }

    void theSentenceAloneIsNothingToSave()
    {
        Open();
        Field()->setPlainText(u"NO custom keywords FOUND"_s);
        bench->dialogs.ExpectMessage(NothingText, BoxAnswer::Cancel, BoxIcon::Critical, BoxButtons::OkCancel,
                                     u"Error."_s);
        Press("cmdOkay");
        QVERIFY(window->isVisible());
        QVERIFY(Field()->hasFocus());
        bench->dialogs.ExpectMessage(NothingText, BoxAnswer::Ok, BoxIcon::Critical, BoxButtons::OkCancel, u"Error."_s);
        Press("cmdOkay");
        QVERIFY(!window->isVisible());
        QVERIFY(!QFile::exists(File()));
    }

    void aFailedSaveKeepsTheWindow()
    {
        QDir().mkdir(File());
        Open();
        QTest::keyClicks(Field(), u"fig"_s);
        bench->dialogs.ExpectMessage(u"Run-time error '75':\nPath/File access error"_s);
        Press("cmdOkay");
        QVERIFY(window->isVisible());
        QCOMPARE(Field()->toPlainText(), u"fig"_s);
    }

    void tabLeavesTheField()
    {
        Open();
        QTest::keyClick(Field(), Qt::Key_Tab);
        QVERIFY(!Field()->hasFocus());
        QCOMPARE(Field()->toPlainText(), Sentence);
    }
};

OB_BENCH_TEST(win_frmKeywords)
#include "win_frmKeywords.moc"
