// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures in memory: sizes, copies, noise, scaling, the 24-bit file.
#include "imaging/MemoryFiles.h"
#include "imaging/PlainImaging.h"
#include "imaging/cDIBSection.h"
#include "imaging/cImagingError.h"
#include "imaging/modSimd.h"

#include <QTest>

using namespace ob;

namespace {

cDIBSection Blank(std::int32_t width, std::int32_t height)
{
    cDIBSection section;
    section.Create(width, height);
    return section;
}

// A picture whose bytes identify their position.
cDIBSection Numbered(std::int32_t width, std::int32_t height)
{
    cDIBSection section = Blank(width, height);
    for (std::int32_t y = 0; y < height; ++y) {
        for (std::int32_t x = 0; x < width * 3; ++x)
            section.Line(y)[x] = static_cast<std::uint8_t>(y * 40 + x + 1);
    }
    return section;
}

void CompareResample(const plain::Picture& start, int newHeight, int newWidth)
{
    const plain::Picture reference = plain::Resample(start, newHeight, newWidth);
    const std::optional<cDIBSection> scaled = plain::SectionOf(start).Resample(newHeight, newWidth);
    QVERIFY(scaled.has_value());
    QVERIFY(plain::Of(*scaled).bytes == reference.bytes);
}

} // namespace

