// SPDX-License-Identifier: GPL-3.0-or-later
// The form window in the bench: load, draw, properties, save, run, close.
#include "support/BenchTest.h"
#include "support/TestBench.h"

#include "editor/document/cDocument.h"
#include "guibuilder/frmGui.h"
#include "guibuilder/frmSurface.h"
#include "guibuilder/modCompleted.h"
#include "guibuilder/modGenerator.h"
#include "guibuilder/modGui.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/dialogs/dlgStandard.h"
#include "platform/files/modFiles.h"
#include "shell/state/Module1.h"

#include <QAction>
#include <QComboBox>
#include <QDate>
#include <QDialog>
#include <QDockWidget>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

const QByteArray SmallForm =
    "defaults|Black|Buttonface|White|White|White|White|False|True|False|1|True\r\n"
    "Window|Small| 600.5| 450| 6000.25| 4500|main|-2147483633|ms sans serif *10|False|1|True\r\n"
    "menu|&File|E&xit  [quit] * |none|none|none|none|none|none|False|1|True\r\n"
    "button|&Go| 300| 300| 1200| 450|go|go.click|none|False|1|True\r\n"
    "groupbox|Choose| 300| 1050| 3000| 1500|box|none|none|False|1|True\r\n"
    "statusbar|2|one|two||||||False|1|True\r\n\r\n";

const QString SaveQuestion = u"Save gui form before closing?"_s;
const QString SaveFilter = u"Gui Form (*.obf)|*.obf"_s;
const QString LoadFilter = u"Gui Form (*.obf)|*.OBF"_s;

frmGui* FormWindow(TestBench& bench)
{
    // A closed window is deleted in the next turn of the event loop.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return bench.Frame().findChild<frmGui*>();
}

frmSurface* Surface(TestBench& bench)
{
    return bench.Frame().findChild<frmSurface*>();
}

QToolButton* Tool(TestBench& bench, int place)
{
    return bench.Frame().findChild<QToolButton*>(u"cmdTools%1"_s.arg(place));
}

QToolButton* Switch(TestBench& bench, const char* name)
{
    return bench.Frame().findChild<QToolButton*>(QString::fromLatin1(name));
}

QString StatusOf(TestBench& bench)
{
    return bench.Frame().findChild<QLabel*>(u"statusText"_s)->text();
}

void Pull(QWidget* surface, QPoint from, QPoint to)
{
    QTest::mousePress(surface, Qt::LeftButton, {}, from);
    // The toolkit's own mouse move has no button down.
    for (const QPoint at : {(from + to) / 2, to}) {
        QMouseEvent move(QEvent::MouseMove, at, surface->mapToGlobal(at), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(surface, &move);
    }
    QTest::mouseRelease(surface, Qt::LeftButton, {}, to);
}

QByteArray OwnProgram(ProgramKind kind)
{
    const GuiForm form = Completed(GuiDesign().form, CompletedFor::Program);
    return GenerateProgram(form, kind, {ShortDateText(QDate::currentDate(), QLocale::system()), {}}).text.toLatin1();
}

} // namespace

class win_frmGui : public QObject {
    Q_OBJECT

    QString Load(TestBench& bench, const QByteArray& form = SmallForm)
    {
        const QString path = bench.Write(u"small.obf"_s, form);
        bench.Start({path});
        return path;
    }

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

