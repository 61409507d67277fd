// SPDX-License-Identifier: GPL-3.0-or-later
// The records of metafiles are drawn pixel for pixel as programs expect.
#include "imagetools/metafiles/PlayedMetafile.h"

#include <QTest>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_cMetafileCanvas : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void rectangleHasOutlineAndInside();
    void shapes_data();
    void shapes();
    void shapes32_data();
    void shapes32();
    void nullPenAndBrushDrawNothing();
    void deletedObjectsPlaceIsReusedFirst();
    void restoredStateIsComplete();
    void clippingLimitsDrawing();
    void clippingByAPath();
    void hatchLetsTheBackgroundThroughWhenTransparent();
    void rasterOperationsCombine_data();
    void rasterOperationsCombine();
    void bitmapIsStretchedAndMirrored();
    void bitmapOperationsCombine();
    void bitmapWithAlphaIsBlended();
    void transparentColorIsSkipped();
    void textIsPlacedByItsAlignment_data();
    void textIsPlacedByItsAlignment();
    void textOf32BitFilesIsDrawn();
    void opaqueTextHasItsBackground();
    void gradientRunsFromColorToColor();
};

void tst_cMetafileCanvas::rectangleHasOutlineAndInside()
{
    const QImage image = Drawn(Drawing().Add(RectangleRecord, Words({60, 50, 20, 10})));
    QCOMPARE(image.pixel(10, 20), Red);
    QCOMPARE(image.pixel(49, 59), Red);
    QCOMPARE(image.pixel(11, 21), Green);
    QCOMPARE(image.pixel(48, 58), Green);
    QCOMPARE(image.pixel(50, 60), White);
    QCOMPARE(CountOf(image, Red) + CountOf(image, Green), 40 * 40);
    QCOMPARE(CountOf(image, Green), 38 * 38);

    const QImage image32 = Drawn(Drawing32().Add(43, Box32(10, 20, 49, 59)));
    QCOMPARE(image32, image);
}

void tst_cMetafileCanvas::shapes_data()
{
    QTest::addColumn<int>("function");
    QTest::addColumn<QByteArray>("parameters");
    QTest::addColumn<QList<QPoint>>("outline");
    QTest::addColumn<QList<QPoint>>("inside");
    QTest::addColumn<QList<QPoint>>("outside");
    using Points = QList<QPoint>;
    QTest::newRow("ellipse") << 0x418 << Words({80, 90, 20, 10}) << Points{{10, 50}, {50, 20}, {89, 50}, {50, 79}}
                             << Points{{50, 50}} << Points{{12, 22}, {88, 78}};
    QTest::newRow("round rectangle") << 0x61C << Words({20, 20, 80, 90, 20, 10}) << Points{{50, 20}, {10, 50}}
                                     << Points{{50, 50}} << Points{{10, 20}, {89, 79}};
    QTest::newRow("triangle") << 0x324 << Word(3) + Words({10, 90, 50, 10, 90, 90}) << Points{{50, 10}, {50, 90}}
                              << Points{{50, 60}} << Points{{15, 20}, {85, 20}};
    QTest::newRow("two squares") << 0x538
                                 << Words({2, 4, 4, 10, 10, 90, 10, 90, 90, 10, 90, 30, 30, 70, 30, 70, 70, 30, 70})
                                 << Points{{10, 50}, {30, 50}} << Points{{20, 50}, {80, 80}} << Points{{50, 50}};
    QTest::newRow("pie of the upper right") << 0x81A << Words({10, 50, 50, 90, 90, 90, 10, 10}) << Points{{60, 50}}
                                            << Points{{60, 40}} << Points{{40, 40}, {60, 60}, {40, 60}};
    QTest::newRow("chord of the upper half")
        << 0x830 << Words({50, 10, 50, 90, 90, 90, 10, 10}) << Points{{50, 10}} << Points{{50, 30}} << Points{{50, 70}};
    QTest::newRow("arc of the lower half") << 0x817 << Words({50, 90, 50, 10, 90, 90, 10, 10}) << Points{{50, 89}}
                                           << Points{} << Points{{50, 10}, {50, 50}};
    QTest::newRow("lines") << 0x325 << Word(3) + Words({10, 10, 90, 10, 90, 90}) << Points{{50, 10}, {90, 50}}
                           << Points{} << Points{{50, 50}, {11, 11}};
    QTest::newRow("pixel") << 0x41F << Long(RedRecord) + Words({40, 30}) << Points{{30, 40}} << Points{}
                           << Points{{31, 40}, {30, 41}, {29, 40}};
}

