// SPDX-License-Identifier: GPL-3.0-or-later
// Bitmap files as pictures: every kind that is read, and what is wrong with the others.
#include "imaging/BitmapBytes.h"
#include "imaging/MemoryFiles.h"
#include "imaging/PlainImaging.h"
#include "imaging/cDIBSectionSave.h"
#include "imaging/modBitmapFile.h"

#include <QTest>

using namespace ob;

namespace {

// The picture's colours from the top line down, red in the third byte; empty when the file was rejected.
using Colors = std::vector<std::vector<std::uint32_t>>;

Colors Read(const BitmapBytes& file)
{
    const auto result = ReadBitmap(file.bytes);
    const auto* picture = std::get_if<cDIBSection>(&result);
    Colors colors;
    for (std::int32_t y = picture ? picture->Height() - 1 : -1; y >= 0; --y) {
        auto& line = colors.emplace_back();
        for (std::int32_t x = 0; x < picture->Width(); ++x) {
            const std::uint8_t* pixel = picture->Line(y) + x * 3;
            line.push_back(pixel[0] | std::uint32_t{pixel[1]} << 8 | std::uint32_t{pixel[2]} << 16);
        }
    }
    return colors;
}

std::optional<BitmapError> ErrorOf(const std::vector<std::uint8_t>& bytes)
{
    const auto result = ReadBitmap(bytes);
    const auto* error = std::get_if<BitmapError>(&result);
    return error ? std::optional(*error) : std::nullopt;
}

constexpr std::uint32_t Red = 0xFF0000;
constexpr std::uint32_t Green = 0xFF00;
constexpr std::uint32_t Blue = 0xFF;
constexpr std::uint32_t White = 0xFFFFFF;

} // namespace

