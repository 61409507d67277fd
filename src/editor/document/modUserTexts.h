// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own texts beside the program: the programmer's comments and the custom keywords.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace ob {

// What stands for the programmer's comments, and for the custom keywords, while there are none.
inline constexpr char NoCommentsOnFile[] = "'no programmer's comments on file";
inline constexpr char NoCustomKeywords[] = "no custom keywords found";

// The text with CR LF at the end of each line; lines that end in LF alone count too.
QString WithLineEnds(const QString& text);

// What a file of the text holds: its lines and one more line end, in the ANSI code page. When a character cannot be
// stored the user is asked whether "?" will do, what being the text's name ("the comments"); nothing when it will not.
std::optional<QByteArray> BytesToStore(const QString& text, const QString& what);

// Where the comments and the custom keywords of a program in folder lie.
QString CommentsPath(const QString& folder);
QString KeywordsPath(const QString& folder);

// The comment text that the bytes of a comments file hold: all but the last two, the line end behind it; in the ANSI
// code page, as content is. An empty content gives NoCommentsOnFile; a single byte is an empty text.
QByteArray CommentText(const QByteArray& content);

// CommentText of the comments file in folder; one that is missing or cannot be read counts as empty.
QByteArray ReadComments(const QString& folder);

// All bytes of the comments file in folder, in the ANSI code page; none when it is missing or cannot be read.
QByteArray LoadCommentFile(const QString& folder);

// Makes the text, with a line end behind it, the comments file of folder; its line ends become CR LF. When a character
// cannot be stored the user is asked first. Raises what ReplaceFile raises.
void SaveCommentFile(const QString& folder, const QString& text);

// Puts the keywords file of folder, in lower case and with its line end, in front of LexerKeywords. A
// file that is missing or cannot be read changes nothing. KeywordList never has custom keywords.
void LoadCustomKeywords(const QString& folder);

// What the keyword editor shows at first: the keywords file of folder, all of it, or NoCustomKeywords when there is
// none. Raises what ReadWhole raises.
QString CustomKeywordText(const QString& folder);

// Makes the text, in lower case and with a line end behind it, the keywords file of folder, and puts it at the end of
// LexerKeywords, with nothing between. NothingToAdd when the text is NoCustomKeywords, in any case; Declined when a
// character cannot be stored and the user does not want a question mark there. Raises what ReplaceFile raises.
enum class KeywordSave { Written, NothingToAdd, Declined };
KeywordSave AddCustomKeywords(const QString& folder, const QString& text);

// Deletes the keywords file of folder, if there is one, and brings LexerKeywords back to the language's own words.
// Raises PathFileAccess; nothing is changed then.
void DeleteCustomKeywords(const QString& folder);

// Gives LexerKeywords to each open code window.
void UpdateKeywordsOfWindows();

} // namespace ob
