// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface without a screen: presses, pulls and what they show.
#include "DesignerBench.h"

using namespace Qt::StringLiterals;

using namespace ob;

class tst_cDesigner : public DesignerBench {
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void anArmedToolPlacesOnce()
    {
        designer->ArmTool(u"Button"_s);
        QVERIFY(designer->IsArmed());
        QCOMPARE(designer->PointerAt(At(5, 5)), cDesigner::Pointer::Cross);
        Pull(At(10, 10), At(110, 60));
        QVERIFY(!designer->IsArmed());
        QCOMPARE(Rect({ControlKind::Button, 1}), Px(10, 10, 100, 50));
        Pull(At(200, 200), At(300, 300));
        QCOMPARE(GuiDesign().form.List(ControlKind::Button).size(), std::size_t{2});
        QVERIFY(!designer->Handles());
    }

    void aNewControlIsSelectedForTheKeys()
    {
        designer->ArmTool(u"Button"_s);
        Pull(At(10, 10), At(110, 60));
        QCOMPARE(designer->Selection(), (std::vector<ControlRef>{{ControlKind::Button, 1}}));
        QVERIFY(!designer->Handles());
    }

    void aPullOfLessThanFivePixelsIsAClick()
    {
        designer->ArmTool(u"Graphicbox"_s);
        Pull(At(10, 10), At(14, 14));
        QCOMPARE(Rect({ControlKind::Graphicbox, 1}), Px(10, 10, 50, 50));
    }

    void aPullBackToTheAnchorIsStillADrag()
    {
        designer->ArmTool(u"Graphicbox"_s);
        designer->Press(At(10, 10), Button::Left, Mode::Plain);
        designer->Drag(At(40, 40));
        QCOMPARE(designer->RubberBand(), Px(10, 10, 30, 30));
        designer->Drag(At(12, 12));
        designer->Release(At(12, 12), Button::Left);
        QCOMPARE(Rect({ControlKind::Graphicbox, 1}), Px(10, 10, 2, 2));
    }

    void aGroupboxIsDrawnInto()
    {
        Put(ControlKind::Groupbox, Px(0, 0, 200, 200));
        designer->ArmTool(u"Radiobutton"_s);
        Pull(At(20, 20), At(120, 50));
        QCOMPARE(Rect({ControlKind::Radiobutton, 1}), Px(20, 20, 100, 30));
        QCOMPARE(Rect({ControlKind::Groupbox, 1}), Px(0, 0, 200, 200));
    }

    void anotherControlUnderAnArmedToolIsPressed()
    {
        const ControlRef list = Put(ControlKind::Listbox, Px(0, 0, 100, 100));
        designer->ArmTool(u"Button"_s);
        Pull(At(10, 10), At(30, 30));
        QCOMPARE(Rect(list), Px(20, 20, 100, 100));
        QVERIFY(designer->IsArmed());
        QCOMPARE(GuiDesign().form.List(ControlKind::Button).size(), std::size_t{1});
    }

