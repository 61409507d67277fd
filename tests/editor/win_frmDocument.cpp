// SPDX-License-Identifier: GPL-3.0-or-later
// The code window: creation, files, closing, activation, bookmarks, labels.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/frmDocument.h"
#include "platform/files/modPaths.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QToolButton>

#include <csignal>
#include <sys/resource.h>

using namespace ob;

namespace {

constexpr int FileLimit = 4096;

// During its lifetime, no file of this process grows beyond a few KB: a full disk for the code under test.
class FullDisk {
public:
    FullDisk()
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before);
        rlimit small = before;
        small.rlim_cur = FileLimit;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before); }

private:
    rlimit before{};
};

std::intptr_t Ask(const cDocument* document, unsigned message, std::uintptr_t wParam = 0)
{
    return SendSci(document->sci, message, wParam);
}

QByteArray Program()
{
    return "[start]\r\nprint \"hello\"\r\n  sub twice x\r\nend sub\r\n[quit]\r\nend \r\n";
}

} // namespace

class win_frmDocument : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newWindowIsUntitledAndEmpty();
    void openedFileLosesItsLastTwoBytesAndKeepsTheRest();
    void loadCanBeUndone();
    void everyByteSurvivesLoadAndSave();
    void saveAddsOneSpaceToTheFileAndTwoToTheText();
    void characterOutsideTheCodePageRaisesAQuestion();
    void fullDiskLeavesFileTextAndModifiedState();
    void oddFilesAreReportedAndHarmless_data();
    void oddFilesAreReportedAndHarmless();
    void missingLibraryIsReportedAndTheProgramContinues();
    void unchangedWindowClosesWithoutAQuestion();
    void changedWindowAsksByItsName();
    void untitledWindowAsksForAName();
    void cancelledNameDiscardsTheText();
    void noQuestionWhenQuitQueryIsOff();
    void failedSaveKeepsTheWindowOpen();
    void savedWindowIsTakenByTheNextNew();
    void thirdEmptyDocumentReusesTheSecond();
    void headRowHasItsDimensions();
    void commandsFollowActivation();
    void bookmarksAreSetFoundAndCleared();
    void labelsAreListedAndSorted();
    void wrapFollowsItsBox();
    void returnKeepsTheIndentation();
    void menuKeysOverrideTheControlsOwn();
    void caretGoesToOneOnActivation();
    void textHasTheKeyboard();
    void returnOfABoxBreaksNoLine();
    void minimizedWindowIsRestoredWhenItIsReused();
    void keywordsOfTheUserAreColoured();
};

void win_frmDocument::newWindowIsUntitledAndEmpty()
{
    TestBench bench;
    bench.Start();
    QVERIFY(bench.Active() == nullptr);
    bench.Choose(QStringLiteral("mnuFileNew"));
    QVERIFY(bench.Active() != nullptr);
    QCOMPARE(bench.Active()->Caption(), QStringLiteral("untitled.bas"));
    QCOMPARE(bench.Active()->number, 1);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray());
    QCOMPARE(Ask(bench.Active(), SCI_GETMODIFY), 0);
    QCOMPARE(bench.ActiveWindow()->windowTitle(), QStringLiteral("untitled.bas"));
}

void win_frmDocument::openedFileLosesItsLastTwoBytesAndKeepsTheRest()
{
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("a.bas"), "print 1\r\nprint 2 \r\n");
    bench.Start({path});
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("print 1\r\nprint 2 "));
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(bench.Active()->Tag, QStringLiteral("Open"));
    QCOMPARE(Ask(bench.Active(), SCI_GETMODIFY), 0);
    QCOMPARE(Ask(bench.Active(), SCI_GETCURRENTPOS), 0);
}

void win_frmDocument::loadCanBeUndone()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "print 1\r\n")});
    bench.Choose(QStringLiteral("mnuEditUndo"));
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray());
    bench.Choose(QStringLiteral("mnuEditRedo"));
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("print 1"));
}

