// SPDX-License-Identifier: GPL-3.0-or-later
// The icon bench: drawing with the mouse and the keys, menus and tools.
#include "imagetools/icons/IconBench.h"
#include "support/BenchTest.h"

#include "imagetools/icons/frmIconSwatch.h"
#include "shell/state/modColors.h"

#include <QMenu>
#include <QPaintEvent>
#include <QToolBar>

#include <algorithm>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// Records the parts of a widget that are painted.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(QWidget* widget) { widget->installEventFilter(this); }

    QRegion painted;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            painted += static_cast<const QPaintEvent*>(event)->region();
        return QObject::eventFilter(watched, event);
    }
};

// A menu item or button, and what it does to the icon.
using Operation = std::pair<const char*, Icon (*)(const Icon&)>;

} // namespace

class win_frmIcon : public IconBench {
    Q_OBJECT

private Q_SLOTS:
    void init() { Open(); }
    void cleanup() { Close(); }

    void titleAndCaptionsAreAsExpected()
    {
        QCOMPARE(window->windowTitle(), Text("Icon Bench"));
        for (const auto& [name, caption] : {std::pair{"op", "&Open or Extract Icon"},
                                            {"openBitmap", "Open &Bitmap"},
                                            {"sva", "&Save As"},
                                            {"runtimeicon", "&Runtime Icon"},
                                            {"flHor", "&Mirror"},
                                            {"Rotat", "&Rotate"},
                                            {"mnuPaint", "&Paint Pixel"},
                                            {"chCol", "Change &All"},
                                            {"hlp", "&Instructions"}})
            QCOMPARE(Item(name)->text(), Text(caption));
        QCOMPARE(Key("cmdIcon0")->text().remove(u'&'), Text("Next Icon"));
        QCOMPARE(Key("cmdIcon1")->text().remove(u'&'), Text("Previous Icon"));
        QCOMPARE(Key("cmdChoose")->text().remove(u'&'), Text("Choose this Icon."));
        QCOMPARE(Find<QWidget>("Picture5")->toolTip(), Text("Current color"));
        QCOMPARE(Find<QWidget>("Picture4")->toolTip(), Text("Transparent color"));
        for (int index = 0; index < 16; ++index)
            QCOMPARE(window->findChild<frmIconSwatch*>(u"Picture2_%1"_s.arg(index))->Color(),
                     SwatchColor[static_cast<std::size_t>(index)]);
    }

    void toolbarHasItsKeysInOrder()
    {
        QStringList keys;
        for (const QAction* button : Find<QToolBar>("Toolbar1")->actions())
            keys.append(button->isSeparator() ? Text("-") : button->objectName());
        QCOMPARE(keys.join(u' '), Text("open bmp save fill - paint change undo - rotate up down left right - runtime"));
        for (const QAction* button : Find<QToolBar>("Toolbar1")->actions())
            QVERIFY(button->isSeparator() || (!button->icon().isNull() && !button->toolTip().isEmpty()));
    }

    void startsEmptyWithThePaintToolAndBlack()
    {
        QVERIFY(Shown() == Icon());
        QVERIFY(Item("mnuPaint")->isChecked() && Item("paint")->isChecked() && !Item("change")->isChecked());
        QVERIFY(!Item("und")->isEnabled() && !Item("undo")->isEnabled() && !Item("runtime")->isEnabled());
        QVERIFY(Item("runtimeicon")->isEnabled());
        QVERIFY(!Key("cmdChoose")->isVisible() && !Picture()->isVisible());
        QCOMPARE(Grid()->cursor().shape(), Qt::CrossCursor);
        Click(0, 0);
        QCOMPARE(Pixel(0, 0), Black);
    }

    void aClickPaintsOnePixel()
    {
        Swatch(RedSwatch);
        Click(31, 7);
        Icon expected;
        expected.At(31, 7) = Red;
        QVERIFY(Shown() == expected);
        QVERIFY(Item("und")->isEnabled() && Item("undo")->isEnabled() && Item("runtime")->isEnabled());
    }

    void everyPixelOfACellBelongsToIt()
    {
        for (const QPoint place : {QPoint(51, 61), QPoint(59, 61), QPoint(51, 69), QPoint(59, 69)}) {
            QTest::mouseClick(Grid(), Qt::LeftButton, {}, place);
            Icon expected;
            expected.At(5, 6) = Black;
            QVERIFY(Shown() == expected);
            Choose("mnuNew");
        }
    }

