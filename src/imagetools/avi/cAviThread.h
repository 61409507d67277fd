// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the frames of a video on a thread of their own.
#pragma once

#include "imagetools/avi/modAvi.h"

#include <atomic>
#include <exception>
#include <functional>
#include <thread>

namespace ob {

// How the writing came to its end. Writing means that it was stopped.
struct AviEnd {
    AviState state = AviState::Writing;
    std::exception_ptr error; // what a frame raised
};

class cAviThread {
public:
    // Starts on a video that has begun, which nobody else touches until the end is told or this is gone. Both functions
    // are called on the thread: the first after each frame, with its number from 0.
    cAviThread(AviWriting& writing, std::function<void(qsizetype)> frameSaved, std::function<void(AviEnd)> ended);
    cAviThread(const cAviThread&) = delete;
    cAviThread& operator=(const cAviThread&) = delete;

    // Stops, and waits for the frame that is being written.
    ~cAviThread();

    // Asks for the end behind the frame that is being written.
    void Stop() { isStopping = true; }

private:
    void Run(AviWriting& writing, const std::function<void(qsizetype)>& frameSaved,
             const std::function<void(AviEnd)>& ended) const;

    std::atomic<bool> isStopping = false;
    std::thread thread;
};

} // namespace ob