void win_frmDocument::everyByteSurvivesLoadAndSave()
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    all += "\rlone\nends\r\n";
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("all.bas"), all + "\r\n");
    bench.Start({path});
    bench.Choose(QStringLiteral("mnuFileSave"));
    QCOMPARE(TestBench::Read(path), all + " \r\n");
}

void win_frmDocument::saveAddsOneSpaceToTheFileAndTwoToTheText()
{
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("a.bas"), "end\r\n");
    bench.Start({path});
    bench.Choose(QStringLiteral("mnuFileSave"));
    QCOMPARE(TestBench::Read(path), QByteArray("end \r\n"));
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("end  "));
    QCOMPARE(Ask(bench.Active(), SCI_GETMODIFY), 0);
    QCOMPARE(bench.Active()->Tag, QString());
    bench.Choose(QStringLiteral("mnuFileSave"));
    QCOMPARE(TestBench::Read(path), QByteArray("end   \r\n"));
}

void win_frmDocument::characterOutsideTheCodePageRaisesAQuestion()
{
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("a.bas"), "one\r\ntwo\r\n");
    bench.Start({path});
    SendSci(bench.Active()->sci, SCI_GOTOPOS, 5);
    TestBench::Type(bench.Active(), "\xe2\x82\xac \xd0\x96");
    const QString question = QStringLiteral("Line 2 holds a character that BASIC source files cannot store.\n"
                                            "Save with a question mark in place of each such character?");
    bench.dialogs.ExpectQuestion(question, BoxAnswer::No);
    bench.Choose(QStringLiteral("mnuFileSave"));
    QCOMPARE(TestBench::Read(path), QByteArray("one\r\ntwo\r\n"));
    QVERIFY(Ask(bench.Active(), SCI_GETMODIFY) != 0);
    QCOMPARE(bench.Active()->Tag, QStringLiteral("Open"));
    bench.dialogs.ExpectQuestion(question, BoxAnswer::Yes);
    bench.Choose(QStringLiteral("mnuFileSave"));
    QCOMPARE(TestBench::Read(path), QByteArray("one\r\n\x80 ?two \r\n"));
}

void win_frmDocument::fullDiskLeavesFileTextAndModifiedState()
{
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("a.bas"), "old\r\n");
    bench.Start({path});
    TestBench::Type(bench.Active(), QByteArray(4 * FileLimit, 'x'));
    const QByteArray text = TestBench::Text(bench.Active());
    bench.dialogs.ExpectMessage(QStringLiteral("Run-time error '61':\nDisk full"));
    {
        const FullDisk full;
        bench.Choose(QStringLiteral("mnuFileSave"));
    }
    QCOMPARE(TestBench::Read(path), QByteArray("old\r\n"));
    QCOMPARE(TestBench::Text(bench.Active()), text);
    QVERIFY(Ask(bench.Active(), SCI_GETMODIFY) != 0);
    QCOMPARE(bench.Frame().findChild<QLabel*>(QStringLiteral("statusText"))->text(), QStringLiteral("File too large"));
    QCOMPARE(QDir(bench.Path(QString())).entryList(QDir::Files | QDir::Hidden), QStringList{QStringLiteral("a.bas")});
}

void win_frmDocument::oddFilesAreReportedAndHarmless_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    const QString tooShort = QStringLiteral("Run-time error '5':\nInvalid procedure call or argument");
    QTest::newRow("empty") << QByteArray() << tooShort;
    QTest::newRow("one byte") << QByteArray("x") << tooShort;
    QTest::newRow("two bytes") << QByteArray("\r\n") << QString();
    QTest::newRow("lone ends") << QByteArray("a\rb\nc\r\r\n\n") << QString();
    QTest::newRow("nul bytes") << QByteArray(1000, '\0') << QString();
    QTest::newRow("one long line") << QByteArray(1'000'000, 'a') << QString();
}

void win_frmDocument::oddFilesAreReportedAndHarmless()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("odd.bas"), bytes);
    if (!message.isEmpty())
        bench.dialogs.ExpectMessage(message);
    bench.Start({path});
    QVERIFY(bench.Active() != nullptr);
    QCOMPARE(TestBench::Text(bench.Active()), message.isEmpty() ? bytes.chopped(2) : QByteArray());
    bench.Frame().grab();
    QCOMPARE(TestBench::Read(path), bytes);
}

