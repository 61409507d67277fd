// SPDX-License-Identifier: GPL-3.0-or-later
// User applications, launchers, pages, help files, the small previews, the Window menu, the status panels.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "shell/bench/modLaunchers.h"
#include "shell/state/Module1.h"
#include "shell/state/modSettings.h"

#include <QAction>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

QPushButton* Button(QDialog& dialog, const char* name)
{
    return dialog.findChild<QPushButton*>(QString::fromLatin1(name));
}

void Press(QDialog& dialog, const char* name)
{
    QTest::mouseClick(Button(dialog, name), Qt::LeftButton);
}

QAction* ToolbarEntry(TestBench& bench, const char* key)
{
    return bench.Frame().findChild<QToolBar*>(u"tbToolBar"_s)->findChild<QAction*>(QString::fromLatin1(key));
}

// The programs and types of the test's desktop.
class TestDesktop {
public:
    explicit TestDesktop(const TestBench& bench) : data(bench.Path(u"data"_s))
    {
        QDir().mkpath(data + u"/applications"_s);
        for (const char* name : {"XDG_DATA_HOME", "XDG_DATA_DIRS", "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS"}) {
            before.append(qMakePair(QByteArray(name), qgetenv(name)));
            qputenv(name, data.toUtf8());
        }
    }
    ~TestDesktop()
    {
        for (const auto& [name, value] : before)
            value.isNull() ? qunsetenv(name.constData()) : qputenv(name.constData(), value);
    }

    void Add(const QString& file, const QByteArray& bytes) const
    {
        QFile entry(data + QLatin1Char('/') + file);
        if (!entry.open(QIODevice::WriteOnly) || entry.write(bytes) != bytes.size())
            QTest::qFail("the desktop file cannot be written", __FILE__, __LINE__);
    }

    static QByteArray Entry(const QString& program, const QByteArray& more)
    {
        return "[Desktop Entry]\nType=Application\nName=Test\nExec=" + program.toUtf8() + " %f\n" + more;
    }

private:
    QString data;
    QList<QPair<QByteArray, QByteArray>> before;
};

} // namespace

class win_launchers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void applicationsAreAddedAndRemoved();
    void removingWithoutASelectionIsReported();
    void tenApplicationsAreTheMaximum();
    void cancelKeepsTheApplications();
    void hotButtonStartsTheFirstOrOpensTheList();
    void missingHotProgramDoesNothing();
    void applicationItemsStartTheirPrograms();
    void desktopProgramsAreFoundByType();
    void missingDesktopProgramsAreReported();
    void pagesOpenInTheBrowser();
    void helpFileIsChosenThenOpened();
    void helpWithoutAFileIsReported();
    void withoutALanguageHelpFileTheManualOpens();
    void librariesOpenOrAreReportedAsMissing();
    void chosenColorIsShownInTheStatusBar();
    void chosenFontIsShownInTheStatusBar();
    void goToLineMovesTheCaret();
    void goToLineOfNoNumberIsTheFirst();
    void aboutShowsTheVersion();
    void windowsAreTiledAndCascaded();
    void windowMenuListsTheChildren();
    void paletteOpensAndCloses();
    void doubleClickOnTheToolbarAsks();
    void statusBarHasSixPanels();
};

