// SPDX-License-Identifier: GPL-3.0-or-later
// Files as the imaging library sees them: callbacks that the program, the command line or a test gives.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

namespace ob {

using ByteView = std::span<const std::uint8_t>;

enum class FileOutcome {
    Done,
    Missing,   // there is no such file
    Locked,    // another program holds it
    NotOpened, // any other reason for which it cannot be opened
    Failed     // opened, but not all bytes came through
};

struct FileContent {
    FileOutcome outcome = FileOutcome::Missing;
    std::vector<std::uint8_t> bytes;
    std::string description; // of NotOpened and Failed, in the system's words
};

struct WriteResult {
    FileOutcome outcome = FileOutcome::Done;
    int systemError = 0; // of NotOpened: the system's number, for ApiError
};

using FileReader = std::function<FileContent(const std::string& fileName)>;

// Writes the pieces one behind the other.
using FileWriter = std::function<WriteResult(const std::string& fileName, std::span<const ByteView> pieces)>;

// The icon of a message that the library has for the user.
enum class NoticeIcon { Stop, Information };
using NoticeSink = std::function<void(const std::string& text, NoticeIcon icon)>;

} // namespace ob