void win_frmDocument::missingLibraryIsReportedAndTheProgramContinues()
{
    TestBench bench;
    bench.Start();
    SetLibraryFolder(bench.Path(QStringLiteral("nowhere")));
    const QString message = QStringLiteral("Error. Cannot find some components needed to run this program.  Please "
                                           "reinstall Orchard Bench.");
    bench.dialogs.ExpectMessage(message);
    bench.Choose(QStringLiteral("mnuFileNew"));
    QVERIFY(bench.Active() == nullptr);
    QCOMPARE(bench.Frame().Item(QStringLiteral("mnuRun"))->isEnabled(), false);
    SetLibraryFolder(QStringLiteral(OB_BIN));
    bench.Choose(QStringLiteral("mnuFileNew"));
    QVERIFY(bench.Active() != nullptr);
}

void win_frmDocument::unchangedWindowClosesWithoutAQuestion()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), Program())});
    cDocument* document = bench.Active();
    bench.Choose(QStringLiteral("mnuFileClose"));
    QVERIFY(bench.Active() == nullptr);
    QVERIFY(document->sci == nullptr);
    QCOMPARE(document->Tag, QStringLiteral("Closed"));
}

void win_frmDocument::changedWindowAsksByItsName()
{
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("a.bas"), "end\r\n");
    bench.Start({path});
    TestBench::Type(bench.Active(), "x");
    bench.dialogs.ExpectQuestion(QStringLiteral("Save ") + path + QStringLiteral(" before closing?"), BoxAnswer::No);
    bench.Choose(QStringLiteral("mnuFileClose"));
    QVERIFY(bench.Active() == nullptr);
    QCOMPARE(TestBench::Read(path), QByteArray("end\r\n"));

    OpenFiles({path}, FileSource::CommandLine);
    TestBench::Type(bench.Active(), "x");
    bench.dialogs.ExpectQuestion(QStringLiteral("Save ") + path + QStringLiteral(" before closing?"), BoxAnswer::Yes);
    bench.Choose(QStringLiteral("mnuFileClose"));
    QVERIFY(bench.Active() == nullptr);
    QCOMPARE(TestBench::Read(path), QByteArray("xend \r\n"));
}

void win_frmDocument::untitledWindowAsksForAName()
{
    TestBench bench;
    bench.Start();
    bench.Choose(QStringLiteral("mnuFileNew"));
    TestBench::Type(bench.Active(), "beep");
    bench.dialogs.ExpectQuestion(QStringLiteral("Save before closing?"), BoxAnswer::Yes);
    bench.dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"),
                             QStringLiteral("BASIC Code (*.bas)(*.bak)|*.bas;(*.bak)"),
                             bench.Path(QStringLiteral("new.bas")));
    QVERIFY(bench.Close());
    QCOMPARE(TestBench::Read(bench.Path(QStringLiteral("new.bas"))), QByteArray("beep \r\n"));
    QCOMPARE(RecentFiles[0], bench.Path(QStringLiteral("new.bas")));
}

void win_frmDocument::cancelledNameDiscardsTheText()
{
    TestBench bench;
    bench.Start();
    bench.Choose(QStringLiteral("mnuFileNew"));
    TestBench::Type(bench.Active(), "beep");
    bench.dialogs.ExpectQuestion(QStringLiteral("Save before closing?"), BoxAnswer::Yes);
    bench.dialogs.ExpectFile(FilePurpose::Save, QStringLiteral("Save As"),
                             QStringLiteral("BASIC Code (*.bas)(*.bak)|*.bas;(*.bak)"), QString());
    bench.Choose(QStringLiteral("mnuFileClose"));
    QVERIFY(bench.Active() == nullptr);
}

void win_frmDocument::noQuestionWhenQuitQueryIsOff()
{
    TestBench bench;
    bench.Start();
    QuitQuery = false;
    bench.Choose(QStringLiteral("mnuFileNew"));
    TestBench::Type(bench.Active(), "beep");
    QVERIFY(bench.Close());
}