void tst_cMetafileCanvas::shapes()
{
    QFETCH(int, function);
    QFETCH(QByteArray, parameters);
    QFETCH(QList<QPoint>, outline);
    QFETCH(QList<QPoint>, inside);
    QFETCH(QList<QPoint>, outside);
    const QImage image = Drawn(Drawing().Add(function, parameters));
    QCOMPARE(image.size(), QSize(100, 100));
    for (const QPoint& point : outline)
        QVERIFY2(IsNear(image, point, Red), qPrintable(u"%1, %2"_s.arg(point.x()).arg(point.y())));
    for (const QPoint& point : inside)
        QCOMPARE(image.pixel(point), Green);
    for (const QPoint& point : outside)
        QCOMPARE(image.pixel(point), White);
}

void tst_cMetafileCanvas::shapes32_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QList<QPoint>>("outline");
    QTest::addColumn<QList<QPoint>>("inside");
    QTest::addColumn<QList<QPoint>>("outside");
    using Points = QList<QPoint>;
    const auto row = [](const char* name, const EmfBytes& file, const Points& outline, const Points& inside,
                        const Points& outside) {
        QTest::newRow(name) << file.File(100, 100) << outline << inside << outside;
    };
    row("polygon of short numbers", Drawing32().Add(86, Points16({10, 90, 50, 10, 90, 90})), {{50, 90}}, {{50, 60}},
        {{15, 20}});
    row("polygon of long numbers", Drawing32().Add(3, Box32(0, 0, -1, -1) + Longs({3, 10, 90, 50, 10, 90, 90})),
        {{50, 90}}, {{50, 60}}, {{15, 20}});
    row("curve", Drawing32().Add(85, Points16({10, 50, 30, 10, 70, 10, 90, 50})), {{50, 20}}, {}, {{50, 50}});
    row("polygons of short numbers",
        Drawing32().Add(91, Box32(0, 0, -1, -1) + Longs({2, 8, 4, 4}) +
                                Words({10, 10, 90, 10, 90, 90, 10, 90, 30, 30, 70, 30, 70, 70, 30, 70})),
        {{10, 50}, {30, 50}}, {{20, 50}}, {{50, 50}});
    row("line on", Drawing32().Add(27, Longs({10, 10})).Add(54, Longs({90, 10})).Add(54, Longs({90, 90})),
        {{50, 10}, {90, 50}}, {}, {{50, 50}});
    row("lines on", Drawing32().Add(27, Longs({10, 10})).Add(89, Points16({90, 10, 90, 90})), {{50, 10}, {90, 50}}, {},
        {{50, 50}});
    row("ellipse", Drawing32().Add(42, Box32(10, 20, 89, 79)), {{10, 50}, {50, 20}}, {{50, 50}}, {{12, 22}});
    row("pie", Drawing32().Add(47, Box32(10, 10, 89, 89) + Longs({90, 50, 50, 10})), {{60, 50}}, {{60, 40}},
        {{40, 40}, {60, 60}});
    row("pie with the clock", Drawing32().Add(57, Longs({2})).Add(47, Box32(10, 10, 89, 89) + Longs({50, 10, 90, 50})),
        {{60, 50}}, {{60, 40}}, {{40, 40}, {60, 60}});
    row("path",
        Drawing32()
            .Add(59)
            .Add(27, Longs({20, 20}))
            .Add(54, Longs({80, 20}))
            .Add(54, Longs({80, 80}))
            .Add(54, Longs({20, 80}))
            .Add(61)
            .Add(60)
            .Add(63, Box32(0, 0, -1, -1)),
        {{20, 50}, {50, 20}}, {{50, 50}}, {{10, 10}, {90, 90}});
    row("path of two figures",
        Drawing32()
            .Add(59)
            .Add(86, Points16({10, 10, 90, 10, 90, 90, 10, 90}))
            .Add(86, Points16({30, 30, 70, 30, 70, 70, 30, 70}))
            .Add(60)
            .Add(62, Box32(0, 0, -1, -1)),
        {}, {{20, 50}}, {{50, 50}});
    row("region",
        Drawing32().Add(71, Box32(0, 0, -1, -1) + Longs({64, 2, 32, 1, 2, 32}) + Box32(0, 0, 0, 0) +
                                Box32(10, 10, 30, 30) + Box32(60, 60, 90, 90)),
        {}, {{20, 20}, {80, 80}}, {{45, 45}});
    row("stock objects",
        Drawing32().Add(37, Longs({0x80000004})).Add(37, Longs({0x80000008})).Add(43, Box32(0, 0, 9, 9)), {}, {},
        {{50, 50}});
}

