// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk.
#include "platform/files/modFolders.h"

#include <QDir>
#include <QDirIterator>
#include <QStorageInfo>

#include <algorithm>

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

} // namespace

QList<Drive> NearDrives()
{
    QList<Drive> drives;
    for (const QFileInfo& root : QDir::drives())
        drives.append({root.path(), QDir::toNativeSeparators(root.path())});
    const QString home = QDir::homePath();
    if (!home.isEmpty() &&
        std::none_of(drives.begin(), drives.end(), [&](const Drive& each) { return each.path == home; }))
        drives.append({home, QDir::toNativeSeparators(home) + QStringLiteral(" (home)")});
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
        drives.append({root, label.isEmpty() ? path : path + QStringLiteral(" (%1)").arg(label)});
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

// Goes back to the last "*" when the text after it does not match, so the work is at most proportional to name times
// pattern.
bool MatchesPattern(QStringView name, QStringView pattern)
{
    if (pattern == QLatin1String("*.*"))
        return true;
    qsizetype at = 0;
    qsizetype place = 0;
    qsizetype star = -1;
    qsizetype starAt = 0;
    while (at < name.size()) {
        if (place < pattern.size() && pattern[place] == QLatin1Char('*')) {
            star = place++;
            starAt = at;
        } else if (place < pattern.size() &&
                   (pattern[place] == QLatin1Char('?') || pattern[place].toCaseFolded() == name[at].toCaseFolded())) {
            ++place;
            ++at;
        } else if (star >= 0) {
            place = star + 1;
            at = ++starAt;
        } else {
            return false;
        }
    }
    while (place < pattern.size() && pattern[place] == QLatin1Char('*'))
        ++place;
    return place == pattern.size();
}

bool MatchesAny(QStringView name, const QStringList& patterns)
{
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const QString& pattern) { return MatchesPattern(name, pattern); });
}

FolderContents ReadFolder(const QString& folder, const QStringList& patterns)
{
    FolderContents contents;
    QDirIterator entries(folder, QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const QString name = entries.fileName();
        if (entries.fileInfo().isDir())
            contents.folders.append(name);
        else if (MatchesAny(name, patterns) && entries.fileInfo().isFile()) // no link to a pipe
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

QString PathIn(const QString& folder, const QString& name)
{
    const QString path = QDir::toNativeSeparators(folder);
    return path.endsWith(QDir::separator()) ? path + name : path + QDir::separator() + name;
}

} // namespace ob
