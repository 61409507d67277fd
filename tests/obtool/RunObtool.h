// SPDX-License-Identifier: GPL-3.0-or-later
// Calls obtool as other programs do.
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>

namespace ob {

struct Outcome {
    int status = -1; // of a run that did not end by itself
    QByteArray out;
    QByteArray error;
};

// Runs obtool with the arguments, the input on its standard input, in the folder (the test's own when it is empty).
inline Outcome RunObtool(const QStringList& arguments, const QByteArray& input = {}, const QString& folder = {})
{
    QProcess obtool;
    if (!folder.isEmpty())
        obtool.setWorkingDirectory(folder);
    obtool.start(QStringLiteral(OB_BIN "/obtool"), arguments);
    obtool.write(input);
    obtool.closeWriteChannel();
    if (!obtool.waitForFinished(120'000) || obtool.exitStatus() != QProcess::NormalExit)
        return {};
    return {obtool.exitCode(), obtool.readAllStandardOutput(), obtool.readAllStandardError()};
}

} // namespace ob
