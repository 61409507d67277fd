// SPDX-License-Identifier: GPL-3.0-or-later
// Files in and out of code windows.
#include "engine/run/modProject.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "engine/run/modFileIO.h"
#include "engine/run/modIncludes.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/language/cLines.h"
#include "platform/language/modAnsi.h"
#include "shell/state/Module1.h"
#include "shell/state/modRecent.h"

#include <QDir>

namespace ob {

namespace {

const QString AllBasicFilter = QStringLiteral("BASIC code (*.bas),(*.bak)|*.bas;*.bak|All Files (*.*)| *.*");

QString AskSaveAs()
{
    return FileBox({FilePurpose::Save, QStringLiteral("Save As"), QDir::currentPath(), {}, AllBasicFilter});
}

// The caption follows the write, so that a save that failed leaves the window under its old name.
void SaveUnder(cDocument& document, const QString& path)
{
    if (path.isEmpty()) {
        MsgBox(QStringLiteral("Error saving file!"), BoxIcon::Critical);
        return;
    }
    if (SaveDocumentFile(document, path) == SaveEnd::Declined)
        return;
    document.SetCaption(path);
    document.Tag.clear();
    SetStatusText(QStringLiteral("File saved as ") + document.Caption());
    AddRecentFile(path);
}

// The file's lines, each with CR LF behind it whatever ended it; the last one too.
QByteArray LinesOf(const QByteArray& bytes)
{
    QByteArray lines;
    lines.reserve(bytes.size() + 2);
    for (cLines source(bytes); source.Next();)
        lines.append(source.Line()).append("\r\n");
    return lines;
}

} // namespace

void mnuFileOpenCode_Click()
{
    const QString path =
        OpenFileDialog(QStringLiteral("BASIC Code (*.bas)(*.oba)(*.bak)|*.BAS;*.OBA;*.BAK"), QDir::currentPath());
    if (path.isEmpty() || !FileExists(path))
        return;
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    LoadDocumentFile(path);
    document->SetCaption(path);
    LastDir = FolderOf(path);
    AddRecentFile(path);
    SetStatusText(OpenedFileStatus(path));
}

void mnuFileInsert_Click()
{
    cDocument* document = ActiveDocument();
    if (document == nullptr)
        return;
    const QString path = FileBox({FilePurpose::Open,
                                  QStringLiteral("Open"),
                                  QDir::currentPath(),
                                  {},
                                  QStringLiteral("BASIC code |*.bas;*.bak;*.rtf;")});
    if (path.isEmpty())
        return;
    const auto text = DecodeAnsi(LinesOf(ReadWhole(path)));
    SendSci(document->sci, SCI_BEGINUNDOACTION);
    SendSci(document->sci, SCI_ADDTEXT, static_cast<std::uintptr_t>(text.size()), text.data());
    SendSci(document->sci, SCI_ENDUNDOACTION);
}

void mnuFileProject_Click()
{
    cDocument* document = NeedDocument();
    if (document == nullptr)
        return;
    const QString path = AskSaveAs();
    if (path.isEmpty())
        return;
    if (SaveDocumentFile(*document, path) == SaveEnd::Declined)
        return;
    document->SetCaption(path);
    if (!FileExists(path)) {
        MsgBox(QStringLiteral("Error saving project."), BoxIcon::Critical);
        return;
    }
    const QByteArray included = CheckIncludes(FolderOf(path));
    if (!included.isEmpty())
        AppendToFile(path, included);
    document->Tag.clear();
    SetStatusText(QStringLiteral("File saved as ") + document->Caption());
    AddRecentFile(path);
}

void mnuFileSave_Click()
{
    cDocument* document = NeedDocument();
    if (document == nullptr)
        return;
    QString path = document->Caption();
    if (path.compare(UntitledName, Qt::CaseInsensitive) == 0) {
        path = FileBox({FilePurpose::Save,
                        QStringLiteral("Save"),
                        {},
                        {},
                        QStringLiteral("BASIC code (*.bas)(*.bak)|*.bas;*.bak")});
        if (path.isEmpty())
            return;
    }
    SaveUnder(*document, path);
}

void mnuFileSaveAs_Click()
{
    cDocument* document = NeedDocument();
    if (document == nullptr)
        return;
    const QString path = AskSaveAs();
    if (!path.isEmpty())
        SaveUnder(*document, path);
}

} // namespace ob
