// SPDX-License-Identifier: GPL-3.0-or-later
// The zip module: one call of the archive library, with its answer as a number and in words.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <functional>

namespace ob {

// How far an archive is: bytes read of all that are to be read, and the plain name of the file that is read now.
struct ZipProgress {
    QString name;
    std::uint64_t done = 0;
    std::uint64_t all = 0;
};

enum class ZipWish { GoOn, Stop };
using ZipWatch = std::function<ZipWish(const ZipProgress&)>; // called every few thousand bytes

struct ZipOptions {
    bool recurseFolders = false;
    bool updatingZip = false; // what the archive holds stays; of a name that it holds the newer file wins
    QString rootDirectory;    // where relative paths start; "\" is the root of the disk
};

// The library's numbers that are answered here as well; 0 is success.
inline constexpr int ZipNoFiles = 9;
inline constexpr int ZipTwoOfOneName = 10;
inline constexpr int ZipCannotOpen = 11;
inline constexpr int ZipStopped = 32;

struct ZipAnswer {
    int code = 0;
    QString message;       // why it failed; empty after success
    QStringList unmatched; // the patterns that mean no file
};

// Writes the archive from the files that the patterns mean (modZipFiles.h), under plain names, with their times
// and attributes. ".zip" is added to a name that has no ending. The archive is written beside an older one and takes
// its place when it is whole; after a failure the older one is as it was. Files that do not get smaller are stored.
ZipAnswer MakeZip(const QString& archive, const QStringList& specs, const ZipOptions& options,
                  const ZipWatch& watch = {});

// The archive's name with the ending that it gets.
QString ZipNameOf(const QString& archive);

} // namespace ob
