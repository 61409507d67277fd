// SPDX-License-Identifier: GPL-3.0-or-later
// The file boxes that several tools share.
#include "engine/modFileIO.h"

#include "platform/modDialogs.h"
#include "shell/Module1.h"

#include <QDir>

namespace ob {

static QString NotFoundText(const QString& what)
{
    return what + QStringLiteral(" was not found.  Be sure to specify the path to Orchard BASIC in Options!");
}

static QString AskForFile(const QString& title, const QString& filter)
{
    return FileBox({FilePurpose::Open, title, {}, {}, filter});
}

QString OpenFileDialog(const QString& filter, const QString& folder)
{
    return FileBox({FilePurpose::Open, QStringLiteral("Open File..."), folder, {}, filter});
}

void FindOrchard()
{
    OBPath = AskForFile(QStringLiteral("Find Orchard BASIC"), QStringLiteral("Orchard BASIC |orchard.exe;*.exe;"));
    if (OBPath.isEmpty())
        MsgBox(NotFoundText(QStringLiteral("Orchard BASIC")));
}

void FindFreeform()
{
    if (MsgBox(QStringLiteral("Find FreeForm?"), BoxIcon::Question, BoxButtons::OkCancel) == BoxAnswer::Cancel)
        return;
    OBFreeformPath = AskForFile(QStringLiteral("Open"), QStringLiteral("FreeForm |*ff*.bas;*.bas;*.bak"));
    if (OBFreeformPath.isEmpty())
        MsgBox(NotFoundText(QStringLiteral("FreeForm")));
}

void FindHelp()
{
    OBHelpPath = AskForFile(QStringLiteral("Open"), QStringLiteral("Orchard BASIC Help|orchard.hlp;*.hlp;"));
    if (OBHelpPath.isEmpty())
        MsgBox(NotFoundText(QStringLiteral("Orchard BASIC help")));
}

void FindOptionalHelp()
{
    const QString chosen = AskForFile(QStringLiteral("Open"), QStringLiteral("Programming Help|*.hlp;"));
    if (chosen.isEmpty())
        MsgBox(QStringLiteral("The chosen Helpfile was not found."), BoxIcon::Critical);
    else
        OptionalHelpPath = chosen;
}

void FindRuntime()
{
    if (MsgBox(QStringLiteral("Find Orchard BASIC Runtime Engine?"), BoxIcon::None, BoxButtons::OkCancel) ==
        BoxAnswer::Cancel)
        return;
    const QString chosen =
        OpenFileDialog(QStringLiteral("Runtime Engine (run.exe))|*.EXE;RUN.EXE"), QDir::currentPath());
    if (chosen.isEmpty())
        MsgBox(NotFoundText(QStringLiteral("Orchard BASIC Runtime Engine")));
    else
        OBRuntimePath = chosen;
}

} // namespace ob
