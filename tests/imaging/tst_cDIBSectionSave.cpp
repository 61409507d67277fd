// SPDX-License-Identifier: GPL-3.0-or-later
// Bitmap files of 1, 4 and 8 bits: the bytes, and what the save leaves in picture and palette.
#include "imaging/MemoryFiles.h"
#include "imaging/PlainImaging.h"
#include "imaging/cDIBSectionSave.h"
#include "imaging/cImagingError.h"

#include <QTest>

using namespace ob;

namespace {

using Slots = std::vector<plain::Slot>;

constexpr plain::Kind kinds[] = {plain::Kind::Noise, plain::Kind::FewColors, plain::Kind::Photograph};

plain::Entries EntriesOf(const cPalette& palette)
{
    return {palette.Entries().begin(), palette.Entries().end()};
}

Slots MonoSlots()
{
    return {{0, 0, 0}, {255, 255, 255}};
}

// Red in the first byte.
Slots CrossedSlots()
{
    cPalette palette;
    palette.Create16Colour();
    Slots crossed;
    for (const PaletteEntry& entry : palette.Entries())
        crossed.push_back({entry.red, entry.green, entry.blue});
    return crossed;
}

Slots SlotsOf(const cPalette& palette)
{
    Slots filled;
    for (const PaletteEntry& entry : palette.Entries())
        filled.push_back({entry.blue, entry.green, entry.red});
    filled.resize(256);
    return filled;
}

cPalette SomeColors(int count)
{
    std::mt19937 generator(static_cast<unsigned>(count));
    cPalette palette;
    for (int index = 0; index < count; ++index)
        palette.Add(static_cast<std::uint8_t>(generator()), static_cast<std::uint8_t>(generator()),
                    static_cast<std::uint8_t>(generator()));
    return palette;
}

struct Saved {
    std::vector<std::uint8_t> file;
    plain::Picture picture;
    std::optional<cPalette> palette;
};

Saved Save(const plain::Picture& start, std::optional<cPalette> palette, SaveBitDepth depth, SaveReduceMode mode)
{
    MemoryFiles disk;
    cDIBSection section = plain::SectionOf(start);
    if (cDIBSectionSave().Save("x.bmp", section, palette, depth, mode, disk.Writer()))
        throw std::runtime_error("a save is never true");
    return {disk.files["x.bmp"], plain::Of(section), palette};
}

} // namespace

