// SPDX-License-Identifier: GPL-3.0-or-later
// The desktop's own programs by the freedesktop.org rules ("Association between MIME types and applications" 1.0.1,
// desktop entries 1.5).
#include "platform/desktop/cDesktopEntry.h"
#include "platform/desktop/modDesktop.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QMimeDatabase>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

QStringList Desktops()
{
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':', Qt::SkipEmptyParts);
}

QString MessageLocale()
{
    for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const QString locale = qEnvironmentVariable(variable); !locale.isEmpty())
            return locale;
    return {};
}

// The installed programs by the names of their desktop files, "kde/editor.desktop" being kde-editor.desktop. Within a
// folder they are sorted by name; of equal names the one in the earlier folder counts.
class InstalledPrograms {
public:
    explicit InstalledPrograms(const QStringList& folders)
    {
        for (const QString& folder : folders) {
            QStringList found;
            QDirIterator files(folder, {u"*.desktop"_s}, QDir::Files, QDirIterator::Subdirectories);
            while (files.hasNext())
                found.append(files.next().sliced(folder.size() + 1));
            found.sort();
            for (const QString& file : found)
                Add(folder, file);
        }
    }

    QStringList NamesIn(const QString& folder) const { return namesIn.value(folder); }

    // Nothing for a name without a file.
    const cDesktopEntry* Entry(const QString& name)
    {
        auto entry = entries.find(name);
        if (entry == entries.end() && paths.contains(name))
            entry = entries.insert(name, cDesktopEntry(paths.value(name), locale));
        return entry == entries.end() ? nullptr : &*entry;
    }

private:
    void Add(const QString& folder, const QString& file)
    {
        const QString name = QString(file).replace(u'/', u'-');
        if (paths.contains(name))
            return;
        paths.insert(name, folder + u'/' + file);
        namesIn[folder].append(name);
    }

    QString locale = MessageLocale();
    QHash<QString, QString> paths;
    QHash<QString, QStringList> namesIn;
    QHash<QString, cDesktopEntry> entries;
};

// A folder's lists of the user's or the system's choices, and the programs installed in it.
struct ChoiceFolder {
    QList<cKeyFile> lists;
    cKeyFile cache; // the types that the programs claim
    QStringList programs;
};

class Desktop {
public:
    Desktop();

    // The first program for the first of the types that has one.
    std::optional<ProgramCall> ProgramForTypes(QStringList types);
    std::optional<ProgramCall> ProgramOfCategory(const QString& category);

private:
    void AddFolder(const QString& folder, const QStringList& legacyLists);
    QStringList ProgramsFor(const QString& type);
    std::optional<ProgramCall> CallOf(const QString& program);

    QStringList applicationFolders = QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation);
    InstalledPrograms installed = InstalledPrograms(applicationFolders);
    QList<ChoiceFolder> folders; // in order of precedence
};

Desktop::Desktop()
{
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation))
        AddFolder(folder, {});
    for (const QString& folder : applicationFolders)
        AddFolder(folder, {u"defaults.list"_s});
}

void Desktop::AddFolder(const QString& folder, const QStringList& legacyLists)
{
    QStringList names;
    for (const QString& desktop : Desktops())
        names.append(desktop.toLower() + u"-mimeapps.list"_s);
    names.append(u"mimeapps.list"_s);
    QList<cKeyFile> lists;
    for (const QString& name : names + legacyLists)
        lists.append(cKeyFile::Read(folder + u'/' + name));
    folders.append({lists, cKeyFile::Read(folder + u"/mimeinfo.cache"_s), installed.NamesIn(folder)});
}

// The programs associated with a type, the default ones first. A default counts even when its program does not claim
// the type, since desktops write the user's choice like that; one that is removed does not.
QStringList Desktop::ProgramsFor(const QString& type)
{
    QStringList defaults;
    QStringList associated;
    QStringList removed;
    const auto addTo = [&](QStringList& programs, const QStringList& names) {
        for (const QString& name : names)
            if (!removed.contains(name) && !programs.contains(name))
                programs.append(name);
    };
    for (const ChoiceFolder& folder : folders) {
        for (const cKeyFile& list : folder.lists) {
            addTo(associated, list.List(u"Added Associations"_s, type));
            removed += list.List(u"Removed Associations"_s, type);
            for (const QString& name : list.List(u"Default Applications"_s, type))
                if (associated.contains(name))
                    defaults.append(name);
                else
                    addTo(defaults, {name});
        }
        // The cache may be out of date: only its order is used.
        for (const QString& name : folder.cache.List(u"MIME Cache"_s, type) + folder.programs)
            if (folder.programs.contains(name) && installed.Entry(name)->ClaimsType(type))
                addTo(associated, {name});
    }
    return defaults + associated;
}

std::optional<ProgramCall> Desktop::CallOf(const QString& program)
{
    const cDesktopEntry* entry = installed.Entry(program);
    std::optional<QStringList> command = entry != nullptr ? entry->Command() : std::nullopt;
    if (!command)
        return std::nullopt;
    ProgramCall call;
    call.program = command->takeFirst().toStdU16String();
    for (const QString& argument : *command)
        call.arguments.push_back(argument.toStdU16String());
    return call;
}

std::optional<ProgramCall> Desktop::ProgramForTypes(QStringList types)
{
    // A program that opens any bytes at all is not meant for pictures or sounds.
    types.removeAll(u"application/octet-stream"_s);
    types.removeAll(QString());
    for (const QString& type : types)
        for (const QString& program : ProgramsFor(type))
            if (auto call = CallOf(program))
                return call;
    return std::nullopt;
}

std::optional<ProgramCall> Desktop::ProgramOfCategory(const QString& category)
{
    for (const QString& folder : applicationFolders)
        for (const QString& program : installed.NamesIn(folder))
            if (const cDesktopEntry* entry = installed.Entry(program);
                entry->HasCategory(category) && entry->IsShownIn(Desktops()))
                if (auto call = CallOf(program))
                    return call;
    return std::nullopt;
}

// A system may have no database of types; these extensions are known without one.
QStringList TypesOfEnding(const QString& ending)
{
    if (ending == QLatin1String("txt"))
        return {u"text/plain"_s};
    if (ending == QLatin1String("bmp"))
        return {u"image/bmp"_s};
    if (ending == QLatin1String("wav"))
        return {u"audio/x-wav"_s, u"audio/vnd.wave"_s, u"audio/wav"_s};
    if (ending == QLatin1String("doc"))
        return {u"application/msword"_s};
    return {};
}

} // namespace

std::optional<ProgramCall> FindExecutable(const std::u16string& path)
{
    const QString file = QString::fromStdU16String(path);
    if (!QFile::exists(file))
        return std::nullopt;
    const QMimeType type = QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension);
    return Desktop().ProgramForTypes(QStringList{type.name()} +
                                     TypesOfEnding(file.section(QLatin1Char('.'), -1).toLower()) + type.aliases() +
                                     type.allAncestors());
}

std::optional<ProgramCall> FileManager()
{
    return Desktop().ProgramForTypes({u"inode/directory"_s});
}

std::optional<ProgramCall> Calculator()
{
    return Desktop().ProgramOfCategory(u"Calculator"_s);
}

} // namespace ob
