// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's own programs: by the system's routine on Windows, by the freedesktop.org rules elsewhere ("Association
// between MIME types and applications" 1.0.1, "Desktop Entry" 1.5).
#include "platform/desktop/modDesktop.h"

#include "platform/desktop/modLaunch.h"

#ifdef Q_OS_WIN
#include <qt_windows.h>

#include <shellapi.h>
#else
#include <QMimeDatabase>
#include <QTextStream>
#endif

#include <QDir>
#include <QFile>
#include <QStandardPaths>

namespace ob {

#ifdef Q_OS_WIN

std::optional<QString> FindExecutable(const QString& path)
{
    wchar_t found[MAX_PATH + 1] = {};
    const auto file = QDir::toNativeSeparators(path).toStdWString();
    if (reinterpret_cast<INT_PTR>(FindExecutableW(file.c_str(), nullptr, found)) <= 32)
        return std::nullopt;
    return QString::fromWCharArray(found);
}

static QString WindowsFolder()
{
    wchar_t folder[MAX_PATH + 1] = {};
    GetWindowsDirectoryW(folder, MAX_PATH);
    return QString::fromWCharArray(folder);
}

std::optional<QString> FileManagerCommand()
{
    if (!QFile::exists(WindowsFolder() + QStringLiteral("\\Explorer.exe")))
        return std::nullopt;
    return WindowsFolder() + QStringLiteral("\\Explorer.exe");
}

std::optional<QString> CalculatorCommand()
{
    for (const QString& name : {QStringLiteral("\\calc.exe"), QStringLiteral("\\system32\\calc.exe")})
        if (QFile::exists(WindowsFolder() + name))
            return WindowsFolder() + name;
    return std::nullopt;
}

#else

namespace {

// The value of a key in a group of a desktop file or of a list of defaults; an empty text when it is not there.
QString ValueOf(const QString& path, const QString& group, const QString& key)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    QTextStream lines(&file);
    bool inside = false;
    for (QString line; lines.readLineInto(&line);) {
        line = line.trimmed();
        if (line.startsWith(QLatin1Char('[')))
            inside = line == QLatin1Char('[') + group + QLatin1Char(']');
        else if (inside && line.section(QLatin1Char('='), 0, 0).trimmed() == key)
            return line.section(QLatin1Char('='), 1).trimmed();
    }
    return {};
}

const QString DesktopEntry = QStringLiteral("Desktop Entry");

QStringList ApplicationFolders()
{
    return QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
}

// "editor.desktop" to its file, in the user's folder before the system's. A dash may stand for a folder.
QString DesktopFile(const QString& id)
{
    for (const QString& folder : ApplicationFolders()) {
        QString name = id;
        for (;;) {
            if (QFile::exists(folder + QLatin1Char('/') + name))
                return folder + QLatin1Char('/') + name;
            const qsizetype dash = name.indexOf(QLatin1Char('-'));
            if (dash < 0)
                break;
            name[dash] = QLatin1Char('/');
        }
    }
    return {};
}

bool IsInstalled(const QString& program)
{
    if (program.isEmpty())
        return false;
    return program.contains(QLatin1Char('/')) ? QFile::exists(program)
                                              : !QStandardPaths::findExecutable(program).isEmpty();
}

bool IsOn(const QString& desktopFile, const char* key)
{
    return ValueOf(desktopFile, DesktopEntry, QString::fromLatin1(key)) == QLatin1String("true");
}

QString Quoted(const QString& part)
{
    return part.contains(QLatin1Char(' ')) ? QLatin1Char('"') + part + QLatin1Char('"') : part;
}

// The command line of a desktop file without the places for files, its program as a full path.
std::optional<QString> CommandOf(const QString& desktopFile)
{
    // A program that needs a terminal would run unseen.
    if (desktopFile.isEmpty() || IsOn(desktopFile, "Hidden") || IsOn(desktopFile, "Terminal"))
        return std::nullopt;
    QStringList parts = PartArguments(ValueOf(desktopFile, DesktopEntry, QStringLiteral("Exec")));
    parts.removeIf([](const QString& part) { return part.isEmpty() || (part.size() == 2 && part[0] == u'%'); });
    if (parts.isEmpty())
        return std::nullopt;
    QString program = parts.takeFirst().replace(QLatin1String("%%"), QLatin1String("%"));
    if (!IsInstalled(program))
        return std::nullopt;
    if (!program.contains(QLatin1Char('/')))
        program = QStandardPaths::findExecutable(program);
    QString command = Quoted(program);
    for (const QString& part : parts)
        command += QLatin1Char(' ') + Quoted(part);
    return command;
}

// The lists of defaults in the order in which they count.
QStringList DefaultLists()
{
    QStringList lists;
    const QStringList desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower().split(u':', Qt::SkipEmptyParts);
    const auto addListsOf = [&](const QString& folder) {
        for (const QString& desktop : desktops)
            lists.append(folder + QLatin1Char('/') + desktop + QStringLiteral("-mimeapps.list"));
        lists.append(folder + QStringLiteral("/mimeapps.list"));
    };
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation))
        addListsOf(folder);
    for (const QString& folder : ApplicationFolders()) {
        addListsOf(folder);
        lists.append({folder + QStringLiteral("/defaults.list"), folder + QStringLiteral("/mimeinfo.cache")});
    }
    return lists;
}

