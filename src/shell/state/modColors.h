// SPDX-License-Identifier: GPL-3.0-or-later
// Colours in the toolkit's form.
#pragma once

#include "platform/language/modColorNames.h"

#include <QColor>

namespace ob {

inline QColor ColorOf(ColorRef color)
{
    const auto part = [color](int shift) { return static_cast<int>((color >> shift) & 0xFF); };
    return {part(0), part(8), part(16)};
}

} // namespace ob
