// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface without a screen: presses, pulls, keys, undo.
#include "core/CoreBench.h"
#include "guibuilder/cDesigner.h"

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

using Button = cDesigner::MouseButton;
using Mode = cDesigner::PressMode;
using Kind = cDesigner::Request::Kind;

SurfacePoint At(int x, int y)
{
    return {static_cast<float>(x * 15), static_cast<float>(y * 15)};
}

SurfaceRect Px(int left, int top, int width, int height)
{
    return {static_cast<float>(left * 15), static_cast<float>(top * 15), static_cast<float>(width * 15),
            static_cast<float>(height * 15)};
}

} // namespace

class tst_cDesigner : public QObject {
    Q_OBJECT

    std::unique_ptr<CoreBench> bench;
    std::unique_ptr<cDesigner> designer;

    ControlRef Put(ControlKind kind, const SurfaceRect& rect)
    {
        const ControlRef ref = AddControl(GuiDesign().form, kind);
        SetRect(GuiDesign().form.At(ref), rect);
        GuiDesign().form.At(ref).visible = true;
        designer->Restart();
        return ref;
    }

    void Pull(SurfacePoint from, SurfacePoint to, Mode mode = Mode::Plain)
    {
        designer->Press(from, Button::Left, mode);
        designer->Drag({(from.x + to.x) / 2, (from.y + to.y) / 2});
        designer->Drag(to);
        designer->Release(to, Button::Left);
    }

    void Click(SurfacePoint point, Mode mode = Mode::Plain)
    {
        designer->Press(point, Button::Left, mode);
        designer->Release(point, Button::Left);
    }

    SurfaceRect Rect(ControlRef ref) const { return RectOf(GuiDesign().form.At(ref)); }

private Q_SLOTS:
    void init()
    {
        bench = std::make_unique<CoreBench>();
        designer = std::make_unique<cDesigner>(GuiDesign(), SurfaceScale());
    }

    void cleanup()
    {
        designer.reset();
        QVERIFY(bench->dialogs.Finished());
        bench.reset();
    }

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