    void aClickOnAGridLinePaintsNothing()
    {
        for (const QPoint place : {QPoint(50, 65), QPoint(55, 60), QPoint(0, 0), QPoint(320, 5), QPoint(5, 320)}) {
            Pull(Grid(), place, place);
            QVERIFY(Shown() == Icon());
            QVERIFY(!Item("und")->isEnabled());
        }
        // Nor does a drag that begins there.
        Drag({50, 65}, MiddleOf(20, 20));
        QVERIFY(Shown() == Icon());
    }

    void aFastDragLeavesNoPixelOut()
    {
        Drag(MiddleOf(0, 3), MiddleOf(31, 3));
        Drag(MiddleOf(31, 31), MiddleOf(0, 0));
        const Icon icon = Shown();
        for (int place = 0; place < IconSide; ++place) {
            QCOMPARE(icon.At(place, 3), Black);
            QCOMPARE(icon.At(place, place), Black);
        }
        QCOMPARE(std::ranges::count(icon.pixels, Black), 63);
    }

    void aDragMayLeaveTheGridAndComeBack()
    {
        QTest::mousePress(Grid(), Qt::LeftButton, {}, MiddleOf(28, 10));
        Move(Grid(), {3000, 105});
        QCOMPARE(Pixel(31, 10), Black);
        Move(Grid(), {3000, 205});
        Move(Grid(), MiddleOf(28, 20));
        QTest::mouseRelease(Grid(), Qt::LeftButton, {}, MiddleOf(28, 20));
        const Icon icon = Shown();
        for (int x = 28; x < IconSide; ++x)
            QVERIFY(icon.At(x, 10) == Black && icon.At(x, 20) == Black);
        QCOMPARE(std::ranges::count(icon.pixels, Black), 8);
        Move(Grid(), MiddleOf(5, 5));
        QVERIFY(Shown() == icon);
    }

    void aDragWhoseReleaseIsLostPaintsNoFurther()
    {
        Send(Grid(), QEvent::MouseButtonPress, MiddleOf(2, 2), Qt::LeftButton);
        Send(Grid(), QEvent::MouseMove, MiddleOf(9, 9), Qt::NoButton);
        Move(Grid(), MiddleOf(12, 12));
        QCOMPARE(std::ranges::count(Shown().pixels, Black), 1);
    }

    void theRightButtonTakesTheColorOfAPixel()
    {
        Swatch(RedSwatch);
        Click(4, 4);
        Swatch(BlueSwatch);
        Click(4, 4, Qt::RightButton);
        QVERIFY(Find<frmIconSwatch>("Picture2_12")->isChecked());
        Click(5, 5);
        QCOMPARE(Pixel(5, 5), Red);
        // A pixel without one of the sixteen colours gives none.
        Click(20, 20, Qt::RightButton);
        Click(6, 6);
        QCOMPARE(Pixel(6, 6), Red);
        QCOMPARE(Pixel(20, 20), TransparentColor);
    }

    void theTransparentSwatchErases()
    {
        Click(4, 4);
        QTest::mouseClick(Find<QWidget>("Picture4"), Qt::LeftButton);
        QCOMPARE(Find<QLabel>("lblCurrent")->text(), Text("Transparent"));
        Click(4, 4);
        QVERIFY(Shown() == Icon());
    }

    void changeAllChangesEveryPixelOfThatColor()
    {
        Click(4, 4);
        Click(9, 30);
        Swatch(RedSwatch);
        Click(1, 1);
        Item("change")->trigger();
        QVERIFY(Item("chCol")->isChecked() && Item("change")->isChecked() && !Item("paint")->isChecked());
        QCOMPARE(Grid()->cursor().shape(), Qt::UpArrowCursor);
        Swatch(BlueSwatch);
        Click(9, 30);
        Icon expected;
        expected.At(1, 1) = Red;
        expected.At(4, 4) = expected.At(9, 30) = Blue;
        QVERIFY(Shown() == expected);
        Click(0, 0);
        QCOMPARE(std::ranges::count(Shown().pixels, Blue), 32 * 32 - 1);
        Item("paint")->trigger();
        QVERIFY(Item("mnuPaint")->isChecked() && Item("paint")->isChecked() && !Item("change")->isChecked());
    }

    void aToolPressedTwiceStaysOn()
    {
        for (const char* tool : {"change", "change", "paint", "paint"}) {
            Item(tool)->trigger();
            QVERIFY(Item(tool)->isChecked());
        }
    }

