// SPDX-License-Identifier: GPL-3.0-or-later
// Reads previews one at a time away from the window's thread; the newest request wins.
#pragma once

#include "imagetools/pictures/modPreview.h"
#include "platform/work/cWork.h"

#include <QTimer>

#include <chrono>
#include <functional>
#include <optional>

namespace ob {

class cPreviewLoader {
public:
    using Read = std::function<Preview(const PreviewRequest&)>;

    // The reader runs on other threads and owns all that it touches. `whenRead` is called on this thread when there may
    // be something to take.
    explicit cPreviewLoader(Read readPreview = LoadPreview, std::function<void()> whenRead = {});

    // Requests a preview. One that is being read is finished and discarded; requests that have not been started are
    // replaced.
    void Ask(const PreviewRequest& request);

    // The preview of the newest request, once, when it has been read.
    std::optional<Preview> Take();

    // Whether a preview is to come.
    bool IsBusy() const { return running.IsStarted(); }

    // Whether one is ready to be taken, waiting for it that long at most.
    bool IsDone(std::chrono::milliseconds patience) const { return running.IsDone(patience); }

    // Waits for the newest preview, at most that long, and takes it.
    std::optional<Preview> Wait(std::chrono::milliseconds patience);

private:
    using Clock = std::chrono::steady_clock;

    void BeginNext();

    Read read;
    std::function<void()> ready;
    QTimer longest; // runs while the newest request waits for one that is being read
    Clock::time_point begun;
    std::optional<PreviewRequest> next;
    cWork<Preview> running{Farewell::LetGo};
};

} // namespace ob
