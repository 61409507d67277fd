// SPDX-License-Identifier: GPL-3.0-or-later
// What a code window asks before it closes.
#include "editor/files/modClose.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/files/modDocumentFile.h"
#include "platform/dialogs/modDialogs.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modNames.h"
#include "shell/state/modRecent.h"

using namespace Qt::StringLiterals;

namespace ob {

namespace {

CloseEnd SaveBeforeClosing(cDocument& document, const QString& path)
{
    if (SaveDocumentFile(document, path) == SaveEnd::Declined)
        return CloseEnd::Stays;
    AddRecentFile(path);
    return CloseEnd::Closes;
}

BoxAnswer Ask(const QString& question)
{
    return MsgBox(question, BoxIcon::Question, BoxButtons::YesNo);
}

} // namespace

CloseEnd QueryUnload(cDocument& document)
{
    MainForm->EnableItem(u"mnuEdit"_s, false);
    EnableRunCommands(Switch::Off);
    EnableCodeCommands(Switch::Off);
    if (!QuitQuery || SendSci(document.sci, SCI_GETMODIFY) == 0)
        return CloseEnd::Closes;

    const QString caption = document.Caption();
    if (caption.compare(UntitledName, Qt::CaseInsensitive) != 0) {
        if (Ask(u"Save "_s + caption + u" before closing?"_s) == BoxAnswer::No)
            return CloseEnd::Closes;
        return SaveBeforeClosing(document, caption);
    }
    if (Ask(u"Save before closing?"_s) == BoxAnswer::No)
        return CloseEnd::Closes;
    const QString path =
        FileBox({FilePurpose::Save, u"Save As"_s, {}, {}, u"BASIC Code (*.bas)(*.bak)|*.bas;(*.bak)"_s});
    return path.isEmpty() ? CloseEnd::Closes : SaveBeforeClosing(document, path);
}

} // namespace ob
