// SPDX-License-Identifier: GPL-3.0-or-later
// The preferences by their controls: what they show, and what Apply, OK and Cancel do.
#include "shell/bench/OptionsBench.h"
#include "support/BenchTest.h"

#include "editor/document/modUserTexts.h"
#include "platform/files/modPaths.h"

#include <QFile>
#include <QPlainTextEdit>
#include <QTabBar>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmOptions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fourTabsHaveTheirCaptionsAndTips();
    void controlsShowTheSettings();
    void shownFontLooksLikeNoField();
    void controlTabGoesRoundTheTabs();
    void thereIsOneWindowAtATime();
    void tabSizeIsClampedAsItIsTyped_data();
    void tabSizeIsClampedAsItIsTyped();
    void emptyTabSizeBecomesOne();
    void storedTabSizeOutOfBoundsIsShownClamped();
    void fontBoxSetsTheFont();
    void cancelledFontBoxChangesNothing();
    void fontThatIsNotInstalledKeepsItsName();
    void strangeFontSizesDoNoHarm();
    void browseFillsItsBox_data();
    void browseFillsItsBox();
    void browseWithoutAChoiceKeepsTheBox();
    void typedPathIsApplied();
    void switchesReachTheOpenWindow();
    void okAppliesAndCloses();
    void escapeClosesWithoutApplying();
    void commentsAreShownRawAndWritten();
    void clearedCommentsLeaveTheFile();
    void newWindowGetsTheNewComments();
    void storeThatCannotBeWrittenLetsTheRunGoOn();
    void userApplicationsAreShownModally();
    void associationGoesToTheUsersDesktop();
    void associationCanBeDeclined();
    void everyControlWithoutACaptionHasAName();
};

void win_frmOptions::fourTabsHaveTheirCaptionsAndTips()
{
    OptionsBench options;
    const auto* tabs = options.Find<QTabWidget>("tbsOptions");
    const QStringList captions = {u"Editor"_s, u"Paths"_s, u"Syntax Coloring"_s, u"Customize"_s};
    const QStringList tips = {u"Choose font for edit windows"_s, u"Set Paths for Orchard BASIC"_s,
                              u"Syntax Color Options"_s, u"Customize Options"_s};
    QCOMPARE(tabs->count(), 4);
    QCOMPARE(tabs->currentIndex(), 0);
    for (int page = 0; page < 4; ++page) {
        QCOMPARE(tabs->tabText(page), captions[page]);
        QCOMPARE(tabs->tabToolTip(page), tips[page]);
        QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(page).center());
        for (int other = 0; other < 4; ++other)
            QCOMPARE(options.Find<QWidget>(qPrintable(u"picOptions%1"_s.arg(other)))->isVisible(), other == page);
    }
}

void win_frmOptions::controlsShowTheSettings()
{
    OptionsBench options;
    QCOMPARE(options.Text("txtFontName"), u"Courier New"_s);
    QCOMPARE(options.Text("txtFontSize"), u"12"_s);
    QCOMPARE(options.Text("txtTabSize"), u"4"_s);
    for (const char* path : {"txtOBexe", "txtOBHelp", "txtOBFreeForm", "txtOBRuntime", "txtOptionalHelp"})
        QCOMPARE(options.Text(path), u"no path"_s);
    for (const char* on : {"chkIndent", "chkLinenums", "chkHighlight", "chkIndentGuides", "chkQuery", "optColorOn"})
        QVERIFY2(options.On(on), on);
    for (const char* off : {"chkBold", "chkFile", "chkComments", "chkDefaultColors", "optColorOff"})
        QVERIFY2(!options.On(off), off);
    QCOMPARE(options.Find<QPlainTextEdit>("txtComments")->toPlainText(), QString());
    QCOMPARE(options.Fore("lblBranch"), Shown(Editor.BranchColor));
    QCOMPARE(options.Back("lblHighlight"), Shown(Editor.HighlightColor));
    QCOMPARE(options.Find<QLabel>("lblSample")->text().count(QLatin1Char('\n')), 1);
    QCOMPARE(options.Find<QLabel>("lblSample")->font().pointSize(), 12);
}

void win_frmOptions::shownFontLooksLikeNoField()
{
    const OptionsBench options;
    for (const char* name : {"txtFontName", "txtFontSize"}) {
        const auto* shown = options.Find<QLineEdit>(name);
        QVERIFY(shown->isReadOnly() && !shown->hasFrame());
        QCOMPARE(shown->palette().color(QPalette::Base).alpha(), 0);
    }
    QVERIFY(options.Find<QLineEdit>("txtTabSize")->hasFrame());
}

