// SPDX-License-Identifier: GPL-3.0-or-later
// A list of colours.
#include "imaging/cPalette.h"

#include "imaging/cBytes.h"
#include "imaging/cImagingError.h"
#include "imaging/modNearest.h"
#include "imaging/modPaletteBinary.h"
#include "imaging/modPaletteText.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace ob {

namespace {

constexpr std::size_t FullCount = 256;

bool IsByte(std::int32_t value)
{
    return value >= 0 && value <= 255;
}

} // namespace

const PaletteEntry& cPalette::EntryAt(std::int32_t index) const
{
    if (index < 1 || index > Count())
        RaiseSubscriptError();
    return entries[static_cast<std::size_t>(index) - 1];
}

void cPalette::Add(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    entries.push_back({red, green, blue, 0});
}

void cPalette::Clear()
{
    entries.clear();
}

std::int32_t cPalette::ClosestIndex(std::int32_t red, std::int32_t green, std::int32_t blue) const
{
    if (IsByte(red) && IsByte(green) && IsByte(blue)) {
        return ClosestEntry(entries, {static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                                      static_cast<std::uint8_t>(blue), 0});
    }
    std::int64_t best = FarthestCityBlock;
    std::int32_t bestIndex = 0;
    for (std::int32_t index = 1; index <= Count(); ++index) {
        const std::int64_t distance = std::abs(std::int64_t{Red(index)} - red) +
                                      std::abs(std::int64_t{Green(index)} - green) +
                                      std::abs(std::int64_t{Blue(index)} - blue);
        if (distance < best) {
            best = distance;
            bestIndex = index;
        }
    }
    return bestIndex;
}

// The entry at start stays black.
void cPalette::AddDarkColours(std::size_t start)
{
    constexpr std::array<PaletteEntry, 7> dark = {{{128, 0, 0, 0},
                                                   {0, 128, 0, 0},
                                                   {128, 128, 0, 0},
                                                   {0, 0, 128, 0},
                                                   {128, 0, 128, 0},
                                                   {0, 128, 128, 0},
                                                   {192, 192, 192, 0}}};
    std::copy(dark.begin(), dark.end(), entries.begin() + static_cast<std::ptrdiff_t>(start));
}

void cPalette::AddBrightColours(std::size_t start)
{
    constexpr std::array<PaletteEntry, 8> bright = {{{128, 128, 128, 0},
                                                     {255, 0, 0, 0},
                                                     {0, 255, 0, 0},
                                                     {255, 255, 0, 0},
                                                     {0, 0, 255, 0},
                                                     {255, 0, 255, 0},
                                                     {0, 255, 255, 0},
                                                     {255, 255, 255, 0}}};
    std::copy(bright.begin(), bright.end(), entries.begin() + static_cast<std::ptrdiff_t>(start) - 1);
}

void cPalette::Create16Colour()
{
    entries.assign(16, {});
    AddDarkColours(1);
    AddBrightColours(9);
}

void cPalette::CreateMono()
{
    entries = {{0, 0, 0, 0}, {255, 255, 255, 0}};
}

void cPalette::CreateHalfTone()
{
    constexpr std::array<std::uint8_t, 5> steps = {0, 64, 128, 192, 255};
    entries.clear();
    for (const std::uint8_t blue : steps) {
        for (const std::uint8_t green : steps) {
            for (const std::uint8_t red : steps)
                Add(red, green, blue);
        }
    }
    entries.resize(FullCount);
}

void cPalette::CreateWebSafe()
{
    constexpr int step = 51;
    entries.assign(FullCount, {});
    AddDarkColours(1);
    AddBrightColours(248);
    std::size_t index = 8;
    for (int blue = 0; blue <= 255; blue += step) {
        for (int green = 0; green <= 255; green += step) {
            for (int red = 0; red <= 255; red += step) {
                // Black, white and the six full colours are in both tables.
                const int sum = red + green + blue;
                const int zeros = (red == 0) + (green == 0) + (blue == 0);
                if (sum == 0 || sum == 765 || (sum == 510 && zeros >= 1) || (sum == 255 && zeros >= 2))
                    continue;
                entries[index++] = {static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                                    static_cast<std::uint8_t>(blue), 0};
            }
        }
    }
    // The grey steps are all stored in the last of these entries, so that the brightest remains.
    for (int grey = 8; grey <= 248; grey += 8) {
        const auto value = static_cast<std::uint8_t>(grey);
        entries[index - 1] = {value, value, value, 0};
    }
}

void cPalette::CreateOptimal(const cDIBSection& picture, std::int32_t colorsWanted, std::uint8_t maximumLevel)
{
    CreateOptimal(picture, colorsWanted, maximumLevel, {});
}

void cPalette::CreateOptimal(const cDIBSection& picture, std::int32_t colorsWanted, std::uint8_t maximumLevel,
                             const OptimalEvents& events)
{
    const cProgress progress(events.progress);
    progress.Init(std::int64_t{picture.Height()} - 1 + colorsWanted);
    cOctree tree(colorsWanted, maximumLevel);
    tree.AddPicture(picture, progress, events.reducingFailed);
    Clear();
    for (const cOctree::Leaf& leaf : tree.Leaves()) {
        entries.push_back(leaf.color);
        progress.At(leaf.node);
    }
    nodes = tree.TakeNodes();
    progress.Complete();
}

void cPalette::EraseNodes()
{
    nodes = {};
}

bool cPalette::Load(const std::string& fileName, std::int32_t& position, const FileReader& read)
{
    const FileContent content = read(fileName);
    if (content.outcome != FileOutcome::Done)
        return false;
    position = std::max(position, 0);
    const ByteView bytes(content.bytes);
    BinaryPalette palette =
        ReadBinaryPalette(bytes.subspan(std::min<std::size_t>(static_cast<std::size_t>(position), bytes.size())));
    if (palette.state == BinaryPaletteState::BadCount)
        return false;
    entries = std::move(palette.entries);
    if (palette.state == BinaryPaletteState::CutShort)
        return false;
    position += static_cast<std::int32_t>(palette.byteCount);
    return true;
}

bool cPalette::Save(const std::string& fileName, std::int32_t position, const FileWriter& write) const
{
    cBytes gap;
    if (position >= 1 && !gap.Allocate(static_cast<std::size_t>(position)))
        return false;
    const std::vector<std::uint8_t> bytes = WriteBinaryPalette(entries);
    const std::array<ByteView, 2> pieces = {gap.View(), bytes};
    return write(fileName, pieces).outcome == FileOutcome::Done;
}

bool cPalette::SaveToJASCFile(const std::string& fileName, const FileWriter& write) const
{
    const std::string text = WriteTextPalette(entries);
    const std::array<ByteView, 1> pieces = {ByteView(reinterpret_cast<const std::uint8_t*>(text.data()), text.size())};
    write(fileName, pieces);
    return false;
}

bool cPalette::LoadFromJASCFile(const std::string& fileName, const FileReader& read)
{
    Clear();
    const FileContent content = read(fileName);
    if (content.outcome != FileOutcome::Done)
        return false;
    auto colors = ReadTextPalette(content.bytes);
    if (!colors)
        return false;
    entries = std::move(*colors);
    return true;
}

} // namespace ob
