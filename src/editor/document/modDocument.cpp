// SPDX-License-Identifier: GPL-3.0-or-later
// Code windows as slots: birth, text in, text out.
#include "editor/document/modDocument.h"

#include "editor/document/cDocument.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modRecent.h"

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
    document.SetCaption(QStringLiteral("Document %1").arg(document.number));
    if (document.sci != nullptr)
        SendSci(document.sci, SCI_CLEARALL);
    MainForm->ShowDocument(document);
    return document.sci == nullptr ? nullptr : &document;
}

QByteArray LoadedBytes(QByteArray bytes)
{
    if (bytes.size() < 2)
        throw RuntimeErrorOf(ErrorNumber::InvalidCall);
    bytes.chop(2);
    return bytes;
}

void LoadDocumentFile(const QString& path)
{
    cDocument* document = ActiveDocument();
    if (!FileExists(path)) {
        MsgBox(MissingFileText, BoxIcon::Critical, BoxButtons::Ok, QStringLiteral("Error"));
        return;
    }
    if (document == nullptr)
        return;
    const auto text = DecodeAnsi(LoadedBytes(ReadWhole(path)));
    SendSci(document->sci, SCI_EMPTYUNDOBUFFER);
    SendSci(document->sci, SCI_CLEARALL);
    SendSci(document->sci, SCI_ADDTEXT, static_cast<std::uintptr_t>(text.size()), text.data());
    SendSci(document->sci, SCI_GOTOPOS, 0);
    MainForm->ShowDocument(*document);
    SendSci(document->sci, SCI_SETSAVEPOINT);
    if (document->window != nullptr)
        document->window->FillLabelLists();
}

QString OpenedFileStatus(const QString& path)
{
    return NameOf(path) + QStringLiteral("  Size: ") + QString::number(SizeOf(path)) +
           QStringLiteral(" KB   Last Modified: ") + FileDateText(path);
}

void AfterFileOpen(const QString& path)
{
    cDocument* document = ActiveDocument();
    if (document == nullptr)
        return;
    document->SetCaption(path);
    AddRecentFile(path);
    SetStatusText(OpenedFileStatus(path));
    document->Tag = TagOpen;
}

SavedText SavedBytes(QByteArrayView text)
{
    auto encoded = EncodeAnsi(text);
    SavedText saved;
    saved.bytes = std::move(encoded.bytes);
    saved.bytes.append(" \r\n");
    if (encoded.lostCount > 0)
        saved.lostLine = encoded.firstLostLine;
    return saved;
}

SaveEnd SaveDocumentFile(const QString& path)
{
    cDocument* document = ActiveDocument();
    return document == nullptr ? SaveEnd::Declined : SaveDocumentFile(*document, path);
}

SaveEnd SaveDocumentFile(cDocument& document, const QString& path)
{
    const SavedText saved = SavedBytes(QByteArrayView(SciText(document.sci)));
    if (saved.lostLine != 0) {
        const QString question = QStringLiteral("Line %1 holds a character that BASIC source files cannot store.\n"
                                                "Save with a question mark in place of each such character?");
        if (MsgBox(question.arg(saved.lostLine), BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::No)
            return SaveEnd::Declined;
    }
    ReplaceFile(path, saved.bytes);
    // Only a save that succeeded leaves its two blanks in the text.
    SendSci(document.sci, SCI_APPENDTEXT, 2, "  ");
    SendSci(document.sci, SCI_SETSAVEPOINT);
    return SaveEnd::Written;
}

static void PutText(const QByteArray& utf8, const QString& title)
{
    cDocument* document = ActiveDocument();
    if (document == nullptr)
        return;
    document->SetCaption(title);
    SendSci(document->sci, SCI_ADDTEXT, static_cast<std::uintptr_t>(utf8.size()), utf8.data());
    SendSci(document->sci, SCI_GOTOPOS, 0);
}

void SendToDocument(const QByteArray& text, const QString& title)
{
    PutText(DecodeAnsi(text), title);
}

void SendTextToDocument(const QString& text, const QString& title)
{
    PutText(text.toUtf8(), title);
}

static void EnablePlaces(std::initializer_list<int> buttons, std::initializer_list<const char*> items, Switch enable)
{
    if (MainForm == nullptr)
        return;
    for (const int place : buttons)
        MainForm->EnableButton(place, enable == Switch::On);
    for (const char* item : items)
        MainForm->EnableItem(QString::fromLatin1(item), enable == Switch::On);
}

void EnableCodeCommands(Switch enable)
{
    EnablePlaces({3, 4, 6, 7, 8, 9},
                 {"mnuFileClose", "mnuFileSave", "mnuFileSaveAs", "mnuFileInsert", "mnuFilePrint", "mnuFileProject",
                  "mnuToolShowVar"},
                 enable);
}

void EnableRunCommands(Switch enable)
{
    EnablePlaces({11, 12}, {"mnuRun", "mnuTKN", "mnuDebug"}, enable);
}

} // namespace ob