    void controlsAreDrawnMovedAndUndone()
    {
        TestBench bench;
        Load(bench);
        frmSurface* surface = Surface(bench);
        Tool(bench, 12)->click();
        QVERIFY(Tool(bench, 12)->isChecked());
        QCOMPARE(surface->cursor().shape(), Qt::CrossCursor);
        Pull(surface, QPoint(240, 100), QPoint(340, 180));
        QVERIFY(!Tool(bench, 12)->isChecked());
        QCOMPARE(RectOf(GuiDesign().form.At({ControlKind::Listbox, 1})), (SurfaceRect{3600, 1500, 1500, 1200}));
        Pull(surface, QPoint(250, 110), QPoint(262, 131));
        QCOMPARE(RectOf(GuiDesign().form.At({ControlKind::Listbox, 1})), (SurfaceRect{3750, 1800, 1500, 1200}));
        QCOMPARE(StatusOf(bench), u"X -  250    Y -  120"_s);
        QTest::keyClick(surface, Qt::Key_Right, Qt::ControlModifier);
        QCOMPARE(GuiDesign().form.At({ControlKind::Listbox, 1}).left, 3765.0F);
        QTest::keyClick(surface, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(surface, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(GuiDesign().form.At({ControlKind::Listbox, 1}).left, 3600.0F);
        QTest::keyClick(surface, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(GuiDesign().form.At({ControlKind::Listbox, 1}).left, 3750.0F);
        bench.dialogs.ExpectMessage(SaveQuestion, BoxAnswer::No, BoxIcon::Question, BoxButtons::YesNoCancel);
        QVERIFY(bench.Close());
    }

    void deleteAsksFirst()
    {
        TestBench bench;
        Load(bench);
        frmSurface* surface = Surface(bench);
        QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(30, 30));
        bench.dialogs.ExpectMessage(u"Delete this control?"_s, BoxAnswer::No, BoxIcon::Question, BoxButtons::YesNo);
        QTest::keyClick(surface, Qt::Key_Delete);
        QVERIFY(GuiDesign().form.At({ControlKind::Button, 1}).visible);
        bench.dialogs.ExpectMessage(u"Delete this control?"_s, BoxAnswer::Yes, BoxIcon::Question, BoxButtons::YesNo);
        QTest::keyClick(surface, Qt::Key_Delete);
        QVERIFY(!GuiDesign().form.At({ControlKind::Button, 1}).visible);
        // Closing asks for what the key has done.
        bench.dialogs.ExpectMessage(SaveQuestion, BoxAnswer::No, BoxIcon::Question, BoxButtons::YesNoCancel);
        QVERIFY(bench.Frame().UnloadGui());
    }

    void deleteAsksOnceForSeveralAndNotWhileTheyAreLocked()
    {
        TestBench bench;
        Load(bench);
        frmSurface* surface = Surface(bench);
        QTest::keyClick(surface, Qt::Key_A, Qt::ControlModifier);
        Switch(bench, "chkLock")->click();
        QTest::keyClick(surface, Qt::Key_Delete);
        QCOMPARE(StatusOf(bench), u"The controls are locked."_s);
        Switch(bench, "chkLock")->click();
        bench.dialogs.ExpectMessage(u"Delete these 2 controls?"_s, BoxAnswer::Yes, BoxIcon::Question,
                                    BoxButtons::YesNo);
        QTest::keyClick(surface, Qt::Key_Delete);
        QVERIFY(PaintOrder(GuiDesign().form).empty());
        GuiDesign().GuiFormModified = false;
    }

    void cutAndPasteWorkByTheirKeys()
    {
        TestBench bench;
        Load(bench);
        frmSurface* surface = Surface(bench);
        QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(30, 30));
        QTest::keyClick(surface, Qt::Key_X, Qt::ControlModifier);
        QVERIFY(!GuiDesign().form.At({ControlKind::Button, 1}).visible);
        QTest::keyClick(surface, Qt::Key_V, Qt::ControlModifier);
        QCOMPARE(GuiDesign().form.At({ControlKind::Button, 2}).tag, u"go"_s);
        QCOMPARE(GuiDesign().form.At({ControlKind::Button, 2}).caption, u"&Go"_s);
        GuiDesign().GuiFormModified = false;
    }

    void theHandlesFollowThePropertiesAfterEnter()
    {
        TestBench bench;
        Load(bench);
        frmSurface* surface = Surface(bench);
        QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(30, 30));
        bench.ExpectModal(u"frmProp"_s, [](QDialog& dialog) {
            dialog.findChild<QLineEdit*>(u"txtX"_s)->setText(u"200"_s);
            dialog.findChild<QPushButton*>(u"OKButton"_s)->click();
        });
        QTest::keyClick(surface, Qt::Key_Return);
        QVERIFY(GuiDesign().GuiFormModified);
        QCOMPARE(surface->Designer().Handles()->upper, (SurfacePoint{200 * 15 - 135, 300 - 135}));
        bench.ExpectModal(u"frmProp"_s,
                          [](QDialog& dialog) { dialog.findChild<QPushButton*>(u"cmdDelete"_s)->click(); });
        bench.dialogs.ExpectMessage(u"Delete this control?"_s, BoxAnswer::Yes, BoxIcon::Critical, BoxButtons::YesNo);
        QTest::keyClick(surface, Qt::Key_Return);
        QVERIFY(!surface->Designer().Handles());
        GuiDesign().GuiFormModified = false;
    }

