// SPDX-License-Identifier: GPL-3.0-or-later
// The AVI maker.
#include "imagetools/avi/modAvi.h"

#include "imagetools/pictures/modPicture.h"
#include "imaging/modBitmapFile.h"
#include "imaging/modBitmapHeaders.h"
#include "platform/files/modFiles.h"
#include "platform/language/modRuntime.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <limits>
#include <utility>

namespace ob {

namespace {

constexpr double LeastRate = 1;
constexpr double MostRate = 30;

// In the header.
constexpr std::size_t SizeOffset = 0;
constexpr std::size_t CompressionOffset = 16;

enum Compression : std::int32_t { Plain = 0, BitFields = 3, AlphaBitFields = 6 };

AviFormat FormatOf(const cDIB& dib)
{
    return {dib.Width(), dib.Height(), dib.BitCount()};
}

enum class Wanted { Headers, Frame };

// The part of a bitmap file that is read: its headers, and for a frame also the pixels that the file has.
qint64 BytesNeeded(QFile& file, Wanted wanted)
{
    std::array<std::uint8_t, FileHeaderSize + InfoHeaderSize> start = {};
    const std::int64_t least = std::min<std::int64_t>(file.size(), start.size());
    if (wanted == Wanted::Headers)
        return least;
    if (file.read(reinterpret_cast<char*>(start.data()), start.size()) < 0 || !file.seek(0))
        return 0;
    const ByteView bytes(start);
    const std::int64_t pixels = ReadFileHeader(bytes).bfOffBits;
    const std::int64_t size = ReadInfoHeader(bytes.subspan(FileHeaderSize)).biSizeImage;
    return std::clamp<std::int64_t>(pixels + size, least, file.size());
}

// Reads into the bytes that the bitmap then keeps; files that cannot be read that way are left to the usual reader,
// which knows the reasons.
FileContent ReadBitmapFile(const std::string& name, Wanted wanted)
{
    const QString path = QString::fromStdString(name);
    QFile file(path);
    if (QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        std::vector<std::uint8_t> bytes(static_cast<std::size_t>(BytesNeeded(file, wanted)));
        const auto count = static_cast<qint64>(bytes.size());
        if (count > 0 && file.read(reinterpret_cast<char*>(bytes.data()), count) == count)
            return {FileOutcome::Done, std::move(bytes), {}};
    }
    return DiskReader()(name);
}

bool LoadBitmap(cDIB& dib, const QString& path, Wanted wanted, const NoticeSink& notice)
{
    const auto read = [wanted](const std::string& name) { return ReadBitmapFile(name, wanted); };
    try {
        return dib.CreateFromFile(path.toStdString(), read, notice);
    } catch (const ImagingError& error) {
        throw RuntimeErrorOf(error);
    }
}

// Whether a load will pass the check of the file's type.
bool StartsAsBitmap(const QString& path)
{
    QFile file(path);
    return QFileInfo(path).isFile() && file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) &&
           file.read(2) == QByteArrayView("BM");
}

// As many of the bytes there as exist.
ByteView Part(ByteView bytes, std::size_t start, std::size_t count)
{
    const ByteView rest = bytes.subspan(std::min(start, bytes.size()));
    return rest.first(std::min(count, rest.size()));
}

void PutLong(std::vector<std::uint8_t>& bytes, std::size_t offset, std::size_t value)
{
    for (std::size_t place = 0; place < 4; ++place)
        bytes[offset + place] = static_cast<std::uint8_t>(value >> (8 * place));
}

std::size_t TableBytes(const cDIB& dib)
{
    const auto used = static_cast<std::uint32_t>(dib.ClrUsed());
    const int bits = dib.BitCount();
    const bool isIndexed = bits >= 1 && bits <= 8;
    const std::size_t most = isIndexed ? std::size_t{1} << bits : 256;
    return 4 * (used != 0 ? std::min<std::size_t>(used, most) : isIndexed ? most : 0);
}

bool HasUsualMasks(const cDIB& dib, ByteView masks)
{
    const cByteReader reader(masks);
    const std::array<std::uint32_t, 3> values = {reader.Long(0), reader.Long(4), reader.Long(8)};
    if (dib.BitCount() == 16)
        return values == std::array<std::uint32_t, 3>{0x7C00, 0x3E0, 0x1F};
    return dib.BitCount() == 32 && values == std::array<std::uint32_t, 3>{0xFF0000, 0xFF00, 0xFF};
}

// The size of the pixels without run lengths; for a bitmap with them, as many as there are.
std::size_t PixelBytes(const cDIB& dib)
{
    const auto all = static_cast<std::size_t>(dib.SizeImage());
    const std::int64_t width = dib.Width();
    const int bits = dib.BitCount();
    const bool isPlain =
        dib.Compression() == Plain || dib.Compression() == BitFields || dib.Compression() == AlphaBitFields;
    if (!isPlain || width < 1 || bits < 1 || bits > 32)
        return all;
    const std::int64_t bytes = (width * bits + 31) / 32 * 4 * LinesOf(FormatOf(dib));
    return std::min(all, static_cast<std::size_t>(bytes));
}

} // namespace

