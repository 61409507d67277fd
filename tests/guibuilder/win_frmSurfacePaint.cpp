// SPDX-License-Identifier: GPL-3.0-or-later
// The painter of the drawing surface: which parts of a control are painted where, in which colours, at any scale of the
// screen.
#include "support/BenchTest.h"

#include "guibuilder/SurfacePicture.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QPalette>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

void AddKinds()
{
    QTest::addColumn<int>("kind");
    for (const KindTraits& traits : KindTable)
        QTest::newRow(std::string(traits.keyword).c_str()) << static_cast<int>(traits.kind);
}

ControlKind KindOfRow()
{
    QFETCH(int, kind);
    return static_cast<ControlKind>(kind);
}

} // namespace

class win_frmSurfacePaint : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void placesAreTruncatedToWholePixels();
    void hugeAndInvalidPlacesAreLimited();
    void controlIsPaintedInItsPlace_data() { AddKinds(); }
    void controlIsPaintedInItsPlace();
    void hiddenControlPaintsNothing_data() { AddKinds(); }
    void hiddenControlPaintsNothing();
    void nothingIsPaintedOutsideThePaintedRect_data() { AddKinds(); }
    void nothingIsPaintedOutsideThePaintedRect();
    void hostileControlsArePaintedAtOnce_data() { AddKinds(); }
    void hostileControlsArePaintedAtOnce();
    void painterIsRestored_data() { AddKinds(); }
    void painterIsRestored();
    void fieldsHaveTheFormsColors();
    void buttonFaceDoesNotFollowTheBenchsPalette();
    void captionHasTheForegroundColor();
    void comboboxHasItsArrowAtTheRightEdge();
    void comboboxShowsItsIndex();
    void comboboxTextBeginsAtTheFieldsCorner();
    void checkAndRadioMarksAreAtTheLeft();
    void texteditorHasTwoScrollBarsAndListboxOne();
    void groupboxLeavesItsInsideUnpainted();
    void groupboxFrameHasAGapForTheCaption();
    void pictureIsCentredAndNotScaled();
    void pictureLargerThanItsButtonIsClipped();
    void buttonWithoutItsPictureShowsAText();
    void graphicboxHasItsOwnFillAndAThinFrame();
    void fieldsShowAmpersandsUnchanged();
};

void win_frmSurfacePaint::placesAreTruncatedToWholePixels()
{
    ControlRecord control;
    control.left = 149.9F;
    control.top = -1;
    control.width = 1200;
    control.height = 44.5F;
    QCOMPARE(PixelRect(control, {15, 15}), QRect(9, -1, 80, 2));
    QCOMPARE(PixelRect(control, {10, 20}), QRect(14, -1, 120, 2));
}

void win_frmSurfacePaint::hugeAndInvalidPlacesAreLimited()
{
    ControlRecord control;
    control.left = -1e30F;
    control.top = std::numeric_limits<float>::infinity();
    control.width = 1e30F;
    control.height = -500;
    const QRect rect = PixelRect(control, {15, 15});
    QVERIFY(rect.x() <= -20000 && rect.x() >= -32768);
    QVERIFY(rect.y() >= 20000 && rect.y() <= 32767);
    QVERIFY(rect.width() >= 20000 && rect.width() <= 32767);
    QCOMPARE(rect.height(), 0);
    control.left = std::numeric_limits<float>::quiet_NaN();
    QCOMPARE(PixelRect(control, {15, 15}).x(), 0);
    QCOMPARE(PixelRect(control, {0, -3}).x(), 0);
}

void win_frmSurfacePaint::controlIsPaintedInItsPlace()
{
    GuiForm form;
    const QRect place(20, 30, 60, 40);
    const ControlRef ref = Put(form, KindOfRow(), place);
    QCOMPARE(Painted(form, ref).Touched(), place);
    QCOMPARE(Painted(form, ref, 2).Touched(), QRect(40, 60, 120, 80));
}

void win_frmSurfacePaint::hiddenControlPaintsNothing()
{
    GuiForm form;
    const ControlRef ref = Put(form, KindOfRow(), {20, 30, 60, 40});
    form.At(ref).visible = false;
    QVERIFY(Painted(form, ref).Touched().isEmpty());
    QVERIFY(PaintedRect(form, ref, PictureScale).isEmpty());
}

