// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that open and close code windows.
#include "shell/modFileCommands.h"

#include "editor/cDocument.h"
#include "editor/modDocument.h"
#include "editor/modUserTexts.h"
#include "platform/modDialogs.h"
#include "platform/modFiles.h"
#include "platform/modPaths.h"
#include "shell/Module1.h"
#include "shell/cMainForm.h"
#include "shell/modRecent.h"

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
