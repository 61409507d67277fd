// SPDX-License-Identifier: GPL-3.0-or-later
// The commands that create, open, fill and close code windows.
#include "editor/files/modFileCommands.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/document/modUserTexts.h"
#include "editor/files/modDocumentFile.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/cLines.h"
#include "platform/language/modAnsi.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modNames.h"
#include "shell/state/modRecent.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ob {

void mnuFileNew_Click()
{
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    if (AddComments)
        SendToDocument(*document, ReadComments(ProgramFolder()), UntitledName);
    document->SetCaption(UntitledName);
}

void mnuFileOpenCode_Click()
{
    const QString path = OpenFileDialog(u"BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK"_s, QDir::currentPath());
    if (path.isEmpty() || !FileExists(path))
        return;
    OpenInNewWindow(path, OpenChoice::LastFolder | OpenChoice::Recent | OpenChoice::Status);
}

// The file's lines, each followed by CR LF whatever its line end was; the last one too.
static QByteArray LinesOf(const QByteArray& bytes)
{
    QByteArray lines;
    lines.reserve(bytes.size() + 2);
    for (cLines source(bytes); source.Next();)
        lines.append(source.Line()).append("\r\n");
    return lines;
}

void mnuFileInsert_Click()
{
    cDocument* document = ActiveDocument();
    if (document == nullptr)
        return;
    const QString path =
        FileBox({FilePurpose::Open, u"Open"_s, QDir::currentPath(), {}, u"BASIC code |*.bas;*.bak;*.rtf;"_s});
    if (path.isEmpty())
        return;
    const auto text = DecodeAnsi(LinesOf(ReadWhole(path)));
    SendSci(document->sci, SCI_BEGINUNDOACTION);
    SendSci(document->sci, SCI_ADDTEXT, static_cast<std::uintptr_t>(text.size()), text.data());
    SendSci(document->sci, SCI_ENDUNDOACTION);
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
    OpenInNewWindow(path, OpenChoice::Tag | OpenChoice::Status);
}

void mnuFileMRU_Click(int number)
{
    const QString path = RecentFiles[static_cast<std::size_t>(number - 1)];
    if (!FileExists(path)) {
        MsgBox(u"Cannot find "_s + path);
        return;
    }
    OpenRecentFile(path);
    AddRecentFile(path);
}

} // namespace ob
