// SPDX-License-Identifier: GPL-3.0-or-later
// What has been decoded and is not yet due: filled on one thread, emptied on others.
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
    // What is to come; the rate is that of the sound, in frames a second.
    struct Content {
        bool hasPictures = false;
        bool hasSound = false;
        int soundRate = 0;
    };
    explicit cFilmQueue(const Content& content);

    // --- For the thread that fills. ---
    void TakePicture(QImage picture, qint64 time) override;
    void TakeSound(std::span<const float> stereo, qint64 time) override;
    // Waits while there is enough of everything. False when the filling shall end.
    bool WaitForRoom();
    void SetEnd(qint64 end); // all has been given; it ends then, in microseconds

    // --- For those who empty. ---
    // Waits until there is enough to begin with, but not longer than that.
    void WaitUntilFilled(std::chrono::milliseconds patience);
    // The picture that is due, when it is another than at the last call.
    std::optional<QImage> PictureAt(qint64 time);
    void Render(float* stereo, qsizetype frames) override;
    // Drops the sound that should have been heard before then: after a stay of the whole program.
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
    std::vector<float> sound; // from soundPlace on
    std::size_t soundPlace = 0;
    bool hasSoundBegun = false;
    qint64 framesGiven = 0; // to the sound device, silence included
    std::optional<qint64> end;
    bool isStopped = false;
};

} // namespace ob
