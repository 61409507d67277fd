// SPDX-License-Identifier: GPL-3.0-or-later
// Command lines: resolved, split into arguments, started.
#include "platform/desktop/modLaunch.h"

#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

bool IsSpace(QChar character)
{
    return character == u' ' || character == u'\t';
}

QStringView WithoutLeadingSpaces(QStringView text)
{
    while (!text.isEmpty() && IsSpace(text.front()))
        text = text.sliced(1);
    return text;
}

bool HasEnding(QStringView name)
{
    const qsizetype separator = std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\'));
    return name.lastIndexOf(u'.') > separator;
}

// The file named by a first part; empty when there is none.
QString FileNamed(QStringView part, const std::function<bool(const QString&)>& fileExists)
{
    QString asWritten = part.toString();
    if (fileExists(asWritten))
        return asWritten;
    QString withEnding = asWritten + u".exe"_s;
    return !HasEnding(part) && fileExists(withEnding) ? withEnding : QString();
}

ResolvedCommand CommandOf(const QString& program, QStringView rest)
{
    const QStringView argumentText = WithoutLeadingSpaces(rest);
    return {program, argumentText.toString(), SplitArguments(argumentText)};
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

void RaiseUnlessStarted(StartEnd end, const QString& what)
{
    if (end == StartEnd::NotFound)
        throw RuntimeErrorOf(ErrorNumber::FileNotFound, {}, u"There is no such program: "_s + what);
    if (end != StartEnd::Started)
        throw RuntimeErrorOf(ErrorNumber::InvalidCall, {}, u"The system could not start "_s + what);
}

} // namespace

std::optional<ResolvedCommand> ResolveCommand(QStringView commandLine,
                                              const std::function<bool(const QString&)>& fileExists)
{
    const QStringView line = WithoutLeadingSpaces(commandLine);
    if (line.startsWith(u'"'))
        return ResolveQuoted(line, fileExists);
    for (qsizetype end = 1; end <= line.size(); ++end) {
        const bool isCut = end == line.size() || IsSpace(line[end]);
        if (!isCut || IsSpace(line[end - 1]))
            continue;
        const QString program = FileNamed(line.first(end), fileExists);
        if (!program.isEmpty())
            return CommandOf(program, line.sliced(end));
    }
    return std::nullopt;
}

QStringList SplitArguments(QStringView argumentText)
{
    QStringList arguments;
    QString argument;
    bool isInside = false;
    bool isQuoted = false;
    for (const QChar character : argumentText) {
        if (character == u'"') {
            isQuoted = !isQuoted;
            isInside = true;
        } else if (IsSpace(character) && !isQuoted) {
            if (isInside)
                arguments += argument;
            argument.clear();
            isInside = false;
        } else {
            argument += character;
            isInside = true;
        }
    }
    if (isInside)
        arguments += argument;
    return arguments;
}

void Launch(const QString& commandLine, WindowMode mode)
{
    RaiseUnlessStarted(StartCommandLine(commandLine.toStdU16String(), mode), commandLine);
}

void LaunchSetting(const QString& setting, const QString& added, WindowMode mode)
{
    const bool isHeld = setting.contains(u' ') && !setting.contains(u'"') && FileExists(setting);
    Launch((isHeld ? u'"' + setting + u'"' : setting) + added, mode);
}

void Launch(const ProgramCall& call)
{
    RaiseUnlessStarted(StartProgram(call), QString::fromStdU16String(call.program));
}

} // namespace ob