class tst_cDIBSectionSave : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void withoutReductionThePlatformsCopyMapsTheColors()
    {
        for (int width = 1; width <= 70; ++width) {
            for (const plain::Kind kind : kinds) {
                const plain::Picture start = plain::Random(width, 1 + width % 7, kind, static_cast<unsigned>(width));
                plain::Picture reference = start;
                Saved saved = Save(start, {}, SaveBitDepth::Bits1, SaveReduceMode::None);
                QVERIFY(saved.file == plain::IndexedFile(reference, MonoSlots(), 1, true));
                QVERIFY(saved.picture.bytes == reference.bytes);
                QVERIFY(!saved.palette);

                reference = start;
                saved = Save(start, SomeColors(5), SaveBitDepth::Bits4, SaveReduceMode::None);
                QVERIFY(saved.file == plain::IndexedFile(reference, CrossedSlots(), 4, true));
                QVERIFY(saved.picture.bytes == reference.bytes);
                QCOMPARE(saved.palette->Count(), 5);

                reference = start;
                saved = Save(start, {}, SaveBitDepth::Bits8, SaveReduceMode::None);
                cPalette halfTone;
                halfTone.CreateHalfTone();
                QVERIFY(EntriesOf(*saved.palette) == EntriesOf(halfTone));
                QVERIFY(saved.file == plain::IndexedFile(reference, SlotsOf(halfTone), 8, true));
                QVERIFY(saved.picture.bytes == reference.bytes);

                const cPalette own = SomeColors(width * 5);
                reference = start;
                saved = Save(start, own, SaveBitDepth::Bits8, SaveReduceMode::None);
                QVERIFY(saved.file == plain::IndexedFile(reference, SlotsOf(own), 8, true));
                QVERIFY(saved.picture.bytes == reference.bytes);
            }
        }
    }

    void aPaletteIsDitheredToAtEveryDepth()
    {
        for (int width = 1; width <= 70; width += 3) {
            const plain::Picture start = plain::Random(width, 9, plain::Kind::Photograph, static_cast<unsigned>(width));
            const cPalette own = SomeColors(20);
            plain::Picture reduced(width, 9);
            plain::Picture source = start;
            plain::ApplyPalette(source, reduced, EntriesOf(own), true);
            const std::array<std::pair<SaveBitDepth, Slots>, 3> depths = {{{SaveBitDepth::Bits1, MonoSlots()},
                                                                           {SaveBitDepth::Bits4, CrossedSlots()},
                                                                           {SaveBitDepth::Bits8, SlotsOf(own)}}};
            int bits = 1;
            for (const auto& [depth, slotColors] : depths) {
                const Saved saved = Save(start, own, depth, SaveReduceMode::Palette);
                plain::Picture reference = reduced;
                QVERIFY(saved.file == plain::IndexedFile(reference, slotColors, bits, false));
                QVERIFY(saved.picture.bytes == reduced.bytes);
                bits = bits == 1 ? 4 : 8;
            }
        }
    }

    void theAutomaticReductionDependsOnTheDepth()
    {
        for (int width = 1; width <= 70; width += 3) {
            const plain::Picture start = plain::Random(width, 9, plain::Kind::Photograph, static_cast<unsigned>(width));
            plain::Picture source = start;
            plain::Picture reference(width, 9);
            plain::BlackAndWhite(source, reference);
            Saved saved = Save(start, {}, SaveBitDepth::Bits1, SaveReduceMode::Automatic);
            QVERIFY(saved.picture.bytes == reference.bytes);
            QVERIFY(saved.file == plain::IndexedFile(reference, MonoSlots(), 1, false));
            QVERIFY(!saved.palette);

            cPalette sixteen;
            sixteen.Create16Colour();
            source = start;
            plain::ApplyPalette(source, reference, EntriesOf(sixteen), true);
            saved = Save(start, {}, SaveBitDepth::Bits4, SaveReduceMode::Automatic);
            QVERIFY(saved.picture.bytes == reference.bytes);
            QVERIFY(saved.file == plain::IndexedFile(reference, CrossedSlots(), 4, false));
            QVERIFY(EntriesOf(*saved.palette) == EntriesOf(sixteen));

            source = start;
            const plain::Entries best = plain::Octree().CreateOptimal(source, 236, 6);
            plain::ApplyPalette(source, reference, best, false);
            saved = Save(start, SomeColors(3), SaveBitDepth::Bits8, SaveReduceMode::Automatic);
            QVERIFY(saved.picture.bytes == reference.bytes);
            QVERIFY(EntriesOf(*saved.palette) == best);
            QVERIFY(saved.file == plain::IndexedFile(reference, SlotsOf(*saved.palette), 8, false));
        }
    }

    void theLengthOfThePixelsFollowsTheFilesOwnRule_data()
    {
        QTest::addColumn<int>("depth");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("perLine");
        QTest::newRow("8 bits, 33") << 2 << 33 << 34;
        QTest::newRow("8 bits, 4") << 2 << 4 << 4;
        QTest::newRow("8 bits, 3: longer than the section") << 2 << 3 << 6;
        QTest::newRow("1 bit, 24: longer than the section") << 0 << 24 << 6;
        QTest::newRow("1 bit, 7: none") << 0 << 7 << 0;
        QTest::newRow("1 bit, 32") << 0 << 32 << 4;
        QTest::newRow("4 bits, 8") << 1 << 8 << 4;
        QTest::newRow("4 bits, 1: none") << 1 << 1 << 0;
    }

    void theLengthOfThePixelsFollowsTheFilesOwnRule()
    {
        QFETCH(int, depth);
        QFETCH(int, width);
        QFETCH(int, perLine);
        const Saved saved = Save(plain::Random(width, 5, plain::Kind::Noise, 1), {}, static_cast<SaveBitDepth>(depth),
                                 SaveReduceMode::None);
        const std::array<int, 3> offsets = {62, 118, 1078};
        const int offset = offsets[static_cast<std::size_t>(depth)];
        QCOMPARE(saved.file.size(), static_cast<std::size_t>(offset + perLine * 5));
        QCOMPARE(int(saved.file[10] | saved.file[11] << 8), offset);
        QCOMPARE(int(saved.file[34]), perLine * 5 % 256);
        QCOMPARE(int(saved.file[2] | saved.file[3] << 8), offset + perLine * 5);
    }

    void twentyFourBitsAreNeverReduced()
    {
        const plain::Picture start = plain::Random(5, 4, plain::Kind::Noise, 1);
        for (const SaveReduceMode mode : {SaveReduceMode::None, SaveReduceMode::Palette, SaveReduceMode::Automatic}) {
            const Saved saved = Save(start, {}, SaveBitDepth::Bits24, mode);
            QVERIFY(saved.picture.bytes == start.bytes);
            QCOMPARE(saved.file.size(), 54 + start.bytes.size());
            QVERIFY(std::equal(start.bytes.begin(), start.bytes.end(), saved.file.begin() + 54));
            QVERIFY(!saved.palette);
        }
    }

    void thePaletteModeNeedsAPalette()
    {
        const plain::Picture start = plain::Random(5, 4, plain::Kind::Noise, 1);
        for (const SaveBitDepth depth : {SaveBitDepth::Bits1, SaveBitDepth::Bits4, SaveBitDepth::Bits8}) {
            QVERIFY_EXCEPTION_THROWN(Save(start, {}, depth, SaveReduceMode::Palette), ImagingError);
            QVERIFY_EXCEPTION_THROWN(Save(start, cPalette(), depth, SaveReduceMode::Palette), ImagingError);
        }
    }

    void anEmptyPaletteMakesABlackPictureWithoutReduction()
    {
        const Saved saved =
            Save(plain::Random(8, 4, plain::Kind::Noise, 1), cPalette(), SaveBitDepth::Bits8, SaveReduceMode::None);
        QCOMPARE(saved.file.size(), std::size_t{1078 + 32});
        QVERIFY(std::all_of(saved.file.begin() + 54, saved.file.end(), [](std::uint8_t byte) { return byte == 0; }));
    }

    void aFileThatCannotBeOpenedRaisesError17()
    {
        MemoryFiles disk;
        disk.writeResult = {FileOutcome::NotOpened, EACCES};
        cDIBSection section = plain::SectionOf(plain::Random(5, 4, plain::Kind::Noise, 1));
        std::optional<cPalette> palette;
        try {
            cDIBSectionSave().Save("x.bmp", section, palette, SaveBitDepth::Bits8, SaveReduceMode::None, disk.Writer());
            QFAIL("no error");
        } catch (const ImagingError& error) {
            QCOMPARE(error.number, 17);
            QVERIFY(QByteArray::fromStdString(error.source).endsWith(".cDIBSection256"));
        }
        disk.writeResult.outcome = FileOutcome::Failed;
        QVERIFY(!cDIBSectionSave().Save("x.bmp", section, palette, SaveBitDepth::Bits8, SaveReduceMode::None,
                                        disk.Writer()));
    }

    void aPictureWithoutPixelsIsNotWritten()
    {
        MemoryFiles disk;
        cDIBSection none;
        std::optional<cPalette> palette;
        QVERIFY(
            !cDIBSectionSave().Save("x.bmp", none, palette, SaveBitDepth::Bits8, SaveReduceMode::None, disk.Writer()));
        QVERIFY(disk.files.empty());
    }
};

QTEST_APPLESS_MAIN(tst_cDIBSectionSave)
#include "tst_cDIBSectionSave.moc"
