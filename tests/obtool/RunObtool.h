// SPDX-License-Identifier: GPL-3.0-or-later
// Runs obtool as a process.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

namespace ob {

inline const QString Obtool = QStringLiteral(OB_BIN "/obtool");

struct Outcome {
    int status = -1; // after a run that did not end by itself
    QByteArray out;
    QByteArray error;
};

// The environment of a run.
struct Surroundings {
    QByteArray input; // on standard input
    QString folder;   // the test's own if empty
    QString program = Obtool;
    const char* setup = nullptr; // shell commands to execute before obtool
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
};

// The words of a line, split at spaces.
inline QStringList WordsOf(const char* line)
{
    return QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

inline Outcome RunObtool(const QStringList& arguments, const Surroundings& surroundings)
{
    QProcess obtool;
    obtool.setProcessEnvironment(surroundings.environment);
    if (!surroundings.folder.isEmpty())
        obtool.setWorkingDirectory(surroundings.folder);
    if (surroundings.setup == nullptr)
        obtool.start(surroundings.program, arguments);
    else
        obtool.start(QStringLiteral("/bin/sh"),
                     QStringList{QStringLiteral("-c"),
                                 QLatin1String(surroundings.setup) + QStringLiteral("; exec \"$@\""),
                                 QStringLiteral("sh"), surroundings.program} +
                         arguments);
    obtool.write(surroundings.input);
    obtool.closeWriteChannel();
    if (!obtool.waitForFinished(200'000) || obtool.exitStatus() != QProcess::NormalExit)
        return {};
    return {obtool.exitCode(), obtool.readAllStandardOutput(), obtool.readAllStandardError()};
}

inline Outcome RunObtool(const QStringList& arguments, const QByteArray& input = {}, const QString& folder = {})
{
    Surroundings surroundings;
    surroundings.input = input;
    surroundings.folder = folder;
    return RunObtool(arguments, surroundings);
}

} // namespace ob
