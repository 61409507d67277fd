// SPDX-License-Identifier: GPL-3.0-or-later
// The editing commands that the control implements, and the actions that follow a key in it.
#include "editor/modEdit.h"

#include "editor/document/cDocument.h"
#include "editor/document/modBookmarks.h"
#include "editor/document/modDocument.h"
#include "editor/document/modSyntaxTable.h"
#include "editor/document/modUserTexts.h"
#include "editor/files/modDocumentFile.h"
#include "editor/modEditText.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/modAnsi.h"
#include "platform/language/modRuntime.h"
#include "shell/state/Module1.h"
#include "shell/state/cMainForm.h"

#include <QByteArray>

#include <algorithm>
#include <exception>
#include <optional>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr unsigned StyleBase = 32;
constexpr int RoomAtTheRight = 12; // pixels
constexpr std::uintptr_t OrderCustom = 2;

// Without a child nothing happens; when the active child is not a code window, a message says so.
cDocument* EditedDocument()
{
    return MainForm->ActiveKind() == ActiveChild::None ? nullptr : NeedDocument();
}

bool IsEmpty(const cDocument& document)
{
    return SendSci(document.sci, SCI_GETLENGTH) == 0;
}

void SendToActive(unsigned message)
{
    if (const cDocument* document = EditedDocument())
        SendSci(document->sci, message);
}

std::uintptr_t Unsigned(std::intptr_t value)
{
    return static_cast<std::uintptr_t>(value);
}

// In the control's own memory: valid until its text changes.
QByteArrayView Range(Sci sci, std::intptr_t from, std::intptr_t to)
{
    if (from >= to)
        return {};
    const auto* start = reinterpret_cast<const char*>(SendSci(sci, SCI_GETRANGEPOINTER, Unsigned(from), to - from));
    return {start, start == nullptr ? 0 : to - from};
}

// Includes its line end.
QByteArrayView Line(Sci sci, std::intptr_t line)
{
    if (line < 0)
        return {};
    const std::intptr_t start = SendSci(sci, SCI_POSITIONFROMLINE, Unsigned(line));
    return Range(sci, start, start + SendSci(sci, SCI_LINELENGTH, Unsigned(line)));
}

// The position so many characters after the start of the line, but neither after the end of the text nor inside a line
// end.
std::intptr_t CharactersAfter(Sci sci, std::intptr_t lineStart, std::intptr_t count)
{
    if (count == 0)
        return lineStart;
    const std::intptr_t position = SendSci(sci, SCI_POSITIONRELATIVE, Unsigned(lineStart), count);
    if (position == 0)
        return SendSci(sci, SCI_GETLENGTH);
    const bool isInLineEnd = SendSci(sci, SCI_GETCHARAT, Unsigned(position - 1)) == '\r' &&
                             SendSci(sci, SCI_GETCHARAT, Unsigned(position)) == '\n';
    return isInLineEnd ? position - 1 : position;
}

void ShowTip(cDocument& document)
{
    const Sci sci = document.sci;
    SendSci(sci, SCI_AUTOCCANCEL);
    SendSci(sci, SCI_CALLTIPCANCEL);
    const std::intptr_t pos = SendSci(sci, SCI_GETCURRENTPOS);
    std::intptr_t from = SendSci(sci, SCI_GETSELECTIONSTART);
    std::intptr_t to = SendSci(sci, SCI_GETSELECTIONEND);
    // The tip for a selected term is shown at the start of the text.
    std::intptr_t wordStart = 0;
    if (from == to) {
        wordStart = from = SendSci(sci, SCI_WORDSTARTPOSITION, Unsigned(pos), -1);
        to = pos;
    }
    const QByteArrayView term = Range(sci, from, to);
    const std::string_view row = SyntaxTip({term.data(), static_cast<std::size_t>(term.size())});
    const QByteArray tip(row.data(), static_cast<qsizetype>(row.size()));

    const qsizetype lineFeed = tip.indexOf('\n');
    const QByteArray line1 = lineFeed < 0 ? tip : tip.first(lineFeed + 1);
    const std::intptr_t width = SendSci(sci, SCI_TEXTWIDTH, StyleBase, line1.constData());
    const std::intptr_t right = SendSci(sci, SCI_POINTXFROMPOSITION, 0, wordStart) + width;
    if (document.window != nullptr && right > document.window->WidthInPixels() - RoomAtTheRight) {
        const std::intptr_t line = SendSci(sci, SCI_LINEFROMPOSITION, Unsigned(wordStart));
        wordStart = SendSci(sci, SCI_POSITIONFROMLINE, Unsigned(line));
    }
    SendSci(sci, SCI_CALLTIPSHOW, Unsigned(wordStart), tip.constData());
    SendSci(sci, SCI_CALLTIPSETHLT, 0, std::max<qsizetype>(lineFeed, 0));
    document.SyntaxTipShown = true;
    SendSci(sci, SCI_SETSEL, Unsigned(pos), pos);
}

} // namespace

