// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker: a list of bitmap files becomes a video, a frame each.
#pragma once

#include "imagetools/avi/modAvi.h"
#include "imagetools/avi/modAviCodecs.h"
#include "platform/files/cFileReplacement.h"
#include "platform/language/cRuntimeError.h"

#include <functional>
#include <memory>
#include <optional>

namespace ob {

inline const QString NoFirstBitmapText = QStringLiteral("Could not load first bitmap file in list!");
inline const QString AviErrorText = QStringLiteral("There was an error writing the file.");

// A video that cannot be made: the words for the user, and what happened, which may be empty. The description is both.
class AviFailure final : public RuntimeError {
public:
    explicit AviFailure(const QString& words, const QString& detail = {}, const QString& systemReason = {});

    QString message;
    QString cause;
};

enum class AviState {
    Writing,
    Finished,
    Dismissed // no options were chosen
};

// One video in the making. Only one frame is in memory. Let go before it is finished, and after anything that is
// raised, it leaves no file, and what was under the path stays as it was.
class cAviWriting {
public:
    // Asks for the options, knowing the format of the frames; nothing means that the user thought better of it.
    using OptionsChoice = std::function<std::optional<AviOptions>(const AviFormat& first)>;

    cAviWriting(const QString& path, const AviList& list, const QString& framesPerSecond, NoticeSink notice);
    ~cAviWriting();

    // Opens the file, loads the first bitmap, asks for the options and writes the headers. Dismissed leaves an empty
    // file where there was none. Raises AviFailure, and what loading a bitmap and FramesPerSecondOf raise.
    AviState Begin(const OptionsChoice& choose);

    // Writes the next frame. A bitmap that cannot be loaded any more is shown as a notice, and the frame before goes
    // out once more. Raises AviFailure, and what loading a bitmap raises.
    AviState WriteFrame();

    qsizetype FrameCount() const { return files.size(); }
    qsizetype FramesWritten() const { return written; }

private:
    bool Load(const QString& file);
    AviState Open(const OptionsChoice& choose);
    void OpenStream(const AviOptions& options, std::int32_t framesPerSecond);
    AviState PutFrame(ByteView bytes);
    ByteView CompressedFrame();
    template <class Work>
    AviState OrGiveUp(Work work);

    QString path;
    QStringList files;
    QString framesPerSecondText;
    NoticeSink notice;
    cDIB dib;
    AviFormat first;
    std::unique_ptr<cAviEncoder> encoder;
    std::unique_ptr<cFileReplacement> file;
    std::unique_ptr<cAviWriter> writer;
    qsizetype written = 0;
};

} // namespace ob
