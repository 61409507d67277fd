// SPDX-License-Identifier: GPL-3.0-or-later
// Work that failed, and how it is reported.
#pragma once

#include <QString>

#include <exception>
#include <string>
#include <utility>

namespace ob {

// One line "obtool: FILE: reason" on standard error, exit status 1.
class ToolFailure : public std::exception {
public:
    ToolFailure(std::string failedFile, QString failedReason)
        : file(std::move(failedFile)), reason(std::move(failedReason))
    {
    }
    const char* what() const noexcept override { return file.c_str(); }

    std::string file;
    QString reason;
};

// Within a catch block: throws what was caught as the failure of that file. A ToolFailure names its own file, and what
// is no failure of work, as wrong usage, goes on as it is.
[[noreturn]] void ThrowAsFailureOf(const std::string& file);

// As ThrowAsFailureOf, but of the file that the error names, where it names one.
[[noreturn]] void ThrowAsFailureIn(const std::string& folder);

// Runs work on a file; what it throws is that file's failure. The file is looked at when the work has failed, so work
// may go from file to file.
template <class Work>
decltype(auto) OnFile(const std::string& file, Work&& work)
{
    try {
        return std::forward<Work>(work)();
    } catch (...) {
        ThrowAsFailureOf(file);
    }
}

// Runs work on the files of a folder; what it throws is the failure of the file that the error names, or else of the
// folder.
template <class Work>
decltype(auto) InFolder(const std::string& folder, Work&& work)
{
    try {
        return std::forward<Work>(work)();
    } catch (...) {
        ThrowAsFailureIn(folder);
    }
}

// Writes the failure's line and returns the exit status.
int Report(const ToolFailure& failure);

} // namespace ob
