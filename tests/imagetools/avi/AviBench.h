// SPDX-License-Identifier: GPL-3.0-or-later
// What the tests of videos share: bitmap files of every kind, and ffmpeg as the reference.
#pragma once

#include "imagetools/avi/cAviWriting.h"
#include "imagetools/pictures/modPicture.h"

#include "imaging/BitmapBytes.h"
#include "platform/files/FileTrouble.h"

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <random>

inline QByteArray BytesOf(const std::vector<std::uint8_t>& bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

inline ob::ByteView ViewOf(const QByteArray& bytes)
{
    return {reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size())};
}

// Writes the whole video. A failure gives its state as it was, with the words in place of none.
struct AviOutcome {
    ob::AviState state = ob::AviState::Writing;
    QString message;
    QString reason;
};
inline AviOutcome OutcomeOf(ob::cAviWriting& writing, const ob::AviOptions& options)
{
    AviOutcome outcome;
    try {
        outcome.state = writing.Begin([&](const ob::AviFormat&) { return options; });
        while (outcome.state == ob::AviState::Writing)
            outcome.state = writing.WriteFrame();
    } catch (const ob::AviFailure& failure) {
        outcome.message = failure.message;
        outcome.reason = failure.cause;
    }
    return outcome;
}

// The state that a failed writing is left in.
constexpr ob::AviState Unfinished = ob::AviState::Writing;

// One kind of bitmap file. A header above 40 bytes includes the masks.
struct BitmapKind {
    int bits = 24;
    int height = 11; // below 0 for lines from the top down
    int width = 37;
    int headerSize = 40;
    int colors = 0; // of the table, 0 for the maximum
    std::vector<std::uint32_t> masks = {};
    int gap = 0; // bytes between table and pixels
};

// A file of noise. The fourth byte of 32-bit pixels and the padding of lines are noise too.
inline QByteArray NoiseBitmap(const BitmapKind& kind, unsigned seed)
{
    std::mt19937 random(seed);
    const int line = (kind.width * kind.bits + 31) / 32 * 4;
    const int size = line * std::abs(kind.height);
    const int colors = kind.bits > 8 ? 0 : kind.colors == 0 ? 1 << kind.bits : kind.colors;
    const int masksAfter = kind.headerSize == 40 ? static_cast<int>(kind.masks.size()) * 4 : 0;
    BitmapBytes file;
    file.FileHeader(14 + kind.headerSize + masksAfter + colors * 4 + kind.gap);
    file.InfoHeader(kind.width, kind.height, kind.bits, kind.masks.empty() ? 0 : 3, size, kind.colors, kind.headerSize);
    for (const std::uint32_t mask : kind.masks)
        file.Put(mask, 4);
    file.Put(0, 14 + kind.headerSize + masksAfter - static_cast<int>(file.bytes.size()));
    std::mt19937 tableRandom(7);
    for (int color = 0; color < colors; ++color)
        file.Put(tableRandom() & 0xFFFFFF, 4);
    file.Put(0, kind.gap);
    for (int byte = 0; byte < size; ++byte)
        file.Put(random() & 0xFF, 1);
    return BytesOf(file.bytes);
}

// The picture's pixels from the top, blue, green, red, without padding.
inline QByteArray PixelsOf(const ob::cDIBSection& picture)
{
    QByteArray pixels;
    for (int y = picture.Height() - 1; y >= 0; --y)
        pixels.append(reinterpret_cast<const char*>(picture.Line(y)), picture.Width() * 3);
    return pixels;
}

inline QByteArray OutputOf(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60'000) || process.exitCode() != 0 || process.exitStatus() != QProcess::NormalExit)
        return QByteArrayLiteral("<") + process.readAllStandardError() + process.errorString().toUtf8() + '>';
    return process.readAllStandardOutput();
}

// All frames of a video as ffmpeg decodes them, in one of its pixel formats; or its error message.
inline QByteArray Decoded(const QString& video, const char* pixelFormat = "bgr24")
{
    return OutputOf(QStringLiteral("ffmpeg"),
                    {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-xerror"), QStringLiteral("-i"),
                     video, QStringLiteral("-fps_mode"), QStringLiteral("passthrough"), QStringLiteral("-f"),
                     QStringLiteral("rawvideo"), QStringLiteral("-pix_fmt"), QString::fromLatin1(pixelFormat),
                     QStringLiteral("-")});
}

// Values that ffprobe reports of the video, as "a,b".
inline QByteArray Probed(const QString& video, const char* entries)
{
    return OutputOf(QStringLiteral("ffprobe"),
                    {QStringLiteral("-v"), QStringLiteral("error"), QStringLiteral("-show_entries"),
                     QString::fromLatin1(entries), QStringLiteral("-of"), QStringLiteral("csv=p=0"), video})
        .trimmed();
}

// The numbers of key frames and of other frames in the video.
struct FrameKinds {
    qsizetype key = 0;
    qsizetype other = 0;
    bool operator==(const FrameKinds&) const = default;
};
inline FrameKinds FramesIn(const QString& video)
{
    FrameKinds kinds;
    for (const QByteArray& line : Probed(video, "packet=flags").split('\n')) {
        kinds.key += line.startsWith("K_");
        kinds.other += line.startsWith("__");
    }
    return kinds;
}
