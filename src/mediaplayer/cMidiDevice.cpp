// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a song of a MIDI file. Our reader supplies the times; FluidSynth gets each message when it is due.
#include "mediaplayer/cMidiDevice.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <fluidsynth.h>

#include <algorithm>
#include <mutex>
#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

constexpr double Gain = 0.6; // keeps a song with many voices from clipping

struct Release {
    void operator()(fluid_settings_t* settings) const { delete_fluid_settings(settings); }
    void operator()(fluid_synth_t* synth) const { delete_fluid_synth(synth); }
};

QStringList SoundFontFolders()
{
    QStringList folders;
    for (const char* name : {"sounds/sf2", "sounds/sf3", "soundfonts"})
        folders += QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QString::fromLatin1(name),
                                             QStandardPaths::LocateDirectory);
    return folders;
}

} // namespace

QString FindSoundFont()
{
    const QStringList folders = SoundFontFolders();
    for (const char* name : {"default-GM.sf2", "default-GM.sf3", "default.sf2", "FluidR3_GM.sf2", "TimGM6mb.sf2"}) {
        for (const QString& folder : folders) {
            const QString path = QDir(folder).filePath(QString::fromLatin1(name));
            if (QFile::exists(path))
                return path;
        }
    }
    for (const QString& folder : folders) {
        const QDir found(folder);
        const QStringList names = found.entryList({u"*.sf2"_s, u"*.sf3"_s}, QDir::Files);
        if (!names.isEmpty())
            return found.filePath(names.first());
    }
    return {};
}

class cMidiSynth final : public cSoundSource {
public:
    cMidiSynth(QByteArray fileBytes, MidiSong fileSong, int soundRate)
        : bytes(std::move(fileBytes)), song(std::move(fileSong)), rate(soundRate)
    {
    }

    bool Load(const QString& font)
    {
        for (int level = FLUID_PANIC; level < LAST_LOG_LEVEL; ++level)
            fluid_set_log_function(level, nullptr, nullptr);
        settings.reset(new_fluid_settings());
        if (settings == nullptr)
            return false;
        fluid_settings_setnum(settings.get(), "synth.sample-rate", rate);
        fluid_settings_setnum(settings.get(), "synth.gain", Gain);
        synth.reset(new_fluid_synth(settings.get()));
        return synth != nullptr && fluid_synth_sfload(synth.get(), QFile::encodeName(font).constData(), 1) >= 0;
    }

    void Render(float* stereo, qsizetype frames) override
    {
        const std::lock_guard lock(mutex);
        qsizetype done = 0;
        while (done < frames) {
            const qsizetype count = std::min(frames - done, FramesToNextEvent());
            fluid_synth_write_float(synth.get(), static_cast<int>(count), stereo + done * 2, 0, 2, stereo + done * 2, 1,
                                    2);
            done += count;
            framesDone += count;
        }
    }

private:
    // Sends the events that are due and returns the distance to the next one.
    qsizetype FramesToNextEvent()
    {
        for (; next < song.events.size(); ++next) {
            const MidiEvent& event = song.events[next];
            const auto due = static_cast<qsizetype>(static_cast<double>(event.time) * rate / 1e6);
            if (due > framesDone)
                return due - framesDone;
            Send(event);
        }
        return rate;
    }

    void Send(const MidiEvent& event)
    {
        fluid_synth_t* const to = synth.get();
        const int channel = event.status & 0x0F;
        switch (event.status & 0xF0) {
        case 0x80:
            fluid_synth_noteoff(to, channel, event.first);
            break;
        case 0x90:
            fluid_synth_noteon(to, channel, event.first, event.second);
            break;
        case 0xA0:
            fluid_synth_key_pressure(to, channel, event.first, event.second);
            break;
        case 0xB0:
            fluid_synth_cc(to, channel, event.first, event.second);
            break;
        case 0xC0:
            fluid_synth_program_change(to, channel, event.first);
            break;
        case 0xD0:
            fluid_synth_channel_pressure(to, channel, event.first);
            break;
        case 0xE0:
            fluid_synth_pitch_bend(to, channel, event.first | (event.second << 7));
            break;
        default:
            fluid_synth_sysex(to, bytes.constData() + event.offset, static_cast<int>(event.length), nullptr, nullptr,
                              nullptr, 0);
        }
    }

    const QByteArray bytes;
    const MidiSong song;
    const int rate; // frames per second
    std::unique_ptr<fluid_settings_t, Release> settings;
    std::unique_ptr<fluid_synth_t, Release> synth; // destroyed before its settings
    std::mutex mutex;
    std::size_t next = 0;
    qsizetype framesDone = 0;
};

OpenedMedia cMidiDevice::Open(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    // One byte beyond the limit, so that a larger file is rejected instead of truncated.
    const QByteArray bytes = file.read(MaximumMidiSize + 1);
    std::optional<MidiSong> song = ReadMidi(bytes);
    if (!song)
        return {};
    const QString font = FindSoundFont();
    if (font.isEmpty())
        return {nullptr, MediaTrouble::NoSoundFont};
    std::unique_ptr<cMidiDevice> device(new cMidiDevice(song->length / 1'000));
    device->sound = cSoundOutput::Make();
    if (device->sound == nullptr)
        return {std::move(device), MediaTrouble::NoSoundDevice};
    device->synth = std::make_unique<cMidiSynth>(bytes, std::move(*song), device->sound->Rate());
    if (!device->synth->Load(font))
        return {nullptr, MediaTrouble::NoSoundFont};
    return {std::move(device), MediaTrouble::None};
}

cMidiDevice::cMidiDevice(qint64 songLength) : length(songLength) {}

cMidiDevice::~cMidiDevice() = default;

qint64 cMidiDevice::Length() const
{
    return length;
}

qint64 cMidiDevice::Position() const
{
    if (!clock.isValid())
        return 0;
    const qint64 now = clock.elapsed() - (sound == nullptr ? 0 : cSoundOutput::Delay);
    return std::clamp<qint64>(now, 0, length);
}

void cMidiDevice::Play()
{
    if (clock.isValid())
        return;
    clock.start();
    if (sound != nullptr)
        sound->Start(*synth);
}

} // namespace ob
