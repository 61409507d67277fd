// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk: drives, folders, and the files of a folder that match patterns.
#pragma once

#include <QByteArray>
#include <QList>
#include <QRegularExpression>
#include <QString>
#include <QStringList>

namespace ob {

// A place where browsing can start.
struct Drive {
    QString path;
    QString caption;
};

// The system's drives or its root, and the user's home. Accesses no disk.
QList<Drive> NearDrives();

// Disks and shares that are mounted elsewhere. A disk that does not respond blocks this.
QList<Drive> MountedDrives();

// Whether a mounted volume is for the user's files: a disk or a share, not a part of the system.
bool IsUserVolume(const QString& root, const QByteArray& device);

// The index of the innermost drive that contains the folder; -1 for none.
int DriveOf(const QList<Drive>& drives, const QString& folder);

// Patterns in which "*" is any run of characters and "?" any one, in any case, as one expression. Every other character
// is itself, a bracket too; "*.*" fits every name, also one without a dot.
QRegularExpression NamePattern(const QStringList& patterns);
bool Fits(const QString& name, const QRegularExpression& pattern);

// The contents of a folder without hidden entries, sorted by name ignoring case: its folders, and the regular files
// that match one of the patterns. Empty for a folder that cannot be read.
struct FolderContents {
    QStringList folders;
    QStringList files;
    bool isThere = false; // the folder itself, whether or not it can be read
};
FolderContents ReadFolder(const QString& folder, const QStringList& patterns);

// The folders from the root down to the folder itself, inclusive.
QStringList FolderChain(const QString& folder);

// The name to offer for a copy of a file, "rose copy.jpg".
QString CopyNameOf(const QString& path);

// The path of an entry in a folder. The empty name gives a path that ends in a separator.
QString PathIn(const QString& folder, const QString& name);

} // namespace ob
