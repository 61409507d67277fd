// SPDX-License-Identifier: GPL-3.0-or-later
// Writes pictures as bitmap files of 1, 4, 8 or 24 bits per pixel.
#include "imaging/cDIBSectionSave.h"

#include "imaging/cColourReduceDIB.h"
#include "imaging/cImagingError.h"
#include "imaging/modIndexedSection.h"

#include <vector>

namespace ob {

namespace {

constexpr std::int32_t AutomaticColors = 236;
constexpr std::uint8_t AutomaticLevel = 6;

int BitsOf(SaveBitDepth depth)
{
    switch (depth) {
    case SaveBitDepth::Bits1:
        return 1;
    case SaveBitDepth::Bits4:
        return 4;
    case SaveBitDepth::Bits8:
        return 8;
    case SaveBitDepth::Bits24:
        break;
    }
    return 24;
}

void ReduceAutomatically(cDIBSection& picture, std::optional<cPalette>& palette, SaveBitDepth depth)
{
    const cColourReduceDIB reducer;
    if (depth == SaveBitDepth::Bits1) {
        reducer.BlackAndWhite(picture, picture);
        return;
    }
    palette.emplace();
    if (depth == SaveBitDepth::Bits4) {
        palette->Create16Colour();
        reducer.ApplyPalette(picture, picture, *palette, Dither::On);
    } else {
        palette->CreateOptimal(picture, AutomaticColors, AutomaticLevel);
        reducer.ApplyPalette(picture, picture, *palette, Dither::Off);
    }
}

void Reduce(cDIBSection& picture, std::optional<cPalette>& palette, SaveBitDepth depth, SaveReduceMode mode)
{
    if (mode == SaveReduceMode::Automatic) {
        ReduceAutomatically(picture, palette, depth);
    } else if (mode == SaveReduceMode::Palette) {
        if (!palette)
            RaiseObjectNotSet();
        cColourReduceDIB().ApplyPalette(picture, picture, *palette, Dither::On);
    }
}

using Slot = cIndexedSection::Slot;

// Red and blue are swapped in this table, as readers have always found it; the table also has each colour's
// counterpart, so none is lost.
std::vector<Slot> SlotsOf16Colours()
{
    cPalette colors;
    colors.Create16Colour();
    std::vector<Slot> slots;
    for (const PaletteEntry& entry : colors.Entries())
        slots.push_back({entry.red, entry.green, entry.blue, 0});
    return slots;
}

std::vector<Slot> SlotsOf(const cPalette& palette)
{
    std::vector<Slot> slots;
    for (const PaletteEntry& entry : palette.Entries())
        slots.push_back({entry.blue, entry.green, entry.red, 0});
    return slots;
}

std::vector<Slot> SlotsFor(SaveBitDepth depth, std::optional<cPalette>& palette)
{
    if (depth == SaveBitDepth::Bits1)
        return {{0, 0, 0, 0}, {255, 255, 255, 0}};
    if (depth == SaveBitDepth::Bits4)
        return SlotsOf16Colours();
    if (!palette) {
        palette.emplace();
        palette->CreateHalfTone();
    }
    return SlotsOf(*palette);
}

} // namespace

bool cDIBSectionSave::Save(const std::string& fileName, cDIBSection& picture, std::optional<cPalette>& palette,
                           SaveBitDepth depth, SaveReduceMode mode, const FileWriter& write) const
{
    WriteFile(fileName, picture, palette, depth, mode, write);
    return false;
}

bool cDIBSectionSave::WriteFile(const std::string& fileName, cDIBSection& picture, std::optional<cPalette>& palette,
                                SaveBitDepth depth, SaveReduceMode mode, const FileWriter& write) const
{
    if (depth == SaveBitDepth::Bits24)
        return picture.WriteFile(fileName, write);
    if (picture.hdc() == 0)
        return false;
    Reduce(picture, palette, depth, mode);
    cIndexedSection section(picture.Width(), picture.Height(), BitsOf(depth), SlotsFor(depth, palette));
    if (!section.HasMemory())
        return false;
    section.TakePicture(picture, mode == SaveReduceMode::None ? CopyBack::Yes : CopyBack::No);
    return section.WriteFile(fileName, write);
}

} // namespace ob
