// SPDX-License-Identifier: GPL-3.0-or-later
// Files in and out of code windows.
#include "editor/files/modDocumentFile.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "scilexer/modLexer.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"
#include "shell/state/modRecent.h"

#include <string_view>

using namespace Qt::StringLiterals;

namespace ob {

QByteArray LoadedBytes(QByteArray bytes, const QString& path)
{
    if (bytes.size() < 2)
        throw RuntimeErrorOf(ErrorNumber::InvalidCall, path,
                             bytes.isEmpty() ? u"The file is empty"_s : u"The file has only one byte"_s);
    bytes.chop(2);
    return bytes;
}

void LoadDocumentFile(cDocument& document, const QString& path)
{
    if (!FileExists(path)) {
        MsgBox(MissingFileText, BoxIcon::Critical, BoxButtons::Ok, u"Error"_s);
        return;
    }
    const auto text = DecodeAnsi(LoadedBytes(ReadWhole(path), path));
    SendSci(document.sci, SCI_EMPTYUNDOBUFFER);
    SendSci(document.sci, SCI_CLEARALL);
    SendSci(document.sci, SCI_ADDTEXT, static_cast<std::uintptr_t>(text.size()), text.data());
    SendSci(document.sci, SCI_GOTOPOS, 0);
    MainForm->ShowDocument(document);
    SendSci(document.sci, SCI_SETSAVEPOINT);
    if (document.window != nullptr)
        document.window->FillLabelLists();
}

QString OpenedFileStatus(const QString& path)
{
    return NameOf(path) + u"  Size: "_s + QString::number(SizeOf(path)) + u" KB   Last Modified: "_s +
           FileDateText(path);
}

// The number of the first line that the control shows without colours, from 1, or 0.
static int FirstLongLine(std::string_view text)
{
    constexpr auto longest = static_cast<std::size_t>(LongestColoredLine);
    int number = 1;
    for (std::size_t start = 0; text.size() - start > longest; ++number) {
        // The control counts the line end.
        const std::size_t end = text.find_first_of("\r\n", start);
        const std::size_t next = end == text.npos ? text.size() : text.substr(end, 2) == "\r\n" ? end + 2 : end + 1;
        if (next - start > longest)
            return number;
        start = next;
    }
    return 0;
}

void ShowOpenedFile(const cDocument& document, const QString& path)
{
    QString status = OpenedFileStatus(path);
    if (const int line = document.sci == nullptr ? 0 : FirstLongLine(SciText(document.sci)); line != 0)
        status += u"   Line %1 is too long to be shown in colour"_s.arg(line);
    SetStatusText(status);
}

void AfterFileOpen(cDocument& document, const QString& path)
{
    document.SetCaption(path);
    AddRecentFile(path);
    ShowOpenedFile(document, path);
    document.Tag = TagOpen;
}

cDocument* OpenInNewWindow(const QString& path, OpenChoices choices)
{
    const auto has = [choices](OpenChoice choice) { return (choices & static_cast<unsigned>(choice)) != 0; };
    cDocument* document = NewDocument();
    if (document == nullptr)
        return nullptr;
    LoadDocumentFile(*document, path);
    if (has(OpenChoice::Tag))
        document->Tag = TagOpen;
    document->SetCaption(path);
    if (has(OpenChoice::LastFolder))
        LastDir = FolderOf(path);
    if (has(OpenChoice::Recent))
        AddRecentFile(path);
    if (has(OpenChoice::Status))
        ShowOpenedFile(*document, path);
    return document;
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

SaveEnd SaveDocumentFile(cDocument& document, const QString& path, Durability durability)
{
    const SavedText saved = SavedBytes(QByteArrayView(SciText(document.sci)));
    if (saved.lostLine != 0) {
        const QString question = u"Line %1 holds a character that BASIC source files cannot store.\n"
                                 "Save with a question mark in place of each such character?"_s;
        if (MsgBox(question.arg(saved.lostLine), BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::No)
            return SaveEnd::Declined;
    }
    ReplaceFile(path, saved.bytes, durability);
    // Only a successful save leaves its two spaces in the text.
    SendSci(document.sci, SCI_APPENDTEXT, 2, "  ");
    SendSci(document.sci, SCI_SETSAVEPOINT);
    return SaveEnd::Written;
}

} // namespace ob
