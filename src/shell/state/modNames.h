// SPDX-License-Identifier: GPL-3.0-or-later
// Names and texts that many rooms show or store.
#pragma once

#include <QString>

namespace ob {

inline const QString ProgramTitle = QStringLiteral("Orchard Bench");
inline const QString UntitledName = QStringLiteral("untitled.bas");
inline const QString NoPath = QStringLiteral("no path");
inline const QString NoCodeWindowText = QStringLiteral("No code window is active!");

} // namespace ob
