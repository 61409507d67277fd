// SPDX-License-Identifier: GPL-3.0-or-later
// The ten user applications.
#include "shell/bench/modUserApplications.h"

#include "platform/desktop/modLaunch.h"
#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modRuntime.h"
#include "shell/state/Module1.h"

namespace ob {

static bool IsNone(const QString& path)
{
    return EqualsIgnoreCase(path, NoApplication);
}

QStringList FilledApplications(std::span<const QString> applications)
{
    QStringList filled;
    for (const QString& path : applications)
        if (!IsNone(path))
            filled.append(path);
    return filled;
}

void StoreApplications(const QStringList& lines, std::span<QString> applications)
{
    for (std::size_t place = 0; place < applications.size(); ++place) {
        const QString line = lines.value(static_cast<qsizetype>(place));
        applications[place] = line.isEmpty() ? NoApplication : line;
    }
}

QString ApplicationItemText(const QString& path)
{
    return IsNone(path) ? QString() : NameOf(path);
}

void StartUserApplication(int number)
{
    try {
        LaunchSetting(UserApplications[static_cast<std::size_t>(number - 1)], {});
    } catch (const RuntimeError&) {
        // Nothing is shown for a missing program.
    }
}

UserButtonEnd ClickUserButton()
{
    if (IsNone(HotKey))
        return UserButtonEnd::WantsDialog;
    if (FileExists(HotKey))
        StartUserApplication(1);
    return UserButtonEnd::Done;
}

} // namespace ob
