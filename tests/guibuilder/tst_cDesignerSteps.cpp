// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface without a screen: commands, steps of undo, and what marks the form.
#include "DesignerBench.h"

using namespace Qt::StringLiterals;

using namespace ob;

class tst_cDesignerSteps : public DesignerBench {
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void severalSelectedControlsMoveTogether()
    {
        const ControlRef one = Put(ControlKind::Button, Px(20, 20, 80, 30));
        const ControlRef two = Put(ControlKind::Textbox, Px(22, 60, 80, 30));
        const ControlRef three = Put(ControlKind::Textbox, Px(20, 200, 80, 30));
        Pull(At(10, 10), At(50, 100));
        QCOMPARE(designer->Selection().size(), std::size_t{2});
        Click(At(30, 210), Mode::Adding);
        QCOMPARE(designer->Selection().size(), std::size_t{3});
        Click(At(30, 210), Mode::Adding);
        Pull(At(30, 30), At(40, 40));
        QCOMPARE(Rect(one), Px(30, 30, 80, 30));
        QCOMPARE(Rect(two), Px(32, 70, 80, 30));
        QCOMPARE(Rect(three), Px(20, 200, 80, 30));
        QCOMPARE(designer->Selection().size(), std::size_t{2});
        Click(At(35, 40));
        QCOMPARE(designer->Selection(), std::vector{one});
    }

    void eachFinishedActionIsOneStepToUndo()
    {
        designer->ArmTool(u"Button"_s);
        Pull(At(10, 10), At(110, 60));
        Pull(At(20, 20), At(60, 60));
        designer->Nudge(75, 0);
        const ControlRef button{ControlKind::Button, 1};
        QCOMPARE(Rect(button), Px(55, 50, 100, 50));
        designer->Undo();
        QCOMPARE(Rect(button), Px(50, 50, 100, 50));
        designer->Undo();
        QCOMPARE(Rect(button), Px(10, 10, 100, 50));
        designer->Undo();
        QCOMPARE(GuiDesign().form.List(ControlKind::Button).size(), std::size_t{1});
        QVERIFY(!designer->CanUndo());
        designer->Redo();
        designer->Redo();
        QCOMPARE(Rect(button), Px(50, 50, 100, 50));
        designer->Delete();
        designer->Undo();
        QVERIFY(designer->CanUndo());
    }

