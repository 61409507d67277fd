// SPDX-License-Identifier: GPL-3.0-or-later
// The user's snippets.
#include "editor/modSnippets.h"

#include "editor/document/cDocument.h"
#include "editor/document/modDocument.h"
#include "editor/document/modInsert.h"
#include "editor/document/modUserTexts.h"
#include "editor/files/modDocumentFile.h"
#include "platform/dialogs/modDialogs.h"
#include "platform/files/modFiles.h"
#include "platform/files/modPaths.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modAnsi.h"
#include "platform/language/modRuntime.h"
#include "shell/state/modTexts.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr QLatin1String Ending(".snip");

QString InFolder(const QString& folder, const QString& name)
{
    return folder + QLatin1Char('/') + name;
}

void WriteEmbedded(const QString& name, const QString& path)
{
    const auto text = EmbeddedText(name);
    if (!text)
        throw RuntimeErrorOf(ErrorNumber::FileNotFound, name);
    ReplaceFile(path, QByteArrayView(*text), Durability::Unsynced);
}

void MakeFolder(const QString& path)
{
    if (QDir().mkdir(path))
        return;
    const bool parentIsThere = FolderExists(QFileInfo(path).path());
    throw RuntimeErrorOf(parentIsThere ? ErrorNumber::PathFileAccess : ErrorNumber::PathNotFound,
                         QDir::toNativeSeparators(path));
}

} // namespace

QString SnippetLibraryPath(const QString& folder)
{
    return InFolder(folder, u"snippets.bas"_s);
}

QString SnippetsPath(const QString& folder)
{
    return InFolder(folder, u"snippets"_s);
}

void EnsureSnippetFile(const QString& folder)
{
    const QString path = SnippetLibraryPath(folder);
    if (!FileExists(path))
        WriteEmbedded(u"snippets.bas"_s, path);
}

void EnsureSnippetFolder(const QString& folder)
{
    const QString path = SnippetsPath(folder);
    if (FolderExists(path))
        return;
    MakeFolder(path);
    try {
        WriteDefaultSnippets(path);
    } catch (const RuntimeError&) {
        QDir(path).removeRecursively();
        throw;
    }
}

QStringList DefaultSnippetNames()
{
    return {u"center_dialog.snip"_s, u"text_linewrap.snip"_s, u"password_textbox.snip"_s,
            u"center_window.snip"_s, u"play_midi.snip"_s,     u"custom_cursor.snip"_s};
}

void WriteDefaultSnippets(const QString& folder)
{
    for (const QString& name : DefaultSnippetNames())
        WriteEmbedded(name, InFolder(folder, name));
}

QStringList SnippetNames(const QString& folder)
{
    QStringList names;
    QDirIterator entries(folder, QDir::Files);
    while (entries.hasNext()) {
        entries.next();
        const QString name = entries.fileName();
        if (name.size() >= Ending.size() && EqualsIgnoreCase(QStringView(name).last(Ending.size()), Ending) &&
            entries.fileInfo().isFile()) // excludes a link to a pipe
            names.append(name);
    }
    std::sort(names.begin(), names.end(), [](const QString& left, const QString& right) {
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left < right;
    });
    return names;
}

QString SnippetText(const QString& path)
{
    constexpr qsizetype lineEndLength = 2;
    const QByteArray bytes = ReadWhole(path);
    return bytes.size() < lineEndLength ? QString() : TextFromAnsi(QByteArrayView(bytes).chopped(lineEndLength));
}

QString OfferedSnippetName(const QString& name)
{
    QString offered = name;
    for (const QChar separator : {QLatin1Char('/'), QLatin1Char('\\'), QLatin1Char('\0')})
        offered.replace(separator, QLatin1Char('-'));
    const bool isFolder = offered == QLatin1String(".") || offered == QLatin1String("..");
    return isFolder ? offered.replace(QLatin1Char('.'), QLatin1Char('-')) : offered;
}

SnippetSave SaveSnippet(const QString& path, const QString& text)
{
    const auto bytes = BytesToStore(text, u"the snippet"_s);
    if (!bytes)
        return SnippetSave::Declined;
    ReplaceFile(path, *bytes);
    return SnippetSave::Written;
}

void DeleteSnippet(const QString& path)
{
    QFile file(path);
    if (!file.remove() && FileExists(path))
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess, path, file.errorString());
}

SnippetInsert InsertSnippet(const QString& text)
{
    const cDocument* document = NeedDocument();
    if (document == nullptr)
        return SnippetInsert::NoWindow;
    InsertAtCaret(*document, text);
    return SnippetInsert::Done;
}

void mnuToolSnippet_Click()
{
    const QString path = SnippetLibraryPath(ProgramFolder());
    try {
        EnsureSnippetFile(ProgramFolder());
    } catch (const RuntimeError& error) {
        // The message below reports it.
        ShowReason(error);
    }
    if (!FileExists(path)) {
        MsgBox(u"Snippets.bas not found!"_s, BoxIcon::Critical);
        return;
    }
    OpenInNewWindow(QDir::toNativeSeparators(path), static_cast<OpenChoices>(OpenChoice::Tag));
}

} // namespace ob
