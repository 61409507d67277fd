// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a song of a MIDI file with FluidSynth and the system's sound font.
#pragma once

#include "mediaplayer/cSoundOutput.h"
#include "platform/media/cMediaDevice.h"
#include "platform/media/modMidi.h"

#include <QByteArray>
#include <QElapsedTimer>

namespace ob {

class cMidiSynth;

class cMidiDevice final : public cMediaDevice {
public:
    static OpenedMedia Open(const QString& path);

    ~cMidiDevice() override;

    qint64 Length() const override;
    qint64 Position() const override;
    void Play() override;

private:
    explicit cMidiDevice(qint64 songLength);

    const qint64 length;                 // milliseconds
    std::unique_ptr<cMidiSynth> synth;   // null without a sound device
    std::unique_ptr<cSoundOutput> sound; // destroyed before the synthesizer that it reads from
    QElapsedTimer clock;
};

// The system's sound font: one of the usual names in the standard data folders, or else the first one found there;
// empty when there is none.
QString FindSoundFont();

} // namespace ob
