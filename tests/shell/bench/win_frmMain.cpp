// SPDX-License-Identifier: GPL-3.0-or-later
// The main window: start, settings, recent files, menu and toolbar, dropped files, the end.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/modFileBox.h"
#include "shell/bench/frmMainMenu.h"
#include "shell/bench/modStart.h"
#include "shell/state/Module1.h"
#include "shell/state/modOptions.h"
#include "shell/state/modSettings.h"

#include <QAction>
#include <QDialog>
#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMimeData>
#include <QScreen>
#include <QToolBar>
#include <QUrl>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

void Drop(TestBench& bench, const QStringList& paths)
{
    QMimeData data;
    QList<QUrl> urls;
    for (const QString& path : paths)
        urls.append(QUrl::fromLocalFile(path));
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&bench.Frame(), &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&bench.Frame(), &drop);
}

QAction* Recent(TestBench& bench, int number)
{
    return bench.Frame().Item(u"mnuFileMRU%1"_s.arg(number));
}

} // namespace

class win_frmMain : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstStartHasNoWindowAndNoRecentFile();
    void firstStartShowsATip();
    void titleHoldsTheVersion();
    void programFolderGetsItsFolderForPrograms();
    void storedUntitledThatExistsOpensAnEmptyWindow();
    void newestRecentFileIsOpenedWhenWanted();
    void newestRecentFileThatCannotBeReadIsSkipped();
    void commandLineOpensFilesAndSkipsMissingOnes();
    void lastDirectoryBecomesTheCurrentOne();
    void closingStoresPlaceAndSettings();
    void storedPlaceIsRestored();
    void garbageInTheStoreStillGivesAWindow();
    void recentItemOpensItsFile();
    void recentItemOfAMissingFileSaysSo();
    void openedFileMovesToTheTopOfTheList();
    void droppedFilesOpen();
    void menuTreeIsInItsOrder();
    void toolbarHasItsButtonsAndSeparators();
    void toolbarCanBeHidden();
    void fileBoxesStartInTheFolderOfTheActiveFile();
    void anEmptyFileIsReportedWithItsName();
    void aFolderThatIsGoneIsReportedWithTheFilesName();
    void anEngineThatCannotBeStartedIsReportedWithItsName();
    void controlF4Ends();
    void closingAFrameWithSeveralWindowsAsksForEach();
};

void win_frmMain::firstStartHasNoWindowAndNoRecentFile()
{
    TestBench bench;
    bench.Start();
    QVERIFY(bench.Active() == nullptr);
    QVERIFY(bench.Frame().isVisible());
    QCOMPARE(OBPath, u"no path"_s);
    for (int number = 1; number <= RecentFileSlots; ++number) {
        QVERIFY(!Recent(bench, number)->isVisible());
        QCOMPARE(RecentFiles[static_cast<std::size_t>(number - 1)], u"error"_s);
    }
}

void win_frmMain::firstStartShowsATip()
{
    TestBench bench(TestBench::Store::Bare);
    bench.ExpectModal(u"frmTip"_s, [](QDialog& dialog) { dialog.reject(); });
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n")});
    QVERIFY(bench.Active() != nullptr);
    QApplication::processEvents();
}

void win_frmMain::titleHoldsTheVersion()
{
    TestBench bench;
    bench.Start();
    QCOMPARE(bench.Frame().windowTitle(), u"Orchard Bench  v" OB_VERSION ""_s);
}

void win_frmMain::programFolderGetsItsFolderForPrograms()
{
    TestBench bench;
    bench.Start();
    QVERIFY(QDir(bench.ProgramPath(u"OBprogs"_s)).exists());
}

void win_frmMain::storedUntitledThatExistsOpensAnEmptyWindow()
{
    TestBench bench;
    bench.Write(u"untitled"_s, "x\r\n");
    WriteSetting(u"MRU1"_s, u"untitled"_s);
    bench.Start();
    QCOMPARE(Recent(bench, 1)->text(), u"no files"_s);
    QVERIFY(bench.Active() != nullptr);
    QCOMPARE(bench.Active()->Caption(), u"untitled.bas"_s);
}

void win_frmMain::newestRecentFileIsOpenedWhenWanted()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    WriteSetting(u"MRU1"_s, path);
    WriteSetting(u"OpenFileOn"_s, u"True"_s);
    bench.Start();
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(bench.Active()->Tag, u"Open"_s);
    QVERIFY(Recent(bench, 1)->isVisible());
    QCOMPARE(RecentCount, 1);
}

void win_frmMain::newestRecentFileThatCannotBeReadIsSkipped()
{
    TestBench bench;
    WriteSetting(u"MRU1"_s, bench.Write(u"a.bas"_s, "x"));
    WriteSetting(u"OpenFileOn"_s, u"True"_s);
    bench.Start();
    QVERIFY(bench.Frame().isVisible());
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray());
}

