// SPDX-License-Identifier: GPL-3.0-or-later
// The text palette file: "JASC", "0100", the count, then a line of three numbers an entry; CR LF between the lines.
#pragma once

#include "imaging/modFileAccess.h"
#include "imaging/modPaletteEntry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ob {

// Every line of exactly three parts (parted at single blanks) is a colour, any other line is passed over, whatever it
// says. Nothing when a part of such a line is no number from 0 to 255.
std::optional<std::vector<PaletteEntry>> ReadTextPalette(ByteView bytes);

std::string WriteTextPalette(std::span<const PaletteEntry> entries);

// Decimal digits with an optional sign and fraction, rounded, halves to even; nothing for anything else and for what
// is not a byte then.
std::optional<std::uint8_t> ByteOfText(std::string_view text);

} // namespace ob
