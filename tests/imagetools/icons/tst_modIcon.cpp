// SPDX-License-Identifier: GPL-3.0-or-later
// The icon as a value: its operations, its files, writing it into a runtime engine.
#include "imagetools/icons/modIcon.h"
#include "imagetools/icons/modIconFile.h"
#include "imagetools/pictures/modPicture.h"
#include "platform/files/FileTrouble.h"
#include "platform/files/modPaths.h"

#include <QFile>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <cstdlib>
#include <functional>
#include <random>

using namespace Qt::StringLiterals;

using namespace ob;

namespace {

// A picture of all colours that every operation changes.
Icon Colors()
{
    Icon icon;
    for (int y = 0; y < IconSide; ++y) {
        for (int x = 0; x < IconSide; ++x) {
            const auto number = static_cast<std::size_t>((x / 2 + 3 * y) % 17);
            icon.At(x, y) = number == 16 ? TransparentColor : SwatchColor[number];
        }
    }
    return icon;
}

Icon RandomIcon(unsigned seed)
{
    std::mt19937 random(seed);
    Icon icon;
    for (ColorRef& color : icon.pixels)
        color = random() & 0xFFFFFF;
    return icon;
}

// Whether every pixel of the result is the one given by the rule.
bool IsRearranged(const Icon& result, const Icon& icon, const std::function<IconPoint(int, int)>& sourceOf)
{
    for (int y = 0; y < IconSide; ++y)
        for (int x = 0; x < IconSide; ++x)
            if (const IconPoint source = sourceOf(x, y); result.At(x, y) != icon.At(source.x, source.y))
                return false;
    return true;
}

Icon Repeated(Icon icon, Icon (*operation)(const Icon&), int times)
{
    for (int count = 0; count < times; ++count)
        icon = operation(icon);
    return icon;
}

QByteArray Golden(const char* name)
{
    return Get(u"" OB_TEST_DATA "/icons/"_s + QString::fromLatin1(name));
}

std::uint32_t NumberAt(const QByteArray& bytes, int offset, int size)
{
    std::uint32_t number = 0;
    for (int index = size; index-- > 0;)
        number = number << 8 | static_cast<unsigned char>(bytes[offset + index]);
    return number;
}

// The cells of a move whose every pixel is walked.
std::vector<IconPoint> Walked(IconPoint from, IconPoint to)
{
    std::vector<IconPoint> cells;
    const int steps = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
    for (int step = 0; step <= steps; ++step) {
        const auto share = [&](int distance) {
            return steps == 0 ? 0 : static_cast<int>(std::lround(static_cast<double>(distance * step) / steps));
        };
        const IconPoint place = {from.x + share(to.x - from.x), from.y + share(to.y - from.y)};
        const auto cell = CellAt(place);
        if (cell && (cells.empty() || cells.back() != *cell))
            cells.push_back(*cell);
    }
    return cells;
}

QRgb RgbOf(ColorRef color)
{
    return qRgb(static_cast<int>(color & 255), static_cast<int>(color >> 8 & 255), static_cast<int>(color >> 16 & 255));
}

QImage ImageWithAlpha(const Icon& icon)
{
    QImage image(IconSide, IconSide, QImage::Format_ARGB32);
    for (int y = 0; y < IconSide; ++y)
        for (int x = 0; x < IconSide; ++x)
            image.setPixel(x, y, icon.At(x, y) == TransparentColor ? 0U : RgbOf(icon.At(x, y)));
    return image;
}

// Equal where both are opaque, and equally transparent.
bool LooksEqual(const QImage& left, const QImage& right)
{
    if (left.size() != right.size())
        return false;
    for (int y = 0; y < left.height(); ++y)
        for (int x = 0; x < left.width(); ++x) {
            const QColor one = left.pixelColor(x, y);
            const QColor other = right.pixelColor(x, y);
            if (one.alpha() != other.alpha() || (one.alpha() != 0 && one != other))
                return false;
        }
    return true;
}

cDIBSection PictureBy(int width, int height, const std::function<ColorRef(int, int)>& colorOf)
{
    QImage image(width, height, QImage::Format_RGB32);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x)
            image.setPixel(x, y, RgbOf(colorOf(x, y)));
    return CreateFromPicture(image);
}

