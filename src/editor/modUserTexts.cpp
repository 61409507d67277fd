// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own texts beside the program: the programmer's comments and the custom keywords.
#include "editor/modUserTexts.h"

#include "editor/modSyntaxTable.h"
#include "platform/cRuntimeError.h"
#include "platform/modAnsi.h"
#include "platform/modDialogs.h"
#include "platform/modFiles.h"

namespace ob {

namespace {

// The file's bytes; none when it is missing or cannot be read.
QByteArray BytesOfFile(const QString& path)
{
    try {
        return ReadWhole(path);
    } catch (const RuntimeError&) {
        return {};
    }
}

} // namespace

QString CommentsPath(const QString& folder)
{
    return folder + QStringLiteral("/comments.txt");
}

QString KeywordsPath(const QString& folder)
{
    return folder + QStringLiteral("/keywords.txt");
}

QByteArray CommentText(const QByteArray& content)
{
    constexpr qsizetype lineEndLength = 2;
    if (content.isEmpty())
        return NoCommentsOnFile;
    if (content.size() < lineEndLength)
        throw RuntimeErrorOf(ErrorNumber::InvalidCall);
    return content.chopped(lineEndLength);
}

QByteArray ReadComments(const QString& folder)
{
    return CommentText(BytesOfFile(CommentsPath(folder)));
}

QByteArray LoadCommentFile(const QString& folder)
{
    return BytesOfFile(CommentsPath(folder));
}

void SaveCommentFile(const QString& folder, const QString& text)
{
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    const AnsiText encoded = AnsiFromText(lines + QStringLiteral("\r\n"));
    if (encoded.lostCount > 0) {
        const QString question = QStringLiteral("Line %1 of the comments holds a character that BASIC source files "
                                                "cannot store.\n"
                                                "Save with a question mark in place of each such character?");
        if (MsgBox(question.arg(encoded.firstLostLine), BoxIcon::Question, BoxButtons::YesNo) == BoxAnswer::No)
            return;
    }
    ReplaceFile(CommentsPath(folder), encoded.bytes);
}

void LoadCustomKeywords(const QString& folder)
{
    QByteArray words = BytesOfFile(KeywordsPath(folder)).toLower();
    // The list travels as a text that ends at a NUL; the language's own words behind must not be lost to one.
    words.replace('\0', ' ');
    LexerKeywords.prepend(words);
}

} // namespace ob