void win_launchers::applicationsAreAddedAndRemoved()
{
    TestBench bench;
    bench.Start();
    const QString first = bench.Write(u"one.exe"_s, "x");
    const QString second = bench.Write(u"two.exe"_s, "x");
    bench.ExpectModal(u"frmUser"_s, [&](QDialog& dialog) {
        QVERIFY(!Button(dialog, "cmdRemove")->isEnabled());
        for (const QString& path : {first, second, bench.Path(u"gone.exe"_s), QString()}) {
            bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, u"Executables (*.exe)|*.EXE"_s, path);
            Press(dialog, "cmdAdd");
        }
        QCOMPARE(dialog.findChild<QListWidget*>(u"lstApps"_s)->count(), 2);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    ToolbarEntry(bench, "addremove")->trigger();
    QCOMPARE(HotKey, first);
    QCOMPARE(UserApplications[1], second);
    QCOMPARE(UserApplications[2], u"none"_s);
    QCOMPARE(ToolbarEntry(bench, "two")->text(), u"two.exe"_s);
    QVERIFY(!ToolbarEntry(bench, "three")->isVisible());

    bench.ExpectModal(u"frmUser"_s, [](QDialog& dialog) {
        dialog.findChild<QListWidget*>(u"lstApps"_s)->setCurrentRow(0);
        Press(dialog, "cmdRemove");
        Press(dialog, "OKButton");
    });
    ToolbarEntry(bench, "addremove")->trigger();
    QCOMPARE(HotKey, second);
    QCOMPARE(UserApplications[1], u"none"_s);
}

void win_launchers::removingWithoutASelectionIsReported()
{
    TestBench bench;
    bench.Start();
    HotKey = u"/a/b.exe"_s;
    bench.ExpectModal(u"frmUser"_s, [&](QDialog& dialog) {
        bench.dialogs.ExpectMessage(u"No item is selected."_s, BoxAnswer::Ok, BoxIcon::Critical, BoxButtons::Ok,
                                    u"Cannot Remove Item"_s);
        Press(dialog, "cmdRemove");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    ToolbarEntry(bench, "addremove")->trigger();
    QCOMPARE(HotKey, u"/a/b.exe"_s);
}

void win_launchers::tenApplicationsAreTheMaximum()
{
    TestBench bench;
    bench.Start();
    UserApplications.fill(u"/a/b.exe"_s);
    bench.ExpectModal(u"frmUser"_s, [](QDialog& dialog) {
        QVERIFY(!Button(dialog, "cmdAdd")->isEnabled());
        dialog.findChild<QListWidget*>(u"lstApps"_s)->setCurrentRow(3);
        Press(dialog, "cmdRemove");
        QVERIFY(Button(dialog, "cmdAdd")->isEnabled());
        Press(dialog, "CancelButton");
    });
    ToolbarEntry(bench, "addremove")->trigger();
}

void win_launchers::cancelKeepsTheApplications()
{
    TestBench bench;
    bench.Start();
    UserApplications[4] = u"/a/b.exe"_s;
    bench.ExpectModal(u"frmUser"_s, [](QDialog& dialog) { Press(dialog, "CancelButton"); });
    ToolbarEntry(bench, "addremove")->trigger();
    QCOMPARE(UserApplications[4], u"/a/b.exe"_s);
    QCOMPARE(HotKey, u"none"_s);
}

void win_launchers::hotButtonStartsTheFirstOrOpensTheList()
{
    TestBench bench;
    bench.Start();
    UserApplications[1] = bench.MakeEngine(u"second.exe"_s);
    // A plain click uses only the first.
    bench.ExpectModal(u"frmUser"_s, [](QDialog& dialog) { dialog.reject(); });
    ToolbarEntry(bench, "User")->trigger();
    HotKey = UserApplications[1];
    ToolbarEntry(bench, "User")->trigger();
    QCOMPARE(bench.WaitForEngine().arguments, QStringList());
}

void win_launchers::missingHotProgramDoesNothing()
{
    TestBench bench;
    bench.Start();
    HotKey = bench.Path(u"gone.exe"_s);
    ToolbarEntry(bench, "User")->trigger();
    ToolbarEntry(bench, "one")->trigger();
    QVERIFY(bench.dialogs.Finished());
}

void win_launchers::applicationItemsStartTheirPrograms()
{
    TestBench bench;
    WriteSetting(u"User10"_s, bench.MakeEngine());
    bench.Start();
    QVERIFY(ToolbarEntry(bench, "ten")->isVisible());
    QVERIFY(!ToolbarEntry(bench, "one")->isVisible());
    ToolbarEntry(bench, "ten")->trigger();
    bench.WaitForEngine();
}

void win_launchers::desktopProgramsAreFoundByType()
{
    TestBench bench;
    const TestDesktop desktop(bench);
    bench.Start();
    const QString program = bench.MakeEngine(u"my editor"_s);
    desktop.Add(u"applications/a-terminal.desktop"_s,
                TestDesktop::Entry(program, "MimeType=text/plain;\nTerminal=true\n"));
    desktop.Add(u"applications/editor.desktop"_s,
                TestDesktop::Entry(QLatin1Char('"') + program + QLatin1Char('"'),
                                   "MimeType=text/plain;audio/x-wav;\nCategories=Utility;Calculator;\n"));
    for (const char* item : {"mnuNotepad", "mnuCalculator"}) {
        bench.Choose(QString::fromLatin1(item));
        QCOMPARE(bench.WaitForEngine().arguments, QStringList());
    }
    QVERIFY(!QFile::exists(bench.ProgramPath(u"test.txt"_s)));
}

void win_launchers::missingDesktopProgramsAreReported()
{
    TestBench bench;
    const TestDesktop desktop(bench);
    bench.Start();
    desktop.Add(u"applications/hex.desktop"_s,
                TestDesktop::Entry(bench.MakeEngine(), "MimeType=application/octet-stream;\n"));
    const QList<QPair<QString, QString>> messages = {
        {u"mnuExplorer"_s, u"Explorer not found."_s},
        {u"mnuNotepad"_s, u"Default texteditor not found."_s},
        {u"mnuWordpad"_s, u"Default word processor not found."_s},
        {u"mnuPaint"_s, u"Default paint program not found."_s},
        {u"mnuSoundRec"_s, u"Default WAV program not found."_s},
        {u"mnuCalculator"_s, u"Calculator not found."_s},
    };
    for (const auto& [item, message] : messages) {
        bench.dialogs.ExpectMessage(message);
        bench.Choose(item);
    }
    QCOMPARE(QDir(bench.ProgramPath(QString())).entryList({u"test.*"_s}), QStringList());
}

class UrlCatcher : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void Take(const QUrl& url) { urls.append(url); }

public:
    QList<QUrl> urls;
};

void win_launchers::pagesOpenInTheBrowser()
{
    TestBench bench;
    bench.Start();
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler(u"https"_s, &catcher, "Take");
    for (const char* item : {"mnuOBHome", "mnuOBGroup", "mnuOBForum", "mnuOBNews", "mnuOBLinks"})
        bench.Choose(QString::fromLatin1(item));
    QDesktopServices::unsetUrlHandler(u"https"_s);
    QCOMPARE(catcher.urls.size(), 5);
    QCOMPARE(catcher.urls.first().toString(), PageAddress(u"mnuOBHome"_s));
    QVERIFY(catcher.urls.first().isValid() && !catcher.urls.first().host().isEmpty());
}

void win_launchers::helpFileIsChosenThenOpened()
{
    TestBench bench;
    bench.Start();
    const QString help = bench.Write(u"orchard.hlp"_s, "help");
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler(u"file"_s, &catcher, "Take");
    bench.dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, u"Orchard BASIC Help|orchard.hlp;*.hlp;"_s, help);
    QTest::keyClick(&bench.Frame(), Qt::Key_F1);
    bench.Choose(u"mnuHelpContents"_s);
    QDesktopServices::unsetUrlHandler(u"file"_s);
    QCOMPARE(catcher.urls, QList<QUrl>(2, QUrl::fromLocalFile(help)));
    QCOMPARE(OBHelpPath, help);
}

void win_launchers::helpWithoutAFileIsReported()
{
    TestBench bench;
    bench.Start();
    const QString filter = u"Programming Help|*.hlp;"_s;
    for (int i = 0; i < 2; ++i) {
        bench.dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, filter, QString());
        bench.dialogs.ExpectMessage(u"The chosen Helpfile was not found."_s);
    }
    bench.dialogs.ExpectMessage(u"No helpfile is designated."_s, BoxAnswer::Ok, BoxIcon::None);
    bench.Choose(u"mnuHelpOption"_s);
}

