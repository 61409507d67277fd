// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk for BASIC source: the start of a file, and opening it.
#pragma once

#include <QString>
#include <QStringList>

namespace ob {

// The file name patterns of BASIC source.
inline const QStringList CodeFilePatterns = {QStringLiteral("*.bas"), QStringLiteral("*.bak")};

// The first 2000 bytes of a file as text. Raises PathFileAccess when it cannot be read.
QString CodePreview(const QString& path);

// Opens the file in a new code window without changing the recent list. Throws RuntimeError as LoadDocumentFile does.
void OpenExploredFile(const QString& path);

} // namespace ob
