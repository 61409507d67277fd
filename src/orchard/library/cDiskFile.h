// SPDX-License-Identifier: GPL-3.0-or-later
// A file, pipe or device as the system reads and writes it; a half for each system. Errors are the system's own codes.
#pragma once

#include <cstdint>
#include <ctime>
#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>

#include "orchard/library/modDates.h"

namespace ob::basic {

// Replace empties the file, Append writes at the end wherever that is, Change reads and writes; these three make a file
// that is missing. Change falls back to reading where the file may not be written.
enum class DiskUse { Read, Replace, Append, Change };

enum class StandardStream { Input, Output };

// Two open files with one identity are one file on the disk.
struct DiskIdentity {
    std::uint64_t disk = 0;
    std::uint64_t file = 0;
    bool operator==(const DiskIdentity&) const = default;
};

class cDiskFile {
public:
    cDiskFile() = default;
    // A stream of the process, which is not closed.
    explicit cDiskFile(StandardStream stream);
    cDiskFile(const cDiskFile&) = delete;
    cDiskFile& operator=(const cDiskFile&) = delete;
    ~cDiskFile() { (void)Close(); }

    // A folder is an error. A pipe that nobody reads is an error too; nothing waits for a reader or a writer.
    std::error_code Open(const std::filesystem::path& path, DiskUse use);

    // Bytes from a position on; a pipe or device has no positions and gives its next ones. A count of 0 is the end.
    std::error_code Read(std::int64_t position, std::span<char> room, std::size_t& count);

    // All of the bytes, or an error with what could be written before it. The position counts as for Read.
    std::error_code Write(std::int64_t position, std::string_view bytes);

    // Whether bytes, or the end, can be read at once; waits for them up to a number of milliseconds.
    bool WaitForInput(int milliseconds) const;

    // In bytes; 0 for what has no size.
    std::int64_t Size() const;
    bool HasPositions() const { return hasPositions; }
    bool IsTerminal() const;
    DiskIdentity Identity() const;

    // A disk over the network may report only now that it is full.
    std::error_code Close();

private:
    static constexpr std::intptr_t Closed = -1;
    std::intptr_t handle = Closed;
    bool isOwned = true;
    bool hasPositions = false;
    bool isAppending = false;
};

// Local time, by the zone of the system.
LocalTime LocalTimeOf(std::time_t time);

// A clock that is quick to ask and moves in steps of some milliseconds, from any point in time.
std::int64_t CoarseMilliseconds();

// The roots of all disks with blanks between: "c: d:", or "/".
std::string DriveNames();

} // namespace ob::basic