void tst_cMetafileCanvas::shapes32()
{
    QFETCH(QByteArray, file);
    QFETCH(QList<QPoint>, outline);
    QFETCH(QList<QPoint>, inside);
    QFETCH(QList<QPoint>, outside);
    const QImage image = Played(file);
    QCOMPARE(image.size(), QSize(100, 100));
    for (const QPoint& point : outline)
        QVERIFY2(IsNear(image, point, Red), qPrintable(u"%1, %2"_s.arg(point.x()).arg(point.y())));
    for (const QPoint& point : inside)
        QCOMPARE(image.pixel(point), Green);
    for (const QPoint& point : outside)
        QCOMPARE(image.pixel(point), White);
}

void tst_cMetafileCanvas::nullPenAndBrushDrawNothing()
{
    WmfBytes file = Drawing();
    file.Add(PenRecord, Words({5, 0, 0}) + Long(RedRecord)).Add(SelectObject, Word(2));
    file.Add(RectangleRecord, Words({60, 50, 20, 10}));
    file.Add(BrushRecord, Word(1) + Long(0) + Word(0)).Add(SelectObject, Word(3));
    file.Add(RectangleRecord, Words({100, 100, 0, 0}));
    const QImage image = Drawn(file);
    QCOMPARE(CountOf(image, Red), 0);
    QCOMPARE(CountOf(image, Green), 39 * 39);
    QCOMPARE(image.pixel(90, 90), White);
}

void tst_cMetafileCanvas::deletedObjectsPlaceIsReusedFirst()
{
    WmfBytes file = Drawing();
    file.Add(0x1F0, Word(0));
    file.Add(BrushRecord, Word(0) + Long(BlueRecord) + Word(0));
    file.Add(SelectObject, Word(0)).Add(RectangleRecord, Words({60, 50, 20, 10}));
    const QImage image = Drawn(file);
    QCOMPARE(image.pixel(10, 20), Red); // the selection stays
    QCOMPARE(image.pixel(30, 40), Blue);
}

void tst_cMetafileCanvas::restoredStateIsComplete()
{
    WmfBytes file = Drawing();
    file.Add(0x01E);
    file.Add(BrushRecord, Word(0) + Long(BlueRecord) + Word(0)).Add(SelectObject, Word(2));
    file.Add(0x20B, Words({-50, -50})).Add(0x416, Words({5, 5, 0, 0}));
    file.Add(0x127, Word(-1));
    file.Add(RectangleRecord, Words({60, 50, 20, 10}));
    QCOMPARE(Drawn(file), Drawn(Drawing().Add(RectangleRecord, Words({60, 50, 20, 10}))));
}

void tst_cMetafileCanvas::clippingLimitsDrawing()
{
    WmfBytes file = Drawing();
    file.Add(0x416, Words({50, 50, 0, 0})).Add(0x415, Words({20, 20, 0, 0}));
    file.Add(RectangleRecord, Words({100, 100, 0, 0}));
    const QImage image = Drawn(file);
    QCOMPARE(CountOf(image, Green) + CountOf(image, Red), 50 * 50 - 20 * 20);
    QCOMPARE(image.pixel(19, 19), White);
    QCOMPARE(image.pixel(20, 20), Green);
    QCOMPARE(image.pixel(49, 49), Green);
    QCOMPARE(image.pixel(50, 50), White);
}