void win_frmSurfacePaint::nothingIsPaintedOutsideThePaintedRect()
{
    GuiForm form;
    form.GuiFontSize = u"24"_s;
    const ControlRef ref = Put(form, KindOfRow(), {});
    form.At(ref).caption = u"&Words that are far too long for so small a place jjjj"_s;
    for (const QRect& place : {QRect(41, 33, 80, 30), QRect(41, 33, 30, 7), QRect(41, 33, 3, 60), QRect(41, 33, 1, 1),
                               QRect(41, 33, 12, 12), QRect(41, 33, 0, 20), QRect(41, 33, 20, 0)}) {
        Place(form.At(ref), place);
        const QRect painted = PaintedRect(form, ref, PictureScale);
        for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0, 3.0}) {
            const QRect touched = Painted(form, ref, scale).Touched();
            const QRectF allowed(painted.x() * scale, painted.y() * scale, painted.width() * scale,
                                 painted.height() * scale);
            QVERIFY2(touched.isEmpty() || allowed.contains(QRectF(touched)), qPrintable(QString::number(scale)));
        }
    }
}

void win_frmSurfacePaint::hostileControlsArePaintedAtOnce()
{
    constexpr int mostMilliseconds = 2000; // for a few milliseconds of work, however busy the machine
    GuiForm form;
    const ControlRef ref = Put(form, KindOfRow(), {20, 30, 60, 40});
    ControlRecord& control = form.At(ref);
    QElapsedTimer timer;
    timer.start();
    for (const float measure : {1e30F, -1e30F, std::numeric_limits<float>::infinity(), 449999.5F, 0.5F, -20.0F})
        for (const double scale : {1.0, 2.0}) {
            control.left = control.top = -measure / 2;
            control.width = control.height = measure;
            Painted(form, ref, scale);
        }
    control.caption = QString(1000000, u'W') + QString(1000, u'\n') + QString(100000, u'&');
    Place(control, {0, 0, 150, 100});
    Painted(form, ref);
    form.GuiFontSize = u"99999999999"_s;
    Painted(form, ref);
    QVERIFY2(timer.elapsed() < mostMilliseconds, qPrintable(QString::number(timer.elapsed())));
}

void win_frmSurfacePaint::painterIsRestored()
{
    GuiForm form;
    const ControlRef ref = Put(form, KindOfRow(), {20, 30, 40, 20});
    for (const double scale : {1.0, 1.5}) {
        SurfacePicture picture(scale);
        QPainter painter(&picture.image);
        painter.setPen(Qt::red);
        painter.setBrush(Qt::green);
        painter.translate(3, 4);
        const QTransform before = painter.worldTransform();
        PaintControl(painter, SurfaceStyle(form, PictureScale), form, ref);
        QCOMPARE(painter.worldTransform(), before);
        QCOMPARE(painter.pen().color(), QColor(Qt::red));
        QCOMPARE(painter.brush().color(), QColor(Qt::green));
        QVERIFY(!painter.hasClipping());
    }
}

void win_frmSurfacePaint::fieldsHaveTheFormsColors()
{
    GuiForm form;
    form.GuiBackgroundColor = u"Darkblue"_s;
    form.GuiTextboxColor = u"Yellow"_s;
    form.GuiTexteditorColor = u"Cyan"_s;
    form.GuiListboxColor = u"Green"_s;
    form.GuiComboboxColor = u"Pink"_s;
    const auto middle = [&](ControlKind kind) {
        const ControlRef ref = Put(form, kind, {10, 10, 120, 80});
        form.At(ref).caption.clear();
        return Painted(form, ref).At(70, 50);
    };
    QCOMPARE(middle(ControlKind::Textbox), QColor(255, 255, 0));
    QCOMPARE(middle(ControlKind::Texteditor), QColor(0, 255, 255));
    QCOMPARE(middle(ControlKind::Listbox), QColor(0, 255, 0));
    QCOMPARE(middle(ControlKind::Combobox), QColor(255, 0, 255));
    QCOMPARE(middle(ControlKind::Statictext), QColor(0, 0, 128));
    QCOMPARE(middle(ControlKind::Checkbox), QColor(0, 0, 128));
    QCOMPARE(middle(ControlKind::Radiobutton), QColor(0, 0, 128));
    QCOMPARE(middle(ControlKind::Button), QColor(240, 240, 240));
    QCOMPARE(middle(ControlKind::Bmpbutton), QColor(240, 240, 240));
}

void win_frmSurfacePaint::buttonFaceDoesNotFollowTheBenchsPalette()
{
    const QPalette before = QApplication::palette();
    QApplication::setPalette(QPalette(Qt::black, Qt::black));
    GuiForm form;
    const SurfacePicture picture = Painted(form, Put(form, ControlKind::Button, {10, 10, 120, 80}));
    QApplication::setPalette(before);
    QCOMPARE(SurfaceStyle(form, PictureScale).surface, QColor(240, 240, 240));
    QCOMPARE(picture.At(20, 20), QColor(240, 240, 240));
}

