// SPDX-License-Identifier: GPL-3.0-or-later
// File association: in the registry where there is one; otherwise in the freedesktop.org files of this user ("Shared
// MIME-info Database" 0.21, "Desktop Entry" 1.5, "Association between MIME types and applications" 1.0.1).
#include "platform/desktop/modAssociation.h"

#include "platform/desktop/modAssociationSystem.h"
#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>

#include <array>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// The folder named by an environment variable; a relative one is ignored.
QString FolderFromEnvironment(const char* variable, const QString& otherwise)
{
    const QString folder = qEnvironmentVariable(variable);
    return QDir::isAbsolutePath(folder) ? QDir::cleanPath(folder) : QDir::homePath() + otherwise;
}

} // namespace

AssociationPlaces UsersPlaces(const QString& iconFolder)
{
    return {QCoreApplication::applicationFilePath(), FolderFromEnvironment("XDG_DATA_HOME", u"/.local/share"_s),
            FolderFromEnvironment("XDG_CONFIG_HOME", u"/.config"_s), iconFolder};
}

QByteArray ExecutableInEntry(const QString& executable)
{
    static constexpr QByteArrayView reserved = " \t\n\"'\\><~|&;$*?#()`";
    QByteArray argument = executable.toUtf8();
    bool quoted = false;
    for (const char character : reserved)
        quoted = quoted || argument.contains(character);
    if (quoted) {
        for (const char* character : {"\\", "\"", "`", "$"})
            argument.replace(character, QByteArray("\\") + character);
        argument = '"' + argument + '"';
    }
    // A percent sign starts a code; in addition the whole value is escaped like any text in the file.
    argument.replace("%", "%%").replace("\\", "\\\\");
    return argument.replace("\n", "\\n").replace("\t", "\\t").replace("\r", "\\r");
}

namespace {

constexpr std::array<const char*, 2> fileTypes = {"application/x-orchard-basic", "application/x-orchard-form"};

enum class EntryPlace { First, Nowhere };

// The list of programs of a line "type=a.desktop;b.desktop;", with the entry moved to its position.
QByteArray LineWithEntry(const QByteArray& line, const QByteArray& entry, EntryPlace place)
{
    const qsizetype sign = line.indexOf('=');
    QByteArrayList programs;
    for (const QByteArray& program : line.mid(sign + 1).split(';'))
        if (!program.trimmed().isEmpty())
            programs.append(program.trimmed());
    if (place == EntryPlace::First && !programs.isEmpty() && programs.first() == entry)
        return line;
    if (place == EntryPlace::Nowhere && !programs.contains(entry))
        return line;
    programs.removeAll(entry);
    if (place == EntryPlace::First)
        programs.prepend(entry);
    const QByteArray joined = programs.isEmpty() ? QByteArray() : programs.join(';') + ';';
    return line.left(sign + 1) + joined + (line.endsWith('\r') ? "\r" : "");
}

// The position for a line appended to the group: after its last non-empty line.
qsizetype EndOfGroup(const QByteArrayList& lines, qsizetype header)
{
    qsizetype end = header + 1;
    for (qsizetype i = end; i < lines.size() && !lines[i].trimmed().startsWith('['); ++i)
        if (!lines[i].trimmed().isEmpty())
            end = i + 1;
    return end;
}

void PutEntry(QByteArrayList& lines, const QByteArray& group, const QByteArray& type, const QByteArray& entry,
              EntryPlace place)
{
    bool inside = false;
    bool found = false;
    qsizetype header = -1;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QByteArray line = lines[i].trimmed();
        if (line.startsWith('[')) {
            inside = line == '[' + group + ']';
            if (inside && header < 0)
                header = i;
        } else if (inside && line.contains('=') && line.left(line.indexOf('=')).trimmed() == type) {
            lines[i] = LineWithEntry(lines[i], entry, place);
            found = true;
        }
    }
    if (found || place == EntryPlace::Nowhere)
        return;
    if (header < 0) {
        while (!lines.isEmpty() && lines.last().isEmpty())
            lines.removeLast();
        if (!lines.isEmpty())
            lines.append(QByteArray());
        header = lines.size();
        lines.append({'[' + group + ']', QByteArray()});
    }
    lines.insert(EndOfGroup(lines, header), type + '=' + entry + ';');
}

} // namespace

QByteArray WithProgramFirst(const QByteArray& list, const QByteArray& entry)
{
    QByteArrayList lines = list.split('\n');
    for (const char* type : fileTypes) {
        PutEntry(lines, "Default Applications", type, entry, EntryPlace::First);
        PutEntry(lines, "Added Associations", type, entry, EntryPlace::First);
        PutEntry(lines, "Removed Associations", type, entry, EntryPlace::Nowhere);
    }
    return lines.join('\n');
}

