// SPDX-License-Identifier: GPL-3.0-or-later
// Palettes: the fixed ones, the nearest entry, the best one for a picture, the two file formats.
#include "imaging/MemoryFiles.h"
#include "imaging/PlainImaging.h"
#include "imaging/cImagingError.h"
#include "imaging/cPalette.h"
#include "imaging/modPaletteText.h"
#include "imaging/modSimd.h"

#include <QTest>

using namespace ob;

namespace {

constexpr plain::Kind kinds[] = {plain::Kind::Noise, plain::Kind::FewColors, plain::Kind::Photograph};

plain::Entries EntriesOf(const cPalette& palette)
{
    return {palette.Entries().begin(), palette.Entries().end()};
}

PaletteEntry Entry(const cPalette& palette, std::int32_t index)
{
    return {palette.Red(index), palette.Green(index), palette.Blue(index), 0};
}

cPalette Of(const plain::Entries& entries)
{
    cPalette palette;
    for (const PaletteEntry& entry : entries)
        palette.Add(entry.red, entry.green, entry.blue);
    return palette;
}

int ErrorNumberOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const ImagingError& error) {
        return error.number;
    }
    return 0;
}

// The library's palette, its progress and its failures are those of the reference.
void CompareOptimal(plain::Picture picture, int wanted, int level)
{
    plain::Octree octree;
    const plain::Entries reference = octree.CreateOptimal(picture, wanted, level);
    const cDIBSection section = plain::SectionOf(picture);
    cPalette palette;
    std::vector<std::int32_t> progress;
    std::vector<std::int64_t> failures;
    cPalette::OptimalEvents events;
    events.progress.Progress = [&](std::int32_t position) { progress.push_back(position); };
    events.reducingFailed = [&](std::int64_t times) { failures.push_back(times); };
    palette.CreateOptimal(section, wanted, static_cast<std::uint8_t>(level), events);
    QVERIFY(EntriesOf(palette) == reference);
    QVERIFY(progress == octree.progress);
    if (octree.failures == 0)
        QVERIFY(failures.empty());
    else
        QCOMPARE(failures, std::vector<std::int64_t>{octree.failures});
}

} // namespace

