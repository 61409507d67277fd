// SPDX-License-Identifier: GPL-3.0-or-later
// The user's snippets: the library, a single BASIC file of many, and the folder with a file for each.
#pragma once

#include <QString>
#include <QStringList>

namespace ob {

inline const QString SnippetFilter = QStringLiteral("Snippet Files (*.snip)|*.snip");

// The paths of the library and of the snippets for a program in folder.
QString SnippetLibraryPath(const QString& folder);
QString SnippetsPath(const QString& folder);

// Writes the default library into folder when there is none. Raises what ReplaceFile raises.
void EnsureSnippetFile(const QString& folder);

// Creates the snippets folder for a program in folder, with the default snippets, when it is missing; an existing one
// is left alone, empty or not. Raises PathNotFound, PathFileAccess and what ReplaceFile raises; then nothing remains,
// so that the next attempt creates all of it.
void EnsureSnippetFolder(const QString& folder);

// The names of the default snippets, and their writing into an existing folder. Files of these names are replaced.
// Raises what ReplaceFile raises, with the file's path as the source.
QStringList DefaultSnippetNames();
void WriteDefaultSnippets(const QString& folder);

// The names of the snippet files in a folder, sorted case-insensitively. Empty for a folder that cannot be read.
QStringList SnippetNames(const QString& folder);

// A snippet's text: the file without its last two bytes, the line end added when saving; a shorter file is an empty
// text. Raises what ReadWhole raises.
QString SnippetText(const QString& path);

// The suggested name for saving a snippet: characters that would lead out of the snippets folder become "-".
QString OfferedSnippetName(const QString& name);

// Writes the text, followed by a line end, to a file; its line ends become CR LF. When a character cannot be stored the
// user is asked first. Raises what ReplaceFile raises.
enum class SnippetSave { Written, Declined };
SnippetSave SaveSnippet(const QString& path, const QString& text);

// Deletes the file; succeeds when it is gone already. Raises PathFileAccess.
void DeleteSnippet(const QString& path);

// Inserts the text at the caret of the active code window, replacing the selection. Without such a window, shows a
// message. A single undo step.
enum class SnippetInsert { Done, NoWindow };
SnippetInsert InsertSnippet(const QString& text);

// Opens the library in a code window.
void mnuToolSnippet_Click();

} // namespace ob
