// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a MIDI file: the events stay within the file and in chronological order.
#include "platform/media/modMidi.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, size_t size)
{
    const QByteArrayView file(data, static_cast<qsizetype>(size));
    const auto song = ob::ReadMidi(file);
    if (!song)
        return 0;
    std::int64_t last = 0;
    for (const ob::MidiEvent& event : song->events) {
        const bool isInFile = std::uint64_t{event.offset} + event.length <= size;
        if (event.time < last || event.time > song->length || event.status < 0x80 || !isInFile)
            std::abort();
        last = event.time;
    }
    return 0;
}
