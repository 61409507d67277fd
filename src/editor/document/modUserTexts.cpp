// SPDX-License-Identifier: GPL-3.0-or-later
// The user's own texts next to the program: the programmer's comments and the custom keywords.
#include "editor/document/modUserTexts.h"

#include "editor/document/cDocument.h"
#include "editor/document/modStyling.h"
#include "editor/document/modSyntaxTable.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"

#include <QFile>

using namespace Qt::StringLiterals;

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

// The list is passed as a NUL-terminated text; words after a NUL must not be lost.
QByteArray WordsOf(const QByteArray& bytes)
{
    QByteArray words = bytes;
    return words.replace('\0', ' ');
}

} // namespace

QString WithLineEnds(const QString& text)
{
    QString lines = text;
    return lines.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1Char('\n'), QLatin1String("\r\n"));
}

std::optional<QByteArray> BytesToStore(const QString& text, const QString& what)
{
    const AnsiText encoded = AnsiFromText(WithLineEnds(text) + u"\r\n"_s);
    if (encoded.lostCount > 0) {
        const QString question = u"Line %1 of %2 holds a character that BASIC source files "
                                 "cannot store.\n"
                                 "Save with a question mark in place of each such character?"_s;
        if (MsgBox(question.arg(encoded.firstLostLine).arg(what), BoxIcon::Question, BoxButtons::YesNo) ==
            BoxAnswer::No)
            return std::nullopt;
    }
    return encoded.bytes;
}

QString CommentsPath(const QString& folder)
{
    return folder + u"/comments.txt"_s;
}

QString KeywordsPath(const QString& folder)
{
    return folder + u"/keywords.txt"_s;
}

QByteArray CommentText(const QByteArray& content)
{
    constexpr qsizetype lineEndLength = 2;
    if (content.isEmpty())
        return NoCommentsOnFile;
    return content.size() < lineEndLength ? QByteArray("") : content.chopped(lineEndLength);
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
    if (const auto bytes = BytesToStore(text, u"the comments"_s))
        ReplaceFile(CommentsPath(folder), *bytes);
}

void LoadCustomKeywords(const QString& folder)
{
    const QString words = TextFromAnsi(BytesOfFile(KeywordsPath(folder))).toLower();
    Words().LexerKeywords.prepend(WordsOf(AnsiFromText(words).bytes));
}

QString CustomKeywordText(const QString& folder)
{
    const QString path = KeywordsPath(folder);
    return FileExists(path) ? TextFromAnsi(ReadWhole(path)) : QString::fromLatin1(NoCustomKeywords);
}

KeywordSave AddCustomKeywords(const QString& folder, const QString& text)
{
    const QString words = text.toLower();
    if (words == QLatin1String(NoCustomKeywords))
        return KeywordSave::NothingToAdd;
    const auto bytes = BytesToStore(words, u"the keywords"_s);
    if (!bytes)
        return KeywordSave::Declined;
    ReplaceFile(KeywordsPath(folder), *bytes);
    constexpr qsizetype lineEndLength = 2;
    Words().LexerKeywords.append(WordsOf(bytes->chopped(lineEndLength)));
    return KeywordSave::Written;
}

void DeleteCustomKeywords(const QString& folder)
{
    const QString path = KeywordsPath(folder);
    QFile file(path);
    if (FileExists(path) && !file.remove())
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess, path, file.errorString());
    BuildSyntaxTable();
}

void UpdateKeywordsOfWindows()
{
    for (const auto& document : Documents)
        if (document != nullptr && document->sci != nullptr)
            UpdateKeywords(document->sci);
}

} // namespace ob