void win_frmOptions::controlTabGoesRoundTheTabs()
{
    OptionsBench options;
    const auto* tabs = options.Find<QTabWidget>("tbsOptions");
    for (const int page : {1, 2, 3, 0, 1}) {
        QTest::keyClick(options.form, Qt::Key_Tab, Qt::ControlModifier);
        QCOMPARE(tabs->currentIndex(), page);
    }
    // From inside a box, too.
    QTest::keyClick(options.Find<QLineEdit>("txtOBHelp"), Qt::Key_Tab, Qt::ControlModifier);
    QCOMPARE(tabs->currentIndex(), 2);
}

void win_frmOptions::thereIsOneWindowAtATime()
{
    OptionsBench options;
    const frmOptions* first = options.form;
    QVERIFY(!options.form->isModal());
    options.Type("txtTabSize", u"9"_s);
    options.Open();
    QCOMPARE(options.form.data(), first);
    QCOMPARE(options.Text("txtTabSize"), u"9"_s);
    options.Click("cmdCancel");
    options.Settle();
    QVERIFY(options.form.isNull());
    options.Open();
    QCOMPARE(options.Text("txtTabSize"), u"4"_s);
}

void win_frmOptions::tabSizeIsClampedAsItIsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("applied");
    QTest::newRow("99") << u"99"_s << u"12"_s << 12;
    QTest::newRow("12") << u"12"_s << u"12"_s << 12;
    QTest::newRow("0") << u"0"_s << u"0"_s << 1;
    QTest::newRow("7") << u"7"_s << u"7"_s << 7;
    QTest::newRow("a character") << u"x"_s << u"0"_s << 1;
}

void win_frmOptions::tabSizeIsClampedAsItIsTyped()
{
    QFETCH(QString, typed);
    QFETCH(int, applied);
    OptionsBench options;
    options.Type("txtTabSize", typed);
    QTEST(options.Text("txtTabSize"), "shown");
    QCOMPARE(Editor.TabSize, 4);
    options.Click("cmdApply");
    QCOMPARE(Editor.TabSize, applied);
    QCOMPARE(options.Text("txtTabSize"), QString::number(applied));
    QCOMPARE(Stored("TabSize"), QString::number(applied));
    QVERIFY(options.form->isVisible());
}

void win_frmOptions::emptyTabSizeBecomesOne()
{
    OptionsBench options;
    options.Type("txtTabSize", {});
    QCOMPARE(options.Text("txtTabSize"), QString());
    options.Click("cmdApply");
    QCOMPARE(Editor.TabSize, 1);
    QCOMPARE(options.Text("txtTabSize"), u"1"_s);
    // A pasted -1 stays until it is applied; anything below does not.
    options.Find<QLineEdit>("txtTabSize")->setText(u"-1"_s);
    QCOMPARE(options.Text("txtTabSize"), u"-1"_s);
    options.Find<QLineEdit>("txtTabSize")->setText(u"-2"_s);
    QCOMPARE(options.Text("txtTabSize"), u"1"_s);
}

void win_frmOptions::storedTabSizeOutOfBoundsIsShownClamped()
{
    OptionsBench options;
    options.Click("cmdCancel");
    options.Settle();
    Editor.TabSize = 70000;
    options.Open();
    QCOMPARE(options.Text("txtTabSize"), u"12"_s);
    QCOMPARE(Editor.TabSize, 70000);
}

void win_frmOptions::fontBoxSetsTheFont()
{
    OptionsBench options;
    options.bench.dialogs.ExpectFont({u"Courier New"_s, 12, false, false},
                                     FontSpec{u"DejaVu Sans Mono"_s, 17, true, true});
    options.Click("cmdFont");
    QCOMPARE(options.Text("txtFontName"), u"DejaVu Sans Mono"_s);
    QCOMPARE(options.Text("txtFontSize"), u"17"_s);
    QVERIFY(options.On("chkBold"));
    const QFont sample = options.Find<QLabel>("lblSample")->font();
    QCOMPARE(sample.families(), QStringList{u"DejaVu Sans Mono"_s});
    QCOMPARE(sample.pointSize(), 17);
    QVERIFY(sample.bold());
    QCOMPARE(Editor.FontName, u"Courier New"_s);
    options.Click("chkBold");
    QVERIFY(!options.Find<QLabel>("lblSample")->font().bold());
    options.Click("cmdApply");
    QCOMPARE(Editor.FontName, u"DejaVu Sans Mono"_s);
    QCOMPARE(Editor.FontHeight, 17);
    QCOMPARE(Editor.FontBold, false);
    QVERIFY(options.bench.dialogs.Finished());
}