void win_launchers::withoutALanguageHelpFileTheManualOpens()
{
    TestBench bench;
    bench.Start();
    for (int i = 0; i < 2; ++i) {
        bench.dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, u"Orchard BASIC Help|orchard.hlp;*.hlp;"_s, QString());
        bench.dialogs.ExpectMessage(
            u"Orchard BASIC help was not found.  Be sure to specify the path to Orchard BASIC in "
            "Options!"_s,
            BoxAnswer::Ok, BoxIcon::None);
    }
    bench.dialogs.ExpectMessage(u"No helpfile is designated."_s, BoxAnswer::Ok, BoxIcon::None);
    QTest::keyClick(&bench.Frame(), Qt::Key_F1);
    QVERIFY(bench.dialogs.Finished());
    const QWidget* manual = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == u"frmHelp"_s && window->isVisible())
            manual = window;
    QVERIFY(manual != nullptr);
    QCOMPARE(manual->windowTitle(), u"Help on the language - Orchard Bench Help"_s);
}

void win_launchers::librariesOpenOrAreReportedAsMissing()
{
    TestBench bench;
    bench.Start();
    QFile::remove(bench.ProgramPath(u"wrapper32.bas"_s));
    bench.dialogs.ExpectMessage(u"Wrapper32.bas not found!"_s);
    bench.Choose(u"mnuWrapper"_s);
    QFile library(bench.ProgramPath(u"printer32.bas"_s));
    QVERIFY(library.open(QIODevice::WriteOnly) && library.write("end\r\n") == 5);
    library.close();
    bench.Choose(u"mnuToolPrinter"_s);
    QCOMPARE(bench.Active()->Caption(), bench.ProgramPath(u"printer32.bas"_s));
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("end"));
}

