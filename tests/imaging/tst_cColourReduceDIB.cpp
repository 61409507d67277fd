// SPDX-License-Identifier: GPL-3.0-or-later
// Grey, black and white, and mapping to palettes: compared with the rules as they are defined.
#include "imaging/PlainImaging.h"
#include "imaging/cColourReduceDIB.h"
#include "imaging/cImagingError.h"
#include "imaging/modGrey.h"
#include "imaging/modNearest.h"
#include "imaging/modSimd.h"

#include <QTest>

#include <vector>

using namespace ob;

namespace {

constexpr plain::Kind kinds[] = {plain::Kind::Noise, plain::Kind::FewColors, plain::Kind::Photograph};

// A palette of that many random colours, some of them twice.
cPalette RandomPalette(int count, unsigned seed)
{
    std::mt19937 generator(seed);
    cPalette palette;
    for (int index = 1; index <= count; ++index) {
        if (index > 1 && generator() % 8 == 0) {
            const auto other = static_cast<std::int32_t>(generator() % static_cast<unsigned>(index - 1)) + 1;
            palette.Add(palette.Red(other), palette.Green(other), palette.Blue(other));
        } else {
            palette.Add(static_cast<std::uint8_t>(generator()), static_cast<std::uint8_t>(generator()),
                        static_cast<std::uint8_t>(generator()));
        }
    }
    return palette;
}

plain::Entries EntriesOf(const cPalette& palette)
{
    return {palette.Entries().begin(), palette.Entries().end()};
}

cDIBSection Blank(const cDIBSection& like)
{
    cDIBSection section;
    section.Create(like.Width(), like.Height());
    return section;
}

cDIBSection OfGreys(const std::vector<std::vector<int>>& lines)
{
    cDIBSection section;
    section.Create(static_cast<std::int32_t>(lines[0].size()), static_cast<std::int32_t>(lines.size()));
    for (std::size_t y = 0; y < lines.size(); ++y) {
        for (std::size_t x = 0; x < lines[y].size(); ++x)
            std::memset(section.Line(static_cast<std::int64_t>(y)) + x * 3, lines[y][x], 3);
    }
    return section;
}

std::vector<int> GreysOfLine(const cDIBSection& section, std::int32_t y)
{
    std::vector<int> greys;
    for (std::int32_t x = 0; x < section.Width(); ++x)
        greys.push_back(section.Line(y)[x * 3]);
    return greys;
}

} // namespace