void win_frmOptions::cancelledFontBoxChangesNothing()
{
    OptionsBench options;
    options.bench.dialogs.ExpectFont({u"Courier New"_s, 12, false, false}, std::nullopt);
    options.Click("cmdFont");
    QCOMPARE(options.Text("txtFontName"), u"Courier New"_s);
    options.Click("cmdApply");
    QCOMPARE(Editor.FontHeight, 12);
}

void win_frmOptions::fontThatIsNotInstalledKeepsItsName()
{
    OptionsBench options;
    options.Click("cmdCancel");
    options.Settle();
    Editor.FontName = u"No Such, Font"_s;
    options.Open();
    QCOMPARE(options.Text("txtFontName"), u"No Such, Font"_s);
    options.Click("cmdApply");
    QCOMPARE(Editor.FontName, u"No Such, Font"_s);
    QCOMPARE(Stored("FontName"), u"No Such, Font"_s);
    options.bench.dialogs.ExpectFont({u"No Such, Font"_s, 12, false, false}, std::nullopt);
    options.Click("cmdFont");
}

void win_frmOptions::strangeFontSizesDoNoHarm()
{
    OptionsBench options;
    for (const int size : {0, -5, 32767}) {
        options.Click("cmdCancel");
        options.Settle();
        Editor.FontHeight = size;
        options.Open();
        QCOMPARE(options.Text("txtFontSize"), QString::number(size));
        QVERIFY(options.form->width() < 2000 && options.form->height() < 2000);
        options.bench.dialogs.ExpectFont({u"Courier New"_s, size, false, false},
                                         FontSpec{u"Courier New"_s, -1, false, false});
        options.Click("cmdFont");
        options.Click("cmdApply");
        QCOMPARE(Editor.FontHeight, size);
    }
}

void win_frmOptions::browseFillsItsBox_data()
{
    QTest::addColumn<QString>("box");
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString*>("setting");
    const auto row = [](const char* button, const char* box, const char* filter, QString* setting) {
        QTest::newRow(button) << QString::fromLatin1(box) << QString::fromLatin1(filter) << setting;
    };
    row("cmdOBexe", "txtOBexe", "Orchard BASIC |orchard.exe;*.exe;", &OBPath);
    row("cmdOBHelp", "txtOBHelp", "Orchard BASIC Help|orchard.hlp;*.hlp;", &OBHelpPath);
    row("cmdOBFreeForm", "txtOBFreeForm", "FreeForm |*ff*.bas;*.bas;*.bak", &OBFreeformPath);
    row("cmdOBRuntime", "txtOBRuntime", "Runtime Engine (run.exe))|*.EXE;RUN.EXE", &OBRuntimePath);
    row("cmdOptionalHelp", "txtOptionalHelp", "Programming Help|*.hlp;", &OptionalHelpPath);
}

void win_frmOptions::browseFillsItsBox()
{
    QFETCH(QString, box);
    QFETCH(QString, filter);
    QFETCH(QString*, setting);
    OptionsBench options;
    const QString file = options.bench.Write(u"a file"_s, "x");
    options.bench.dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, filter, file);
    options.Click(QTest::currentDataTag());
    QCOMPARE(options.Text(qPrintable(box)), file);
    QCOMPARE(*setting, u"no path"_s);
    options.Click("cmdApply");
    QCOMPARE(*setting, file);
    QVERIFY(options.bench.dialogs.Finished());
}

void win_frmOptions::browseWithoutAChoiceKeepsTheBox()
{
    OptionsBench options;
    const QString advice = u" was not found.  Be sure to specify the path to Orchard BASIC in Options!"_s;
    const auto nothingChosen = [&](const char* button, const char* filter, const QString& message, BoxIcon icon) {
        options.bench.dialogs.ExpectFile(FilePurpose::Open, u"Open"_s, QString::fromLatin1(filter), {});
        options.bench.dialogs.ExpectMessage(message, BoxAnswer::Ok, icon);
        options.Click(button);
        QVERIFY(options.bench.dialogs.Finished());
    };
    options.Type("txtOBexe", u"/e/orchard.exe"_s);
    nothingChosen("cmdOBexe", "Orchard BASIC |orchard.exe;*.exe;", u"Orchard BASIC"_s + advice, BoxIcon::None);
    QCOMPARE(options.Text("txtOBexe"), u"/e/orchard.exe"_s);
    nothingChosen("cmdOBRuntime", "Runtime Engine (run.exe))|*.EXE;RUN.EXE", u"Orchard BASIC Runtime Engine"_s + advice,
                  BoxIcon::None);
    nothingChosen("cmdOBFreeForm", "FreeForm |*ff*.bas;*.bas;*.bak", u"FreeForm"_s + advice, BoxIcon::None);
    nothingChosen("cmdOBHelp", "Orchard BASIC Help|orchard.hlp;*.hlp;", u"Orchard BASIC help"_s + advice,
                  BoxIcon::None);
    nothingChosen("cmdOptionalHelp", "Programming Help|*.hlp;", u"The chosen Helpfile was not found."_s,
                  BoxIcon::Critical);
    QCOMPARE(options.Text("txtOptionalHelp"), u"no path"_s);
}

