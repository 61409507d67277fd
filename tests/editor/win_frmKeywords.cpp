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

using namespace ob;

namespace {

const QString Sentence = QStringLiteral("no custom keywords found");
const QString NothingText = QStringLiteral("No keywords to add to custom keyword file.\n"
                                           "Choose OK to close this dialog, or\n"
                                           "CANCEL to return and edit the keywords further.");

} // namespace

class win_frmKeywords : public QObject {
    Q_OBJECT

    std::unique_ptr<TestBench> bench;
    std::unique_ptr<frmKeywords> window;

    QString File() const { return bench->ProgramPath(QStringLiteral("keywords.txt")); }
    void WriteFile(const QByteArray& bytes) const
    {
        QFile file(File());
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    QPlainTextEdit* Field() const { return window->findChild<QPlainTextEdit*>(QStringLiteral("txtDisplay")); }
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
        bench->Choose(QStringLiteral("mnuFileNew"));
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
        QTest::keyClicks(Field(), QStringLiteral("Fig"));
        QCOMPARE(Field()->toPlainText(), QStringLiteral("Fig"));
    }

    void keywordsAreShownWithTheirLineEnd()
    {
        WriteFile("pear apple\r\n");
        Open();
        QCOMPARE(Field()->toPlainText(), QStringLiteral("pear apple\n"));
        QTest::keyClicks(Field(), QStringLiteral("fig"));
        QCOMPARE(Field()->toPlainText(), QStringLiteral("pear apple\nfig"));
    }

    void okayColoursTheWordsInOpenWindows()
    {
        OpenCode();
        QCOMPARE(StyleOfWord(), 7);
        bench->ExpectModal(QStringLiteral("frmKeywords"), [](QDialog& dialog) {
            QTest::keyClicks(dialog.focusWidget(), QStringLiteral("PEAR fig"));
            dialog.findChild<QPushButton*>(QStringLiteral("cmdOkay"))->click();
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
        QTest::keyClicks(Field(), QStringLiteral("fig"));
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
        QTest::keyClicks(Field(), QStringLiteral("fig"));
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
        Field()->setPlainText(QStringLiteral("NO custom keywords FOUND"));
        bench->dialogs.ExpectMessage(NothingText, BoxAnswer::Cancel, BoxIcon::Critical, BoxButtons::OkCancel,
                                     QStringLiteral("Error."));
        Press("cmdOkay");
        QVERIFY(window->isVisible());
        QVERIFY(Field()->hasFocus());
        bench->dialogs.ExpectMessage(NothingText, BoxAnswer::Ok, BoxIcon::Critical, BoxButtons::OkCancel,
                                     QStringLiteral("Error."));
        Press("cmdOkay");
        QVERIFY(!window->isVisible());
        QVERIFY(!QFile::exists(File()));
    }

    void aFailedSaveKeepsTheWindow()
    {
        QDir().mkdir(File());
        Open();
        QTest::keyClicks(Field(), QStringLiteral("fig"));
        bench->dialogs.ExpectMessage(QStringLiteral("Run-time error '75':\nPath/File access error"));
        Press("cmdOkay");
        QVERIFY(window->isVisible());
        QCOMPARE(Field()->toPlainText(), QStringLiteral("fig"));
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