void tst_cMetafileCanvas::clippingByAPath()
{
    EmfBytes file = Drawing32();
    file.Add(59).Add(86, Points16({0, 0, 100, 0, 0, 100})).Add(60).Add(67, Longs({5}));
    file.Add(43, Box32(-10, -10, 110, 110));
    const QImage image = Drawn(file);
    QCOMPARE(image.pixel(20, 20), Green);
    QCOMPARE(image.pixel(80, 80), White);
    // An empty region removes the clip.
    file.Add(75, Longs({0, 5})).Add(43, Box32(-10, -10, 110, 110));
    QCOMPARE(Drawn(file).pixel(80, 80), Green);
}

void tst_cMetafileCanvas::hatchLetsTheBackgroundThroughWhenTransparent()
{
    WmfBytes file = Drawing();
    file.Add(BrushRecord, Word(2) + Long(BlueRecord) + Word(0)).Add(SelectObject, Word(2));
    file.Add(0x201, Long(0x00FFFF));
    file.Add(RectangleRecord, Words({100, 50, 0, 0}));
    file.Add(0x102, Word(1)).Add(RectangleRecord, Words({100, 100, 0, 50}));
    const QImage image = Drawn(file);
    const QRect opaque(2, 2, 46, 96);
    const QRect transparent(52, 2, 46, 96);
    QCOMPARE(CountOf(image, Blue, opaque) + CountOf(image, Yellow, opaque), 46 * 96);
    QVERIFY(CountOf(image, Blue, opaque) >= 46 * 10);
    QCOMPARE(CountOf(image, Blue, transparent) + CountOf(image, White, transparent), 46 * 96);
    // The lines are horizontal.
    QCOMPARE(CountOf(image, Blue, transparent) % 46, 0);
}

void tst_cMetafileCanvas::rasterOperationsCombine_data()
{
    QTest::addColumn<int>("operation");
    QTest::addColumn<QRgb>("result");
    // Red drawn on yellow.
    const QRgb results[] = {Black, Black,      Green,  0xFF00FFFF,         Black, Blue,       Green,  0xFF00FFFF,
                            Red,   0xFFFF00FF, Yellow, 0xFF00FFFF | Green, Red,   0xFFFF00FF, Yellow, White};
    const int checked[] = {1, 3, 4, 6, 7, 9, 11, 13, 15, 16};
    for (const int operation : checked)
        QTest::addRow("%d", operation) << operation << results[operation - 1];
}

void tst_cMetafileCanvas::rasterOperationsCombine()
{
    QFETCH(int, operation);
    QFETCH(QRgb, result);
    WmfBytes file = Drawing();
    file.Add(BrushRecord, Word(0) + Long(0x00FFFF) + Word(0)).Add(SelectObject, Word(2));
    file.Add(RectangleRecord, Words({100, 100, 0, 0}));
    file.Add(BrushRecord, Word(0) + Long(RedRecord) + Word(0)).Add(SelectObject, Word(3));
    file.Add(0x104, Word(operation)).Add(RectangleRecord, Words({80, 80, 20, 20}));
    const QImage image = Drawn(file);
    QCOMPARE(image.pixel(10, 10), Yellow);
    QCOMPARE(image.pixel(50, 50), result);
}