class tst_modBitmapFile : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneBit()
    {
        BitmapBytes file;
        file.FileHeader(62).InfoHeader(10, 2, 1).Colors({Red, Blue});
        file.Bytes({0x80, 0x40, 0, 0, 0x01, 0x80, 0, 0});
        QCOMPARE(Read(file), (Colors{{Red, Red, Red, Red, Red, Red, Red, Blue, Blue, Red},
                                     {Blue, Red, Red, Red, Red, Red, Red, Red, Red, Blue}}));
    }

    void partsThatAreNoNeighboursReadAsTheFile()
    {
        // In the last one the header promises masks, and only the pixels' bytes are there for them.
        struct Kind {
            int bits;
            int compression;
            int masks;
        };
        for (const auto& [bits, compression, masks] : std::initializer_list<Kind>{
                 {1, 0, 0}, {4, 0, 0}, {8, 0, 0}, {16, 0, 0}, {16, 3, 3}, {24, 0, 0}, {32, 0, 0}, {32, 3, 0}}) {
            BitmapBytes file;
            const int colors = bits > 8 ? 0 : 1 << bits;
            const int start = 54 + 4 * (colors + masks);
            file.FileHeader(start).InfoHeader(5, -3, bits, compression);
            for (int number = 0; number < colors + masks; ++number)
                file.Put(0x1F1F << number % 5, 4);
            for (int byte = 0; byte < 60; ++byte)
                file.Put(byte * 37 & 0xFF, 1);
            const ByteView bytes(file.bytes);
            const std::vector<std::uint8_t> info(bytes.begin() + 14, bytes.begin() + start);
            const auto parts = ReadBitmap({info, bytes.subspan(static_cast<std::size_t>(start))});
            const auto whole = ReadBitmap(bytes);
            const auto* fromParts = std::get_if<cDIBSection>(&parts);
            const auto* fromWhole = std::get_if<cDIBSection>(&whole);
            QVERIFY(fromParts != nullptr && fromWhole != nullptr);
            QCOMPARE(fromParts->Height(), 3);
            QVERIFY(std::equal(fromWhole->Line(0), fromWhole->Line(3), fromParts->Line(0)));
        }
    }

    void fourBitsWithAShortTable()
    {
        BitmapBytes file;
        file.FileHeader(54 + 12).InfoHeader(3, 1, 4, 0, 0, 3).Colors({Red, Green, Blue}).Bytes({0x21, 0x90, 0, 0});
        QCOMPARE(Read(file), (Colors{{Blue, Green, 0}}));
    }

    void eightBitsTopDown()
    {
        BitmapBytes file;
        file.FileHeader(54 + 8).InfoHeader(2, -2, 8, 0, 0, 2).Colors({Red, Green});
        file.Bytes({0, 1, 0, 0, 1, 1, 0, 0});
        QCOMPARE(Read(file), (Colors{{Red, Green}, {Green, Green}}));
    }

    void sixteenBitsOfFiveAndOfMasks()
    {
        BitmapBytes file;
        file.FileHeader(54).InfoHeader(4, 1, 16).Put(0x7C00, 2).Put(0x03E0, 2).Put(0x001F, 2).Put(0x0C21, 2);
        QCOMPARE(Read(file), (Colors{{Red, Green, Blue, 0x180808}}));
        file = {};
        file.FileHeader(66).InfoHeader(4, 1, 16, 3).Put(0xF800, 4).Put(0x07E0, 4).Put(0x001F, 4);
        file.Put(0xF800, 2).Put(0x07E0, 2).Put(0x001F, 2).Put(0x1082, 2);
        QCOMPARE(Read(file), (Colors{{Red, Green, Blue, 0x101010}}));
    }

    void twentyFourAndThirtyTwoBits()
    {
        BitmapBytes file;
        file.FileHeader(54).InfoHeader(1, 2, 24).Bytes({1, 2, 3, 0, 4, 5, 6, 0});
        QCOMPARE(Read(file), (Colors{{0x060504}, {0x030201}}));
        file = {};
        file.FileHeader(54).InfoHeader(2, 1, 32).Bytes({1, 2, 3, 255, 4, 5, 6, 0});
        QCOMPARE(Read(file), (Colors{{0x030201, 0x060504}}));
        file = {};
        file.FileHeader(66).InfoHeader(1, 1, 32, 3).Put(0xFF, 4).Put(0xFF00, 4).Put(0xFF0000, 4).Bytes({1, 2, 3, 4});
        QCOMPARE(Read(file), (Colors{{0x010203}}));
        file = {};
        file.FileHeader(66).InfoHeader(1, 1, 32, 3).Put(0x3FF00000, 4).Put(0xFFC00, 4).Put(0x3FF, 4);
        file.Put(0x3FF00000 | 0x80000 | 0x1, 4);
        QCOMPARE(Read(file), (Colors{{0xFF8000}}));
    }

    void newHeadersIncludeTheirMasks()
    {
        BitmapBytes file;
        file.FileHeader(14 + 108).InfoHeader(1, 1, 32, 3, 0, 0, 108).Put(0xFF00, 4).Put(0xFF0000, 4).Put(0xFF000000, 4);
        file.bytes.resize(14 + 108);
        file.Bytes({9, 1, 2, 3});
        QCOMPARE(Read(file), (Colors{{0x010203}}));
    }

    void oldHeaders()
    {
        BitmapBytes file;
        file.FileHeader(26 + 6).Put(12, 4).Put(9, 2).Put(1, 2).Put(1, 2).Put(1, 2).Bytes({0, 0, 255, 255, 0, 0});
        file.Bytes({0x80, 0x80, 0, 0});
        QCOMPARE(Read(file), (Colors{{Blue, Red, Red, Red, Red, Red, Red, Red, Blue}}));
        file = {};
        file.FileHeader(30).Put(16, 4).Put(1, 4).Put(1, 4).Put(1, 2).Put(24, 2).Bytes({1, 2, 3, 0});
        QCOMPARE(Read(file), (Colors{{0x030201}}));
    }

    void runLengthsOfEightBits()
    {
        BitmapBytes file;
        file.FileHeader(54 + 12).InfoHeader(6, 4, 8, 1, 0, 3).Colors({White, Red, Green});
        // A run and the end of the line; single ones, padded, and a run beyond the line; a jump; one pixel and the end.
        file.Bytes({3, 1, 0, 0, 0, 3, 1, 2, 1, 0, 9, 2, 0, 0, 0, 2, 1, 1, 2, 1, 0, 1, 5, 5});
        QCOMPARE(Read(file), (Colors{{White, Red, Red, White, White, White},
                                     {White, White, White, White, White, White},
                                     {Red, Green, Red, Green, Green, Green},
                                     {Red, Red, Red, White, White, White}}));
    }

    void runLengthsOfFourBits()
    {
        BitmapBytes file;
        file.FileHeader(54 + 12).InfoHeader(5, 2, 4, 2, 0, 3).Colors({White, Red, Green});
        file.Bytes({5, 0x12, 0, 0, 0, 5, 0x21, 0x01, 0x20, 0, 0, 1});
        QCOMPARE(Read(file), (Colors{{Green, Red, White, Red, Green}, {Red, Green, Red, Green, Red}}));
    }

    void runLengthsThatEndAnywhereLeaveTheRest()
    {
        BitmapBytes whole;
        whole.FileHeader(54 + 12).InfoHeader(6, 4, 8, 1, 0, 3).Colors({White, Red, Green});
        whole.Bytes({3, 1, 0, 0, 0, 3, 1, 2, 1, 0, 0, 2, 1, 1, 2, 1, 0, 1});
        for (std::size_t size = 54 + 12; size < whole.bytes.size(); ++size) {
            BitmapBytes cut = whole;
            cut.bytes.resize(size);
            QCOMPARE(Read(cut).size(), std::size_t{4});
        }
    }

    void missingPixelsAreZeros()
    {
        BitmapBytes file;
        file.FileHeader(54).InfoHeader(1, 3, 24).Bytes({1, 2, 3, 0, 4, 5});
        QCOMPARE(Read(file), (Colors{{0}, {0x000504}, {0x030201}}));
        file = {};
        file.FileHeader(54 + 8).InfoHeader(3, 2, 8, 0, 0, 2).Colors({Red, Green}).Bytes({1, 1});
        QCOMPARE(Read(file), (Colors{{Red, Red, Red}, {Green, Green, Red}}));
    }

    void whatTheWriterWritesIsOpened()
    {
        MemoryFiles disk;
        for (int width = 1; width <= 70; ++width) {
            for (const SaveBitDepth depth :
                 {SaveBitDepth::Bits1, SaveBitDepth::Bits4, SaveBitDepth::Bits8, SaveBitDepth::Bits24}) {
                cDIBSection section = plain::SectionOf(plain::Random(width, 9, plain::Kind::Noise, 1));
                std::optional<cPalette> palette;
                cDIBSectionSave().Save("x.bmp", section, palette, depth, SaveReduceMode::None, disk.Writer());
                const auto result = ReadBitmap(disk.files["x.bmp"]);
                const auto* picture = std::get_if<cDIBSection>(&result);
                QVERIFY(picture);
                QCOMPARE(picture->Width(), width);
                QCOMPARE(picture->Height(), 9);
                const bool isWhole = depth == SaveBitDepth::Bits24 || width % 32 == 0;
                if (isWhole)
                    QVERIFY(plain::Of(*picture).bytes == plain::Of(section).bytes);
            }
        }
    }

    void pixelsThatWouldStartInTheHeaderStartAfterTheTable()
    {
        BitmapBytes file;
        file.FileHeader(0).InfoHeader(1, 1, 8, 0, 0, 2).Colors({Red, Green}).Bytes({1, 0, 0, 0});
        QCOMPARE(Read(file), (Colors{{Green}}));
    }

    void invalidFilesAreRejected_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<int>("error");
        const auto row = [](const char* name, const BitmapBytes& file, BitmapError error) {
            QTest::newRow(name) << QByteArray(reinterpret_cast<const char*>(file.bytes.data()),
                                              static_cast<qsizetype>(file.bytes.size()))
                                << static_cast<int>(error);
        };
        const auto of = [](std::int64_t width, std::int64_t height, int bits, int compression = 0, int size = 40) {
            BitmapBytes file;
            file.FileHeader(54).InfoHeader(width, height, bits, compression, 0, 0, size).Put(0, 64);
            return file;
        };
        row("empty", {}, BitmapError::NotABitmap);
        row("only the type", BitmapBytes().Put(19778, 2), BitmapError::NotABitmap);
        row("another format", BitmapBytes().Put(0x474E5089, 4).Put(0, 60), BitmapError::NotABitmap);
        row("header of 0", of(1, 1, 24, 0, 0), BitmapError::UnknownHeader);
        row("header of 13", of(1, 1, 24, 0, 13), BitmapError::UnknownHeader);
        row("header beyond the file", of(1, 1, 24, 0, 124), BitmapError::UnknownHeader);
        row("header of 4 GB", of(1, 1, 24, 0, -1), BitmapError::UnknownHeader);
        row("2 bits", of(1, 1, 2), BitmapError::UnknownFormat);
        row("0 bits", of(1, 1, 0), BitmapError::UnknownFormat);
        row("64 bits", of(1, 1, 64), BitmapError::UnknownFormat);
        row("runs of 24 bits", of(1, 1, 24, 1), BitmapError::UnknownFormat);
        row("runs of 8 bits at 4", of(1, 1, 4, 1), BitmapError::UnknownFormat);
        row("masks of 24 bits", of(1, 1, 24, 3), BitmapError::UnknownFormat);
        row("a picture of another format", of(1, 1, 24, 4), BitmapError::UnknownFormat);
        row("older system's compression", of(1, 1, 16, 3, 64), BitmapError::UnknownFormat);
        row("no width", of(0, 1, 24), BitmapError::BadSize);
        row("no height", of(1, 0, 24), BitmapError::BadSize);
        row("negative width", of(-1, 1, 24), BitmapError::BadSize);
        row("least height", of(1, std::numeric_limits<std::int32_t>::min(), 24), BitmapError::BadSize);
        row("widest", of(std::numeric_limits<std::int32_t>::max(), 1, 1), BitmapError::BadSize);
        row("beyond 31 bits", of(30000, 30000, 1), BitmapError::BadSize);
        row("2 GB in a few bytes", of(26000, 26000, 24), BitmapError::TooShort);
        row("2 GB of one bit", of(7, 80000000, 1), BitmapError::TooShort);
        row("2 GB of runs", of(26000, 26000, 8, 1), BitmapError::TooShort);
    }

    void invalidFilesAreRejected()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(int, error);
        const auto found = ErrorOf({bytes.begin(), bytes.end()});
        QVERIFY(found.has_value());
        QCOMPARE(static_cast<int>(*found), error);
    }

    void everyTruncationOfEveryKindIsAPictureOrAnError()
    {
        for (const int bits : {1, 4, 8, 16, 24, 32}) {
            for (const int compression : {0, 1, 2, 3, 6}) {
                for (const int headerSize : {40, 52, 64, 108, 124}) {
                    BitmapBytes file;
                    file.FileHeader(14 + headerSize + 1024).InfoHeader(7, 5, bits, compression, 0, 0, headerSize);
                    for (int value = 0; value < 1400; ++value)
                        file.Put(value * 37, 1);
                    for (std::size_t size = 0; size < file.bytes.size(); ++size) {
                        const auto result = ReadBitmap(ByteView(file.bytes).first(size));
                        if (const auto* picture = std::get_if<cDIBSection>(&result))
                            QCOMPARE(picture->Width(), 7);
                    }
                }
            }
        }
    }
};

QTEST_APPLESS_MAIN(tst_modBitmapFile)
#include "tst_modBitmapFile.moc"
