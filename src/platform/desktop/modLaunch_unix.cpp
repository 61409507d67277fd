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

// The program found on the system's search path, when it is named without a folder.
std::optional<ResolvedCommand> ResolveBySearch(QStringView commandLine)
{
    const auto onSearchPath = [](const QString& name) {
        return !name.contains(u'/') && !QStandardPaths::findExecutable(name).isEmpty();
    };
    std::optional<ResolvedCommand> command = ResolveCommand(commandLine, onSearchPath);
    if (command)
        command->program = QStandardPaths::findExecutable(command->program);
    return command;
}

StartEnd Start(QString program, QStringList arguments)
{
    if (NeedsWine(program)) {
        arguments.prepend(program);
        program = QStandardPaths::findExecutable(u"wine"_s);
    }
    const bool started = !program.isEmpty() && QProcess::startDetached(program, arguments, QDir::currentPath());
    return started ? StartEnd::Started : StartEnd::Refused;
}

} // namespace

StartEnd StartCommandLine(const std::u16string& commandLine, WindowMode)
{
    const QString line = QString::fromStdU16String(commandLine);
    std::optional<ResolvedCommand> command = ResolveCommand(line, FileExists);
    if (!command)
        command = ResolveBySearch(line);
    if (!command)
        return StartEnd::NotFound;
    // A bare name would be searched for on the search path instead of the current directory.
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