class tst_cColourReduceDIB : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { vectorInstructionsAllowed = true; }

    void greyWeighsTheChannelsAndRoundsHalvesToEven()
    {
        QCOMPARE(int(GreyOf(0, 255, 0)), 180);
        QCOMPARE(int(GreyOf(255, 0, 0)), 57);
        QCOMPARE(int(GreyOf(0, 0, 255)), 18);
        for (unsigned color = 0; color < 1U << 24; ++color) {
            const unsigned red = color >> 16;
            const unsigned green = color >> 8 & 255U;
            const unsigned blue = color & 255U;
            const int reference = plain::RoundHalfEven((707 * green + 222 * red + 71 * blue) / 1000.0);
            if (GreyOf(static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                       static_cast<std::uint8_t>(blue)) != reference)
                QFAIL(qPrintable(QString::number(color, 16)));
        }
    }

    void greyOfEveryColorMatchesTheFormulaInPictures()
    {
        // All colours, a line of 4096 of them at a time.
        for (unsigned first = 0; first < 1U << 24; first += 4096) {
            cDIBSection picture;
            QVERIFY(picture.Create(4096, 1));
            for (unsigned x = 0; x < 4096; ++x) {
                const unsigned color = first + x;
                std::uint8_t* pixel = picture.Line(0) + x * 3;
                pixel[0] = static_cast<std::uint8_t>(color);
                pixel[1] = static_cast<std::uint8_t>(color >> 8);
                pixel[2] = static_cast<std::uint8_t>(color >> 16);
            }
            cColourReduceDIB().GrayScale(picture);
            for (unsigned x = 0; x < 4096; ++x) {
                const unsigned color = first + x;
                const std::uint8_t grey =
                    GreyOf(static_cast<std::uint8_t>(color >> 16), static_cast<std::uint8_t>(color >> 8),
                           static_cast<std::uint8_t>(color));
                const std::uint8_t* pixel = picture.Line(0) + x * 3;
                if (pixel[0] != grey || pixel[1] != grey || pixel[2] != grey)
                    QFAIL(qPrintable(QString::number(color, 16)));
            }
        }
    }

    void everyWidthMatchesTheReference_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("vectors");
        for (int width = 1; width <= 70; ++width) {
            QTest::addRow("%d", width) << width << true;
            QTest::addRow("%d without vector instructions", width) << width << false;
        }
    }

    void everyWidthMatchesTheReference()
    {
        QFETCH(int, width);
        QFETCH(bool, vectors);
        vectorInstructionsAllowed = vectors;
        const cColourReduceDIB reducer;
        for (const int height : {1, 2, 3, 4, 5, 7, 8, 9, 13}) {
            for (const plain::Kind kind : kinds) {
                const auto seed = static_cast<unsigned>(width * 100 + height);
                plain::Picture start = plain::Random(width, height, kind, seed);
                {
                    plain::Picture reference = start;
                    plain::GrayScale(reference);
                    cDIBSection picture = plain::SectionOf(start);
                    reducer.GrayScale(picture);
                    QVERIFY(plain::Of(picture).bytes == reference.bytes);
                }
                {
                    plain::Picture referenceSource = start;
                    plain::Picture reference(width, height);
                    plain::BlackAndWhite(referenceSource, reference);
                    cDIBSection source = plain::SectionOf(start);
                    cDIBSection target = Blank(source);
                    reducer.BlackAndWhite(source, target);
                    QVERIFY(plain::Of(target).bytes == reference.bytes);
                    QVERIFY(plain::Of(source).bytes == referenceSource.bytes);
                    cDIBSection both = plain::SectionOf(start);
                    reducer.BlackAndWhite(both, both);
                    QVERIFY(plain::Of(both).bytes == reference.bytes);
                }
                const cPalette palette = RandomPalette(1 + static_cast<int>(seed * 7 % 40), seed);
                for (const Dither dither : {Dither::Off, Dither::On}) {
                    plain::Picture referenceSource = start;
                    plain::Picture reference(width, height);
                    plain::ApplyPalette(referenceSource, reference, EntriesOf(palette), dither == Dither::On);
                    cDIBSection source = plain::SectionOf(start);
                    cDIBSection target = Blank(source);
                    reducer.ApplyPalette(source, target, palette, dither);
                    QVERIFY(plain::Of(target).bytes == reference.bytes);
                    QVERIFY(plain::Of(source).bytes == referenceSource.bytes);
                    cDIBSection both = plain::SectionOf(start);
                    reducer.ApplyPalette(both, both, palette, dither);
                    QVERIFY(plain::Of(both).bytes == reference.bytes);
                }
            }
        }
    }

    void palettesOfEverySizeMatchTheReference_data()
    {
        QTest::addColumn<int>("count");
        for (const int count : {1, 2, 3, 15, 16, 17, 64, 100, 236, 256, 1000, 4097})
            QTest::addRow("%d", count) << count;
    }

    void palettesOfEverySizeMatchTheReference()
    {
        QFETCH(int, count);
        const cPalette palette = RandomPalette(count, static_cast<unsigned>(count));
        for (const plain::Kind kind : kinds) {
            const plain::Picture start = plain::Random(97, 61, kind, 5);
            for (const Dither dither : {Dither::Off, Dither::On}) {
                plain::Picture referenceSource = start;
                plain::Picture reference(97, 61);
                plain::ApplyPalette(referenceSource, reference, EntriesOf(palette), dither == Dither::On);
                cDIBSection source = plain::SectionOf(start);
                cDIBSection target = Blank(source);
                cColourReduceDIB().ApplyPalette(source, target, palette, dither);
                QVERIFY(plain::Of(target).bytes == reference.bytes);
            }
        }
    }

    void theFixedPalettesMatchTheReference()
    {
        std::vector<cPalette> palettes(4);
        palettes[0].CreateWebSafe();
        palettes[1].CreateHalfTone();
        palettes[2].CreateMono();
        palettes[3].Create16Colour();
        for (const cPalette& palette : palettes) {
            for (const plain::Kind kind : kinds) {
                const plain::Picture start = plain::Random(131, 67, kind, 9);
                for (const Dither dither : {Dither::Off, Dither::On}) {
                    plain::Picture referenceSource = start;
                    plain::Picture reference(131, 67);
                    plain::ApplyPalette(referenceSource, reference, EntriesOf(palette), dither == Dither::On);
                    cDIBSection source = plain::SectionOf(start);
                    cDIBSection target = Blank(source);
                    cColourReduceDIB().ApplyPalette(source, target, palette, dither);
                    QVERIFY(plain::Of(target).bytes == reference.bytes);
                }
            }
        }
    }

    void theSearchByCellsFindsTheFirstNearest()
    {
        // What processors without the vector instructions use, and what the bitmap writer uses.
        std::mt19937 generator(1);
        for (const int count : {1, 5, 16, 125, 256, 600}) {
            const cPalette palette = RandomPalette(count, static_cast<unsigned>(count) + 77);
            cNearest cityBlock(palette.Entries(), Distance::CityBlock);
            cNearest squared(palette.Entries(), Distance::Squared);
            const plain::Entries entries = EntriesOf(palette);
            std::vector<plain::Slot> slots;
            for (const PaletteEntry& entry : palette.Entries())
                slots.push_back({entry.blue, entry.green, entry.red});
            for (int attempt = 0; attempt < 20000; ++attempt) {
                const auto red = static_cast<std::uint8_t>(generator());
                const auto green = static_cast<std::uint8_t>(generator());
                const auto blue = static_cast<std::uint8_t>(generator());
                QCOMPARE(cityBlock.Find(red, green, blue) + 1, plain::ClosestIndex(entries, red, green, blue));
                QCOMPARE(squared.Find(red, green, blue), plain::NearestSlot(slots, red, green, blue));
            }
        }
    }

    void theThresholdAndItsErrors()
    {
        // 128 is black and passes 128 on; the pixel to its right takes 56 of it.
        cDIBSection picture = OfGreys({{128, 72, 0, 0}});
        cColourReduceDIB().BlackAndWhite(picture, picture);
        QCOMPARE(GreysOfLine(picture, 0), (std::vector<int>{0, 0, 0, 0}));
        picture = OfGreys({{128, 73, 0, 0}});
        cColourReduceDIB().BlackAndWhite(picture, picture);
        QCOMPARE(GreysOfLine(picture, 0), (std::vector<int>{0, 255, 0, 0}));
        // 16 is dropped, 17 passes 7 on.
        picture = OfGreys({{16, 122, 0, 0}});
        cColourReduceDIB().BlackAndWhite(picture, picture);
        QCOMPARE(GreysOfLine(picture, 0), (std::vector<int>{0, 0, 0, 0}));
        picture = OfGreys({{17, 122, 0, 0}});
        cColourReduceDIB().BlackAndWhite(picture, picture);
        QCOMPARE(GreysOfLine(picture, 0), (std::vector<int>{0, 255, 0, 0}));
        // White passes -56 on.
        picture = OfGreys({{255, 184, 0, 0}});
        cColourReduceDIB().BlackAndWhite(picture, picture);
        QCOMPARE(GreysOfLine(picture, 0), (std::vector<int>{255, 0, 0, 0}));
        picture = OfGreys({{255, 185, 0, 0}});
        cColourReduceDIB().BlackAndWhite(picture, picture);
        QCOMPARE(GreysOfLine(picture, 0), (std::vector<int>{255, 255, 0, 0}));
    }

    void picturesOfOneOrTwoColumnsAreAPlainThreshold()
    {
        cDIBSection picture = OfGreys({{128, 129}, {120, 128}, {200, 10}});
        cColourReduceDIB().BlackAndWhite(picture, picture);
        QCOMPARE(GreysOfLine(picture, 0), (std::vector<int>{0, 255}));
        QCOMPARE(GreysOfLine(picture, 1), (std::vector<int>{0, 0}));
        QCOMPARE(GreysOfLine(picture, 2), (std::vector<int>{255, 0}));
    }

    void smallErrorsAreNotPassedOn()
    {
        cPalette palette;
        palette.Add(100, 100, 100);
        palette.Add(108, 108, 108);
        // A total error of 3 is dropped; one of 6 gives 0 too, as 7/16 of 2 is truncated to 0; one of 9 gives 1 per
        // channel.
        const std::vector<std::vector<int>> cases = {{101, 104, 100, 100}, {102, 104, 100, 100}, {103, 104, 100, 100}};
        const std::vector<int> second = {100, 100, 108};
        for (std::size_t index = 0; index < cases.size(); ++index) {
            cDIBSection source = OfGreys({cases[index]});
            cDIBSection target = Blank(source);
            cColourReduceDIB().ApplyPalette(source, target, palette, Dither::On);
            QCOMPARE(GreysOfLine(target, 0)[1], second[index]);
        }
    }

    void eventsReportTheirValues()
    {
        struct Reports {
            std::vector<int> starts;
            std::vector<int> positions;
            int ends = 0;
        } reports;
        cColourReduceDIB reducer;
        reducer.events.InitProgress = [&](std::int32_t maximum) { reports.starts.push_back(maximum); };
        reducer.events.Progress = [&](std::int32_t position) { reports.positions.push_back(position); };
        reducer.events.Complete = [&](std::int32_t milliseconds) {
            QVERIFY(milliseconds >= 0);
            ++reports.ends;
        };
        cDIBSection picture = plain::SectionOf(plain::Random(5, 40, plain::Kind::Noise, 1));
        const std::vector<int> columns = {0, 3, 6, 9, 12};
        reducer.GrayScale(picture);
        QCOMPARE(reports.starts, std::vector<int>{4});
        QCOMPARE(reports.positions, columns);
        QCOMPARE(reports.ends, 1);

        reports = {};
        cDIBSection target = Blank(picture);
        reducer.BlackAndWhite(picture, target);
        QCOMPARE(reports.starts, (std::vector<int>{4, 12}));
        QCOMPARE(reports.positions, (std::vector<int>{0, 3, 6, 9, 12, 0, 3, 6, 9, 12}));
        QCOMPARE(reports.ends, 2);

        reports = {};
        cPalette palette;
        palette.CreateMono();
        reducer.ApplyPalette(picture, target, palette, Dither::On);
        QCOMPARE(reports.starts, std::vector<int>{12});
        QCOMPARE(reports.positions, columns);
        QCOMPARE(reports.ends, 1);
    }

    void aColorWithoutANearestEntryRaisesTheSubscriptError()
    {
        cPalette white;
        white.Add(255, 255, 255);
        cDIBSection black = OfGreys({{0, 0, 0}});
        cDIBSection target = Blank(black);
        for (const Dither dither : {Dither::Off, Dither::On}) {
            QVERIFY_EXCEPTION_THROWN(cColourReduceDIB().ApplyPalette(black, target, white, dither), ImagingError);
            QVERIFY_EXCEPTION_THROWN(cColourReduceDIB().ApplyPalette(black, target, cPalette(), dither), ImagingError);
        }
    }

    void picturesOfTwoSizesStopOrUseTheTargetsPart()
    {
        cDIBSection large = plain::SectionOf(plain::Random(9, 7, plain::Kind::Noise, 3));
        cDIBSection small;
        QVERIFY(small.Create(5, 4));
        QVERIFY_EXCEPTION_THROWN(cColourReduceDIB().BlackAndWhite(small, large), ImagingError);
        cPalette palette;
        palette.CreateMono();
        QVERIFY_EXCEPTION_THROWN(cColourReduceDIB().ApplyPalette(small, large, palette, Dither::On), ImagingError);

        plain::Picture referenceSource = plain::Of(large);
        plain::Picture reference(5, 4);
        plain::ApplyPalette(referenceSource, reference, EntriesOf(palette), true);
        cColourReduceDIB().ApplyPalette(large, small, palette, Dither::On);
        QVERIFY(plain::Of(small).bytes == reference.bytes);

        cDIBSection none;
        QVERIFY_EXCEPTION_THROWN(cColourReduceDIB().GrayScale(none), ImagingError);
        QVERIFY_EXCEPTION_THROWN(cColourReduceDIB().BlackAndWhite(none, small), ImagingError);
    }
};

QTEST_APPLESS_MAIN(tst_cColourReduceDIB)
#include "tst_cColourReduceDIB.moc"
