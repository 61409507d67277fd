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

using namespace Qt::StringLiterals;

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
    bench.Choose(u"mnuFileNew"_s);
    QVERIFY(bench.Active() != nullptr);
    QCOMPARE(bench.Active()->Caption(), u"untitled.bas"_s);
    QCOMPARE(bench.Active()->number, 1);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray());
    QCOMPARE(Ask(bench.Active(), SCI_GETMODIFY), 0);
    QCOMPARE(bench.ActiveWindow()->windowTitle(), u"untitled.bas"_s);
}

void win_frmDocument::openedFileLosesItsLastTwoBytesAndKeepsTheRest()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "print 1\r\nprint 2 \r\n");
    bench.Start({path});
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("print 1\r\nprint 2 "));
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(bench.Active()->Tag, u"Open"_s);
    QCOMPARE(Ask(bench.Active(), SCI_GETMODIFY), 0);
    QCOMPARE(Ask(bench.Active(), SCI_GETCURRENTPOS), 0);
}

void win_frmDocument::loadCanBeUndone()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "print 1\r\n")});
    bench.Choose(u"mnuEditUndo"_s);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray());
    bench.Choose(u"mnuEditRedo"_s);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("print 1"));
}

void win_frmDocument::everyByteSurvivesLoadAndSave()
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all.append(static_cast<char>(byte));
    all += "\rlone\nends\r\n";
    TestBench bench;
    const QString path = bench.Write(u"all.bas"_s, all + "\r\n");
    bench.Start({path});
    bench.Choose(u"mnuFileSave"_s);
    QCOMPARE(TestBench::Read(path), all + " \r\n");
}

void win_frmDocument::saveAddsOneSpaceToTheFileAndTwoToTheText()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    bench.Start({path});
    bench.Choose(u"mnuFileSave"_s);
    QCOMPARE(TestBench::Read(path), QByteArray("end \r\n"));
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("end  "));
    QCOMPARE(Ask(bench.Active(), SCI_GETMODIFY), 0);
    QCOMPARE(bench.Active()->Tag, QString());
    bench.Choose(u"mnuFileSave"_s);
    QCOMPARE(TestBench::Read(path), QByteArray("end   \r\n"));
}

void win_frmDocument::characterOutsideTheCodePageRaisesAQuestion()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "one\r\ntwo\r\n");
    bench.Start({path});
    SendSci(bench.Active()->sci, SCI_GOTOPOS, 5);
    TestBench::Type(bench.Active(), "\xe2\x82\xac \xd0\x96");
    const QString question = u"Line 2 holds a character that BASIC source files cannot store.\n"
                             "Save with a question mark in place of each such character?"_s;
    bench.dialogs.ExpectQuestion(question, BoxAnswer::No);
    bench.Choose(u"mnuFileSave"_s);
    QCOMPARE(TestBench::Read(path), QByteArray("one\r\ntwo\r\n"));
    QVERIFY(Ask(bench.Active(), SCI_GETMODIFY) != 0);
    QCOMPARE(bench.Active()->Tag, u"Open"_s);
    bench.dialogs.ExpectQuestion(question, BoxAnswer::Yes);
    bench.Choose(u"mnuFileSave"_s);
    QCOMPARE(TestBench::Read(path), QByteArray("one\r\n\x80 ?two \r\n"));
}

void win_frmDocument::fullDiskLeavesFileTextAndModifiedState()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "old\r\n");
    bench.Start({path});
    TestBench::Type(bench.Active(), QByteArray(4 * FileLimit, 'x'));
    const QByteArray text = TestBench::Text(bench.Active());
    bench.dialogs.ExpectMessage(u"Run-time error '61':\nDisk full"_s);
    {
        const FullDisk full;
        bench.Choose(u"mnuFileSave"_s);
    }
    QCOMPARE(TestBench::Read(path), QByteArray("old\r\n"));
    QCOMPARE(TestBench::Text(bench.Active()), text);
    QVERIFY(Ask(bench.Active(), SCI_GETMODIFY) != 0);
    QCOMPARE(bench.Frame().findChild<QLabel*>(u"statusText"_s)->text(), path + u": File too large"_s);
    QCOMPARE(QDir(bench.Path(QString())).entryList(QDir::Files | QDir::Hidden), QStringList{u"a.bas"_s});
}