void mnuEditUndo_Click()
{
    const cDocument* document = EditedDocument();
    if (document == nullptr)
        return;
    const bool wasEmpty = IsEmpty(*document);
    SendSci(document->sci, SCI_UNDO);
    // Loading a file is a step like any other.
    if (!wasEmpty && IsEmpty(*document) && FileExists(document->Caption()))
        SetStatusText(u"The text of the file is undone. Ctrl+R brings it back."_s);
}

void mnuEditRedo_Click()
{
    const cDocument* document = EditedDocument();
    if (document == nullptr)
        return;
    const bool wasEmpty = IsEmpty(*document);
    SendSci(document->sci, SCI_REDO);
    if (wasEmpty && !IsEmpty(*document) && FileExists(document->Caption()))
        ShowOpenedFile(*document, document->Caption());
}

void mnuEditCut_Click()
{
    SendToActive(SCI_CUT);
}

void mnuEditCopy_Click()
{
    SendToActive(SCI_COPY);
}

void mnuEditPaste_Click()
{
    SendToActive(SCI_PASTE);
}

void mnuEditSelectAll_Click()
{
    SendToActive(SCI_SELECTALL);
}

void mnuEditDelete_Click()
{
    SendToActive(SCI_CLEAR);
}

void mnuEditClear_Click()
{
    SendToActive(SCI_CLEARALL);
}

void mnuEditInsert_Click()
{
    if (const cDocument* document = EditedDocument())
        InsertKeyword(document->sci);
}

void mnuEditSyntax_Click()
{
    if (cDocument* document = ActiveDocument())
        ShowSyntax(*document);
}

void mnuLine_Click()
{
    const cDocument* document = EditedDocument();
    if (document == nullptr)
        return;
    const auto answer = InputBox(u"Line number?"_s, u"Go to Line"_s, u"1"_s);
    const std::intptr_t line = ToInt32(Val(answer.value_or(QString())) - 1);
    SendSci(document->sci, SCI_GOTOLINE, Unsigned(line));
    SendSci(document->sci, SCI_GRABFOCUS);
}

void mnuEditComment_Click()
{
    if (const cDocument* document = EditedDocument())
        CommentSelection(document->sci);
}

void mnuEditInsertComments_Click()
{
    const cDocument* document = ActiveDocument();
    if (document == nullptr)
        return;
    const QByteArray comments = DecodeAnsi(ReadComments(ProgramFolder()));
    SendSci(document->sci, SCI_ADDTEXT, static_cast<std::uintptr_t>(comments.size()), comments.constData());
}