void win_frmDocument::failedSaveKeepsTheWindowOpen()
{
    TestBench bench;
    const QString path = bench.Write(QStringLiteral("a.bas"), "end\r\n");
    bench.Start({path});
    TestBench::Type(bench.Active(), QByteArray(4 * FileLimit, 'x'));
    bench.dialogs.ExpectQuestion(QStringLiteral("Save ") + path + QStringLiteral(" before closing?"), BoxAnswer::Yes);
    bench.dialogs.ExpectMessage(QStringLiteral("Run-time error '61':\nDisk full"));
    {
        const FullDisk full;
        QVERIFY(!bench.Close());
    }
    QVERIFY(bench.Active() != nullptr);
    QVERIFY(bench.Frame().Item(QStringLiteral("mnuFileSave"))->isEnabled());
    QCOMPARE(TestBench::Read(path), QByteArray("end\r\n"));
    QuitQuery = false;
}

void win_frmDocument::savedWindowIsTakenByTheNextNew()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "end\r\n")});
    cDocument* document = bench.Active();
    bench.Choose(QStringLiteral("mnuFileSave"));
    bench.Choose(QStringLiteral("mnuFileNew"));
    QCOMPARE(bench.Active(), document);
    QCOMPARE(document->Caption(), QStringLiteral("untitled.bas"));
    QCOMPARE(TestBench::Text(document), QByteArray());
    bench.Choose(QStringLiteral("mnuEditUndo"));
    QCOMPARE(TestBench::Text(document), QByteArray("end  "));
    QuitQuery = false;
}

void win_frmDocument::thirdEmptyDocumentReusesTheSecond()
{
    TestBench bench;
    bench.Start();
    bench.Choose(QStringLiteral("mnuFileNew"));
    bench.Choose(QStringLiteral("mnuFileNew"));
    cDocument* second = bench.Active();
    QCOMPARE(second->number, 2);
    bench.Choose(QStringLiteral("mnuFileNew"));
    QCOMPARE(bench.Active(), second);
    bench.Choose(QStringLiteral("mnuFileNew"));
    QCOMPARE(bench.Active()->number, 3);
}

void win_frmDocument::headRowHasItsDimensions()
{
    TestBench bench;
    bench.Start();
    bench.Frame().resize(900, 600);
    bench.Choose(QStringLiteral("mnuFileNew"));
    frmDocument* window = bench.ActiveWindow();
    QCOMPARE(TwipsPerPixelX, 15);
    QCOMPARE(window->findChild<QToolButton*>(QStringLiteral("cmdToggle"))->geometry(), QRect(0, 8, 13, 19));
    QCOMPARE(window->findChild<QToolButton*>(QStringLiteral("cmdClear"))->geometry(), QRect(40, 8, 13, 19));
    const int labels = (window->width() * 15 - 840 - 50 - 3 * 735) / 15;
    QCOMPARE(window->findChild<QComboBox*>(QStringLiteral("cboLabels"))->geometry(), QRect(56, 8, labels, 19));
    QCOMPARE(window->findChild<QComboBox*>(QStringLiteral("cboSorted"))->isVisible(), false);
    QCOMPARE(window->findChild<QCheckBox*>(QStringLiteral("chkWrap"))->width(), 49);
    QCOMPARE(window->findChild<QWidget*>(QStringLiteral("sci"))->geometry(),
             QRect(1, 30, window->width() - 4, window->height() - 30));
}

