// SPDX-License-Identifier: GPL-3.0-or-later
// Desktop entries of programs.
#include "platform/desktop/cDesktopEntry.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString Group = u"Desktop Entry"_s;

// A program's name or full path to its full path; empty where it is not installed.
QString FullPathOf(const QString& program)
{
    if (QDir::isAbsolutePath(program)) {
        const QFileInfo file(program);
        return file.isFile() && file.isExecutable() ? program : QString();
    }
    return program.isEmpty() || program.contains(u'/') ? QString() : QStandardPaths::findExecutable(program);
}

// Codes that a file would replace, and obsolete ones of older entries: all of them are dropped.
bool IsDroppedCode(QChar code)
{
    return QStringView(u"fFuUdDnNvm").contains(code);
}

bool IsOneCode(const QString& argument)
{
    return argument.size() == 2 && argument[0] == u'%';
}

} // namespace

std::optional<QStringList> SplitExec(QStringView exec)
{
    QStringList arguments;
    bool isInside = false;
    bool isQuoted = false;
    for (qsizetype place = 0; place < exec.size(); ++place) {
        QChar character = exec[place];
        if (!isQuoted && (character == u' ' || character == u'\t')) {
            isInside = false;
            continue;
        }
        if (!isInside)
            arguments.append(QString());
        isInside = true;
        if (character == u'"') {
            isQuoted = !isQuoted;
            continue;
        }
        const bool isEscape = isQuoted && character == u'\\' && place + 1 < exec.size();
        if (isEscape && QStringView(u"\"`$\\").contains(exec[place + 1]))
            character = exec[++place];
        arguments.last() += character;
    }
    return isQuoted ? std::nullopt : std::optional(arguments);
}

cDesktopEntry::cDesktopEntry(const QString& entryPath, const QString& messageLocale)
    : path(entryPath), locale(messageLocale), file(cKeyFile::Read(entryPath))
{
}

QString cDesktopEntry::Value(const char* key) const
{
    return file.Text(Group, QString::fromLatin1(key));
}

bool cDesktopEntry::ClaimsType(const QString& type) const
{
    return file.List(Group, u"MimeType"_s).contains(type);
}

bool cDesktopEntry::HasCategory(const QString& category) const
{
    return file.List(Group, u"Categories"_s).contains(category);
}

bool cDesktopEntry::IsShownIn(const QStringList& desktops) const
{
    if (file.IsTrue(Group, u"NoDisplay"_s))
        return false;
    const QStringList shown = file.List(Group, u"OnlyShowIn"_s);
    const QStringList notShown = file.List(Group, u"NotShowIn"_s);
    for (const QString& desktop : desktops)
        if (shown.contains(desktop) || notShown.contains(desktop))
            return shown.contains(desktop);
    return shown.isEmpty();
}

// An argument with its codes expanded; nothing when a code in it is unknown.
std::optional<QString> cDesktopEntry::Expanded(const QString& argument) const
{
    QString text;
    for (qsizetype place = 0; place < argument.size(); ++place) {
        if (argument[place] != u'%') {
            text += argument[place];
            continue;
        }
        const QChar code = ++place < argument.size() ? argument[place] : QChar();
        if (code == u'%')
            text += code;
        else if (code == u'c')
            text += file.Text(Group, u"Name"_s, locale);
        else if (code == u'k')
            text += path;
        else if (code != u'i' && !IsDroppedCode(code))
            return std::nullopt;
    }
    return text;
}

std::optional<QStringList> cDesktopEntry::ExpandedArguments() const
{
    const auto arguments = SplitExec(Value("Exec"));
    if (!arguments)
        return std::nullopt;
    QStringList expanded;
    for (const QString& argument : *arguments) {
        if (IsOneCode(argument) && IsDroppedCode(argument[1]))
            continue;
        if (IsOneCode(argument) && argument[1] == u'i') {
            const QString icon = file.Text(Group, u"Icon"_s, locale);
            expanded += icon.isEmpty() ? QStringList() : QStringList{u"--icon"_s, icon};
            continue;
        }
        const std::optional<QString> text = Expanded(argument);
        if (!text)
            return std::nullopt;
        expanded.append(*text);
    }
    return expanded;
}

std::optional<QStringList> cDesktopEntry::Command() const
{
    if (Value("Type") != QLatin1String("Application") || file.IsTrue(Group, u"Hidden"_s) ||
        file.IsTrue(Group, u"Terminal"_s))
        return std::nullopt;
    const QString tried = Value("TryExec");
    if (!tried.isEmpty() && FullPathOf(tried).isEmpty())
        return std::nullopt;
    std::optional<QStringList> command = ExpandedArguments();
    if (!command || command->isEmpty() || command->first().contains(u'='))
        return std::nullopt;
    command->first() = FullPathOf(command->first());
    return command->first().isEmpty() ? std::nullopt : command;
}

} // namespace ob
