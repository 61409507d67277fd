// SPDX-License-Identifier: GPL-3.0-or-later
// Standard MIDI files: bytes in, events with their times out.
#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <optional>
#include <vector>

namespace ob {

// Files beyond this are refused; no song comes near it.
inline constexpr qsizetype MaximumMidiSize = qsizetype{16} << 20; // bytes

struct MidiEvent {
    std::int64_t time = 0;    // microseconds from the song's start
    std::uint8_t status = 0;  // 0x80 to 0xEF: a channel's message; 0xF0: a system message
    std::uint8_t first = 0;   // of a channel's message
    std::uint8_t second = 0;  // 0 where the message has one data byte
    std::uint32_t offset = 0; // of a system message: where its data are in the file,
    std::uint32_t length = 0; // and how many bytes, without the closing F7
};

struct MidiSong {
    std::vector<MidiEvent> events; // in the order of time
    std::int64_t length = 0;       // microseconds, to the end of the longest track
};

// The song of a file of format 0, 1 or 2, alone or in a RIFF container; the tracks of format 2 follow each other. A
// track ends where its bytes make no sense; what precedes that counts. Nothing when it is not such a file, or has no
// track.
std::optional<MidiSong> ReadMidi(QByteArrayView file);

} // namespace ob
