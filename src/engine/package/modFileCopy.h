// SPDX-License-Identifier: GPL-3.0-or-later
// Copies a file piece by piece, so that a long copy can be watched and called off.
#pragma once

#include <QString>

#include <functional>

namespace ob {

enum class CopyEnd { Copied, Failed, Stopped };
enum class CopyWish { GoOn, Stop };

// Called behind each piece with the bytes copied so far.
using CopyWatch = std::function<CopyWish(qint64 copied)>;

// Makes `to` a copy of the regular file `from`, with its time and permissions as far as the disk takes them. The copy
// is written beside and takes the place of an older file when it is whole; otherwise the older one stays as it was.
CopyEnd CopyWholeFile(const QString& from, const QString& to, const CopyWatch& watch);

} // namespace ob