void win_frmSurfacePaint::captionHasTheForegroundColor()
{
    GuiForm form;
    form.GuiFontSize = u"40"_s; // thick strokes have pixels that are pure ink
    form.GuiForegroundColor = u"Red"_s;
    const auto ink = [&](ControlKind kind) {
        const ControlRef ref = Put(form, kind, {10, 10, 150, 100});
        form.At(ref).caption = u"HHH"_s;
        return !Painted(form, ref).WhereIs(QColor(255, 0, 0)).isEmpty();
    };
    for (const ControlKind kind :
         {ControlKind::Statictext, ControlKind::Groupbox, ControlKind::Textbox, ControlKind::Texteditor,
          ControlKind::Checkbox, ControlKind::Radiobutton, ControlKind::Listbox, ControlKind::Combobox})
        QVERIFY2(ink(kind), std::string(TraitsOf(kind).keyword).c_str());
    // Buttons have the system colours, as in the program.
    QVERIFY(!ink(ControlKind::Button));
}

void win_frmSurfacePaint::comboboxHasItsArrowAtTheRightEdge()
{
    GuiForm form;
    form.GuiForegroundColor = u"White"_s; // so that only the arrow is black
    const ControlRef ref = Put(form, ControlKind::Combobox, {10, 10, 120, 30});
    const QRect arrow = Painted(form, ref).WhereIs(Qt::black);
    QCOMPARE(arrow.size(), QSize(7, 4));
    QVERIFY(arrow.left() > 129 - 20);
    QVERIFY(arrow.right() < 129 - 2);
    QCOMPARE(arrow.center().y(), 24);
    QCOMPARE(Painted(form, ref, 2).WhereIs(Qt::black).size(), QSize(15, 8));
}

void win_frmSurfacePaint::comboboxShowsItsIndex()
{
    GuiForm form;
    const ControlRef first = Put(form, ControlKind::Combobox, {10, 10, 150, 30});
    const ControlRef second = Put(form, ControlKind::Combobox, {10, 10, 150, 30});
    form.At(second).caption = u"what a file has there"_s;
    const QImage one = Painted(form, first).image;
    QVERIFY(one != Painted(form, second).image);
    // The text is that of the kind and the index, not the caption.
    form.At(second).caption.clear();
    const QImage two = Painted(form, second).image;
    form.At(second).caption = u"other"_s;
    QCOMPARE(Painted(form, second).image, two);
}

void win_frmSurfacePaint::comboboxTextBeginsAtTheFieldsCorner()
{
    GuiForm form;
    form.GuiFontSize = u"30"_s;
    form.GuiComboboxColor = u"Yellow"_s;
    form.GuiForegroundColor = u"Red"_s;
    const ControlRef ref = Put(form, ControlKind::Combobox, {10, 10, 180, 100});
    const QRect ink = Painted(form, ref).WhereIs(QColor(255, 0, 0));
    QVERIFY(ink.left() >= 12 && ink.left() <= 17);
    QVERIFY(ink.top() >= 12 && ink.top() <= 25);
}

void win_frmSurfacePaint::checkAndRadioMarksAreAtTheLeft()
{
    GuiForm form;
    form.GuiBackgroundColor = u"Darkred"_s;
    for (const ControlKind kind : {ControlKind::Checkbox, ControlKind::Radiobutton}) {
        const ControlRef ref = Put(form, kind, {10, 10, 120, 30});
        form.At(ref).caption.clear();
        const SurfacePicture picture = Painted(form, ref);
        QCOMPARE(picture.At(16, 24), QColor(Qt::white));
        QCOMPARE(picture.At(24, 24), QColor(128, 0, 0));
        QCOMPARE(picture.At(16, 16), QColor(128, 0, 0));
        QCOMPARE(picture.At(16, 33), QColor(128, 0, 0));
    }
}

void win_frmSurfacePaint::texteditorHasTwoScrollBarsAndListboxOne()
{
    GuiForm form;
    form.GuiTexteditorColor = form.GuiListboxColor = u"Red"_s;
    const QColor field(255, 0, 0);
    const QRect place(10, 10, 150, 120);
    QCOMPARE(Painted(form, Put(form, ControlKind::Texteditor, place)).WhereIs(field), QRect(12, 12, 129, 99));
    QCOMPARE(Painted(form, Put(form, ControlKind::Listbox, place)).WhereIs(field), QRect(12, 12, 129, 116));
    form.GuiTextboxColor = u"Red"_s;
    QCOMPARE(Painted(form, Put(form, ControlKind::Textbox, place)).WhereIs(field), QRect(12, 12, 146, 116));
}

