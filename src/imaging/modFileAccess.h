// SPDX-License-Identifier: GPL-3.0-or-later
// Files as the imaging library sees them: callbacks from the program, the command line or a test.
#pragma once

#include "imaging/modByteView.h"

#include <functional>
#include <string>
#include <vector>

namespace ob {

enum class FileOutcome {
    Done,
    Missing,   // no such file
    Locked,    // in use by another program
    NotOpened, // cannot be opened for any other reason
    Failed     // opened, but not all bytes were transferred
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

// Writes the pieces one after the other.
using FileWriter = std::function<WriteResult(const std::string& fileName, std::span<const ByteView> pieces)>;

// The icon of a message that the library has for the user.
enum class NoticeIcon { Stop, Information };
using NoticeSink = std::function<void(const std::string& text, NoticeIcon icon)>;

} // namespace ob
