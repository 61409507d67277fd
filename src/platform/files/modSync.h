// SPDX-License-Identifier: GPL-3.0-or-later
// What is written reaches the disk itself before the program counts it as done.
#pragma once

#include "platform/files/cSystemFile.h"

#include <filesystem>
#include <functional>
#include <system_error>

namespace ob {

// Synced: what a user wrote. Unsynced: what can be made again, such as a film, an archive or a converted picture, which
// then costs no wait for the disk.
enum class Durability { Synced, Unsynced };

std::error_code SyncBytes(cSystemFile& file);
std::error_code SyncNames(const std::filesystem::path& folder);

// For tests: what answers in place of the disk from here on; an empty function brings the disk back.
enum class SyncStep { Bytes, Names };
void SetDisk(std::function<std::error_code(SyncStep)> disk);

} // namespace ob
