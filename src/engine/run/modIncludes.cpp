// SPDX-License-Identifier: GPL-3.0-or-later
// Include lines: found at the top of a program, their files appended to its copy.
#include "engine/run/modIncludes.h"

#include "editor/document/cDocument.h"
#include "platform/files/modFiles.h"
#include "platform/language/cLines.h"
#include "platform/language/modAnsi.h"
#include "platform/language/modRuntime.h"

#include <QDir>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr QByteArrayView IncludeWord = "'include";

// The position of the word in the line, case-insensitively; -1 when it is not there.
qsizetype FindIncludeWord(QByteArrayView line)
{
    for (qsizetype at = line.indexOf('\''); at >= 0; at = line.indexOf('\'', at + 1))
        if (at + IncludeWord.size() <= line.size() &&
            EqualsIgnoreCase(line.sliced(at, IncludeWord.size()), IncludeWord))
            return at;
    return -1;
}

// The name on an include line; nothing when the line is of another kind.
std::optional<QByteArrayView> IncludeName(QByteArrayView line)
{
    line = TrimSpaces(line);
    const qsizetype word = FindIncludeWord(line);
    if (word < 0)
        return std::nullopt;
    // The character after the word is skipped, whatever it is.
    const QByteArrayView name = line.sliced(std::min(line.size(), word + IncludeWord.size() + 1));
    return TrimSpaces(name);
}

// The name on disk, limited to the characters of the code page.
QString DecodedName(QByteArrayView name, TextEncoding encoding)
{
    return TextFromAnsi(encoding == TextEncoding::Ansi ? name : QByteArrayView(EncodeAnsi(name).bytes));
}

// The folder may end with a separator or not. The empty one is the current folder and must be prepended too: the name
// may begin with a separator.
QString InFolder(const QString& folder, const QString& name)
{
    return (folder.isEmpty() ? u"."_s : folder) + QDir::separator() + name;
}

} // namespace

QByteArray IncludedText(QByteArrayView program, TextEncoding encoding, const QString& folder)
{
    QByteArray result;
    for (cLines lines(program); lines.Next();) {
        const auto name = IncludeName(lines.Line());
        if (!name)
            break;
        QString wanted = DecodedName(*name, encoding);
        wanted.replace(QLatin1Char('\\'), QDir::separator());
        const auto found = FindIgnoringCase(folder, wanted);
        if (!found)
            continue;
        const QString path = InFolder(folder, *found);
        if (!FileExists(path))
            continue;
        result += "'*******************************\r\n'";
        result += AnsiFromText(NameOf(path)).bytes;
        result += " begins here:\r\n\r\n";
        result += ReadWhole(path);
    }
    return result;
}

QByteArray CheckIncludes(const cDocument& document, const QString& folder)
{
    return IncludedText(QByteArrayView(SciText(document.sci)), TextEncoding::Utf8, folder);
}

} // namespace ob
