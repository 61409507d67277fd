// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that pass code to the engine.
#include "engine/run/modRun.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/files/modDocumentFile.h"
#include "engine/run/modFileIO.h"
#include "engine/run/modIncludes.h"
#include "guibuilder/modGuiCommands.h"
#include "platform/desktop/modLaunch.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFileRights.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modNames.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

const QString RunSwitches = u" -R -A "_s;
const QString TokenSwitches = u" -A -T "_s;
const QString DebugSwitches = u" -A -D "_s;
const QString FreeformSwitches = u" -R -A  "_s;

enum class Found { No, Yes };

Found NeedEngine()
{
    if (!IsUsablePath(OBPath))
        FindOrchard();
    return IsUsablePath(OBPath) ? Found::Yes : Found::No;
}

enum class CopyEnd { Written, Failed, Declined };

// The copy of an earlier run must not pass for this one's, so the result of the write counts.
CopyEnd WriteCopy(cDocument& document, const QString& path, Durability durability)
{
    try {
        return SaveDocumentFile(document, path, durability) == SaveEnd::Written ? CopyEnd::Written : CopyEnd::Declined;
    } catch (const RuntimeError& error) {
        ShowReason(error);
        return CopyEnd::Failed;
    }
}

void HandToEngine(const QString& switches)
{
    if (MainForm->ActiveKind() == ActiveChild::None)
        return;
    if (MainForm->ActiveKind() == ActiveChild::Gui)
        Compile();
    cDocument* document = NeedDocument();
    if (document == nullptr || NeedEngine() == Found::No)
        return;

    const CopyPlace copy = PlaceOfCopy(document->Caption(), ProgramFolder());
    if (copy.caption != document->Caption())
        document->SetCaption(copy.caption);
    // A copy can be made again; a program that has no other file cannot.
    const Durability durability = copy.path == copy.caption ? Durability::Synced : Durability::Unsynced;
    const PrivateCopy rights = PrepareCopy(document->Caption(), copy.path);
    const CopyEnd end = WriteCopy(*document, copy.path, durability);
    if (end != CopyEnd::Written && rights == PrivateCopy::Made)
        QFile::remove(copy.path);
    if (end == CopyEnd::Declined)
        return;
    if (end == CopyEnd::Failed || !FileExists(copy.path)) {
        MsgBox(u"Error creating file to run."_s, BoxIcon::Critical);
        return;
    }
    const QByteArray included = CheckIncludes(*document, FolderOf(copy.path));
    if (!included.isEmpty())
        AppendToFile(copy.path, included, durability);
    LaunchSetting(OBPath, EngineArguments(switches, copy.path));
    MainForm->SendToBack();
}

} // namespace

CopyPlace PlaceOfCopy(const QString& caption, const QString& programFolder)
{
    if (FileExists(caption)) {
        if (caption.size() < 3)
            throw RuntimeErrorOf(ErrorNumber::InvalidCall);
        return {caption.chopped(3) + u"BAK"_s, caption};
    }
    if (caption.compare(UntitledName, Qt::CaseInsensitive) == 0) {
        const QString copy = programFolder + QDir::separator() + u"untitled.bak"_s;
        return {copy, copy};
    }
    return {caption, caption};
}

QString EngineArguments(const QString& switches, const QString& copy)
{
    return QLatin1Char(' ') + switches + copy;
}

void mnuRun_Click()
{
    HandToEngine(RunSwitches);
}

void mnuTKN_Click()
{
    HandToEngine(TokenSwitches);
}

void mnuDebug_Click()
{
    HandToEngine(DebugSwitches);
}

void RunTokenFile(const QString& path)
{
    if (!IsUsablePath(OBRuntimePath))
        FindRuntime();
    if (!IsUsablePath(OBRuntimePath))
        return;
    LaunchSetting(OBRuntimePath, u' ' + path);
    MainForm->SendToBack();
}

void mnuRunTKN_Click()
{
    const QString chosen =
        FileBox({FilePurpose::Open, u"Open"_s, QDir::currentPath(), {}, u"OB Token (*.tkn)|*.tkn"_s});
    if (chosen.isEmpty())
        return;
    if (!FileExists(chosen)) {
        MsgBox(u"Error running TKN."_s, BoxIcon::Critical);
        return;
    }
    RunTokenFile(chosen);
}

void mnuRunOB_Click()
{
    if (NeedEngine() == Found::No)
        return;
    LaunchSetting(OBPath, {});
    MainForm->SendToBack();
}

// Here it is enough that a file exists, for both paths.
static Found NeedFreeform()
{
    if (!FileExists(OBFreeformPath))
        FindFreeform();
    if (!FileExists(OBFreeformPath))
        return Found::No;
    if (!FileExists(OBPath))
        FindOrchard();
    return FileExists(OBPath) ? Found::Yes : Found::No;
}

void mnuToolFreeform_Click()
{
    if (NeedFreeform() == Found::No)
        return;
    const QString ending = OBFreeformPath.right(3).toLower();
    if (ending == QLatin1String("bas")) {
        LaunchSetting(OBPath, EngineArguments(FreeformSwitches, OBFreeformPath), WindowMode::Minimized);
    } else if (ending == QLatin1String("tkn")) {
        RunTokenFile(OBFreeformPath);
    } else {
        MsgBox(u"Orchard FreeForm must be in *.bas or *.tkn form!"_s, BoxIcon::Critical);
        return;
    }
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    document->SetCaption(UntitledName);
    // The text includes its terminating NUL, one character more than its length.
    static constexpr char hint[] = "Paste FreeForm output here!";
    SendSci(document->sci, SCI_ADDTEXT, sizeof hint, hint);
}

} // namespace ob
