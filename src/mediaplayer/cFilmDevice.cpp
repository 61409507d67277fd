// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a film or a sound by the clock, with or without a sound device.
#include "mediaplayer/cFilmDevice.h"

#include <QFileInfo>

#include <algorithm>
#include <chrono>
#include <future>
#include <new>
#include <system_error>

namespace ob {

namespace {

constexpr int TickLength = 10;                     // milliseconds between two checks for a due picture
constexpr qint64 LatestSound = 200;                // milliseconds; sound later than this is skipped
constexpr qint64 Aftermath = 300;                  // milliseconds after the end, for the sound device's last piece
constexpr std::chrono::milliseconds Patience(200); // for the first picture and sound
constexpr std::chrono::milliseconds Farewell(500);

} // namespace

struct cFilmDevice::Reading {
    std::unique_ptr<cFilmFile> file;
    std::unique_ptr<cFilmQueue> queue;
    std::atomic<bool> stop = false;
    std::promise<void> done;

    void Run()
    {
        try {
            while (queue->WaitForRoom() && file->Step(*queue) == FilmStep::More) {
            }
        } catch (const std::bad_alloc&) {
            // A film too large for the available memory ends here.
        }
        queue->SetEnd(file->EndOfRead());
        done.set_value();
    }
};

OpenedMedia cFilmDevice::Open(MediaKind kind, const QString& path)
{
    OpenedMedia opened;
    std::unique_ptr<cFilmDevice> device(new cFilmDevice(path, cSoundOutput::Make()));
    if (!device->OpenFile(kind))
        return opened;
    device->StartReading();
    opened.trouble = device->isSilent ? MediaTrouble::NoSoundDevice : MediaTrouble::None;
    opened.device = std::move(device);
    return opened;
}

cFilmDevice::cFilmDevice(const QString& filePath, std::unique_ptr<cSoundOutput> output)
    : path(filePath), sound(std::move(output)), reading(std::make_shared<Reading>())
{
}

cFilmDevice::~cFilmDevice()
{
    timer.stop();
    sound.reset();
    if (!thread.joinable())
        return;
    reading->stop = true;
    reading->queue->Stop();
    if (reading->done.get_future().wait_for(Farewell) == std::future_status::ready)
        thread.join();
    else
        thread.detach();
}

bool cFilmDevice::OpenFile(MediaKind kind)
{
    const int rate = sound == nullptr ? 0 : sound->Rate();
    reading->file = cFilmFile::Open(path, {kind == MediaKind::Video, rate}, reading->stop);
    if (reading->file == nullptr)
        return false;
    const cFilmFile& file = *reading->file;
    length = file.Length() / 1'000;
    shownSize = file.ShownSize();
    isSilent = sound == nullptr && file.HasSound();
    content = {file.GivesPictures(), file.GivesSound(), rate};
    reading->queue = std::make_unique<cFilmQueue>(content);
    return true;
}

void cFilmDevice::StartReading()
{
    // With neither pictures nor audible sound, only the time has to be kept.
    if (!content.hasPictures && !content.hasSound)
        return;
    try {
        thread = std::thread([shared = reading] { shared->Run(); });
    } catch (const std::system_error&) {
        // Without a thread, the device only keeps the time.
    }
}

qint64 cFilmDevice::Length() const
{
    return length;
}

// The time of the current sound and picture, in milliseconds from the start.
qint64 cFilmDevice::Now() const
{
    if (!clock.isValid())
        return 0;
    return std::max<qint64>(0, clock.elapsed() - (content.hasSound ? cSoundOutput::Delay : 0));
}

qint64 cFilmDevice::Position() const
{
    const qint64 now = Now();
    const bool hasEnded = isClosed || now >= length || reading->queue->HasEndedAt(now * 1'000);
    return hasEnded && clock.isValid() ? length : now;
}

void cFilmDevice::Play()
{
    if (clock.isValid())
        return;
    if (thread.joinable())
        reading->queue->WaitUntilFilled(Patience);
    clock.start();
    if (content.hasSound)
        sound->Start(*reading->queue);
    if (content.hasPictures) {
        screen = OpenFilmScreen(QFileInfo(path).fileName(), shownSize, [this] {
            isClosed = true;
            reading->queue->Stop();
        });
    }
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { Tick(); });
    timer.start(TickLength);
}

void cFilmDevice::Tick()
{
    const qint64 now = Now();
    if (isClosed || now > length + Aftermath) {
        timer.stop();
        if (content.hasSound)
            sound->Stop();
        return;
    }
    if (content.hasSound)
        reading->queue->SkipSoundTo((now - LatestSound) * 1'000);
    if (screen == nullptr)
        return;
    if (const std::optional<QImage> due = reading->queue->PictureAt(now * 1'000))
        screen->ShowPicture(*due);
}

} // namespace ob
