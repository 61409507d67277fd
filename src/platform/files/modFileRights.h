// SPDX-License-Identifier: GPL-3.0-or-later
// A copy that nobody may read who may not read the original.
#pragma once

#include <QString>

namespace ob {

enum class PrivateCopy { NotNeeded, Made, Limited };

// Before a copy is written: an original that not everybody may read gets an empty copy with its rights, or an older
// copy loses the rights that the original does not give. The writing keeps the rights of what it finds.
PrivateCopy PrepareCopy(const QString& original, const QString& copy);

} // namespace ob