namespace {

const QString ProgramName = u"orchard-bench"_s;

void WriteInto(const QString& folder, const QString& name, const QByteArray& bytes)
{
    if (!QDir().mkpath(folder))
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess);
    ReplaceFile(folder + QLatin1Char('/') + name, bytes);
}

QByteArray EmbeddedFile(const QString& name)
{
    return ReadWhole(u":/texts/"_s + name);
}

QByteArray DesktopEntry(const QString& executable)
{
    QByteArrayList lines = EmbeddedFile(ProgramName + u".desktop"_s).split('\n');
    for (QByteArray& line : lines)
        if (line.startsWith("Exec="))
            line = "Exec=" + ExecutableInEntry(executable) + " %f";
    return lines.join('\n');
}

// app-48.png goes to hicolor/48x48/apps, app.svg to hicolor/scalable/apps.
void WriteIcons(const AssociationPlaces& places)
{
    const QString theme = places.dataFolder + u"/icons/hicolor"_s;
    const QDir icons(places.iconFolder);
    for (const QString& name : icons.entryList({u"app-*.png"_s}, QDir::Files)) {
        const QString side = name.section(QLatin1Char('-'), 1).section(QLatin1Char('.'), 0, 0);
        WriteInto(u"%1/%2x%2/apps"_s.arg(theme, side), ProgramName + u".png"_s, ReadWhole(icons.filePath(name)));
    }
    WriteInto(theme + u"/scalable/apps"_s, ProgramName + u".svg"_s, ReadWhole(icons.filePath(u"app.svg"_s)));
}

enum class ToolEnd { Done, Failed, Missing };

// Runs one of the desktop's tools on the user's folders.
ToolEnd RunTool(const AssociationPlaces& places, const QString& name, const QStringList& arguments)
{
    constexpr int timeout = 30'000; // milliseconds
    const QString tool = QStandardPaths::findExecutable(name);
    if (tool.isEmpty())
        return ToolEnd::Missing;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_DATA_HOME"_s, places.dataFolder);
    environment.insert(u"XDG_CONFIG_HOME"_s, places.configFolder);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    process.start(tool, arguments);
    const bool ended = process.waitForFinished(timeout);
    return ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 ? ToolEnd::Done
                                                                                            : ToolEnd::Failed;
}

// Completes what the tool has written, or failed to write, for the two types; usually there is nothing left to do.
void MakeDefault(const AssociationPlaces& places, const QString& entry)
{
    const QString name = u"mimeapps.list"_s;
    const QString path = places.configFolder + QLatin1Char('/') + name;
    QStringList arguments = {u"default"_s, entry};
    for (const char* type : fileTypes)
        arguments.append(QString::fromLatin1(type));
    // The tool would replace a link by a file.
    if (!QFileInfo(path).isSymLink())
        RunTool(places, u"xdg-mime"_s, arguments);

    const QByteArray list = FileExists(path) ? ReadWhole(path) : QByteArray();
    const QByteArray wanted = WithProgramFirst(list, entry.toUtf8());
    if (wanted != list)
        WriteInto(places.configFolder, name, wanted);
}

void AssociateInFolders(const AssociationPlaces& places)
{
    const QString entry = ProgramName + u".desktop"_s;
    const QString typeName = ProgramName + u".xml"_s;
    const QString types = places.dataFolder + u"/mime"_s;
    const QString applications = places.dataFolder + u"/applications"_s;
    WriteIcons(places);
    WriteInto(types + u"/packages"_s, typeName, EmbeddedFile(typeName));
    WriteInto(applications, entry, DesktopEntry(places.executable));
    // Without its tool the desktop has no list of types to update.
    if (RunTool(places, u"update-mime-database"_s, {types}) == ToolEnd::Failed)
        throw RuntimeErrorOf(ErrorNumber::DeviceIoError);
    // This one only makes the desktop faster.
    RunTool(places, u"update-desktop-database"_s, {applications});
    MakeDefault(places, entry);
}

} // namespace

void AssociateFileTypes(const AssociationPlaces& places)
{
    switch (AssociateInRegistry(places.executable.toStdU16String())) {
    case RegistryEnd::Written:
        return;
    case RegistryEnd::Refused:
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess);
    case RegistryEnd::NoRegistry:
        AssociateInFolders(places);
    }
}

} // namespace ob