void tst_cMetafileCanvas::bitmapIsStretchedAndMirrored()
{
    const auto record = [](int width, int height, int left, int top) {
        return Long(0x00CC0020) + Words({0, 2, 2, 0, 0, height, width, top, left}) + SmallDib();
    };
    const QImage image = Drawn(WmfBytes()
                                   .Add(0xF43, record(20, 20, 10, 10))
                                   .Add(0xF43, record(-20, 20, 70, 10))
                                   .Add(0xF43, record(20, -20, 10, 70)));
    QCOMPARE(image.pixel(12, 12), Red);
    QCOMPARE(image.pixel(27, 12), Green);
    QCOMPARE(image.pixel(12, 27), Blue);
    QCOMPARE(image.pixel(9, 9), White);
    QCOMPARE(image.pixel(19, 19), Red);
    QCOMPARE(image.pixel(20, 19), Green);
    QCOMPARE(image.pixel(52, 12), Green);
    QCOMPARE(image.pixel(67, 12), Red);
    QCOMPARE(image.pixel(12, 52), Blue);
    QCOMPARE(image.pixel(12, 67), Red);

    // The lower left pixel alone, counted from the bottom.
    const QByteArray part = Long(0x00CC0020) + Words({0, 1, 1, 0, 0, 20, 20, 10, 10}) + SmallDib();
    QCOMPARE(Drawn(WmfBytes().Add(0xF43, part)).pixel(20, 20), Blue);

    // The same picture in the other kind of file.
    const QByteArray header = Box32(0, 0, -1, -1) +
                              Longs({10, 10, 0, 0, 2, 2, 80, SmallDibHeader, 120, SmallDibPixels, 0}) +
                              Longs({0x00CC0020, 20, 20});
    const QImage image32 = Drawn(EmfBytes().Add(81, header + SmallDib()));
    QCOMPARE(image32.copy(10, 10, 20, 20), image.copy(10, 10, 20, 20));
}

void tst_cMetafileCanvas::bitmapOperationsCombine()
{
    const auto drawn = [](std::int64_t operation) {
        WmfBytes file = Drawing();
        file.Add(BrushRecord, Word(0) + Long(0x00FFFF) + Word(0)).Add(SelectObject, Word(2));
        file.Add(0x61D, Long(0x00F00021) + Words({100, 100, 0, 0}));
        file.Add(0x12D, Word(1));
        file.Add(0xB41, Long(operation) + Words({2, 2, 0, 0, 40, 40, 10, 10}) + SmallDib());
        return Drawn(file);
    };
    const QPoint red(15, 15);
    const QPoint blue(15, 45);
    QCOMPARE(drawn(0x00CC0020).pixel(60, 60), Yellow);
    QCOMPARE(drawn(0x00CC0020).pixel(red), Red);
    QCOMPARE(drawn(0x008800C6).pixel(red), Red); // and
    QCOMPARE(drawn(0x008800C6).pixel(blue), Black);
    QCOMPARE(drawn(0x00EE0086).pixel(blue), White); // or
    QCOMPARE(drawn(0x00660046).pixel(red), Green);  // exclusive or
    QCOMPARE(drawn(0x00330008).pixel(red), 0xFF00FFFF);
    QCOMPARE(drawn(0x00C000CA).pixel(red), Black); // and with the green brush
    QCOMPARE(drawn(0x00FF0062).pixel(red), White);
    QCOMPARE(drawn(0x00550009).pixel(red), Blue); // the inverse of the target
    // Without a bitmap.
    const QImage inverted = Drawn(Drawing().Add(0xB41, Long(0x00550009) + Words({2, 2, 0, 0, 0, 40, 40, 10, 10})));
    QCOMPARE(inverted.pixel(red), Black);
    QCOMPARE(inverted.pixel(60, 60), White);
}

void tst_cMetafileCanvas::bitmapWithAlphaIsBlended()
{
    const QByteArray dib =
        Longs({40, 1, 2}) + Words({1, 32}) + Longs({0, 0, 0, 0, 0, 0}) + Longs({0x80800000, 0x00000000});
    const QByteArray record = Box32(0, 0, -1, -1) + Longs({10, 10, 20, 20, 0x01FF0000, 0, 0}) + QByteArray(24, '\0') +
                              Longs({0, 0, 108, 40, 148, 8, 1, 2}) + dib;
    const QImage image = Drawn(EmfBytes().Add(114, record));
    QCOMPARE(image.pixel(15, 15), White); // the upper pixel is missing
    const QRgb half = image.pixel(15, 25);
    QCOMPARE(qRed(half), 255);
    QVERIFY(qAbs(qGreen(half) - 127) <= 1);
    QCOMPARE(qGreen(half), qBlue(half));
}

void tst_cMetafileCanvas::transparentColorIsSkipped()
{
    const QByteArray record = Box32(0, 0, -1, -1) + Longs({10, 10, 20, 20, RedRecord, 0, 0}) + QByteArray(24, '\0') +
                              Longs({0, 0, 108, SmallDibHeader, 148, SmallDibPixels, 2, 2}) + SmallDib();
    EmfBytes file = Drawing32();
    file.Add(39, Longs({3, 0, 0, 0})).Add(37, Longs({3})).Add(43, Box32(0, 0, 99, 99));
    const QImage image = Drawn(file.Add(116, record));
    QCOMPARE(image.pixel(15, 15), Black);
    QCOMPARE(image.pixel(25, 15), Green);
}

