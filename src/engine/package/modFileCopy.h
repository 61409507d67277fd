// SPDX-License-Identifier: GPL-3.0-or-later
// Copies a file in pieces, so that a long copy can show its progress and be cancelled.
#pragma once

#include <QString>

#include <functional>

namespace ob {

enum class CopyEnd { Copied, Stopped };
enum class CopyRequest { GoOn, Stop };

// Called after each piece with the bytes copied so far.
using CopyWatch = std::function<CopyRequest(qint64 copied)>;

// Makes `to` a copy of the regular file `from`, with its time and permissions as far as the disk supports them. The
// copy replaces an older file only when it is complete; otherwise the older one stays unchanged. Raises as ReplaceFile
// of modFiles.h does, and PathFileAccess for what cannot be read.
CopyEnd CopyWholeFile(const QString& from, const QString& to, const CopyWatch& watch);

} // namespace ob
