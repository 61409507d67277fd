// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface's marks: grid, handles, frames, rubber band.
#include "support/BenchTest.h"

#include "guibuilder/SurfacePicture.h"

#include <QElapsedTimer>
#include <QPainter>
#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

SurfacePicture Grid(const GuiForm& form, double scale, QRect exposed)
{
    SurfacePicture picture(scale);
    QPainter painter(&picture.image);
    PaintGrid(painter, exposed, form, PictureScale);
    return picture;
}

} // namespace

class win_frmSurfaceMarks : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void gridHasADotEveryTenPixels_data();
    void gridHasADotEveryTenPixels();
    void gridDotsAreWhiteOnDarkColors();
    void gridIsPaintedInTheExposedPartOnly();
    void handlesShowWhetherTheControlIsLocked();
    void selectionFrameStaysWithinItsMargin();
    void rubberBandIsVisibleOnAnyColor();
    void hugeBandsAndGridsArePaintedAtOnce();
};

void win_frmSurfaceMarks::gridHasADotEveryTenPixels_data()
{
    QTest::addColumn<double>("scale");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("side");
    QTest::newRow("plain") << 1.0 << 10 << 1;
    QTest::newRow("half again") << 1.5 << 15 << 1;
    QTest::newRow("double") << 2.0 << 20 << 2;
}

void win_frmSurfaceMarks::gridHasADotEveryTenPixels()
{
    QFETCH(double, scale);
    QFETCH(int, step);
    QFETCH(int, side);
    const SurfacePicture picture = Grid(GuiForm(), scale, {0, 0, 200, 150});
    for (int y = 0; y < picture.image.height(); ++y)
        for (int x = 0; x < picture.image.width(); ++x)
            QCOMPARE(picture.At(x, y), x % step < side && y % step < side ? QColor(Qt::black) : Blank);
}

void win_frmSurfaceMarks::gridDotsAreWhiteOnDarkColors()
{
    const QStringList dark = {u"Black"_s,     u"Darkgray"_s, u"Darkred"_s,  u"Brown"_s,
                              u"Darkgreen"_s, u"Darkblue"_s, u"Darkcyan"_s, u"Darkpink"_s};
    GuiForm form;
    int whites = 0;
    for (const std::string_view name : ColorName) {
        form.GuiBackgroundColor = LatinText(name);
        const bool isDark = dark.contains(form.GuiBackgroundColor);
        whites += isDark ? 1 : 0;
        QCOMPARE(Grid(form, 1, {0, 0, 200, 150}).At(10, 20), QColor(isDark ? Qt::white : Qt::black));
    }
    QCOMPARE(whites, 8);
}

void win_frmSurfaceMarks::gridIsPaintedInTheExposedPartOnly()
{
    const SurfacePicture picture = Grid(GuiForm(), 1, {11, 20, 20, 21});
    QCOMPARE(picture.Touched(), QRect(20, 20, 11, 21));
    QVERIFY(Grid(GuiForm(), 1, {11, 11, 9, 9}).Touched().isEmpty());
    QCOMPARE(Grid(GuiForm(), 1, {-55, -55, 60, 60}).Touched(), QRect(0, 0, 1, 1));
}

void win_frmSurfaceMarks::handlesShowWhetherTheControlIsLocked()
{
    const auto handles = [](HandleState state) {
        SurfacePicture picture;
        QPainter painter(&picture.image);
        PaintHandles(painter, {100, 80, 9, 9}, {11, 21, 9, 9}, state);
        return picture;
    };
    const SurfacePicture open = handles(HandleState::Free);
    QCOMPARE(open.WhereIs(QColor(192, 0, 0)), QRect(101, 81, 7, 7));
    QCOMPARE(open.WhereIs(QColor(255, 128, 0)), QRect(12, 22, 7, 7));
    QCOMPARE(open.Touched(), QRect(QPoint(11, 21), QPoint(108, 88)));
    QVERIFY(open.At(100, 80).lightness() < QColor(192, 0, 0).lightness());
    const SurfacePicture locked = handles(HandleState::Locked);
    QCOMPARE(locked.WhereIs(QColor(255, 170, 170)), QRect(101, 81, 7, 7));
    QCOMPARE(locked.WhereIs(QColor(255, 221, 102)), QRect(12, 22, 7, 7));
}

void win_frmSurfaceMarks::selectionFrameStaysWithinItsMargin()
{
    const QRect control(40, 40, 60, 30);
    for (const double scale : {1.0, 1.5, 2.0}) {
        SurfacePicture picture(scale);
        QPainter painter(&picture.image);
        PaintSelectionFrame(painter, control);
        const QRectF allowed(control.adjusted(-SelectionMargin, -SelectionMargin, SelectionMargin, SelectionMargin));
        const QRectF touched(picture.Touched());
        QVERIFY(QRectF(allowed.topLeft() * scale, allowed.size() * scale).contains(touched));
        QVERIFY(touched.width() > control.width() * scale);
        const QPoint inside = QPointF(control.center() * scale).toPoint();
        QCOMPARE(picture.At(inside.x(), inside.y()), Blank);
    }
}

void win_frmSurfaceMarks::rubberBandIsVisibleOnAnyColor()
{
    const QRect band(30, 20, 80, 60);
    SurfacePicture picture;
    {
        QPainter painter(&picture.image);
        PaintRubberBand(painter, band);
    }
    QCOMPARE(picture.Touched(), band);
    QVERIFY(!picture.WhereIs(Qt::black).isEmpty());
    QVERIFY(!picture.WhereIs(Qt::white).isEmpty());
    QCOMPARE(picture.At(31, 21), Blank);
    // Part of a band, clipped, has its dashes in the same places.
    SurfacePicture part;
    {
        QPainter painter(&part.image);
        painter.setClipRect(50, 0, 30, 150);
        PaintRubberBand(painter, band);
    }
    QCOMPARE(part.image.copy(50, 0, 30, 150), picture.image.copy(50, 0, 30, 150));
}

void win_frmSurfaceMarks::hugeBandsAndGridsArePaintedAtOnce()
{
    constexpr int mostMilliseconds = 2000;
    constexpr int far = 1000000000;
    SurfacePicture picture(2);
    QPainter painter(&picture.image);
    QElapsedTimer timer;
    timer.start();
    PaintRubberBand(painter, QRect(QPoint(-30000, -30000), QPoint(30000, 30000)));
    PaintRubberBand(painter, {50, 50, 60000, 60000});
    PaintGrid(painter, {-far, -far, 2 * far, 2 * far}, GuiForm(), PictureScale);
    PaintSelectionFrame(painter, {-30000, 20, 60000, 60000});
    QVERIFY(timer.elapsed() < mostMilliseconds);
}

OB_BENCH_TEST(win_frmSurfaceMarks)
#include "win_frmSurfaceMarks.moc"