void win_frmDocument::oddFilesAreReportedAndHarmless_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    const QString tooShort = u"Run-time error '5':\nInvalid procedure call or argument"_s;
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
    const QString path = bench.Write(u"odd.bas"_s, bytes);
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
    SetLibraryFolder(bench.Path(u"nowhere"_s));
    const QString message = u"Error. Cannot find some components needed to run this program.  Please "
                            "reinstall Orchard Bench."_s;
    bench.dialogs.ExpectMessage(message);
    bench.Choose(u"mnuFileNew"_s);
    QVERIFY(bench.Active() == nullptr);
    QCOMPARE(bench.Frame().Item(u"mnuRun"_s)->isEnabled(), false);
    SetLibraryFolder(u"" OB_BIN ""_s);
    bench.Choose(u"mnuFileNew"_s);
    QVERIFY(bench.Active() != nullptr);
}

void win_frmDocument::unchangedWindowClosesWithoutAQuestion()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    cDocument* document = bench.Active();
    bench.Choose(u"mnuFileClose"_s);
    QVERIFY(bench.Active() == nullptr);
    QVERIFY(document->sci == nullptr);
    QCOMPARE(document->Tag, u"Closed"_s);
}

void win_frmDocument::changedWindowAsksByItsName()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    bench.Start({path});
    TestBench::Type(bench.Active(), "x");
    bench.dialogs.ExpectQuestion(u"Save "_s + path + u" before closing?"_s, BoxAnswer::No);
    bench.Choose(u"mnuFileClose"_s);
    QVERIFY(bench.Active() == nullptr);
    QCOMPARE(TestBench::Read(path), QByteArray("end\r\n"));

    OpenFiles({path}, FileSource::CommandLine);
    TestBench::Type(bench.Active(), "x");
    bench.dialogs.ExpectQuestion(u"Save "_s + path + u" before closing?"_s, BoxAnswer::Yes);
    bench.Choose(u"mnuFileClose"_s);
    QVERIFY(bench.Active() == nullptr);
    QCOMPARE(TestBench::Read(path), QByteArray("xend \r\n"));
}

void win_frmDocument::untitledWindowAsksForAName()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuFileNew"_s);
    TestBench::Type(bench.Active(), "beep");
    bench.dialogs.ExpectQuestion(u"Save before closing?"_s, BoxAnswer::Yes);
    bench.dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, u"BASIC Code (*.bas)(*.bak)|*.bas;(*.bak)"_s,
                             bench.Path(u"new.bas"_s));
    QVERIFY(bench.Close());
    QCOMPARE(TestBench::Read(bench.Path(u"new.bas"_s)), QByteArray("beep \r\n"));
    QCOMPARE(RecentFiles[0], bench.Path(u"new.bas"_s));
}

void win_frmDocument::cancelledNameDiscardsTheText()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuFileNew"_s);
    TestBench::Type(bench.Active(), "beep");
    bench.dialogs.ExpectQuestion(u"Save before closing?"_s, BoxAnswer::Yes);
    bench.dialogs.ExpectFile(FilePurpose::Save, u"Save As"_s, u"BASIC Code (*.bas)(*.bak)|*.bas;(*.bak)"_s, QString());
    bench.Choose(u"mnuFileClose"_s);
    QVERIFY(bench.Active() == nullptr);
}

void win_frmDocument::noQuestionWhenQuitQueryIsOff()
{
    TestBench bench;
    bench.Start();
    QuitQuery = false;
    bench.Choose(u"mnuFileNew"_s);
    TestBench::Type(bench.Active(), "beep");
    QVERIFY(bench.Close());
}

void win_frmDocument::failedSaveKeepsTheWindowOpen()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    bench.Start({path});
    TestBench::Type(bench.Active(), QByteArray(4 * FileLimit, 'x'));
    bench.dialogs.ExpectQuestion(u"Save "_s + path + u" before closing?"_s, BoxAnswer::Yes);
    bench.dialogs.ExpectMessage(u"Run-time error '61':\nDisk full"_s);
    {
        const FullDisk full;
        QVERIFY(!bench.Close());
    }
    QVERIFY(bench.Active() != nullptr);
    QVERIFY(bench.Frame().Item(u"mnuFileSave"_s)->isEnabled());
    QCOMPARE(TestBench::Read(path), QByteArray("end\r\n"));
    QuitQuery = false;
}