class tst_cPalette : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { vectorInstructionsAllowed = true; }

    // --- Fixed palettes. ---

    void theWebPaletteEndsAsItAlwaysDid()
    {
        cPalette palette;
        palette.CreateWebSafe();
        QCOMPARE(palette.Count(), 256);
        QVERIFY(Entry(palette, 1) == (PaletteEntry{0, 0, 0, 0}));
        QVERIFY(Entry(palette, 2) == (PaletteEntry{128, 0, 0, 0}));
        QVERIFY(Entry(palette, 8) == (PaletteEntry{192, 192, 192, 0}));
        QVERIFY(Entry(palette, 9) == (PaletteEntry{51, 0, 0, 0}));
        QVERIFY(Entry(palette, 10) == (PaletteEntry{102, 0, 0, 0}));
        QVERIFY(Entry(palette, 11) == (PaletteEntry{153, 0, 0, 0}));
        QVERIFY(Entry(palette, 215) == (PaletteEntry{153, 255, 255, 0}));
        QVERIFY(Entry(palette, 216) == (PaletteEntry{248, 248, 248, 0}));
        for (std::int32_t index = 217; index <= 247; ++index)
            QVERIFY(Entry(palette, index) == PaletteEntry{});
        QVERIFY(Entry(palette, 248) == (PaletteEntry{128, 128, 128, 0}));
        QVERIFY(Entry(palette, 249) == (PaletteEntry{255, 0, 0, 0}));
        QVERIFY(Entry(palette, 255) == (PaletteEntry{255, 255, 255, 0}));
        QVERIFY(Entry(palette, 256) == PaletteEntry{});
    }

    void theHalfTonePaletteFillsAFewLessThanHalf()
    {
        cPalette palette;
        palette.CreateHalfTone();
        QCOMPARE(palette.Count(), 256);
        QVERIFY(Entry(palette, 1) == PaletteEntry{});
        QVERIFY(Entry(palette, 2) == (PaletteEntry{64, 0, 0, 0}));
        QVERIFY(Entry(palette, 5) == (PaletteEntry{255, 0, 0, 0}));
        QVERIFY(Entry(palette, 6) == (PaletteEntry{0, 64, 0, 0}));
        QVERIFY(Entry(palette, 26) == (PaletteEntry{0, 0, 64, 0}));
        QVERIFY(Entry(palette, 125) == (PaletteEntry{255, 255, 255, 0}));
        for (std::int32_t index = 126; index <= 256; ++index)
            QVERIFY(Entry(palette, index) == PaletteEntry{});
    }

    void theSixteenColorsAndBlackAndWhite()
    {
        cPalette palette;
        palette.Create16Colour();
        QVERIFY(EntriesOf(palette) == (plain::Entries{{0, 0, 0, 0},
                                                      {128, 0, 0, 0},
                                                      {0, 128, 0, 0},
                                                      {128, 128, 0, 0},
                                                      {0, 0, 128, 0},
                                                      {128, 0, 128, 0},
                                                      {0, 128, 128, 0},
                                                      {192, 192, 192, 0},
                                                      {128, 128, 128, 0},
                                                      {255, 0, 0, 0},
                                                      {0, 255, 0, 0},
                                                      {255, 255, 0, 0},
                                                      {0, 0, 255, 0},
                                                      {255, 0, 255, 0},
                                                      {0, 255, 255, 0},
                                                      {255, 255, 255, 0}}));
        palette.CreateMono();
        QVERIFY(EntriesOf(palette) == (plain::Entries{{0, 0, 0, 0}, {255, 255, 255, 0}}));
    }

    void anIndexOutsideTheListRaisesTheSubscriptError()
    {
        cPalette palette;
        palette.CreateMono();
        for (const std::int32_t index : {0, -1, 3}) {
            QCOMPARE(ErrorNumberOf([&] { palette.Red(index); }), 9);
            QCOMPARE(ErrorNumberOf([&] { palette.Green(index); }), 9);
            QCOMPARE(ErrorNumberOf([&] { palette.Blue(index); }), 9);
        }
        palette.Clear();
        QCOMPARE(palette.Count(), 0);
        QCOMPARE(ErrorNumberOf([&] { palette.Red(1); }), 9);
    }

    // --- The nearest entry. ---

    void theFirstOfSeveralNearestEntriesWins()
    {
        const cPalette palette = Of({{10, 10, 10, 0}, {20, 10, 10, 0}, {10, 10, 10, 0}, {10, 20, 10, 0}});
        QCOMPARE(palette.ClosestIndex(15, 10, 10), 1);
        QCOMPARE(palette.ClosestIndex(10, 10, 10), 1);
        QCOMPARE(palette.ClosestIndex(16, 16, 10), 2);
        QCOMPARE(palette.ClosestIndex(10, 16, 10), 4);
    }

    void theFarthestColorHasNoNearestEntry()
    {
        QCOMPARE(cPalette().ClosestIndex(1, 2, 3), 0);
        QCOMPARE(Of({{255, 255, 255, 0}}).ClosestIndex(0, 0, 0), 0);
        QCOMPARE(Of({{254, 255, 255, 0}}).ClosestIndex(0, 0, 0), 1);
        QCOMPARE(Of({{255, 255, 255, 0}, {254, 255, 255, 0}}).ClosestIndex(0, 0, 0), 2);
    }

    void anyNumbersMayBeRequested()
    {
        constexpr std::int32_t least = std::numeric_limits<std::int32_t>::min();
        constexpr std::int32_t most = std::numeric_limits<std::int32_t>::max();
        const cPalette palette = Of({{0, 0, 0, 0}, {255, 255, 255, 0}});
        QCOMPARE(palette.ClosestIndex(-10, -10, -10), 1);
        QCOMPARE(palette.ClosestIndex(300, 300, 300), 2);
        QCOMPARE(palette.ClosestIndex(256 + 764, 255, 255), 0);
        QCOMPARE(palette.ClosestIndex(255 + 764, 255, 255), 2);
        QCOMPARE(palette.ClosestIndex(least, most, least), 0);
    }

    void theNearestEntryMatchesTheReference_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("vectors");
        for (const int count : {1, 2, 7, 8, 9, 15, 16, 17, 31, 32, 33, 236, 256, 257}) {
            QTest::addRow("%d", count) << count << true;
            QTest::addRow("%d without vector instructions", count) << count << false;
        }
    }

    void theNearestEntryMatchesTheReference()
    {
        QFETCH(int, count);
        QFETCH(bool, vectors);
        vectorInstructionsAllowed = vectors;
        std::mt19937 generator(static_cast<unsigned>(count));
        plain::Entries entries;
        for (int index = 0; index < count; ++index) {
            // Coarse steps make many ties.
            const auto channel = [&] { return static_cast<std::uint8_t>(generator() % 8 * 32); };
            entries.push_back({channel(), channel(), channel(), static_cast<std::uint8_t>(generator())});
        }
        const cPalette palette = Of(entries);
        for (int attempt = 0; attempt < 20000; ++attempt) {
            const int red = static_cast<int>(generator() % 256);
            const int green = static_cast<int>(generator() % 256);
            const int blue = static_cast<int>(generator() % 256);
            QCOMPARE(palette.ClosestIndex(red, green, blue), plain::ClosestIndex(entries, red, green, blue));
        }
    }

    // --- The best palette for a picture. ---

    void theBestPaletteMatchesTheReferenceAtEveryWidth()
    {
        for (int width = 1; width <= 70; ++width) {
            for (const plain::Kind kind : kinds) {
                const auto seed = static_cast<unsigned>(width);
                const int wanted = 1 + width * 37 % 300;
                CompareOptimal(plain::Random(width, 1 + width % 9, kind, seed), wanted, 1 + width % 8);
                if (QTest::currentTestFailed())
                    QFAIL(qPrintable(QString::number(width)));
            }
        }
    }

    void theBestPaletteMatchesTheReferenceAtEveryLevelAndCount_data()
    {
        QTest::addColumn<int>("level");
        for (int level = 1; level <= 8; ++level)
            QTest::addRow("%d", level) << level;
    }

    void theBestPaletteMatchesTheReferenceAtEveryLevelAndCount()
    {
        QFETCH(int, level);
        for (const int wanted : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 16, 17, 100, 236, 256, 1000, 100000}) {
            for (const plain::Kind kind : kinds) {
                CompareOptimal(plain::Random(83, 41, kind, static_cast<unsigned>(wanted + level)), wanted, level);
                if (QTest::currentTestFailed())
                    QFAIL(qPrintable(QString::number(wanted)));
            }
        }
    }

    void aLargePicturesPaletteMatchesTheReference()
    {
        CompareOptimal(plain::Random(640, 480, plain::Kind::Photograph, 3), 236, 6);
        CompareOptimal(plain::Random(400, 300, plain::Kind::Noise, 3), 236, 6);
        CompareOptimal(plain::Random(200, 200, plain::Kind::Noise, 3), 236, 8);
    }

    void sumsBeyond32BitsComeOutExactly()
    {
        // 17 million pixels of one grey; their neighbours' triples are the same colour.
        cDIBSection section;
        QVERIFY(section.Create(6000, 3000));
        std::memset(section.DIBSectionBitsPtr(), 254, static_cast<std::size_t>(section.Header().biSizeImage));
        cPalette palette;
        palette.CreateOptimal(section, 16, 6);
        QVERIFY(EntriesOf(palette) == (plain::Entries{{254, 254, 254, 0}}));
    }

    void oneWantedColorFailsToFoldTheRoot()
    {
        plain::Picture picture = plain::Random(16, 16, plain::Kind::Noise, 1);
        cPalette palette;
        int boxes = 0;
        cPalette::OptimalEvents events;
        events.reducingFailed = [&](std::int64_t) { ++boxes; };
        palette.CreateOptimal(plain::SectionOf(picture), 1, 6, events);
        QCOMPARE(boxes, 1);
        QCOMPARE(palette.Count(), 8);
    }

    void levelsThatTheTreeLacksRaiseTheSubscriptErrorWhenTheyAreMet()
    {
        const cDIBSection noise = plain::SectionOf(plain::Random(16, 16, plain::Kind::Noise, 1));
        cPalette palette;
        palette.CreateMono();
        for (const int level : {0, 10, 255})
            QCOMPARE(ErrorNumberOf([&] { palette.CreateOptimal(noise, 100000, static_cast<std::uint8_t>(level)); }), 9);
        QCOMPARE(ErrorNumberOf([&] { palette.CreateOptimal(noise, 16, 9); }), 9);
        QCOMPARE(palette.Count(), 2);
        // Level 9 works as long as nothing has to be folded.
        CompareOptimal(plain::Random(16, 16, plain::Kind::Noise, 1), 100000, 9);
    }

    void valuesZeroAndOneShareACell()
    {
        cDIBSection section;
        QVERIFY(section.Create(1, 2));
        section.Line(1)[0] = section.Line(1)[1] = section.Line(1)[2] = 1;
        cPalette palette;
        palette.CreateOptimal(section, 16, 8);
        QVERIFY(EntriesOf(palette) == (plain::Entries{{0, 0, 0, 0}}));
    }

    void theFirstEventReportsLinesAndColors()
    {
        std::vector<std::int32_t> starts;
        int ends = 0;
        cPalette palette;
        cPalette::OptimalEvents events;
        events.progress.InitProgress = [&](std::int32_t maximum) { starts.push_back(maximum); };
        events.progress.Complete = [&](std::int32_t) { ++ends; };
        palette.CreateOptimal(plain::SectionOf(plain::Random(9, 7, plain::Kind::Noise, 1)), 20, 6, events);
        QCOMPARE(starts, std::vector<std::int32_t>{26});
        QCOMPARE(ends, 1);
        QVERIFY(palette.Nodes().size() > 20);
        palette.EraseNodes();
        QVERIFY(palette.Nodes().empty());
    }

    // --- The binary file. ---

    void aBinaryFileIsACountAndFourBytesAnEntry()
    {
        MemoryFiles disk;
        QVERIFY(Of({{1, 2, 3, 0}, {255, 254, 253, 0}}).Save("p", 0, disk.Writer()));
        QCOMPARE(disk.files["p"], (std::vector<std::uint8_t>{2, 0, 0, 0, 1, 2, 3, 0, 255, 254, 253, 0}));
        disk.files["p"][7] = 99;
        cPalette palette;
        std::int32_t position = -5;
        QVERIFY(palette.Load("p", position, disk.Reader()));
        QCOMPARE(position, 12);
        QVERIFY(EntriesOf(palette) == (plain::Entries{{1, 2, 3, 99}, {255, 254, 253, 0}}));
    }

    void aPositionMayBeWithinALargerFile()
    {
        MemoryFiles disk;
        QVERIFY(Of({{7, 8, 9, 0}}).Save("p", 5, disk.Writer()));
        QCOMPARE(disk.files["p"], (std::vector<std::uint8_t>{0, 0, 0, 0, 0, 1, 0, 0, 0, 7, 8, 9, 0}));
        cPalette palette;
        std::int32_t position = 5;
        QVERIFY(palette.Load("p", position, disk.Reader()));
        QCOMPARE(position, 13);
        QCOMPARE(palette.Count(), 1);
        position = 14;
        QVERIFY(!palette.Load("p", position, disk.Reader()));
        QCOMPARE(position, 14);
    }

    void binaryCountsFrom1To4097AreTaken()
    {
        for (const int count : {0, 1, 4097, 4098, -1}) {
            MemoryFiles disk;
            std::vector<std::uint8_t>& file = disk.files["p"];
            file.resize(4 + 4 * 4098);
            for (unsigned byte = 0; byte < 4; ++byte)
                file[byte] = static_cast<std::uint8_t>(static_cast<unsigned>(count) >> (8 * byte));
            cPalette palette;
            palette.CreateMono();
            std::int32_t position = 0;
            const bool isGood = count == 1 || count == 4097;
            QCOMPARE(palette.Load("p", position, disk.Reader()), isGood);
            QCOMPARE(palette.Count(), isGood ? count : 2);
            QCOMPARE(position, isGood ? 4 + 4 * count : 0);
        }
    }

    void aBinaryFileThatEndsEarlyLeavesWhatItHad()
    {
        MemoryFiles disk;
        disk.files["p"] = {3, 0, 0, 0, 10, 20, 30, 40, 50, 60};
        cPalette palette;
        std::int32_t position = 0;
        QVERIFY(!palette.Load("p", position, disk.Reader()));
        QCOMPARE(position, 0);
        QVERIFY(EntriesOf(palette) == (plain::Entries{{10, 20, 30, 40}, {50, 60, 0, 0}, {0, 0, 0, 0}}));
        disk.files["p"] = {3, 0, 0};
        QVERIFY(!palette.Load("p", position, disk.Reader()));
        QVERIFY(!palette.Load("gone", position, disk.Reader()));
        QCOMPARE(palette.Count(), 3);
    }

    void aBinaryFileThatCannotBeWrittenGivesFalse()
    {
        MemoryFiles disk;
        disk.writeResult.outcome = FileOutcome::NotOpened;
        QVERIFY(!Of({{1, 2, 3, 0}}).Save("p", 0, disk.Writer()));
        disk.writeResult.outcome = FileOutcome::Failed;
        QVERIFY(!Of({{1, 2, 3, 0}}).Save("p", 0, disk.Writer()));
    }

    // --- The text file. ---

    void aTextFileIsWrittenWithoutALastLineEndAndGivesFalse()
    {
        MemoryFiles disk;
        QVERIFY(!Of({{1, 2, 3, 0}, {255, 0, 128, 0}}).SaveToJASCFile("p", disk.Writer()));
        QCOMPARE(disk.Text("p"), std::string("JASC\r\n0100\r\n2\r\n1 2 3\r\n255 0 128"));
        disk.writeResult.outcome = FileOutcome::NotOpened;
        QVERIFY(!cPalette().SaveToJASCFile("p", disk.Writer()));
        cPalette palette;
        QVERIFY(palette.LoadFromJASCFile("p", disk.Reader()));
        QVERIFY(EntriesOf(palette) == (plain::Entries{{1, 2, 3, 0}, {255, 0, 128, 0}}));
    }

    void aTextFileIsItsLinesOfThreeParts_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("count"); // -1: the file fails
        const auto row = [](const char* name, const char* text, int count) {
            QTest::newRow(name) << QByteArray(text) << count;
        };
        row("empty", "", 0);
        row("no header", "1 2 3", 1);
        row("another header", "JASC-PAL\r\n0100\r\n16\r\n1 2 3\r\n", 1);
        row("a count that is wrong", "JASC\r\n0100\r\n7\r\n1 2 3\r\n4 5 6", 2);
        row("more and fewer parts", "1 2\r\n1 2 3 4\r\n1\r\n\r\n1 2 3\r\nx y z w", 1);
        row("bare line feeds", "JASC\n0100\n2\n1 2 3\n4 5 6", 0);
        row("bare line feeds and two spaces", "1 2\n3 4", -1);
        row("a header of three parts", "a b c\r\n1 2 3", -1);
        row("a space at the end", "1 2 \r\n", -1);
        row("a space at the start", " 1 2", -1);
        row("above a byte", "1 2 256", -1);
        row("below a byte", "1 -1 2", -1);
        row("a letter", "1 2 3x", -1);
        row("an exponent", "1 2 1e1", -1);
        row("hexadecimal", "1 2 &H1", -1);
        row("letters beyond ASCII", "\xE9 2 3", -1);
    }

    void aTextFileIsItsLinesOfThreeParts()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, count);
        MemoryFiles disk;
        disk.Put("p", {text.constData(), static_cast<std::size_t>(text.size())});
        cPalette palette;
        palette.CreateMono();
        QCOMPARE(palette.LoadFromJASCFile("p", disk.Reader()), count >= 0);
        QCOMPARE(palette.Count(), std::max(count, 0));
    }

    void aMissingTextFileEmptiesThePalette()
    {
        MemoryFiles disk;
        cPalette palette;
        palette.CreateMono();
        QVERIFY(!palette.LoadFromJASCFile("gone", disk.Reader()));
        QCOMPARE(palette.Count(), 0);
    }

    void partsAreNumbersRoundedToBytes_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("value"); // -1: none
        const auto row = [](const char* text, int value) { QTest::newRow(text) << QByteArray(text) << value; };
        row("0", 0);
        row("007", 7);
        row("255", 255);
        row("+12", 12);
        row("-0", 0);
        row("-0.5", 0);
        row("-0.51", -1);
        row("0.5", 0);
        row("1.5", 2);
        row("2.5", 2);
        row("2.50", 2);
        row("2.500000000000000000000000000001", 3);
        row("2.4999999999999999999999999999", 2);
        row("254.5", 254);
        row("255.4", 255);
        row("255.5", -1);
        row("256", -1);
        row("99999999999999999999999999", -1);
        row("00000000000000000000000000001", 1);
        row("3.", 3);
        row(".5", 0);
        row(".", -1);
        row("", -1);
        row("+", -1);
        row("-", -1);
        row("--1", -1);
        row("1-", -1);
        row("1.2.3", -1);
        row("1,5", -1);
        row("1e2", -1);
        row("0x10", -1);
        row("\t1", -1);
    }

    void partsAreNumbersRoundedToBytes()
    {
        QFETCH(QByteArray, text);
        QFETCH(int, value);
        const auto byte = ByteOfText({text.constData(), static_cast<std::size_t>(text.size())});
        QCOMPARE(byte ? int(*byte) : -1, value);
    }
};

QTEST_APPLESS_MAIN(tst_cPalette)
#include "tst_cPalette.moc"
