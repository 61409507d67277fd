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
    return bench.Frame()
        .findChild<QToolBar*>(QStringLiteral("tbToolBar"))
        ->findChild<QAction*>(QString::fromLatin1(key));
}

// The programs and types of the test's desktop.
class TestDesktop {
public:
    explicit TestDesktop(const TestBench& bench) : data(bench.Path(QStringLiteral("data")))
    {
        QDir().mkpath(data + QStringLiteral("/applications"));
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
    const QString first = bench.Write(QStringLiteral("one.exe"), "x");
    const QString second = bench.Write(QStringLiteral("two.exe"), "x");
    bench.ExpectModal(QStringLiteral("frmUser"), [&](QDialog& dialog) {
        QVERIFY(!Button(dialog, "cmdRemove")->isEnabled());
        for (const QString& path : {first, second, bench.Path(QStringLiteral("gone.exe")), QString()}) {
            bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open File..."),
                                     QStringLiteral("Executables (*.exe)|*.EXE"), path);
            Press(dialog, "cmdAdd");
        }
        QCOMPARE(dialog.findChild<QListWidget*>(QStringLiteral("lstApps"))->count(), 2);
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    ToolbarEntry(bench, "addremove")->trigger();
    QCOMPARE(HotKey, first);
    QCOMPARE(UserApplications[1], second);
    QCOMPARE(UserApplications[2], QStringLiteral("none"));
    QCOMPARE(ToolbarEntry(bench, "two")->text(), QStringLiteral("two.exe"));
    QVERIFY(!ToolbarEntry(bench, "three")->isVisible());

    bench.ExpectModal(QStringLiteral("frmUser"), [](QDialog& dialog) {
        dialog.findChild<QListWidget*>(QStringLiteral("lstApps"))->setCurrentRow(0);
        Press(dialog, "cmdRemove");
        Press(dialog, "OKButton");
    });
    ToolbarEntry(bench, "addremove")->trigger();
    QCOMPARE(HotKey, second);
    QCOMPARE(UserApplications[1], QStringLiteral("none"));
}

void win_launchers::removingWithoutASelectionIsReported()
{
    TestBench bench;
    bench.Start();
    HotKey = QStringLiteral("/a/b.exe");
    bench.ExpectModal(QStringLiteral("frmUser"), [&](QDialog& dialog) {
        bench.dialogs.ExpectMessage(QStringLiteral("No item is selected."), BoxAnswer::Ok, BoxIcon::Critical,
                                    BoxButtons::Ok, QStringLiteral("Cannot Remove Item"));
        Press(dialog, "cmdRemove");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    ToolbarEntry(bench, "addremove")->trigger();
    QCOMPARE(HotKey, QStringLiteral("/a/b.exe"));
}

void win_launchers::tenApplicationsAreTheMaximum()
{
    TestBench bench;
    bench.Start();
    UserApplications.fill(QStringLiteral("/a/b.exe"));
    bench.ExpectModal(QStringLiteral("frmUser"), [](QDialog& dialog) {
        QVERIFY(!Button(dialog, "cmdAdd")->isEnabled());
        dialog.findChild<QListWidget*>(QStringLiteral("lstApps"))->setCurrentRow(3);
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
    UserApplications[4] = QStringLiteral("/a/b.exe");
    bench.ExpectModal(QStringLiteral("frmUser"), [](QDialog& dialog) { Press(dialog, "CancelButton"); });
    ToolbarEntry(bench, "addremove")->trigger();
    QCOMPARE(UserApplications[4], QStringLiteral("/a/b.exe"));
    QCOMPARE(HotKey, QStringLiteral("none"));
}

void win_launchers::hotButtonStartsTheFirstOrOpensTheList()
{
    TestBench bench;
    bench.Start();
    UserApplications[1] = bench.MakeEngine(QStringLiteral("second.exe"));
    // A plain click uses only the first.
    bench.ExpectModal(QStringLiteral("frmUser"), [](QDialog& dialog) { dialog.reject(); });
    ToolbarEntry(bench, "User")->trigger();
    HotKey = UserApplications[1];
    ToolbarEntry(bench, "User")->trigger();
    QCOMPARE(bench.WaitForEngine().arguments, QStringList());
}

void win_launchers::missingHotProgramDoesNothing()
{
    TestBench bench;
    bench.Start();
    HotKey = bench.Path(QStringLiteral("gone.exe"));
    ToolbarEntry(bench, "User")->trigger();
    ToolbarEntry(bench, "one")->trigger();
    QVERIFY(bench.dialogs.Finished());
}

void win_launchers::applicationItemsStartTheirPrograms()
{
    TestBench bench;
    WriteSetting(QStringLiteral("User10"), bench.MakeEngine());
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
    const QString program = bench.MakeEngine(QStringLiteral("my editor"));
    desktop.Add(QStringLiteral("applications/a-terminal.desktop"),
                TestDesktop::Entry(program, "MimeType=text/plain;\nTerminal=true\n"));
    desktop.Add(QStringLiteral("applications/editor.desktop"),
                TestDesktop::Entry(QLatin1Char('"') + program + QLatin1Char('"'),
                                   "MimeType=text/plain;audio/x-wav;\nCategories=Utility;Calculator;\n"));
    for (const char* item : {"mnuNotepad", "mnuCalculator"}) {
        bench.Choose(QString::fromLatin1(item));
        QCOMPARE(bench.WaitForEngine().arguments, QStringList());
    }
    QVERIFY(!QFile::exists(bench.ProgramPath(QStringLiteral("test.txt"))));
}

void win_launchers::missingDesktopProgramsAreReported()
{
    TestBench bench;
    const TestDesktop desktop(bench);
    bench.Start();
    desktop.Add(QStringLiteral("applications/hex.desktop"),
                TestDesktop::Entry(bench.MakeEngine(), "MimeType=application/octet-stream;\n"));
    const QList<QPair<QString, QString>> messages = {
        {QStringLiteral("mnuExplorer"), QStringLiteral("Explorer not found.")},
        {QStringLiteral("mnuNotepad"), QStringLiteral("Default texteditor not found.")},
        {QStringLiteral("mnuWordpad"), QStringLiteral("Default word processor not found.")},
        {QStringLiteral("mnuPaint"), QStringLiteral("Default paint program not found.")},
        {QStringLiteral("mnuSoundRec"), QStringLiteral("Default WAV program not found.")},
        {QStringLiteral("mnuCalculator"), QStringLiteral("Calculator not found.")},
    };
    for (const auto& [item, message] : messages) {
        bench.dialogs.ExpectMessage(message);
        bench.Choose(item);
    }
    QCOMPARE(QDir(bench.ProgramPath(QString())).entryList({QStringLiteral("test.*")}), QStringList());
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
    QDesktopServices::setUrlHandler(QStringLiteral("https"), &catcher, "Take");
    for (const char* item : {"mnuOBHome", "mnuOBGroup", "mnuOBForum", "mnuOBNews", "mnuOBLinks"})
        bench.Choose(QString::fromLatin1(item));
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
    QCOMPARE(catcher.urls.size(), 5);
    QCOMPARE(catcher.urls.first().toString(), PageAddress(QStringLiteral("mnuOBHome")));
    QVERIFY(catcher.urls.first().isValid() && !catcher.urls.first().host().isEmpty());
}

void win_launchers::helpFileIsChosenThenOpened()
{
    TestBench bench;
    bench.Start();
    const QString help = bench.Write(QStringLiteral("orchard.hlp"), "help");
    UrlCatcher catcher;
    QDesktopServices::setUrlHandler(QStringLiteral("file"), &catcher, "Take");
    bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"),
                             QStringLiteral("Orchard BASIC Help|orchard.hlp;*.hlp;"), help);
    QTest::keyClick(&bench.Frame(), Qt::Key_F1);
    bench.Choose(QStringLiteral("mnuHelpContents"));
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QCOMPARE(catcher.urls, QList<QUrl>(2, QUrl::fromLocalFile(help)));
    QCOMPARE(OBHelpPath, help);
}

void win_launchers::helpWithoutAFileIsReported()
{
    TestBench bench;
    bench.Start();
    const QString filter = QStringLiteral("Programming Help|*.hlp;");
    for (int i = 0; i < 2; ++i) {
        bench.dialogs.ExpectFile(FilePurpose::Open, QStringLiteral("Open"), filter, QString());
        bench.dialogs.ExpectMessage(QStringLiteral("The chosen Helpfile was not found."));
    }
    bench.dialogs.ExpectMessage(QStringLiteral("No helpfile is designated."), BoxAnswer::Ok, BoxIcon::None);
    bench.Choose(QStringLiteral("mnuHelpOption"));
}

void win_launchers::librariesOpenOrAreReportedAsMissing()
{
    TestBench bench;
    bench.Start();
    QFile::remove(bench.ProgramPath(QStringLiteral("wrapper32.bas")));
    bench.dialogs.ExpectMessage(QStringLiteral("Wrapper32.bas not found!"));
    bench.Choose(QStringLiteral("mnuWrapper"));
    QFile library(bench.ProgramPath(QStringLiteral("printer32.bas")));
    QVERIFY(library.open(QIODevice::WriteOnly) && library.write("end\r\n") == 5);
    library.close();
    bench.Choose(QStringLiteral("mnuToolPrinter"));
    QCOMPARE(bench.Active()->Caption(), bench.ProgramPath(QStringLiteral("printer32.bas")));
    QCOMPARE(TestBench::Text(bench.Active()), QByteArray("end"));
}

void win_launchers::chosenColorIsShownInTheStatusBar()
{
    TestBench bench;
    bench.Start();
    bench.dialogs.ExpectColor(QStringLiteral("Color Previewer"), 0, Rgb(1, 20, 255));
    bench.Choose(QStringLiteral("mnuColorDialog"));
    auto* text = bench.Frame().findChild<QLabel*>(QStringLiteral("statusText"));
    QCOMPARE(text->text(), QStringLiteral("R- 1     G- 20     B- 255     Long- 16716801"));
    bench.dialogs.ExpectColor(QStringLiteral("Color Previewer"), Rgb(1, 20, 255), std::nullopt);
    bench.Choose(QStringLiteral("mnuColorDialog"));
    QCOMPARE(text->text(), QStringLiteral("R- 1     G- 20     B- 255     Long- 16716801"));
}

void win_launchers::chosenFontIsShownInTheStatusBar()
{
    TestBench bench;
    bench.Start();
    const FontSpec start{QStringLiteral("MS Sans Serif"), 10, false, false};
    bench.dialogs.ExpectFont(start, FontSpec{QStringLiteral("Liberation Mono"), 14, true, false});
    bench.Choose(QStringLiteral("mnuToolFont"));
    QCOMPARE(bench.Frame().findChild<QLabel*>(QStringLiteral("statusText"))->text(),
             QStringLiteral("Font:  Liberation Mono     size:  14"));
    bench.dialogs.ExpectFont(start, std::nullopt);
    bench.Choose(QStringLiteral("mnuToolFont"));
}

void win_launchers::goToLineMovesTheCaret()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "one\r\ntwo\r\nthree\r\n")});
    const InputSpec question{QStringLiteral("Line number?"), QStringLiteral("Go to Line"), QStringLiteral("1")};
    bench.dialogs.ExpectInput(question, QStringLiteral("3"));
    bench.Choose(QStringLiteral("mnuLine"));
    QCOMPARE(SendSci(bench.Active()->sci, SCI_GETCURRENTPOS), 10);
}

void win_launchers::goToLineOfNoNumberIsTheFirst()
{
    TestBench bench;
    bench.Start({bench.Write(QStringLiteral("a.bas"), "one\r\ntwo\r\nthree\r\n")});
    const InputSpec question{QStringLiteral("Line number?"), QStringLiteral("Go to Line"), QStringLiteral("1")};
    SendSci(bench.Active()->sci, SCI_GOTOPOS, 7);
    bench.dialogs.ExpectInput(question, std::nullopt);
    bench.Choose(QStringLiteral("mnuLine"));
    QCOMPARE(SendSci(bench.Active()->sci, SCI_GETCURRENTPOS), 0);
}

void win_launchers::aboutShowsTheVersion()
{
    TestBench bench;
    bench.Start();
    bench.ExpectModal(QStringLiteral("dlgAbout"), [](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), QStringLiteral("About OB Bench"));
        QCOMPARE(dialog.findChild<QLabel*>(QStringLiteral("lblName"))->text(),
                 QStringLiteral("OB Bench  v " OB_VERSION));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    bench.Choose(QStringLiteral("mnuHelpAbout"));
}

void win_launchers::windowsAreTiledAndCascaded()
{
    TestBench bench;
    QStringList paths;
    for (int i = 0; i < 3; ++i)
        paths.append(bench.Write(QStringLiteral("f%1.bas").arg(i), "end\r\n"));
    bench.Start(paths);
    bench.Frame().resize(800, 700);
    const QSize area = bench.Frame().Area().viewport()->size();
    const auto geometry = [&](int i) { return bench.Frame().Area().subWindowList()[i]->geometry(); };
    bench.Choose(QStringLiteral("mnuWindowTileHorizontal"));
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(geometry(i).width(), area.width());
        QCOMPARE(geometry(i).top(), area.height() * i / 3);
    }
    bench.Choose(QStringLiteral("mnuWindowTileVertical"));
    for (int i = 0; i < 3; ++i)
        QCOMPARE(geometry(i).left(), area.width() * i / 3);
    bench.Choose(QStringLiteral("mnuWindowCascade"));
    QVERIFY(geometry(1).left() > geometry(0).left() && geometry(1).top() > geometry(0).top());
    QCOMPARE(geometry(2).size(), geometry(0).size());
    bench.Frame().Area().subWindowList()[0]->showMinimized();
    bench.Choose(QStringLiteral("mnuWindowArrangeIcons"));
    QCOMPARE(geometry(0).bottom(), area.height() - 1);
}

