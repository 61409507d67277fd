// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk: drives, folders, and the files of a folder that match patterns.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>
#include <QStringView>

namespace ob {

// A place where browsing can start.
struct Drive {
    QString path;
    QString caption;
};

// The system's drives or its root, and the user's home. Asks no disk.
QList<Drive> NearDrives();

// Disks and shares that are mounted elsewhere. A disk that does not answer holds this up.
QList<Drive> MountedDrives();

// Whether a mounted volume is one that a user keeps files on: a disk or a share, not a part of the system.
bool IsUserVolume(const QString& root, const QByteArray& device);

// The place in the list that holds the folder, the innermost one; -1 when none does.
int DriveOf(const QList<Drive>& drives, const QString& folder);

// Whether a name fits a pattern in which "*" is any run of characters and "?" any one, in any case. "*.*" fits every
// name, also one without a dot.
bool MatchesPattern(QStringView name, QStringView pattern);
bool MatchesAny(QStringView name, const QStringList& patterns);

// What a folder holds, hidden entries left out, sorted by name without regard to case: its folders, and the regular
// files that match one of the patterns. A folder that cannot be read holds nothing.
struct FolderContents {
    QStringList folders;
    QStringList files;
};
FolderContents ReadFolder(const QString& folder, const QStringList& patterns);

// The folders from the root down to and with the folder itself.
QStringList FolderChain(const QString& folder);

// The path of an entry in a folder. The empty name gives a path that ends in a separator.
QString PathIn(const QString& folder, const QString& name);

} // namespace ob