    void aClickThatChangesNothingIsNoStep()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        Put(ControlKind::Button, Px(20, 60, 80, 30));
        Click(At(30, 30));
        QVERIFY(!designer->CanUndo());
    }

    void theWindowsPlaceIsNoStepUnlessADialogSetIt()
    {
        designer->ArmTool(u"Button"_s);
        Pull(At(10, 10), At(110, 60));
        GuiDesign().form.left = 4500;
        designer->Undo();
        QCOMPARE(GuiDesign().form.left, 4500.0F);
        GuiDesign().form.width = 3000;
        designer->Commit(cFormHistory::WindowRect::Set);
        const float width = GuiDesign().form.width;
        designer->Undo();
        QVERIFY(GuiDesign().form.width != width);
        QCOMPARE(GuiDesign().form.left, 4500.0F);
    }

    void undoNeverRevertsAConfirmedTypeOrItsMark()
    {
        GuiDesign().form.windowTag = u"open"_s;
        designer->Restart();
        GuiDesign().form.windowTag = GuiDesign().form.GuiWindowType = u"Graphics_nsb"_s;
        GuiDesign().form.GuiDefaultsState = 1;
        designer->Commit(cFormHistory::WindowRect::Set);
        designer->ArmTool(u"Button"_s);
        Pull(At(10, 10), At(110, 60));
        designer->Undo();
        designer->Undo();
        QCOMPARE(GuiDesign().form.GuiWindowType, u"Window"_s);
        QCOMPARE(GuiDesign().form.windowTag, u"Window"_s);
        QCOMPARE(GuiDesign().form.GuiDefaultsState, std::int16_t{1});
        designer->Redo();
        QCOMPARE(GuiDesign().form.windowTag, u"Graphics_nsb"_s);
    }

    void aSaveIsNoStepAndItsNamesStay()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        Pull(At(30, 30), At(60, 60));
        designer->Undo();
        GuiDesign().form.At(button).tag = u"button1"_s;
        GuiDesign().form.At(button).branch = u"button1.click"_s;
        designer->Adopt();
        Click(At(30, 30));
        QVERIFY(designer->CanRedo());
        QVERIFY(!designer->CanUndo());
        designer->Redo();
        QCOMPARE(GuiDesign().form.At(button).left, 750.0F);
        QCOMPARE(GuiDesign().form.At(button).tag, u"button1"_s);
        designer->Undo();
        QCOMPARE(GuiDesign().form.At(button).branch, u"button1.click"_s);
    }

    void aKeyThatIsHeldDownIsOneStep()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        Click(At(30, 30));
        designer->Nudge(75, 0);
        for (int repeat = 0; repeat < 300; ++repeat)
            designer->Nudge(75, 0, cDesigner::KeyPress::Repeated);
        QCOMPARE(GuiDesign().form.At(button).left, 300 + 301 * 75.0F);
        designer->Undo();
        QCOMPARE(GuiDesign().form.At(button).left, 300.0F);
        QVERIFY(!designer->CanUndo());
        QCOMPARE(designer->Selection(), std::vector{button});
    }

    void everyChangeByKeysMarksTheForm()
    {
        const auto marks = [&](const char* name, const auto& change) {
            Put(ControlKind::Button, Px(20, 20, 80, 30));
            Put(ControlKind::Textbox, Px(200, 60, 60, 20));
            designer->SelectAll();
            designer->Copy();
            GuiDesign().GuiFormModified = false;
            change();
            QVERIFY2(GuiDesign().GuiFormModified, name);
        };
        marks("nudge", [&] { designer->Nudge(75, 0); });
        marks("grow", [&] { designer->Grow(75, 0); });
        for (const Alignment each : {Alignment::Left, Alignment::Top, Alignment::Right, Alignment::Bottom,
                                     Alignment::SameWidth, Alignment::SameHeight})
            marks("align", [&] { designer->Align(each); });
        marks("delete", [&] { designer->Delete(); });
        marks("cut", [&] { designer->Cut(); });
        marks("paste", [&] { designer->Paste(); });
    }

    void whatChangesNothingDoesNotMarkTheForm()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        designer->Delete();
        designer->Nudge(75, 0);
        Click(At(30, 30));
        designer->Align(Alignment::Left);
        QVERIFY(!GuiDesign().GuiFormModified);
    }

    void theHandlesFollowADialogsChange()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        Click(At(30, 30));
        SetRect(GuiDesign().form.At(button), Px(200, 100, 60, 40));
        designer->Commit();
        QCOMPARE(designer->Handles()->lower, At(260, 140));
        Pull(At(262, 142), At(272, 152));
        QCOMPARE(Rect(button), Px(200, 100, 70, 50));
        Click(At(210, 110));
        GuiDesign().form.At(button).visible = false;
        designer->Commit();
        QVERIFY(!designer->Handles());
    }

    void aSizePulledByTheMouseSurvivesUndoAndRedo()
    {
        designer->ArmTool(u"Button"_s);
        Pull(At(10, 10), At(110, 60));
        GuiDesign().form.width = 5000;
        GuiDesign().form.height = 4000;
        designer->Undo();
        QCOMPARE(GuiDesign().form.width, 5000.0F);
        designer->Redo();
        QCOMPARE(GuiDesign().form.width, 5000.0F);
        QCOMPARE(GuiDesign().form.height, 4000.0F);
        // A dialog that left the size alone does not bring an older one back.
        GuiDesign().form.caption = u"other"_s;
        designer->Commit(cFormHistory::WindowRect::Set);
        GuiDesign().form.width = 6000;
        designer->Undo();
        QCOMPARE(GuiDesign().form.width, 6000.0F);
        designer->Redo();
        QCOMPARE(GuiDesign().form.width, 6000.0F);
    }

    void aSizeSetByADialogIsUndoneAndRedone()
    {
        const float first = GuiDesign().form.width;
        GuiDesign().form.width = 3000;
        designer->Commit(cFormHistory::WindowRect::Set);
        GuiDesign().form.width = 3600;
        designer->Undo();
        QCOMPARE(GuiDesign().form.width, first);
        designer->Redo();
        QCOMPARE(GuiDesign().form.width, 3600.0F);
    }

    void cutTakesControlsAwayAndPasteBringsThemBackUnderTheirNames()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        GuiDesign().form.At(button).tag = u"go *Starts it"_s;
        GuiDesign().form.At(button).branch = u"[start]"_s;
        Click(At(30, 30));
        designer->Cut();
        QVERIFY(!GuiDesign().form.At(button).visible);
        designer->Paste();
        QCOMPARE(GuiDesign().form.At({ControlKind::Button, 2}).tag, u"go *Starts it"_s);
        QCOMPARE(GuiDesign().form.At({ControlKind::Button, 2}).branch, u"[start]"_s);
        designer->Paste();
        QCOMPARE(GuiDesign().form.At({ControlKind::Button, 3}).tag, u"button3 *Starts it"_s);
        designer->Undo();
        designer->Undo();
        designer->Undo();
        QVERIFY(GuiDesign().form.At(button).visible);
    }

    void theLockHoldsControlsAgainstEveryCommand()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        const ControlRef text = Put(ControlKind::Textbox, Px(200, 60, 60, 20));
        designer->SelectAll();
        designer->Copy();
        designer->Lock();
        bench->form.status.clear();
        designer->Delete();
        QCOMPARE(bench->form.status, u"The controls are locked."_s);
        designer->Cut();
        designer->Paste();
        designer->Align(Alignment::Left);
        QVERIFY(GuiDesign().form.At(button).visible);
        QCOMPARE(Rect(text), Px(200, 60, 60, 20));
        QCOMPARE(GuiDesign().form.order.size(), std::size_t{2});
        QVERIFY(!GuiDesign().GuiFormModified);
        designer->Unlock();
        designer->Delete();
        QVERIFY(!GuiDesign().form.At(button).visible);
    }

    void twoHundredStepsAreKept()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        Click(At(30, 30));
        for (int step = 0; step < 250; ++step)
            designer->Nudge(15, 0);
        int undone = 0;
        for (; designer->CanUndo(); ++undone)
            designer->Undo();
        QCOMPARE(undone, 200);
        QCOMPARE(Rect({ControlKind::Button, 1}), Px(70, 20, 80, 30));
    }

    void pasteContinuesFromTheLastPaste()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        QVERIFY(!designer->CanPaste());
        Click(At(30, 30));
        designer->Copy();
        designer->Paste();
        designer->Paste();
        QCOMPARE(Rect({ControlKind::Button, 3}), Px(40, 40, 80, 30));
        QCOMPARE(designer->Selection(), (std::vector<ControlRef>{{ControlKind::Button, 3}}));
        QVERIFY(GuiDesign().GuiFormModified);
    }

    void aNewFormStartsUnlockedWithTheCopiesOfTheOldOne()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        Click(At(30, 30));
        designer->Copy();
        designer->Nudge(15, 0);
        designer->Lock();
        designer->ArmTool(u"Listbox"_s);
        designer->FormUnloaded();
        QVERIFY(!designer->IsArmed());
        QVERIFY(!designer->CanUndo());
        QVERIFY(designer->Selection().empty());
        QVERIFY(designer->IsLocked());
        ClearForm(GuiDesign().form);
        designer->FormLoaded();
        QVERIFY(!designer->IsLocked());
        designer->Paste();
        QCOMPARE(Rect({ControlKind::Button, 1}), Px(30, 30, 80, 30));
    }

    void tabMovesThroughTheControls()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        const ControlRef list = Put(ControlKind::Listbox, Px(20, 60, 80, 30));
        designer->SelectNext(1);
        QCOMPARE(designer->Selection(), std::vector{button});
        designer->SelectNext(1);
        QCOMPARE(designer->Selection(), std::vector{list});
        designer->SelectNext(1);
        QCOMPARE(designer->Selection(), std::vector{button});
        designer->SelectNext(-1);
        QCOMPARE(designer->Selection(), std::vector{list});
    }
};

OB_CORE_TEST(tst_cDesignerSteps)
#include "tst_cDesignerSteps.moc"