void win_launchers::chosenColorIsShownInTheStatusBar()
{
    TestBench bench;
    bench.Start();
    bench.dialogs.ExpectColor(u"Color Previewer"_s, 0, Rgb(1, 20, 255));
    bench.Choose(u"mnuColorDialog"_s);
    auto* text = bench.Frame().findChild<QLabel*>(u"statusText"_s);
    QCOMPARE(text->text(), u"R- 1     G- 20     B- 255     Long- 16716801"_s);
    bench.dialogs.ExpectColor(u"Color Previewer"_s, Rgb(1, 20, 255), std::nullopt);
    bench.Choose(u"mnuColorDialog"_s);
    QCOMPARE(text->text(), u"R- 1     G- 20     B- 255     Long- 16716801"_s);
}

void win_launchers::chosenFontIsShownInTheStatusBar()
{
    TestBench bench;
    bench.Start();
    const FontSpec start{u"MS Sans Serif"_s, 10, false, false};
    bench.dialogs.ExpectFont(start, FontSpec{u"Liberation Mono"_s, 14, true, false});
    bench.Choose(u"mnuToolFont"_s);
    QCOMPARE(bench.Frame().findChild<QLabel*>(u"statusText"_s)->text(), u"Font:  Liberation Mono     size:  14"_s);
    bench.dialogs.ExpectFont(start, std::nullopt);
    bench.Choose(u"mnuToolFont"_s);
}

void win_launchers::goToLineMovesTheCaret()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "one\r\ntwo\r\nthree\r\n")});
    const InputSpec question{u"Line number?"_s, u"Go to Line"_s, u"1"_s};
    bench.dialogs.ExpectInput(question, u"3"_s);
    bench.Choose(u"mnuLine"_s);
    QCOMPARE(SendSci(bench.Active()->sci, SCI_GETCURRENTPOS), 10);
}

void win_launchers::goToLineOfNoNumberIsTheFirst()
{
    TestBench bench;
    bench.Start({bench.Write(u"a.bas"_s, "one\r\ntwo\r\nthree\r\n")});
    const InputSpec question{u"Line number?"_s, u"Go to Line"_s, u"1"_s};
    SendSci(bench.Active()->sci, SCI_GOTOPOS, 7);
    bench.dialogs.ExpectInput(question, std::nullopt);
    bench.Choose(u"mnuLine"_s);
    QCOMPARE(SendSci(bench.Active()->sci, SCI_GETCURRENTPOS), 0);
}

void win_launchers::aboutShowsTheVersion()
{
    TestBench bench;
    bench.Start();
    bench.ExpectModal(u"dlgAbout"_s, [](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), u"About OB Bench"_s);
        QCOMPARE(dialog.findChild<QLabel*>(u"lblName"_s)->text(), u"OB Bench  v " OB_VERSION ""_s);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    bench.Choose(u"mnuHelpAbout"_s);
}

