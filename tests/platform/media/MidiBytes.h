// SPDX-License-Identifier: GPL-3.0-or-later
// MIDI files for tests.
#pragma once

#include <QByteArray>

namespace ob {

inline QByteArray BigEndian(quint32 value, int width)
{
    QByteArray bytes;
    for (int i = width - 1; i >= 0; --i)
        bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

// A number as the format writes it before each message.
inline QByteArray MidiDelta(quint32 ticks)
{
    QByteArray bytes(1, static_cast<char>(ticks & 0x7F));
    while ((ticks >>= 7) > 0)
        bytes.prepend(static_cast<char>((ticks & 0x7F) | 0x80));
    return bytes;
}

inline QByteArray MidiHead(quint32 format, quint32 tracks, quint32 division)
{
    return "MThd" + BigEndian(6, 4) + BigEndian(format, 2) + BigEndian(tracks, 2) + BigEndian(division, 2);
}

inline QByteArray MidiTrack(const QByteArray& messages)
{
    return "MTrk" + BigEndian(static_cast<quint32>(messages.size()), 4) + messages;
}

// Microseconds a beat.
inline QByteArray MidiTempo(quint32 tempo)
{
    return QByteArray("\xFF\x51\x03", 3) + BigEndian(tempo, 3);
}

inline const QByteArray MidiEnd = QByteArray("\xFF\x2F\x00", 3);

// That many quarter notes at 120 beats a minute, half a second each.
inline QByteArray MidiSongFile(int notes)
{
    QByteArray messages;
    for (int i = 0; i < notes; ++i)
        messages += MidiDelta(0) + "\x90\x3C\x64" + MidiDelta(96) + QByteArray("\x80\x3C\x00", 3);
    return MidiHead(0, 1, 96) + MidiTrack(messages + MidiDelta(0) + MidiEnd);
}

} // namespace ob