void win_launchers::windowMenuListsTheChildren()
{
    TestBench bench;
    const QString a = bench.Write(QStringLiteral("a&b.bas"), "end\r\n");
    const QString b = bench.Write(QStringLiteral("b.bas"), "end\r\n");
    bench.Start({a, b});
    QMenu* menu = bench.Frame().Item(QStringLiteral("mnuWindow"))->menu();
    for (int opening = 0; opening < 2; ++opening) {
        Q_EMIT menu->aboutToShow();
        QCOMPARE(menu->actions().size(), 8);
    }
    QAction* first = menu->actions()[6];
    QCOMPARE(first->text(), QStringLiteral("&1 ") + QString(a).replace(QLatin1Char('&'), QLatin1String("&&")));
    QVERIFY(!first->isChecked());
    QVERIFY(menu->actions()[7]->isChecked());
    first->trigger();
    QCOMPARE(bench.Active()->Caption(), a);
}

void win_launchers::paletteOpensAndCloses()
{
    TestBench bench;
    bench.Start();
    auto* palette = bench.Frame().findChild<QWidget*>(QStringLiteral("picGui"));
    QVERIFY(!palette->isVisible());
    bench.Choose(QStringLiteral("mnuViewGuiBar"));
    QVERIFY(palette->isVisible());
    QTest::mouseClick(palette->findChild<QToolButton*>(QStringLiteral("cmdGuiX")), Qt::LeftButton);
    QVERIFY(!palette->isVisible());
    QVERIFY(!bench.Frame().Item(QStringLiteral("mnuViewGuiBar"))->isChecked());
}