std::int32_t LinesOf(const AviFormat& format)
{
    // The smallest number has no counterpart, and no picture is that high.
    return format.height == std::numeric_limits<std::int32_t>::min() ? 0 : std::abs(format.height);
}

std::optional<AviFormat> FormatForList(const AviList& list, const QString& file, const NoticeSink& notice)
{
    cDIB dib;
    if (!LoadBitmap(dib, file, Wanted::Headers, notice))
        return {};
    const AviFormat format = FormatOf(dib);
    if (!list.first || *list.first == format)
        return format;
    notice(DifferentFormatText.toStdString(), NoticeIcon::Information);
    return {};
}

void AddToList(AviList& list, const QString& file, const AviFormat& format)
{
    list.files.append(file);
    if (!list.first)
        list.first = format;
}

std::int32_t FramesPerSecondOf(QStringView text)
{
    // The bounds come first, as a number may exceed every integer; the bounds are not halves.
    return ToInt32(std::clamp(Val(text), LeastRate, MostRate));
}

AviStreamInfo StreamInfoOf(const cDIB& first, std::int32_t framesPerSecond)
{
    AviStreamInfo info;
    info.dwRate = static_cast<std::uint32_t>(framesPerSecond);
    info.dwSuggestedBufferSize = static_cast<std::uint32_t>(first.SizeImage());
    info.rcFrame = {0, 0, first.Width(), first.Height()};
    return info;
}

std::vector<std::uint8_t> StreamFormatOf(const cDIB& first)
{
    ByteView info = first.PointerToBitmapInfo();
    info = info.first(info.size() - 1);
    const auto claimed = static_cast<std::size_t>(std::max(first.SizeInfoHeader(), 0));
    const std::size_t headerSize = std::max(claimed, InfoHeaderSize);
    const bool hasMasks = first.Compression() == BitFields || first.Compression() == AlphaBitFields;
    const std::size_t maskBytes = !hasMasks ? 0 : first.Compression() == BitFields ? 12 : 16;
    // A header with space for the masks contains them.
    const bool areMasksAfter = headerSize < InfoHeaderSize + 12;
    const ByteView masks = Part(info, InfoHeaderSize, maskBytes);
    const ByteView table = Part(info, headerSize + (areMasksAfter ? maskBytes : 0), TableBytes(first));

    const ByteView header = Part(info, 0, InfoHeaderSize);
    std::vector<std::uint8_t> format(header.begin(), header.end());
    format.resize(InfoHeaderSize);
    PutLong(format, SizeOffset, InfoHeaderSize);
    if (hasMasks && HasUsualMasks(first, masks))
        PutLong(format, CompressionOffset, Plain);
    else
        format.insert(format.end(), masks.begin(), masks.end());
    format.insert(format.end(), table.begin(), table.end());
    return format;
}

AviWriting::AviWriting(const QString& outPath, const AviList& list, const QString& framesPerSecond, NoticeSink sink)
    : path(outPath), files(list.files), framesPerSecondText(framesPerSecond), notice(std::move(sink))
{
}

AviWriting::~AviWriting() = default;

bool AviWriting::Load(const QString& name)
{
    // One frame in memory, not two; but the previous one is still needed when this one cannot be loaded.
    if (StartsAsBitmap(name))
        dib = cDIB();
    return LoadBitmap(dib, name, Wanted::Frame, notice);
}

