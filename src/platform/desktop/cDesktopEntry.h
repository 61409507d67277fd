// SPDX-License-Identifier: GPL-3.0-or-later
// A program's desktop entry ("Desktop Entry Specification" 1.5): what it claims to open and how it is started.
#pragma once

#include "platform/desktop/cKeyFile.h"

#include <optional>

namespace ob {

// Splits the value of an Exec key, its escapes undone, into arguments: at spaces, double quotes holding an argument
// together, in which a backslash takes '"', '`', '$' and '\' for themselves. Nothing when a quote is left open.
std::optional<QStringList> SplitExec(QStringView exec);

class cDesktopEntry {
public:
    // The locale, as LC_MESSAGES has it, is the one of the program's name and icon.
    cDesktopEntry(const QString& path, const QString& locale);

    bool ClaimsType(const QString& type) const;
    bool HasCategory(const QString& category) const;
    // Whether menus show it (NoDisplay, OnlyShowIn, NotShowIn) on a desktop of these names, the first one that decides
    // counting.
    bool IsShownIn(const QStringList& desktops) const;

    // The program as a full path and its arguments, to be started without a file: the codes for files are dropped.
    // Nothing for what is no program, hidden, not installed (TryExec, Exec) or malformed, nor for a program that needs
    // a terminal, since it would run unseen. The key Path has no effect.
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
