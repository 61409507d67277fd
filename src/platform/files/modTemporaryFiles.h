// SPDX-License-Identifier: GPL-3.0-or-later
// What temporary files and folders share: their names, and how they go when their owner ends before its time; a half
// for each system, without the toolkit.
#pragma once

#include <cstddef>
#include <filesystem>

namespace ob {

// A new name, ".ob-NUMBER.tmp". Short, because the target's name may be as long as the disk allows.
std::filesystem::path TemporaryName();

// Removes the temporary files and folders whose owner is gone, which is seen by their lock being free. Looks into a
// folder only once in a while, since it may be large.
void RemoveAbandoned(const std::filesystem::path& folder);

// From now on a signal to end removes the files that are marked, and then ends the program.
void RemoveMarkedOnSignals();

// Marks a temporary file while it lives.
class cTemporaryMark {
public:
    cTemporaryMark() = default;
    cTemporaryMark(const cTemporaryMark&) = delete;
    cTemporaryMark& operator=(const cTemporaryMark&) = delete;
    ~cTemporaryMark() { Clear(); }

    void Set(const std::filesystem::path& path);
    void Clear();

private:
    std::size_t place = 0; // from 1
};

} // namespace ob
