// SPDX-License-Identifier: GPL-3.0-or-later
// "obtool image" and "obtool palette" as processes.
#include "obtool/RunObtool.h"

#include "imaging/BitmapBytes.h"
#include "imaging/MemoryFiles.h"
#include "imaging/PlainImaging.h"
#include "imaging/cColourReduceDIB.h"
#include "imaging/cDIBSectionSave.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

constexpr char SaveUsage[] =
    "usage: obtool image save IN OUT --depth 1|4|8|24 [--reduce none|palette|auto] [--palette FILE]";
constexpr char MakeUsage[] =
    "usage: obtool palette make web|halftone|mono|16|optimal OUT [--from IN --colours N --level L] [--binary]";

Outcome Run(const char* line, const QByteArray& input = {})
{
    return RunObtool(WordsOf(line), input);
}

QByteArray Get(const char* path)
{
    QFile file(QString::fromUtf8(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(no such file)");
}

void Put(const char* path, const QByteArray& bytes)
{
    QFile file(QString::fromUtf8(path));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray BytesOf(const std::vector<std::uint8_t>& bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

QByteArray FileOf(cDIBSection picture, SaveBitDepth depth, SaveReduceMode mode, std::optional<cPalette> palette = {})
{
    MemoryFiles disk;
    cDIBSectionSave().Save("x", picture, palette, depth, mode, disk.Writer());
    return BytesOf(disk.files["x"]);
}

QByteArray File24(const cDIBSection& picture)
{
    MemoryFiles disk;
    picture.SavePicture("x", disk.Writer());
    return BytesOf(disk.files["x"]);
}

constexpr int Width = 37;
constexpr int Height = 23;

cDIBSection Sample()
{
    return plain::SectionOf(plain::Random(Width, Height, plain::Kind::Photograph, 7));
}

cPalette FewColors()
{
    cPalette palette;
    for (const int value : {0, 50, 130, 220}) {
        const auto level = static_cast<std::uint8_t>(value);
        palette.Add(level, static_cast<std::uint8_t>(255 - value), 90);
    }
    return palette;
}

constexpr char FewColorsText[] = "JASC\r\n0100\r\n4\r\n0 255 90\r\n50 205 90\r\n130 125 90\r\n220 35 90";

} // namespace

class tst_obtoolImage : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QDir::setCurrent(folder->path());
        Put("in.bmp", File24(Sample()));
        Put("few.pal", FewColorsText);
    }
    void cleanup()
    {
        QDir::setCurrent(QDir::rootPath());
        folder.reset();
    }

    void infoReportsWhatTheReaderHolds()
    {
        BitmapBytes file;
        file.FileHeader(54, 62).InfoHeader(2, -1, 24, 0, 8).Put(0, 8);
        Put("x.bmp", BytesOf(file.bytes));
        const Outcome result = Run("image info x.bmp");
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, QByteArray("FileType\t19778\nSizeFileHeader\t62\nBitOffset\t54\nSizeInfoHeader\t40\n"
                                        "Width\t2\nHeight\t-1\nPlanes\t1\nBitCount\t24\nCompression\t0\nSizeImage\t8\n"
                                        "XPPM\t2835\nYPPM\t2836\nClrUsed\t0\nClrImportant\t7\nSizeBitmapInfo\t41\n"));
        QCOMPARE(result.error, QByteArray());
    }

    void everyDepthAndReductionIsSaved_data()
    {
        QTest::addColumn<QByteArray>("options");
        QTest::addColumn<int>("depth");
        QTest::addColumn<int>("mode");
        QTest::addColumn<bool>("palette");
        const int depths[] = {1, 4, 8, 24};
        for (int depth = 0; depth < 4; ++depth) {
            const QByteArray option = "--depth " + QByteArray::number(depths[depth]);
            const auto row = [&](const QByteArray& rest, int mode, bool palette) {
                const QByteArray options = option + rest;
                QTest::newRow(options.constData()) << options << depth << mode << palette;
            };
            row("", 0, false);
            row(" --reduce none", 0, false);
            row(" --palette few.pal", 0, true);
            row(" --reduce palette --palette few.pal", 1, true);
            row(" --reduce auto", 2, false);
        }
        QTest::newRow("24 without a palette") << QByteArray("--depth 24 --reduce palette") << 3 << 1 << false;
    }

    void everyDepthAndReductionIsSaved()
    {
        QFETCH(QByteArray, options);
        QFETCH(int, depth);
        QFETCH(int, mode);
        QFETCH(bool, palette);
        const Outcome result = Run("image save in.bmp out.bmp " + options);
        QCOMPARE(result.status, 0);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.error, QByteArray());
        QCOMPARE(Get("out.bmp"), FileOf(Sample(), static_cast<SaveBitDepth>(depth), static_cast<SaveReduceMode>(mode),
                                        palette ? std::optional(FewColors()) : std::nullopt));
    }

    void picturesAreScaledGreyedAndMapped()
    {
        QCOMPARE(Run("image resample in.bmp out.bmp 20 9").status, 0);
        QCOMPARE(Get("out.bmp"), File24(*Sample().Resample(9, 20)));
        const cColourReduceDIB reducer;
        cDIBSection expected = Sample();
        reducer.GrayScale(expected);
        QCOMPARE(Run("image gray in.bmp out.bmp").status, 0);
        QCOMPARE(Get("out.bmp"), File24(expected));
        expected = Sample();
        reducer.BlackAndWhite(expected, expected);
        QCOMPARE(Run("image mono in.bmp out.bmp").status, 0);
        QCOMPARE(Get("out.bmp"), File24(expected));
        expected = Sample();
        reducer.ApplyPalette(expected, expected, FewColors(), Dither::Off);
        QCOMPARE(Run("image remap in.bmp out.bmp --palette few.pal").status, 0);
        QCOMPARE(Get("out.bmp"), File24(expected));
        expected = Sample();
        reducer.ApplyPalette(expected, expected, FewColors(), Dither::On);
        QCOMPARE(Run("image remap in.bmp out.bmp --palette few.pal --dither").status, 0);
        QCOMPARE(Get("out.bmp"), File24(expected));
    }

    void otherFormatsAreOpenedToo()
    {
        QImage image(3, 2, QImage::Format_RGB32);
        image.fill(QColor(1, 2, 3));
        for (const char* format : {"png", "jpg"}) {
            QVERIFY(image.save(u"x."_s + QLatin1String(format)));
            const QByteArray line = QByteArray("image save x.") + format + " out.bmp --depth 24";
            QCOMPARE(Run(line).status, 0);
            QCOMPARE(Get("out.bmp").size(), 54 + 2 * 12);
        }
    }

    void palettesAreMadeAndShown()
    {
        QCOMPARE(Run("palette make mono out.pal").status, 0);
        QCOMPARE(Get("out.pal"), QByteArray("JASC\r\n0100\r\n2\r\n0 0 0\r\n255 255 255"));
        QCOMPARE(Run("palette show out.pal").out, QByteArray("1\t0\t0\t0\n2\t255\t255\t255\n"));
        QCOMPARE(Run("palette make mono out.bin --binary").status, 0);
        QCOMPARE(Get("out.bin").toHex(), QByteArray("0200000000000000ffffff00"));
        QCOMPARE(Run("palette show out.bin --binary").out, QByteArray("1\t0\t0\t0\n2\t255\t255\t255\n"));
        for (const char* kind : {"web", "halftone", "16"}) {
            QCOMPARE(Run(QByteArray("palette make ") + kind + " out.pal").status, 0);
            const QByteArray report = Run("palette show out.pal").out;
            QCOMPARE(report.count('\n'), kind[0] == '1' ? 16 : 256);
            QVERIFY(report.startsWith("1\t0\t0\t0\n2\t"));
        }
    }

    void theBestPaletteOfAPicture()
    {
        cPalette expected;
        expected.CreateOptimal(Sample(), 20, 5);
        MemoryFiles disk;
        expected.SaveToJASCFile("x", disk.Writer());
        const Outcome result = Run("palette make optimal out.pal --from in.bmp --colours 20 --level 5");
        QCOMPARE(result.status, 0);
        QCOMPARE(result.error, QByteArray());
        QCOMPARE(Get("out.pal"), BytesOf(disk.files["x"]));
    }

    void reducingThatFailsIsNotedOnce()
    {
        const Outcome result = Run("palette make optimal out.pal --from in.bmp --colours 1 --level 6");
        QCOMPARE(result.status, 0);
        QCOMPARE(result.error, QByteArray("obtool: note: in.bmp: Error in reducing nodes\n"));
        QVERIFY(Get("out.pal").startsWith("JASC\r\n"));
    }

    void theNearestEntryOrNone()
    {
        QCOMPARE(Run("palette closest few.pal 120 120 90").out, QByteArray("3\n"));
        QCOMPARE(Run("palette closest few.pal -5 300 90").out, QByteArray("1\n"));
        QCOMPARE(Run("palette closest few.pal -2147483648 2147483647 0").out, QByteArray("0\n"));
        QCOMPARE(Run("palette closest - 0 0 0", "255 255 255").out, QByteArray("0\n"));
    }

    void wrongUsageIsStatus2WithTheUsageLine_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArray>("usage");
        const auto row = [](const char* line, const char* usage) {
            QTest::newRow(line) << QByteArray(line) << QByteArray(usage);
        };
        row("image", "usage: obtool image VERB [OPTIONS] ARGUMENTS");
        row("palette", "usage: obtool palette VERB [OPTIONS] ARGUMENTS");
        row("image info", "usage: obtool image info FILE");
        row("image save in.bmp out.bmp", SaveUsage);
        row("image save in.bmp out.bmp --depth 2", SaveUsage);
        row("image save in.bmp out.bmp --depth 8 --reduce some", SaveUsage);
        row("image save in.bmp --depth 8", SaveUsage);
        row("image resample in.bmp out.bmp 5", "usage: obtool image resample IN OUT WIDTH HEIGHT");
        row("image resample in.bmp out.bmp 5 x", "usage: obtool image resample IN OUT WIDTH HEIGHT");
        row("image resample in.bmp out.bmp 5 99999999999", "usage: obtool image resample IN OUT WIDTH HEIGHT");
        row("image remap in.bmp out.bmp", "usage: obtool image remap IN OUT --palette FILE [--dither]");
        row("image gray in.bmp", "usage: obtool image gray IN OUT");
        row("palette make blue out.bmp", MakeUsage);
        row("palette make web out.bmp --level 5", MakeUsage);
        row("palette make optimal out.bmp --from in.bmp --colours 5", MakeUsage);
        row("palette make optimal out.bmp --from in.bmp --colours 5 --level 256", MakeUsage);
        row("palette closest few.pal 1 2", "usage: obtool palette closest FILE RED GREEN BLUE [--binary]");
    }

    void wrongUsageIsStatus2WithTheUsageLine()
    {
        QFETCH(QByteArray, line);
        QFETCH(QByteArray, usage);
        const Outcome result = Run(line.constData());
        QCOMPARE(result.status, 2);
        QCOMPARE(result.out, QByteArray());
        QVERIFY2(result.error.endsWith("\n" + usage + "\n"), result.error.constData());
        QCOMPARE(Get("out.bmp"), QByteArray("(no such file)"));
    }

    void failedWorkIsStatus1AndLeavesAnOlderFile_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QByteArray>("error");
        const auto row = [](const char* line, const char* error) {
            QTest::newRow(line) << QByteArray(line) << QByteArray(error);
        };
        row("image info gone.bmp", "gone.bmp: File does not exist: gone.bmp");
        row("image info text.bmp", "text.bmp: File is not a supported bitmap format: text.bmp");
        row("image info empty.bmp", "empty.bmp: File is not a supported bitmap format: empty.bmp");
        row("image info nosize.bmp", "nosize.bmp: Subscript out of range");
        row("image save gone.bmp out.bmp --depth 8", "gone.bmp: File does not exist or is corrupt.");
        row("image save text.bmp out.bmp --depth 8", "text.bmp: Invalid picture");
        row("image save huge.bmp out.bmp --depth 8", "huge.bmp: Invalid picture");
        row("image save in.bmp gone/out.bmp --depth 8", "gone/out.bmp: Path not found");
        row("image save in.bmp out.bmp --depth 8 --reduce palette",
            "in.bmp: Object variable or With block variable not set");
        row("image save in.bmp out.bmp --depth 8 --palette gone.pal", "gone.pal: File does not exist or is corrupt.");
        row("image remap in.bmp out.bmp --palette bad.pal", "bad.pal: The palette cannot be read.");
        row("image remap in.bmp out.bmp --palette empty.bmp", "in.bmp: Subscript out of range");
        row("image resample in.bmp out.bmp 0 5", "in.bmp: A picture of that size cannot be made.");
        row("image resample in.bmp out.bmp 5 -5", "in.bmp: A picture of that size cannot be made.");
        row("image resample in.bmp out.bmp 2000000000 2", "in.bmp: A picture of that size cannot be made.");
        row("image resample nosize.bmp out.bmp 5 5", "nosize.bmp: Subscript out of range");
        row("palette make optimal out.bmp --from in.bmp --colours 5 --level 9", "in.bmp: Subscript out of range");
        row("palette make optimal out.bmp --from in.bmp --colours 5 --level 0", "in.bmp: Subscript out of range");
        row("palette show bad.pal", "bad.pal: The palette cannot be read.");
        row("palette show few.pal --binary", "few.pal: The palette cannot be read.");
    }

    void failedWorkIsStatus1AndLeavesAnOlderFile()
    {
        QFETCH(QByteArray, line);
        QFETCH(QByteArray, error);
        Put("text.bmp", "only text");
        Put("empty.bmp", "");
        Put("bad.pal", "1 2 256");
        BitmapBytes noSize;
        noSize.FileHeader(54).InfoHeader(1, 4, 24, 0, 0).Put(0, 16);
        Put("nosize.bmp", BytesOf(noSize.bytes));
        BitmapBytes huge;
        huge.FileHeader(54).InfoHeader(26000, 26000, 24, 0, 0);
        Put("huge.bmp", BytesOf(huge.bytes));
        Put("out.bmp", "older");
        const QStringList before = QDir().entryList(QDir::Files | QDir::Hidden);
        const Outcome result = Run(line.constData());
        QCOMPARE(result.status, 1);
        QCOMPARE(result.out, QByteArray());
        QCOMPARE(result.error, "obtool: " + error + "\n");
        QCOMPARE(Get("out.bmp"), QByteArray("older"));
        QCOMPARE(QDir().entryList(QDir::Files | QDir::Hidden), before);
    }

private:
    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_obtoolImage)
#include "tst_obtoolImage.moc"
