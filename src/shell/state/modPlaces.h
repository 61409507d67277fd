// SPDX-License-Identifier: GPL-3.0-or-later
// Where windows are and where tools last worked, as the settings store remembers them in sections of their own.
#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace ob {

// The rectangle moved, and reduced where it has to be, so that all of it is within the screen's room.
QRect PulledOnto(const QRect& room, const QRect& window);

// The window's rectangle without its frame, in the units of the screen's layout; nothing when none is stored, or no
// rectangle that shows anything.
std::optional<QRect> RememberedPlace(const QString& window);
void RememberPlace(const QString& window, const QRect& place);

// The folder that a tool last worked in, whether or not it is still there; empty for none.
QString LastFolder(const QString& tool);
void RememberFolder(const QString& tool, const QString& folder);

} // namespace ob
