// SPDX-License-Identifier: GPL-3.0-or-later
// The searches for files outside the program.
#include "engine/run/modFileIO.h"

#include "platform/dialogs/modDialogs.h"
#include "shell/state/Module1.h"

#include <QDir>

using namespace Qt::StringLiterals;

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
    return what + u" was not found.  Be sure to specify the path to Orchard BASIC in Options!"_s;
}

Search SearchOf(OutsideFile file)
{
    switch (file) {
    case OutsideFile::Orchard:
        return {u"Orchard BASIC |orchard.exe;*.exe;"_s, NotFoundText(u"Orchard BASIC"_s)};
    case OutsideFile::Freeform:
        return {u"FreeForm |*ff*.bas;*.bas;*.bak"_s, NotFoundText(u"FreeForm"_s)};
    case OutsideFile::Help:
        return {u"Orchard BASIC Help|orchard.hlp;*.hlp;"_s, NotFoundText(u"Orchard BASIC help"_s)};
    case OutsideFile::OptionalHelp:
        return {u"Programming Help|*.hlp;"_s, u"The chosen Helpfile was not found."_s, BoxIcon::Critical};
    case OutsideFile::Runtime:
        break;
    }
    return {u"Runtime Engine (run.exe))|*.EXE;RUN.EXE"_s, NotFoundText(u"Orchard BASIC Runtime Engine"_s)};
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
    return AskForFile(u"Open"_s, file);
}

void FindOrchard()
{
    OBPath = AskForFile(u"Find Orchard BASIC"_s, OutsideFile::Orchard);
}

void FindFreeform()
{
    if (MsgBox(u"Find FreeForm?"_s, BoxIcon::Question, BoxButtons::OkCancel) == BoxAnswer::Cancel)
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
    if (MsgBox(u"Find Orchard BASIC Runtime Engine?"_s, BoxIcon::None, BoxButtons::OkCancel) == BoxAnswer::Cancel)
        return;
    const Search search = SearchOf(OutsideFile::Runtime);
    const QString chosen = ReportedIfMissing(OpenFileDialog(search.filter, QDir::currentPath()), search);
    if (!chosen.isEmpty())
        OBRuntimePath = chosen;
}

} // namespace ob