    void redoKeepsTheSizeThatTheWindowWasPulledTo()
    {
        TestBench bench;
        Load(bench);
        frmSurface* surface = Surface(bench);
        Tool(bench, 4)->click();
        Pull(surface, QPoint(240, 100), QPoint(340, 180));
        QMdiSubWindow* window = bench.Frame().Area().currentSubWindow();
        window->resize(500, 380);
        QTest::keyClick(surface, Qt::Key_Z, Qt::ControlModifier);
        QTest::keyClick(surface, Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(window->size(), QSize(500, 380));
        QCOMPARE(GuiDesign().form.height, 380 * 15.0F);
        GuiDesign().GuiFormModified = false;
    }

    void tabScrollsToAControlOutsideTheForm()
    {
        TestBench bench;
        Load(bench, SmallForm + "textbox|none| 15000| 12000| 1200| 300|t\r\n");
        frmSurface* surface = Surface(bench);
        const SurfacePoint home = surface->PointAt(QPointF(0, 0));
        QCOMPARE(home, SurfacePoint{});
        for (int control = 0; control < 3; ++control)
            QTest::keyClick(surface, Qt::Key_Tab);
        QCOMPARE(surface->Designer().Selection(), (std::vector<ControlRef>{{ControlKind::Textbox, 1}}));
        const QRect shown = surface->PixelsOf(RectOf(GuiDesign().form.At({ControlKind::Textbox, 1})));
        QVERIFY(surface->rect().contains(shown));
        // The mouse works on what is seen, and an arrow key brings the control to the form.
        QTest::mouseClick(surface, Qt::LeftButton, {}, shown.center());
        QVERIFY(surface->Designer().Handles().has_value());
        QTest::keyClick(surface, Qt::Key_Left);
        QCOMPARE(surface->PointAt(QPointF(0, 0)), SurfacePoint{});
        QVERIFY(surface->Designer().IsReachable({ControlKind::Textbox, 1}));
        GuiDesign().GuiFormModified = false;
    }

    void aControlPulledBeyondTheEdgeComesBack()
    {
        TestBench bench;
        Load(bench);
        frmSurface* surface = Surface(bench);
        Pull(surface, QPoint(30, 30), QPoint(3000, 30));
        const QRect shown = surface->PixelsOf(RectOf(GuiDesign().form.At({ControlKind::Button, 1})));
        QVERIFY(surface->rect().intersected(shown).width() >= 8);
    }

    void theSnapSwitchRoundsWhatIsDrawn()
    {
        TestBench bench;
        Load(bench);
        frmSurface* surface = Surface(bench);
        Switch(bench, "chkSnap")->click();
        Tool(bench, 12)->click();
        Pull(surface, QPoint(243, 104), QPoint(344, 183));
        QCOMPARE(RectOf(GuiDesign().form.At({ControlKind::Listbox, 1})), (SurfaceRect{3600, 1500, 1500, 1200}));
        GuiDesign().GuiFormModified = false;
    }

    void aRightClickOpensThePropertiesAndBringsToTheFront()
    {
        TestBench bench;
        Load(bench, SmallForm + "textbox|none| 300| 300| 1200| 300|t\r\n");
        bench.ExpectModal(u"frmProp"_s, [](QDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), u"Button Properties"_s);
            dialog.findChild<QLineEdit*>(u"txtCaption"_s)->setText(u"Start"_s);
            dialog.findChild<QPushButton*>(u"OKButton"_s)->click();
        });
        QTest::mouseClick(Surface(bench), Qt::RightButton, {}, QPoint(30, 45));
        QCOMPARE(GuiDesign().form.At({ControlKind::Button, 1}).caption, u"Start"_s);
        QCOMPARE(GuiDesign().form.order.back(), (ControlRef{ControlKind::Button, 1}));
        QTest::keyClick(Surface(bench), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(GuiDesign().form.At({ControlKind::Button, 1}).caption, u"&Go"_s);
        GuiDesign().GuiFormModified = false;
    }

