// SPDX-License-Identifier: GPL-3.0-or-later
// The files that match a list of file patterns, and their names in an archive.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <filesystem>
#include <vector>

namespace ob {

enum class ZipFolders { Skip, Enter };

// A file and its name in the archive: plain, without folders, as UTF-8.
struct ZipEntry {
    std::filesystem::path path;
    QByteArray name;
    std::uintmax_t size = 0;
};

struct ZipFileList {
    std::vector<ZipEntry> entries; // in the order of the patterns; within a pattern by name, case-insensitively
    QStringList unmatched;         // the patterns that match no file
    QString clash;                 // the first two files of one plain name, in words; empty when there are none
};

// Looks the patterns up on disk. The last part of each may contain "*" and "?", and "*.*" means every file, including
// hidden ones; names are compared case-insensitively. Only regular files are taken, following links; with Enter, a
// folder that matches means all files below it. A relative pattern starts in the root folder; "\" is the disk's own
// root. The archive itself is never in the list, and a file that matches twice is in it once.
ZipFileList FindZipFiles(const QStringList& specs, const QString& root, const QString& archive, ZipFolders folders);

// A path relative to the root folder of an archive.
QString PathFromRoot(const QString& path, const QString& root);

} // namespace ob
