// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker: a list of bitmap files of one size and format becomes a video, a frame each.
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

// As the bitmap's header tells them; the height of one that runs from the top down is negative.
struct AviFormat {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t bitCount = 0;
    bool operator==(const AviFormat&) const = default;
};

// The height without its sign; 0 for one that has no such number.
std::int32_t LinesOf(const AviFormat& format);

// The files in the order of the frames, and the format of the first.
struct AviList {
    QStringList files;
    std::optional<AviFormat> first;
};

// The format of a file that may go into the list. Nothing, after a notice, when it cannot be loaded or has another
// format than the first. Raises SubscriptOutOfRange for a header without the image's size.
std::optional<AviFormat> FormatForList(const AviList& list, const QString& file, const NoticeSink& notice);
void AddToList(AviList& list, const QString& file, const AviFormat& format);

// The number in a text, rounded, within 1 to 30; 1 for a text without one. Raises Overflow beyond a double.
std::int32_t FramesPerSecondOf(QStringView text);

// What describes the stream of such bitmaps.
AviStreamInfo StreamInfoOf(const cDIB& first, std::int32_t framesPerSecond);

// The stream's format: header and colour table as the bitmap has them, without the byte behind them. A longer header is
// cut to the 40 bytes that video players know; masks that only say what is usual are left out.
std::vector<std::uint8_t> StreamFormatOf(const cDIB& first);

enum class AviState {
    Writing,
    Finished,
    Dismissed, // no options were chosen
    Failed
};

// One video in the making. Only one frame is in memory. Let go before it is finished, it leaves no file, and what stood
// under the path stays as it was.
class AviWriting {
public:
    // Asks for the options, knowing the format of the frames; nothing means that the user thought better of it.
    using OptionsChoice = std::function<std::optional<AviOptions>(const AviFormat& first)>;

    AviWriting(const QString& path, const AviList& list, const QString& framesPerSecond, NoticeSink notice);
    ~AviWriting();

    // Opens the file, loads the first bitmap, asks for the options and writes the headers. Dismissed leaves an empty
    // file where there was none. Raises what loading a bitmap and FramesPerSecondOf raise.
    AviState Begin(const OptionsChoice& choose);

    // Writes the next frame. A bitmap that cannot be loaded any more is told as a notice, and the frame before goes out
    // once more. Raises what loading a bitmap raises.
    AviState WriteFrame();

    qsizetype FrameCount() const { return files.size(); }
    qsizetype FramesWritten() const { return written; }

    // After Failed: the words for the user, and what happened, which may be empty.
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