void win_frmDocument::savedWindowIsTakenByTheNextNew()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n")});
    cDocument* document = bench.Active();
    bench.Choose(u"mnuFileSave"_s);
    bench.Choose(u"mnuFileNew"_s);
    QCOMPARE(bench.Active(), document);
    QCOMPARE(document->Caption(), u"untitled.bas"_s);
    QCOMPARE(TestBench::Text(document), QByteArray());
    bench.Choose(u"mnuEditUndo"_s);
    QCOMPARE(TestBench::Text(document), QByteArray("end  "));
    QuitQuery = false;
}

void win_frmDocument::thirdEmptyDocumentReusesTheSecond()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuFileNew"_s);
    bench.Choose(u"mnuFileNew"_s);
    cDocument* second = bench.Active();
    QCOMPARE(second->number, 2);
    bench.Choose(u"mnuFileNew"_s);
    QCOMPARE(bench.Active(), second);
    bench.Choose(u"mnuFileNew"_s);
    QCOMPARE(bench.Active()->number, 3);
}

void win_frmDocument::headRowHasItsDimensions()
{
    TestBench bench;
    bench.Start();
    bench.Frame().resize(900, 600);
    bench.Choose(u"mnuFileNew"_s);
    frmDocument* window = bench.ActiveWindow();
    QCOMPARE(TwipsPerPixelX, 15);
    QCOMPARE(window->findChild<QToolButton*>(u"cmdToggle"_s)->geometry(), QRect(0, 8, 13, 19));
    QCOMPARE(window->findChild<QToolButton*>(u"cmdClear"_s)->geometry(), QRect(40, 8, 13, 19));
    const int labels = (window->width() * 15 - 840 - 50 - 3 * 735) / 15;
    QCOMPARE(window->findChild<QComboBox*>(u"cboLabels"_s)->geometry(), QRect(56, 8, labels, 19));
    QCOMPARE(window->findChild<QComboBox*>(u"cboSorted"_s)->isVisible(), false);
    QCOMPARE(window->findChild<QCheckBox*>(u"chkWrap"_s)->width(), 49);
    QCOMPARE(window->findChild<QWidget*>(u"sci"_s)->geometry(),
             QRect(1, 30, window->width() - 4, window->height() - 30));
}

void win_frmDocument::commandsFollowActivation()
{
    TestBench bench;
    bench.Start();
    const QStringList names = {u"mnuFileClose"_s, u"mnuFileSave"_s,    u"mnuFileSaveAs"_s,  u"mnuFileInsert"_s,
                               u"mnuFilePrint"_s, u"mnuFileProject"_s, u"mnuToolShowVar"_s, u"mnuRun"_s,
                               u"mnuTKN"_s,       u"mnuDebug"_s,       u"mnuEdit"_s};
    for (const QString& name : names)
        QVERIFY2(!bench.Frame().Item(name)->isEnabled(), qPrintable(name));
    bench.Choose(u"mnuFileNew"_s);
    for (const QString& name : names)
        QVERIFY2(bench.Frame().Item(name)->isEnabled(), qPrintable(name));
    for (const char* button : {"Save", "Print", "Cut", "Copy", "Paste", "Find", "Run", "Debug"})
        QVERIFY2(bench.Frame().findChild<QAction*>(QString::fromLatin1(button))->isEnabled(), button);
    bench.Choose(u"mnuFileClose"_s);
    for (const QString& name : names)
        QVERIFY2(!bench.Frame().Item(name)->isEnabled(), qPrintable(name));
}

void win_frmDocument::bookmarksAreSetFoundAndCleared()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, Program())});
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
    bench.Start({bench.Write(u"a.bas"_s, Program())});
    const auto itemsOf = [&](const char* name) {
        QStringList texts;
        const auto* box = bench.ActiveWindow()->findChild<QComboBox*>(QString::fromLatin1(name));
        for (int i = 0; i < box->count(); ++i)
            texts.append(box->itemText(i));
        return texts;
    };
    QCOMPARE(itemsOf("cboLabels"), (QStringList{u"[start]"_s, u"sub twice x"_s, u"[quit]"_s}));
    QCOMPARE(itemsOf("cboSorted"), (QStringList{u"[quit]"_s, u"[start]"_s, u"sub twice x"_s}));
    SendSci(bench.Active()->sci, SCI_GOTOPOS, 0);
    TestBench::Type(bench.Active(), "[more]\r\n");
    QTest::mouseClick(bench.ActiveWindow()->findChild<QPushButton*>(u"cmdBranch"_s), Qt::LeftButton);
    QCOMPARE(itemsOf("cboLabels").first(), u"[more]"_s);
    QuitQuery = false;
}