void win_launchers::windowsAreTiledAndCascaded()
{
    TestBench bench;
    QStringList paths;
    for (int i = 0; i < 3; ++i)
        paths.append(bench.Write(u"f%1.bas"_s.arg(i), "end\r\n"));
    bench.Start(paths);
    bench.Frame().resize(800, 700);
    const QSize area = bench.Frame().Area().viewport()->size();
    const auto geometry = [&](int i) { return bench.Frame().Area().subWindowList()[i]->geometry(); };
    bench.Choose(u"mnuWindowTileHorizontal"_s);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(geometry(i).width(), area.width());
        QCOMPARE(geometry(i).top(), area.height() * i / 3);
    }
    bench.Choose(u"mnuWindowTileVertical"_s);
    for (int i = 0; i < 3; ++i)
        QCOMPARE(geometry(i).left(), area.width() * i / 3);
    bench.Choose(u"mnuWindowCascade"_s);
    QVERIFY(geometry(1).left() > geometry(0).left() && geometry(1).top() > geometry(0).top());
    QCOMPARE(geometry(2).size(), geometry(0).size());
    bench.Frame().Area().subWindowList()[0]->showMinimized();
    bench.Choose(u"mnuWindowArrangeIcons"_s);
    QCOMPARE(geometry(0).bottom(), area.height() - 1);
}

void win_launchers::windowMenuListsTheChildren()
{
    TestBench bench;
    const QString a = bench.Write(u"a&b.bas"_s, "end\r\n");
    const QString b = bench.Write(u"b.bas"_s, "end\r\n");
    bench.Start({a, b});
    QMenu* menu = bench.Frame().Item(u"mnuWindow"_s)->menu();
    for (int opening = 0; opening < 2; ++opening) {
        Q_EMIT menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 8);
    }
    QAction* first = menu->actions()[6];
    QCOMPARE(first->text(), u"&1 "_s + QString(a).replace(QLatin1Char('&'), QLatin1String("&&")));
    QVERIFY(!first->isChecked());
    QVERIFY(menu->actions()[7]->isChecked());
    first->trigger();
    QCOMPARE(bench.Active()->Caption(), a);
}

void win_launchers::paletteOpensAndCloses()
{
    TestBench bench;
    bench.Start();
    auto* palette = bench.Frame().findChild<QWidget*>(u"picGui"_s);
    QVERIFY(!palette->isVisible());
    bench.Choose(u"mnuViewGuiBar"_s);
    QVERIFY(palette->isVisible());
    QTest::mouseClick(palette->findChild<QToolButton*>(u"cmdGuiX"_s), Qt::LeftButton);
    QVERIFY(!palette->isVisible());
    QVERIFY(!bench.Frame().Item(u"mnuViewGuiBar"_s)->isChecked());
}

void win_launchers::doubleClickOnTheToolbarAsks()
{
    TestBench bench;
    bench.Start();
    bench.Frame().resize(900, 500);
    auto* bar = bench.Frame().findChild<QToolBar*>(u"tbToolBar"_s);
    const QString question =
        u"Would you like to hide this toolbar? (Options menu will allow you to display it again.)"_s;
    for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
        bench.dialogs.ExpectMessage(question, answer, BoxIcon::Question, BoxButtons::YesNo, u"Hide Toolbar?"_s);
        QTest::mouseDClick(bar, Qt::LeftButton, {}, QPoint(bar->width() - 5, bar->height() / 2));
        QCOMPARE(bar->isVisible(), answer == BoxAnswer::No);
    }
    QVERIFY(!bench.Frame().Item(u"mnuOptionsToolbar"_s)->isChecked());
    bench.Frame().ShowToolbar(true);
    // A disabled button is not free area.
    QTest::mouseDClick(bar, Qt::LeftButton, {}, bar->actionGeometry(ToolbarEntry(bench, "Save")).center());
    QVERIFY(bar->isVisible());
}

void win_launchers::statusBarHasSixPanels()
{
    TestBench bench;
    bench.Start();
    QStringList texts;
    for (const char* name : {"statusNum", "statusCaps", "statusIns"})
        texts.append(bench.Frame().findChild<QLabel*>(QString::fromLatin1(name))->text());
    QCOMPARE(texts.join(QLatin1Char(' ')), u"NUM CAPS INS"_s);
    QVERIFY(!bench.Frame().findChild<QLabel*>(u"statusDate"_s)->text().isEmpty());
    QVERIFY(!bench.Frame().findChild<QLabel*>(u"statusTime"_s)->text().isEmpty());

    bench.Choose(u"mnuFileNew"_s);
    auto* insert = bench.Frame().findChild<QLabel*>(u"statusIns"_s);
    QVERIFY(insert->isEnabled());
    QTest::keyClick(bench.ActiveWindowEdit(), Qt::Key_Insert);
    QVERIFY(!insert->isEnabled());
}

OB_BENCH_TEST(win_launchers)
#include "win_launchers.moc"
