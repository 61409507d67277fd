// SPDX-License-Identifier: GPL-3.0-or-later
// Text that comes into a program at its caret.
#pragma once

#include <QString>

namespace ob {

class cDocument;

// Replaces the selection, or inserts at the caret, as one step of undo, and scrolls to the end of the text. Line ends
// become CR LF. The document has a window.
void InsertAtCaret(const cDocument& document, const QString& text);

} // namespace ob
