// SPDX-License-Identifier: GPL-3.0-or-later
// The form window in the bench: load, save, run, close.
#include "FormWindowBench.h"

#include "editor/document/cDocument.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/dlgStandard.h"
#include "shell/state/Module1.h"

#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QScrollBar>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmGui : public FormWindowBench {
    Q_OBJECT

private Q_SLOTS:
    void aFormOnTheCommandLineIsOpened()
    {
        TestBench bench;
        Load(bench);
        QVERIFY(FormWindow(bench) != nullptr);
        QCOMPARE(FormWindow(bench)->windowTitle(), u"Small"_s);
        QCOMPARE(bench.Frame().ActiveKind(), ActiveChild::Gui);
        QCOMPARE(FormWindow(bench)->findChild<QLabel*>(u"lblMenu"_s)->text(), u"&File    "_s);
        QVERIFY(FormWindow(bench)->findChild<QWidget*>(u"sBar"_s)->isVisible());
        QVERIFY(bench.Frame().findChild<QWidget*>(u"picGui"_s)->isVisible());
        QVERIFY(bench.Frame().Item(u"mnuViewGuiBar"_s)->isChecked());
        QVERIFY(bench.Frame().Item(u"mnuFileSaveGui"_s)->isEnabled());
        QVERIFY(bench.Frame().Item(u"mnuRun"_s)->isEnabled());
        QVERIFY(!bench.Frame().Item(u"mnuFileSaveAs"_s)->isEnabled());
        QCOMPARE(StatusOf(bench), GuiHintText);
        QVERIFY(!GuiDesign().GuiFormModified);
        QVERIFY(!GuiDesign().GuiFormLoading);
        const QMdiSubWindow* frame = bench.Frame().Area().currentSubWindow();
        QCOMPARE(frame->geometry(), QRect(40, 30, 400, 300));
    }

    void f5HandsTheFormsProgramToTheEngine()
    {
        TestBench bench;
        Load(bench);
        OBPath = bench.MakeEngine();
        const QByteArray program = OwnProgram(ProgramKind::Outline);
        bench.Choose(u"mnuRun"_s);
        const EngineCall call = bench.WaitForEngine();
        QCOMPARE(call.arguments.first(), u"-R"_s);
        QCOMPARE(call.copy, program + " \r\n");
        QCOMPARE(bench.Active()->Caption(), bench.ProgramPath(u"untitled.bak"_s));
    }

    void bothCompileToolsOpenTheProgram()
    {
        TestBench bench;
        Load(bench);
        const QByteArray outline = OwnProgram(ProgramKind::Outline);
        const QByteArray simple = OwnProgram(ProgramKind::Simple);
        Tool(bench, 1)->click();
        QCOMPARE(bench.Active()->Caption(), u"untitled.bas"_s);
        QCOMPARE(TestBench::Text(bench.Active()), outline);
        Tool(bench, 17)->click();
        QCOMPARE(TestBench::Text(bench.Active()), simple);
        QVERIFY(GuiDesign().GuiFormModified);
    }

    void aMissingBitmapIsReportedAndTheProgramOpens()
    {
        TestBench bench;
        Load(bench, SmallForm + "bmpbutton|bmpbttn| 0| 0| 450| 450|b|b.click|none\r\n");
        bench.dialogs.ExpectMessage(BitmapMissingText, BoxAnswer::Ok, BoxIcon::None);
        Tool(bench, 1)->click();
        QVERIFY(TestBench::Text(bench.Active()).contains("bmpbutton   #main.b, \"bmpbttn\""));
    }

    void savingALoadedFormGivesTheSameBytes()
    {
        TestBench bench;
        Load(bench);
        const QString saved = bench.Path(u"again.obf"_s);
        bench.dialogs.ExpectFile(FilePurpose::Save, u"Save Gui Form As"_s, SaveFilter, saved);
        bench.Choose(u"mnuFileSaveGui"_s);
        QCOMPARE(TestBench::Read(saved), SmallForm);
        QCOMPARE(StatusOf(bench), u"Form saved as again.obf"_s);
    }

    void movingTheWindowChangesOnlyItsPlaceInTheFile()
    {
        TestBench bench;
        Load(bench);
        bench.Frame().Area().currentSubWindow()->move(60, 30);
        QCOMPARE(GuiDesign().form.left, 900.0F);
        QCOMPARE(GuiDesign().form.width, 6000.25F);
        QCOMPARE(GuiDesign().form.top, 450.0F);
    }

    void theWindowRefusesToBeMaximized()
    {
        TestBench bench;
        Load(bench);
        QMdiSubWindow* frame = bench.Frame().Area().currentSubWindow();
        frame->showMaximized();
        QApplication::processEvents();
        QVERIFY(!frame->isMaximized());
        QCOMPARE(frame->geometry(), QRect(40, 30, 400, 300));
        QCOMPARE(GuiDesign().form.width, 6000.25F);
    }

    void scrollingTheAreaDoesNotMoveTheForm()
    {
        TestBench bench;
        Load(bench);
        bench.Frame().resize(300, 300);
        QApplication::processEvents();
        QScrollBar* bar = bench.Frame().Area().horizontalScrollBar();
        QVERIFY(bar->maximum() > 0);
        const int before = bench.Frame().Area().currentSubWindow()->x();
        bar->setValue(bar->maximum());
        QApplication::processEvents();
        QVERIFY(bench.Frame().Area().currentSubWindow()->x() < before);
        QCOMPARE(GuiDesign().form.left, 600.5F);
    }

    void aFormWithoutASizeCanStillBeGrabbed()
    {
        TestBench bench;
        QByteArray none = SmallForm;
        none.replace(" 6000.25| 4500", "0|-15");
        Load(bench, none);
        QVERIFY(bench.Frame().Area().currentSubWindow()->width() >= 120);
        QVERIFY(bench.Frame().Area().currentSubWindow()->height() >= 60);
        QCOMPARE(GuiDesign().form.width, 0.0F);
        QCOMPARE(GuiDesign().form.height, -15.0F);
    }

    void aNewFormHasNothingToUndo()
    {
        TestBench bench;
        bench.Start();
        bench.ExpectModal(u"frmColorDefault"_s,
                          [](QDialog& dialog) { dialog.findChild<QPushButton*>(u"OKButton"_s)->click(); });
        bench.Choose(u"mnuGui"_s);
        QVERIFY(!Surface(bench)->Designer().CanUndo());
    }

    void closingAFormDisarmsTheTool()
    {
        TestBench bench;
        Load(bench);
        Tool(bench, 4)->click();
        GuiDesign().GuiFormModified = false;
        const cDesigner& designer = Surface(bench)->Designer();
        QVERIFY(designer.IsArmed());
        QVERIFY(bench.Frame().UnloadGui());
        QVERIFY(!designer.IsArmed());
        QVERIFY(!Tool(bench, 4)->isChecked());
    }

    void saveNeedsAFormInFront()
    {
        TestBench bench;
        Load(bench);
        bench.Choose(u"mnuFileNew"_s);
        bench.dialogs.ExpectMessage(u"The gui builder is not active; there is no form to save!"_s);
        Tool(bench, 3)->click();
        // The tool's press has marked the form.
        GuiDesign().GuiFormModified = false;
        QVERIFY(bench.Frame().UnloadGui());
        bench.dialogs.ExpectMessage(u"No gui form to save!"_s);
        Tool(bench, 3)->click();
        QVERIFY(!bench.Frame().Item(u"mnuFileSaveGui"_s)->isEnabled());
    }

    void aSaveThatFailsLeavesTheOldFileAndTheFormModified()
    {
        TestBench bench;
        Load(bench);
        QDir(bench.Path({})).mkdir(u"there.obf"_s);
        const QString folder = bench.Path(u"there.obf"_s);
        GuiDesign().GuiFormModified = true;
        bench.dialogs.ExpectFile(FilePurpose::Save, u"Save Gui Form As"_s, SaveFilter, folder);
        bench.dialogs.ExpectMessage(u"Run-time error '75':\nPath/File access error"_s);
        bench.Choose(u"mnuFileSaveGui"_s);
        QVERIFY(GuiDesign().GuiFormModified);
        // Closing still asks, and a save that fails again keeps the window.
        bench.dialogs.ExpectMessage(SaveQuestion, BoxAnswer::Yes, BoxIcon::Question, BoxButtons::YesNoCancel);
        bench.dialogs.ExpectFile(FilePurpose::Save, u"Save Gui Form As"_s, SaveFilter, folder);
        bench.dialogs.ExpectMessage(u"Run-time error '75':\nPath/File access error"_s);
        QVERIFY(!bench.Frame().UnloadGui());
        QVERIFY(FormWindow(bench) != nullptr);
        GuiDesign().GuiFormModified = false;
    }

    void aCorruptFileUnloadsTheForm()
    {
        TestBench bench;
        const QString path = bench.Write(u"bad.obf"_s, SmallForm + "nonsense|1\r\n");
        bench.dialogs.ExpectMessage(u"OBF file is corrupt."_s);
        bench.Start({path});
        QCOMPARE(StatusOf(bench), u"bad.obf, line 8: no line of a form begins with \"nonsense\""_s);
        QVERIFY(FormWindow(bench) == nullptr);
        QVERIFY(!GuiDesign().GuiFormOpen);
        QCOMPARE(GuiDesign().form.windowTag, u"closed"_s);
    }

    void aDamagedFileLeavesWhatWasReadOnTheSurface()
    {
        TestBench bench;
        const QString path = bench.Write(u"bad.obf"_s, SmallForm + "button|x| 1| 2|wide\r\n");
        bench.dialogs.ExpectMessage(u"Error loading form."_s);
        bench.Start({path});
        QVERIFY(FormWindow(bench) != nullptr);
        QVERIFY(GuiDesign().GuiFormLoading);
        QVERIFY(GuiDesign().form.At({ControlKind::Button, 1}).visible);
        QVERIFY(!GuiDesign().form.At({ControlKind::Button, 2}).visible);
        QCOMPARE(StatusOf(bench), u"bad.obf, line 8: field 5, \"wide\", is not a number"_s);
        // While the flag is set the properties do not open, and the status bar says why.
        SetStatusText({});
        QTest::mouseClick(Surface(bench), Qt::RightButton, {}, QPoint(30, 30));
        QCOMPARE(StatusOf(bench), u"No properties until a form loads without an error. "
                                  "bad.obf, line 8: field 5, \"wide\", is not a number"_s);
    }

    void aFileThatCannotBeReadSaysSo()
    {
        TestBench bench;
        bench.Start();
        bench.dialogs.ExpectMessage(u"Error loading form."_s);
        LoadGuiForm(bench.Path(u"gone.obf"_s));
        QVERIFY2(StatusOf(bench).startsWith(u"gone.obf: "_s), qPrintable(StatusOf(bench)));
        QVERIFY(StatusOf(bench).size() > 10);
    }

    void aFormThatCannotBeLoadedAgainSaysSoAtTheSave()
    {
        TestBench bench;
        Load(bench);
        GuiDesign().form.At({ControlKind::Button, 1}).caption = u"a|b"_s;
        const QString saved = bench.Path(u"again.obf"_s);
        bench.dialogs.ExpectFile(FilePurpose::Save, u"Save Gui Form As"_s, SaveFilter, saved);
        bench.dialogs.ExpectMessage(u"The form is saved, but it cannot be loaded again as it is.\n"
                                    "Line 4 of the file: a text in it has a | or a line break, which ends a field of "
                                    "the file."_s,
                                    BoxAnswer::Ok, BoxIcon::Exclamation);
        bench.Choose(u"mnuFileSaveGui"_s);
        QVERIFY(TestBench::Read(saved).contains("a|b"));
        QCOMPARE(StatusOf(bench), u"Form saved as again.obf"_s);
        QVERIFY(!GuiDesign().GuiFormModified);
    }

    void aNameWithoutAnEndingIsSavedWithTheFormsOwn()
    {
        TestBench bench;
        Load(bench);
        dlgStandard boxes;
        cDialogs* scripted = SetDialogs(&boxes);
        bench.AnswerModals([](QDialog& dialog) {
            dialog.findChild<QLineEdit*>()->setText(u"plain"_s);
            QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
        });
        bench.Choose(u"mnuFileSaveGui"_s);
        QCOMPARE(TestBench::Read(bench.Path(u"plain.obf"_s)), SmallForm);
        QVERIFY(!QFile::exists(bench.Path(u"plain"_s)));
        // All files: the name as it is typed.
        bench.AnswerModals([](QDialog& dialog) {
            auto* filters = dialog.findChild<QComboBox*>(u"fileTypeCombo"_s);
            QTest::keyClick(filters, Qt::Key_End);
            dialog.findChild<QLineEdit*>()->setText(u"bare"_s);
            QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
        });
        bench.Choose(u"mnuFileSaveGui"_s);
        SetDialogs(scripted);
        QCOMPARE(TestBench::Read(bench.Path(u"bare"_s)), SmallForm);
    }

    void remarksAreListedBesideTheProgramAndLeadToTheirControls()
    {
        TestBench bench;
        Load(bench, SmallForm + "textbox|none| 4500| 700| 1200| 300|go|none|none\r\n"
                                "textbox|none| 4500| 1700| 1200| 300|a b|none|none\r\n");
        Tool(bench, 1)->click();
        const auto* pane = bench.Frame().findChild<QDockWidget*>(u"frmRemarks"_s);
        QVERIFY(pane != nullptr && pane->isVisible());
        auto* list = pane->findChild<QListWidget*>();
        QCOMPARE(list->count(), 2);
        QCOMPARE(list->item(0)->text(), u"TextBox 1: Button 1 has the name \"go\" too."_s);
        QVERIFY(list->item(1)->text().contains(u"\"a b\" is no name."_s));
        // The program is in front, with the keyboard.
        QCOMPARE(bench.Frame().ActiveKind(), ActiveChild::Code);
        QVERIFY(!list->hasFocus());
        list->setCurrentRow(1);
        QTest::keyClick(list, Qt::Key_Return);
        QCOMPARE(bench.Frame().ActiveKind(), ActiveChild::Gui);
        QCOMPARE(Surface(bench)->Designer().Selection(), (std::vector<ControlRef>{{ControlKind::Textbox, 2}}));
        GuiDesign().form.At({ControlKind::Textbox, 1}).tag = u"one"_s;
        GuiDesign().form.At({ControlKind::Textbox, 2}).tag = u"two"_s;
        Tool(bench, 17)->click();
        QVERIFY(!pane->isVisible());
        GuiDesign().GuiFormModified = false;
    }

    void loadByTheMenuAsksForTheOpenForm()
    {
        TestBench bench;
        const QString path = Load(bench);
        GuiDesign().GuiFormModified = true;
        bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, LoadFilter, path);
        bench.dialogs.ExpectMessage(SaveQuestion, BoxAnswer::Cancel, BoxIcon::Question, BoxButtons::YesNoCancel);
        GuiDesign().form.caption = u"kept"_s;
        bench.Choose(u"mnuFileLoadGui"_s);
        QCOMPARE(GuiDesign().form.caption, u"kept"_s);
        QVERIFY(!GuiDesign().GuiFormLoading);
        bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, LoadFilter, path);
        bench.dialogs.ExpectMessage(SaveQuestion, BoxAnswer::No, BoxIcon::Question, BoxButtons::YesNoCancel);
        bench.Choose(u"mnuFileLoadGui"_s);
        QCOMPARE(GuiDesign().form.caption, u"Small"_s);
        QVERIFY(FormWindow(bench) != nullptr);
        QCOMPARE(bench.Frame().findChildren<frmGui*>().size(), 1);
    }

    void aNameWithoutTheEndingUnloadsTheForm()
    {
        TestBench bench;
        Load(bench);
        bench.dialogs.ExpectFile(FilePurpose::Open, u"Open File..."_s, LoadFilter, u"/nowhere/x.txt"_s);
        bench.Choose(u"mnuFileLoadGui"_s);
        QVERIFY(FormWindow(bench) == nullptr);
        QVERIFY(!bench.Frame().Item(u"mnuFileSaveGui"_s)->isEnabled());
    }

    void aNewFormAsksForItsWindow()
    {
        TestBench bench;
        bench.Start();
        bench.ExpectModal(u"frmColorDefault"_s, [](QDialog& dialog) { dialog.reject(); });
        bench.Choose(u"mnuGui"_s);
        QCOMPARE(GuiDesign().form.windowTag, u"open"_s);
        QVERIFY(FormWindow(bench) != nullptr);
        QVERIFY(bench.Frame().findChild<QWidget*>(u"picGui"_s)->isVisible());
        // Repeating the command starts again without a question: nothing was changed.
        bench.ExpectModal(u"frmColorDefault"_s,
                          [](QDialog& dialog) { dialog.findChild<QPushButton*>(u"OKButton"_s)->click(); });
        bench.Choose(u"mnuFileNewGui"_s);
        QCOMPARE(GuiDesign().form.windowTag, u"Window"_s);
        QVERIFY(FormWindow(bench) != nullptr);
        QCOMPARE(bench.Frame().findChildren<frmGui*>().size(), 1);
    }

    void closingTheBenchAsksForTheForm()
    {
        TestBench bench;
        Load(bench);
        GuiDesign().GuiFormModified = true;
        bench.dialogs.ExpectMessage(SaveQuestion, BoxAnswer::Cancel, BoxIcon::Question, BoxButtons::YesNoCancel);
        QVERIFY(!bench.Close());
        const QString saved = bench.Path(u"saved.obf"_s);
        bench.dialogs.ExpectMessage(SaveQuestion, BoxAnswer::Yes, BoxIcon::Question, BoxButtons::YesNoCancel);
        bench.dialogs.ExpectFile(FilePurpose::Save, u"Save Gui Form As"_s, SaveFilter, saved);
        QVERIFY(bench.Close());
        QCOMPARE(TestBench::Read(saved), SmallForm);
    }

    void aUserWhoDeclinedQuestionsIsNotAsked()
    {
        TestBench bench;
        Load(bench);
        GuiDesign().GuiFormModified = true;
        QuitQuery = false;
        QVERIFY(bench.Close());
    }
};

OB_BENCH_TEST(win_frmGui)
#include "win_frmGui.moc"