void win_frmDocument::commandsFollowActivation()
{
    TestBench bench;
    bench.Start();
    const QStringList names = {
        QStringLiteral("mnuFileClose"),   QStringLiteral("mnuFileSave"),  QStringLiteral("mnuFileSaveAs"),
        QStringLiteral("mnuFileInsert"),  QStringLiteral("mnuFilePrint"), QStringLiteral("mnuFileProject"),
        QStringLiteral("mnuToolShowVar"), QStringLiteral("mnuRun"),       QStringLiteral("mnuTKN"),
        QStringLiteral("mnuDebug"),       QStringLiteral("mnuEdit")};
    for (const QString& name : names)
        QVERIFY2(!bench.Frame().Item(name)->isEnabled(), qPrintable(name));
    bench.Choose(QStringLiteral("mnuFileNew"));
    for (const QString& name : names)
        QVERIFY2(bench.Frame().Item(name)->isEnabled(), qPrintable(name));
    for (const char* button : {"Save", "Print", "Cut", "Copy", "Paste", "Find", "Run", "Debug"})
        QVERIFY2(bench.Frame().findChild<QAction*>(QString::fromLatin1(button))->isEnabled(), button);
    bench.Choose(QStringLiteral("mnuFileClose"));
    for (const QString& name : names)
        QVERIFY2(!bench.Frame().Item(name)->isEnabled(), qPrintable(name));
}

void win_frmDocument::bookmarksAreSetFoundAndCleared()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), Program())});
    const cDocument* document = bench.Active();
    const auto press = [&](const char* name) {
        QTest::mouseClick(bench.ActiveWindow()->findChild<QToolButton*>(QString::fromLatin1(name)), Qt::LeftButton);
    };
    const auto line = [&] {
        return Ask(document, SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(Ask(document, SCI_GETCURRENTPOS)));
    };
    SendSci(document->sci, SCI_GOTOLINE, 2);
    press("cmdToggle");
    SendSci(document->sci, SCI_GOTOLINE, 4);
    press("cmdToggle");
    QCOMPARE(Ask(document, SCI_MARKERGET, 2), 2);
    SendSci(document->sci, SCI_GOTOLINE, 0);
    press("cmdNext");
    QCOMPARE(line(), 2);
    press("cmdNext");
    QCOMPARE(line(), 4);
    press("cmdNext");
    QCOMPARE(line(), 4);
    press("cmdPrev");
    QCOMPARE(line(), 2);
    press("cmdToggle");
    QCOMPARE(Ask(document, SCI_MARKERGET, 2), 0);
    press("cmdClear");
    QCOMPARE(Ask(document, SCI_MARKERGET, 4), 0);
}

void win_frmDocument::labelsAreListedAndSorted()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), Program())});
    const auto itemsOf = [&](const char* name) {
        QStringList texts;
        const auto* box = bench.ActiveWindow()->findChild<QComboBox*>(QString::fromLatin1(name));
        for (int i = 0; i < box->count(); ++i)
            texts.append(box->itemText(i));
        return texts;
    };
    QCOMPARE(itemsOf("cboLabels"),
             (QStringList{QStringLiteral("[start]"), QStringLiteral("sub twice x"), QStringLiteral("[quit]")}));
    QCOMPARE(itemsOf("cboSorted"),
             (QStringList{QStringLiteral("[quit]"), QStringLiteral("[start]"), QStringLiteral("sub twice x")}));
    SendSci(bench.Active()->sci, SCI_GOTOPOS, 0);
    TestBench::Type(bench.Active(), "[more]\r\n");
    QTest::mouseClick(bench.ActiveWindow()->findChild<QPushButton*>(QStringLiteral("cmdBranch")), Qt::LeftButton);
    QCOMPARE(itemsOf("cboLabels").first(), QStringLiteral("[more]"));
    QuitQuery = false;
}

void win_frmDocument::wrapFollowsItsBox()
{
    TestBench bench;
    bench.Start();
    bench.Choose(QStringLiteral("mnuFileNew"));
    auto* wrap = bench.ActiveWindow()->findChild<QCheckBox*>(QStringLiteral("chkWrap"));
    QTest::mouseClick(wrap, Qt::LeftButton, {}, QPoint(5, wrap->height() / 2));
    QCOMPARE(Ask(bench.Active(), SCI_GETWRAPMODE), 1);
    QTest::mouseClick(wrap, Qt::LeftButton, {}, QPoint(5, wrap->height() / 2));
    QCOMPARE(Ask(bench.Active(), SCI_GETWRAPMODE), 0);
}