void tst_cMetafileCanvas::textIsPlacedByItsAlignment_data()
{
    QTest::addColumn<int>("align");
    QTest::addColumn<QRect>("holds");
    QTest::newRow("left of top") << 0 << QRect(50, 50, 45, 20);
    QTest::newRow("right") << 2 << QRect(5, 50, 45, 20);
    QTest::newRow("center") << 6 << QRect(25, 50, 50, 20);
    QTest::newRow("bottom") << 8 << QRect(50, 30, 45, 20);
    QTest::newRow("baseline") << 24 << QRect(50, 35, 45, 20);
}

void tst_cMetafileCanvas::textIsPlacedByItsAlignment()
{
    QFETCH(int, align);
    QFETCH(QRect, holds);
    WmfBytes file;
    file.Add(0x2FB, Words({-16, 0, 0, 0, 700}) + QByteArray(7, '\0') + '\x22' + QByteArray("Liberation Sans\0", 16));
    file.Add(SelectObject, Word(0)).Add(0x102, Word(1)).Add(0x12E, Word(align));
    file.Add(0x521, Word(3) + QByteArray("HHH\0", 4) + Words({50, 50}));
    const QImage image = Drawn(file);
    const int dark = CountOf(image, Black);
    QVERIFY2(dark > 60, qPrintable(QString::number(dark)));
    QCOMPARE(CountOf(image, White, holds) + (10'000 - CountOf(image, White)), holds.width() * holds.height());
}

void tst_cMetafileCanvas::textOf32BitFilesIsDrawn()
{
    const QByteArray face = QByteArray::fromHex("41007200690061006c00") + QByteArray(54, '\0');
    EmfBytes file;
    file.Add(82, Longs({1, -20, 0, 0, 0, 700}) + QByteArray(8, '\0') + face).Add(37, Longs({1})).Add(18, Longs({1}));
    file.Add(24, Longs({BlueRecord}));
    const QByteArray text = Box32(0, 0, -1, -1) + Longs({1}) + Single(1) + Single(1) +
                            Longs({20, 30, 2, 76, 0, 0, 0, 0, 0, 80}) + QByteArray::fromHex("48004800") +
                            Longs({30, 30});
    const QImage image = Drawn(file.Add(84, text));
    QVERIFY(CountOf(image, Blue, QRect(20, 30, 20, 25)) > 30);
    // The second character is placed by the widths.
    QVERIFY(CountOf(image, Blue, QRect(50, 30, 20, 25)) > 30);
    QCOMPARE(CountOf(image, White, QRect(40, 30, 9, 25)), 9 * 25);
}

void tst_cMetafileCanvas::opaqueTextHasItsBackground()
{
    WmfBytes file;
    file.Add(0x201, Long(0x00FFFF));
    file.Add(0xA32, Words({20, 20, 0, 2, 10, 10, 90, 40}));
    const QImage image = Drawn(file);
    QCOMPARE(CountOf(image, Yellow), 80 * 30);
    QCOMPARE(image.pixel(10, 10), Yellow);
}

void tst_cMetafileCanvas::gradientRunsFromColorToColor()
{
    const QByteArray corners = Longs({0, 0}) + Words({0xFF00, 0, 0, 0}) + Longs({100, 100}) + Words({0, 0, 0xFF00, 0});
    const QImage image = Drawn(EmfBytes().Add(118, Box32(0, 0, -1, -1) + Longs({2, 1, 0}) + corners + Longs({0, 1})));
    QVERIFY(qRed(image.pixel(2, 50)) > 240);
    QVERIFY(qBlue(image.pixel(97, 50)) > 240);
    QVERIFY(qAbs(qRed(image.pixel(50, 50)) - 128) < 6);
}

QTEST_MAIN(tst_cMetafileCanvas)
#include "tst_cMetafileCanvas.moc"
