// SPDX-License-Identifier: GPL-3.0-or-later
// The text editor sample.
#include "codetools/modAPItextedit.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "shell/state/modNames.h"
#include "shell/state/modTexts.h"

using namespace Qt::StringLiterals;

namespace ob {

QByteArray TextEditorCode()
{
    const auto text = EmbeddedText(u"texteditor.bas"_s);
    Q_ASSERT(text);
    return {text->data(), static_cast<qsizetype>(text->size())};
}

void mnuToolTE_Click()
{
    cDocument* document = NewDocument();
    if (document == nullptr)
        return;
    SendToDocument(*document, TextEditorCode(), UntitledName);
    document->Tag = TagOpen; // keeps the slot from being reused by the next new window
}

} // namespace ob