void win_frmMain::commandLineOpensFilesAndSkipsMissingOnes()
{
    TestBench bench;
    const QString spaced = bench.Write(u"a file with spaces"_s, "end\r\n");
    const QString shortName = bench.Write(u"ab"_s, "beep\r\n");
    bench.Start({u"gone.bas"_s, u"a file with spaces"_s, shortName});
    QCOMPARE(Documents.size(), 3u);
    QCOMPARE(Documents[1]->Caption(), spaced);
    QCOMPARE(Documents[2]->Caption(), shortName);
    QCOMPARE(bench.Active(), Documents[2].get());
}

void win_frmMain::lastDirectoryBecomesTheCurrentOne()
{
    TestBench bench;
    QDir().mkdir(bench.Path(u"sub"_s));
    WriteSetting(u"LastDir"_s, bench.Path(u"sub"_s));
    bench.Start();
    QCOMPARE(QDir::currentPath(), QDir(bench.Path(u"sub"_s)).canonicalPath());
}

void win_frmMain::closingStoresPlaceAndSettings()
{
    TestBench bench;
    bench.Start();
    bench.Frame().move(30, 40);
    bench.Frame().resize(600, 500);
    Editor.TabSize = 7;
    QVERIFY(bench.Close());
    const auto stored = [](const char* key) { return ReadSetting(QString::fromLatin1(key), u"(none)"_s); };
    QCOMPARE(stored("MainLeft"), u"450"_s);
    QCOMPARE(stored("MainTop"), u"600"_s);
    QCOMPARE(stored("MainWidth"), u"9000"_s);
    QCOMPARE(stored("MainHeight"), u"7500"_s);
    QCOMPARE(stored("TabSize"), u"7"_s);
    QCOMPARE(stored("QuitQuery"), u"True"_s);
    QCOMPARE(stored("MRU8"), u"error"_s);
}

void win_frmMain::storedPlaceIsRestored()
{
    TestBench bench;
    SaveWindowPlace({150, 300, 7500, 6000});
    bench.Start();
    QCOMPARE(bench.Frame().pos(), QPoint(10, 20));
    QCOMPARE(bench.Frame().size(), QSize(500, 400));
}

void win_frmMain::garbageInTheStoreStillGivesAWindow()
{
    for (const char* garbage : {"", "garbage", "-99999999999999999999", "1e308", "&HFFFFFFFF", "\xff\xfe", "0"}) {
        TestBench bench;
        for (const char* key : {"MainLeft",     "MainTop",        "MainWidth",   "MainHeight",  "FontHeight",
                                "FontName",     "FontBold",       "SyntaxColor", "HotKey",      "User2",
                                "QuitQuery",    "LastDir",        "TabSize",     "AutoIndent",  "LineNums",
                                "HighlightOn",  "IndentGuidesOn", "OpenFileOn",  "AddComments", "CommentColor",
                                "KeywordColor", "OBPath",         "MRU1"})
            WriteSetting(QString::fromLatin1(key), QString::fromLatin1(garbage));
        bench.Start();
        bench.Choose(u"mnuFileNew"_s);
        QVERIFY(bench.Active() != nullptr);
        const QRect screen = bench.Frame().screen()->geometry();
        QVERIFY2(screen.intersects(QRect(bench.Frame().pos(), QSize(bench.Frame().width(), 20))), garbage);
        bench.Frame().grab();
        QuitQuery = false;
        QVERIFY(bench.Close());
    }
}

void win_frmMain::recentItemOpensItsFile()
{
    TestBench bench;
    const QString path = bench.Write(u"R&D.bas"_s, "end\r\n");
    WriteSetting(u"MRU1"_s, path);
    bench.Start();
    QCOMPARE(Recent(bench, 1)->text(), QString(path).replace(QLatin1Char('&'), QLatin1String("&&")));
    bench.Choose(u"mnuFileMRU1"_s);
    QCOMPARE(bench.Active()->Caption(), path);
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("end"));
}

void win_frmMain::recentItemOfAMissingFileSaysSo()
{
    TestBench bench;
    const QString path = bench.Write(u"a.bas"_s, "end\r\n");
    WriteSetting(u"MRU1"_s, path);
    bench.Start();
    QFile::remove(path);
    bench.dialogs.ExpectMessage(u"Cannot find "_s + path, BoxAnswer::Ok, BoxIcon::None);
    bench.Choose(u"mnuFileMRU1"_s);
    QVERIFY(bench.Active() == nullptr);
}