    void aMovedControlSnapsAndReportsItsPosition()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        designer->Press(At(30, 30), Button::Left, Mode::Plain);
        designer->Drag(At(53, 38));
        QCOMPARE(Rect(button), Px(40, 25, 80, 30));
        QCOMPARE(bench->form.status, u"X -  40    Y -  25"_s);
        designer->Release(At(53, 38), Button::Left);
        QVERIFY(designer->Handles().has_value());
        QCOMPARE(designer->Handles()->lower, At(120, 55));
        QVERIFY(!GuiDesign().GuiFormModified);
    }

    void onlyGroupboxesAndTextsMarkTheFormByAPress()
    {
        int row = 0;
        for (const KindTraits& traits : KindTable) {
            Put(traits.kind, Px(0, row * 50, 40, 40));
            GuiDesign().GuiFormModified = false;
            Pull(At(5, row * 50 + 5), At(15, row * 50 + 5));
            const bool marks = traits.kind == ControlKind::Groupbox || traits.kind == ControlKind::Statictext;
            QVERIFY2(GuiDesign().GuiFormModified == marks, traits.keyword.data());
            ++row;
        }
    }

    void everyKindButABmpbuttonShowsHandles()
    {
        int row = 0;
        for (const KindTraits& traits : KindTable) {
            Put(traits.kind, Px(0, row * 50, 40, 40));
            Click(At(5, row * 50 + 5));
            QVERIFY2(designer->Handles().has_value() == (traits.kind != ControlKind::Bmpbutton), traits.keyword.data());
            ++row;
        }
    }

    void lockedControlsNeitherMoveNorResize()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        Click(At(30, 30));
        designer->Lock();
        QCOMPARE(designer->PointerAt(At(30, 30)), cDesigner::Pointer::NoDrop);
        QCOMPARE(designer->PointerAt(At(102, 52)), cDesigner::Pointer::NoDrop);
        Pull(At(102, 52), At(150, 90));
        Pull(At(30, 30), At(60, 60));
        designer->Nudge(75, 75);
        designer->Grow(75, 75);
        QCOMPARE(Rect(button), Px(20, 20, 80, 30));
        QVERIFY(!GuiDesign().GuiFormModified);
        QCOMPARE(designer->Press(At(30, 30), Button::Right, Mode::Plain).kind, Kind::Properties);
    }

    void thePointerShowsWhatAPressWillDo()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        QCOMPARE(designer->PointerAt(At(5, 5)), cDesigner::Pointer::Arrow);
        QCOMPARE(designer->PointerAt(At(30, 30)), cDesigner::Pointer::Move);
        Click(At(30, 30));
        QCOMPARE(designer->PointerAt(At(102, 52)), cDesigner::Pointer::Size);
        QCOMPARE(designer->PointerAt(At(15, 15)), cDesigner::Pointer::Size);
    }

    void theLowerHandleResizesAndThenGoes()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        Click(At(30, 30));
        designer->Press(At(102, 52), Button::Left, Mode::Plain);
        designer->Drag(At(135, 79));
        QCOMPARE(Rect(button), Px(20, 20, 110, 55));
        QCOMPARE(bench->form.status, u"Width:   110        Height:   55"_s);
        QCOMPARE(designer->Handles()->lower, At(133, 77));
        QVERIFY(GuiDesign().GuiFormModified);
        designer->Release(At(135, 79), Button::Left);
        QVERIFY(!designer->Handles());
        QVERIFY(designer->Selection().empty());
    }

    void theUpperHandleMovesTheUpperLeftCorner()
    {
        const ControlRef button = Put(ControlKind::Button, Px(100, 100, 80, 30));
        Click(At(110, 110));
        Pull(At(95, 95), At(70, 80));
        QCOMPARE(Rect(button), Px(75, 85, 105, 45));
    }

    void aRightPressAsksForProperties()
    {
        const ControlRef box = Put(ControlKind::Groupbox, Px(20, 20, 80, 30));
        const auto request = designer->Press(At(30, 30), Button::Right, Mode::Plain);
        QCOMPARE(request.kind, Kind::Properties);
        QCOMPARE(request.control, box);
        QVERIFY(GuiDesign().GuiFormModified);
        // The dialog may have deleted it: its release is not one on the empty surface.
        DeleteControls(GuiDesign().form, {box});
        QCOMPARE(designer->Release(At(30, 30), Button::Right).kind, Kind::None);
    }

    void aRightClickOnTheSurfaceAsksForTheWindowDefaults()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        Click(At(30, 30));
        QCOMPARE(designer->Press(At(200, 200), Button::Right, Mode::Plain).kind, Kind::None);
        QCOMPARE(designer->Release(At(200, 200), Button::Right).kind, Kind::WindowDefaults);
        QVERIFY(!designer->Handles());
    }

    void aClickOnTheSurfaceHidesTheHandles()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        Click(At(30, 30));
        QVERIFY(designer->Handles().has_value());
        Click(At(300, 300));
        QVERIFY(!designer->Handles());
        QVERIFY(designer->Selection().empty());
    }

    void escapeEndsAPullWithoutATrace()
    {
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        designer->Press(At(30, 30), Button::Left, Mode::Plain);
        designer->Drag(At(90, 90));
        designer->Cancel();
        designer->Drag(At(120, 120));
        designer->Release(At(120, 120), Button::Left);
        QCOMPARE(Rect(button), Px(20, 20, 80, 30));
        QVERIFY(!designer->CanUndo());
        designer->ArmTool(u"Button"_s);
        designer->Cancel();
        QVERIFY(!designer->IsArmed());
    }

    void aClickNeverMovesHoweverUnsteadyTheHand()
    {
        const ControlRef button = Put(ControlKind::Button, Px(22, 22, 80, 30));
        Click(At(30, 30));
        for (const SurfacePoint end : {At(29, 30), At(31, 31), At(30, 28), At(32, 32)}) {
            Pull(At(30, 30), end);
            QCOMPARE(Rect(button), Px(22, 22, 80, 30));
            QVERIFY(designer->Handles().has_value());
        }
        Pull(At(104, 54), At(103, 53));
        QCOMPARE(Rect(button), Px(22, 22, 80, 30));
        QVERIFY(!designer->CanUndo());
        Pull(At(30, 30), At(33, 30));
        QCOMPARE(Rect(button), Px(25, 20, 80, 30));
    }

    void anUnsteadyClickSelectsOneOfSeveral()
    {
        const ControlRef one = Put(ControlKind::Button, Px(22, 22, 80, 30));
        const ControlRef two = Put(ControlKind::Button, Px(22, 82, 80, 30));
        designer->SelectAll();
        Pull(At(30, 30), At(29, 29));
        QCOMPARE(designer->Selection(), std::vector{one});
        QCOMPARE(Rect(two), Px(22, 82, 80, 30));
    }

    void drawingShowsItsPlaceAndSize()
    {
        designer->ArmTool(u"Button"_s);
        designer->Press(At(12, 13), Button::Left, Mode::Plain);
        designer->Drag(At(112, 63));
        QCOMPARE(bench->form.status, u"X -  12    Y -  13    Width:   100        Height:   50"_s);
    }

    void drawingSnapsWithTheGridWhenItIsSwitchedOn()
    {
        const auto draw = [&] {
            designer->ArmTool(u"Button"_s);
            Pull(At(12, 13), At(118, 64), Mode::Over);
            return Rect(GuiDesign().form.order.back());
        };
        QCOMPARE(draw(), Px(12, 13, 106, 51));
        designer->SetSnapMode(cDesigner::SnapMode::WithGrid);
        QCOMPARE(draw(), Px(10, 10, 105, 50));
        GuiDesign().GuiGridOn = false;
        QCOMPARE(draw(), Px(12, 13, 106, 51));
        Pull(At(50, 30), At(57, 33));
        QCOMPARE(Rect(GuiDesign().form.order.back()), Px(19, 16, 106, 51));
        Pull(At(127, 69), At(130, 70));
        QCOMPARE(Rect(GuiDesign().form.order.back()), Px(19, 16, 109, 52));
    }

    void aControlPulledOffTheFormStaysWithinReach()
    {
        designer->SetSurface(400 * 15, 300 * 15);
        const ControlRef button = Put(ControlKind::Button, Px(20, 20, 80, 30));
        Pull(At(30, 30), At(900, 30));
        QCOMPARE(Rect(button), Px(390, 20, 80, 30));
        Pull(At(392, 30), At(392, -500));
        QCOMPARE(Rect(button), Px(390, -20, 80, 30));
        QVERIFY(designer->IsReachable(button));
        QCOMPARE(bench->form.status, u"X -  390    Y - -20"_s);
        for (int step = 0; step < 5; ++step)
            designer->Nudge(75, 0);
        QCOMPARE(Rect(button), Px(390, -20, 80, 30));
        designer->Undo();
        QCOMPARE(Rect(button), Px(390, 20, 80, 30));
    }

    void anArrowKeyBringsBackWhatAFileHasBeyondTheForm()
    {
        designer->SetSurface(400 * 15, 300 * 15);
        const ControlRef lost = Put(ControlKind::Button, Px(2000, 2000, 80, 30));
        const ControlRef near = Put(ControlKind::Textbox, Px(20, 20, 80, 30));
        designer->SelectNext(1);
        QVERIFY(!designer->IsReachable(lost));
        designer->Nudge(-75, 0);
        QCOMPARE(Rect(lost), Px(390, 290, 80, 30));
        QCOMPARE(Rect(near), Px(20, 20, 80, 30));
    }

    void aGroupboxMovesWhatItHolds()
    {
        const ControlRef box = Put(ControlKind::Groupbox, Px(20, 20, 200, 100));
        const ControlRef inside = Put(ControlKind::Radiobutton, Px(30, 40, 80, 30));
        const ControlRef across = Put(ControlKind::Textbox, Px(200, 40, 80, 30));
        Pull(At(25, 25), At(45, 55));
        QCOMPARE(Rect(box), Px(40, 50, 200, 100));
        QCOMPARE(Rect(inside), Px(50, 70, 80, 30));
        QCOMPARE(Rect(across), Px(200, 40, 80, 30));
        designer->Nudge(75, 0);
        QCOMPARE(Rect(inside), Px(55, 70, 80, 30));
        designer->Press(At(50, 55), Button::Left, Mode::Plain);
        designer->Drag(At(90, 90));
        designer->Cancel();
        QCOMPARE(Rect(inside), Px(55, 70, 80, 30));
        designer->Undo();
        designer->Undo();
        QCOMPARE(Rect(box), Px(20, 20, 200, 100));
        QCOMPARE(Rect(inside), Px(30, 40, 80, 30));
    }

    void withShiftAnArmedToolDrawsOverOtherControls()
    {
        const ControlRef list = Put(ControlKind::Listbox, Px(0, 0, 100, 100));
        designer->ArmTool(u"Button"_s);
        QCOMPARE(designer->PointerAt(At(10, 10), Mode::Over), cDesigner::Pointer::Cross);
        Pull(At(10, 10), At(60, 40), Mode::Over);
        QCOMPARE(Rect(list), Px(0, 0, 100, 100));
        QCOMPARE(Rect({ControlKind::Button, 1}), Px(10, 10, 50, 30));
        QVERIFY(!designer->IsArmed());
    }

    void aRightPressOnAHandleOnlyHidesTheHandles()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        Click(At(30, 30));
        QCOMPARE(designer->Press(At(104, 54), Button::Right, Mode::Plain).kind, Kind::None);
        QCOMPARE(designer->Release(At(104, 54), Button::Right).kind, Kind::None);
        QVERIFY(!designer->Handles());
    }

    void aDragSpoilsOnlyWhereTheControlWasAndIs()
    {
        Put(ControlKind::Button, Px(20, 20, 80, 30));
        designer->Press(At(30, 30), Button::Left, Mode::Plain);
        designer->TakeDamage();
        designer->Drag(At(50, 30));
        const auto damage = designer->TakeDamage();
        QVERIFY(!damage.everything);
        QCOMPARE(damage.parts.size(), std::size_t{2});
        QCOMPARE(damage.parts[0], Px(20, 20, 80, 30));
        QCOMPARE(damage.parts[1], Px(40, 20, 80, 30));
    }
};

OB_CORE_TEST(tst_cDesigner)
#include "tst_cDesigner.moc"
