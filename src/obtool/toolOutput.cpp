// SPDX-License-Identifier: GPL-3.0-or-later
// Reading and writing for the command line.
#include "obtool/toolOutput.h"

#include "editor/files/modDocumentFile.h"
#include "platform/files/modFiles.h"
#include "platform/language/modAnsi.h"

#include <QFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace ob {

QString TextOf(const std::string& argument)
{
    return QString::fromLocal8Bit(argument.data(), static_cast<qsizetype>(argument.size()));
}

QString PathOf(const std::string& argument)
{
    // Another name than the given one would be written, and two such names would be one.
    const QString path = TextOf(argument);
    if (QFile::encodeName(path).toStdString() != argument)
        throw ToolFailure(argument, u"the name has bytes that are not characters of this system"_s);
    return path;
}

static QByteArray ReadBytes(const std::string& file)
{
    if (file == "-") {
        QFile input;
        if (!input.open(stdin, QIODevice::ReadOnly))
            throw ToolFailure(file, input.errorString());
        QByteArray bytes = input.readAll();
        if (input.error() != QFileDevice::NoError)
            throw ToolFailure(file, input.errorString());
        return bytes;
    }
    if (!FileExists(PathOf(file)) && !FolderExists(PathOf(file)))
        throw ToolFailure(file, MissingFileText);
    return ReadWhole(PathOf(file));
}

QByteArray ReadInput(const std::string& file)
{
    return OnFile(file, [&] { return ReadBytes(file); });
}

QByteArray ReadSource(const std::string& file)
{
    return OnFile(file, [&] { return LoadedBytes(ReadInput(file)); });
}

void WriteOutput(const std::string& out, QByteArrayView bytes)
{
    if (!out.empty()) {
        OnFile(out, [&] { ReplaceFile(PathOf(out), bytes, Durability::Unsynced); });
        return;
    }
    // Without bytes the pointer may be null.
    const auto size = static_cast<std::size_t>(bytes.size());
    if ((size != 0 && std::fwrite(bytes.data(), 1, size, stdout) != size) || std::fflush(stdout) != 0)
        throw ToolFailure("standard output", u"cannot be written"_s);
}

std::string& AnswerFile()
{
    static std::string file;
    return file;
}

void WriteAnswer(QByteArrayView bytes)
{
    WriteOutput(AnswerFile(), bytes);
}

void WriteNote(QString text)
{
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    text.replace(QLatin1Char('\n'), QLatin1Char(' '));
    std::fprintf(stderr, "obtool: note: %s\n", text.trimmed().toUtf8().constData());
}

void WriteNote(const std::string& file, const QString& text)
{
    const QString name = TextOf(file);
    WriteNote(text.contains(name) ? text : name + u": "_s + text);
}

void WriteProgramText(const QString& text)
{
    const AnsiText ansi = AnsiFromText(text);
    WriteAnswer(ansi.bytes);
    if (ansi.lostCount > 0)
        WriteNote(u"Characters that the code page lacks became question marks."_s);
}

} // namespace ob
