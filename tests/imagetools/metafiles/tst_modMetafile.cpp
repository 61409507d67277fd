// SPDX-License-Identifier: GPL-3.0-or-later
// Metafiles have their size, errors and limits; every reader of pictures takes them.
#include "imagetools/metafiles/PlayedMetafile.h"

#include "imagetools/pictures/modPicture.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <ctime>
#include <functional>
#include <limits>

using namespace Qt::StringLiterals;

using namespace ob;

class tst_modMetafile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void headerGivesTheSizeAt96DotsAnInch_data();
    void headerGivesTheSizeAt96DotsAnInch();
    void fileWithoutTheHeaderTakesItsWindowForPixels();
    void fileWithoutAnySizeTakesTheBoundsOfItsDrawing();
    void frameGivesTheSizeOf32BitFiles();
    void hugePictureIsDrawnSmaller();
    void flippedWindowIsDrawnFlipped();
    void worldTransformTurns();
    void unitsOfTheMapModes();
    void unknownAndShortRecordsAreSkipped();
    void damagedFilesAreErrors_data();
    void damagedFilesAreErrors();
    void hostileFilesEnd_data();
    void hostileFilesEnd();
    void smallHostileFilesEndSoon_data();
    void smallHostileFilesEndSoon();
    void ordinaryClipsAndPensAreWithinTheLimits();
    void everyPictureReaderAcceptsThem();
};

void tst_modMetafile::headerGivesTheSizeAt96DotsAnInch_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QSize>("size");
    const WmfBytes nothing;
    QTest::newRow("one unit a pixel") << nothing.Placeable(0, 0, 100, 50, 96) << QSize(100, 50);
    QTest::newRow("twips") << nothing.Placeable(0, 0, 1440, 2880, 1440) << QSize(96, 192);
    QTest::newRow("origin elsewhere") << nothing.Placeable(-500, 200, 500, 700, 960) << QSize(100, 50);
    QTest::newRow("corners swapped") << nothing.Placeable(100, 50, 0, 0, 96) << QSize(100, 50);
    QTest::newRow("less than a pixel") << nothing.Placeable(0, 0, 1, 1, 1440) << QSize(1, 1);
}

void tst_modMetafile::headerGivesTheSizeAt96DotsAnInch()
{
    QFETCH(QByteArray, file);
    QFETCH(QSize, size);
    const QImage image = Played(file);
    QCOMPARE(image.size(), size);
    QCOMPARE(CountOf(image, White), size.width() * size.height());
}

void tst_modMetafile::fileWithoutTheHeaderTakesItsWindowForPixels()
{
    WmfBytes file = Drawing();
    file.Add(0x103, Word(8)).Add(0x20B, Words({0, 10})).Add(0x20C, Words({60, 80}));
    file.Add(RectangleRecord, Words({60, 50, 0, 10}));
    const QImage image = Played(file.Plain());
    QCOMPARE(image.size(), QSize(80, 60));
    QCOMPARE(image.pixel(20, 30), Green);
    QCOMPARE(image.pixel(60, 30), White);

    WmfBytes large;
    large.Add(0x20C, Words({2048, 8192}));
    QCOMPARE(Played(large.Plain()).size(), QSize(1024, 256));
}

void tst_modMetafile::fileWithoutAnySizeTakesTheBoundsOfItsDrawing()
{
    WmfBytes file = Drawing();
    file.Add(RectangleRecord, Words({250, 340, 200, 300}));
    const QImage image = Played(file.Plain());
    QCOMPARE(image.size(), QSize(40, 50));
    QCOMPARE(image.pixel(0, 0), Red);
    QCOMPARE(image.pixel(20, 25), Green);
}

void tst_modMetafile::frameGivesTheSizeOf32BitFiles()
{
    QCOMPARE(Played(EmfBytes().File(200, 120)).size(), QSize(200, 120));
}

void tst_modMetafile::hugePictureIsDrawnSmaller()
{
    const QImage image = Played(WmfBytes().Placeable(-32768, -32768, 32767, -16384, 1));
    QVERIFY(!image.isNull());
    QVERIFY(qint64{image.width()} * image.height() <= 16'000'000);
    QVERIFY(qAbs(image.width() / double(image.height()) - 4) < 0.01);
}

