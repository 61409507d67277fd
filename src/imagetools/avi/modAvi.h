// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker: a list of bitmap files of one size and format becomes a video, one frame each.
#pragma once

#include "imagetools/avi/modAviCodecs.h"
#include "imagetools/avi/modAviFile.h"
#include "imaging/cDIB.h"
#include "platform/files/cFileReplacement.h"

#include <QString>
#include <QStringList>
#include <QStringView>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ob {

inline const QString DifferentFormatText = QStringLiteral("Chosen bitmap file is a different format!");
inline const QString NoFirstBitmapText = QStringLiteral("Could not load first bitmap file in list!");
inline const QString AviErrorText = QStringLiteral("There was an error writing the file.");

// From the bitmap's header; the height of a top-down one is negative.
struct AviFormat {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bitCount = 0;
    bool operator==(const AviFormat&) const = default;
};

// The height without its sign; 0 for the one that has no counterpart.
std::int32_t LinesOf(const AviFormat& format);

// The files in the order of the frames, and the format of the first.
struct AviList {
    QStringList files;
    std::optional<AviFormat> first;
};

// The format of a file that fits into the list. Nothing, after a notice, when it cannot be loaded or has another format
// than the first. Raises SubscriptOutOfRange for a header without the image's size.
std::optional<AviFormat> FormatForList(const AviList& list, const QString& file, const NoticeSink& notice);
void AddToList(AviList& list, const QString& file, const AviFormat& format);

// The number in a text, rounded, within 1 to 30; 1 for a text without one. Raises Overflow beyond a double.
std::int32_t FramesPerSecondOf(QStringView text);

// The description of a stream of such bitmaps.
AviStreamInfo StreamInfoOf(const cDIB& first, std::int32_t framesPerSecond);

// The stream's format: header and colour table as in the bitmap, without the byte after them. A longer header is
// truncated to the 40 bytes that video players know; default masks are omitted.
std::vector<std::uint8_t> StreamFormatOf(const cDIB& first);

enum class AviState {
    Writing,
    Finished,
    Dismissed, // no options were chosen
    Failed
};

// One video in progress. Only one frame is in memory. Destroyed before it is finished, it leaves no file, and an older
// file under the path is unchanged.
class AviWriting {
public:
    // Asks for the options, given the format of the frames; nothing when the user cancels.
    using OptionsChoice = std::function<std::optional<AviOptions>(const AviFormat& first)>;

    AviWriting(const QString& path, const AviList& list, const QString& framesPerSecond, NoticeSink notice);
    ~AviWriting();

    // Opens the file, loads the first bitmap, asks for the options and writes the headers. Dismissed leaves an empty
    // file if there was none. Raises what loading a bitmap and FramesPerSecondOf raise.
    AviState Begin(const OptionsChoice& choose);

    // Writes the next frame. A bitmap that can no longer be loaded is reported as a notice, and the previous frame is
    // written again. Raises what loading a bitmap raises.
    AviState WriteFrame();

    qsizetype FrameCount() const { return files.size(); }
    qsizetype FramesWritten() const { return written; }

    // After Failed: the message for the user, and the reason, which may be empty.
    const QString& Message() const { return message; }
    const QString& Reason() const { return reason; }

private:
    bool Load(const QString& file);
    void OpenStream(const AviOptions& options, std::int32_t framesPerSecond);
    ByteView FrameBytes();
    ByteView CompressedFrame();
    AviState Fail(const QString& text, const QString& cause);

    QString path;
    QStringList files;
    QString framesPerSecondText;
    NoticeSink notice;
    QString message;
    QString reason;
    cDIB dib;
    std::vector<std::uint8_t> bitmap; // of the frame, for the compressor
    AviFormat first;
    std::unique_ptr<cAviEncoder> encoder;
    std::unique_ptr<cFileReplacement> file;
    std::unique_ptr<AviWriter> writer;
    qsizetype written = 0;
};

} // namespace ob