AviState AviWriting::Begin(const OptionsChoice& choose)
{
    try {
        file = std::make_unique<cFileReplacement>(path);
        if (files.isEmpty() || !Load(files.first()))
            return Fail(NoFirstBitmapText, {});
    } catch (const RuntimeError& error) {
        if (file)
            throw;
        return Fail(AviErrorText, error.description);
    }
    first = FormatOf(dib);
    const std::int32_t framesPerSecond = FramesPerSecondOf(framesPerSecondText);
    const std::optional<AviOptions> options = choose(first);
    try {
        if (!options) {
            // The file is opened before the question.
            if (!FileExists(path))
                file->Finish();
            file.reset();
            return AviState::Dismissed;
        }
        OpenStream(*options, framesPerSecond);
    } catch (const RuntimeError& error) {
        return Fail(AviErrorText, error.description);
    }
    return writer ? AviState::Writing : AviState::Failed;
}

void AviWriting::OpenStream(const AviOptions& options, std::int32_t framesPerSecond)
{
    AviStreamInfo info = StreamInfoOf(dib, framesPerSecond);
    if (options.codec == NoCodec) {
        const bool isPlain = dib.Compression() == Plain || dib.Compression() == BitFields;
        writer = std::make_unique<AviWriter>(*file, info, StreamFormatOf(dib),
                                             isPlain ? AviFrames::Bitmaps : AviFrames::Compressed);
        return;
    }
    AviEncoderResult made = MakeAviEncoder(options, first.width, LinesOf(first), framesPerSecond);
    if (!made.encoder) {
        Fail(made.reason, {});
        return;
    }
    encoder = std::move(made.encoder);
    info.fccHandler = encoder->Handler();
    info.rcFrame.bottom = LinesOf(first);
    writer = std::make_unique<AviWriter>(*file, info, encoder->Format(), AviFrames::Compressed);
}

AviState AviWriting::WriteFrame()
{
    // The first one is already loaded.
    if (written > 0)
        Load(files[written]);
    const ByteView bytes = FrameBytes();
    if (bytes.empty())
        return AviState::Failed;
    try {
        writer->WriteFrame(bytes);
        if (++written < files.size())
            return AviState::Writing;
        writer->Finish();
        file->Finish();
    } catch (const RuntimeError& error) {
        return Fail(AviErrorText, error.description);
    }
    return AviState::Finished;
}

ByteView AviWriting::FrameBytes()
{
    try {
        return encoder ? CompressedFrame() : dib.PointerToBits();
    } catch (const ImagingError& error) {
        throw RuntimeErrorOf(error);
    }
}

ByteView AviWriting::CompressedFrame()
{
    const std::vector<std::uint8_t> info = StreamFormatOf(dib);
    const ByteView pixels = dib.PointerToBits().first(PixelBytes(dib));
    BitmapFileHeader fileHeader;
    fileHeader.bfType = BitmapFileType;
    fileHeader.bfOffBits = static_cast<std::int32_t>(FileHeaderSize + info.size());
    const auto header = BytesOf(fileHeader);
    bitmap.assign(header.begin(), header.end());
    bitmap.insert(bitmap.end(), info.begin(), info.end());
    bitmap.insert(bitmap.end(), pixels.begin(), pixels.end());
    const auto read = ReadBitmap(bitmap);
    const auto* picture = std::get_if<cDIBSection>(&read);
    if (picture == nullptr || picture->Width() != first.width || picture->Height() != LinesOf(first)) {
        Fail(AviErrorText, QStringLiteral("%1 cannot be read as a picture of %2 x %3 pixels.")
                               .arg(files[written])
                               .arg(first.width)
                               .arg(LinesOf(first)));
        return {};
    }
    const std::uint8_t* top = picture->Line(picture->Height() - 1);
    const ByteView bytes = encoder->Encode(top, picture->Height() > 1 ? picture->Line(picture->Height() - 2) - top : 0);
    if (bytes.empty())
        Fail(AviErrorText, QStringLiteral("The compressor failed."));
    return bytes;
}

AviState AviWriting::Fail(const QString& text, const QString& cause)
{
    message = text;
    reason = cause;
    writer.reset();
    file.reset();
    return AviState::Failed;
}

} // namespace ob