void win_frmOptions::typedPathIsApplied()
{
    OptionsBench options;
    options.Type("txtOBRuntime", u"/e/run.exe"_s);
    options.Type("txtOBHelp", {});
    options.Click("cmdApply");
    QCOMPARE(OBRuntimePath, u"/e/run.exe"_s);
    QCOMPARE(OBHelpPath, QString());
    QCOMPARE(Stored("OBRuntimePath"), u"/e/run.exe"_s);
    QCOMPARE(OBPath, u"no path"_s);
}

void win_frmOptions::switchesReachTheOpenWindow()
{
    OptionsBench options;
    options.bench.Choose(u"mnuFileNew"_s);
    const std::size_t slot = Documents.size() - 1;
    QVERIFY(options.Sci(slot, 2243 /* SCI_GETMARGINWIDTHN */) > 0);
    for (const char* box : {"chkIndent", "chkLinenums", "chkHighlight", "chkIndentGuides", "chkFile", "chkQuery"})
        options.Click(box);
    QVERIFY(Editor.AutoIndent && Editor.LineNums && Editor.HighlightOn && Editor.IndentGuidesOn && !OpenFileOn &&
            QuitQuery);
    options.Type("txtTabSize", u"3"_s);
    options.Click("cmdApply");
    QVERIFY(!Editor.AutoIndent && !Editor.LineNums && !Editor.HighlightOn && !Editor.IndentGuidesOn && OpenFileOn &&
            !QuitQuery);
    QCOMPARE(options.Sci(slot, 2243), std::intptr_t{0});
    QCOMPARE(options.Sci(slot, 2121 /* SCI_GETTABWIDTH */), std::intptr_t{3});
    QCOMPARE(Stored("OpenFileOn"), u"True"_s);
    QCOMPARE(Stored("AutoIndent"), u"False"_s);
}

void win_frmOptions::okAppliesAndCloses()
{
    OptionsBench options;
    options.Type("txtTabSize", u"6"_s);
    QTest::keyClick(options.Find<QLineEdit>("txtTabSize"), Qt::Key_Return);
    options.Settle();
    QVERIFY(options.form.isNull());
    QCOMPARE(Editor.TabSize, 6);
    QCOMPARE(Stored("TabSize"), u"6"_s);
}

void win_frmOptions::escapeClosesWithoutApplying()
{
    OptionsBench options;
    options.Type("txtTabSize", u"6"_s);
    QTest::keyClick(options.form, Qt::Key_Escape);
    options.Settle();
    QVERIFY(options.form.isNull());
    QCOMPARE(Editor.TabSize, 4);
    QCOMPARE(Stored("TabSize"), u"(none)"_s);
}

void win_frmOptions::commentsAreShownRawAndWritten()
{
    OptionsBench options;
    options.Click("cmdCancel");
    options.Settle();
    QFile file(CommentsPath(ProgramFolder()));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("'by \xE9\xA0x\r\n");
    file.close();
    options.Open();
    auto* box = options.Find<QPlainTextEdit>("txtComments");
    QCOMPARE(box->document()->blockCount(), 2);
    options.Find<QTabWidget>("tbsOptions")->setCurrentIndex(3);
    box->moveCursor(QTextCursor::End);
    QTest::keyClicks(box, u"'2"_s);
    QTest::keyClick(box, Qt::Key_Return);
    QTest::keyClicks(box, u"'3"_s);
    options.Click("cmdApply");
    // The no-break space is still one.
    QCOMPARE(TestBench::Read(CommentsPath(ProgramFolder())), QByteArray("'by \xE9\xA0x\r\n'2\r\n'3\r\n"));
}