ColorRef ByPlace(int x, int y)
{
    return Rgb(static_cast<unsigned>(x) & 255, static_cast<unsigned>(y) & 255,
               static_cast<unsigned>(x >> 8 << 4 | y >> 8) & 255);
}

} // namespace

class tst_modIcon : public QObject {
    Q_OBJECT

private:
    QString Path(const char* name) const { return folder->filePath(QString::fromLatin1(name)); }

    std::unique_ptr<QTemporaryDir> folder;

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
        SetProgramFolder(folder->path());
    }
    void cleanup()
    {
        SetProgramFolder({});
        folder.reset();
    }

    void shiftsWrapAround()
    {
        const Icon icon = RandomIcon(1);
        QVERIFY(IsRearranged(ShiftLeft(icon), icon, [](int x, int y) { return IconPoint{(x + 1) % 32, y}; }));
        QVERIFY(IsRearranged(ShiftRight(icon), icon, [](int x, int y) { return IconPoint{(x + 31) % 32, y}; }));
        QVERIFY(IsRearranged(ShiftUp(icon), icon, [](int x, int y) { return IconPoint{x, (y + 1) % 32}; }));
        QVERIFY(IsRearranged(ShiftDown(icon), icon, [](int x, int y) { return IconPoint{x, (y + 31) % 32}; }));
    }

    void thirtyTwoShiftsRestoreTheIcon()
    {
        const Icon icon = RandomIcon(2);
        for (const auto shift : {ShiftLeft, ShiftRight, ShiftUp, ShiftDown}) {
            QVERIFY(Repeated(icon, shift, 31) != icon);
            QVERIFY(Repeated(icon, shift, 32) == icon);
        }
    }

    void rotateExchangesXAndY()
    {
        const Icon icon = RandomIcon(3);
        QVERIFY(IsRearranged(Rotate(icon), icon, [](int x, int y) { return IconPoint{y, x}; }));
        QVERIFY(Repeated(icon, Rotate, 2) == icon);
    }

    void mirrorAndFlipReflect()
    {
        const Icon icon = RandomIcon(4);
        QVERIFY(IsRearranged(Mirror(icon), icon, [](int x, int y) { return IconPoint{31 - x, y}; }));
        QVERIFY(IsRearranged(Flip(icon), icon, [](int x, int y) { return IconPoint{x, 31 - y}; }));
        QVERIFY(Repeated(icon, Mirror, 2) == icon);
        QVERIFY(Repeated(icon, Flip, 2) == icon);
    }

    void changeAllKeepsOtherColors()
    {
        const Icon icon = Colors();
        const Icon changed = ChangeAll(icon, TransparentColor, Rgb(255, 0, 0));
        for (std::size_t place = 0; place < icon.pixels.size(); ++place)
            QCOMPARE(changed.pixels[place],
                     icon.pixels[place] == TransparentColor ? Rgb(255, 0, 0) : icon.pixels[place]);
        QVERIFY(ChangeAll(icon, Rgb(1, 2, 3), 0) == icon);
    }

    void swatchesAreFoundByTheirExactColor()
    {
        for (std::size_t index = 0; index < SwatchColor.size(); ++index)
            QCOMPARE(SwatchOf(SwatchColor[index]), std::optional(static_cast<int>(index)));
        QCOMPARE(SwatchOf(TransparentColor), std::optional<int>());
        QCOMPARE(SwatchOf(Rgb(0, 0, 1)), std::optional<int>());
    }

    void aCellOwnsItsLeftAndTopLine()
    {
        QCOMPARE(CellAt({0, 0}), std::optional(IconPoint{0, 0}));
        QCOMPARE(CellAt({9, 10}), std::optional(IconPoint{0, 1}));
        QCOMPARE(CellAt({319, 319}), std::optional(IconPoint{31, 31}));
        for (const IconPoint outside : {IconPoint{320, 5}, {5, 320}, {-1, 5}, {5, -1}, {-10, -10}, {1000, 1000}})
            QCOMPARE(CellAt(outside), std::optional<IconPoint>());
    }

    void linesAreWhereTheGridIsDrawn()
    {
        for (int place = 0; place <= 320; ++place) {
            QCOMPARE(IsOnGridLine({place, 5}), place % 10 == 0);
            QCOMPARE(IsOnGridLine({5, place}), place % 10 == 0);
        }
        QVERIFY(IsOnGridLine({-5, 5}));
        QVERIFY(IsOnGridLine({325, 5}));
    }

    void aFastMoveTouchesTheSameCellsAsASlowOne()
    {
        std::mt19937 random(5);
        const auto any = [&random] { return static_cast<int>(random() % 521) - 100; };
        for (int count = 0; count < 3000; ++count) {
            const IconPoint from = {any(), any()};
            const IconPoint to = {any(), any()};
            const auto cells = CellsBetween(from, to);
            QVERIFY(cells == Walked(from, to));
        }
    }

    void aMoveSkipsNoCell()
    {
        std::mt19937 random(6);
        const auto any = [&random] { return static_cast<int>(random() % 320); };
        for (int count = 0; count < 3000; ++count) {
            const IconPoint from = {any(), any()};
            const IconPoint to = {any(), any()};
            const auto cells = CellsBetween(from, to);
            QCOMPARE(cells.front(), *CellAt(from));
            QCOMPARE(cells.back(), *CellAt(to));
            for (std::size_t place = 1; place < cells.size(); ++place) {
                QVERIFY(std::abs(cells[place].x - cells[place - 1].x) <= 1);
                QVERIFY(std::abs(cells[place].y - cells[place - 1].y) <= 1);
            }
        }
    }

    void aMoveFromFarAwayIsClippedToTheIcon()
    {
        constexpr int far = 2'000'000'000;
        const auto row = CellsBetween({-far, 15}, {far, 15});
        QCOMPARE(row.size(), std::size_t{32});
        QCOMPARE(row.front(), (IconPoint{0, 1}));
        QCOMPARE(row.back(), (IconPoint{31, 1}));
        QVERIFY(CellsBetween({far, -far}, {far, far}).empty());
        QCOMPARE(CellsBetween({5, 5}, {5, 5}).size(), std::size_t{1});
        QVERIFY(CellsBetween({-5, -5}, {-5, -5}).empty());
    }

    void colorsTakeTheNearestOfSixteen()
    {
        // In the order of the file's table.
        constexpr std::array<ColorRef, 16> table = {
            Rgb(0, 0, 0),       Rgb(128, 0, 0),   Rgb(0, 128, 0),   Rgb(128, 128, 0),
            Rgb(0, 0, 128),     Rgb(128, 0, 128), Rgb(0, 128, 128), Rgb(192, 192, 192),
            Rgb(128, 128, 128), Rgb(255, 0, 0),   Rgb(0, 255, 0),   Rgb(255, 255, 0),
            Rgb(0, 0, 255),     Rgb(255, 0, 255), Rgb(0, 255, 255), Rgb(255, 255, 255)};
        for (unsigned seed = 0; seed < 20; ++seed) {
            const Icon icon = RandomIcon(seed);
            const Icon reduced = ReducedIcon(icon);
            for (std::size_t place = 0; place < icon.pixels.size(); ++place) {
                long best = 1'000'000;
                ColorRef nearest = 0;
                for (const ColorRef entry : table) {
                    long distance = 0;
                    for (int shift = 0; shift < 24; shift += 8) {
                        const long difference = static_cast<long>(icon.pixels[place] >> shift & 255) -
                                                static_cast<long>(entry >> shift & 255);
                        distance += difference * difference;
                    }
                    if (distance < best) {
                        best = distance;
                        nearest = entry;
                    }
                }
                QCOMPARE(reduced.pixels[place], nearest);
            }
        }
    }

    void ofEquallyNearColorsTheFirstOfTheTableIsTaken()
    {
        Icon icon;
        icon.At(0, 0) = Rgb(64, 0, 0);      // black, dark red
        icon.At(1, 0) = Rgb(64, 64, 0);     // black, dark red, dark green, olive
        icon.At(2, 0) = Rgb(160, 160, 160); // light grey, dark grey
        const Icon reduced = ReducedIcon(icon);
        QCOMPARE(reduced.At(0, 0), Rgb(0, 0, 0));
        QCOMPARE(reduced.At(1, 0), Rgb(0, 0, 0));
        QCOMPARE(reduced.At(2, 0), Rgb(192, 192, 192));
    }

    void onlyTheExactColorIsTransparent()
    {
        Icon icon;
        icon.pixels.fill(Rgb(0, 0, 0));
        icon.At(3, 4) = TransparentColor;
        icon.At(5, 4) = Rgb(255, 238, 171);
        const Icon reduced = ReducedIcon(icon);
        QCOMPARE(reduced.At(3, 4), TransparentColor);
        QCOMPARE(reduced.At(5, 4), Rgb(192, 192, 192));
    }

    void theFileHasTheExpectedBytes()
    {
        QCOMPARE(IconFileOf(Colors()), Golden("colors.ico"));
        QCOMPARE(IconFileOf(Icon()), Golden("empty.ico"));
    }

    void theHeadersAreThoseOfOneImageOfSixteenColors()
    {
        const QByteArray file = IconFileOf(RandomIcon(1));
        QCOMPARE(file.size(), 766);
        QCOMPARE(file.first(6), QByteArray("\0\0\1\0\1\0", 6));
        QCOMPARE(file.sliced(6, 4), QByteArray("\x20\x20\x10\0", 4));
        QCOMPARE(NumberAt(file, 10, 2), 1U);
        QCOMPARE(NumberAt(file, 12, 2), 4U);
        QCOMPARE(NumberAt(file, 14, 4), 744U);
        QCOMPARE(NumberAt(file, 18, 4), 22U);
        QCOMPARE(NumberAt(file, 22, 4), 40U);
        QCOMPARE(NumberAt(file, 26, 4), 32U);
        QCOMPARE(NumberAt(file, 30, 4), 64U);
        QCOMPARE(NumberAt(file, 34, 2), 1U);
        QCOMPARE(NumberAt(file, 36, 2), 4U);
        QCOMPARE(NumberAt(file, 38, 4), 0U);
        QCOMPARE(NumberAt(file, 42, 4), 640U);
        QCOMPARE(file.sliced(46, 16), QByteArray(16, '\0'));
        // Black, dark red, dark green: blue first.
        QCOMPARE(file.sliced(62, 12), QByteArray("\0\0\0\0\0\0\x80\0\0\x80\0\0", 12));
        QCOMPARE(file.sliced(62 + 15 * 4, 4), QByteArray("\xFF\xFF\xFF\0", 4));
    }

    void transparentPixelsHaveTheirMaskAndIndexZero()
    {
        Icon icon;
        icon.pixels.fill(Rgb(255, 255, 255));
        icon.At(0, 31) = TransparentColor; // the first line of the file
        icon.At(9, 31) = TransparentColor;
        icon.At(31, 0) = TransparentColor; // the last pixel of the last line
        const QByteArray file = IconFileOf(icon);
        QCOMPARE(file.sliced(126, 16), QByteArray::fromHex("0ffffffff0ffffffffffffffffffffff"));
        QCOMPARE(file.sliced(126 + 31 * 16, 16), QByteArray::fromHex("fffffffffffffffffffffffffffffff0"));
        QCOMPARE(file.sliced(638, 4), QByteArray::fromHex("80400000"));
        QCOMPARE(file.sliced(638 + 31 * 4, 4), QByteArray::fromHex("00000001"));
        QCOMPARE(file.sliced(642, 30 * 4), QByteArray(30 * 4, '\0'));
    }

    void theFileIsReadBackAsTheReducedIcon()
    {
        Icon icon = RandomIcon(7);
        icon.At(4, 5) = TransparentColor;
        Put(Path("noise.ico"), IconFileOf(icon));
        QCOMPARE(IconCount(Path("noise.ico")), 1);
        const auto image = ExtractIcon(Path("noise.ico"), 0);
        QVERIFY(image.has_value());
        Icon drawn;
        DrawIcon(drawn, *image);
        QVERIFY(drawn == ReducedIcon(icon));
    }

    void otherReadersSeeTheSameIcon()
    {
        Put(Path("colors.ico"), IconFileOf(Colors()));
        const QImage seen(Path("colors.ico"), "ICO");
        QVERIFY(LooksEqual(seen.convertToFormat(QImage::Format_ARGB32), ImageWithAlpha(Colors())));
    }

    void icotoolAcceptsTheFile()
    {
        Put(Path("colors.ico"), IconFileOf(Colors()));
        QProcess tool;
        tool.start(u"icotool"_s, {u"-l"_s, Path("colors.ico")});
        if (!tool.waitForStarted())
            QSKIP("icotool is not installed");
        QVERIFY(tool.waitForFinished());
        QCOMPARE(tool.exitCode(), 0);
        QCOMPARE(tool.readAllStandardOutput().trimmed(),
                 QByteArray("--icon --index=1 --width=32 --height=32 --bit-depth=4 --palette-size=16"));
        QCOMPARE(tool.readAllStandardError(), QByteArray());
        QCOMPARE(QProcess::execute(u"icotool"_s, {u"-x"_s, u"-o"_s, Path("colors.png"), Path("colors.ico")}), 0);
        QVERIFY(LooksEqual(QImage(Path("colors.png")), ImageWithAlpha(Colors())));
    }

    void theBitmapHasTwentyFourBitsAndEveryColor()
    {
        Icon icon = RandomIcon(8);
        icon.At(0, 0) = TransparentColor;
        const QByteArray file = BitmapFileOf(icon);
        QCOMPARE(file.size(), 14 + 40 + 32 * 32 * 3);
        QCOMPARE(NumberAt(file, 28, 2), 24U);
        QVERIFY(IconFromPicture(PictureOfBytes(file)) == icon);
        QVERIFY(QImage::fromData(file, "BMP").pixelColor(0, 0) == QColor(255, 238, 170));
    }

    void picturesAreStretchedByWholePixels()
    {
        for (const auto& [width, height] :
             {std::pair{32, 32}, {64, 64}, {100, 50}, {10, 7}, {1, 1}, {31, 33}, {700, 3}}) {
            const Icon icon = IconFromPicture(PictureBy(width, height, ByPlace));
            for (int y = 0; y < IconSide; ++y)
                for (int x = 0; x < IconSide; ++x)
                    QCOMPARE(icon.At(x, y), ByPlace(x * width / 32, y * height / 32));
        }
    }

    void onlyAPartOfAPictureIsStretched()
    {
        const Icon icon = IconFromPicture(PictureBy(200, 100, ByPlace), {30, 20, 48, 80});
        for (int y = 0; y < IconSide; ++y)
            for (int x = 0; x < IconSide; ++x)
                QCOMPARE(icon.At(x, y), ByPlace(30 + x * 48 / 32, 20 + y * 80 / 32));
    }

    void theAreaOutsideAPictureIsTransparent()
    {
        QVERIFY(IconFromPicture(cDIBSection()) == Icon());
        const cDIBSection picture = PictureBy(16, 16, [](int, int) { return Rgb(0, 0, 255); });
        QVERIFY(IconFromPicture(picture, {0, 0, 0, 16}) == Icon());
        QVERIFY(IconFromPicture(picture, {0, 0, 16, -1}) == Icon());
        const Icon icon = IconFromPicture(picture, {-16, -16, 32, 64});
        QCOMPARE(icon.At(15, 15), TransparentColor);
        QCOMPARE(icon.At(16, 8), Rgb(0, 0, 255));
        QCOMPARE(icon.At(31, 15), Rgb(0, 0, 255));
        QCOMPARE(icon.At(31, 16), TransparentColor);
        QCOMPARE(icon.At(15, 8), TransparentColor);
    }

    void aBoxDrawnAnyWayIsTheSame()
    {
        const IconRegion box = {10, 20, 30, 5};
        QCOMPARE(RegionBetween({10, 20}, {40, 25}, 100, 100), box);
        QCOMPARE(RegionBetween({40, 25}, {10, 20}, 100, 100), box);
        QCOMPARE(RegionBetween({40, 20}, {10, 25}, 100, 100), box);
        QCOMPARE(RegionBetween({-50, 90}, {500, 200}, 100, 100), (IconRegion{0, 90, 100, 10}));
        QVERIFY(RegionBetween({10, 20}, {10, 25}, 100, 100).IsEmpty());
        QVERIFY(RegionBetween({120, 20}, {150, 25}, 100, 100).IsEmpty());
    }

    void theTemporaryIconIsWrittenAndTaken()
    {
        QCOMPARE(TempIconPath(), Path("temp.ico"));
        QVERIFY(WriteTempIcon(RandomIcon(9)) == ReducedIcon(RandomIcon(9)));
        QCOMPARE(Get(Path("temp.ico")), IconFileOf(RandomIcon(9)));
        RemoveTempIcon();
        QVERIFY(!QFile::exists(Path("temp.ico")));
        RemoveTempIcon();
    }

    void anEngineGetsTheImageAndKeepsEverythingElse_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<int>("start");
        QTest::newRow("version 3") << static_cast<int>(EngineVersion::Three) << 21663;
        QTest::newRow("version 4") << static_cast<int>(EngineVersion::Four) << 21735;
    }
    void anEngineGetsTheImageAndKeepsEverythingElse()
    {
        QFETCH(const int, version);
        QFETCH(const int, start);
        std::mt19937 random(10);
        QByteArray engine(60'000, '\0');
        for (char& byte : engine)
            byte = static_cast<char>(random());
        Put(Path("run.exe"), engine);
        InstallIcon(Path("run.exe"), Colors(), static_cast<EngineVersion>(version));
        QByteArray expected = engine;
        expected[start] = '\0'; // the last byte of the directory entry
        expected.replace(start + 1, 744, Golden("colors.ico").sliced(22));
        QCOMPARE(Get(Path("run.exe")), expected);
        QCOMPARE(Get(Path("temp.ico")), Golden("colors.ico"));
    }

    void theEngineStaysTheSameFile()
    {
        Put(Path("run.exe"), QByteArray(30'000, 'e'));
        QVERIFY(QFile::setPermissions(Path("run.exe"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        QVERIFY(QFile::link(Path("run.exe"), Path("link.exe")));
        QFile open(Path("run.exe"));
        QVERIFY(open.open(QIODevice::ReadOnly));
        InstallIcon(Path("link.exe"), Colors(), EngineVersion::Three);
        QVERIFY(QFileInfo(Path("link.exe")).isSymLink());
        QVERIFY(QFileInfo(Path("run.exe")).isExecutable());
        // A file that had been replaced would still show its old bytes here.
        QCOMPARE(open.readAll(), Get(Path("run.exe")));
        QVERIFY(Get(Path("run.exe")) != QByteArray(30'000, 'e'));
    }

    void aShortEngineGrowsByZeros()
    {
        for (const int size : {0, 100, 21735, 21736, 22000}) {
            Put(Path("run.exe"), QByteArray(size, 'e'));
            InstallIcon(Path("run.exe"), Colors(), EngineVersion::Four);
            const int kept = std::min(size, 21735);
            QCOMPARE(Get(Path("run.exe")),
                     QByteArray(kept, 'e') + QByteArray(21735 - kept + 1, '\0') + Golden("colors.ico").sliced(22));
        }
    }

    void aMissingEngineIsAFailureAndMakesNoFile()
    {
        QCOMPARE(ErrorOf([this] { InstallIcon(Path("run.exe"), Colors(), EngineVersion::Four); }), +fileNotFound);
        QVERIFY(!QFile::exists(Path("run.exe")));
        QVERIFY(!QFile::exists(Path("temp.ico")));
    }

#ifdef Q_OS_UNIX
    void aWriteProtectedEngineStaysAsItIs()
    {
        Put(Path("run.exe"), QByteArray(30'000, 'e'));
        QVERIFY(QFile::setPermissions(Path("run.exe"), QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther));
        QVERIFY(QFile::setPermissions(folder->path(), QFile::Permissions(0x7777)));
        const PlainUser user;
        QCOMPARE(ErrorOf([this] { InstallIcon(Path("run.exe"), Colors(), EngineVersion::Four); }), +pathFileAccess);
        QCOMPARE(Get(Path("run.exe")), QByteArray(30'000, 'e'));
    }

    void anEngineThatCannotGrowKeepsItsLength()
    {
        Put(Path("run.exe"), QByteArray(5'000, 'e'));
        {
            const FileSizeLimit limit(10'000);
            QCOMPARE(ErrorOf([this] { InstallIcon(Path("run.exe"), Colors(), EngineVersion::Four); }), +diskFull);
        }
        QCOMPARE(Get(Path("run.exe")), QByteArray(5'000, 'e'));
    }

    void anUnwritableTemporaryFolderIsAnErrorBeforeTheEngineIsTouched()
    {
        QVERIFY(QDir(folder->path()).mkdir(u"temp.ico"_s));
        Put(Path("run.exe"), QByteArray(30'000, 'e'));
        QCOMPARE(ErrorOf([this] { InstallIcon(Path("run.exe"), Colors(), EngineVersion::Four); }), +pathFileAccess);
        QCOMPARE(Get(Path("run.exe")), QByteArray(30'000, 'e'));
        QCOMPARE(ErrorOf([] { WriteTempIcon(Colors()); }), +pathFileAccess);
    }
#endif
};

QTEST_GUILESS_MAIN(tst_modIcon)
#include "tst_modIcon.moc"
