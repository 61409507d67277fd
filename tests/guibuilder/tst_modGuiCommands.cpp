// SPDX-License-Identifier: GPL-3.0-or-later
// The form builder's commands: the form window's creation and end, loading, new forms, compiling.
#include "guibuilder/modGuiCommands.h"

#include "guibuilder/FormLines.h"
#include "guibuilder/GuiCommandBench.h"
#include "platform/files/modFiles.h"

#include <QDate>
#include <QLocale>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr char LoadFilter[] = "Gui Form (*.obf)|*.OBF";
constexpr char DialogForm[] = "Dialog|Read|1|2|3|4|h|0|f *8\r\n";

} // namespace

class tst_modGuiCommands : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { bench = std::make_unique<CoreBench>(); }
    void cleanup()
    {
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
    }

    // --- The form window's creation and end. ---

    void aNewWindowSetsTheFlagsAndClearsTheForm()
    {
        GuiDesign().GuiFormModified = true;
        GuiDesign().GuiGridOn = GuiDesign().form.GuiMenuOn = false;
        GuiDesign().form.caption = u"Kept"_s;
        GuiDesign().form.windowTag = u"closed"_s;
        GuiDesign().form.GuiMenuNames[0] = GuiDesign().form.GuiMenuItems[0][0] = u"x"_s;
        AddControl(GuiDesign().form, ControlKind::Button);
        GuiFormLoaded();
        GuiForm expected;
        expected.caption = u"Kept"_s;
        QVERIFY(GuiDesign().form == expected);
        QVERIFY(GuiDesign().GuiFormOpen && GuiDesign().GuiGridOn);
        QVERIFY(!GuiDesign().GuiFormModified);
        QCOMPARE(bench->form.status, u"Right click the window or controls for a properties dialog!"_s);
        QCOMPARE(bench->form.log, Log({"enable mnuFileSaveGui"}));
    }

    void aClosedWindowDisablesTheSaveCommand()
    {
        GuiFormLoaded();
        bench->form.log.clear();
        GuiFormUnloaded();
        QVERIFY(!GuiDesign().GuiFormOpen);
        QCOMPARE(GuiDesign().form.windowTag, u"closed"_s);
        QCOMPARE(bench->form.log, Log({"disable mnuFileSaveGui"}));
    }

    // --- Load. ---

    void aLoadedFormIsTheFormUnderDesign()
    {
        OpenModifiedForm(*bench);
        GuiDesign().GuiFormModified = false;
        LoadGuiForm(bench->Put(u"a.obf"_s, "Window|Read|1|2|3|4|h|0|f *8\r\nmenu|&File|\r\n"));
        QCOMPARE(GuiDesign().form.caption, u"Read"_s);
        QCOMPARE(GuiDesign().form.windowTag, u"Window"_s);
        QCOMPARE(GuiDesign().form.menuLabel, u"&File    "_s);
        QVERIFY(GuiDesign().GuiFormOpen && !GuiDesign().GuiFormModified && !GuiDesign().GuiFormLoading);
        QCOMPARE(bench->form.log, Log({"unload gui", "disable mnuFileSaveGui", "show gui", "enable mnuFileSaveGui",
                                       "refresh gui", "enable tool Open Menu Editor"}));
    }

    void withoutAFormWindowALoadMakesOne()
    {
        LoadGuiForm(bench->Put(u"a.obf"_s, DialogForm));
        QVERIFY(GuiDesign().GuiFormOpen && !GuiDesign().GuiFormModified && !GuiDesign().GuiFormLoading);
        QVERIFY(!GuiDesign().form.GuiMenuOn);
        QCOMPARE(bench->form.log,
                 Log({"show gui", "enable mnuFileSaveGui", "refresh gui", "disable tool Open Menu Editor"}));
    }

    void aCorruptFileClosesTheWindow()
    {
        OpenModifiedForm(*bench);
        GuiDesign().GuiFormModified = false;
        bench->dialogs.ExpectMessage(u"OBF file is corrupt."_s);
        LoadGuiForm(bench->Put(u"a.obf"_s, "open|Window Title| 0| 0| 0| 0|main|0|f *8|False|-1|True\r\n"));
        QVERIFY(!GuiDesign().GuiFormOpen && !GuiDesign().GuiFormModified && !GuiDesign().GuiFormLoading);
        QCOMPARE(GuiDesign().form.windowTag, u"closed"_s);
        QCOMPARE(bench->form.log, Log({"unload gui", "disable mnuFileSaveGui", "show gui", "enable mnuFileSaveGui",
                                       "unload gui", "disable mnuFileSaveGui"}));
    }

    void aFailedLoadLeavesWhatItBuilt_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::newRow("a missing field") << QByteArray("button|B|0");
        QTest::newRow("a number that is none") << QByteArray("button|B|x|0|0|0|n|b");
        QTest::newRow("too many items") << "menu|&File|" + QByteArray("*").repeated(21);
        QTest::newRow("a bitmap that is gone") << QByteArray("bmpbutton|gone.bmp|0|0|0|0|n|b");
        QTest::newRow("a bar in the caption") << QByteArray("button|yes|no|0|0|0|0|n|b");
    }

    void aFailedLoadLeavesWhatItBuilt()
    {
        QFETCH(QByteArray, line);
        bench->dialogs.ExpectMessage(u"Error loading form."_s);
        LoadGuiForm(bench->Put(u"a.obf"_s, DialogForm + QByteArray("checkbox|C|0|0|0|0|n|b\r\n") + line +
                                               "\r\ntextbox|x|0|0|0|0|n"));
        QVERIFY(GuiDesign().GuiFormOpen && GuiDesign().GuiFormLoading && !GuiDesign().GuiFormModified);
        QCOMPARE(GuiDesign().form.caption, u"Read"_s);
        QVERIFY(GuiDesign().form.At({ControlKind::Checkbox, 1}).visible);
        QCOMPARE(GuiDesign().form.List(ControlKind::Textbox).size(), std::size_t{1});
        QCOMPARE(bench->form.log,
                 Log({"show gui", "enable mnuFileSaveGui", "refresh gui", "disable tool Open Menu Editor"}));

        // The next good load ends it.
        LoadGuiForm(bench->Put(u"b.obf"_s, DialogForm));
        QVERIFY(!GuiDesign().GuiFormLoading);
    }

    void aFileThatCannotBeReadIsAFailedLoad_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("gone") << u"gone.obf"_s;
        QTest::newRow("empty name") << QString();
        QTest::newRow("a folder") << u"."_s;