void win_frmDocument::returnKeepsTheIndentation()
{
    TestBench bench;
    bench.Start();
    bench.Choose(QStringLiteral("mnuFileNew"));
    auto* edit = bench.ActiveWindow()->findChild<QWidget*>(QStringLiteral("sci"));
    QTest::keyClicks(edit, QStringLiteral("  for i = 1 to 5"));
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClicks(edit, QStringLiteral("beep"));
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClicks(edit, QStringLiteral("x"));
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("  for i = 1 to 5\r\n      beep\r\n      x"));
    QuitQuery = false;
}

void win_frmDocument::menuKeysOverrideTheControlsOwn()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "one\r\ntwo\r\n")});
    auto* edit = bench.ActiveWindow()->findChild<QWidget*>(QStringLiteral("sci"));
    SendSci(bench.Active()->sci, SCI_SETSEL, 0, 3);
    QTest::keyClick(edit, Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("\r\ntwo"));
    QTest::keyClick(edit, Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray());
    QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("one\r\ntwo"));
}

void win_frmDocument::caretGoesToOneOnActivation()
{
    TestBench bench;
    const QString first = bench.Write(QStringLiteral("a.bas"), Program());
    const QString second = bench.Write(QStringLiteral("b.bas"), Program());
    bench.Start({first, second});
    cDocument* other = Documents[1].get();
    QCOMPARE(Ask(other, SCI_GETCURRENTPOS), 0);
    bench.Frame().ShowDocument(*other);
    QCOMPARE(bench.Active(), other);
    QCOMPARE(Ask(other, SCI_GETCURRENTPOS), 1);
}

void win_frmDocument::textHasTheKeyboard()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "end\r\n")});
    QCOMPARE(bench.Frame().focusWidget(), bench.ActiveWindowEdit());
    bench.Choose(QStringLiteral("mnuFileNew"));
    QCOMPARE(bench.Active()->number, 2);
    QCOMPARE(bench.Frame().focusWidget(), bench.ActiveWindowEdit());
    bench.Frame().ShowDocument(*Documents[1]);
    QCOMPARE(bench.Frame().focusWidget(), bench.ActiveWindowEdit());
    bench.Choose(QStringLiteral("mnuFileClose"));
    QCOMPARE(bench.Active()->number, 2);
    QCOMPARE(bench.Frame().focusWidget(), bench.ActiveWindowEdit());
}

void win_frmDocument::returnOfABoxBreaksNoLine()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "  for i = 1 to 2\r\nx\r\n")});
    SendSci(bench.Active()->sci, SCI_GOTOLINE, 1);
    QTest::keyRelease(bench.ActiveWindowEdit(), Qt::Key_Return);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("  for i = 1 to 2\r\nx"));
    QCOMPARE(Ask(bench.Active(), SCI_GETMODIFY), 0);
}

void win_frmDocument::minimizedWindowIsRestoredWhenItIsReused()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "end\r\n")});
    bench.Choose(QStringLiteral("mnuFileSave"));
    auto* window = qobject_cast<QMdiSubWindow*>(bench.ActiveWindow()->parentWidget());
    window->showMinimized();
    bench.Choose(QStringLiteral("mnuFileNew"));
    QVERIFY(!window->isMinimized());
    QCOMPARE(bench.Active()->Caption(), QStringLiteral("untitled.bas"));
    QuitQuery = false;
}

void win_frmDocument::keywordsOfTheUserAreColoured()
{
    TestBench bench;
    QFile words(bench.ProgramPath(QStringLiteral("keywords.txt")));
    QVERIFY(words.open(QIODevice::WriteOnly));
    words.write(QByteArray("gr\xf6\xdf"
                           "e \0zap\r\n",
                           13));
    words.close();
    bench.Start({bench.Write(QStringLiteral("a.bas"), "gr\xf6\xdf"
                                                      "e zap print x\r\n")});
    SendSci(bench.Active()->sci, SCI_COLOURISE, 0, -1);
    QByteArray styles;
    for (const std::uintptr_t position : {0, 8, 12, 18})
        styles.append(static_cast<char>('0' + Ask(bench.Active(), SCI_GETSTYLEAT, position)));
    QCOMPARE(styles, QByteArray("3337"));
}

OB_BENCH_TEST(win_frmDocument)
#include "win_frmDocument.moc"