std::optional<QString> CommandForType(const QString& type)
{
    QStringList removed;
    for (const QString& list : DefaultLists()) {
        removed += ValueOf(list, QStringLiteral("Removed Associations"), type).split(u';', Qt::SkipEmptyParts);
        for (const char* group : {"Default Applications", "Added Associations", "MIME Cache"}) {
            const QString ids = ValueOf(list, QString::fromLatin1(group), type);
            for (const QString& id : ids.split(QLatin1Char(';'), Qt::SkipEmptyParts))
                if (auto command = removed.contains(id) ? std::nullopt : CommandOf(DesktopFile(id)))
                    return command;
        }
    }
    return std::nullopt;
}

// The first program whose desktop file names the type, or the category, in that key.
std::optional<QString> CommandByKey(const QString& key, const QString& word)
{
    for (const QString& folder : ApplicationFolders()) {
        for (const QString& name : QDir(folder).entryList({QStringLiteral("*.desktop")}, QDir::Files, QDir::Name)) {
            const QString file = folder + QLatin1Char('/') + name;
            if (ValueOf(file, DesktopEntry, key).split(QLatin1Char(';')).contains(word))
                if (auto command = CommandOf(file))
                    return command;
        }
    }
    return std::nullopt;
}

// The first program for one of the types, defaults before mere claims.
std::optional<QString> CommandForTypes(QStringList types)
{
    // What opens any bytes at all is no program for pictures or sounds.
    types.removeAll(QStringLiteral("application/octet-stream"));
    types.removeAll(QString());
    for (const QString& type : types)
        if (auto command = CommandForType(type))
            return command;
    for (const QString& type : types)
        if (auto command = CommandByKey(QStringLiteral("MimeType"), type))
            return command;
    return std::nullopt;
}

// A system may have no data base of types; these endings are known without one.
QStringList TypesOfEnding(const QString& ending)
{
    if (ending == QLatin1String("txt"))
        return {QStringLiteral("text/plain")};
    if (ending == QLatin1String("bmp"))
        return {QStringLiteral("image/bmp")};
    if (ending == QLatin1String("wav"))
        return {QStringLiteral("audio/x-wav"), QStringLiteral("audio/vnd.wave"), QStringLiteral("audio/wav")};
    if (ending == QLatin1String("doc"))
        return {QStringLiteral("application/msword")};
    return {};
}

} // namespace

std::optional<QString> FindExecutable(const QString& path)
{
    if (!QFile::exists(path))
        return std::nullopt;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
    return CommandForTypes(QStringList{type.name()} + TypesOfEnding(path.section(QLatin1Char('.'), -1).toLower()) +
                           type.aliases() + type.allAncestors());
}

std::optional<QString> FileManagerCommand()
{
    return CommandForTypes({QStringLiteral("inode/directory")});
}

std::optional<QString> CalculatorCommand()
{
    return CommandByKey(QStringLiteral("Categories"), QStringLiteral("Calculator"));
}

#endif

} // namespace ob
