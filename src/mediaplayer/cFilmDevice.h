// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a film or a sound: one thread decodes, the event loop shows, the sound device reads.
#pragma once

#include "mediaplayer/cFilmQueue.h"
#include "mediaplayer/cFilmScreen.h"
#include "platform/media/cMediaDevice.h"

#include <QElapsedTimer>
#include <QTimer>

#include <thread>

namespace ob {

class cFilmDevice final : public cMediaDevice {
public:
    static OpenedMedia Open(MediaKind kind, const QString& path);

    ~cFilmDevice() override;

    qint64 Length() const override;
    qint64 Position() const override;
    void Play() override;

private:
    // The state of the decoding thread, which shares its ownership because it may hang on a disk that does not answer.
    struct Reading;

    cFilmDevice(const QString& path, std::unique_ptr<cSoundOutput> output);
    bool OpenFile(MediaKind kind);
    void StartReading();
    qint64 Now() const;
    void Tick();

    const QString path;
    std::unique_ptr<cSoundOutput> sound; // null without a sound device
    std::shared_ptr<Reading> reading;
    // Read from the file, which belongs to the thread once that runs.
    qint64 length = 0; // milliseconds
    QSize shownSize;
    bool isSilent = false; // the file has sound, but there is no device
    cFilmQueue::Content content;
    std::thread thread;
    QElapsedTimer clock;
    QTimer timer;
    std::unique_ptr<cFilmScreen> screen; // null for a file without pictures
    bool isClosed = false;               // the user has closed the window
};

} // namespace ob
