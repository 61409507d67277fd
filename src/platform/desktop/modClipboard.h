// SPDX-License-Identifier: GPL-3.0-or-later
// The clipboard as the tools fill it.
#pragma once

#include <QString>

#include <functional>

namespace ob {

inline const QString ClipboardTakenText =
    QStringLiteral("Another program is using the clipboard, so nothing could be copied. Please try again.");

// Puts the text on the clipboard. When another program does not release it, or when there is none, shows a box and
// returns false.
bool CopyText(const QString& text);

// For tests: what puts a text on the clipboard and reports whether it is there. An empty one restores the default.
void SetClipboardWriter(std::function<bool(const QString&)> writer);

} // namespace ob