void win_frmOptions::clearedCommentsLeaveTheFile()
{
    OptionsBench options;
    auto* box = options.Find<QPlainTextEdit>("txtComments");
    box->setPlainText(u"'me"_s);
    options.Click("cmdApply");
    box->clear();
    options.Click("cmdApply");
    QCOMPARE(TestBench::Read(CommentsPath(ProgramFolder())), QByteArray("'me\r\n"));
}

void win_frmOptions::newWindowGetsTheNewComments()
{
    OptionsBench options;
    options.Find<QPlainTextEdit>("txtComments")->setPlainText(u"'me\n'too"_s);
    options.Click("chkComments");
    options.Click("cmdOK");
    options.bench.Choose(u"mnuFileNew"_s);
    QCOMPARE(TestBench::Text(options.bench.Active()), QByteArray("'me\r\n'too"));
}

void win_frmOptions::storeThatCannotBeWrittenLetsTheRunGoOn()
{
    OptionsBench options;
    SetSettingsFile(options.bench.Write(u"file"_s, "x") + u"/store.ini"_s);
    options.Type("txtTabSize", u"6"_s);
    options.Click("cmdOK");
    options.Settle();
    QCOMPARE(Editor.TabSize, 6);
    QVERIFY(options.bench.Close());
}

void win_frmOptions::userApplicationsAreShownModally()
{
    OptionsBench options;
    bool shown = false;
    options.bench.ExpectModal(u"frmUser"_s, [&](QDialog& user) {
        shown = true;
        user.reject();
    });
    options.Click("cmdUser");
    QVERIFY(shown);
}

void win_frmOptions::associationGoesToTheUsersDesktop()
{
#ifdef Q_OS_WIN
    QSKIP("the registry of this user is no place for a test");
#endif
    OptionsBench options;
    const QString data = options.bench.Path(u"data"_s);
    qputenv("XDG_DATA_HOME", data.toUtf8());
    qputenv("XDG_CONFIG_HOME", options.bench.Path(u"config"_s).toUtf8());
    for (int round = 0; round < 2; ++round) {
        options.bench.dialogs.ExpectMessage(u"Associate files with extensions *.OBF and *.BAS with Orchard Bench?"_s,
                                            BoxAnswer::Yes, BoxIcon::None, BoxButtons::YesNo, u"Confirm!"_s);
        options.bench.dialogs.ExpectMessage(
            u"Files with extensions *.OBF and *.BAS will now open with Orchard Bench when they are "
            "double-clicked in Windows Explorer or My Computer."_s,
            BoxAnswer::Ok, BoxIcon::Exclamation, BoxButtons::Ok, u"Success!"_s);
        options.Click("cmdAssoc");
        QVERIFY(options.bench.dialogs.Finished());
    }
    qunsetenv("XDG_DATA_HOME");
    qunsetenv("XDG_CONFIG_HOME");
    QVERIFY(TestBench::Read(data + u"/applications/orchard-bench.desktop"_s)
                .contains("\nExec=" + QCoreApplication::applicationFilePath().toUtf8() + " %f\n"));
    QVERIFY(QFile::exists(data + u"/icons/hicolor/48x48/apps/orchard-bench.png"_s));
    QVERIFY(QFile::exists(data + u"/icons/hicolor/scalable/apps/orchard-bench.svg"_s));
}

void win_frmOptions::associationCanBeDeclined()
{
    OptionsBench options;
    const QString data = options.bench.Path(u"data"_s);
    qputenv("XDG_DATA_HOME", data.toUtf8());
    options.bench.dialogs.ExpectMessage(u"Associate files with extensions *.OBF and *.BAS with Orchard Bench?"_s,
                                        BoxAnswer::No, BoxIcon::None, BoxButtons::YesNo, u"Confirm!"_s);
    options.Click("cmdAssoc");
    qunsetenv("XDG_DATA_HOME");
    QVERIFY(!QFile::exists(data));
}

void win_frmOptions::everyControlWithoutACaptionHasAName()
{
    OptionsBench options;
    QList<QWidget*> bare;
    for (QLineEdit* box : options.form->findChildren<QLineEdit*>())
        bare.append(box);
    bare.append(options.Find<QPlainTextEdit>("txtComments"));
    QCOMPARE(bare.size(), 9);
    for (const QWidget* control : bare) {
        bool named = !control->accessibleName().isEmpty();
        for (const QLabel* label : options.form->findChildren<QLabel*>())
            named = named || (label->buddy() == control && !label->text().isEmpty());
        QVERIFY2(named, qPrintable(control->objectName()));
    }
}

OB_BENCH_TEST(win_frmOptions)
#include "win_frmOptions.moc"
