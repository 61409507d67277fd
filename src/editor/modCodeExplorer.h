// SPDX-License-Identifier: GPL-3.0-or-later
// Browsing the disk for BASIC source: drives, folders, the start of a file, and its opening.
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

// What a folder holds, hidden entries left out, sorted by name without regard to case. A folder that cannot be read
// holds nothing.
struct FolderContents {
    QStringList folders;
    QStringList files; // BASIC source only
};
FolderContents ReadFolder(const QString& folder);

// "*.bas" and "*.bak" in any case.
bool IsCodeFileName(QStringView name);

// The folders from the root down to and with the folder itself.
QStringList FolderChain(const QString& folder);

// The path of an entry in a folder. The empty name gives a path that ends in a separator.
QString PathIn(const QString& folder, const QString& name);

// The first 2000 bytes of a file as text. Raises PathFileAccess when it cannot be read.
QString CodePreview(const QString& path);

// Opens the file into a new code window; the recent list stays as it is. Throws RuntimeError as LoadDocumentFile does.
void OpenExploredFile(const QString& path);

} // namespace ob