class tst_cDIBSection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { vectorInstructionsAllowed = true; }

    void aNewPictureIsBlackAndReportsItsSize()
    {
        cDIBSection section;
        QCOMPARE(section.hDib(), std::uintptr_t{0});
        QCOMPARE(section.hdc(), std::uintptr_t{0});
        QVERIFY(section.Create(3, 2));
        QCOMPARE(section.Width(), 3);
        QCOMPARE(section.Height(), 2);
        QCOMPARE(section.BytesPerScanLine(), 12);
        QVERIFY(section.hDib() != 0);
        const BitmapInfoHeader& header = section.Header();
        QCOMPARE(header.biSize, 40);
        QCOMPARE(header.biWidth, 3);
        QCOMPARE(header.biHeight, 2);
        QCOMPARE(int(header.biPlanes), 1);
        QCOMPARE(int(header.biBitCount), 24);
        QCOMPARE(header.biCompression, 0);
        QCOMPARE(header.biSizeImage, 24);
        for (int index = 0; index < 24; ++index)
            QCOMPARE(int(section.DIBSectionBitsPtr()[index]), 0);
    }

    void linesAreAlignedToMultiplesOfFour()
    {
        const std::array<int, 6> expected = {4, 8, 12, 12, 16, 20};
        for (int width = 1; width <= 6; ++width)
            QCOMPARE(Blank(width, 1).BytesPerScanLine(), expected[static_cast<std::size_t>(width) - 1]);
    }

    void impossibleSizesAreRejected_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        constexpr int most = std::numeric_limits<int>::max();
        constexpr int least = std::numeric_limits<int>::min();
        QTest::newRow("no width") << 0 << 5;
        QTest::newRow("no height") << 5 << 0;
        QTest::newRow("negative width") << -1 << 5;
        QTest::newRow("negative height") << 5 << -1;
        QTest::newRow("least") << least << least;
        QTest::newRow("widest") << most << 1;
        QTest::newRow("highest") << 1 << most;
        QTest::newRow("both") << most << most;
        QTest::newRow("just above 31 bits") << 1 << (1 << 29);
        QTest::newRow("a large square") << 26755 << 26755;
    }

    void impossibleSizesAreRejected()
    {
        QFETCH(int, width);
        QFETCH(int, height);
        cDIBSection section = Blank(2, 2);
        QVERIFY(!section.Create(width, height));
        QCOMPARE(section.hDib(), std::uintptr_t{0});
        QVERIFY(section.DIBSectionBitsPtr() == nullptr);
    }

    void clearUpKeepsOnlyTheSize()
    {
        cDIBSection section = Blank(7, 5);
        section.ClearUp();
        section.ClearUp();
        QCOMPARE(section.Width(), 7);
        QCOMPARE(section.Height(), 5);
        QCOMPARE(section.hdc(), std::uintptr_t{0});
        QCOMPARE(section.hDib(), std::uintptr_t{0});
        QVERIFY(section.DIBSectionBitsPtr() == nullptr);
    }

    void copiesAreMeasuredFromTheTopLeft()
    {
        const cDIBSection source = Numbered(4, 3);
        cDIBSection target = Blank(3, 2);
        target.LoadPictureBlt(source, 1, 1);
        // The top line of the target is the source's second from the top.
        QCOMPARE(std::memcmp(target.Line(1), source.Line(1) + 3, 9), 0);
        QCOMPARE(std::memcmp(target.Line(0), source.Line(0) + 3, 9), 0);

        cDIBSection other = Blank(5, 5);
        source.PaintPicture(other, 3, 1, 2, 2, 0, 0);
        for (std::int32_t y = 0; y < 5; ++y) {
            for (std::int32_t x = 0; x < 5; ++x) {
                const bool isPainted = x >= 3 && (y == 3 || y == 2);
                const int expected = isPainted ? source.Line(y - 1)[(x - 3) * 3] : 0;
                QCOMPARE(int(other.Line(y)[x * 3]), expected);
            }
        }
    }

    void copiesAreClippedToBothPictures()
    {
        const cDIBSection source = Numbered(4, 3);
        cDIBSection target = Blank(2, 2);
        source.PaintPicture(target, -1, -1);
        QCOMPARE(std::memcmp(target.Line(1), source.Line(1) + 3, 6), 0);
        QCOMPARE(std::memcmp(target.Line(0), source.Line(0) + 3, 6), 0);
        constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
        constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
        const plain::Picture before = plain::Of(target);
        source.PaintPicture(target, 5, 0);
        source.PaintPicture(target, most, least);
        source.PaintPicture(target, 0, 0, most, most, most, least);
        target.LoadPictureBlt(source, 0, 0, 0, 5);
        target.LoadPictureBlt(cDIBSection());
        QVERIFY(plain::Of(target).bytes == before.bytes);
    }

    void aPictureIsCopiedWithinItself()
    {
        for (const std::int32_t shift : {-1, 1}) {
            cDIBSection section = Numbered(4, 4);
            const plain::Picture before = plain::Of(section);
            section.PaintPicture(section, shift, shift);
            for (std::int32_t y = 0; y < 4; ++y) {
                for (std::int32_t x = 0; x < 4; ++x) {
                    const std::int32_t fromX = x - shift;
                    const std::int32_t fromY = y + shift; // lines run upward
                    const bool isInside = fromX >= 0 && fromX < 4 && fromY >= 0 && fromY < 4;
                    plain::Picture reference = before;
                    QCOMPARE(section.Line(y)[x * 3],
                             isInside ? reference.At(fromX * 3, fromY) : reference.At(x * 3, y));
                }
            }
        }
    }

    void noiseIsGreyOrHasNoBlue()
    {
        cDIBSection grey = Blank(50, 40);
        grey.RandomiseBits(Noise::Grey, 5);
        cDIBSection color = Blank(50, 40);
        color.RandomiseBits(Noise::Color, 5);
        std::array<bool, 256> greys = {};
        std::array<bool, 256> reds = {};
        std::array<bool, 256> greens = {};
        for (std::int32_t y = 0; y < 40; ++y) {
            for (std::int32_t x = 0; x < 50; ++x) {
                const std::uint8_t* pixel = grey.Line(y) + x * 3;
                QVERIFY(pixel[0] == pixel[1] && pixel[1] == pixel[2]);
                greys[pixel[0]] = true;
                pixel = color.Line(y) + x * 3;
                QCOMPARE(int(pixel[0]), 0);
                greens[pixel[1]] = true;
                reds[pixel[2]] = true;
            }
        }
        for (const auto& seen : {greys, reds, greens})
            QVERIFY(std::count(seen.begin(), seen.end(), true) > 240);
        cDIBSection again = Blank(50, 40);
        again.RandomiseBits(Noise::Grey);
        QVERIFY(plain::Of(again).bytes != plain::Of(grey).bytes);
    }

    // --- Scaling. ---

    void everyScaledWidthMatchesTheReference_data()
    {
        QTest::addColumn<int>("width");
        QTest::addColumn<bool>("vectors");
        for (int width = 2; width <= 70; ++width) {
            QTest::addRow("%d", width) << width << true;
            QTest::addRow("%d without vector instructions", width) << width << false;
        }
    }

    void everyScaledWidthMatchesTheReference()
    {
        QFETCH(int, width);
        QFETCH(bool, vectors);
        vectorInstructionsAllowed = vectors;
        for (int newWidth = 1; newWidth <= 70; ++newWidth) {
            const int height = 2 + (width * 3 + newWidth) % 11;
            const plain::Picture start =
                plain::Random(width, height, plain::Kind::Noise, static_cast<unsigned>(width * 70 + newWidth));
            CompareResample(start, 1 + (width + newWidth * 5) % 23, newWidth);
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QString::number(newWidth)));
        }
    }

    void largeAndExtremeSizesMatchTheReference()
    {
        const plain::Picture start = plain::Random(300, 200, plain::Kind::Noise, 1);
        CompareResample(start, 100, 150);
        CompareResample(start, 400, 600);
        CompareResample(start, 1, 1);
        CompareResample(start, 777, 1013);
        CompareResample(plain::Random(2, 2, plain::Kind::Noise, 2), 1500, 1500);
        CompareResample(plain::Random(5, 3, plain::Kind::Noise, 3), 2, 100000);
        CompareResample(plain::Random(100000, 2, plain::Kind::Noise, 3), 3, 70000);
        CompareResample(plain::Random(20000, 3, plain::Kind::Noise, 4), 70, 3);
    }

    void theSameSizeIsACopyAlsoOfOneLineOrColumn()
    {
        for (const auto& [width, height] : {std::pair(1, 1), std::pair(1, 9), std::pair(9, 1), std::pair(9, 9)}) {
            const plain::Picture start = plain::Random(width, height, plain::Kind::Noise, 1);
            const auto copy = plain::SectionOf(start).Resample(height, width);
            QVERIFY(copy.has_value());
            QVERIFY(plain::Of(*copy).bytes == start.bytes);
        }
    }

    void oneLineOrColumnCannotBeScaled()
    {
        for (const auto& [width, height] : {std::pair(1, 1), std::pair(1, 9), std::pair(9, 1)}) {
            const cDIBSection section = Blank(width, height);
            try {
                (void)section.Resample(4, 4);
                QFAIL("no error");
            } catch (const ImagingError& error) {
                QCOMPARE(error.number, 9);
            }
        }
    }

    void aSizeThatCannotBeMadeGivesNothing()
    {
        const cDIBSection section = Blank(4, 4);
        QVERIFY(!section.Resample(0, 4));
        QVERIFY(!section.Resample(4, -1));
        QVERIFY(!section.Resample(1 << 20, 1 << 20));
    }

    // --- The file. ---

    void theFileIsHeadersAndPixelsUnchanged()
    {
        MemoryFiles disk;
        const cDIBSection section = Numbered(3, 2);
        QVERIFY(!section.SavePicture("x.bmp", disk.Writer()));
        const std::vector<std::uint8_t>& file = disk.files["x.bmp"];
        QCOMPARE(file.size(), std::size_t{54 + 24});
        const std::vector<std::uint8_t> headers = {'B', 'M', 78, 0, 0, 0, 0,  0, 0, 0, 54, 0, 0, 0, // file
                                                   40,  0,   0,  0, 3, 0, 0,  0, 2, 0, 0,  0, 1, 0, // size
                                                   24,  0,   0,  0, 0, 0, 24, 0, 0, 0};
        QVERIFY(std::equal(headers.begin(), headers.end(), file.begin()));
        QVERIFY(std::all_of(file.begin() + static_cast<std::ptrdiff_t>(headers.size()), file.begin() + 54,
                            [](std::uint8_t byte) { return byte == 0; }));
        QVERIFY(std::equal(file.begin() + 54, file.end(), section.DIBSectionBitsPtr()));
        QVERIFY(file[54 + 9] == 0 && file[54 + 10] == 0 && file[54 + 11] == 0);
    }

    void aFileThatCannotBeOpenedRaisesError17()
    {
        MemoryFiles disk;
        disk.writeResult = {FileOutcome::NotOpened, EACCES};
        try {
            Blank(2, 2).SavePicture("x.bmp", disk.Writer());
            QFAIL("no error");
        } catch (const ImagingError& error) {
            QCOMPARE(error.number, 17);
            QVERIFY(QByteArray::fromStdString(error.source).endsWith(".cDIBSection256"));
            QCOMPARE(error.description, cDIBSection::ApiError(EACCES));
        }
        // A write that fails later is not reported.
        disk.writeResult = {FileOutcome::Failed, ENOSPC};
        QVERIFY(!Blank(2, 2).SavePicture("x.bmp", disk.Writer()));
    }

    void theSystemHasTextsForItsErrors()
    {
        QVERIFY(!cDIBSection::ApiError(0).empty());
        QCOMPARE(cDIBSection::ApiError(ENOENT), std::generic_category().message(ENOENT));
    }
};

QTEST_APPLESS_MAIN(tst_cDIBSection)
#include "tst_cDIBSection.moc"
