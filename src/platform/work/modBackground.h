// SPDX-License-Identifier: GPL-3.0-or-later
// Work that may hang on a disk that does not respond, kept off the thread of the window that waits for it.
#pragma once

#include <chrono>
#include <future>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>

namespace ob {

// Runs the work on a thread of its own and returns its future result. The thread is never joined: a result released
// before it is ready is lost, and a hanging thread ends with the process. So the work must own everything it uses.
// Without a thread the work is done at once.
template <class Work>
std::future<std::invoke_result_t<Work>> RunInBackground(Work work)
{
    std::packaged_task<std::invoke_result_t<Work>()> task(work);
    auto result = task.get_future();
    try {
        std::thread(std::move(task)).detach();
    } catch (const std::system_error&) {
        std::packaged_task<std::invoke_result_t<Work>()> here(std::move(work));
        result = here.get_future();
        here();
    }
    return result;
}

// Whether the result is ready, waiting at most that long. False when there will be none.
template <class Result>
bool IsReady(const std::future<Result>& result, std::chrono::milliseconds patience = {})
{
    return result.valid() && result.wait_for(patience) == std::future_status::ready;
}

} // namespace ob
