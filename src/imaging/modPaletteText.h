// SPDX-License-Identifier: GPL-3.0-or-later
// The text palette file: "JASC", "0100", the count, then a line of three numbers per entry; CR LF between the lines.
#pragma once

#include "imaging/modFileAccess.h"
#include "imaging/modPaletteEntry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace ob {

// Every line of exactly three parts (separated by single spaces) is a colour, any other line is skipped, whatever its
// content. Nothing when a part of such a line is not a number from 0 to 255.
std::optional<std::vector<PaletteEntry>> ReadTextPalette(ByteView bytes);

std::string WriteTextPalette(std::span<const PaletteEntry> entries);

// Decimal digits with an optional sign and fraction, rounded, halves to even; nothing for anything else and for values
// outside a byte.
std::optional<std::uint8_t> ByteOfText(std::string_view text);

} // namespace ob
