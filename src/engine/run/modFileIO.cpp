// SPDX-License-Identifier: GPL-3.0-or-later
// The searches for files outside the program.
#include "engine/run/modFileIO.h"

#include "platform/dialogs/modDialogs.h"
#include "shell/state/Module1.h"

#include <QDir>

namespace ob {

namespace {

// The box's filter, and the message with its icon for when nothing was chosen.
struct Search {
    QString filter;
    QString missing;
    BoxIcon icon = BoxIcon::None;
};

QString NotFoundText(const QString& what)
{
    return what + QStringLiteral(" was not found.  Be sure to specify the path to Orchard BASIC in Options!");
}

Search SearchOf(OutsideFile file)
{
    switch (file) {
    case OutsideFile::Orchard:
        return {QStringLiteral("Orchard BASIC |orchard.exe;*.exe;"), NotFoundText(QStringLiteral("Orchard BASIC"))};
    case OutsideFile::Freeform:
        return {QStringLiteral("FreeForm |*ff*.bas;*.bas;*.bak"), NotFoundText(QStringLiteral("FreeForm"))};
    case OutsideFile::Help:
        return {QStringLiteral("Orchard BASIC Help|orchard.hlp;*.hlp;"),
                NotFoundText(QStringLiteral("Orchard BASIC help"))};
    case OutsideFile::OptionalHelp:
        return {QStringLiteral("Programming Help|*.hlp;"), QStringLiteral("The chosen Helpfile was not found."),
                BoxIcon::Critical};
    case OutsideFile::Runtime:
        break;
    }
    return {QStringLiteral("Runtime Engine (run.exe))|*.EXE;RUN.EXE"),
            NotFoundText(QStringLiteral("Orchard BASIC Runtime Engine"))};
}

QString ReportedIfMissing(const QString& chosen, const Search& search)
{
    if (chosen.isEmpty())
        MsgBox(search.missing, search.icon);
    return chosen;
}

QString AskForFile(const QString& title, OutsideFile file)
{
    const Search search = SearchOf(file);
    return ReportedIfMissing(FileBox({FilePurpose::Open, title, {}, {}, search.filter}), search);
}

} // namespace

QString BrowseFor(OutsideFile file)
{
    return AskForFile(QStringLiteral("Open"), file);
}

void FindOrchard()
{
    OBPath = AskForFile(QStringLiteral("Find Orchard BASIC"), OutsideFile::Orchard);
}

void FindFreeform()
{
    if (MsgBox(QStringLiteral("Find FreeForm?"), BoxIcon::Question, BoxButtons::OkCancel) == BoxAnswer::Cancel)
        return;
    OBFreeformPath = BrowseFor(OutsideFile::Freeform);
}

void FindHelp()
{
    OBHelpPath = BrowseFor(OutsideFile::Help);
}

void FindOptionalHelp()
{
    const QString chosen = BrowseFor(OutsideFile::OptionalHelp);
    if (!chosen.isEmpty())
        OptionalHelpPath = chosen;
}

void FindRuntime()
{
    if (MsgBox(QStringLiteral("Find Orchard BASIC Runtime Engine?"), BoxIcon::None, BoxButtons::OkCancel) ==
        BoxAnswer::Cancel)
        return;
    const Search search = SearchOf(OutsideFile::Runtime);
    const QString chosen = ReportedIfMissing(OpenFileDialog(search.filter, QDir::currentPath()), search);
    if (!chosen.isEmpty())
        OBRuntimePath = chosen;
}

} // namespace ob
