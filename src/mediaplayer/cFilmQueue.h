// SPDX-License-Identifier: GPL-3.0-or-later
// Decoded pictures and sound that are not yet due: filled by one thread, emptied by others.
#pragma once

#include "mediaplayer/cFilmFile.h"
#include "mediaplayer/cSoundOutput.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <vector>

namespace ob {

class cFilmQueue final : public cFilmTaker, public cSoundSource {
public:
    // What the queue will contain; the rate is that of the sound, in frames per second.
    struct Content {
        bool hasPictures = false;
        bool hasSound = false;
        int soundRate = 0;
    };
    explicit cFilmQueue(const Content& content);

    // --- For the thread that fills it. ---
    void TakePicture(QImage picture, qint64 time) override;
    void TakeSound(std::span<const float> stereo, qint64 time) override;
    // Waits while there is enough of everything. False when filling must stop.
    bool WaitForRoom();
    void SetEnd(qint64 end); // nothing more will come; the film ends there, in microseconds

    // --- For those who empty it. ---
    // Waits until there is enough to begin with, but no longer than that.
    void WaitUntilFilled(std::chrono::milliseconds patience);
    // The picture that is due, when it differs from that of the last call.
    std::optional<QImage> PictureAt(qint64 time);
    void Render(float* stereo, qsizetype frames) override;
    // Drops the sound before that time, which is overdue: after the whole program was held up.
    void SkipSoundTo(qint64 time);
    bool HasEndedAt(qint64 time) const;
    void Stop();

private:
    struct Picture {
        QImage image;
        qint64 time = 0;
    };

    bool HasEnough() const;
    void DropSound(std::size_t samples);

    const Content content;
    mutable std::mutex mutex;
    std::condition_variable roomMade;
    std::condition_variable filled;
    std::deque<Picture> pictures;
    qint64 pictureBytes = 0;
    std::vector<float> sound; // valid from soundPlace on
    std::size_t soundPlace = 0;
    bool hasSoundBegun = false;
    qint64 framesGiven = 0; // to the sound device, including silence
    std::optional<qint64> end;
    bool isStopped = false;
};

} // namespace ob