void win_frmSurfacePaint::groupboxLeavesItsInsideUnpainted()
{
    GuiForm form;
    const SurfacePicture picture = Painted(form, Put(form, ControlKind::Groupbox, {10, 10, 120, 100}));
    for (int y = 30; y < 105; ++y)
        for (int x = 14; x < 125; ++x)
            QCOMPARE(picture.At(x, y), Blank);
}

void win_frmSurfacePaint::groupboxFrameHasAGapForTheCaption()
{
    GuiForm form;
    const QColor shadow(160, 160, 160);
    const ControlRef ref = Put(form, ControlKind::Groupbox, {10, 10, 120, 100});
    form.At(ref).caption = u"   "_s;
    const SurfacePicture gap = Painted(form, ref);
    const int line = gap.WhereIs(shadow).top();
    QVERIFY(line > 12 && line < 22);
    QCOMPARE(gap.At(12, line), shadow);
    QCOMPARE(gap.At(20, line), QColor(240, 240, 240));
    QCOMPARE(gap.At(100, line), shadow);
    form.At(ref).caption.clear();
    QCOMPARE(Painted(form, ref).At(20, line), shadow);
}

static QImage Pattern(int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixelColor(x, y, QColor(10 + x * 5, 10 + y * 5, 77));
    return image;
}

void win_frmSurfacePaint::pictureIsCentredAndNotScaled()
{
    GuiForm form;
    const ControlRef ref = Put(form, ControlKind::Bmpbutton, {10, 10, 60, 50});
    form.At(ref).picture = Pattern(30, 20);
    const SurfacePicture picture = Painted(form, ref);
    QCOMPARE(picture.image.copy(25, 25, 30, 20), Pattern(30, 20));
    QCOMPARE(picture.At(24, 30), QColor(240, 240, 240));
    QCOMPARE(picture.At(55, 30), QColor(240, 240, 240));
}

void win_frmSurfacePaint::pictureLargerThanItsButtonIsClipped()
{
    GuiForm form;
    const QRect place(10, 10, 25, 15);
    const ControlRef ref = Put(form, ControlKind::Bmpbutton, place);
    form.At(ref).picture = Pattern(40, 40);
    const SurfacePicture picture = Painted(form, ref);
    QCOMPARE(picture.Touched(), place);
    QCOMPARE(picture.image.copy(place), Pattern(40, 40).copy(0, 0, 25, 15));
}

void win_frmSurfacePaint::buttonWithoutItsPictureShowsAText()
{
    GuiForm form;
    const ControlRef ref = Put(form, ControlKind::Bmpbutton, {10, 10, 30, 30});
    QCOMPARE(form.At(ref).caption, NoBitmap);
    const QImage placeholder = Painted(form, ref).image;
    form.At(ref).caption.clear();
    const QImage bare = Painted(form, ref).image;
    QVERIFY(placeholder != bare);
    // For a missing picture the file's name is shown.
    form.At(ref).caption = u"c:\\pictures\\bmpbttn"_s;
    QCOMPARE(Painted(form, ref).image, placeholder);
}

void win_frmSurfacePaint::graphicboxHasItsOwnFillAndAThinFrame()
{
    GuiForm form;
    const ControlRef ref = Put(form, ControlKind::Graphicbox, {10, 10, 50, 40});
    form.At(ref).backColor = Rgb(0, 128, 255);
    const SurfacePicture picture = Painted(form, ref);
    QCOMPARE(picture.WhereIs(QColor(0, 128, 255)), QRect(11, 11, 48, 38));
    QCOMPARE(picture.At(10, 10), picture.At(59, 49));
    form.At(ref).backColor = 0x8000000F;
    QCOMPARE(Painted(form, ref).At(30, 30), QColor(240, 240, 240));
}

void win_frmSurfacePaint::fieldsShowAmpersandsUnchanged()
{
    GuiForm form;
    const ControlRef ref = Put(form, ControlKind::Textbox, {10, 10, 100, 30});
    form.At(ref).caption = u"A&B"_s;
    const QImage one = Painted(form, ref).image;
    form.At(ref).caption = u"A&&B"_s;
    QVERIFY(one != Painted(form, ref).image);
}

OB_BENCH_TEST(win_frmSurfacePaint)
#include "win_frmSurfacePaint.moc"
