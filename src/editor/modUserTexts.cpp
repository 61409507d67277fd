// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own texts beside the program: the programmer's comments and the custom keywords.
#include "editor/modUserTexts.h"

#include "editor/modSyntaxTable.h"
#include "platform/cRuntimeError.h"

#include <QFile>

namespace ob {

namespace {

// The file's bytes; none when it is missing or cannot be read.
QByteArray BytesOfFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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

void LoadCustomKeywords(const QString& folder)
{
    LexerKeywords.prepend(BytesOfFile(KeywordsPath(folder)).toLower());
}

} // namespace ob
