// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk.
#include "platform/files/modFolders.h"

#include <QDir>
#include <QDirIterator>
#include <QStorageInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

void SortNames(QStringList& names)
{
    std::sort(names.begin(), names.end(), [](const QString& left, const QString& right) {
        const int order = left.compare(right, Qt::CaseInsensitive);
        return order != 0 ? order < 0 : left < right;
    });
}

bool Holds(const QString& drive, const QString& folder)
{
    if (!folder.startsWith(drive))
        return false;
    return folder.size() == drive.size() || drive.endsWith(QLatin1Char('/')) ||
           folder[drive.size()] == QLatin1Char('/');
}

// A star that met the text after it never needs to be tried again further on; without that, which the toolkit's own
// conversion lacks, the work doubles with each star.
QString ExpressionOf(const QString& pattern)
{
    QStringList pieces;
    for (const QString& piece : pattern.split(QLatin1Char('*')))
        pieces.append(QRegularExpression::escape(piece).replace(QLatin1String("\\?"), QLatin1String(".")));
    QString expression = pieces.takeFirst();
    if (pieces.isEmpty())
        return expression;
    const QString last = pieces.takeLast();
    for (const QString& piece : pieces)
        expression += u"(?>.*?%1)"_s.arg(piece);
    return expression + u".*"_s + last;
}

} // namespace

QList<Drive> NearDrives()
{
    QList<Drive> drives;
    for (const QFileInfo& root : QDir::drives())
        drives.append({root.path(), QDir::toNativeSeparators(root.path())});
    const QString home = QDir::homePath();
    if (!home.isEmpty() &&
        std::none_of(drives.begin(), drives.end(), [&](const Drive& each) { return each.path == home; }))
        drives.append({home, QDir::toNativeSeparators(home) + u" (home)"_s});
    return drives;
}

bool IsUserVolume(const QString& root, const QByteArray& device)
{
    const bool isDisk = device.startsWith("/dev/") && !device.startsWith("/dev/loop");
    const bool isShare = device.startsWith("//") || device.contains(":/");
    const bool isSystem = root == QLatin1String("/boot") || root.startsWith(QLatin1String("/boot/"));
    return (isDisk || isShare) && !isSystem;
}

QList<Drive> MountedDrives()
{
    QList<Drive> drives;
    for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
        const QString root = volume.rootPath();
        // A single file can be a mount of its own.
        if (!IsUserVolume(root, volume.device()) || !volume.isReady() || !QFileInfo(root).isDir())
            continue;
        const QString label = volume.name();
        const QString path = QDir::toNativeSeparators(root);
        drives.append({root, label.isEmpty() ? path : path + u" (%1)"_s.arg(label)});
    }
    return drives;
}

int DriveOf(const QList<Drive>& drives, const QString& folder)
{
    qsizetype best = -1;
    for (qsizetype i = 0; i < drives.size(); ++i)
        if (Holds(drives[i].path, folder) && (best < 0 || drives[i].path.size() > drives[best].path.size()))
            best = i;
    return static_cast<int>(best);
}

QRegularExpression NamePattern(const QStringList& patterns)
{
    QStringList expressions = {u"(?!)"_s}; // nothing fits no pattern
    for (const QString& pattern : patterns)
        expressions.append(ExpressionOf(pattern == QLatin1String("*.*") ? u"*"_s : pattern));
    return QRegularExpression(u"\\A(?:%1)\\z"_s.arg(expressions.join(QLatin1Char('|'))),
                              QRegularExpression::CaseInsensitiveOption |
                                  QRegularExpression::DotMatchesEverythingOption);
}

bool Fits(const QString& name, const QRegularExpression& pattern)
{
    return pattern.match(name).hasMatch();
}

FolderContents ReadFolder(const QString& folder, const QStringList& patterns)
{
    FolderContents contents;
    contents.isThere = QFileInfo(folder).isDir();
    const QRegularExpression wanted = NamePattern(patterns);
    QDirIterator entries(folder, QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const QString name = entries.fileName();
        if (entries.fileInfo().isDir())
            contents.folders.append(name);
        else if (Fits(name, wanted) && entries.fileInfo().isFile()) // no link to a pipe
            contents.files.append(name);
    }
    SortNames(contents.folders);
    SortNames(contents.files);
    return contents;
}

QStringList FolderChain(const QString& folder)
{
    QStringList chain;
    const QString path = QDir::cleanPath(folder);
    for (qsizetype end = path.indexOf(QLatin1Char('/')); end >= 0; end = path.indexOf(QLatin1Char('/'), end + 1))
        chain.append(chain.isEmpty() ? path.first(end + 1) : path.first(end));
    if (chain.isEmpty() || chain.last() != path)
        chain.append(path);
    return chain;
}

QString CopyNameOf(const QString& path)
{
    const QFileInfo file(path);
    const QString name = file.completeBaseName() + u" copy"_s;
    return file.suffix().isEmpty() ? name : name + u'.' + file.suffix();
}

QString PathIn(const QString& folder, const QString& name)
{
    const QString path = QDir::toNativeSeparators(folder);
    return path.endsWith(QDir::separator()) ? path + name : path + QDir::separator() + name;
}

} // namespace ob
