// SPDX-License-Identifier: GPL-3.0-or-later
// A program's desktop entry (freedesktop.org, desktop entries 1.5): what it claims to open and how it is started.
#pragma once

#include "platform/desktop/cKeyFile.h"

#include <optional>

namespace ob {

// Splits the unescaped value of an Exec key into arguments at spaces. Double quotes hold an argument together; inside
// them a backslash escapes '"', '`', '$' and '\'. Nothing when a quote is not closed.
std::optional<QStringList> SplitExec(QStringView exec);

class cDesktopEntry {
public:
    // The locale, in the form of LC_MESSAGES, selects the program's name and icon.
    cDesktopEntry(const QString& path, const QString& locale);

    bool ClaimsType(const QString& type) const;
    bool HasCategory(const QString& category) const;
    // Whether menus show it (NoDisplay, OnlyShowIn, NotShowIn) on a desktop with these names; the first name that
    // decides counts.
    bool IsShownIn(const QStringList& desktops) const;

    // The program as a full path and its arguments, to be started without a file: the codes for files are dropped.
    // Nothing for entries that are not programs, hidden, not installed (TryExec, Exec) or malformed, and for programs
    // that need a terminal, since they would run invisibly. The key Path has no effect.
    std::optional<QStringList> Command() const;

private:
    QString Value(const char* key) const;
    std::optional<QStringList> ExpandedArguments() const;
    std::optional<QString> Expanded(const QString& argument) const;

    QString path;
    QString locale;
    cKeyFile file;
};

} // namespace ob
