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

// In a catch block: rethrows the exception as the failure of that file. A ToolFailure names its own file, and
// exceptions that are not failures of work, such as wrong usage, are rethrown unchanged.
[[noreturn]] void ThrowAsFailureOf(const std::string& file);

// The same for the file named by the error, if it names one.
[[noreturn]] void ThrowAsFailureIn(const std::string& folder);

// Runs work on a file; its exceptions are that file's failures. The name is read after the failure, so work may go from
// file to file.
template <class Work>
decltype(auto) OnFile(const std::string& file, Work&& work)
{
    try {
        return std::forward<Work>(work)();
    } catch (...) {
        ThrowAsFailureOf(file);
    }
}

// Runs work on the files of a folder; its exceptions are failures of the file named by the error, or else of the
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
