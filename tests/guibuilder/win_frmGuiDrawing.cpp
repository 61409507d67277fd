// SPDX-License-Identifier: GPL-3.0-or-later
// The form window in the bench: drawing, properties, panels and the tools beside it.
#include "FormWindowBench.h"

#include "guibuilder/modGuiCommands.h"
#include "shell/state/Module1.h"

#include <QAction>
#include <QDialog>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QPushButton>
#include <QTimer>

using namespace Qt::StringLiterals;

using namespace ob;

class win_frmGuiDrawing : public FormWindowBench {
    Q_OBJECT

private Q_SLOTS:
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
};

OB_BENCH_TEST(win_frmGuiDrawing)
#include "win_frmGuiDrawing.moc"
