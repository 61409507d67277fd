// SPDX-License-Identifier: GPL-3.0-or-later
// Writing a file whose bytes lie in several places, so that a large one is not copied together first.
#pragma once

#include "platform/files/modSync.h"

#include <QByteArrayView>
#include <QString>

#include <span>

namespace ob {

using FilePieces = std::span<const QByteArrayView>;

// As ReplaceFile and WriteKeepingTail of modFiles.h, the pieces one after the other.
void ReplaceFile(const QString& path, FilePieces pieces, Durability durability = Durability::Synced);
void WriteKeepingTail(const QString& path, FilePieces pieces, Durability durability = Durability::Synced);

} // namespace ob
