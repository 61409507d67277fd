// SPDX-License-Identifier: GPL-3.0-or-later
// Decoded pictures and sound that are not yet due.
#include "mediaplayer/cFilmQueue.h"

#include <algorithm>
#include <utility>

namespace ob {

namespace {

constexpr qint64 Second = 1'000'000; // microseconds

// Enough to play on while the disk pauses.
constexpr std::size_t EnoughPictures = 4;
constexpr double EnoughSound = 0.5; // seconds

// A file may contain one kind long before the other; beyond this limit the decoder has to wait all the same.
constexpr qint64 MostPictureBytes = qint64{256} << 20;
constexpr std::size_t MostPictures = 100;
constexpr double MostSound = 30; // seconds

constexpr qint64 LongestLead = 10 * Second; // of silence before the sound begins

} // namespace

cFilmQueue::cFilmQueue(const Content& expected) : content(expected) {}

void cFilmQueue::TakePicture(QImage picture, qint64 time)
{
    const std::lock_guard lock(mutex);
    pictureBytes += picture.sizeInBytes();
    pictures.push_back({std::move(picture), time});
}

void cFilmQueue::TakeSound(std::span<const float> stereo, qint64 time)
{
    const std::lock_guard lock(mutex);
    if (!hasSoundBegun) {
        const qint64 lead = std::clamp<qint64>(time, 0, LongestLead) * content.soundRate / Second;
        sound.assign(static_cast<std::size_t>(lead) * 2, 0.0F);
        hasSoundBegun = true;
    }
    sound.insert(sound.end(), stereo.begin(), stereo.end());
}

bool cFilmQueue::HasEnough() const
{
    const double seconds =
        content.hasSound ? static_cast<double>(sound.size() - soundPlace) / 2 / content.soundRate : EnoughSound;
    const bool enoughPictures = !content.hasPictures || pictures.size() >= EnoughPictures;
    return (enoughPictures && seconds >= EnoughSound) || pictures.size() >= MostPictures ||
           pictureBytes >= MostPictureBytes || seconds >= MostSound;
}

bool cFilmQueue::WaitForRoom()
{
    std::unique_lock lock(mutex);
    if (HasEnough())
        filled.notify_all();
    roomMade.wait(lock, [this] { return isStopped || !HasEnough(); });
    return !isStopped;
}

void cFilmQueue::SetEnd(qint64 whereItEnds)
{
    const std::lock_guard lock(mutex);
    end = whereItEnds;
    filled.notify_all();
}

void cFilmQueue::WaitUntilFilled(std::chrono::milliseconds patience)
{
    std::unique_lock lock(mutex);
    filled.wait_for(lock, patience, [this] { return end || HasEnough(); });
}

std::optional<QImage> cFilmQueue::PictureAt(qint64 time)
{
    std::optional<QImage> due;
    const std::lock_guard lock(mutex);
    while (!pictures.empty() && pictures.front().time <= time) {
        pictureBytes -= pictures.front().image.sizeInBytes();
        due = std::move(pictures.front().image);
        pictures.pop_front();
    }
    if (due)
        roomMade.notify_all();
    return due;
}

void cFilmQueue::DropSound(std::size_t samples)
{
    soundPlace += std::min(samples, sound.size() - soundPlace);
    // Played sound is erased only now and then, so that each sample is moved about once.
    if (soundPlace > sound.size() / 2) {
        sound.erase(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(soundPlace));
        soundPlace = 0;
    }
    roomMade.notify_all();
}

void cFilmQueue::Render(float* stereo, qsizetype frames)
{
    const std::lock_guard lock(mutex);
    const std::size_t wanted = static_cast<std::size_t>(frames) * 2;
    const std::size_t given = isStopped ? 0 : std::min(wanted, sound.size() - soundPlace);
    std::copy_n(sound.begin() + static_cast<std::ptrdiff_t>(soundPlace), given, stereo);
    std::fill(stereo + given, stereo + wanted, 0.0F);
    framesGiven += frames;
    DropSound(given);
}

void cFilmQueue::SkipSoundTo(qint64 time)
{
    const std::lock_guard lock(mutex);
    const qint64 late = time * content.soundRate / Second - framesGiven;
    if (late <= 0)
        return;
    framesGiven += late;
    DropSound(static_cast<std::size_t>(late) * 2);
}

bool cFilmQueue::HasEndedAt(qint64 time) const
{
    const std::lock_guard lock(mutex);
    return end && time >= *end && pictures.empty() && (!content.hasSound || soundPlace == sound.size());
}

void cFilmQueue::Stop()
{
    const std::lock_guard lock(mutex);
    isStopped = true;
    roomMade.notify_all();
}

} // namespace ob
