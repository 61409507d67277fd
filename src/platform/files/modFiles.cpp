// SPDX-License-Identifier: GPL-3.0-or-later
// Files looked up, read, named and dated.
#include "platform/files/modFiles.h"

#include "platform/files/modNativePath.h"
#include "platform/language/cRuntimeError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

bool IsUsableName(const QString& path)
{
    return !path.isEmpty() && !path.contains(QChar::Null);
}

[[noreturn]] void Raise(ErrorNumber number, const QString& path)
{
    throw RuntimeErrorOf(number, QDir::toNativeSeparators(path));
}

std::optional<QString> FindParts(const QString& folder, const QStringList& parts)
{
    const QString& part = parts.first();
    const QStringList rest = parts.sliced(1);
    const QString front = folder + u'/';
    QStringList candidates;
    if (QFileInfo::exists(front + part))
        candidates += part;
    const QStringList entries =
        QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
    for (const QString& entry : entries) {
        if (entry != part && entry.compare(part, Qt::CaseInsensitive) == 0)
            candidates += entry;
    }
    if (rest.isEmpty())
        return candidates.isEmpty() ? std::nullopt : std::optional(candidates.first());
    for (const QString& candidate : std::as_const(candidates)) {
        if (const std::optional<QString> found = FindParts(front + candidate, rest))
            return candidate + QDir::separator() + *found;
    }
    return std::nullopt;
}

// A time format with seconds, added after the minutes with the mark that separates hours and minutes.
QString WithSeconds(QString format)
{
    const qsizetype minutes = format.indexOf(QLatin1String("mm"));
    if (minutes < 1 || format.contains(u's'))
        return format;
    const QChar mark = format[minutes - 1];
    return mark.isPunct() && mark != u'\'' ? format.insert(minutes + 2, mark + QLatin1String("ss")) : format;
}

QString WithWholeYear(QString format)
{
    if (!format.contains(QLatin1String("yyyy")))
        format.replace(QLatin1String("yy"), QLatin1String("yyyy"));
    return format;
}

QFileInfo ExistingFile(const QString& path)
{
    if (!FileExists(path))
        Raise(ErrorNumber::FileNotFound, path);
    return QFileInfo(path);
}

} // namespace

bool FileExists(const QString& path)
{
    if (!IsUsableName(path))
        return false;
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

bool FolderExists(const QString& path)
{
    return IsUsableName(path) && QFileInfo(path).isDir();
}

QByteArray ReadWhole(const QString& path)
{
    if (IsLostName(path))
        RequireWholeName(path);
    if (!IsUsableName(path) || !QFileInfo::exists(path))
        Raise(ErrorNumber::FileNotFound, path);
    // A pipe or an endless device would keep the reader for ever; a folder has no bytes.
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        Raise(ErrorNumber::PathFileAccess, path);
    // Files that the system generates as they are read have no size, and any file may grow while it is read.
    constexpr qint64 step = 1 << 16;
    QByteArray bytes(std::max(file.size() + 1, step), Qt::Uninitialized);
    qsizetype length = 0;
    for (;;) {
        if (length == bytes.size())
            bytes.resize(bytes.size() * 2);
        const qint64 count = file.read(bytes.data() + length, bytes.size() - length);
        if (file.error() != QFileDevice::NoError)
            Raise(ErrorNumber::DeviceIoError, path);
        if (count <= 0)
            break;
        length += count;
    }
    bytes.resize(length);
    return bytes;
}

QString NameOf(const QString& path)
{
    return path.sliced(FolderOf(path).size());
}

QString FolderOf(const QString& path)
{
    qsizetype separator = path.lastIndexOf(u'/');
    if (QDir::separator() == u'\\')
        separator = std::max(separator, path.lastIndexOf(u'\\'));
    return path.first(separator + 1);
}

qint64 SizeOf(const QString& path)
{
    return ExistingFile(path).size();
}

QDateTime ModifiedOf(const QString& path)
{
    return ExistingFile(path).lastModified();
}

QString FileDateText(const QString& path)
{
    return DateText(ModifiedOf(path), QLocale::system());
}

QString ShortDateText(QDate date, const QLocale& locale)
{
    return locale.toString(date, WithWholeYear(locale.dateFormat(QLocale::ShortFormat)));
}

QString DateText(const QDateTime& when, const QLocale& locale)
{
    const QString timeFormat = WithSeconds(locale.timeFormat(QLocale::ShortFormat));
    return ShortDateText(when.date(), locale) + u' ' + locale.toString(when.time(), timeFormat);
}

std::optional<QString> FindIgnoringCase(const QString& folder, const QString& name)
{
    if (!IsUsableName(name) || folder.contains(QChar::Null))
        return std::nullopt;
    QString separated = name;
    separated.replace(u'\\', u'/');
    const QStringList parts = separated.split(u'/', Qt::SkipEmptyParts);
    if (parts.isEmpty())
        return std::nullopt;
    const QString start = folder.isEmpty() ? u"."_s : folder;
    if (QFileInfo::exists(start + u'/' + name))
        return QDir::toNativeSeparators(name);
    return FindParts(start, parts);
}

} // namespace ob
