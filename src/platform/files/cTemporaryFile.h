// SPDX-License-Identifier: GPL-3.0-or-later
// A file under a temporary name, in the folder of the file whose place it takes once it is whole.
#pragma once

#include "platform/files/cSystemFile.h"
#include "platform/files/modSync.h"
#include "platform/files/modTemporaryFiles.h"

#include <QString>

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace ob {

// The one way in which a file of the program is replaced: whole texts, pieces and copies all go through it. The name
// is taken and the file made in one step, so nobody else's file is ever opened. One that is let go before it has the
// target's name leaves nothing. QSaveFile would sync always and its folder never, and keeps neither the owner nor the
// system's error number.
//
// All routines raise as modFiles.h says, in the name of the caller's path.
class cTemporaryFile {
public:
    // A target that is there has its rights kept: the temporary file is private until it takes them over.
    cTemporaryFile(std::filesystem::path targetPath, const QString& callersPath, Rights rights = Rights::Usual);
    cTemporaryFile(const cTemporaryFile&) = delete;
    cTemporaryFile& operator=(const cTemporaryFile&) = delete;
    ~cTemporaryFile();

    // Adds bytes at the end.
    void Write(std::span<const std::uint8_t> bytes);

    // Overwrites bytes that were written before.
    void WriteAt(std::int64_t position, std::span<const std::uint8_t> bytes);

    std::int64_t Size() const { return size; }
    const std::filesystem::path& Path() const { return temporary; }

    // Gives it the owner, permissions and attributes of the file that is there under the target's name, if one is.
    void TakeOver() { file.TakeOver(target); }

    // Ends the writing, and then gives the file its name. A power cut after TakeName of a synced file finds the new
    // file; one before finds the old file or the new one, each whole. After an unsynced one it may find an empty file.
    void Complete(Durability durability);
    void TakeName(Durability durability);

private:
    void Put(std::span<const std::uint8_t> bytes);
    void Flush();
    void Check(std::error_code error) const;

    QString path;
    std::filesystem::path target;
    std::filesystem::path temporary;
    cSystemFile file;
    cSystemFile lock; // also after the file is closed
    cTemporaryMark mark;
    std::vector<std::uint8_t> pending; // small pieces on their way to the file
    std::int64_t size = 0;
    bool hasName = false;
};

} // namespace ob
