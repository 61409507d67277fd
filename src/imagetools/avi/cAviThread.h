// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the frames of a video on its own thread.
#pragma once

#include "imagetools/avi/modAvi.h"

#include <atomic>
#include <exception>
#include <functional>
#include <thread>

namespace ob {

// How the writing ended. Writing means that it was stopped.
struct AviEnd {
    AviState state = AviState::Writing;
    std::exception_ptr error; // raised by a frame
};

class cAviThread {
public:
    // Starts on an opened video, which nothing else may use until the end is reported or this is destroyed. Both
    // functions are called on the thread: the first after each frame, with its number from 0.
    cAviThread(AviWriting& writing, std::function<void(qsizetype)> frameSaved, std::function<void(AviEnd)> ended);
    cAviThread(const cAviThread&) = delete;
    cAviThread& operator=(const cAviThread&) = delete;

    // Stops, and waits for the frame that is being written.
    ~cAviThread();

    // Requests the end after the current frame.
    void Stop() { isStopping = true; }

private:
    void Run(AviWriting& writing, const std::function<void(qsizetype)>& frameSaved,
             const std::function<void(AviEnd)>& ended) const;

    std::atomic<bool> isStopping = false;
    std::thread thread;
};

} // namespace ob
