// SPDX-License-Identifier: GPL-3.0-or-later
// Media files: playing them, and the code that plays them.
#include "imagetools/media/modMedia.h"

#include "platform/files/cFileReplacement.h"
#include "platform/language/cRuntimeError.h"
#include "platform/language/modRuntime.h"
#include "platform/media/modMci.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <span>
#include <vector>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// There is one device for all, so the playing file is the process's.
float mediaLength = 0;

constexpr int BufferSize = 128;

// The answer to a query about the playing file: the number at its start.
float Ask(const QString& command)
{
    QByteArray buffer(BufferSize, ' ');
    mciSendStringA(command, &buffer, BufferSize, 0);
    const qsizetype end = buffer.indexOf('\0');
    return static_cast<float>(Val(QByteArrayView(buffer).first(end < 0 ? buffer.size() : end)));
}

void PlayOn(const QString& device, const QString& file)
{
    StopMedia();
    QByteArray buffer(BufferSize, ' ');
    mciSendStringA(u"open "_s + device + u'!' + file + u" alias PlayFile "_s, &buffer, BufferSize, 0);
    mediaLength = Ask(u"status PlayFile length"_s);
    mciSendStringA(u"play PlayFile"_s, nullptr, 0, 0);
}

QString TypeClause(MediaType type)
{
    switch (type) {
    case MediaType::Midi:
        return u" type sequencer alias PlayFile"_s;
    case MediaType::Avi:
        return u" type avivideo alias PlayFile"_s;
    case MediaType::Mpeg:
        return u" type mpegvideo alias PlayFile"_s;
    case MediaType::Unknown:
        break;
    }
    return {};
}

// Paths in programs have the separator of the programs' own system.
QString WithoutFolders(const QString& file)
{
    return file.sliced(std::max(file.lastIndexOf(u'/'), file.lastIndexOf(u'\\')) + 1);
}

QString ClockText(float milliseconds)
{
    // A damaged file can claim any length.
    constexpr float longest = 1e12F;
    const auto seconds = std::llround(std::floor(std::clamp(milliseconds, 0.0F, longest) / 1000));
    const auto twoDigits = [](long long number) { return u"%1"_s.arg(number, 2, 10, QLatin1Char('0')); };
    const QString rest = twoDigits(seconds % 60);
    const auto minutes = seconds / 60;
    if (minutes < 60)
        return u"%1:%2"_s.arg(minutes).arg(rest);
    return u"%1:%2:%3"_s.arg(minutes / 60).arg(twoDigits(minutes % 60), rest);
}

} // namespace

float MediaLength()
{
    return mediaLength;
}

void PlayAVI(const QString& file)
{
    PlayOn(u"AVIvideo"_s, file);
}

void PlayMIDI(const QString& file)
{
    PlayOn(u"sequencer"_s, file);
}

void PlayMPEG(const QString& file)
{
    PlayOn(u"MPEGvideo"_s, file);
}

void StopMedia()
{
    mciSendStringA(u"close all"_s, nullptr, 0, 0);
}

MediaProgress PollMedia()
{
    const float position = Ask(u"status PlayFile position"_s);
    if (position < mediaLength)
        return {position, false};
    StopMedia();
    return {position, true};
}

QString MediaExtension(const QString& file)
{
    const qsizetype dot = file.indexOf(u'.');
    return dot < 0 ? QString() : file.sliced(dot + 1);
}

MediaType MediaTypeOf(const QString& file)
{
    const QString extension = LowerAscii(MediaExtension(file));
    if (extension == QLatin1String("avi"))
        return MediaType::Avi;
    if (extension == QLatin1String("mid"))
        return MediaType::Midi;
    for (const QLatin1String mpeg : {QLatin1String("mpg"), QLatin1String("mpeg"), QLatin1String("mp3")})
        if (extension == mpeg)
            return MediaType::Mpeg;
    return MediaType::Unknown;
}

bool PlayMedia(const QString& file)
{
    switch (MediaTypeOf(file)) {
    case MediaType::Avi:
        PlayAVI(file);
        return true;
    case MediaType::Midi:
        PlayMIDI(file);
        return true;
    case MediaType::Mpeg:
        PlayMPEG(file);
        return true;
    case MediaType::Unknown:
        break;
    }
    return false;
}

QString MediaCode(const QString& file, MediaPath path)
{
    const QString name = path == MediaPath::Whole ? file : WithoutFolders(file);
    const QString call = u"calldll #winmm, \"mciSendStringA\", a$ as ptr, 0 as long, 0 as long, "
                         "0 as long, r as long\r\n"_s;
    return u"a$ = \"open "_s + name + TypeClause(MediaTypeOf(file)) + u"\"\r\n"_s + call +
           u"a$ = \"play PlayFile wait\"\r\n"_s + call + u"a$ = \"close PlayFile\"\r\n"_s + call;
}

QString MediaCopyFilter(const QString& file)
{
    switch (MediaTypeOf(file)) {
    case MediaType::Midi:
        return u"MIDI Files (*.mid)| *.mid"_s;
    case MediaType::Avi:
        return u"AVI Files (*.avi)| *.avi"_s;
    case MediaType::Mpeg:
        return EqualsIgnoreCase(MediaExtension(file), QLatin1String("mp3")) ? u"Music Files (*.mp3)| *.mp3"_s
                                                                            : u"Movie Files (*.mpg)| *.mpg"_s;
    case MediaType::Unknown:
        break;
    }
    return {};
}

void CopyMedia(const QString& from, const QString& to)
{
    // A film may be larger than memory, so it goes over piece by piece.
    std::vector<std::uint8_t> piece(std::size_t{1} << 20);
    QFile source(from);
    if (!QFileInfo(from).isFile() || !source.open(QIODevice::ReadOnly))
        throw RuntimeErrorOf(ErrorNumber::PathFileAccess, from, source.errorString());
    cFileReplacement target(to, Durability::Unsynced);
    for (;;) {
        const qint64 count = source.read(reinterpret_cast<char*>(piece.data()), static_cast<qint64>(piece.size()));
        if (count < 0)
            throw RuntimeErrorOf(ErrorNumber::DeviceIoError, from, source.errorString());
        if (count == 0)
            break;
        target.Write(std::span(piece).first(static_cast<std::size_t>(count)));
    }
    target.Finish();
}

QString MediaTimeText(float position, float length)
{
    return ClockText(std::min(position, length)) + u" / "_s + ClockText(length);
}

QString MissingMediaText()
{
    switch (LastMediaTrouble()) {
    case MediaTrouble::NoPlayer:
        return u"The library MediaPlayerOB, which plays media files, cannot be loaded.  Please reinstall "
               "Orchard Bench."_s;
    case MediaTrouble::NoSoundFont:
        return u"MIDI files need a sound font, and none was found.  Please install one, for example the "
               "package timgm6mb-soundfont."_s;
    case MediaTrouble::None:
    case MediaTrouble::NoSoundDevice:
        break;
    }
    return {};
}

bool IsMediaSilent()
{
    return LastMediaTrouble() == MediaTrouble::NoSoundDevice;
}

} // namespace ob
