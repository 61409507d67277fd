// SPDX-License-Identifier: GPL-3.0-or-later
// A list of file patterns, and the zip archive that one call creates from it.
#pragma once

#include "engine/package/modZip.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace ob {

class CGZipFiles {
public:
    CGZipFiles();

    bool RecurseFolders = false;
    QString ZipFileName;
    bool Encrypted = false;          // kept, without effect
    bool IncludeSystemFiles = false; // kept, without effect
    std::int16_t ZipFileCount() const;
    QString RootDirectory = QStringLiteral("\\"); // where relative names start; "\" is the root of the disk
    bool UpdatingZip = false;

    // Patterns are compared case-insensitively; one may contain wildcards in its last part. Each raises an error with
    // its source: AddFile for a pattern that is already in the list, RemoveFile for one that is not. "querty" is in the
    // list from the start, and is not counted in ZipFileCount.
    void AddFile(const QString& spec);
    void RemoveFile(const QString& spec);

    // 0 for success, the library's number (modZip.h), or -99 after a runtime error: for more than 99 patterns.
    int MakeZipFile(const ZipWatch& watch = {});

    // For the last MakeZipFile: why it failed, and the patterns that matched no file.
    QString GetLastMessage() const { return lastMessage; }
    QStringList UnmatchedFiles() const { return unmatched; }

private:
    qsizetype PlaceOf(const QString& spec) const;

    QStringList files; // with the placeholder
    QString lastMessage;
    QStringList unmatched;
};

} // namespace ob
