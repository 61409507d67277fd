// SPDX-License-Identifier: GPL-3.0-or-later
// Files on disk: looking them up, reading them whole, and writing them so that a failure costs no old file.
//
// The routines that write raise: DiskFull (also a quota or a size limit), PathNotFound (the folder is missing),
// PathFileAccess (a folder, a write-protected file, a folder that takes no new file), PermissionDenied (in use by
// another program), DeviceIoError (anything else that the disk reports); the error's reason is the system's text.
#pragma once

#include "platform/files/modSync.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QDateTime>
#include <QLocale>
#include <QString>

#include <optional>

namespace ob {

// Whether the path names a file, links followed. A folder is no file; the empty path names nothing.
bool FileExists(const QString& path);
bool FolderExists(const QString& path);

// All bytes of a file. Raises FileNotFound, PathFileAccess (a folder, a device, or not to be read) or DeviceIoError.
QByteArray ReadWhole(const QString& path);

// Makes the bytes the file's whole content by way of a temporary file in the same folder and a rename. Owner (where
// that is allowed), permissions and extended attributes stay; a link stays a link and its target is replaced. After an
// error the old file is as it was and nothing else is left; only the error of a disk that could not sync the folder
// comes when the new bytes have their name.
//
// After a power cut: once this has returned, a synced file has the new bytes; before, it has the old bytes or the new
// ones, never a part. An unsynced one may be found empty.
//
// What exists and is no regular file, such as a device, is written in place, and so is a file whose folder takes no new
// one: after an error it has its old bytes again, but a power cut in the middle leaves a part.
void ReplaceFile(const QString& path, QByteArrayView bytes, Durability durability = Durability::Synced);

// Adds the bytes and CR LF at the file's end; a missing file is made. After an error the file has its old length.
void AppendToFile(const QString& path, QByteArrayView bytes, Durability durability = Durability::Synced);

// Writes the bytes at the file's start, in place; a longer file keeps its tail, a missing one is made.
void WriteKeepingTail(const QString& path, QByteArrayView bytes, Durability durability = Durability::Synced);

// The path after its last separator, and the path up to and with it ("" when it has none).
QString NameOf(const QString& path);
QString FolderOf(const QString& path);

// Bytes of a file, and when it was last written in local time. Both raise FileNotFound.
qint64 SizeOf(const QString& path);
QDateTime ModifiedOf(const QString& path);

// When the file was last written, as text in the system's short format with the year in full and the seconds.
// Raises FileNotFound.
QString FileDateText(const QString& path);
QString DateText(const QDateTime& when, const QLocale& locale);

// A day in the system's short format, with the year in full.
QString ShortDateText(QDate date, const QLocale& locale);

// The name of a file or folder as it is on a disk that minds case: the name as given when the folder has it, else the
// entry that equals it in any case. The name may hold folders, with "/" or "\" between them; the result has the
// platform's separator. Nothing when there is no such entry.
std::optional<QString> FindIgnoringCase(const QString& folder, const QString& name);

} // namespace ob
