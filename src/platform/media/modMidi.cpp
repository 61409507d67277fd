// SPDX-License-Identifier: GPL-3.0-or-later
// The reader of standard MIDI files.
#include "platform/media/modMidi.h"

#include <algorithm>
#include <utility>

namespace ob {

namespace {

constexpr std::uint8_t TempoMark = 0xFF; // an event of our own: microseconds a beat in `offset`
constexpr double UsualTempo = 500'000;   // microseconds a beat

// Bytes read in sequence; a read beyond the end yields zeros and makes the cursor fail.
class Cursor {
public:
    Cursor(QByteArrayView all, qsizetype from, qsizetype count) : bytes(all), place(from), end(from + count) {}

    bool Failed() const { return failed; }
    qsizetype Place() const { return place; }
    qsizetype Left() const { return end - place; }

    std::uint8_t Byte()
    {
        if (place >= end) {
            failed = true;
            return 0;
        }
        return static_cast<std::uint8_t>(bytes[place++]);
    }

    std::uint8_t Peek() const { return place < end ? static_cast<std::uint8_t>(bytes[place]) : std::uint8_t{0}; }

    std::uint32_t Number(int width)
    {
        std::uint32_t value = 0;
        for (int i = 0; i < width; ++i)
            value = (value << 8) | Byte();
        return value;
    }

    std::uint32_t VariableNumber()
    {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) {
            const std::uint8_t byte = Byte();
            value = (value << 7) | (byte & 0x7FU);
            if (byte < 0x80)
                return value;
        }
        failed = true;
        return 0;
    }

    void Skip(std::uint32_t count)
    {
        if (static_cast<qsizetype>(count) > Left()) {
            failed = true;
            return;
        }
        place += static_cast<qsizetype>(count);
    }

private:
    QByteArrayView bytes;
    qsizetype place;
    qsizetype end;
    bool failed = false;
};

// While a file is read, `time` is in ticks.
struct Reading {
    std::vector<MidiEvent> events;
    std::int64_t end = 0;
};

// Reads one message. False at the track's end, or where the bytes make no sense.
bool TakeMessage(Cursor& in, std::uint8_t& running, std::int64_t tick, Reading& reading)
{
    MidiEvent event;
    event.time = tick;
    event.status = in.Peek() < 0x80 ? running : in.Byte();
    if (event.status == 0xFF) {
        const std::uint8_t kind = in.Byte();
        const std::uint32_t length = in.VariableNumber();
        if (kind == 0x2F)
            return false;
        if (kind == 0x51 && length == 3) {
            event.status = TempoMark;
            event.offset = in.Number(3);
            if (!in.Failed() && event.offset != 0)
                reading.events.push_back(event);
        } else {
            in.Skip(length);
        }
        return !in.Failed();
    }
    if (event.status == 0xF0 || event.status == 0xF7) {
        event.length = in.VariableNumber();
        event.offset = static_cast<std::uint32_t>(in.Place());
        const bool opens = event.status == 0xF0;
        in.Skip(event.length);
        // Only messages that are complete in one piece are passed on.
        if (!in.Failed() && opens && event.length > 0) {
            event.length -= 1;
            reading.events.push_back(event);
        }
        return !in.Failed();
    }
    if (event.status < 0x80 || event.status > 0xEF)
        return false;
    running = event.status;
    event.first = in.Byte() & 0x7F;
    const int message = event.status & 0xF0;
    if (message != 0xC0 && message != 0xD0)
        event.second = in.Byte() & 0x7F;
    if (!in.Failed())
        reading.events.push_back(event);
    return !in.Failed();
}

void ReadTrack(Cursor in, std::int64_t start, Reading& reading)
{
    std::int64_t tick = start;
    std::uint8_t running = 0;
    while (in.Left() > 0) {
        const std::uint32_t delta = in.VariableNumber();
        if (in.Failed())
            break;
        tick += delta;
        if (!TakeMessage(in, running, tick, reading))
            break;
    }
    reading.end = std::max(reading.end, tick);
}

// The start of the MIDI file: after the header of a RIFF container, if there is one.
qsizetype StartOf(QByteArrayView file)
{
    if (!file.startsWith("RIFF") || file.size() < 12 || file.sliced(8, 4) != QByteArrayView("RMID", 4))
        return 0;
    qsizetype place = 12;
    while (place + 8 <= file.size()) {
        if (file.sliced(place, 4) == QByteArrayView("data", 4))
            return place + 8;
        std::uint32_t size = 0;
        for (int i = 3; i >= 0; --i)
            size = (size << 8) | static_cast<std::uint8_t>(file[place + 4 + i]);
        place += 8 + static_cast<qsizetype>(size) + (size & 1U);
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
    const qsizetype start = StartOf(file);
    Cursor in(file, start, file.size() - start);
    if (in.Number(4) != 0x4D546864) // "MThd"
        return std::nullopt;
    const std::uint32_t headLength = in.Number(4);
    const std::uint32_t format = in.Number(2);
    in.Skip(2); // the number of tracks is found later
    const std::uint32_t division = in.Number(2);
    if (in.Failed() || headLength < 6 || division == 0)
        return std::nullopt;
    in.Skip(headLength - 6);
    Reading reading;
    bool hasTrack = false;
    while (!in.Failed() && in.Left() >= 8) {
        const std::uint32_t name = in.Number(4);
        const std::uint32_t claimed = in.Number(4);
        const qsizetype size = std::min<qsizetype>(claimed, in.Left());
        if (name == 0x4D54726B) { // "MTrk"
            hasTrack = true;
            ReadTrack(Cursor(file, in.Place(), size), format == 2 ? reading.end : 0, reading);
        }
        in.Skip(static_cast<std::uint32_t>(size));
    }
    if (!hasTrack)
        return std::nullopt;
    return InTime(std::move(reading), division);
}

} // namespace ob
