// SPDX-License-Identifier: GPL-3.0-or-later
// The plugin's only function.
#include "mediaplayer/cFilmDevice.h"
#include "mediaplayer/cMidiDevice.h"

namespace {

class Devices final : public ob::cMediaDevices {
public:
    ob::OpenedMedia Open(ob::MediaKind kind, const QString& path) override
    {
        return kind == ob::MediaKind::Midi ? ob::cMidiDevice::Open(path) : ob::cFilmDevice::Open(kind, path);
    }
};

} // namespace

extern "C" Q_DECL_EXPORT ob::cMediaDevices* MediaPlayerOB_Devices()
{
    static Devices devices;
    return &devices;
}
