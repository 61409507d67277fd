// SPDX-License-Identifier: GPL-3.0-or-later
// The reader of standard MIDI files.
#include "platform/media/modMidi.h"

#include "imaging/cByteReader.h"
#include "platform/files/modByteViews.h"

#include <algorithm>
#include <utility>

namespace ob {

namespace {

constexpr std::uint8_t TempoMark = 0xFF; // an event of our own: microseconds a beat in `offset`
constexpr double UsualTempo = 500'000;   // microseconds a beat

std::uint8_t NextByte(cByteReader& in)
{
    return in.Next<std::uint8_t>();
}

std::uint16_t NextWord(cByteReader& in)
{
    return in.Next<std::uint16_t, std::endian::big>();
}

std::uint32_t NextLong(cByteReader& in)
{
    return in.Next<std::uint32_t, std::endian::big>();
}

// Seven bits a byte, at most four bytes; nothing when the bytes end or make no number.
std::optional<std::uint32_t> NextVariable(cByteReader& in)
{
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) {
        const std::uint8_t byte = NextByte(in);
        value = (value << 7) | (byte & 0x7FU);
        if (byte < 0x80)
            return in.IsShort() ? std::nullopt : std::optional(value);
    }
    return std::nullopt;
}

// While a file is read, `time` is in ticks.
struct Reading {
    std::vector<MidiEvent> events;
    std::int64_t end = 0;
};

// What follows the mark of a meta event. False at the track's end, or where the bytes make no sense.
bool TakeMeta(cByteReader& in, MidiEvent event, Reading& reading)
{
    const std::uint8_t kind = NextByte(in);
    const auto length = NextVariable(in);
    if (kind == 0x2F || !length)
        return false;
    if (kind == 0x51 && *length == 3) {
        event.status = TempoMark;
        event.offset = std::uint32_t{NextByte(in)} << 16;
        event.offset |= NextWord(in);
        if (!in.IsShort() && event.offset != 0)
            reading.events.push_back(event);
    } else {
        in.Skip(*length);
    }
    return !in.IsShort();
}

bool TakeSystemMessage(cByteReader& in, MidiEvent event, Reading& reading)
{
    const auto length = NextVariable(in);
    if (!length)
        return false;
    event.length = *length;
    event.offset = static_cast<std::uint32_t>(in.Position());
    const bool opens = event.status == 0xF0;
    in.Skip(event.length);
    // Only messages that are complete in one piece are passed on.
    if (!in.IsShort() && opens && event.length > 0) {
        event.length -= 1;
        reading.events.push_back(event);
    }
    return !in.IsShort();
}

// Reads one message. False at the track's end, or where the bytes make no sense.
bool TakeMessage(cByteReader& in, std::uint8_t& running, std::int64_t tick, Reading& reading)
{
    MidiEvent event;
    event.time = tick;
    event.status = in.Byte(in.Position()) < 0x80 ? running : NextByte(in);
    if (event.status == 0xFF)
        return TakeMeta(in, event, reading);
    if (event.status == 0xF0 || event.status == 0xF7)
        return TakeSystemMessage(in, event, reading);
    if (event.status < 0x80 || event.status > 0xEF)
        return false;
    running = event.status;
    event.first = NextByte(in) & 0x7F;
    const int message = event.status & 0xF0;
    if (message != 0xC0 && message != 0xD0)
        event.second = NextByte(in) & 0x7F;
    if (!in.IsShort())
        reading.events.push_back(event);
    return !in.IsShort();
}

void ReadTrack(cByteReader in, std::int64_t start, Reading& reading)
{
    std::int64_t tick = start;
    std::uint8_t running = 0;
    while (in.Left() > 0) {
        const auto delta = NextVariable(in);
        if (!delta)
            break;
        tick += *delta;
        if (!TakeMessage(in, running, tick, reading))
            break;
    }
    reading.end = std::max(reading.end, tick);
}

// Where the MIDI file begins: after the head of a RIFF container, if there is one.
std::size_t StartOf(QByteArrayView file)
{
    if (!file.startsWith("RIFF") || file.size() < 12 || file.sliced(8, 4) != QByteArrayView("RMID", 4))
        return 0;
    const cByteReader reader(ByteViewOf(file));
    std::size_t place = 12;
    while (place + 8 <= reader.All().size()) {
        if (QtViewOf(BytesAt(reader.All(), place, 4)) == QByteArrayView("data", 4))
            return place + 8;
        const std::uint32_t size = reader.Long(place + 4);
        place += 8 + std::size_t{size} + (size & 1U);
    }
    return 0;
}

// Microseconds a tick where the file's unit is a fraction of a second; 0 where it is a fraction of a beat.
double FixedTickLength(std::uint32_t division)
{
    if ((division & 0x8000U) == 0)
        return 0;
    const int frames = 256 - static_cast<int>(division >> 8);
    const double framesPerSecond = frames == 29 ? 30'000.0 / 1'001.0 : frames;
    const double ticksPerFrame = std::max(1U, division & 0xFFU);
    return 1e6 / (framesPerSecond * ticksPerFrame);
}

std::int64_t Microseconds(double time)
{
    // A file can claim any length; every number up to this one is exact.
    constexpr double longest = 9e15;
    return static_cast<std::int64_t>(std::min(time, longest));
}

// Turns ticks into microseconds and drops the tempo marks.
MidiSong InTime(Reading reading, std::uint32_t division)
{
    std::stable_sort(reading.events.begin(), reading.events.end(),
                     [](const MidiEvent& left, const MidiEvent& right) { return left.time < right.time; });
    const double fixed = FixedTickLength(division);
    const auto tickLength = [&](double tempo) { return fixed > 0 ? fixed : tempo / division; };
    double length = tickLength(UsualTempo);
    double time = 0;
    std::int64_t tick = 0;
    const auto advance = [&](std::int64_t to) {
        time += static_cast<double>(to - tick) * length;
        tick = to;
    };
    MidiSong song;
    song.events.reserve(reading.events.size());
    for (const MidiEvent& event : reading.events) {
        advance(event.time);
        if (event.status == TempoMark) {
            length = tickLength(event.offset);
            continue;
        }
        song.events.push_back(event);
        song.events.back().time = Microseconds(time);
    }
    advance(reading.end);
    song.length = Microseconds(time);
    return song;
}

} // namespace

std::optional<MidiSong> ReadMidi(QByteArrayView file)
{
    if (file.size() > MaximumMidiSize)
        return std::nullopt;
    cByteReader in(ByteViewOf(file));
    in.Skip(StartOf(file));
    if (NextLong(in) != 0x4D546864) // "MThd"
        return std::nullopt;
    const std::uint32_t headLength = NextLong(in);
    const std::uint32_t format = NextWord(in);
    in.Skip(2); // how many tracks there are shows later
    const std::uint32_t division = NextWord(in);
    if (in.IsShort() || headLength < 6 || division == 0)
        return std::nullopt;
    in.Skip(headLength - 6);
    Reading reading;
    bool hasTrack = false;
    while (in.Left() >= 8) {
        const std::uint32_t name = NextLong(in);
        const std::uint32_t claimed = NextLong(in);
        const std::size_t size = std::min<std::size_t>(claimed, in.Left());
        if (name == 0x4D54726B) { // "MTrk"
            hasTrack = true;
            cByteReader track(in.All().first(in.Position() + size));
            track.Skip(in.Position());
            ReadTrack(track, format == 2 ? reading.end : 0, reading);
        }
        in.Skip(size);
    }
    if (!hasTrack)
        return std::nullopt;
    return InTime(std::move(reading), division);
}

} // namespace ob
