// SPDX-License-Identifier: GPL-3.0-or-later
// What every host shares: the clock of the system, and no windows.
#include "orchard/library/cHost.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <random>
#include <thread>

#include "orchard/library/cDiskFile.h"

namespace ob::basic {

namespace {

using std::chrono::duration_cast;
using std::chrono::milliseconds;

} // namespace

void cHost::FlushAll()
{
    Console().Flush();
    files.FlushAll();
}

LocalTime cHost::Now()
{
    const auto now = duration_cast<milliseconds>(std::chrono::system_clock::now().time_since_epoch()).count();
    LocalTime time = LocalTimeOf(static_cast<std::time_t>(now / 1000));
    time.millisecond = static_cast<int>(now % 1000);
    return time;
}

std::int64_t cHost::Milliseconds()
{
    return duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

void cHost::Sleep(std::int64_t time)
{
    constexpr std::int64_t patience = 20;
    for (const std::int64_t end = Milliseconds() + time; !IsStopped();) {
        const std::int64_t left = end - Milliseconds();
        if (left <= 0)
            return;
        std::this_thread::sleep_for(milliseconds(std::min(left, patience)));
    }
}

std::uint64_t cHost::RandomSeed()
{
    std::random_device device;
    return std::uint64_t{device()} << 32 | device();
}

std::string_view cHost::Platform()
{
    return std::filesystem::path::preferred_separator == '\\' ? "Windows" : "Linux";
}

void cHost::Notice(std::string_view)
{
    throw WindowNeeded{"notice"};
}

bool cHost::Confirm(std::string_view)
{
    throw WindowNeeded{"confirm"};
}

std::string cHost::Prompt(std::string_view, std::string_view)
{
    throw WindowNeeded{"prompt"};
}

void cHost::PrintOnPaper(std::string_view)
{
    throw WindowNeeded{"lprint"};
}

void cHost::SendToPrinter()
{
    throw WindowNeeded{"dump"};
}

void cHost::OpenOnDesktop(std::string_view, std::string_view)
{
    throw WindowNeeded{"run"};
}

} // namespace ob::basic