void win_frmDocument::wrapFollowsItsBox()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuFileNew"_s);
    auto* wrap = bench.ActiveWindow()->findChild<QCheckBox*>(u"chkWrap"_s);
    QTest::mouseClick(wrap, Qt::LeftButton, {}, QPoint(5, wrap->height() / 2));
    QCOMPARE(Ask(bench.Active(), SCI_GETWRAPMODE), 1);
    QTest::mouseClick(wrap, Qt::LeftButton, {}, QPoint(5, wrap->height() / 2));
    QCOMPARE(Ask(bench.Active(), SCI_GETWRAPMODE), 0);
}

void win_frmDocument::returnKeepsTheIndentation()
{
    TestBench bench;
    bench.Start();
    bench.Choose(u"mnuFileNew"_s);
    auto* edit = bench.ActiveWindow()->findChild<QWidget*>(u"sci"_s);
    QTest::keyClicks(edit, u"  for i = 1 to 5"_s);
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClicks(edit, u"beep"_s);
    QTest::keyClick(edit, Qt::Key_Return);
    QTest::keyClicks(edit, u"x"_s);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("  for i = 1 to 5\r\n      beep\r\n      x"));
    QuitQuery = false;
}

void win_frmDocument::menuKeysOverrideTheControlsOwn()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "one\r\ntwo\r\n")});
    auto* edit = bench.ActiveWindow()->findChild<QWidget*>(u"sci"_s);
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
    const QString first = bench.Write(u"a.bas"_s, Program());
    const QString second = bench.Write(u"b.bas"_s, Program());
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
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n")});
    QCOMPARE(bench.Frame().focusWidget(), bench.ActiveWindowEdit());
    bench.Choose(u"mnuFileNew"_s);
    QCOMPARE(bench.Active()->number, 2);
    QCOMPARE(bench.Frame().focusWidget(), bench.ActiveWindowEdit());
    bench.Frame().ShowDocument(*Documents[1]);
    QCOMPARE(bench.Frame().focusWidget(), bench.ActiveWindowEdit());
    bench.Choose(u"mnuFileClose"_s);
    QCOMPARE(bench.Active()->number, 2);
    QCOMPARE(bench.Frame().focusWidget(), bench.ActiveWindowEdit());
}

void win_frmDocument::returnOfABoxBreaksNoLine()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "  for i = 1 to 2\r\nx\r\n")});
    SendSci(bench.Active()->sci, SCI_GOTOLINE, 1);
    QTest::keyRelease(bench.ActiveWindowEdit(), Qt::Key_Return);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("  for i = 1 to 2\r\nx"));
    QCOMPARE(Ask(bench.Active(), SCI_GETMODIFY), 0);
}

void win_frmDocument::minimizedWindowIsRestoredWhenItIsReused()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n")});
    bench.Choose(u"mnuFileSave"_s);
    auto* window = qobject_cast<QMdiSubWindow*>(bench.ActiveWindow()->parentWidget());
    window->showMinimized();
    bench.Choose(u"mnuFileNew"_s);
    QVERIFY(!window->isMinimized());
    QCOMPARE(bench.Active()->Caption(), u"untitled.bas"_s);
    QuitQuery = false;
}

void win_frmDocument::keywordsOfTheUserAreColoured()
{
    TestBench bench;
    QFile words(bench.ProgramPath(u"keywords.txt"_s));
    QVERIFY(words.open(QIODevice::WriteOnly));
    words.write(QByteArray("gr\xf6\xdf"
                           "e \0zap\r\n",
                           13));
    words.close();
    bench.Start({bench.Write(u"a.bas"_s, "gr\xf6\xdf"
                                         "e zap print x\r\n")});
    SendSci(bench.Active()->sci, SCI_COLOURISE, 0, -1);
    QByteArray styles;
    for (const std::uintptr_t position : {0, 8, 12, 18})
        styles.append(static_cast<char>('0' + Ask(bench.Active(), SCI_GETSTYLEAT, position)));
    QCOMPARE(styles, QByteArray("3337"));
}

OB_BENCH_TEST(win_frmDocument)
#include "win_frmDocument.moc"
