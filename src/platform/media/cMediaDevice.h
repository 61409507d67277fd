// SPDX-License-Identifier: GPL-3.0-or-later
// What plays a media file: the seam between the command strings and the player, which the first of them loads.
#pragma once

#include <QString>
#include <QtGlobal>

#include <memory>

namespace ob {

// One open file. Times are in milliseconds.
class cMediaDevice {
public:
    cMediaDevice() = default;
    cMediaDevice(const cMediaDevice&) = delete;
    cMediaDevice& operator=(const cMediaDevice&) = delete;
    virtual ~cMediaDevice() = default;

    // 0 when the file does not state it.
    virtual qint64 Length() const = 0;

    // Equals the length as soon as playing has ended.
    virtual qint64 Position() const = 0;

    // Starts and returns at once. Destroying the device stops it.
    virtual void Play() = 0;
};

// Video may have sound, pictures or both; Sound is never shown.
enum class MediaKind { Video, Midi, Sound };

// What this computer lacks, as opposed to a file that cannot be played. Without a sound device a file plays silently.
enum class MediaTrouble { None, NoPlayer, NoSoundFont, NoSoundDevice };

struct OpenedMedia {
    std::unique_ptr<cMediaDevice> device; // null when the file cannot be played
    MediaTrouble trouble = MediaTrouble::None;
};

class cMediaDevices {
public:
    cMediaDevices() = default;
    cMediaDevices(const cMediaDevices&) = delete;
    cMediaDevices& operator=(const cMediaDevices&) = delete;
    virtual ~cMediaDevices() = default;

    virtual OpenedMedia Open(MediaKind kind, const QString& path) = 0;
};

// The only function of the library MediaPlayerOB, which plays with the system's means.
using MediaPlayerOB_DevicesFunction = cMediaDevices*();
inline constexpr char MediaPlayerOB_DevicesName[] = "MediaPlayerOB_Devices";

} // namespace ob