void win_frmMain::openedFileMovesToTheTopOfTheList()
{
    TestBench bench;
    QStringList paths;
    for (int i = 0; i < 3; ++i)
        paths.append(bench.Write(u"f%1.bas"_s.arg(i), "end\r\n"));
    bench.Start(paths + QStringList{paths[0]});
    QCOMPARE(RecentCount, 3);
    QCOMPARE(Recent(bench, 1)->text(), paths[0]);
    QCOMPARE(Recent(bench, 2)->text(), paths[2]);
    QCOMPARE(Recent(bench, 3)->text(), paths[1]);
    QVERIFY(Recent(bench, 3)->isVisible());
    QVERIFY(!Recent(bench, 4)->isVisible());
    QCOMPARE(ReadSetting(u"MRU1"_s, QString()), paths[0]);
}

void win_frmMain::droppedFilesOpen()
{
    TestBench bench;
    bench.Start();
    const QString first = bench.Write(u"a.bas"_s, "end\r\n");
    const QString form = bench.Write(u"b.OBF"_s, "\r\n");
    const QString last = bench.Write(u"c.bas"_s, "end\r\n");
    Drop(bench, {bench.Path(u"gone.bas"_s), first, form, last});
    // The form is the last one that opens.
    QCOMPARE(bench.Frame().ActiveKind(), ActiveChild::Gui);
    QCOMPARE(Documents[1]->Caption(), first);
    QCOMPARE(RecentFiles[0], first);
}

void win_frmMain::menuTreeIsInItsOrder()
{
    TestBench bench;
    bench.Start();
    QStringList bar;
    for (const MenuRow& row : MenuTree()) {
        const QString name = QString::fromLatin1(row.name);
        if (row.kind == ItemKind::Recent)
            continue;
        QVERIFY2(bench.Frame().Item(name) != nullptr, row.name);
        if (row.kind != ItemKind::Bar)
            QCOMPARE(bench.Frame().Item(name)->text(), QString::fromLatin1(row.caption));
        QCOMPARE(bench.Frame().Item(name)->shortcut(), QKeySequence(QString::fromLatin1(row.key)));
        if (row.depth == 0)
            bar.append(name);
    }
    QCOMPARE(bar, (QStringList{u"mnuFile"_s, u"mnuEdit"_s, u"mnuViewOptions"_s, u"mnuOrchard"_s, u"mnuToolS"_s,
                               u"mnuWindow"_s, u"mnuHelp"_s}));
    QCOMPARE(bench.Frame().Item(u"mnuFileOpenCode"_s)->shortcut(), QKeySequence(u"Ctrl+O"_s));
    const auto* recent = bench.Frame().findChild<QMenu*>(u"mnuRecentList"_s);
    QCOMPARE(recent->actions().size(), 8);
}

void win_frmMain::toolbarHasItsButtonsAndSeparators()
{
    TestBench bench;
    bench.Start();
    QStringList shown;
    for (const QAction* action : bench.Frame().findChild<QToolBar*>(u"tbToolBar"_s)->actions()) {
        shown.append(action->isSeparator() ? u"-"_s : action->objectName());
        if (!action->isSeparator())
            QVERIFY2(!action->icon().pixmap(24, 24).isNull(), qPrintable(action->objectName()));
    }
    QCOMPARE(shown.join(QLatin1Char(' ')), u"New Open Save Print - Cut Copy Paste Find - Run Debug Options "
                                           "User Construct View Help"_s);
}

void win_frmMain::toolbarCanBeHidden()
{
    TestBench bench;
    bench.Start();
    auto* bar = bench.Frame().findChild<QToolBar*>(u"tbToolBar"_s);
    QVERIFY(bar->isVisible());
    bench.Choose(u"mnuOptionsToolbar"_s);
    QVERIFY(!bar->isVisible());
    QVERIFY(!bench.Frame().Item(u"mnuOptionsToolbar"_s)->isChecked());
    bench.Choose(u"mnuOptionsToolbar"_s);
    QVERIFY(bar->isVisible());
}

