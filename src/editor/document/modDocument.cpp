// SPDX-License-Identifier: GPL-3.0-or-later
// Code windows as slots.
#include "editor/document/modDocument.h"

#include "editor/document/cDocument.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/language/modAnsi.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modNames.h"

using namespace Qt::StringLiterals;

namespace ob {

cDocument* ActiveDocument()
{
    return MainForm == nullptr ? nullptr : MainForm->ActiveDocument();
}

cDocument* NeedDocument()
{
    cDocument* document = ActiveDocument();
    if (document == nullptr)
        MsgBox(NoCodeWindowText, BoxIcon::Critical);
    return document;
}

int FreeDocumentSlot()
{
    for (std::size_t slot = 1; slot < Documents.size(); ++slot) {
        if (Documents[slot]->Tag != TagOpen) {
            Documents[slot]->Tag = TagOpen;
            return static_cast<int>(slot);
        }
    }
    if (Documents.empty())
        Documents.push_back(nullptr);
    const int added = static_cast<int>(Documents.size());
    Documents.push_back(std::make_unique<cDocument>(added));
    return added;
}

cDocument* NewDocument()
{
    cDocument& document = *Documents[static_cast<std::size_t>(FreeDocumentSlot())];
    // A window that shows a caption with an empty text forgets the labels of the text before.
    SendSci(document.sci, SCI_CLEARALL);
    document.SetCaption(u"Document %1"_s.arg(document.number));
    MainForm->ShowDocument(document);
    return document.sci == nullptr ? nullptr : &document;
}

static void PutText(cDocument& document, const QByteArray& utf8, const QString& title)
{
    document.SetCaption(title);
    SendSci(document.sci, SCI_ADDTEXT, static_cast<std::uintptr_t>(utf8.size()), utf8.data());
    SendSci(document.sci, SCI_GOTOPOS, 0);
}

void SendToDocument(cDocument& document, const QByteArray& text, const QString& title)
{
    PutText(document, DecodeAnsi(text), title);
}

void SendTextToDocument(cDocument& document, const QString& text, const QString& title)
{
    PutText(document, text.toUtf8(), title);
}

static void EnableNamed(std::initializer_list<const char*> buttons, std::initializer_list<const char*> items,
                        Switch enable)
{
    if (MainForm == nullptr)
        return;
    for (const char* button : buttons)
        MainForm->EnableButton(QString::fromLatin1(button), enable == Switch::On);
    for (const char* item : items)
        MainForm->EnableItem(QString::fromLatin1(item), enable == Switch::On);
}

void EnableCodeCommands(Switch enable)
{
    EnableNamed({"Save", "Print", "Cut", "Copy", "Paste", "Find"},
                {"mnuFileClose", "mnuFileSave", "mnuFileSaveAs", "mnuFileInsert", "mnuFilePrint", "mnuFileProject"},
                enable);
    if (MainForm != nullptr)
        MainForm->EnableCodeTools(enable == Switch::On);
}

void EnableRunCommands(Switch enable)
{
    EnableNamed({"Run", "Debug"}, {"mnuRun", "mnuTKN", "mnuDebug"}, enable);
}

} // namespace ob
