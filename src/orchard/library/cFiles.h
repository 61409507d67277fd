// SPDX-License-Identifier: GPL-3.0-or-later
// The files that a program has open, and what it does with files and folders by name.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "orchard/library/cFile.h"

namespace ob::basic {

// An entry of a folder as `files` gives it: the date as mm/dd/yyyy, the time as hh:mm:ss, 0 bytes for a folder.
struct FolderEntry {
    std::string name;
    std::string size;
    std::string date;
    std::string time;
};

struct FolderEntries {
    std::vector<FolderEntry> files;
    std::vector<FolderEntry> folders;
};

// All errors are cProgramError with the file's name as the program wrote it.
class cFiles {
public:
    explicit cFiles(StopQuestion question = {}) : isStopped(std::move(question)) {}
    cFiles(const cFiles&) = delete;
    cFiles& operator=(const cFiles&) = delete;
    ~cFiles();

    // The file is open until Close; a folder, or a name that cannot be opened, is an error and changes nothing.
    cFile& Open(std::string_view name, FileMode mode, double recordLength = 0);
    void Close(cFile& file);
    // The first error is thrown when all are closed.
    void CloseAll();

    // Sends what waits in all files, so that other programs see it too.
    void FlushAll();

    // Sorted by name, capitals and small letters alike; the pattern is that of FitsPattern.
    FolderEntries List(std::string_view folder, std::string_view pattern);

    // name a$ as b$: nothing is written over, and folders stay.
    void Rename(std::string_view from, std::string_view to);
    void Kill(std::string_view name);

    // 0 when it is done, else the number of the error.
    int MakeFolder(std::string_view name);
    int RemoveFolder(std::string_view name);

    // The current folder, without a slash at its end.
    std::string CurrentFolder() const;

    // Whether the program is to end; asked by what waits.
    bool IsStopped() const { return isStopped && isStopped(); }

private:
    friend class cFile;

    void Opened(cFile& file);
    void Closed(cFile& file);
    void Changed(const cFile& file);

    StopQuestion isStopped;
    std::vector<std::unique_ptr<cFile>> files;
    std::vector<cFile*> open;
};

ErrorNumber NumberOfError(std::error_code error);

// An error of opening; a folder that is missing is another error than a missing file.
[[noreturn]] void FailOpening(std::error_code error, const std::filesystem::path& path, std::string_view name);

} // namespace ob::basic
