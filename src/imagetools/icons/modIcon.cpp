// SPDX-License-Identifier: GPL-3.0-or-later
// The icon of the icon editor as a value, and its operations.
#include "imagetools/icons/modIcon.h"

#include "imaging/cByteWriter.h"
#include "imaging/cPalette.h"
#include "imaging/modBitmapHeaders.h"
#include "platform/files/modByteViews.h"
#include "platform/files/modFilePieces.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"

#include <QFile>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <span>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// A new icon whose every pixel comes from the place given by the rule.
template <class Source>
Icon Rearranged(const Icon& icon, Source sourceOf)
{
    Icon result;
    for (int y = 0; y < IconSide; ++y) {
        for (int x = 0; x < IconSide; ++x) {
            const IconPoint source = sourceOf(x, y);
            result.At(x, y) = icon.At(source.x, source.y);
        }
    }
    return result;
}

// Sizes in the icon file: lines of colour indices and of mask bits, bottom-up, which fill whole groups of four bytes
// without padding.
constexpr int DirectorySize = 6 + 16;
constexpr int TableSize = 16 * 4;
constexpr int ColorLine = IconSide / 2;
constexpr int MaskLine = IconSide / 8;
constexpr int ColorBytes = IconSide * ColorLine;
constexpr int MaskBytes = IconSide * MaskLine;
constexpr int PixelsSize = ColorBytes + MaskBytes;
constexpr int ImageSize = static_cast<int>(InfoHeaderSize) + TableSize + PixelsSize;

// The bytes for the engine: the last byte of the directory, then the image.
constexpr int BlockStart = DirectorySize - 1;
constexpr int BlockSize = 1 + ImageSize;

constexpr qsizetype PositionOf(EngineVersion version)
{
    return version == EngineVersion::Four ? 21735 : 21663;
}

// The table of the icon file.
std::span<const PaletteEntry> FileColors()
{
    static const cPalette palette = [] {
        cPalette made;
        made.Create16Colour();
        return made;
    }();
    return palette.Entries();
}

int Channel(ColorRef color, int shift)
{
    return static_cast<int>((color >> shift) & 0xFF);
}

// The index of the nearest colour in the file's table.
int NearestIndex(ColorRef color)
{
    const auto distance = [color](const PaletteEntry& entry) {
        const int red = Channel(color, 0) - entry.red;
        const int green = Channel(color, 8) - entry.green;
        const int blue = Channel(color, 16) - entry.blue;
        return red * red + green * green + blue * blue;
    };
    const auto nearest = std::ranges::min_element(FileColors(), {}, distance);
    return static_cast<int>(nearest - FileColors().begin());
}

void WriteHeaders(cByteWriter& file)
{
    constexpr std::uint16_t isIcon = 1;
    constexpr std::uint16_t imageCount = 1;
    constexpr std::int16_t planes = 1;
    constexpr std::int16_t bits = 4;
    file.Word(0).Word(isIcon).Word(imageCount);
    file.Byte(IconSide).Byte(IconSide).Byte(16).Byte(0).SignedWord(planes).SignedWord(bits);
    file.Long(ImageSize).Long(DirectorySize);
    BitmapInfoHeader header;
    header.biSize = static_cast<std::int32_t>(InfoHeaderSize);
    header.biWidth = IconSide;
    header.biHeight = 2 * IconSide; // the mask counts as the lower half of the image
    header.biPlanes = planes;
    header.biBitCount = bits;
    header.biSizeImage = PixelsSize;
    file.Bytes(BytesOf(header));
}

constexpr int LastPixel = IconSide - 1;

// Rounds down, also below zero.
int CellIndex(int place)
{
    return place >= 0 ? place / CellSide : -1;
}

// The range of steps within the view, of a move of that many, from a place by +1, 0 or -1 each.
struct StepRange {
    std::int64_t first;
    std::int64_t last;
};

StepRange StepsInView(std::int64_t start, std::int64_t direction, std::int64_t count)
{
    if (direction == 0)
        return {0, count};
    const std::int64_t end = GridSide - 1;
    const std::int64_t enter = direction > 0 ? -start : start - end;
    const std::int64_t leave = direction > 0 ? end - start : start;
    return {std::max<std::int64_t>(0, enter), std::min(count, leave)};
}

// A fraction of a distance, rounded to the nearest integer.
std::int64_t ShareOf(std::int64_t distance, std::int64_t step, std::int64_t steps)
{
    const std::int64_t product = 2 * std::abs(distance) * step + steps;
    const std::int64_t share = product / (2 * steps);
    return distance < 0 ? -share : share;
}

} // namespace

std::optional<int> SwatchOf(ColorRef color)
{
    const auto found = std::find(SwatchColor.begin(), SwatchColor.end(), color);
    if (found == SwatchColor.end())
        return std::nullopt;
    return static_cast<int>(found - SwatchColor.begin());
}

