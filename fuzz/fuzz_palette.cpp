// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes may be given as a palette file, text or binary; what was read survives being written and read again.
#include "imaging/cPalette.h"
#include "imaging/modPaletteBinary.h"
#include "imaging/modPaletteText.h"

#include <cstdlib>
#include <limits>

static void Require(bool holds)
{
    if (!holds)
        std::abort();
}

static void LookAtText(ob::ByteView input)
{
    auto entries = ob::ReadTextPalette(input);
    if (!entries)
        return;
    Require(entries->size() <= input.size() / 5 + 1);
    const std::string text = ob::WriteTextPalette(*entries);
    Require(ob::ReadTextPalette({reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}) == entries);
}

static void LookAtBinary(ob::ByteView input)
{
    const ob::BinaryPalette palette = ob::ReadBinaryPalette(input);
    Require(palette.entries.size() <= static_cast<std::size_t>(ob::MostBinaryEntries));
    if (palette.state != ob::BinaryPaletteState::Whole)
        return;
    const std::vector<std::uint8_t> bytes = ob::WriteBinaryPalette(palette.entries);
    Require(bytes.size() == palette.byteCount);
    Require(std::equal(bytes.begin(), bytes.end(), input.begin()));
}

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const ob::ByteView input(data, size);
    LookAtText(input);
    LookAtBinary(input);
    const ob::FileReader read = [&](const std::string&) -> ob::FileContent {
        return {ob::FileOutcome::Done, {input.begin(), input.end()}, {}};
    };
    ob::cPalette palette;
    // The first bytes serve as a position in the file.
    std::int32_t position = size < 2 ? -1 : data[0] | data[1] << 8;
    const std::int32_t start = position;
    if (palette.Load("x", position, read))
        Require(position == start + 4 + 4 * palette.Count());
    position = std::numeric_limits<std::int32_t>::max();
    Require(!palette.Load("x", position, read));
    if (palette.LoadFromJASCFile("x", read) && palette.Count() > 0) {
        const std::int32_t index = palette.ClosestIndex(palette.Red(1), palette.Green(1), palette.Blue(1));
        Require(index == 1);
    }
    return 0;
}
