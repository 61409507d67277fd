// SPDX-License-Identifier: GPL-3.0-or-later
// The embedded texts, by resource number and by name.
#pragma once

#include <QString>

#include <optional>
#include <string_view>

namespace ob {

// The bytes of the embedded text with that number; the only type is "CUSTOM". Nothing for an unknown one.
std::optional<std::string_view> EmbeddedText(int id, const QString& type);

// The bytes of resources/texts/NAME, uncompressed in the program's own memory; nothing for an unknown name.
std::optional<std::string_view> EmbeddedText(const QString& name);

// Writes the program's resource of that number and type (101 wrapper32.bas, 102 printer32.bas, 103 jpeg.bas,
// 104 jpeg.dll; type "CUSTOM") at the start of the file; a longer file keeps its tail. Any error ends it without a
// word.
void ExtractResource(int id, const QString& type, const QString& path);

} // namespace ob
