// SPDX-License-Identifier: GPL-3.0-or-later
// Programs started as processes of their own, those for Windows through wine.
#include "platform/desktop/modLaunch.h"
#include "platform/files/modFiles.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// A program for Windows; a script or a native program may have the same ending.
bool NeedsWine(const QString& program)
{
    if (!program.endsWith(QLatin1String(".exe"), Qt::CaseInsensitive))
        return false;
    QFile file(program);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    const QByteArray start = file.read(4);
    return !start.startsWith("\177ELF") && !start.startsWith("#!");
}

bool HasFolder(const QString& name)
{
    return name.contains(u'/');
}

// A program named without a folder, on the system's search path; empty when there is none. Folders of the path that are
// relative mean whatever project is open, so they do not count.
QString OnSearchPath(const QString& name)
{
    QStringList folders = qEnvironmentVariable("PATH").split(u':', Qt::SkipEmptyParts);
    folders.removeIf([](const QString& each) { return !QDir::isAbsolutePath(each); });
    return folders.isEmpty() ? QString() : QStandardPaths::findExecutable(name, folders);
}

std::optional<ResolvedCommand> ResolveBySearch(QStringView commandLine)
{
    const auto isFound = [](const QString& name) { return !HasFolder(name) && !OnSearchPath(name).isEmpty(); };
    std::optional<ResolvedCommand> command = ResolveCommand(commandLine, isFound);
    if (command)
        command->program = OnSearchPath(command->program);
    return command;
}

StartEnd Start(QString program, QStringList arguments)
{
    if (NeedsWine(program)) {
        arguments.prepend(program);
        program = OnSearchPath(u"wine"_s);
    }
    const bool started = !program.isEmpty() && QProcess::startDetached(program, arguments, QDir::currentPath());
    return started ? StartEnd::Started : StartEnd::Refused;
}

} // namespace

StartEnd StartCommandLine(const std::u16string& commandLine, WindowMode)
{
    const QString line = QString::fromStdU16String(commandLine);
    // A file of the current directory runs only when the line says so, as "./name".
    const auto isNamed = [](const QString& name) { return HasFolder(name) && FileExists(name); };
    std::optional<ResolvedCommand> command = ResolveCommand(line, isNamed);
    if (!command)
        command = ResolveBySearch(line);
    if (!command)
        return StartEnd::NotFound;
    return Start(QDir::current().absoluteFilePath(command->program), command->arguments);
}

StartEnd StartProgram(const ProgramCall& call)
{
    QStringList arguments;
    for (const std::u16string& argument : call.arguments)
        arguments.append(QString::fromStdU16String(argument));
    return Start(QString::fromStdU16String(call.program), arguments);
}

} // namespace ob
