// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own texts next to the program: the programmer's comments and the custom keywords.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ob {

// Shown in place of the programmer's comments, and of the custom keywords, while there are none.
inline constexpr char NoCommentsOnFile[] = "'no programmer's comments on file";
inline constexpr char NoCustomKeywords[] = "no custom keywords found";

// The text with CR LF at the end of each line; lines that end with LF alone count too.
QString WithLineEnds(const QString& text);

// The contents of a file for the text: its lines and one more line end, in the ANSI code page. When a character cannot
// be stored, asks whether "?" may replace it, with what as the text's name ("the comments"); nothing when the user
// declines.
std::optional<QByteArray> BytesToStore(const QString& text, const QString& what);

// The paths of the comments and of the custom keywords for a program in folder.
QString CommentsPath(const QString& folder);
QString KeywordsPath(const QString& folder);

// The comment text in the bytes of a comments file: all but the last two, which are the line end; in the ANSI code
// page, like content. An empty content gives NoCommentsOnFile; a single byte is an empty text.
QByteArray CommentText(const QByteArray& content);

// CommentText of the comments file in folder; a file that is missing or cannot be read counts as empty.
QByteArray ReadComments(const QString& folder);

// All bytes of the comments file in folder, in the ANSI code page; none when it is missing or cannot be read.
QByteArray LoadCommentFile(const QString& folder);

// Saves the text, followed by a line end, as the comments file of folder; its line ends become CR LF. When a character
// cannot be stored the user is asked first. Raises what ReplaceFile raises.
void SaveCommentFile(const QString& folder, const QString& text);

// Prepends the keywords file of folder, in lower case and with its line end, to LexerKeywords. A file that is missing
// or cannot be read changes nothing. KeywordList never has custom keywords.
void LoadCustomKeywords(const QString& folder);

// What the keyword editor shows at first: the whole keywords file of folder, or NoCustomKeywords when there is none.
// Raises what ReadWhole raises.
QString CustomKeywordText(const QString& folder);

// Saves the text, in lower case and followed by a line end, as the keywords file of folder, and appends it to
// LexerKeywords with nothing in between. NothingToAdd when the text is NoCustomKeywords, in any case; Declined when a
// character cannot be stored and the user does not want a question mark instead. Raises what ReplaceFile raises.
enum class KeywordSave { Written, NothingToAdd, Declined };
KeywordSave AddCustomKeywords(const QString& folder, const QString& text);

// Deletes the keywords file of folder, if there is one, and resets LexerKeywords to the language's own words. Raises
// PathFileAccess; nothing is changed then.
void DeleteCustomKeywords(const QString& folder);

// Passes LexerKeywords to each open code window.
void UpdateKeywordsOfWindows();

} // namespace ob
