// SPDX-License-Identifier: GPL-3.0-or-later
// Which files a list of file patterns means, and under what names they go into an archive.
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
    std::vector<ZipEntry> entries; // in the order of the patterns; within one by name without regard to case
    QStringList unmatched;         // the patterns that mean no file
    QString clash;                 // the first two files of one plain name, told in words; empty when there are none
};

// Looks the patterns up on disk. The last part of each may hold "*" and "?", and "*.*" means every file, hidden
// ones too; names count without regard to case. Only regular files are taken, links followed; with Enter a folder that
// fits means all files below it. A relative pattern starts in the root folder; "\" is the disk's own root. The
// archive itself is never in the list, and a file that is meant twice is in it once. Names are equal without regard to
// case.
ZipFileList FindZipFiles(const QStringList& specs, const QString& root, const QString& archive, ZipFolders folders);

// A relative path as seen from the root folder of an archive.
QString PathFromRoot(const QString& path, const QString& root);

} // namespace ob
