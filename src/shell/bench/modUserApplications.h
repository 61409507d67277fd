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

// The list's lines as the ten places hold them: line 0 is the hot key, and an empty one "none"; "none" behind the last.
void StoreApplications(const QStringList& lines, std::span<QString> applications);

// The item's text of a place: the plain file name; empty for "none", whose item is hidden.
QString ApplicationItemText(const QString& path);

// The button itself: starts the hot key's program when its file exists; "none" wants the dialog; else nothing happens.
enum class UserButtonEnd { Done, WantsDialog };
UserButtonEnd ClickUserButton();

// An item of the button, from 1: starts the path of that number without a test; a failed start is silent.
void StartUserApplication(int number);

} // namespace ob