    void changeAllOnTheCurrentColorOnlyKeepsTheUndoCopy()
    {
        Click(1, 1);
        Click(2, 2);
        const Icon icon = Shown();
        Choose("chCol");
        Click(2, 2);
        QVERIFY(Shown() == icon);
        Choose("und");
        QVERIFY(Shown() == icon);
    }

    void undoRevertsAWholeStrokeAndUpdatesTheView()
    {
        Click(1, 1);
        const Icon before = Shown();
        const QImage view = Grid()->grab().toImage();
        Drag(MiddleOf(3, 3), MiddleOf(30, 12));
        QVERIFY(Shown() != before);
        Item("undo")->trigger();
        QVERIFY(Shown() == before);
        QCOMPARE(Grid()->grab().toImage(), view);
        QVERIFY(!Item("und")->isEnabled());
    }

    void shiftsWrapAndThirtyTwoRestoreTheIcon()
    {
        const Icon icon = DrawSomething();
        for (const auto& [button, shift] :
             {Operation{"left", ShiftLeft}, {"right", ShiftRight}, {"up", ShiftUp}, {"down", ShiftDown}}) {
            Item(button)->trigger();
            QVERIFY(Shown() == shift(icon));
            for (int count = 1; count < 32; ++count)
                Item(button)->trigger();
            QVERIFY(Shown() == icon);
        }
    }

    void rotateMirrorAndFlipTwiceRestoreTheIcon()
    {
        const Icon icon = DrawSomething();
        for (const auto& [item, operation] :
             {Operation{"Rotat", Rotate}, {"rotate", Rotate}, {"flHor", Mirror}, {"flVer", Flip}}) {
            Choose(item);
            QVERIFY(Shown() == operation(icon));
            QVERIFY(Item("und")->isEnabled());
            Choose(item);
            QVERIFY(Shown() == icon);
        }
    }

    void newIconClears()
    {
        DrawSomething();
        Item("fill")->trigger();
        QVERIFY(Shown() == Icon());
        QVERIFY(!Item("und")->isEnabled() && !Item("undo")->isEnabled() && !Item("runtime")->isEnabled());
        QVERIFY(window->close());
    }

    // --- Keys. ---

    void theKeysDrawInTheGrid()
    {
        Grid()->setFocus(Qt::TabFocusReason);
        QTest::keyClick(Grid(), Qt::Key_Right);
        QTest::keyClick(Grid(), Qt::Key_Down);
        QTest::keyClick(Grid(), Qt::Key_Space);
        QCOMPARE(Pixel(1, 1), Black);
        // Held down it draws.
        QTest::keyPress(Grid(), Qt::Key_Space);
        QTest::keyClick(Grid(), Qt::Key_End);
        QTest::keyRelease(Grid(), Qt::Key_Space);
        QTest::keyClick(Grid(), Qt::Key_PageDown);
        QTest::keyClick(Grid(), Qt::Key_Home);
        QCOMPARE(std::ranges::count(Shown().pixels, Black), 31);
        Choose("und");
        QCOMPARE(std::ranges::count(Shown().pixels, Black), 1);
        // Enter takes the colour, and closes nothing.
        Swatch(RedSwatch);
        Grid()->setFocus();
        QTest::keyClick(Grid(), Qt::Key_PageUp);
        QTest::keyClick(Grid(), Qt::Key_Down);
        QTest::keyClick(Grid(), Qt::Key_Right);
        QTest::keyClick(Grid(), Qt::Key_Return);
        QVERIFY(Find<frmIconSwatch>("Picture2_0")->isChecked());
        QVERIFY(window->isVisible());
    }

    void swatchesAreChosenWithTheArrows()
    {
        QTest::keyClick(Grid(), Qt::Key_Tab);
        QCOMPARE(window->focusWidget(), Find<QWidget>("Picture2_0"));
        QTest::keyClick(window->focusWidget(), Qt::Key_Right);
        QTest::keyClick(window->focusWidget(), Qt::Key_Down);
        QCOMPARE(window->focusWidget(), Find<QWidget>("Picture2_9"));
        Click(0, 0);
        QCOMPARE(Pixel(0, 0), Blue);
    }

    void everyFocusableControlHasAName()
    {
        for (QWidget* control : window->findChildren<QWidget*>()) {
            const auto* button = qobject_cast<QAbstractButton*>(control);
            if (control->focusPolicy() & Qt::TabFocus && !(button != nullptr && !button->text().isEmpty()))
                QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
        }
        QVERIFY(!Grid()->accessibleName().isEmpty() && !Picture()->accessibleName().isEmpty());
    }