void AddTab(cDocument& document)
{
    const Sci sci = document.sci;
    const std::intptr_t first = SendSci(sci, SCI_GETFIRSTVISIBLELINE);
    const std::intptr_t pos = SendSci(sci, SCI_GETCURRENTPOS);
    const std::intptr_t line = SendSci(sci, SCI_LINEFROMPOSITION, Unsigned(pos));
    const std::intptr_t lineStart = SendSci(sci, SCI_POSITIONFROMLINE, Unsigned(line));
    std::intptr_t column = SendSci(sci, SCI_COUNTCHARACTERS, Unsigned(lineStart), pos);
    const QByteArrayView before = Line(sci, line - 1);
    const bool isBlock = OpensBlock(before);
    if (MayHoldLabel(before) && document.window != nullptr)
        document.window->FillBranchBox();

    if (Editor.AutoIndent) {
        std::intptr_t indent = line > 0 ? SendSci(sci, SCI_GETLINEINDENTATION, Unsigned(line - 1)) : 0;
        if (isBlock)
            indent += std::max<std::intptr_t>(Editor.TabSize, 0);
        SendSci(sci, SCI_SETLINEINDENTATION, Unsigned(line), indent);
        column += indent;
    }
    SendSci(sci, SCI_GOTOPOS, Unsigned(CharactersAfter(sci, lineStart, column)));
    SendSci(sci, SCI_LINESCROLL, 0, first - SendSci(sci, SCI_GETFIRSTVISIBLELINE));
    SendSci(sci, SCI_GRABFOCUS);
}

void InsertKeyword(Sci sci)
{
    SendSci(sci, SCI_CALLTIPCANCEL);
    SendSci(sci, SCI_AUTOCCANCEL);
    SendSci(sci, SCI_AUTOCSETIGNORECASE, static_cast<std::uintptr_t>(-1));
    // The list is not fully sorted; in this mode the control finds every word in it.
    SendSci(sci, SCI_AUTOCSETORDER, OrderCustom);
    const std::intptr_t pos = SendSci(sci, SCI_GETCURRENTPOS);
    const std::intptr_t start = SendSci(sci, SCI_WORDSTARTPOSITION, Unsigned(pos), -1);
    if (pos > start)
        SendSci(sci, SCI_AUTOCSETAUTOHIDE, 0);
    // After its last space the list would show an empty word.
    SendSci(sci, SCI_AUTOCSHOW, Unsigned(pos - start), Words().KeywordList.trimmed().constData());
}

void ShowSyntax(cDocument& document)
{
    try {
        ShowTip(document);
    } catch (const std::exception&) {
        MsgBox(u"Error in Syntax Helper, no help available."_s);
    }
}

void HideSyntax(cDocument& document)
{
    if (MainForm->ActiveKind() == ActiveChild::Gui)
        return;
    SendSci(document.sci, SCI_CALLTIPCANCEL);
    document.SyntaxTipShown = false;
}

void CommentSelection(Sci sci)
{
    const auto start = static_cast<qsizetype>(SendSci(sci, SCI_GETSELECTIONSTART));
    const auto end = static_cast<qsizetype>(SendSci(sci, SCI_GETSELECTIONEND));
    const std::optional<TextChange> change = BlockComment(QByteArrayView(SciText(sci)), start, end);
    if (!change)
        return;
    const std::intptr_t first = SendSci(sci, SCI_LINEFROMPOSITION, Unsigned(change->from));
    const std::intptr_t last = SendSci(sci, SCI_LINEFROMPOSITION, Unsigned(change->to));
    const std::vector<std::intptr_t> bookmarks = BookmarkedLines(sci, first, last);
    SendSci(sci, SCI_SETTARGETRANGE, Unsigned(change->from), change->to);
    SendSci(sci, SCI_REPLACETARGET, Unsigned(change->replacement.size()), change->replacement.constData());
    SetBookmarks(sci, first, last, bookmarks);
    const std::intptr_t after = change->from + change->replacement.size();
    if (start == end) {
        SendSci(sci, SCI_GOTOPOS, Unsigned(after));
        return;
    }
    // Whole lines, so that the same command takes the same lines again.
    const std::intptr_t next = SendSci(sci, SCI_LINEFROMPOSITION, Unsigned(after)) + 1;
    SendSci(sci, SCI_SETSEL, Unsigned(change->from), SendSci(sci, SCI_POSITIONFROMLINE, Unsigned(next)));
}

} // namespace ob
