// SPDX-License-Identifier: GPL-3.0-or-later
// Command lines taken apart and started.
#include "platform/desktop/modLaunch.h"

#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

#include <algorithm>
#include <utility>

namespace ob {

namespace {

bool IsBlank(QChar letter)
{
    return letter == u' ' || letter == u'\t';
}

QStringView WithoutLeadingBlanks(QStringView text)
{
    while (!text.isEmpty() && IsBlank(text.front()))
        text = text.sliced(1);
    return text;
}

bool HasEnding(QStringView name)
{
    const qsizetype separator = std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\'));
    return name.lastIndexOf(u'.') > separator;
}

// The file that a front part names; empty when there is none.
QString FileNamed(QStringView part, const std::function<bool(const QString&)>& fileExists)
{
    QString asWritten = part.toString();
    if (fileExists(asWritten))
        return asWritten;
    QString withEnding = asWritten + QStringLiteral(".exe");
    return !HasEnding(part) && fileExists(withEnding) ? withEnding : QString();
}

ResolvedCommand CommandOf(const QString& program, QStringView rest)
{
    const QStringView argumentText = WithoutLeadingBlanks(rest);
    return {program, argumentText.toString(), PartArguments(argumentText)};
}

std::optional<ResolvedCommand> ResolveQuoted(QStringView line, const std::function<bool(const QString&)>& fileExists)
{
    const qsizetype closing = line.indexOf(u'"', 1);
    const qsizetype end = closing < 0 ? line.size() : closing;
    const QStringView part = line.sliced(1, end - 1);
    const QString program = part.isEmpty() ? QString() : FileNamed(part, fileExists);
    if (program.isEmpty())
        return std::nullopt;
    return CommandOf(program, line.sliced(std::min(end + 1, line.size())));
}

#ifdef Q_OS_WIN

void StartNative(const QString& commandLine, WindowMode mode)
{
    // The call resolves the program as ResolveCommand does, and needs the line in memory that it may write to.
    std::wstring line = commandLine.toStdWString();
    STARTUPINFOW startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = mode == WindowMode::Normal ? SW_SHOWNORMAL : SW_SHOWMINIMIZED;
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) {
        const DWORD error = GetLastError();
        throw RuntimeErrorOf(error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND ? ErrorNumber::FileNotFound
                                                                                            : ErrorNumber::InvalidCall);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

#else

// A program for the system that the engine comes from; a script or a native program may bear the same ending.
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

// The program as the search path of the system knows it, when it is named without a folder.
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

void StartNative(const QString& commandLine, WindowMode)
{
    std::optional<ResolvedCommand> command = ResolveCommand(commandLine, FileExists);
    if (!command)
        command = ResolveBySearch(commandLine);
    if (!command)
        throw RuntimeErrorOf(ErrorNumber::FileNotFound);
    // A bare name would be looked for on the search path and not in the current directory.
    QString program = QDir::current().absoluteFilePath(command->program);
    QStringList arguments = command->arguments;
    if (NeedsWine(program)) {
        arguments.prepend(program);
        program = QStandardPaths::findExecutable(QStringLiteral("wine"));
    }
    if (program.isEmpty() || !QProcess::startDetached(program, arguments, QDir::currentPath()))
        throw RuntimeErrorOf(ErrorNumber::InvalidCall);
}

#endif

} // namespace

std::optional<ResolvedCommand> ResolveCommand(QStringView commandLine,
                                              const std::function<bool(const QString&)>& fileExists)
{
    const QStringView line = WithoutLeadingBlanks(commandLine);
    if (line.startsWith(u'"'))
        return ResolveQuoted(line, fileExists);
    for (qsizetype end = 1; end <= line.size(); ++end) {
        const bool isCut = end == line.size() || IsBlank(line[end]);
        if (!isCut || IsBlank(line[end - 1]))
            continue;
        const QString program = FileNamed(line.first(end), fileExists);
        if (!program.isEmpty())
            return CommandOf(program, line.sliced(end));
    }
    return std::nullopt;
}

QStringList PartArguments(QStringView argumentText)
{
    QStringList arguments;
    QString argument;
    bool isInside = false;
    bool isQuoted = false;
    for (const QChar letter : argumentText) {
        if (letter == u'"') {
            isQuoted = !isQuoted;
            isInside = true;
        } else if (IsBlank(letter) && !isQuoted) {
            if (isInside)
                arguments += argument;
            argument.clear();
            isInside = false;
        } else {
            argument += letter;
            isInside = true;
        }
    }
    if (isInside)
        arguments += argument;
    return arguments;
}

void Launch(const QString& commandLine, WindowMode mode)
{
    StartNative(commandLine, mode);
}

} // namespace ob
