// SPDX-License-Identifier: GPL-3.0-or-later
// The text editor sample.
#include "codetools/modAPItextedit.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "shell/state/modNames.h"
#include "shell/state/modTexts.h"

namespace ob {

QByteArray TextEditorCode()
{
    const auto text = EmbeddedText(QStringLiteral("texteditor.bas"));
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
