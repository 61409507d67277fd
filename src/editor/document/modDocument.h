// SPDX-License-Identifier: GPL-3.0-or-later
// Code windows as slots: creation, text, and what they enable and disable in the main window.
#pragma once

#include <QByteArray>
#include <QString>

namespace ob {

class cDocument;

enum class Switch { Off, On };

// The active child's document when it is a code window with a control; otherwise null.
cDocument* ActiveDocument();

// The active child's document; when another child or none is active, shows the box "No code window is active!" and
// returns null.
cDocument* NeedDocument();

// The number of a free slot, from 1: the first whose Tag is not "Open", which becomes "Open", or else a new one.
int FreeDocumentSlot();

// Takes a free slot, names it "Document N" and shows it, empty. A window that is still open is cleared in a single step
// that can be undone. Null when the edit control could not be created (a message has been shown).
cDocument* NewDocument();

// Names the document and inserts program text (ANSI) at its caret; the caret goes to the start.
void SendToDocument(cDocument& document, const QByteArray& text, const QString& title);
void SendTextToDocument(cDocument& document, const QString& text, const QString& title);

// Menu items and toolbar buttons that need a code window, and those that pass code to the engine.
void EnableCodeCommands(Switch enable);
void EnableRunCommands(Switch enable);

} // namespace ob