void tst_modMetafile::flippedWindowIsDrawnFlipped()
{
    WmfBytes file = Drawing();
    file.Add(0x20B, Words({100, 0})).Add(0x20C, Words({-100, 100}));
    file.Add(RectangleRecord, Words({0, 100, 30, 0}));
    const QImage image = Drawn(file);
    QCOMPARE(image.pixel(50, 85), Green);
    QCOMPARE(image.pixel(50, 50), White);
}

void tst_modMetafile::worldTransformTurns()
{
    EmfBytes file = Drawing32();
    // A quarter turn clockwise about the middle.
    file.Add(35, Single(0) + Single(1) + Single(-1) + Single(0) + Single(100) + Single(0));
    file.Add(43, Box32(10, 40, 50, 60));
    const QImage image = Drawn(file);
    QCOMPARE(image.pixel(50, 30), Green);
    QCOMPARE(image.pixel(30, 50), White);
    file.Add(36, QByteArray(24, '\0') + Long(1)).Add(43, Box32(10, 70, 50, 90));
    QCOMPARE(Drawn(file).pixel(30, 80), Green);
}

void tst_modMetafile::unitsOfTheMapModes()
{
    // 10 mm are about 38 pixels, and up is up.
    WmfBytes file = Drawing();
    file.Add(0x103, Word(2)).Add(0x20D, Words({100, 0}));
    file.Add(RectangleRecord, Words({0, 100, 100, 0}));
    const QImage image = Drawn(file);
    QCOMPARE(image.pixel(30, 70), Green);
    QCOMPARE(image.pixel(30, 55), White);
    QCOMPARE(image.pixel(45, 70), White);
}

void tst_modMetafile::unknownAndShortRecordsAreSkipped()
{
    WmfBytes file = Drawing();
    file.Add(0x626, Words({15, 4, 1, 2})).Add(0xFFFF, Words({1, 2, 3})).Add(RectangleRecord, Words({1, 2, 3}));
    file.Add(0x324, Word(1000) + Words({1, 2, 3, 4})).Add(SelectObject, Word(999)).Add(0x127, Word(-7));
    file.Add(RectangleRecord, Words({60, 50, 20, 10}));
    QCOMPARE(Drawn(file), Drawn(Drawing().Add(RectangleRecord, Words({60, 50, 20, 10}))));

    EmfBytes file32 = Drawing32();
    file32.Add(70, "EMF+ and more").Add(9999, Longs({1})).Add(43, Longs({1, 2})).Add(86, Points16({1, 2}).left(20));
    file32.Add(43, Box32(10, 20, 49, 59));
    QCOMPARE(Drawn(file32), Drawn(Drawing32().Add(43, Box32(10, 20, 49, 59))));
}

void tst_modMetafile::damagedFilesAreErrors_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<MetafileError>("error");
    const QByteArray whole = Drawing().Placeable(0, 0, 100, 100, 96);
    const QByteArray whole32 = Drawing32().File(100, 100);
    QTest::newRow("empty") << QByteArray() << MetafileError::NotAMetafile;
    QTest::newRow("a bitmap") << QByteArray("BM") + QByteArray(100, '\0') << MetafileError::NotAMetafile;
    QTest::newRow("only the size") << whole.first(22) << MetafileError::NotAMetafile;
    QTest::newRow("no header after the size") << whole.first(22) + QByteArray(40, '\7') << MetafileError::NotAMetafile;
    QTest::newRow("cut in a record") << whole.first(22 + 18 + 8) << MetafileError::Damaged;
    QTest::newRow("record without a size")
        << Drawing().Raw(Long(0) + Word(0x213)).Placeable(0, 0, 9, 9, 96) << MetafileError::Damaged;
    QTest::newRow("record beyond the end")
        << Drawing().Raw(Long(0x7FFFFFFF) + Word(0x213)).Placeable(0, 0, 9, 9, 96) << MetafileError::Damaged;
    QTest::newRow("nothing and no size") << WmfBytes().Plain() << MetafileError::Damaged;
    QTest::newRow("32 bits, cut in the header") << whole32.first(60) << MetafileError::NotAMetafile;
    QTest::newRow("32 bits, cut in a record") << whole32.first(88 + 20) << MetafileError::Damaged;
    QTest::newRow("32 bits, no size") << QByteArray(whole32).replace(8, 32, QByteArray(32, '\0'))
                                      << MetafileError::Damaged;
}

