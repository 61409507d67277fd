// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that open and close code windows.
#include "editor/files/modFileCommands.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/document/modUserTexts.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modRecent.h"

namespace ob {

void mnuFileNew_Click()
{
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    if (AddComments)
        SendToDocument(ReadComments(ProgramFolder()), UntitledName);
    document->SetCaption(UntitledName);
}

void mnuFileClose_Click()
{
    if (cDocument* document = NeedDocument())
        MainForm->UnloadDocument(*document);
}

void mnuFileExit_Click()
{
    MainForm->Unload();
}

void OpenRecentFile(const QString& path)
{
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    LoadDocumentFile(path);
    document->Tag = TagOpen;
    document->SetCaption(path);
    SetStatusText(OpenedFileStatus(path));
}

void mnuFileMRU_Click(int number)
{
    const QString path = RecentFiles[static_cast<std::size_t>(number - 1)];
    if (!FileExists(path)) {
        MsgBox(QStringLiteral("Cannot find ") + path);
        return;
    }
    OpenRecentFile(path);
    AddRecentFile(path);
}

} // namespace ob
