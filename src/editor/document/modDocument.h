// SPDX-License-Identifier: GPL-3.0-or-later
// Code windows as slots: birth, text in, and what they switch on and off in the main window.
#pragma once

#include <QByteArray>
#include <QString>

namespace ob {

class cDocument;

enum class Switch { Off, On };

// The active child's document when it is a code window with a control; else null.
cDocument* ActiveDocument();

// The active child's document; with another active child, or none, the box "No code window is active!" and null.
cDocument* NeedDocument();

// The number of a free slot, from 1: the first whose Tag is not "Open", which becomes "Open", else a new one.
int FreeDocumentSlot();

// Takes a free slot, names it "Document N" and shows it, empty. A window that is still open is cleared in one step
// that can be undone. Null when the edit control could not be made (a message has said so).
cDocument* NewDocument();

// Names the document and puts program text (ANSI) in at its caret; the caret goes to the start.
void SendToDocument(cDocument& document, const QByteArray& text, const QString& title);
void SendTextToDocument(cDocument& document, const QString& text, const QString& title);

// Menu items and toolbar buttons that need a code window, and those that hand code to the engine.
void EnableCodeCommands(Switch enable);
void EnableRunCommands(Switch enable);

} // namespace ob