    void aRightClickOnTheSurfaceOpensTheWindowProperties()
    {
        TestBench bench;
        Load(bench);
        bench.ExpectModal(u"frmColorDefault"_s, [](QDialog& dialog) { dialog.reject(); });
        QTest::mouseClick(Surface(bench), Qt::RightButton, {}, QPoint(350, 200));
        bench.ExpectModal(u"frmColorDefault"_s, [](QDialog& dialog) { dialog.reject(); });
        Tool(bench, 15)->click();
        GuiDesign().GuiFormModified = false;
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

    void theMenuLabelOpensTheEditorOrGoes()
    {
        TestBench bench;
        Load(bench);
        auto* label = FormWindow(bench)->findChild<QLabel*>(u"lblMenu"_s);
        bench.ExpectModal(u"dlgMenu"_s, [](QDialog& dialog) { dialog.close(); });
        QTest::mouseClick(label, Qt::LeftButton);
        const QString question = u"Do you want to remove the menu?"_s;
        bench.dialogs.ExpectMessage(question, BoxAnswer::No, BoxIcon::Question, BoxButtons::YesNo, u"MenuBar"_s);
        bench.ExpectModal(u"dlgMenu"_s, [](QDialog& dialog) { dialog.close(); });
        QTest::mouseClick(label, Qt::RightButton);
        bench.dialogs.ExpectMessage(question, BoxAnswer::Yes, BoxIcon::Question, BoxButtons::YesNo, u"MenuBar"_s);
        QTest::mouseClick(label, Qt::RightButton);
        QVERIFY(!GuiDesign().form.GuiMenuOn);
        QVERIFY(!label->isVisible());
        QApplication::processEvents();
        QCOMPARE(Surface(bench)->y(), 0);
    }

    void theStatusBarGainsAndLosesPanels()
    {
        TestBench bench;
        Load(bench);
        auto* bar = FormWindow(bench)->findChild<QWidget*>(u"sBar"_s);
        const auto ask = [&](BoxAnswer answer) {
            bench.dialogs.ExpectMessage(u"Click YES to add a panel.  Click NO to delete a panel."_s, answer,
                                        BoxIcon::Question, BoxButtons::YesNoCancel,
                                        u"Would you like to add a panel?"_s);
        };
        ask(BoxAnswer::Yes);
        bench.dialogs.ExpectInput({u"Panel Caption?"_s, {}, {}}, u"three"_s);
        QTest::mouseClick(bar, Qt::LeftButton);
        QCOMPARE(GuiDesign().form.panels.size(), std::size_t{3});
        QCOMPARE(GuiDesign().form.panels[2], u"three"_s);
        for (int left = 2; left >= 1; --left) {
            ask(BoxAnswer::No);
            QTest::mouseClick(bar, Qt::LeftButton);
            QCOMPARE(GuiDesign().form.panels.size(), static_cast<std::size_t>(left));
        }
        ask(BoxAnswer::No);
        bench.dialogs.ExpectMessage(u"You cannot remove the first panel."_s);
        QTest::mouseClick(bar, Qt::LeftButton);
        ask(BoxAnswer::Cancel);
        QTest::mouseClick(bar, Qt::LeftButton);
        QCOMPARE(GuiDesign().form.panels.size(), std::size_t{1});
    }

    void gridAndLockFollowTheirButtons()
    {
        TestBench bench;
        Load(bench);
        Switch(bench, "chkGrid")->click();
        QVERIFY(!GuiDesign().GuiGridOn);
        Switch(bench, "chkGrid")->click();
        QVERIFY(GuiDesign().GuiGridOn);
        Switch(bench, "chkLock")->click();
        QVERIFY(Surface(bench)->Designer().IsLocked());
        Pull(Surface(bench), QPoint(30, 30), QPoint(90, 90));
        QCOMPARE(GuiDesign().form.At({ControlKind::Button, 1}).left, 300.0F);
        // A new form starts unlocked, with its grid. A tool's press counts as a change.
        bench.dialogs.ExpectMessage(SaveQuestion, BoxAnswer::No, BoxIcon::Question, BoxButtons::YesNoCancel);
        bench.ExpectModal(u"frmColorDefault"_s, [](QDialog& dialog) { dialog.reject(); });
        Tool(bench, 0)->click();
        FormWindow(bench);
        QVERIFY(!Surface(bench)->Designer().IsLocked());
        QVERIFY(!Switch(bench, "chkLock")->isChecked());
    }

    void theMenuEditorToolFollowsTheWindowType()
    {
        TestBench bench;
        QByteArray dialog = SmallForm;
        dialog.replace("Window|Small", "Dialog|Small");
        Load(bench, dialog);
        QVERIFY(!Tool(bench, 16)->isEnabled());
        QVERIFY(!GuiDesign().form.GuiMenuOn);
    }

    void toolsNeedAForm()
    {
        TestBench bench;
        bench.Start();
        bench.Frame().ShowPalette(true);
        for (int place = 0; place < 18; ++place)
            QCOMPARE(Tool(bench, place)->isEnabled(), place == 0 || place == 2 || place == 3);
    }

    void controlsAreAlignedFromTheMenuKey()
    {
        TestBench bench;
        Load(bench, SmallForm + "textbox|none| 4500| 700| 1200| 300|t\r\n");
        frmSurface* surface = Surface(bench);
        QTest::mouseClick(surface, Qt::LeftButton, {}, QPoint(30, 30));
        QTest::mouseClick(surface, Qt::LeftButton, Qt::ControlModifier, QPoint(310, 50));
        QTimer::singleShot(0, surface, [surface] {
            auto* menu = surface->findChild<QMenu*>(u"mnuSurface"_s);
            QVERIFY(menu != nullptr);
            menu->findChild<QAction*>(u"mnuAlignTop"_s)->trigger();
            menu->close();
        });
        QTest::keyClick(surface, Qt::Key_F10, Qt::ShiftModifier);
        QCOMPARE(GuiDesign().form.At({ControlKind::Textbox, 1}).top, 300.0F);
        QCOMPARE(GuiDesign().form.At({ControlKind::Textbox, 1}).left, 4500.0F);
        GuiDesign().GuiFormModified = false;
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
