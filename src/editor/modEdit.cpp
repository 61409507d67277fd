// SPDX-License-Identifier: GPL-3.0-or-later
// The editing commands that the control does by itself, and the helpers that follow a key in it.
#include "editor/modEdit.h"

#include "editor/cDocument.h"
#include "editor/modDocument.h"
#include "platform/modDialogs.h"
#include "platform/modRuntime.h"
#include "shell/Module1.h"
#include "shell/cMainForm.h"

#include <QByteArray>

namespace ob {

namespace {

// With no child at all nothing happens; with another child than a code window the user is told.
void SendToActive(unsigned message)
{
    if (MainForm->ActiveKind() == ActiveChild::None)
        return;
    if (const cDocument* document = NeedDocument())
        SendSci(document->sci, message);
}

QByteArray LineText(Sci sci, std::intptr_t line)
{
    if (line < 0)
        return {};
    QByteArray text(static_cast<qsizetype>(SendSci(sci, SCI_LINELENGTH, static_cast<std::uintptr_t>(line))), ' ');
    const auto length = SendSci(sci, SCI_GETLINE, static_cast<std::uintptr_t>(line), text.data());
    text.truncate(static_cast<qsizetype>(length));
    return text;
}

bool OpensBlock(QByteArrayView line)
{
    const qsizetype blank = line.indexOf(' ');
    const QByteArrayView word = blank < 0 ? line : line.first(blank);
    for (const char* opener : {"if", "do", "while", "for"})
        if (EqualsIgnoreCase(word, QByteArrayView(opener)))
            return true;
    return false;
}

bool MayHoldLabel(QByteArrayView line)
{
    const QByteArray lower = LowerAscii(line);
    return lower.contains('[') || lower.contains("function") || lower.contains("sub");
}

} // namespace

void mnuEditUndo_Click()
{
    SendToActive(SCI_UNDO);
}

void mnuEditRedo_Click()
{
    SendToActive(SCI_REDO);
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

void mnuLine_Click()
{
    if (MainForm->ActiveKind() == ActiveChild::None)
        return;
    const cDocument* document = NeedDocument();
    if (document == nullptr)
        return;
    const auto answer = InputBox(QStringLiteral("Line number?"), QStringLiteral("Go to Line"), QStringLiteral("1"));
    const std::intptr_t line = ToInt32(Val(answer.value_or(QString()))) - std::intptr_t{1};
    SendSci(document->sci, SCI_GOTOLINE, static_cast<std::uintptr_t>(line));
    SendSci(document->sci, SCI_GRABFOCUS);
}

void AddTab(cDocument& document)
{
    const Sci sci = document.sci;
    const auto first = SendSci(sci, SCI_GETFIRSTVISIBLELINE);
    const auto pos = SendSci(sci, SCI_GETCURRENTPOS);
    const auto line = SendSci(sci, SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(pos));
    const QByteArray whole = LineText(sci, line - 1);
    const QByteArrayView text = LTrimBlanks(QByteArrayView(whole));
    if (MayHoldLabel(text) && document.window != nullptr)
        document.window->FillBranchBox();

    std::intptr_t indent = 0;
    if (AutoIndent) {
        const auto target = static_cast<std::uintptr_t>(line);
        if (line > 0)
            indent = SendSci(sci, SCI_GETLINEINDENTATION, target - 1);
        SendSci(sci, SCI_SETLINEINDENTATION, target, indent);
        if (OpensBlock(text)) {
            indent += TabSize;
            SendSci(sci, SCI_SETLINEINDENTATION, target, indent);
        }
    }
    SendSci(sci, SCI_GOTOPOS, static_cast<std::uintptr_t>(pos + indent));
    SendSci(sci, SCI_LINESCROLL, 0, first - SendSci(sci, SCI_GETFIRSTVISIBLELINE));
    SendSci(sci, SCI_GRABFOCUS);
}

void HideSyntax(cDocument& document)
{
    SendSci(document.sci, SCI_CALLTIPCANCEL);
}

} // namespace ob
