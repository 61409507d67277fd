// SPDX-License-Identifier: GPL-3.0-or-later
// Reads previews one at a time away from the window's thread.
#include "imagetools/pictures/cPreviewLoader.h"

#include "platform/work/modBackground.h"

#include <utility>

namespace ob {

using namespace std::chrono_literals;

// A reader that takes longer is waiting for a disk; its thread is released so that others are not delayed.
static constexpr auto longestRead = 5s;

void cPreviewLoader::Begin(const PreviewRequest& request)
{
    next.reset();
    begun = Clock::now();
    running = RunInBackground([work = read, request] { return work(request); });
}

void cPreviewLoader::Ask(const PreviewRequest& request)
{
    if (!running.valid())
        Begin(request);
    else
        next = request;
}

std::optional<Preview> cPreviewLoader::Take()
{
    if (!IsReady(running)) {
        if (next && Clock::now() - begun > longestRead)
            Begin(PreviewRequest(*next));
        return std::nullopt;
    }
    Preview preview = running.get();
    if (!next)
        return preview;
    Begin(PreviewRequest(*next));
    return std::nullopt;
}

std::optional<Preview> cPreviewLoader::Wait(std::chrono::milliseconds patience)
{
    const auto end = Clock::now() + patience;
    while (IsBusy() && Clock::now() < end) {
        if (!IsReady(running, std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now())))
            break;
        if (auto preview = Take())
            return preview;
    }
    return std::nullopt;
}

} // namespace ob
