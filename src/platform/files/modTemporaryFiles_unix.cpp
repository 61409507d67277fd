// SPDX-License-Identifier: GPL-3.0-or-later
// Temporary files with locks, which the system takes away with their owner.
#include "platform/files/modTemporaryFiles.h"

#include <array>
#include <atomic>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstring>
#include <map>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace ob {

namespace {

namespace fs = std::filesystem;

// Memory that a signal finds ready.
struct Mark {
    std::atomic<bool> isTaken = false;
    std::atomic<bool> isSet = false;
    char path[PATH_MAX] = {};
};
std::array<Mark, 64> marks;

extern "C" void RemoveMarkedAndEnd(int signal)
{
    for (const Mark& mark : marks)
        if (mark.isSet)
            ::unlink(mark.path);
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

bool IsTemporaryName(const std::string& name)
{
    return name.starts_with(".ob-") && name.ends_with(".tmp");
}

bool IsAbandoned(const fs::path& path)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0)
        return false;
    const bool isFree = ::flock(descriptor, LOCK_EX | LOCK_NB) == 0;
    ::close(descriptor);
    return isFree;
}

bool WasLookedInto(const fs::path& folder)
{
    using Clock = std::chrono::steady_clock;
    static std::map<fs::path, Clock::time_point> looked;
    const Clock::time_point now = Clock::now();
    const auto [place, isNew] = looked.try_emplace(folder, now);
    if (!isNew && now - place->second < std::chrono::minutes(1))
        return true;
    place->second = now;
    return false;
}

} // namespace

fs::path TemporaryName()
{
    static std::random_device device;
    return ".ob-" + std::to_string(device()) + ".tmp";
}

void RemoveAbandoned(const fs::path& folder)
{
    if (WasLookedInto(folder))
        return;
    std::error_code error;
    std::vector<fs::path> found;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (IsTemporaryName(entry->path().filename().native()) && IsAbandoned(entry->path()))
            found.push_back(entry->path());
    for (const fs::path& path : found)
        fs::remove_all(path, error);
}

void RemoveMarkedOnSignals()
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        // A signal that the caller had ignored stays ignored.
        if (::sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN)
            continue;
        action.sa_handler = RemoveMarkedAndEnd;
        ::sigaction(signal, &action, nullptr);
    }
}

void cTemporaryMark::Set(const fs::path& path)
{
    std::error_code error;
    const std::string text = fs::absolute(path, error).native();
    Clear();
    if (error || text.size() >= PATH_MAX)
        return;
    for (std::size_t i = 0; i < marks.size(); ++i) {
        if (marks[i].isTaken.exchange(true))
            continue;
        std::strcpy(marks[i].path, text.c_str());
        marks[i].isSet = true;
        place = i + 1;
        return;
    }
}

void cTemporaryMark::Clear()
{
    if (place == 0)
        return;
    marks[place - 1].isSet = false;
    marks[place - 1].isTaken = false;
    place = 0;
}

} // namespace ob