Icon ShiftLeft(const Icon& icon)
{
    return Rearranged(icon, [](int x, int y) { return IconPoint{(x + 1) % IconSide, y}; });
}

Icon ShiftRight(const Icon& icon)
{
    return Rearranged(icon, [](int x, int y) { return IconPoint{(x + LastPixel) % IconSide, y}; });
}

Icon ShiftUp(const Icon& icon)
{
    return Rearranged(icon, [](int x, int y) { return IconPoint{x, (y + 1) % IconSide}; });
}

Icon ShiftDown(const Icon& icon)
{
    return Rearranged(icon, [](int x, int y) { return IconPoint{x, (y + LastPixel) % IconSide}; });
}

Icon Rotate(const Icon& icon)
{
    return Rearranged(icon, [](int x, int y) { return IconPoint{y, x}; });
}

Icon Mirror(const Icon& icon)
{
    return Rearranged(icon, [](int x, int y) { return IconPoint{LastPixel - x, y}; });
}

Icon Flip(const Icon& icon)
{
    return Rearranged(icon, [](int x, int y) { return IconPoint{x, LastPixel - y}; });
}

Icon ChangeAll(const Icon& icon, ColorRef oldColor, ColorRef newColor)
{
    Icon result = icon;
    std::replace(result.pixels.begin(), result.pixels.end(), oldColor, newColor);
    return result;
}

bool IsOnGridLine(IconPoint place)
{
    return !CellAt(place) || place.x % CellSide == 0 || place.y % CellSide == 0;
}

std::optional<IconPoint> CellAt(IconPoint place)
{
    const IconPoint cell = {CellIndex(place.x), CellIndex(place.y)};
    if (cell.x < 0 || cell.x >= IconSide || cell.y < 0 || cell.y >= IconSide)
        return std::nullopt;
    return cell;
}

std::vector<IconPoint> CellsBetween(IconPoint from, IconPoint to)
{
    // No pointer gets that far; within it the products below cannot overflow.
    constexpr int farthest = 1 << 24;
    from = {std::clamp(from.x, -farthest, farthest), std::clamp(from.y, -farthest, farthest)};
    to = {std::clamp(to.x, -farthest, farthest), std::clamp(to.y, -farthest, farthest)};
    const std::int64_t width = std::int64_t{to.x} - from.x;
    const std::int64_t height = std::int64_t{to.y} - from.y;
    const bool isFlat = std::abs(width) >= std::abs(height);
    const std::int64_t along = isFlat ? width : height;
    const std::int64_t direction = along > 0 ? 1 : along < 0 ? -1 : 0;
    const std::int64_t steps = std::abs(along);
    // A pointer far outside takes no more steps over the icon than one at its edge.
    const auto [first, last] = StepsInView(isFlat ? from.x : from.y, direction, steps);
    std::vector<IconPoint> cells;
    for (std::int64_t step = first; step <= last; ++step) {
        const std::int64_t across = steps == 0 ? 0 : ShareOf(isFlat ? height : width, step, steps);
        const std::int64_t x = from.x + (isFlat ? direction * step : across);
        const std::int64_t y = from.y + (isFlat ? across : direction * step);
        const std::optional<IconPoint> cell = CellAt({static_cast<int>(x), static_cast<int>(y)});
        if (cell && (cells.empty() || cells.back() != *cell))
            cells.push_back(*cell);
    }
    return cells;
}

void SaveUndo(IconSheet& sheet)
{
    sheet.before = sheet.icon;
    sheet.canUndo = true;
    sheet.isChanged = true;
    sheet.isEmpty = false;
    sheet.isSavedSinceEdit = false;
}

void Edit(IconSheet& sheet, const Icon& icon)
{
    SaveUndo(sheet);
    sheet.icon = icon;
}

void TakeIcon(IconSheet& sheet, const Icon& icon)
{
    const bool wasChanged = sheet.isChanged;
    Edit(sheet, icon);
    sheet.isChanged = wasChanged;
}

void MarkSaved(IconSheet& sheet)
{
    sheet.isChanged = false;
    sheet.isSavedSinceEdit = sheet.canUndo;
}

void Undo(IconSheet& sheet)
{
    if (!sheet.canUndo)
        return;
    sheet.icon = sheet.before;
    sheet.isChanged = sheet.isChanged || sheet.isSavedSinceEdit;
    sheet.canUndo = false;
}

void NewIcon(IconSheet& sheet)
{
    sheet = {};
}

IconRegion RegionBetween(IconPoint corner, IconPoint opposite, int pictureWidth, int pictureHeight)
{
    const int left = std::clamp(std::min(corner.x, opposite.x), 0, pictureWidth);
    const int right = std::clamp(std::max(corner.x, opposite.x), 0, pictureWidth);
    const int top = std::clamp(std::min(corner.y, opposite.y), 0, pictureHeight);
    const int bottom = std::clamp(std::max(corner.y, opposite.y), 0, pictureHeight);
    return {left, top, right - left, bottom - top};
}