void win_launchers::doubleClickOnTheToolbarAsks()
{
    TestBench bench;
    bench.Start();
    bench.Frame().resize(900, 500);
    auto* bar = bench.Frame().findChild<QToolBar*>(QStringLiteral("tbToolBar"));
    const QString question =
        QStringLiteral("Would you like to hide this toolbar? (Options menu will allow you to display it again.)");
    for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
        bench.dialogs.ExpectMessage(question, answer, BoxIcon::Question, BoxButtons::YesNo,
                                    QStringLiteral("Hide Toolbar?"));
        QTest::mouseDClick(bar, Qt::LeftButton, {}, QPoint(bar->width() - 5, bar->height() / 2));
        QCOMPARE(bar->isVisible(), answer == BoxAnswer::No);
    }
    QVERIFY(!bench.Frame().Item(QStringLiteral("mnuOptionsToolbar"))->isChecked());
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
    QCOMPARE(texts.join(QLatin1Char(' ')), QStringLiteral("NUM CAPS INS"));
    QVERIFY(!bench.Frame().findChild<QLabel*>(QStringLiteral("statusDate"))->text().isEmpty());
    QVERIFY(!bench.Frame().findChild<QLabel*>(QStringLiteral("statusTime"))->text().isEmpty());

    bench.Choose(QStringLiteral("mnuFileNew"));
    auto* insert = bench.Frame().findChild<QLabel*>(QStringLiteral("statusIns"));
    QVERIFY(insert->isEnabled());
    QTest::keyClick(bench.ActiveWindowEdit(), Qt::Key_Insert);
    QVERIFY(!insert->isEnabled());
}

OB_BENCH_TEST(win_launchers)
#include "win_launchers.moc"