void win_frmMain::fileBoxesStartInTheFolderOfTheActiveFile()
{
    TestBench bench;
    bench.Start();
    QCOMPARE(FileBoxStart({}), QDir::currentPath());
    for (const char* folder : {"code", "forms"})
        QDir().mkdir(bench.Path(QString::fromLatin1(folder)));
    const QString code = bench.Write(u"code/a.bas"_s, "end\r\n\r\n");
    OpenFiles({code}, FileSource::CommandLine);
    QCOMPARE(FileBoxStart({}), bench.Path(u"code"_s));
    // A folder that the caller names has precedence.
    QCOMPARE(FileBoxStart(QDir::tempPath()), QDir::tempPath());
    bench.Choose(u"mnuFileNew"_s);
    QCOMPARE(FileBoxStart({}), QDir::currentPath());

    bench.AnswerModals([](QDialog& defaults) { defaults.accept(); });
    bench.Choose(u"mnuFileNewGui"_s);
    QCOMPARE(FileBoxStart({}), QDir::currentPath());
    bench.dialogs.ExpectMessage(
        u"The form is saved, but it cannot be loaded again as it is.\nLine 2 of the file: the form "
        "was saved before its window properties were confirmed with OK."_s,
        BoxAnswer::Ok, BoxIcon::Exclamation);
    SaveGuiForm(bench.Path(u"forms/a.obf"_s));
    QVERIFY(bench.dialogs.Finished());
    QCOMPARE(FileBoxStart({}), bench.Path(u"forms"_s));
    bench.Choose(u"mnuFileNewGui"_s);
    QCOMPARE(FileBoxStart({}), QDir::currentPath());
    QVERIFY(QFile::copy(u"" OB_TEST_DATA "/../../samples/about-dialog.obf"_s, bench.Path(u"forms/b.obf"_s)));
    LoadGuiForm(bench.Path(u"forms/b.obf"_s));
    QCOMPARE(FileBoxStart({}), bench.Path(u"forms"_s));
}

void win_frmMain::anEmptyFileIsReportedWithItsName()
{
    TestBench bench;
    bench.Start();
    const QString empty = bench.Write(u"empty.bas"_s, {});
    bench.dialogs.ExpectMessage(u"Run-time error '5':\nInvalid procedure call or argument"_s);
    OpenFiles({empty}, FileSource::CommandLine);
    QVERIFY(bench.dialogs.Finished());
    auto* status = bench.Frame().findChild<QLabel*>(u"statusText"_s);
    QCOMPARE(status->text(), empty + u": The file is empty"_s);
    // It is news of the moment, and not of what is opened next.
    OpenFiles({bench.Write(u"good.bas"_s, "end\r\n\r\n")}, FileSource::CommandLine);
    QVERIFY(!status->text().contains(u"empty"_s));
    bench.Choose(u"mnuFileClose"_s);
    QVERIFY(!status->text().contains(u"empty"_s));
}

void win_frmMain::aFolderThatIsGoneIsReportedWithTheFilesName()
{
    TestBench bench;
    QDir().mkdir(bench.Path(u"gone"_s));
    const QString path = bench.Write(u"gone/a.bas"_s, "end\r\n\r\n");
    bench.Start({path});
    QVERIFY(QDir(bench.Path(u"gone"_s)).removeRecursively());
    bench.dialogs.ExpectMessage(u"Run-time error '76':\nPath not found"_s);
    bench.Choose(u"mnuFileSave"_s);
    QVERIFY(bench.dialogs.Finished());
    const QString status = bench.Frame().findChild<QLabel*>(u"statusText"_s)->text();
    QVERIFY2(status.startsWith(path + u": "_s) && status.size() > path.size() + 5, qPrintable(status));
}

void win_frmMain::anEngineThatCannotBeStartedIsReportedWithItsName()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n\r\n")});
    OBPath = bench.Write(u"orchard.exe"_s, "no program");
    bench.dialogs.ExpectMessage(u"Run-time error '5':\nInvalid procedure call or argument"_s);
    bench.Choose(u"mnuRun"_s);
    QVERIFY(bench.dialogs.Finished());
    const QString status = bench.Frame().findChild<QLabel*>(u"statusText"_s)->text();
    QVERIFY2(status.contains(OBPath), qPrintable(status));
}

void win_frmMain::controlF4Ends()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "end\r\n")});
    QTest::keyClick(&bench.Frame(), Qt::Key_F4, Qt::ControlModifier);
    QVERIFY(!bench.Frame().isVisible());
}

void win_frmMain::closingAFrameWithSeveralWindowsAsksForEach()
{
    TestBench bench;
    const QString a = bench.Write(u"a.bas"_s, "end\r\n");
    const QString b = bench.Write(u"b.bas"_s, "end\r\n");
    bench.Start({a, b});
    TestBench::Type(Documents[1].get(), "x");
    TestBench::Type(Documents[2].get(), "y");
    bench.dialogs.ExpectQuestion(u"Save "_s + b + u" before closing?"_s, BoxAnswer::Yes);
    bench.dialogs.ExpectQuestion(u"Save "_s + a + u" before closing?"_s, BoxAnswer::No);
    QVERIFY(bench.Close());
    QCOMPARE(TestBench::Read(a), QByteArray("end\r\n"));
    QCOMPARE(TestBench::Read(b), QByteArray("yend \r\n"));
    QCOMPARE(RecentFiles[0], b);
}

OB_BENCH_TEST(win_frmMain)
#include "win_frmMain.moc"
