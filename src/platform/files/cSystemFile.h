// SPDX-License-Identifier: GPL-3.0-or-later
// A file as the system opens, writes and syncs it; a half for each system, without the toolkit.
//
// Results are the system's own error codes: only they keep a full disk apart from a closed door, and have the system's
// text for it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <span>
#include <system_error>
#include <utility>

namespace ob {

// New makes the file and fails where anything has its name; Append writes at the end of one that is there.
enum class Opening { InPlace, New, Append };

// Of a new file: what the system usually gives, or the owner's alone until it gets those of another.
enum class Rights { Usual, Private };

// One file open for writing, no wider than its descriptor or handle. Closes itself.
class cSystemFile {
public:
    cSystemFile() = default;
    cSystemFile(cSystemFile&& other) noexcept : handle(std::exchange(other.handle, Closed)) {}
    cSystemFile& operator=(cSystemFile&& other) noexcept
    {
        std::swap(handle, other.handle);
        return *this;
    }
    ~cSystemFile() { (void)Close(); }

    // A pipe that nobody reads is an error; nothing waits for a reader.
    std::error_code Open(const std::filesystem::path& path, Opening opening, Rights rights = Rights::Usual);

    // Locks the file, which is how others see that its owner lives; an error when it is locked or has been removed. The
    // other opens a folder, or the same file again, for its lock alone, which outlasts the closing of the first.
    std::error_code Hold();
    std::error_code Hold(const std::filesystem::path& path);

    // All of the bytes, where the last write ended; WriteAt: from a place on, from which the next Write goes on.
    std::error_code Write(std::span<const std::uint8_t> bytes);
    std::error_code WriteAt(std::int64_t position, std::span<const std::uint8_t> bytes);

    // Bytes of a regular file; -1 for anything else, which has no size to go back to.
    std::int64_t Size() const;
    std::error_code Resize(std::int64_t size);

    // Waits until the disk itself has the bytes; no error where the disk has no such step.
    std::error_code Sync();

    // A disk over the network may report only now that it is full.
    std::error_code Close();

    // Gives this file the owner (where that is allowed), the permissions and the extended attributes of another, but
    // not the right to run as its owner.
    void TakeOver(const std::filesystem::path& old);

private:
    static constexpr std::intptr_t Closed = -1;
    std::intptr_t handle = Closed;
};

// What keeps this process from writing to a file, or from making files in a folder.
std::error_code WriteTrouble(const std::filesystem::path& path);

// Waits until the disk itself has the names in the folder; no error where that cannot be asked.
std::error_code SyncFolder(const std::filesystem::path& folder);

// Gives a file the name of another, which it replaces in one step.
std::error_code RenameOver(const std::filesystem::path& from, const std::filesystem::path& to);

// Exchanges the names of two folders, in one step where the disk can do that.
std::error_code ExchangeNames(const std::filesystem::path& one, const std::filesystem::path& other);

// Takes from a file the rights that another does not give.
void LimitRights(const std::filesystem::path& file, const std::filesystem::path& other);

// What an error means to the program.
enum class FileTrouble {
    Full,    // also a quota or a size limit
    Missing, // the file or its folder
    Closed,  // a folder, a write-protected file, a name that the disk does not take
    InUse,   // by another program
    Exists,  // the name is taken
    Other
};
FileTrouble TroubleOf(std::error_code error);

} // namespace ob
