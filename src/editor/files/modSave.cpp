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

namespace ob {

QString AskSaveAs()
{
    return FileBox({FilePurpose::Save,
                    QStringLiteral("Save As"),
                    QDir::currentPath(),
                    {},
                    QStringLiteral("BASIC code (*.bas),(*.bak)|*.bas;*.bak|All Files (*.*)| *.*")});
}

void AfterFileSave(cDocument& document)
{
    document.Tag.clear();
    SetStatusText(QStringLiteral("File saved as ") + document.Caption());
    AddRecentFile(document.Caption());
}

// The caption changes after the write, so that a failed save leaves the window under its old name.
static void SaveUnder(cDocument& document, const QString& path)
{
    if (path.isEmpty()) {
        MsgBox(QStringLiteral("Error saving file!"), BoxIcon::Critical);
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