    void noTwoMenuItemsShareAKey()
    {
        QStringList keys;
        for (const QMenu* menu : window->findChildren<QMenu*>()) {
            QStringList letters;
            for (const QAction* item : menu->actions()) {
                letters.append(QKeySequence::mnemonic(item->text()).toString());
                keys.append(item->shortcut().toString());
            }
            letters.removeAll(QString());
            QCOMPARE(letters.removeDuplicates(), 0);
        }
        keys.removeAll(QString());
        QVERIFY(keys.size() > 10);
        QCOMPARE(keys.removeDuplicates(), 0);
    }

    // --- Painting. ---

    void theGridIsCrispAtEveryScale_data()
    {
        QTest::addColumn<double>("scale");
        for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 2.5, 3.0})
            QTest::addRow("%g", scale) << scale;
    }
    void theGridIsCrispAtEveryScale()
    {
        QFETCH(const double, scale);
        DrawSomething();
        const Icon icon = Shown();
        const int side = qCeil(GridSide * scale);
        QImage image(side, side, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        Grid()->render(&image);
        const QRgb line = qRgb(64, 64, 0);
        for (int y = 0; y < IconSide; ++y) {
            for (int x = 0; x < IconSide; ++x) {
                const QColor color = ColorOf(icon.At(x, y));
                // A cell has only its own colour except at its edge, and each cell has its line before it.
                const int left = qRound(x * 10 * scale);
                const int top = qRound(y * 10 * scale);
                const int width = qRound((x + 1) * 10 * scale) - left;
                const int height = qRound((y + 1) * 10 * scale) - top;
                const int thick = static_cast<int>(scale);
                for (int row = 0; row < height; ++row)
                    for (int column = 0; column < width; ++column) {
                        const bool onLine = row < thick || column < thick;
                        QCOMPARE(image.pixel(left + column, top + row), onLine ? line : color.rgb());
                    }
            }
        }
        QCOMPARE(image.pixel(qRound(320 * scale), qRound(320 * scale)), line);
    }

    void onlyWhatChangesIsRepainted()
    {
        QApplication::processEvents();
        PaintWatch watch(Grid());
        Click(10, 20);
        QApplication::processEvents();
        QCOMPARE(watch.painted.boundingRect(), QRect(100, 200, 11, 11));
    }

    // --- In the bench. ---

    void theMenuItemShowsOneWindow()
    {
        window.reset();
        bench->Start();
        bench->Choose(Text("mnuToolIcon"));
        bench->Choose(Text("mnuToolIcon"));
        const auto open = bench->Frame().findChildren<frmIcon*>();
        QCOMPARE(open.size(), 1);
        QVERIFY(open.first()->isVisible() && !open.first()->isModal());
        open.first()->findChild<QAction*>(Text("mnuExit"))->trigger();
        QTRY_VERIFY(bench->Frame().findChildren<frmIcon*>().isEmpty());
        QVERIFY(bench->Close());
    }

    void theMainWindowDoesNotCloseOverAnUnsavedIcon()
    {
        window.reset();
        bench->Start();
        bench->Choose(Text("mnuToolIcon"));
        QVERIFY(bench->Frame().isVisible());
        auto* open = bench->Frame().findChild<frmIcon*>();
        QTest::mouseClick(open->findChild<QWidget*>(Text("Picture3")), Qt::LeftButton, {}, MiddleOf(3, 3));
        ExpectSaveQuestion(BoxAnswer::Cancel);
        QVERIFY(!bench->Close());
        QVERIFY(bench->Frame().isVisible() && open->isVisible());
        ExpectSaveQuestion(BoxAnswer::No);
        QVERIFY(bench->Close());
        // The end of the program closes what is left, without asking again.
        QVERIFY(open->close());
    }

    void aboutAndInstructionsOpen()
    {
        window.reset();
        bench->Start();
        bench->Choose(Text("mnuToolIcon"));
        auto* open = bench->Frame().findChild<frmIcon*>();
        bench->ExpectModal(Text("dlgAbout"), [](QDialog& dialog) { dialog.reject(); });
        open->findChild<QAction*>(Text("abo"))->trigger();
        open->findChild<QAction*>(Text("hlp"))->trigger();
        QWidget* manual = nullptr;
        for (QWidget* top : QApplication::topLevelWidgets())
            if (top->objectName() == Text("frmHelp") && top->isVisible())
                manual = top;
        QVERIFY(manual != nullptr);
        manual->close();
        open->close();
    }
};

OB_BENCH_TEST(win_frmIcon)
#include "win_frmIcon.moc"
