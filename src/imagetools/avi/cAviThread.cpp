// SPDX-License-Identifier: GPL-3.0-or-later
// Writes the frames of a video on its own thread.
#include "imagetools/avi/cAviThread.h"

#include <utility>

namespace ob {

cAviThread::cAviThread(AviWriting& writing, std::function<void(qsizetype)> frameSaved,
                       std::function<void(AviEnd)> ended)
    : thread([this, &writing, saved = std::move(frameSaved), end = std::move(ended)] { Run(writing, saved, end); })
{
}

cAviThread::~cAviThread()
{
    Stop();
    thread.join();
}

void cAviThread::Run(AviWriting& writing, const std::function<void(qsizetype)>& frameSaved,
                     const std::function<void(AviEnd)>& ended) const
{
    AviEnd end;
    try {
        while (end.state == AviState::Writing && !isStopping) {
            const qsizetype frame = writing.FramesWritten();
            end.state = writing.WriteFrame();
            if (end.state != AviState::Failed)
                frameSaved(frame);
        }
    } catch (...) {
        end = {AviState::Failed, std::current_exception()};
    }
    ended(end);
}

} // namespace ob
