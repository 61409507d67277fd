// SPDX-License-Identifier: GPL-3.0-or-later
// The ten user applications: what the toolbar's "User" button offers and starts.
#pragma once

#include <QString>
#include <QStringList>

#include <span>

namespace ob {

inline const QString NoApplication = QStringLiteral("none");

// The paths that are not "none", in order.
QStringList FilledApplications(std::span<const QString> applications);

// The list's lines as the values of the ten places: line 0 is the hot key, an empty line is "none", and so are the
// places after the last line.
void StoreApplications(const QStringList& lines, std::span<QString> applications);

// The text of a place's item: the plain file name; empty for "none", whose item is hidden.
QString ApplicationItemText(const QString& path);

// The button itself: starts the hot key's program when its file exists; "none" requests the dialog; otherwise nothing
// happens.
enum class UserButtonEnd { Done, WantsDialog };
UserButtonEnd ClickUserButton();

// An item of the button, from 1: starts the path with that number without checking it; a failed start shows nothing.
void StartUserApplication(int number);

} // namespace ob
