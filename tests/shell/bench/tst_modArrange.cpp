// SPDX-License-Identifier: GPL-3.0-or-later
// The places of arranged child windows, and of the main window at the start.
#include "shell/bench/modArrange.h"

#include <QTest>

#include <cmath>
#include <limits>

using namespace ob;

class tst_modArrange : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tilesCoverTheAreaWithoutAGap()
    {
        const QSize area(801, 607);
        for (const Arrangement arrangement : {Arrangement::TileHorizontal, Arrangement::TileVertical}) {
            for (int count = 1; count <= 20; ++count) {
                const QList<QRect> places = ArrangedPlaces(arrangement, area, count, 20);
                QCOMPARE(places.size(), count);
                qint64 covered = 0;
                for (qsizetype i = 0; i < places.size(); ++i) {
                    QVERIFY(QRect(QPoint(), area).contains(places[i]));
                    covered += qint64{places[i].width()} * places[i].height();
                    for (qsizetype j = 0; j < i; ++j)
                        QVERIFY(!places[i].intersects(places[j]));
                }
                QCOMPARE(covered, qint64{area.width()} * area.height());
            }
        }
    }

    void horizontalTilesAreOneAboveTheOther()
    {
        QCOMPARE(ArrangedPlaces(Arrangement::TileHorizontal, {90, 90}, 3, 20),
                 (QList<QRect>{{0, 0, 90, 30}, {0, 30, 90, 30}, {0, 60, 90, 30}}));
        QCOMPARE(ArrangedPlaces(Arrangement::TileVertical, {90, 90}, 3, 20),
                 (QList<QRect>{{0, 0, 30, 90}, {30, 0, 30, 90}, {60, 0, 30, 90}}));
        QCOMPARE(ArrangedPlaces(Arrangement::TileHorizontal, {90, 90}, 5, 20),
                 (QList<QRect>{{0, 0, 45, 45}, {0, 45, 45, 45}, {45, 0, 45, 30}, {45, 30, 45, 30}, {45, 60, 45, 30}}));
    }

    void cascadeStaysInTheAreaAndRestarts()
    {
        const QList<QRect> places = ArrangedPlaces(Arrangement::Cascade, {400, 400}, 8, 25);
        for (const QRect& place : places)
            QVERIFY(QRect(0, 0, 400, 400).contains(place));
        QCOMPARE(places[1], QRect(25, 25, 300, 300));
        QCOMPARE(places[5], places[0]);
    }

    void nothingToArrangeGivesNothing()
    {
        QVERIFY(ArrangedPlaces(Arrangement::Cascade, {400, 400}, 0, 25).isEmpty());
        QVERIFY(IconPlaces({400, 400}, 0, {100, 20}).isEmpty());
    }

    void iconsFillRowsFromTheBottom()
    {
        QCOMPARE(IconPlaces({250, 200}, 3, {100, 20}),
                 (QList<QRect>{{0, 180, 100, 20}, {100, 180, 100, 20}, {0, 160, 100, 20}}));
    }

    void aStoredPlaceOnAScreenIsKept()
    {
        const QList<QRect> screens = {QRect(0, 0, 1280, 800), QRect(1280, 0, 1000, 800)};
        QCOMPARE(PlaceOnScreens({100, 50, 600, 400}, screens), QRect(100, 50, 600, 400));
        QCOMPARE(PlaceOnScreens({1500, 300, 600, 400}, screens), QRect(1500, 300, 600, 400));
        QCOMPARE(PlaceOnScreens({1000, 50, 600, 400}, screens), QRect(1000, 50, 600, 400));
    }

    void aStoredPlaceThatHangsOffItsScreenIsPulledInWhole()
    {
        const QList<QRect> screens = {QRect(0, 0, 1280, 800), QRect(1280, 0, 1000, 600)};
        QCOMPARE(PlaceOnScreens({-500, 0, 600, 400}, screens), QRect(0, 0, 600, 400));
        QCOMPARE(PlaceOnScreens({900, 700, 300, 400}, screens), QRect(900, 400, 300, 400));
        QCOMPARE(PlaceOnScreens({1500, 300, 600, 400}, screens), QRect(1500, 200, 600, 400));
        QCOMPARE(PlaceOnScreens({2200, -40, 300, 400}, screens), QRect(1980, 0, 300, 400));
        // As large as a font four times the usual size makes it.
        QCOMPARE(PlaceOnScreens({100, 100, 1733, 1733}, screens), QRect(0, 0, 1280, 800));
    }

    void aStoredPlaceOffEveryScreenIsMovedOntoOne_data()
    {
        QTest::addColumn<double>("left");
        QTest::addColumn<double>("top");
        QTest::newRow("far right") << 5000.0 << 10.0;
        QTest::newRow("far below") << 10.0 << 799.0;
        QTest::newRow("above, its edge out of reach") << 10.0 << -300.0;
        QTest::newRow("left") << -590.0 << 10.0;
        QTest::newRow("beyond all numbers") << 1e30 << -1e30;
        QTest::newRow("not a number") << std::nan("") << std::numeric_limits<double>::infinity();
    }

    void aStoredPlaceOffEveryScreenIsMovedOntoOne()
    {
        QFETCH(double, left);
        QFETCH(double, top);
        const QRect screen(0, 0, 1280, 800);
        const QRect place = PlaceOnScreens({left, top, 600, 400}, {screen});
        QCOMPARE(place.size(), QSize(600, 400));
        QVERIFY(screen.contains(place));
    }

    void aStoredSizeIsNeverAbsurd()
    {
        const QList<QRect> screens = {QRect(0, 0, 1280, 800)};
        QCOMPARE(PlaceOnScreens({0, 0, 0, -5}, screens).size(), QSize(200, 150));
        QCOMPARE(PlaceOnScreens({0, 0, 1e12, 1e30}, screens).size(), QSize(1280, 800));
        QCOMPARE(PlaceOnScreens({0, 0, std::nan(""), 400}, screens).size(), QSize(200, 400));
    }
};

QTEST_APPLESS_MAIN(tst_modArrange)
#include "tst_modArrange.moc"
