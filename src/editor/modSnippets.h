// SPDX-License-Identifier: GPL-3.0-or-later
// The user's snippets: the library, a BASIC file of many, and the folder with a file for each.
#pragma once

#include <QString>
#include <QStringList>

namespace ob {

inline const QString SnippetFilter = QStringLiteral("Snippet Files (*.snip)|*.snip");

// Where the library and the snippets of a program in folder lie.
QString SnippetLibraryPath(const QString& folder);
QString SnippetsPath(const QString& folder);

// Writes the library's default into folder when there is no library. Raises what ReplaceFile raises.
void EnsureSnippetFile(const QString& folder);

// Makes the snippets folder of a program in folder, with the default snippets, when it is missing; one that is there
// stays as it is, empty or not. Raises PathNotFound, PathFileAccess and what ReplaceFile raises; nothing is left then,
// so that the next time makes all of it.
void EnsureSnippetFolder(const QString& folder);

// The names of the default snippets, and the writing of them into a folder that is there. The files are replaced.
// Raises what ReplaceFile raises, with the file's path as the source.
QStringList DefaultSnippetNames();
void WriteDefaultSnippets(const QString& folder);

// The names of the snippet files in a folder, sorted without regard to case. A folder that cannot be read has none.
QStringList SnippetNames(const QString& folder);

// A snippet's text: the file without its last two bytes, the line end of the save; fewer bytes are an empty text.
// Raises what ReadWhole raises.
QString SnippetText(const QString& path);

// The name under which a snippet is offered for saving: what would lead out of the snippets' folder becomes "-".
QString OfferedSnippetName(const QString& name);

// Writes the text, with a line end behind it, as a file; its line ends become CR LF. When a character cannot be stored
// the user is asked first. Raises what ReplaceFile raises.
enum class SnippetSave { Written, Declined };
SnippetSave SaveSnippet(const QString& path, const QString& text);

// Deletes the file; one that is gone already is as good. Raises PathFileAccess.
void DeleteSnippet(const QString& path);

// Puts the text in at the caret of the active code window, in place of the selection. Without such a window the box
// tells so. One step to undo.
enum class SnippetInsert { Done, NoWindow };
SnippetInsert InsertSnippet(const QString& text);

// Opens the library in a code window.
void mnuToolSnippet_Click();

} // namespace ob
