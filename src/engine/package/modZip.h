// SPDX-License-Identifier: GPL-3.0-or-later
// The zip module: one call of the archive library, with its result as a number and in words.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace ob {

// The progress of an archive: bytes read out of all bytes to read, and the plain name of the current file.
struct ZipProgress {
    QString name;
    std::uint64_t done = 0;
    std::uint64_t all = 0;
};

enum class ZipRequest { GoOn, Stop };
using ZipWatch = std::function<ZipRequest(const ZipProgress&)>; // called every few thousand bytes

struct ZipOptions {
    bool recurseFolders = false;
    bool updatingZip = false; // existing entries stay; of two files of one name the newer wins
    QString rootDirectory;    // where relative paths start; "\" is the root of the disk
};

// The library's numbers that are returned here as well; 0 is success.
inline constexpr int ZipNoFiles = 9;
inline constexpr int ZipTwoOfOneName = 10;
inline constexpr int ZipCannotOpen = 11;
inline constexpr int ZipStopped = 32;

struct ZipAnswer {
    int code = 0;
    QString message;       // why it failed; empty after success
    QStringList unmatched; // the patterns that match no file
};

// Writes the archive from the files that match the patterns (modZipFiles.h), under plain names, with their times and
// attributes. ".zip" is added to a name without an extension. An older archive is replaced only when the new one is
// complete; after a failure it is unchanged. Files that do not get smaller are stored.
ZipAnswer MakeZip(const QString& archive, const QStringList& specs, const ZipOptions& options,
                  const ZipWatch& watch = {});

// The archive's name with its extension added where it has none.
QString ZipNameOf(const QString& archive);

} // namespace ob
