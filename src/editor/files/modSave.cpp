// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the active code window.
#include "editor/files/modSave.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/files/modDocumentFile.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modNames.h"
#include "shell/state/modRecent.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace ob {

QString AskSaveAs()
{
    return FileBox({FilePurpose::Save,
                    u"Save As"_s,
                    QDir::currentPath(),
                    {},
                    u"BASIC code (*.bas),(*.bak)|*.bas;*.bak|All Files (*.*)| *.*"_s});
}

void AfterFileSave(cDocument& document)
{
    document.Tag.clear();
    SetStatusText(SavedStatus + document.Caption());
    AddRecentFile(document.Caption());
}

// The caption changes after the write, so that a failed save leaves the window under its old name.
static void SaveUnder(cDocument& document, const QString& path)
{
    if (path.isEmpty()) {
        MsgBox(u"Error saving file!"_s, BoxIcon::Critical);
        return;
    }
    if (SaveDocumentFile(document, path) == SaveEnd::Declined)
        return;
    document.SetCaption(path);
    AfterFileSave(document);
}

void mnuFileSave_Click()
{
    cDocument* document = NeedDocument();
    if (document == nullptr)
        return;
    QString path = document->Caption();
    if (path.compare(UntitledName, Qt::CaseInsensitive) == 0) {
        path = FileBox({FilePurpose::Save, u"Save"_s, {}, {}, u"BASIC code (*.bas)(*.bak)|*.bas;*.bak"_s});
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
