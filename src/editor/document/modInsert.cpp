// SPDX-License-Identifier: GPL-3.0-or-later
// Text that comes into a program at its caret.
#include "editor/document/modInsert.h"

#include "editor/document/cDocument.h"
#include "editor/document/modUserTexts.h"

namespace ob {

void InsertAtCaret(const cDocument& document, const QString& text)
{
    const QByteArray utf8 = WithLineEnds(text).toUtf8();
    // The text may contain a NUL, which would end the argument of SCI_REPLACESEL.
    SendSci(document.sci, SCI_BEGINUNDOACTION);
    SendSci(document.sci, SCI_REPLACESEL, 0, "");
    SendSci(document.sci, SCI_ADDTEXT, static_cast<std::uintptr_t>(utf8.size()), utf8.constData());
    SendSci(document.sci, SCI_ENDUNDOACTION);
    SendSci(document.sci, SCI_SCROLLCARET);
}

} // namespace ob
