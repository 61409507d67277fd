// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own texts beside the program: the programmer's comments and the custom keywords.
#pragma once

#include <QByteArray>
#include <QString>

namespace ob {

// What stands for the programmer's comments while there are none.
inline constexpr char NoCommentsOnFile[] = "'no programmer's comments on file";

// Where the comments and the custom keywords of a program in folder lie.
QString CommentsPath(const QString& folder);
QString KeywordsPath(const QString& folder);

// The comment text that the bytes of a comments file hold: all but the last two, the line end behind it; in the ANSI
// code page, as content is. An empty content gives NoCommentsOnFile. A single byte has no line end to drop: throws
// RuntimeError InvalidCall.
QByteArray CommentText(const QByteArray& content);

// CommentText of the comments file in folder; one that is missing or cannot be read counts as empty.
QByteArray ReadComments(const QString& folder);

// All bytes of the comments file in folder, in the ANSI code page; none when it is missing or cannot be read.
QByteArray LoadCommentFile(const QString& folder);

// Makes the text, with a line end behind it, the comments file of folder; its line ends become CR LF. When a character
// cannot be stored the user is asked first. Raises what ReplaceFile raises.
void SaveCommentFile(const QString& folder, const QString& text);

// Puts the keywords file of folder, in lower case (ASCII letters) and with its line end, in front of LexerKeywords. A
// file that is missing or cannot be read changes nothing. KeywordList never has custom keywords.
void LoadCustomKeywords(const QString& folder);

} // namespace ob
