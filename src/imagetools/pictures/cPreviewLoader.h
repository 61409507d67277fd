// SPDX-License-Identifier: GPL-3.0-or-later
// Reads previews one at a time away from the window's thread; the newest request wins.
#pragma once

#include "imagetools/pictures/modPreview.h"

#include <chrono>
#include <functional>
#include <future>
#include <optional>

namespace ob {

class cPreviewLoader {
public:
    using Read = std::function<Preview(const PreviewRequest&)>;

    // The reader runs on other threads and owns everything that it uses.
    explicit cPreviewLoader(Read readPreview = LoadPreview) : read(std::move(readPreview)) {}

    // Requests a preview. One that is being read is finished and discarded; requests that have not been started are
    // replaced.
    void Ask(const PreviewRequest& request);

    // The preview of the newest request, once, when it has been read.
    std::optional<Preview> Take();

    // Whether a preview is pending.
    bool IsBusy() const { return running.valid(); }

    // Waits for the newest preview, at most that long, and takes it.
    std::optional<Preview> Wait(std::chrono::milliseconds patience);

private:
    using Clock = std::chrono::steady_clock;

    void Begin(const PreviewRequest& request);

    Read read;
    std::future<Preview> running;
    Clock::time_point begun;
    std::optional<PreviewRequest> next;
};

} // namespace ob
