// SPDX-License-Identifier: GPL-3.0-or-later
// Saving a program with its included files merged in.
#include "engine/run/modProject.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/files/modDocumentFile.h"
#include "editor/files/modSave.h"
#include "engine/run/modIncludes.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"

using namespace Qt::StringLiterals;

namespace ob {

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
        MsgBox(u"Error saving project."_s, BoxIcon::Critical);
        return;
    }
    const QByteArray included = CheckIncludes(*document, FolderOf(path));
    if (!included.isEmpty())
        AppendToFile(path, included);
    AfterFileSave(*document);
}

} // namespace ob