Icon ReducedIcon(const Icon& icon)
{
    Icon reduced;
    std::ranges::transform(icon.pixels, reduced.pixels.begin(), [](ColorRef color) {
        if (color == TransparentColor)
            return color;
        const PaletteEntry& entry = FileColors()[static_cast<std::size_t>(NearestIndex(color))];
        return Rgb(entry.red, entry.green, entry.blue);
    });
    return reduced;
}

QByteArray IconFileOf(const Icon& icon)
{
    cByteWriter file;
    WriteHeaders(file);
    for (const PaletteEntry& entry : FileColors())
        file.Byte(entry.blue).Byte(entry.green).Byte(entry.red).Byte(0);
    std::array<std::uint8_t, ColorBytes> colors = {};
    std::array<std::uint8_t, MaskBytes> mask = {};
    for (int y = 0; y < IconSide; ++y) {
        std::uint8_t* colorLine = colors.data() + (LastPixel - y) * ColorLine;
        std::uint8_t* maskLine = mask.data() + (LastPixel - y) * MaskLine;
        for (int x = 0; x < IconSide; ++x) {
            const ColorRef color = icon.At(x, y);
            if (color == TransparentColor)
                maskLine[x / 8] = static_cast<std::uint8_t>(maskLine[x / 8] | 0x80 >> x % 8);
            else
                colorLine[x / 2] =
                    static_cast<std::uint8_t>(colorLine[x / 2] | NearestIndex(color) << (x % 2 == 0 ? 4 : 0));
        }
    }
    file.Bytes(colors).Bytes(mask);
    return QtViewOf(file.View()).toByteArray();
}

cDIBSection PictureOf(const Icon& icon)
{
    cDIBSection picture;
    if (!picture.Create(IconSide, IconSide))
        throw std::bad_alloc();
    for (int y = 0; y < IconSide; ++y) {
        std::uint8_t* pixel = picture.Line(LastPixel - y);
        for (int x = 0; x < IconSide; ++x, pixel += 3)
            for (int channel = 0; channel < 3; ++channel)
                pixel[channel] = static_cast<std::uint8_t>(Channel(icon.At(x, y), 16 - 8 * channel));
    }
    return picture;
}

QByteArray BitmapFileOf(const Icon& icon)
{
    QByteArray bytes;
    PictureOf(icon).WriteFile({}, [&bytes](const std::string&, std::span<const ByteView> pieces) {
        for (const ByteView piece : pieces)
            bytes.append(QtViewOf(piece));
        return WriteResult{};
    });
    return bytes;
}

Icon IconFromPicture(const cDIBSection& picture)
{
    return IconFromPicture(picture, {0, 0, picture.Width(), picture.Height()});
}

Icon IconFromPicture(const cDIBSection& picture, const IconRegion& region)
{
    Icon icon;
    if (picture.hDib() == 0 || region.IsEmpty())
        return icon;
    for (int y = 0; y < IconSide; ++y) {
        const std::int64_t sourceY = region.top + std::int64_t{y} * region.height / IconSide;
        if (sourceY < 0 || sourceY >= picture.Height())
            continue;
        const std::uint8_t* line = picture.Line(picture.Height() - 1 - sourceY);
        for (int x = 0; x < IconSide; ++x) {
            const std::int64_t sourceX = region.left + std::int64_t{x} * region.width / IconSide;
            if (sourceX < 0 || sourceX >= picture.Width())
                continue;
            const std::uint8_t* pixel = line + sourceX * 3;
            icon.At(x, y) = Rgb(pixel[2], pixel[1], pixel[0]);
        }
    }
    return icon;
}

QString TempIconPath()
{
    return ProgramFile(u"temp.ico"_s);
}

Icon WriteTempIcon(const Icon& icon)
{
    ReplaceFile(TempIconPath(), IconFileOf(icon), Durability::Unsynced);
    return ReducedIcon(icon);
}

void RemoveTempIcon()
{
    QFile::remove(TempIconPath());
}

void InstallIcon(const QString& enginePath, const Icon& icon, EngineVersion version)
{
    const qsizetype position = PositionOf(version);
    QByteArray front = ReadWhole(enginePath);
    front.resize(std::min(front.size(), position));
    front.append(position - front.size(), '\0');
    const QByteArray file = IconFileOf(icon);
    ReplaceFile(TempIconPath(), file, Durability::Unsynced);
    // What lies in front is written as it was, so that one write in place does it.
    const QByteArrayView pieces[] = {front, QByteArrayView(file).sliced(BlockStart, BlockSize)};
    WriteKeepingTail(enginePath, FilePieces(pieces));
}

} // namespace ob
