// SPDX-License-Identifier: GPL-3.0-or-later
// The clipboard as the tools fill it.
#pragma once

#include <QString>

#include <functional>

namespace ob {

inline const QString ClipboardTakenText =
    QStringLiteral("Another program is using the clipboard, so nothing could be copied. Please try again.");

// The clipboard loses what it held and takes the text. When another program does not let go of it, or when there is
// none, the user is told and the answer is false.
bool CopyText(const QString& text);

// For tests: what puts a text on the clipboard and tells whether it stands there. An empty one brings the usual back.
void SetClipboardWriter(std::function<bool(const QString&)> writer);

} // namespace ob