#ifdef Q_OS_UNIX
        QTest::newRow("a pipe") << u"pipe.obf"_s;
#endif
    }

    void aFileThatCannotBeReadIsAFailedLoad()
    {
        QFETCH(QString, name);
#ifdef Q_OS_UNIX
        QCOMPARE(mkfifo("pipe.obf", 0600), 0);
#endif
        bench->dialogs.ExpectMessage(u"Error loading form."_s);
        LoadGuiForm(name);
        QVERIFY(GuiDesign().GuiFormOpen && GuiDesign().GuiFormLoading);
        QCOMPARE(FileOf(GuiDesign().form), Fresh({}));
    }

    void aLoadAsksAboutAModifiedForm()
    {
        OpenModifiedForm(*bench);
        const QString path = bench->Put(u"a.obf"_s, DialogForm);
        ExpectCloseQuestion(*bench, BoxAnswer::Cancel);
        LoadGuiForm(path);
        QCOMPARE(GuiDesign().form.caption, u"Drawn"_s);
        QVERIFY(GuiDesign().GuiFormOpen && GuiDesign().GuiFormModified && !GuiDesign().GuiFormLoading);
        QVERIFY(bench->form.log.isEmpty());

        ExpectCloseQuestion(*bench, BoxAnswer::Yes);
        ExpectSaveBox(*bench, {});
        LoadGuiForm(path);
        QCOMPARE(GuiDesign().form.caption, u"Drawn"_s);
        QVERIFY(!GuiDesign().GuiFormLoading);

        ExpectCloseQuestion(*bench, BoxAnswer::Yes);
        ExpectSaveBox(*bench, bench->Path(u"drawn.obf"_s));
        LoadGuiForm(path);
        QCOMPARE(GuiDesign().form.caption, u"Read"_s);
        QVERIFY(CoreBench::Get(bench->Path(u"drawn.obf"_s)).contains("|Drawn|"));

        GuiDesign().GuiFormModified = true;
        ExpectCloseQuestion(*bench, BoxAnswer::No);
        LoadGuiForm(bench->Path(u"drawn.obf"_s));
        QCOMPARE(GuiDesign().form.caption, u"Drawn"_s);
    }

    void aRefusedLoadAfterAFailedOneLeavesItsFlag()
    {
        bench->dialogs.ExpectMessage(u"Error loading form."_s);
        LoadGuiForm(u"gone.obf"_s);
        GuiDesign().GuiFormModified = true;
        ExpectCloseQuestion(*bench, BoxAnswer::Cancel);
        LoadGuiForm(bench->Put(u"a.obf"_s, DialogForm));
        QVERIFY(GuiDesign().GuiFormLoading);
    }

    void theLoadCommandTakesFormFilesOnly()
    {
        ExpectLoadBox({});
        OpenModifiedForm(*bench);
        mnuFileLoadGui_Click();
        QVERIFY(GuiDesign().GuiFormOpen && bench->form.log.isEmpty());

        GuiDesign().GuiFormModified = false;
        for (const char* name : {"a.obf", "B.Obf", "obfuscated.txt"}) {
            const QString path = bench->Put(QString::fromLatin1(name), DialogForm);
            ExpectLoadBox(QDir(QString::fromLatin1(".")).filePath(QString::fromLatin1(name)));
            GuiDesign().form.caption.clear();
            mnuFileLoadGui_Click();
            QCOMPARE(GuiDesign().form.caption, u"Read"_s);
        }

        bench->form.log.clear();
        QDir().mkdir(u"sub"_s);
        bench->Put(u"sub/a.bas"_s, DialogForm);
        ExpectLoadBox(u"sub/a.bas"_s);
        mnuFileLoadGui_Click();
        QVERIFY(!GuiDesign().GuiFormOpen && !GuiDesign().GuiFormLoading);
        QCOMPARE(bench->form.log, Log({"unload gui", "disable mnuFileSaveGui"}));
    }

    // --- New form, menu bar. ---

    void aNewFormAsksForItsDefaults()
    {
        NewGuiForm();
        QCOMPARE(GuiDesign().form.windowTag, u"open"_s);
        QVERIFY(GuiDesign().GuiFormOpen && !GuiDesign().GuiFormModified);
        QCOMPARE(bench->form.log, Log({"show gui", "enable mnuFileSaveGui", "gui defaults"}));
    }

    void aNewFormAsksAboutTheOldOneAndKeepsItsWindow()
    {
        OpenModifiedForm(*bench);
        GuiDesign().form.At(AddControl(GuiDesign().form, ControlKind::Button)).visible = true;
        ExpectCloseQuestion(*bench, BoxAnswer::Cancel);
        NewGuiForm();
        QCOMPARE(GuiDesign().form.windowTag, QString());
        QVERIFY(bench->form.log.isEmpty());

        ExpectCloseQuestion(*bench, BoxAnswer::No);
        NewGuiForm();
        QCOMPARE(GuiDesign().form.caption, u"Drawn"_s);
        QCOMPARE(GuiDesign().form.List(ControlKind::Button).size(), std::size_t{1});
        QCOMPARE(bench->form.log,
                 Log({"unload gui", "disable mnuFileSaveGui", "show gui", "enable mnuFileSaveGui", "gui defaults"}));
    }

    void aNewFormSavedAtOnceCannotBeRead()
    {
        NewGuiForm();
        const QString path = bench->Path(u"a.obf"_s);
        bench->dialogs.ExpectMessage(u"The form is saved, but it cannot be loaded again as it is.\n"
                                     "Line 2 of the file: the form was saved before its window properties were "
                                     "confirmed with OK."_s,
                                     BoxAnswer::Ok, BoxIcon::Exclamation);
        SaveGuiForm(path);
        QVERIFY(CoreBench::Get(path).contains("\r\nopen|Window Title| 1200|"));
        bench->dialogs.ExpectMessage(u"OBF file is corrupt."_s);
        LoadGuiForm(path);
        QVERIFY(!GuiDesign().GuiFormOpen);
    }

    void theMenuBarIsShownOrNot()
    {
        OpenModifiedForm(*bench);
        GuiShowMenu(MenuBar::Hidden);
        QVERIFY(!GuiDesign().form.GuiMenuOn);
        GuiShowMenu(MenuBar::Shown);
        QVERIFY(GuiDesign().form.GuiMenuOn);
        QCOMPARE(bench->form.log, Log({"refresh gui", "refresh gui"}));
    }

    void onlyDialogsHaveNoMenuEditor()
    {
        for (const std::string_view type : WindowTypes)
            EnableMenuEditor(LatinText(type));
        QCOMPARE(bench->form.log, Log({"enable tool Open Menu Editor", "enable tool Open Menu Editor",
                                       "enable tool Open Menu Editor", "enable tool Open Menu Editor",
                                       "disable tool Open Menu Editor", "disable tool Open Menu Editor"}));
    }

    // --- Compile. ---

    void aProgramOpensInANewCodeWindow_data()
    {
        QTest::addColumn<bool>("isSimple");
        QTest::newRow("outline") << false;
        QTest::newRow("simple") << true;
    }

    void aProgramOpensInANewCodeWindow()
    {
        QFETCH(bool, isSimple);
        OpenModifiedForm(*bench);
        GuiDesign().form.caption = u"\u00C4\u20AC"_s;
        isSimple ? CompileSimple() : Compile();
        QCOMPARE(bench->form.log, Log({"show 1"}));
        QCOMPARE(bench->form.active->Caption(), u"untitled.bas"_s);
        QCOMPARE(bench->form.ActiveControl().caret, qsizetype{0});
        const QString date = ShortDateText(QDate::currentDate(), QLocale::system());
        const GuiForm form = Completed(GuiDesign().form, CompletedFor::Program);
        QCOMPARE(bench->form.ActiveControl().text,
                 GenerateProgram(form, isSimple ? ProgramKind::Simple : ProgramKind::Outline, {date, std::nullopt})
                     .text.toUtf8());
        QVERIFY(bench->form.ActiveControl().text.contains("\r\n'** \xC3\x84\xE2\x82\xAC\r\n"));
        QCOMPARE(bench->form.ActiveControl().text.contains("True = 1"), !isSimple);
        // It saves nothing.
        QVERIFY(GuiDesign().GuiFormModified);
    }

    void whatTheGeneratorFillsInStaysInTheForm()
    {
        OpenModifiedForm(*bench);
        GuiDesign().form.At(AddControl(GuiDesign().form, ControlKind::Radiobutton)).visible = true;
        CompileSimple();
        QCOMPARE(GuiDesign().form.At({ControlKind::Radiobutton, 1}).branch, u"[radio1.click]"_s);
    }

    void commentsComeFirstWhenTheyAreOn_data()
    {
        QTest::addColumn<QByteArray>("file"); // "-": none
        QTest::addColumn<QByteArray>("start");
        QTest::newRow("comments") << QByteArray("'by \x80\r\n'me\r\n")
                                  << QByteArray("'by \xE2\x82\xAC\r\n'me\r\n\r\n\r\n'** C");
        QTest::newRow("no file") << QByteArray("-") << QByteArray("'no programmer's comments on file\r\n\r\n\r\n'** C");
        QTest::newRow("an empty file") << QByteArray()
                                       << QByteArray("'no programmer's comments on file\r\n\r\n\r\n'** C");
        QTest::newRow("a line end alone") << QByteArray("\r\n") << QByteArray("\r\n\r\n\r\n'** C");
    }

    void commentsComeFirstWhenTheyAreOn()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, start);
        if (file != "-")
            CoreBench::PutFile(bench->ProgramPath(u"comments.txt"_s), file);
        OpenModifiedForm(*bench);
        AddComments = true;
        Compile();
        QVERIFY2(bench->form.ActiveControl().text.startsWith(start), bench->form.ActiveControl().text.constData());
        AddComments = false;
        CompileSimple();
        QVERIFY(bench->form.ActiveControl().text.startsWith("'** Created by Orchard Bench - "));
    }

    void aMissingBitmapIsReportedBeforeTheCode()
    {
        OpenModifiedForm(*bench);
        GuiDesign().form.At(AddControl(GuiDesign().form, ControlKind::Bmpbutton)).visible = true;
        bench->dialogs.ExpectMessage(
            u"Code contains at least one bmpbutton that has no valid bitmap file associated.  Please "
            "correct this in the code generated."_s,
            BoxAnswer::Ok, BoxIcon::None);
        Compile();
        QVERIFY(bench->form.ActiveControl().text.contains("bmpbutton   #main.bmpbutton1, \"bmpbttn\","));
    }

    void withoutAFormThereIsNoCode()
    {
        Compile();
        CompileSimple();
        QVERIFY(bench->form.log.isEmpty());
        QCOMPARE(Documents.size(), std::size_t{0});
    }

private:
    void ExpectLoadBox(const QString& chosen)
    {
        bench->dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, QString::fromLatin1(LoadFilter), chosen);
    }

    std::unique_ptr<CoreBench> bench;
};

OB_CORE_TEST(tst_modGuiCommands)
#include "tst_modGuiCommands.moc"
