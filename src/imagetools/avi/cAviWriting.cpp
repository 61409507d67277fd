// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker.
#include "imagetools/avi/cAviWriting.h"

#include "imaging/modBitmapFile.h"
#include "imaging/modBitmapLayout.h"
#include "platform/files/modFiles.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace ob {

namespace {

// Whether a load will get beyond the check of the file's type.
bool StartsAsBitmap(const QString& path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) &&
           file.read(2) == QByteArrayView("BM");
}

// What goes wrong with the video's own file has the one message.
template <class Work>
auto OnVideo(Work work)
{
    try {
        return work();
    } catch (const AviFailure&) {
        throw;
    } catch (const RuntimeError& error) {
        throw AviFailure(AviErrorText, error.description, error.reason);
    }
}

// Lines of three bytes a pixel, from the topmost on.
struct FrameLines {
    const std::uint8_t* top = nullptr;
    std::ptrdiff_t step = 0;
};

// A bitmap of 24 bits goes to the encoder as it is; nothing for another, and for one that ends early.
std::optional<FrameLines> LinesAsTheyAre(const BitmapLayout& layout)
{
    const auto line = static_cast<std::ptrdiff_t>(layout.LineBytes());
    if (layout.packing != BitmapPacking::TrueColor || std::ssize(layout.pixels) / line < layout.height)
        return {};
    const std::uint8_t* start = layout.pixels.data();
    return layout.topDown ? FrameLines{start, line} : FrameLines{start + line * (layout.height - 1), -line};
}

FrameLines LinesOfPicture(const cDIBSection& picture)
{
    return {picture.Line(picture.Height() - 1), -std::ptrdiff_t{picture.BytesPerScanLine()}};
}

} // namespace

AviFailure::AviFailure(const QString& words, const QString& detail, const QString& systemReason)
    : RuntimeError(static_cast<int>(ErrorNumber::DeviceIoError), {}, (words + u' ' + detail).trimmed(), systemReason),
      message(words), cause(detail)
{
}

cAviWriting::cAviWriting(const QString& outPath, const AviList& list, const QString& framesPerSecond, NoticeSink sink)
    : path(outPath), files(list.files), framesPerSecondText(framesPerSecond), notice(std::move(sink))
{
}

cAviWriting::~cAviWriting() = default;

// The file goes at once and not with this object, which may wait for a box.
template <class Work>
AviState cAviWriting::OrGiveUp(Work work)
{
    try {
        return work();
    } catch (...) {
        writer.reset();
        file.reset();
        throw;
    }
}

AviState cAviWriting::Begin(const OptionsChoice& choose)
{
    return OrGiveUp([&] { return Open(choose); });
}

AviState cAviWriting::WriteFrame()
{
    return OrGiveUp([&] {
        // The first one is loaded already.
        if (written > 0)
            Load(files[written]);
        return PutFrame(encoder ? CompressedFrame() : dib.PointerToBits());
    });
}

bool cAviWriting::Load(const QString& name)
{
    // One frame in memory, not two; but the one before is still needed when this one cannot be had.
    if (StartsAsBitmap(name))
        dib = cDIB();
    return LoadAviBitmap(dib, name, AviBitmapPart::Whole, notice);
}

AviState cAviWriting::Open(const OptionsChoice& choose)
{
    OnVideo([&] { file = std::make_unique<cFileReplacement>(path, Durability::Unsynced); });
    if (files.isEmpty() || !Load(files.first()))
        throw AviFailure(NoFirstBitmapText);
    first = FormatOf(dib);
    const std::int32_t framesPerSecond = FramesPerSecondOf(framesPerSecondText);
    const std::optional<AviOptions> options = choose(first);
    return OnVideo([&] {
        if (options) {
            OpenStream(*options, framesPerSecond);
            return AviState::Writing;
        }
        // The file is opened before the question.
        if (!FileExists(path))
            file->Finish();
        file.reset();
        return AviState::Dismissed;
    });
}

void cAviWriting::OpenStream(const AviOptions& options, std::int32_t framesPerSecond)
{
    AviStreamInfo info = StreamInfoOf(dib, framesPerSecond);
    if (options.codec == NoCodec) {
        writer = std::make_unique<cAviWriter>(*file, info, StreamFormatOf(dib), FramesOf(dib));
        return;
    }
    AviEncoderResult made = MakeAviEncoder(options, first.width, LinesOf(first), framesPerSecond);
    if (!made.encoder)
        throw AviFailure(made.reason);
    encoder = std::move(made.encoder);
    info.fccHandler = encoder->Handler();
    info.rcFrame.bottom = LinesOf(first);
    writer = std::make_unique<cAviWriter>(*file, info, encoder->Format(), AviFrames::Compressed);
}

AviState cAviWriting::PutFrame(ByteView bytes)
{
    return OnVideo([&] {
        writer->WriteFrame(bytes);
        if (++written < files.size())
            return AviState::Writing;
        writer->Finish();
        file->Finish();
        return AviState::Finished;
    });
}

ByteView cAviWriting::CompressedFrame()
{
    const std::vector<std::uint8_t> info = StreamFormatOf(dib);
    const BitmapParts parts = {info, FramePixelsOf(dib)};
    const auto read = ReadBitmapLayout(parts);
    const auto* layout = std::get_if<BitmapLayout>(&read);
    std::optional<FrameLines> lines;
    std::variant<cDIBSection, BitmapError> decoded;
    if (layout != nullptr && layout->width == first.width && layout->height == LinesOf(first)) {
        lines = LinesAsTheyAre(*layout);
        if (!lines) {
            decoded = ReadBitmap(parts);
            if (const auto* picture = std::get_if<cDIBSection>(&decoded))
                lines = LinesOfPicture(*picture);
        }
    }
    if (!lines) {
        throw AviFailure(AviErrorText, u"%1 cannot be read as a picture of %2 x %3 pixels."_s.arg(files[written])
                                           .arg(first.width)
                                           .arg(LinesOf(first)));
    }
    const ByteView bytes = encoder->Encode(lines->top, lines->step);
    if (bytes.empty())
        throw AviFailure(AviErrorText, u"The compressor failed."_s);
    return bytes;
}

} // namespace ob
