// SPDX-License-Identifier: GPL-3.0-or-later
// The arithmetic of the drawing surface.
#include "guibuilder/modDesigner.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

Q_DECLARE_METATYPE(ob::ControlKind)

namespace {

constexpr SurfaceScale Scale;

// Pixels of a screen with 96 dots per inch.
SurfaceRect Px(int left, int top, int width, int height)
{
    return {static_cast<float>(left * 15), static_cast<float>(top * 15), static_cast<float>(width * 15),
            static_cast<float>(height * 15)};
}

SurfacePoint At(int x, int y)
{
    return {static_cast<float>(x * 15), static_cast<float>(y * 15)};
}

ControlRef Put(GuiForm& form, ControlKind kind, const SurfaceRect& rect)
{
    const ControlRef ref = AddControl(form, kind);
    SetRect(form.At(ref), rect);
    form.At(ref).visible = true;
    return ref;
}

} // namespace

class tst_modDesigner : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSnapRoundsDownToFivePixels_data()
    {
        QTest::addColumn<float>("twips");
        QTest::addColumn<float>("snapped");
        QTest::newRow("on it") << 150.0F << 150.0F;
        QTest::newRow("just below the next") << 224.9F << 150.0F;
        QTest::newRow("zero") << 0.0F << 0.0F;
        QTest::newRow("below zero") << -1.0F << -75.0F;
        QTest::newRow("far below zero") << -151.0F << -225.0F;
    }

    void theSnapRoundsDownToFivePixels()
    {
        QFETCH(float, twips);
        QFETCH(float, snapped);
        QCOMPARE(SnapDown(twips, 15), snapped);
    }

    void aPullOfFivePixelsInEitherDirectionIsADrag()
    {
        QVERIFY(!LeftAnchor(At(10, 10), At(14, 6), Scale));
        QVERIFY(LeftAnchor(At(10, 10), At(15, 10), Scale));
        QVERIFY(LeftAnchor(At(10, 10), At(10, 5), Scale));
    }

    void aClickPlacesTheKindsSize_data()
    {
        QTest::addColumn<ControlKind>("kind");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("branch");
        const auto row = [](const char* name, ControlKind kind, int width, int height, const char* caption,
                            const char* branch = "") {
            QTest::newRow(name) << kind << width << height << QString::fromLatin1(caption)
                                << QString::fromLatin1(branch);
        };
        row("button", ControlKind::Button, 80, 30, "Button  1");
        row("bmpbutton", ControlKind::Bmpbutton, 30, 30, "bmpbttn");
        row("statictext", ControlKind::Statictext, 80, 30, "StaticText 1");
        row("groupbox", ControlKind::Groupbox, 80, 80, "GroupBox 1");
        row("textbox", ControlKind::Textbox, 80, 30, "TextBox 1");
        row("texteditor", ControlKind::Texteditor, 80, 80, "TextEditor 1");
        row("checkbox", ControlKind::Checkbox, 80, 30, "CheckBox  1");
        row("radiobutton", ControlKind::Radiobutton, 80, 30, "RadioButton  1");
        row("listbox", ControlKind::Listbox, 80, 80, "ListBox 1");
        row("combobox", ControlKind::Combobox, 80, 30, "");
        row("graphicbox", ControlKind::Graphicbox, 50, 50, "", "N/A");
    }

    void aClickPlacesTheKindsSize()
    {
        QFETCH(ControlKind, kind);
        QFETCH(int, width);
        QFETCH(int, height);
        GuiForm form;
        const ControlRef ref = PlaceControl(form, kind, At(20, 30), At(23, 28), Drawn::Clicked, Scale);
        QCOMPARE(ref.index, 1);
        const ControlRecord& control = form.At(ref);
        QVERIFY(control.visible);
        QCOMPARE(RectOf(control), Px(20, 28, width, height));
        QTEST(control.caption, "caption");
        QTEST(control.branch, "branch");
        QVERIFY(control.tag.isEmpty());
        QCOMPARE(form.order.back(), ref);
    }

    void aDrawnControlHasItsDrawnSizeHoweverSmall()
    {
        GuiForm form;
        const ControlRef ref =
            PlaceControl(form, ControlKind::Graphicbox, At(50, 60), At(44, 58), Drawn::Dragged, Scale);
        QCOMPARE(RectOf(form.At(ref)), Px(44, 58, 6, 2));
    }

    void aDrawnComboboxKeepsItsHeight()
    {
        GuiForm form;
        const ControlRef ref = PlaceControl(form, ControlKind::Combobox, At(0, 0), At(120, 200), Drawn::Dragged, Scale);
        QCOMPARE(RectOf(form.At(ref)), Px(0, 0, 120, 30));
    }

    void theNumberInACaptionIsTheIndexEvenAfterDeletions()
    {
        GuiForm form;
        const ControlRef first = PlaceControl(form, ControlKind::Button, At(0, 0), At(0, 0), Drawn::Clicked, Scale);
        DeleteControls(form, {first});
        const ControlRef second = PlaceControl(form, ControlKind::Button, At(0, 0), At(0, 0), Drawn::Clicked, Scale);
        QCOMPARE(second.index, 2);
        QCOMPARE(form.At(second).caption, u"Button  2"_s);
    }

    void aMoveKeepsTheGripUnderThePointerAndSnaps()
    {
        QCOMPARE(MovedTo(At(63, 47), At(10, 10), Scale), At(50, 35));
        QCOMPARE(MovedTo(At(3, 4), At(5, 5), Scale), At(-5, -5));
    }

    void theHandlesAreOutsideTheCorners()
    {
        const HandlePlaces handles = HandlesOf(Px(20, 30, 80, 40));
        QCOMPARE(handles.lower, At(100, 70));
        QCOMPARE(handles.upper, (SurfacePoint{20 * 15 - 135, 30 * 15 - 135}));
        QCOMPARE(HandleRect(handles.lower), (SurfaceRect{1500, 1050, 135, 135}));
    }

    void theLowerHandleResizesOnTheSnap()
    {
        const SurfaceRect control = Px(20, 30, 80, 40);
        HandlePlaces handles = HandlesOf(control);
        handles.lower = At(148, 117);
        QCOMPARE(ResizedBy(Handle::Lower, handles, ControlKind::Button, control, Scale), Px(20, 30, 125, 85));
        QCOMPARE(ResizedBy(Handle::Lower, handles, ControlKind::Combobox, control, Scale), Px(20, 30, 125, 40));
    }

    void theUpperHandleKeepsTheLowerRightCorner()
    {
        const SurfaceRect control = Px(20, 30, 80, 40);
        HandlePlaces handles = HandlesOf(control);
        handles.upper.x -= 12 * 15;
        handles.upper.y += 7 * 15;
        // 92 and 33 pixels remain, snapped down.
        QCOMPARE(ResizedBy(Handle::Upper, handles, ControlKind::Button, control, Scale), Px(10, 40, 90, 30));
        QCOMPARE(ResizedBy(Handle::Upper, handles, ControlKind::Combobox, control, Scale), Px(10, 30, 90, 40));
    }

    void aSideUnderAHandleIsNinePixelsAtLeastBeforeTheSnap()
    {
        const SurfaceRect control = Px(20, 30, 80, 40);
        HandlePlaces handles = HandlesOf(control);
        handles.lower = At(21, 31);
        QCOMPARE(ResizedBy(Handle::Lower, handles, ControlKind::Button, control, Scale), Px(20, 30, 5, 5));
    }

    void handlesThatPassedEachOtherResizeNothing()
    {
        const SurfaceRect control = Px(20, 30, 80, 40);
        HandlePlaces handles = HandlesOf(control);
        handles.lower.x = handles.upper.x - 135;
        QCOMPARE(ResizedBy(Handle::Lower, handles, ControlKind::Button, control, Scale), std::nullopt);
        handles.lower.x += 1;
        QVERIFY(ResizedBy(Handle::Lower, handles, ControlKind::Button, control, Scale).has_value());
        handles.lower.y = handles.upper.y - 135;
        QCOMPARE(ResizedBy(Handle::Lower, handles, ControlKind::Button, control, Scale), std::nullopt);
    }

    void statusTextsShowPixelsWithALeadingSpace()
    {
        QCOMPARE(PlaceText(Px(40, -5, 0, 0), Scale), u"X -  40    Y - -5"_s);
        QCOMPARE(SizeText(Px(0, 0, 80, 30), Scale), u"Width:   80        Height:   30"_s);
    }

    void theFrontControlTakesThePress()
    {
        GuiForm form;
        const ControlRef under = Put(form, ControlKind::Button, Px(0, 0, 50, 50));
        const ControlRef over = Put(form, ControlKind::Listbox, Px(20, 20, 50, 50));
        QCOMPARE(ControlAt(form, At(30, 30)), over);
        BringToFront(form, under);
        QCOMPARE(ControlAt(form, At(30, 30)), under);
        DeleteControls(form, {under});
        QCOMPARE(ControlAt(form, At(30, 30)), over);
        QCOMPARE(ControlAt(form, At(5, 5)), std::nullopt);
        QCOMPARE(ControlAt(form, At(70, 30)), std::nullopt);
    }

    void aGroupboxIsBehindTheControlsInIt()
    {
        GuiForm form;
        const ControlRef inside = Put(form, ControlKind::Radiobutton, Px(10, 10, 50, 20));
        const ControlRef box = Put(form, ControlKind::Groupbox, Px(0, 0, 100, 100));
        QCOMPARE(ControlAt(form, At(15, 15)), inside);
        QCOMPARE(ControlAt(form, At(80, 80)), box);
        QCOMPARE(PaintOrder(form), (std::vector{box, inside}));
    }

    void aBandTouchesWhatItMeets()
    {
        GuiForm form;
        const ControlRef one = Put(form, ControlKind::Button, Px(0, 0, 50, 20));
        Put(form, ControlKind::Button, Px(0, 100, 50, 20));
        QCOMPARE(ControlsIn(form, Px(40, 10, 20, 20)), std::vector{one});
        QCOMPARE(ControlsIn(form, Px(50, 0, 20, 20)), std::vector<ControlRef>{});
    }

    void aControlBeyondAnEdgeComesBackByWholeSnaps()
    {
        const SurfaceRect surface = Px(0, 0, 400, 300);
        QCOMPARE(StepOnto(surface, Px(10, 10, 80, 30), Scale), At(0, 0));
        QCOMPARE(StepOnto(surface, Px(392, 292, 80, 30), Scale), At(0, 0));
        QCOMPARE(StepOnto(surface, Px(393, 10, 80, 30), Scale), At(-5, 0));
        QCOMPARE(StepOnto(surface, Px(-72, -22, 80, 30), Scale), At(0, 0));
        QCOMPARE(StepOnto(surface, Px(-75, -100, 80, 30), Scale), At(5, 80));
        QCOMPARE(StepOnto(surface, Px(398, 10, 3, 3), Scale), At(-5, 0));
        QCOMPARE(StepOnto(SurfaceRect{}, Px(5000, 10, 80, 30), Scale), At(0, 0));
    }

    void controlsAlignWithTheFirst_data()
    {
        QTest::addColumn<int>("alignment");
        QTest::addColumn<int>("left");
        QTest::addColumn<int>("top");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        const auto row = [](const char* name, Alignment alignment, int left, int top, int width, int height) {
            QTest::newRow(name) << static_cast<int>(alignment) << left << top << width << height;
        };
        row("left", Alignment::Left, 20, 100, 60, 20);
        row("top", Alignment::Top, 200, 30, 60, 20);
        row("right", Alignment::Right, 40, 100, 60, 20);
        row("bottom", Alignment::Bottom, 200, 50, 60, 20);
        row("width", Alignment::SameWidth, 200, 100, 80, 20);
        row("height", Alignment::SameHeight, 200, 100, 60, 40);
    }

    void controlsAlignWithTheFirst()
    {
        QFETCH(int, alignment);
        QFETCH(int, left);
        QFETCH(int, top);
        QFETCH(int, width);
        QFETCH(int, height);
        GuiForm form;
        const ControlRef model = Put(form, ControlKind::Button, Px(20, 30, 80, 40));
        const ControlRef other = Put(form, ControlKind::Textbox, Px(200, 100, 60, 20));
        AlignControls(form, {model, other}, static_cast<Alignment>(alignment));
        QCOMPARE(RectOf(form.At(model)), Px(20, 30, 80, 40));
        QCOMPARE(RectOf(form.At(other)), Px(left, top, width, height));
    }

    void aComboboxKeepsItsHeightInEveryWay()
    {
        GuiForm form;
        const ControlRef model = Put(form, ControlKind::Listbox, Px(0, 0, 80, 80));
        const ControlRef combobox = Put(form, ControlKind::Combobox, Px(0, 100, 80, 30));
        AlignControls(form, {model, combobox}, Alignment::SameHeight);
        GrowControls(form, {combobox}, 75, 75, Scale);
        QCOMPARE(RectOf(form.At(combobox)), Px(0, 100, 85, 30));
    }

    void controlsShrinkToOneSnapAndNoFurther()
    {
        GuiForm form;
        const ControlRef button = Put(form, ControlKind::Button, Px(0, 0, 10, 30));
        GrowControls(form, {button}, -75, 0, Scale);
        QCOMPARE(RectOf(form.At(button)), Px(0, 0, 5, 30));
        GrowControls(form, {button}, -75, -75, Scale);
        QCOMPARE(RectOf(form.At(button)), Px(0, 0, 5, 25));
    }

    void pastedControlsHaveFreshNamesAndBranches()
    {
        GuiForm form;
        const ControlRef button = Put(form, ControlKind::Button, Px(0, 0, 80, 30));
        form.At(button).tag = u"go *Starts it"_s;
        form.At(button).branch = u"[start]"_s;
        form.At(button).caption = u"&Go"_s;
        // The name that a second button would get is taken by another control.
        const ControlRef label = Put(form, ControlKind::Statictext, Px(0, 0, 80, 30));
        form.At(label).tag = u"button2"_s;
        const auto pasted = PasteControls(form, CopyControls(form, {button, label}), Scale);
        QCOMPARE(pasted, (std::vector<ControlRef>{{ControlKind::Button, 2}, {ControlKind::Statictext, 2}}));
        const ControlRecord& copy = form.At(pasted[0]);
        QCOMPARE(copy.tag, u"button3 *Starts it"_s);
        QCOMPARE(copy.branch, u"button3.click"_s);
        QCOMPARE(copy.caption, u"&Go"_s);
        QCOMPARE(RectOf(copy), Px(10, 10, 80, 30));
        QCOMPARE(form.At(pasted[1]).tag, u"statictext2"_s);
        // In a form that has no such name the copies keep theirs.
        GuiForm other;
        const auto there = PasteControls(other, CopyControls(form, {button}), Scale);
        QCOMPARE(other.At(there[0]).tag, u"go *Starts it"_s);
        QCOMPARE(other.At(there[0]).branch, u"[start]"_s);
        QCOMPARE(form.At(pasted[1]).branch, QString());
    }

    void captionsThatWereNeverChangedFollowTheCopysNumber()
    {
        GuiForm form;
        for (const KindTraits& traits : KindTable) {
            const ControlRef first = Put(form, traits.kind, Px(0, 0, 80, 30));
            form.At(first).caption = NewCaption(traits.kind, first.index);
            const auto pasted = PasteControls(form, CopyControls(form, {first}), Scale);
            QCOMPARE(form.At(pasted[0]).caption, NewCaption(traits.kind, 2));
        }
        const ControlRef button{ControlKind::Button, 1};
        for (const char* own : {"Button", "Button  1a", "Button  ", "OK"}) {
            form.At(button).caption = QString::fromLatin1(own);
            const auto pasted = PasteControls(form, CopyControls(form, {button}), Scale);
            QCOMPARE(form.At(pasted[0]).caption, QString::fromLatin1(own));
        }
    }

    void aCopiedGraphicboxKeepsItsFillAndItsBranchText()
    {
        GuiForm form;
        const ControlRef box = Put(form, ControlKind::Graphicbox, Px(0, 0, 80, 30));
        form.At(box).backColor = Rgb(255, 0, 0);
        form.At(box).branch = u"N/A"_s;
        const auto pasted = PasteControls(form, CopyControls(form, {box}), Scale);
        QCOMPARE(form.At(pasted[0]).backColor, Rgb(255, 0, 0));
        QCOMPARE(form.At(pasted[0]).branch, u"N/A"_s);
    }
};

QTEST_APPLESS_MAIN(tst_modDesigner)
#include "tst_modDesigner.moc"
