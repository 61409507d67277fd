// SPDX-License-Identifier: GPL-3.0-or-later
// Code windows as slots: birth, text in, text out, and what they switch on and off in the main window.
#pragma once

#include <QByteArray>
#include <QByteArrayView>
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
// that can be undone. Null when the edit control could not be made (the user has been told).
cDocument* NewDocument();

inline const QString MissingFileText = QStringLiteral("File does not exist or is corrupt.");

// A file's bytes as the code window loads them: all but the last two, which the program's own save has put there.
// Fewer than two bytes raise InvalidCall.
QByteArray LoadedBytes(QByteArray bytes);

// Reads a file into the active document; the load itself can be undone. A missing file shows a box.
// Throws RuntimeError for a file that cannot be read or has fewer than two bytes.
void LoadDocumentFile(const QString& path);

// The caption, the recent list, the status text and the Tag of the window into which a file has just gone.
void AfterFileOpen(const QString& path);

// "game.bas  Size: 2048 KB   Last Modified: ..." (the number is bytes).
QString OpenedFileStatus(const QString& path);

// The bytes of a saved text (UTF-8): in the code page, one blank and a line end behind it. lostLine is the first line,
// from 1, with a character that the code page lacks ('?' stands in its place), or 0.
struct SavedText {
    QByteArray bytes;
    int lostLine = 0;
};
SavedText SavedBytes(QByteArrayView text);

enum class SaveEnd { Written, Declined };

// Writes the active document, which gains two blanks, and sets its save point. When a character cannot be stored the
// user is asked first. Throws RuntimeError when the file cannot be written; the document is then as it was.
SaveEnd SaveDocumentFile(const QString& path);
SaveEnd SaveDocumentFile(cDocument& document, const QString& path);

// Names the active document and puts program text (ANSI) in at its caret; the caret goes to the start.
void SendToDocument(const QByteArray& text, const QString& title);
void SendTextToDocument(const QString& text, const QString& title);

// Menu items and toolbar buttons that need a code window, and those that hand code to the engine.
void EnableCodeCommands(Switch enable);
void EnableRunCommands(Switch enable);

} // namespace ob
