// SPDX-License-Identifier: GPL-3.0-or-later
// Files in and out of code windows: the load and the save themselves.
#pragma once

#include "platform/files/modFiles.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace ob {

class cDocument;

inline const QString MissingFileText = QStringLiteral("File does not exist or is corrupt.");

// A file's bytes as the code window loads them: all but the last two, which the program's own save appends. Fewer than
// two bytes raise InvalidCall with the path as its file.
QByteArray LoadedBytes(QByteArray bytes, const QString& path = {});

// Reads a file into the document; the load itself can be undone. A missing file shows a box.
// Throws RuntimeError for a file that cannot be read or has fewer than two bytes.
void LoadDocumentFile(cDocument& document, const QString& path);

// Updates the caption, the recent list, the status text and the Tag of the window into which a file has just been
// loaded.
void AfterFileOpen(cDocument& document, const QString& path);

// "game.bas  Size: 2048 KB   Last Modified: ..." (the number is bytes).
QString OpenedFileStatus(const QString& path);

// Puts it into the status bar, followed by the first line that is too long to be shown in colour, if there is one. The
// document has a window.
void ShowOpenedFile(const cDocument& document, const QString& path);

// The choices in which the ways to open a file differ.
enum class OpenChoice : unsigned {
    Recent = 1,     // the file goes to the top of the recent list
    LastFolder = 2, // its folder becomes the initial folder of file boxes
    Status = 4,     // the status bar shows its size and date
    Tag = 8,        // the slot stays taken until the window is saved or closed
};
using OpenChoices = unsigned;
constexpr OpenChoices operator|(OpenChoice a, OpenChoice b)
{
    return static_cast<unsigned>(a) | static_cast<unsigned>(b);
}
constexpr OpenChoices operator|(OpenChoices a, OpenChoice b)
{
    return a | static_cast<unsigned>(b);
}

// Opens a file in a new code window, whose caption is its path; null when no window could be created. Throws as
// LoadDocumentFile does; the window then exists, empty.
cDocument* OpenInNewWindow(const QString& path, OpenChoices choices = 0);

// The bytes of a saved text (UTF-8): in the code page, followed by a space and a line end. lostLine is the first line,
// from 1, with a character that the code page lacks ('?' is in its place), or 0.
struct SavedText {
    QByteArray bytes;
    int lostLine = 0;
};
SavedText SavedBytes(QByteArrayView text);

enum class SaveEnd { Written, Declined };

// Writes the document, which gains two spaces, and sets its save point. When a character cannot be stored the user is
// asked first. Throws RuntimeError when the file cannot be written; the document is then unchanged.
SaveEnd SaveDocumentFile(cDocument& document, const QString& path, Durability durability = Durability::Synced);

} // namespace ob