void tst_modMetafile::damagedFilesAreErrors()
{
    QFETCH(QByteArray, file);
    QFETCH(MetafileError, error);
    const auto played = PlayMetafile(file);
    QVERIFY(std::holds_alternative<MetafileError>(played));
    QCOMPARE(std::get<MetafileError>(played), error);
}

void tst_modMetafile::hostileFilesEnd_data()
{
    QTest::addColumn<QByteArray>("file");
    const auto many = [](int count, const std::function<void(WmfBytes&)>& add) {
        WmfBytes file = Drawing();
        for (int i = 0; i < count; ++i)
            add(file);
        return file.Placeable(0, 0, 3000, 3000, 96);
    };
    QTest::newRow("many large ellipses") << many(20'000, [](WmfBytes& file) {
        file.Add(0x418, Words({3000, 3000, 0, 0}));
    });
    QTest::newRow("many large patterns") << many(20'000, [](WmfBytes& file) {
        file.Add(0x61D, Long(0x005A0049) + Words({3000, 3000, 0, 0}));
    });
    QTest::newRow("many saved states") << many(100'000, [](WmfBytes& file) { file.Add(0x01E); });
    QTest::newRow("many clips") << many(20'000, [i = 0](WmfBytes& file) mutable {
        ++i;
        file.Add(0x415, Words({i % 3000 + 1, i * 7 % 3000 + 1, i % 3000, i * 7 % 3000}));
    });
    WmfBytes zigzag = Drawing();
    QByteArray points;
    for (int i = 0; i < 30'000; ++i)
        points += Words({i * 7919 % 3000, i % 2 == 0 ? 0 : 3000});
    zigzag.Add(0x104, Word(6));
    for (int i = 0; i < 50; ++i)
        zigzag.Add(0x324, Word(30'000) + points);
    QTest::newRow("large zigzags") << zigzag.Placeable(0, 0, 3000, 3000, 96);
    WmfBytes wide;
    wide.Add(PenRecord, Words({2, 30'000, 0}) + Long(0)).Add(SelectObject, Word(0));
    for (int i = 0; i < 2000; ++i)
        wide.Add(0x325, Word(3) + Words({0, 0, 3000, i, 0, 3000}));
    QTest::newRow("wide pens") << wide.Placeable(0, 0, 3000, 3000, 96);
    QTest::newRow("bitmap of gigabytes") << many(5'000, [](WmfBytes& file) {
        const QByteArray dib = Longs({40, 30'000, 30'000}) + Words({1, 1}) + Longs({0, 0, 0, 0, 0, 0, 0, 0});
        file.Add(0xF43, Long(0x00CC0020) + Words({0, 30'000, 30'000, 0, 0, 3000, 3000, 0, 0}) + dib);
    });
    EmfBytes text;
    text.Add(82, Longs({1, -100'000, 0, 0, 0, 400}) + QByteArray(72, '\0')).Add(37, Longs({1}));
    for (int i = 0; i < 5'000; ++i)
        text.Add(84, Box32(0, 0, -1, -1) + Longs({1}) + Single(1) + Single(1) + Longs({0, 0, 8, 76, 0, 0, 0, 0, 0, 0}) +
                         QByteArray(16, 'W'));
    QTest::newRow("large letters") << text.File(3000, 3000);
    EmfBytes fonts;
    for (int i = 0; i < 20'000; ++i) {
        const QByteArray name = Word('a' + i % 26) + Word('a' + i / 26 % 26) + Word('a' + i / 676);
        fonts.Add(82, Longs({1, -i % 100, 0, 0, 0, 400}) + QByteArray(8, '\0') + name + QByteArray(58, '\0'));
        fonts.Add(37, Longs({1}));
        fonts.Add(84, Box32(0, 0, -1, -1) + Longs({1}) + Single(1) + Single(1) +
                          Longs({0, 0, 1, 76, 0, 0, 0, 0, 0, 0}) + Word('x'));
    }
    QTest::newRow("many fonts") << fonts.File(100, 100);
    EmfBytes numbers = Drawing32();
    const float beyond[] = {1e38F, -1e38F, std::numeric_limits<float>::infinity(),
                            std::numeric_limits<float>::quiet_NaN(), 1e-38F};
    for (const float number : beyond) {
        QByteArray world;
        for (int i = 0; i < 6; ++i)
            world += Single(number);
        numbers.Add(35, world).Add(43, Box32(-2'000'000'000, -2'000'000'000, 2'000'000'000, 2'000'000'000));
        numbers.Add(36, world + Long(2)).Add(42, Box32(-2'000'000'000, 0, 2'000'000'000, 7)).Add(58, Single(number));
        numbers.Add(41, Longs({0, 0, 2'000'000'000}) + Single(number) + Single(number));
        numbers.Add(9, Longs({0x7FFFFFFF, 1})).Add(11, Longs({1, -0x7FFFFFFF})).Add(17, Longs({8}));
        numbers.Add(86, Points16({-32768, 32767, 32767, -32768, 0, 0}));
    }
    QTest::newRow("numbers beyond numbers") << numbers.File(100, 100);
}

void tst_modMetafile::hostileFilesEnd()
{
    QFETCH(QByteArray, file);
    QElapsedTimer timer;
    timer.start();
    const auto played = PlayMetafile(file);
    QVERIFY(std::holds_alternative<QImage>(played) || std::get<MetafileError>(played) == MetafileError::TooMuchWork);
    // Slow machines and sanitizers need their time; a hang would need far more.
    QVERIFY2(timer.elapsed() < 60'000, qPrintable(QString::number(timer.elapsed())));
}

// Files of 32 kilobytes for a picture of 4000 x 4000.
void tst_modMetafile::smallHostileFilesEndSoon_data()
{
    QTest::addColumn<QByteArray>("file");
    constexpr int bytes = 32 * 1024;
    constexpr int side = 4000;
    const auto filled = [](EmfBytes file, const std::function<void(EmfBytes&, int)>& add) {
        const qsizetype start = file.File(side, side).size();
        for (int i = 0; file.File(side, side).size() - start < bytes; ++i)
            add(file, i);
        return file.File(side, side);
    };
    const auto zigzag = [](int count, int step) {
        QByteArray points = Box32(0, 0, -1, -1) + Long(count);
        for (int i = 0; i < count; ++i)
            points += Words({i * step % side, i % 2 == 0 ? 0 : side});
        return points;
    };
    // Stripes of one pixel, cut into as many lines as they are high.
    QByteArray stripes = Box32(0, 0, -1, -1) + Long(2000);
    for (int x = 0; x < 1000; x += 2)
        stripes += Words({x, 0, x, side, x + 1, side, x + 1, 0});
    const EmfBytes striped = Drawing32().Add(59).Add(86, stripes).Add(60).Add(67, Long(5));

    QByteArray figures = Box32(0, 0, -1, -1) + Longs({2500, 5000});
    QByteArray points;
    for (int i = 0; i < 2500; ++i) {
        const int x = i * 7919 % 32'000;
        const int y = i % 2 == 0 ? -32'000 : 32'000;
        figures += Long(2);
        points += Words({x, y, x + 1, y});
    }
    QTest::newRow("figures of a clip that are far apart")
        << Drawing32().Add(59).Add(91, figures + points).Add(60).Add(67, Long(5)).File(side, side);
    QTest::newRow("holes in a striped clip") << filled(
        striped, [](EmfBytes& file, int i) { file.Add(29, Box32(i, i * 7 % side, i + 1, i * 7 % side + 1)); });
    QTest::newRow("a striped clip that moves") << filled(striped, [](EmfBytes& file, int i) {
        file.Add(26, Longs({1, 0})).Add(15, Longs({5, 5, i}));
    });
    EmfBytes dots;
    dots.Add(95, Longs({1, 0, 0, 0, 0, 0x10002, 2, 0, 255, 0, 0})).Add(37, Long(1));
    QTest::newRow("dots of two pixels") << filled(dots, [&](EmfBytes& file, int) { file.Add(87, zigzag(3000, 7919)); });
    EmfBytes texture;
    const QByteArray dib = Longs({40, 1, 1}) + Words({1, 24}) + Longs({0, 0, 0, 0, 0, 0});
    texture.Add(94, Longs({3, 0, 32, 40, 72, 4}) + dib + QByteArray(4, '\x5A')).Add(37, Long(3));
    QTest::newRow("textures of one pixel")
        << filled(texture, [](EmfBytes& file, int) { file.Add(43, Box32(0, 0, side, side)); });
    QTest::newRow("zigzags") << filled(Drawing32(), [&](EmfBytes& file, int) { file.Add(86, zigzag(4000, 7919)); });
}

void tst_modMetafile::smallHostileFilesEndSoon()
{
    QFETCH(QByteArray, file);
    const std::clock_t start = std::clock();
    const auto played = PlayMetafile(file);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    QVERIFY(std::holds_alternative<QImage>(played) || std::get<MetafileError>(played) == MetafileError::TooMuchWork);
    // Less than one second of an ordinary processor; sanitizers take longer.
    QVERIFY2(seconds < 3, qPrintable(QString::number(seconds)));
}

// What drawing programs write, more than once over.
void tst_modMetafile::ordinaryClipsAndPensAreWithinTheLimits()
{
    EmfBytes file = Drawing32();
    QByteArray star = Box32(0, 0, -1, -1) + Long(60);
    for (int i = 0; i < 60; ++i)
        star += Words({500 + (i * 37 % 60) * 8, 500 + (i * 23 % 60) * 8});
    for (int i = 0; i < 40; ++i) {
        file.Add(33).Add(59).Add(86, star).Add(60).Add(67, Long(5));
        file.Add(43, Box32(0, 0, 1600, 1200)).Add(34, Long(-1));
    }
    file.Add(95, Longs({3, 0, 0, 0, 0, 0x10001, 3, 0, 255, 0, 0})).Add(37, Long(3));
    for (int i = 0; i < 500; ++i)
        file.Add(27, Longs({0, i * 2})).Add(54, Longs({1600, 1200 - i * 2}));
    QVERIFY(!Played(file.File(1600, 1200)).isNull());
}

void tst_modMetafile::everyPictureReaderAcceptsThem()
{
    const QTemporaryDir folder;
    const auto write = [&](const char* name, const QByteArray& bytes) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    };
    const QByteArray rectangle = Words({60, 50, 20, 10});
    QVERIFY(write("a.wmf", Drawing().Add(RectangleRecord, rectangle).Placeable(0, 0, 100, 80, 96)));
    QVERIFY(write("a.emf", Drawing32().Add(43, Box32(10, 20, 49, 59)).File(100, 80)));
    QVERIFY(write("bad.wmf", Drawing().Placeable(0, 0, 100, 80, 96).first(66)));
    for (const char* name : {"a.wmf", "a.emf"}) {
        const cDIBSection picture = LoadPicture(folder.filePath(QString::fromLatin1(name)));
        QCOMPARE(picture.Width(), 100);
        QCOMPARE(picture.Height(), 80);
        const QImage image = ImageOf(picture);
        QCOMPARE(image.pixel(30, 40), Green);
        QCOMPARE(image.pixel(10, 40), Red);
        QCOMPARE(image.pixel(80, 40), White);
    }
    QVERIFY_EXCEPTION_THROWN(LoadPicture(folder.filePath(u"bad.wmf"_s)), RuntimeError);
}

QTEST_MAIN(tst_modMetafile)
#include "tst_modMetafile.moc"
