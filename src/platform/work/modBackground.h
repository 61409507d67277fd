// SPDX-License-Identifier: GPL-3.0-or-later
// Work that may hang on a disk that does not answer, kept away from the window that waits for it.
#pragma once

#include <chrono>
#include <future>
#include <system_error>
#include <thread>
#include <type_traits>
#include <utility>

namespace ob {

// Runs the work on a thread of its own and gives its result to come. Nobody waits for the thread: a result that is let
// go before it is there is lost, and a thread that hangs ends with the process. So the work must own all that it
// touches. Where no thread can be had the work is done at once.
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

// Whether the result is there, waiting for it that long at most. False when none is to come.
template <class Result>
bool IsReady(const std::future<Result>& result, std::chrono::milliseconds patience = {})
{
    return result.valid() && result.wait_for(patience) == std::future_status::ready;
}

} // namespace ob
